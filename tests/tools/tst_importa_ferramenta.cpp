// The import as a user starts it: what it says, how it ends, and what it leaves.
#include "core/modulo.h"
#include "support/program.h"
#include "support/testmain.h"
#include "tests/tools/importador.h"

#include <QRegularExpression>

#include <csignal>

#include <unistd.h>

using namespace Qt::StringLiterals;
using namespace importador;
using support::contentsOf;

class TestImportaFerramenta : public QObject
{
    Q_OBJECT

private slots:
    void init() { program_ = std::make_unique<support::Program>(); }
    void cleanup() { program_.reset(); }

    void tellsHowToCallIt_data();
    void tellsHowToCallIt();
    void tellsItsHelp();

    void allComesOver();
    void whatAKillLeftOfTheReportGoes();
    void theReportSaysWhatDidNot();
    void everythingComesOverWhereItIsAskedFor();
    void aColumnOfAnotherTypeIsToldWithTheRow();
    void whatGivesWayIsKept();
    void postalCodesComeOver();
    void aReportThatCanNotBeWrittenIsTold();
    void findingsOfTheAuditAreNoFailure();
    void theTerminalShowsHowFarItIs();
    void anInterruptionLeavesNothing();
    void aFullDiskLeavesNothing();

private:
    QString path(const QString &name) const { return program_->path(name); }

    std::unique_ptr<support::Program> program_;
};

void TestImportaFerramenta::tellsHowToCallIt_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::newRow("nothing") << QStringList{};
    QTest::newRow("no target") << QStringList{u"a.mdb"_s};
    QTest::newRow("three files") << QStringList{u"a.mdb"_s, u"b.mdb"_s, u"c.mdb"_s};
    QTest::newRow("unknown option") << QStringList{u"--junta"_s, u"a.mdb"_s, u"b.mdb"_s};
    QTest::newRow("empty name") << QStringList{u"a.mdb"_s, u""_s};
}

void TestImportaFerramenta::tellsHowToCallIt()
{
    QFETCH(const QStringList, arguments);
    const Ended ended = run(arguments, program_->path());
    QCOMPARE(ended.code, 3);
    QCOMPARE(ended.output, QString());
    QVERIFY(ended.errors.startsWith(u"uso: tarvelo-importa [--substitui] [--tudo] ORIGEM.MDB DESTINO.MDB\n"_s));
}

void TestImportaFerramenta::tellsItsHelp()
{
    const Ended ended = run({u"--ajuda"_s}, program_->path());
    QCOMPARE(ended.code, 0);
    QCOMPARE(ended.errors, QString());
    QVERIFY(ended.output.startsWith(u"uso: tarvelo-importa "_s));
    for (const QString &option : {u"--substitui"_s, u"--tudo"_s, u"--ajuda"_s}) {
        QVERIFY2(ended.output.contains(u"\n  "_s + option), qPrintable(option));
    }
}

void TestImportaFerramenta::allComesOver()
{
    QVERIFY(jet4::write(path(u"ANTIGO.MDB"_s), cleanData()));
    const QByteArray source = contentsOf(path(u"ANTIGO.MDB"_s));
    const Ended ended = run({u"ANTIGO.MDB"_s, u"NOVO.MDB"_s}, program_->path());
    QCOMPARE(ended.errors, QString());
    QCOMPARE(ended.code, 0);
    QVERIFY2(ended.output.contains(u"\nResultado: tudo veio, como estava. "_s), qPrintable(ended.output));
    QVERIFY(hasLine(ended.output, u"Clientes 2 2 2"_s));
    QVERIFY(hasLine(ended.output, u"Caixa 11,75 11,75"_s));
    QVERIFY(hasLine(ended.output, u"Caixa.Entrada 11,75 11,75"_s));
    QVERIFY(ended.output.contains(u"\ncerto Saldos do Livro Caixa: 2 linhas\n"_s));
    static const QRegularExpression ending(u"\n\n4 linhas em \\d+,\\d s \\([\\d.]+ linhas? por segundo\\)\\.\n"
                                           "Este relatório está em:\n(.*)\n$"_s);
    const auto match = ending.match(ended.output);
    QVERIFY2(match.hasMatch(), qPrintable(ended.output));
    QCOMPARE(match.captured(1), path(u"NOVO-importacao.txt"_s));

    const QString file = QString::fromUtf8(contentsOf(path(u"NOVO-importacao.txt"_s))).remove(u'\r');
    QVERIFY2(ended.output.startsWith(file), qPrintable(file));
    QCOMPARE(contentsOf(path(u"ANTIGO.MDB"_s)), source);
    QCOMPARE(firstValue(path(u"NOVO.MDB"_s), u"SELECT Nome FROM Clientes WHERE Codigo = 7"_s), u"ÂNGELA"_s);
}

