#include "tools/cep/postais.h"

#include "core/cep.h"
#include "core/modulo.h"
#include "platform/dao/database.h"
#include "platform/runtime/runtime.h"
#include "support/diskfiles.h"
#include "support/program.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;
using ceps::Codificacao;

namespace
{

const QByteArray heading = "CEP;Tipo;Rua;Bairro;Cidade;Estado\n";
const QByteArray glicerio = "13012100;AVENIDA;FRANCISCO GLICÉRIO;CENTRO;CAMPINAS;SP\n";

struct Ended {
    int code = -1;
    QString output;
    QString errors;
};

/// As the system's consoles have it.
QString told(const QByteArray &bytes)
{
    return QDir::fromNativeSeparators(QString::fromLocal8Bit(bytes)).remove(u'\r');
}

Ended runTool(const QStringList &arguments)
{
    QProcess tool;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(u"LC_ALL"_s, u"C.UTF-8"_s);
    tool.setProcessEnvironment(environment);
    tool.start(QStringLiteral(FERRAMENTA), arguments);
    tool.waitForFinished();
    return {.code = tool.exitCode(),
            .output = told(tool.readAllStandardOutput()),
            .errors = told(tool.readAllStandardError())};
}

bool alwaysOn(int /*percent*/, qint64 /*codes*/)
{
    return true;
}

QStringList fields(const dao::Recordset &row)
{
    QStringList texts;
    for (int place = 0; place < row.fieldCount(); ++place) {
        texts.append(runtime::IsNull(row.value(place)) ? u"<Null>"_s : runtime::CStr(row.value(place)));
    }
    return texts;
}

} // namespace

/// Each case works in a folder of its own.
class TestCepFerramenta : public QObject
{
    Q_OBJECT

private slots:
    void init() { folder_ = std::make_unique<QTemporaryDir>(); }

    void cutsALineIntoColumns_data()
    {
        QTest::addColumn<QString>("line");
        QTest::addColumn<QChar>("separator");
        QTest::addColumn<QStringList>("columns");
        const auto row = [](const char *name, const QString &line, QChar separator, const QStringList &columns) {
            QTest::newRow(name) << line << separator << columns;
        };
        row("plain", u"a;b;c"_s, u';', {u"a"_s, u"b"_s, u"c"_s});
        row("comma", u"a,b;c"_s, u',', {u"a"_s, u"b;c"_s});
        row("blanks around", u" a ; b b ;c "_s, u';', {u"a"_s, u"b b"_s, u"c"_s});
        row("empty columns", u";;"_s, u';', {u""_s, u""_s, u""_s});
        row("separator in quotation marks", u"\"a;b\";c"_s, u';', {u"a;b"_s, u"c"_s});
        row("doubled quotation marks", u"\"o \"\"bar\"\"\";c"_s, u';', {u"o \"bar\""_s, u"c"_s});
        row("empty quotation marks", u"\"\";c"_s, u';', {u""_s, u"c"_s});
        row("blanks around quotation marks", u" \"a\" ; \"b\" "_s, u';', {u"a"_s, u"b"_s});
        row("quotation mark inside", u"a\"b;c"_s, u';', {u"a\"b"_s, u"c"_s});
    }
    void cutsALineIntoColumns()
    {
        QFETCH(QString, line);
        QFETCH(QChar, separator);
        QTEST(ceps::separaColunas(line, separator).value_or(QStringList()), "columns");
    }

    void quotationMarksThatDoNotMatchAreRefused()
    {
        QVERIFY(!ceps::separaColunas(u"a;\"b;c", u';'));
        QVERIFY(!ceps::separaColunas(u"\"a\"b;c", u';'));
        QVERIFY(!ceps::separaColunas(u"a;\"", u';'));
        QVERIFY(!ceps::separaColunas(u"\"a\"\";c", u';'));
    }

    void theFirstLineTellsTheSeparator()
    {
        QCOMPARE(ceps::separadorDe(u"a;b"), QChar(u';'));
        QCOMPARE(ceps::separadorDe(u"a,b"), QChar(u','));
        QCOMPARE(ceps::separadorDe(u"\"a;b\",c"), QChar(u','));
        QCOMPARE(ceps::separadorDe(u"a,\"b\";c"), QChar(u';'));
    }

    void makesTheTableOfTheLookUp()
    {
        QCOMPARE(make(heading + glicerio), 1);
        const auto database = dao::DBEngine::OpenDatabase(path(u"CEP.MDB"_s), true);
        const auto tables = database->TableDefs();
        QCOMPARE(tables.size(), 1U);
        QCOMPARE(tables[0].name(), u"CEPS"_s);
        QStringList columns;
        for (const dao::Field &field : tables[0].fields()) {
            QCOMPARE(field.type, dao::FieldType::Text);
            columns.append(u"%1 %2"_s.arg(field.name).arg(field.size));
        }
        QCOMPARE(columns,
                 (QStringList{u"CEP 8"_s, u"Tipo 36"_s, u"Rua 150"_s, u"Bairro 80"_s, u"Cidade 80"_s, u"Estado 2"_s}));
        QCOMPARE(database->CheckIntegrity(), u"ok"_s);
    }

    void takesAnyFormOfTheSameLine_data()
    {
        QTest::addColumn<QByteArray>("text");
        QTest::addColumn<bool>("western");
        const auto row = [](const char *name, const QByteArray &text, bool western = false) {
            QTest::newRow(name) << text << western;
        };
        row("semicolons", heading + glicerio);
        row("without a heading", glicerio);
        row("without the last line's end", glicerio.chopped(1));
        row("heading in other letters", "cep;TIPO;rua;bairro;cidade;estado\n" + glicerio);
        row("commas", QByteArray(heading + glicerio).replace(';', ','));
        row("quotation marks", "\"13012100\",\"AVENIDA\",\"FRANCISCO GLICÉRIO\",\"CENTRO\",\"CAMPINAS\",\"SP\"\n");
        row("hyphen", "13012-100;AVENIDA;FRANCISCO GLICÉRIO;CENTRO;CAMPINAS;SP\n");
        row("byte order mark", "\xEF\xBB\xBF" + heading + glicerio);
        row("Windows line ends", QByteArray(heading + glicerio).replace("\n", "\r\n"));
        row("empty lines", "\n" + heading + "\n" + glicerio + "  \n");
        row("code page 1252", runtime::toWestern(QString::fromUtf8(heading + glicerio)), true);
    }
    void takesAnyFormOfTheSameLine()
    {
        QFETCH(QByteArray, text);
        QFETCH(bool, western);
        QCOMPARE(make(text, western ? Codificacao::Windows1252 : Codificacao::Utf8), 1);
        QCOMPARE(rows(), (QList<QStringList>{{u"13012100"_s, u"AVENIDA"_s, u"FRANCISCO GLICÉRIO"_s, u"CENTRO"_s,
                                              u"CAMPINAS"_s, u"SP"_s}}));
    }

    void anEmptyColumnIsNull()
    {
        QCOMPARE(make("18130000;;;;SÃO ROQUE;SP\n"), 1);
        QCOMPARE(rows(),
                 (QList<QStringList>{{u"18130000"_s, u"<Null>"_s, u"<Null>"_s, u"<Null>"_s, u"SÃO ROQUE"_s, u"SP"_s}}));
    }