void TestImportaFerramenta::whatAKillLeftOfTheReportGoes()
{
    QVERIFY(jet4::write(path(u"ANTIGO.MDB"_s), cleanData()));
    QFile left(path(u"NOVO-importacao.txt.gravando-0123abcd"_s));
    QVERIFY(left.open(QIODevice::WriteOnly));
    left.close();
    QCOMPARE(run({u"ANTIGO.MDB"_s, u"NOVO.MDB"_s}, program_->path()).code, 0);
    QVERIFY(!left.exists());
    QVERIFY(QFile::exists(path(u"NOVO-importacao.txt"_s)));
}

void TestImportaFerramenta::theReportSaysWhatDidNot()
{
    QVERIFY(jet4::write(path(u"ANTIGO.MDB"_s), oldData()));
    const Ended ended = run({u"ANTIGO.MDB"_s, u"NOVO.MDB"_s}, program_->path());
    QCOMPARE(ended.errors, QString());
    QCOMPARE(ended.code, 1);
    QVERIFY(ended.output.contains(u"\nResultado: os dados vieram, mas nem tudo como estava."_s));
    QVERIFY2(ended.output.contains(
                 u"\nFicou de fora\n  Coluna Clientes.Apelido: o Tarvelo não a conhece; com --tudo ela vem junto\n"
                 "  Tabela Agenda (2 linhas): o Tarvelo não a conhece; com --tudo ela vem junto\n"_s),
             qPrintable(ended.output));
    QVERIFY(contentsOf(path(u"NOVO-importacao.txt"_s)).contains("\r\n  Tabela Agenda (2 linhas): "));
}

void TestImportaFerramenta::everythingComesOverWhereItIsAskedFor()
{
    QVERIFY(jet4::write(path(u"ANTIGO.MDB"_s), oldData()));
    const Ended ended = run({u"--tudo"_s, u"ANTIGO.MDB"_s, u"NOVO.MDB"_s}, program_->path());
    QCOMPARE(ended.errors, QString());
    QCOMPARE(ended.code, 0);
    QVERIFY2(ended.output.contains(
                 u"\nVeio junto, sem que o Tarvelo o use\n  Colunas de Clientes: Apelido\n  Tabela Agenda\n"_s),
             qPrintable(ended.output));
    QCOMPARE(firstValue(path(u"NOVO.MDB"_s), u"SELECT Apelido FROM Clientes"_s), u"ZÉ"_s);
}

void TestImportaFerramenta::aColumnOfAnotherTypeIsToldWithTheRow()
{
    jet4::File file = cleanData();
    file.tables[1].columns[2] = {.name = u"Entrada"_s, .type = jet4::Text, .size = 20};
    file.tables[1].rows[0].values[2] = u"10,5"_s;
    file.tables[1].rows[1].values[2] = u"DEZ"_s;
    QVERIFY(jet4::write(path(u"ANTIGO.MDB"_s), file));
    const Ended ended = run({u"ANTIGO.MDB"_s, u"NOVO.MDB"_s}, program_->path());
    QCOMPARE(ended.code, 1);
    QVERIFY2(ended.output.contains(u"\nMudou ao vir\n  Caixa.Entrada: 1 valor deixado vazio (não é número nem data)\n"
                                   "      linha 2, código 0002: DEZ\n"_s),
             qPrintable(ended.output));
    QVERIFY(hasLine(ended.output, u"Caixa.Entrada - 10,50"_s));
}

void TestImportaFerramenta::whatGivesWayIsKept()
{
    const QString target = core::DBDados->path();
    core::DBDados->Close();
    QVERIFY(jet4::write(path(u"ANTIGO.MDB"_s), cleanData()));
    const Ended ended = run({u"--substitui"_s, u"ANTIGO.MDB"_s, target}, program_->path());
    QCOMPARE(ended.errors, QString());
    QCOMPARE(ended.code, 0);
    const QStringList kept = QDir(path(u"DADOS"_s)).entryList({u"*-antes-*.MDB"_s}, QDir::Files);
    QCOMPARE(kept.size(), 1);
    QVERIFY2(ended.output.contains(u"\nO banco que estava no destino foi guardado em:\n"_s +
                                   path(u"DADOS/"_s + kept.first()) + u'\n'),
             qPrintable(ended.output));
    QCOMPARE(firstValue(path(u"DADOS/"_s + kept.first()), u"SELECT count(*) FROM Senha"_s), u"1"_s);
    QCOMPARE(firstValue(target, u"SELECT count(*) FROM Clientes"_s), u"2"_s);
}

void TestImportaFerramenta::postalCodesComeOver()
{
    jet4::File file;
    file.tables.push_back(
        {.name = u"CEPS"_s,
         .columns = jet4::columns(u"CEP.Text;8,Tipo.Text;20,Rua.Text;60,Bairro.Text;60,Cidade.Text;40,Estado.Text;2"_s),
         .rows = {
             {.values = {u"13012100"_s, u"AVENIDA"_s, u"FRANCISCO GLICÉRIO"_s, u"CENTRO"_s, u"CAMPINAS"_s, u"SP"_s}}}});
    QVERIFY(jet4::write(path(u"VELHO.MDB"_s), file));
    const Ended ended = run({u"VELHO.MDB"_s, u"CEP.MDB"_s}, program_->path());
    QCOMPARE(ended.errors, QString());
    QVERIFY2(hasLine(ended.output, u"CEPS 1 1 1"_s), qPrintable(ended.output));
    QCOMPARE(ended.code, 0);
    QVERIFY(!ended.output.contains(u"Conferência"_s));
    QCOMPARE(firstValue(path(u"CEP.MDB"_s), u"SELECT Rua FROM CEPS"_s), u"FRANCISCO GLICÉRIO"_s);
}

/// The database is there and right; that its report is not there has to be known.
void TestImportaFerramenta::aReportThatCanNotBeWrittenIsTold()
{
    QVERIFY(QDir().mkpath(path(u"NOVO-importacao.txt/x"_s)));
    QVERIFY(jet4::write(path(u"ANTIGO.MDB"_s), cleanData()));
    const Ended ended = run({u"ANTIGO.MDB"_s, u"NOVO.MDB"_s}, program_->path());
    QCOMPARE(ended.code, 1);
    QVERIFY(ended.output.contains(u"\nResultado: tudo veio, como estava. "_s));
    QCOMPARE(ended.errors, u"tarvelo-importa: O banco foi feito, mas não foi possível gravar o relatório:\n%1\n"_s.arg(
                               path(u"NOVO-importacao.txt"_s)));
    QCOMPARE(firstValue(path(u"NOVO.MDB"_s), u"SELECT count(*) FROM Clientes"_s), u"2"_s);
}

void TestImportaFerramenta::findingsOfTheAuditAreNoFailure()
{
    jet4::File file = cleanData();
    file.tables[1].rows[1].values[3] = 99.0F;
    QVERIFY(jet4::write(path(u"ANTIGO.MDB"_s), file));
    const Ended ended = run({u"ANTIGO.MDB"_s, u"NOVO.MDB"_s}, program_->path());
    QCOMPARE(ended.code, 0);
    QVERIFY2(ended.output.contains(u"\nERRO  Saldos do Livro Caixa: 2 linhas, 1 erro\n"_s), qPrintable(ended.output));
    QVERIFY(contentsOf(path(u"NOVO-importacao.txt"_s)).contains("\r\nERRO  Saldos do Livro Caixa: "));
}