    void keepsTheOrderOfTheLines()
    {
        QByteArray text;
        for (int i = 25'000; i > 0; --i) { // many pages of the file
            text += QByteArray::number(10'000'000 + i) + ";RUA;" + QByteArray::number(i) + ";CENTRO;CIDADE;SP\n";
        }
        QCOMPARE(make(text), 25'000);
        const auto database = dao::DBEngine::OpenDatabase(path(u"CEP.MDB"_s), true);
        auto row = database->OpenRecordset(u"CEPS"_s);
        for (int i = 25'000; i > 0; --i, row.MoveNext()) {
            QCOMPARE(runtime::CStr(row.value(u"Rua")), QString::number(i));
        }
        QVERIFY(row.Eof());
    }

    void aBadLineIsToldWithItsNumber_data()
    {
        QTest::addColumn<QByteArray>("text");
        QTest::addColumn<QString>("message");
        const auto row = [](const char *name, const QByteArray &text, const QString &message) {
            QTest::newRow(name) << text << message;
        };
        row("seven digits", heading + "1301210;A;B;C;D;SP\n", u"Linha 2: o CEP '1301210' não tem 8 algarismos."_s);
        row("nine digits", glicerio + "130121000;A;B;C;D;SP\n", u"Linha 2: o CEP '130121000' não tem 8 algarismos."_s);
        row("a letter", "1301210O;A;B;C;D;SP\n", u"Linha 1: o CEP '1301210O' não tem 8 algarismos."_s);
        row("hyphen elsewhere", "130121-00;A;B;C;D;SP\n", u"Linha 1: o CEP '130121-00' não tem 8 algarismos."_s);
        row("no CEP", ";A;B;C;D;SP\n", u"Linha 1: o CEP '' não tem 8 algarismos."_s);
        row("behind empty lines", "\n\n" + glicerio + "\nX;A;B;C;D;SP\n",
            u"Linha 5: o CEP 'X' não tem 8 algarismos."_s);
        row("a second heading", heading + heading, u"Linha 2: o CEP 'CEP' não tem 8 algarismos."_s);
        row("five columns", heading + glicerio + "13012100;A;B;C;D\n",
            u"Linha 3: são esperadas 6 colunas (CEP, Tipo, Rua, Bairro, Cidade, Estado) e há 5."_s);
        row("seven columns", "13012100;A;B;C;D;SP;\n",
            u"Linha 1: são esperadas 6 colunas (CEP, Tipo, Rua, Bairro, Cidade, Estado) e há 7."_s);
        row("street too long", "13012100;A;" + QByteArray(151, 'B') + ";C;D;SP\n",
            u"Linha 1: Rua tem 151 caracteres e só cabem 150."_s);
        row("state too long", "13012100;A;B;C;D;SPX\n", u"Linha 1: Estado tem 3 caracteres e só cabem 2."_s);
        row("columns in another order", "CEP;Estado;Cidade;Bairro;Tipo;Rua\n" + glicerio,
            u"Linha 1: o cabeçalho deve ser CEP;Tipo;Rua;Bairro;Cidade;Estado."_s);
        row("open quotation marks", "13012100;A;\"B;C;D;SP\n",
            u"Linha 1: as aspas não fecham onde a coluna termina."_s);
        row("no UTF-8", heading + "13012100;A;GLIC\xC9RIO;C;D;SP\n",
            u"Linha 2: o texto não está em UTF-8 (para a página de código 1252 use --latin1)."_s);
        row("half a letter at the end", "13012100;A;B;C;D;\xC3",
            u"Linha 1: o texto não está em UTF-8 (para a página de código 1252 use --latin1)."_s);
        row("endless line", glicerio + QByteArray(100'000, 'x'), u"Linha 2: a linha é longa demais."_s);
        row("empty file", "", u"O arquivo não tem nenhum CEP."_s);
        row("heading alone", heading, u"O arquivo não tem nenhum CEP."_s);
    }
    void aBadLineIsToldWithItsNumber()
    {
        QFETCH(QByteArray, text);
        QTEST(refusal(text), "message");
        QCOMPARE(files(), QStringList{u"entrada.csv"_s}); // no half-made database, and nothing beside it
    }

    void theLongestTextsFit()
    {
        const QByteArray line = "13012100;" + QByteArray(36, 'A') + ';' + QByteArray(150, 'B') + ';' +
                                QByteArray(80, 'C') + ';' + QByteArray(80, 'D') + ";SP\n";
        QCOMPARE(make(line), 1);
        QCOMPARE(rows()[0][2].size(), 150);
    }

    void anExistingDatabaseIsKept()
    {
        make(glicerio);
        QCOMPARE(refusal("01001000;PRAÇA;DA SÉ;SÉ;SÃO PAULO;SP\n"),
                 u"O arquivo '%1' já existe (para substituir use --substitui)."_s.arg(path(u"CEP.MDB"_s)));
        QCOMPARE(rows()[0][0], u"13012100"_s);
    }

    void anExistingDatabaseGivesWayWhenTold()
    {
        make(glicerio);
        QCOMPARE(make("01001000;PRAÇA;DA SÉ;SÉ;SÃO PAULO;SP\n", Codificacao::Utf8, true), 1);
        QCOMPARE(rows().size(), 1);
        QCOMPARE(rows()[0][0], u"01001000"_s);
        QCOMPARE(files(), (QStringList{u"CEP.MDB"_s, u"entrada.csv"_s}));
    }

    void aFailedReplacementKeepsTheOldDatabase()
    {
        make(glicerio);
        QVERIFY(!refusal(glicerio + "X;A;B;C;D;SP\n", true).isEmpty());
        QCOMPARE(rows()[0][0], u"13012100"_s);
        QCOMPARE(files(), (QStringList{u"CEP.MDB"_s, u"entrada.csv"_s}));
    }

    void theTextFileIsNeverReplaced()
    {
        write(glicerio);
        ceps::Pedido request = this->request(Codificacao::Utf8, true);
        request.saida = path(u"./entrada.csv"_s);
        QCOMPARE(refusalOf(request), u"A entrada e a saída são o mesmo arquivo."_s);
        QCOMPARE(QFile(path(u"entrada.csv"_s)).size(), glicerio.size());
    }

    void aFolderIsNeverReplaced()
    {
        write(glicerio);
        QVERIFY(QDir(folder_->path()).mkdir(u"CEP.MDB"_s));
        QCOMPARE(refusalOf(request(Codificacao::Utf8, true)), u"'%1' não é um arquivo."_s.arg(path(u"CEP.MDB"_s)));
    }

    void missingFilesAndFoldersAreTold()
    {
        QVERIFY(refusalOf(request()).startsWith(u"Não foi possível abrir '%1': "_s.arg(path(u"entrada.csv"_s))));
        write(glicerio);
        ceps::Pedido request = this->request();
        request.saida = path(u"nenhuma/CEP.MDB"_s);
        QVERIFY(refusalOf(request).startsWith(u"Não foi possível gravar '%1': "_s.arg(request.saida)));
    }

    void tellsHowFarItIs()
    {
        write(glicerio.repeated(3500));
        QList<std::pair<int, qint64>> told;
        ceps::fazBanco(request(), [&told](int percent, qint64 codes) {
            told.append({percent, codes});
            return true;
        });
        QCOMPARE(told, (QList<std::pair<int, qint64>>{{28, 1000}, {57, 2000}, {85, 3000}, {100, 3500}}));
    }

    void aStopLeavesNothing()
    {
        write(glicerio.repeated(3500));
        try {
            ceps::fazBanco(request(), [](int /*percent*/, qint64 codes) { return codes < 2000; });
            QFAIL("went on");
        } catch (const ceps::Erro &error) {
            QCOMPARE(error.texto(), u"Interrompido."_s);
        }
        QCOMPARE(files(), QStringList{u"entrada.csv"_s});
    }

    /// Looked at in the middle: this is what a kill leaves.
    void theOldDatabaseStandsUntilTheNewOneIsWhole()
    {
        make(glicerio);
        write(glicerio.repeated(3500));
        QList<QStringList> beside;
        ceps::fazBanco(request(Codificacao::Utf8, true), [&](int /*percent*/, qint64 /*codes*/) {
            beside.append(files());
            return rows().size() == 1;
        });
        QCOMPARE(beside.size(), 4);
        const QRegularExpression draft(u"^CEP\\.MDB\\.gravando-[0-9a-f]{8}$"_s);
        for (const QStringList &names : beside) {
            QCOMPARE(names.size(), 3);
            QCOMPARE(names.filter(draft).size(), 1);
        }
        QCOMPARE(rows().size(), 3500);
    }

    void whatAKillLeftGoesWithTheNextRun()
    {
        QFile left(path(u"CEP.MDB.gravando-0123abcd"_s));
        QVERIFY(left.open(QIODevice::WriteOnly));
        left.close();
        make(glicerio);
        QCOMPARE(files(), (QStringList{u"CEP.MDB"_s, u"entrada.csv"_s}));
    }

    void aDatabaseMadeMeanwhileIsKept()
    {
        write(glicerio.repeated(1500));
        const auto somebodyElse = [this](int /*percent*/, qint64 /*codes*/) {
            QFile file(path(u"CEP.MDB"_s));
            return file.open(QIODevice::WriteOnly) && file.write("de outro") > 0;
        };
        try {
            ceps::fazBanco(request(), somebodyElse);
            QFAIL("replaced it");
        } catch (const ceps::Erro &error) {
            QVERIFY(error.texto().contains(u"já existe"_s));
        }
        QCOMPARE(support::contentsOf(path(u"CEP.MDB"_s)), "de outro");
        QCOMPARE(files(), (QStringList{u"CEP.MDB"_s, u"entrada.csv"_s}));
    }

    void theToolTellsWhatItMade()
    {
        write(glicerio.repeated(1500));
        const Ended ended = runTool({path(u"entrada.csv"_s), path(u"CEP.MDB"_s)});
        QCOMPARE(ended.code, 0);
        QCOMPARE(ended.errors, QString());
        // one line: percentages are for a terminal only
        const QRegularExpression line(
            u"^%1: 1\\.500 CEPs em \\d+,\\d s\\.\n$"_s.arg(QRegularExpression::escape(path(u"CEP.MDB"_s))));
        QVERIFY2(line.match(ended.output).hasMatch(), qPrintable(ended.output));
        QCOMPARE(rows().size(), 1500);
    }

    void theToolTellsWhyItRefuses()
    {
        write(heading + "123;A;B;C;D;SP\n");
        const Ended ended = runTool({path(u"entrada.csv"_s), path(u"CEP.MDB"_s)});
        QCOMPARE(ended.code, 1);
        QCOMPARE(ended.output, QString());
        QCOMPARE(ended.errors, u"cep: Linha 2: o CEP '123' não tem 8 algarismos.\n"_s);
    }

    void theToolKnowsItsOptions()
    {
        write(runtime::toWestern(QString::fromUtf8(glicerio)));
        const QStringList names = {path(u"entrada.csv"_s), path(u"CEP.MDB"_s)};
        QCOMPARE(runTool(names).code, 1);
        QCOMPARE(runTool(QStringList{u"--latin1"_s} + names).code, 0);
        QCOMPARE(runTool(QStringList{u"--latin1"_s} + names).code, 1);
        QCOMPARE(runTool(names + QStringList{u"--substitui"_s, u"--latin1"_s}).code, 0);
        QCOMPARE(rows()[0][2], u"FRANCISCO GLICÉRIO"_s);
    }

    void theToolHelps()
    {
        const Ended ended = runTool({u"--ajuda"_s});
        QCOMPARE(ended.code, 0);
        QCOMPARE(ended.errors, QString());
        QVERIFY(ended.output.startsWith(u"uso: cep ["_s));
        for (const QString &option : {u"--latin1"_s, u"--substitui"_s, u"--ajuda"_s}) {
            QVERIFY2(ended.output.contains(u"\n  "_s + option + u' '), qPrintable(option));
        }
    }

    void theToolTellsHowToCallIt_data()
    {
        QTest::addColumn<QStringList>("arguments");
        QTest::newRow("nothing") << QStringList();
        QTest::newRow("one file") << QStringList{u"a.csv"_s};
        QTest::newRow("three files") << QStringList{u"a.csv"_s, u"b.mdb"_s, u"c"_s};
        QTest::newRow("unknown option") << QStringList{u"--tudo"_s, u"a.csv"_s, u"b.mdb"_s};
    }
    void theToolTellsHowToCallIt()
    {
        QFETCH(QStringList, arguments);
        const Ended ended = runTool(arguments);
        QCOMPARE(ended.code, 2);
        QVERIFY(ended.errors.startsWith(u"uso: cep [--latin1] [--substitui] ENTRADA.csv SAIDA.MDB\n"));
    }

    void theSampleServesTheLookUp()
    {
        const support::Program program;
        const QString file = program.path(u"CEP.MDB"_s);
        const qint64 codes = ceps::fazBanco(
            {.entrada = QStringLiteral(AMOSTRA), .saida = file, .codificacao = Codificacao::Utf8, .substitui = false},
            alwaysOn);
        QVERIFY(codes >= 150);
        core::DBCEP = dao::DBEngine::OpenDatabase(file, true);
        const auto found = core::ProcuraCEP(u"01.310-100"_s);
        QVERIFY(found.endereco);
        QCOMPARE(found.endereco->endereco, u"AVENIDA PAULISTA"_s);
        QCOMPARE(found.endereco->bairro, u"BELA VISTA"_s);
        QCOMPARE(found.endereco->cidade, u"SÃO PAULO"_s);
        QCOMPARE(found.endereco->estado, u"SP"_s);
        const auto twice = core::DBCEP->OpenRecordset(u"SELECT CEP FROM CEPS GROUP BY CEP HAVING Count(*) > 1"_s);
        QVERIFY(twice.Eof());
    }

private:
    QString path(const QString &name) const { return folder_->filePath(name); }
    QStringList files() const { return QDir(folder_->path()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot); }

    void write(const QByteArray &text) const
    {
        QFile file(path(u"entrada.csv"_s));
        QVERIFY(file.open(QIODevice::WriteOnly));
        QCOMPARE(file.write(text), text.size());
    }

    ceps::Pedido request(Codificacao encoding = Codificacao::Utf8, bool replace = false) const
    {
        return {.entrada = path(u"entrada.csv"_s),
                .saida = path(u"CEP.MDB"_s),
                .codificacao = encoding,
                .substitui = replace};
    }

    qint64 make(const QByteArray &text, Codificacao encoding = Codificacao::Utf8, bool replace = false) const
    {
        write(text);
        return ceps::fazBanco(request(encoding, replace), alwaysOn);
    }

    /// Why a request is refused; "" where it is not.
    static QString refusalOf(const ceps::Pedido &request)
    {
        try {
            ceps::fazBanco(request, alwaysOn);
        } catch (const ceps::Erro &error) {
            return error.texto();
        }
        return {};
    }

    QString refusal(const QByteArray &text, bool replace = false) const
    {
        write(text);
        return refusalOf(request(Codificacao::Utf8, replace));
    }

    QList<QStringList> rows() const
    {
        const auto database = dao::DBEngine::OpenDatabase(path(u"CEP.MDB"_s), true);
        QList<QStringList> all;
        for (auto row = database->OpenRecordset(u"CEPS"_s); !row.Eof(); row.MoveNext()) {
            all.append(fields(row));
        }
        return all;
    }

    std::unique_ptr<QTemporaryDir> folder_;
};

TARVELO_TEST_MAIN(TestCepFerramenta)
#include "tst_cep_ferramenta.moc"