/// Elsewhere it would only fill a log.
void TestImportaFerramenta::theTerminalShowsHowFarItIs()
{
    QVERIFY(jet4::write(path(u"ANTIGO.MDB"_s), manyCustomers(3000)));
    QVERIFY(!run({u"ANTIGO.MDB"_s, u"UM.MDB"_s}, program_->path()).output.contains(u'\r'));
    QProcess terminal;
    terminal.setWorkingDirectory(program_->path());
    terminal.start(u"script"_s, {u"-qec"_s, QStringLiteral(FERRAMENTA) + u" ANTIGO.MDB DOIS.MDB"_s, u"/dev/null"_s});
    QVERIFY(terminal.waitForFinished(120'000));
    QCOMPARE(terminal.exitCode(), 0);
    const QString output = QString::fromUtf8(terminal.readAllStandardOutput());
    static const QRegularExpression line(u"\r\\d+ % de 3\\.000 linhas, [\\d.]+ linhas? por segundo: Clientes *\r"_s);
    QVERIFY2(line.match(output).hasMatch(), qPrintable(output));
    QVERIFY2(output.contains(QRegularExpression(u"\r +\rImportação de "_s)), qPrintable(output)); // and is gone
}

/// As by Ctrl+C, which every process of the terminal gets.
void TestImportaFerramenta::anInterruptionLeavesNothing()
{
    QVERIFY(jet4::write(path(u"ANTIGO.MDB"_s), manyCustomers(60'000)));
    const QStringList before = support::filesOf(program_->path());
    QProcess tool;
    tool.setWorkingDirectory(program_->path());
    tool.setChildProcessModifier([] { ::setpgid(0, 0); });
    tool.start(QStringLiteral(FERRAMENTA), {u"ANTIGO.MDB"_s, u"NOVO.MDB"_s});
    QVERIFY(tool.waitForStarted());
    QTRY_VERIFY_WITH_TIMEOUT(support::filesOf(program_->path()) != before, 60'000); // at work
    QCOMPARE(::kill(-static_cast<pid_t>(tool.processId()), SIGINT), 0);
    QVERIFY(tool.waitForFinished(60'000));
    QCOMPARE(tool.exitStatus(), QProcess::NormalExit);
    QCOMPARE(QString::fromUtf8(tool.readAllStandardError()),
             u"tarvelo-importa: A importação foi interrompida.\n\nNada foi importado, e o destino continua como "
             "estava.\n"_s);
    QCOMPARE(tool.exitCode(), 2);
    QCOMPARE(support::filesOf(program_->path()), before);
}

void TestImportaFerramenta::aFullDiskLeavesNothing()
{
    QVERIFY(jet4::write(path(u"ANTIGO.MDB"_s), manyCustomers(5000)));
    const QStringList before = support::filesOf(program_->path());
    QProcess tool;
    tool.setWorkingDirectory(program_->path());
    tool.start(u"/bin/sh"_s, {u"-c"_s, u"trap '' XFSZ; ulimit -f 300; exec \"$0\" ANTIGO.MDB NOVO.MDB"_s,
                              QStringLiteral(FERRAMENTA)});
    QVERIFY(tool.waitForFinished(60'000));
    QCOMPARE(QString::fromUtf8(tool.readAllStandardError()),
             u"tarvelo-importa: Não há espaço suficiente no disco:\n%1\nEsvazie-o, ou diga um destino em outro disco.\n"
             "\nNada foi importado, e o destino continua como estava.\n"_s.arg(program_->path()));
    QCOMPARE(tool.exitCode(), 2);
    QCOMPARE(support::filesOf(program_->path()), before);
}

TARVELO_TEST_MAIN(TestImportaFerramenta)
#include "tst_importa_ferramenta.moc"
