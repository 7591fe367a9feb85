// The audit as a user starts it: which file it reads, what it says, how it ends, and that it leaves everything as it
// was.
#include "support/diskfiles.h"
#include "tests/tools/conferido.h"

#include "core/caminhos.h"
#include "core/razao.h"
#include "platform/runtime/runtime.h"
#include "support/ordinaryuser.h"
#include "support/otherprogram.h"
#include "tools/confere/arquivo.h"

#include <QDateTime>
#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>

using namespace Qt::StringLiterals;
using support::contentsOf;

namespace
{

struct Ended {
    int code = -1;
    QString output;
    QString errors;
};

Ended run(const QStringList &arguments, const QString &program = QStringLiteral(FERRAMENTA),
          const QString &userData = u"/nenhuma"_s)
{
    QProcess tool;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(u"LC_ALL"_s, u"C.UTF-8"_s);
    environment.insert(u"XDG_DATA_HOME"_s, userData);
    tool.setProcessEnvironment(environment);
    tool.start(program, arguments);
    tool.waitForFinished(60000);
    return {.code = tool.exitStatus() == QProcess::NormalExit ? tool.exitCode() : -1,
            .output = QString::fromUtf8(tool.readAllStandardOutput()),
            .errors = QString::fromUtf8(tool.readAllStandardError())};
}

void write(const QString &path, const QByteArray &bytes)
{
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    QCOMPARE(file.write(bytes), bytes.size());
}

/// Name, size, rights, times and contents of all that stands below a folder.
QStringList everythingIn(const QString &folder)
{
    QStringList found;
    QDirIterator files(folder, QDir::AllEntries | QDir::NoDotAndDotDot | QDir::Hidden, QDirIterator::Subdirectories);
    while (files.hasNext()) {
        const QFileInfo info(files.next());
        found.append(u"%1 %2 %3 %4 %5 %6"_s.arg(info.filePath())
                         .arg(info.size())
                         .arg(info.permissions().toInt(), 0, 16)
                         .arg(info.lastModified().toMSecsSinceEpoch())
                         .arg(info.metadataChangeTime().toMSecsSinceEpoch())
                         .arg(info.isFile() ? qHash(contentsOf(info.filePath())) : 0));
    }
    found.sort();
    return found;
}

} // namespace

class TestConfereFerramenta : public QObject
{
    Q_OBJECT

private slots:
    void init() { program_ = std::make_unique<support::Program>(); }
    void cleanup() { program_.reset(); }

    void nothingFound();
    void somethingFound();
    void warningsAreFindings();
    void allFindingsOrTheFirstOfThem();
    void allOfMoreThanAReportKeeps();
    void whoReadsSlowlyHoldsNobody();
    void leavesEverythingAsItWas();
    void readsWhatItMayNotWrite();

    void takesAFileOrAFolder();
    void findsTheDatabaseOfItsInstallation();
    void findsTheDatabaseOfThePackagesUser();
    void makesNoFolder();

    void filesThatAreNone_data();
    void filesThatAreNone();
    void oldDataAreToBeImported();
    void thePostalCodesAreNotTheMainDatabase();
    void aFileInUse();
    void anInterruptedWrite();

    void tellsHowToCallIt_data();
    void tellsHowToCallIt();
    void tellsWhatItAsks();

private:
    QString path(const QString &name = {}) const { return program_->path(name); }
    static QString database() { return core::DBDados->path(); }
    void damage() const { program_->sql(u"UPDATE Caixa SET Saldo = 9 WHERE Codigo = 1"_s); }
    /// Rows of the cash book that refer to an order which does not exist.
    static void refer(const char *rows)
    {
        const QByteArray insert = "INSERT INTO Caixa (Codigo, Data, Entrada, Saldo, CodOs) WITH RECURSIVE n (i) AS "
                                  "(SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < " +
                                  QByteArray(rows) + ") SELECT i, 45427, 0, 0, 5 FROM n";
        QVERIFY(support::OtherProgram(database()).run(insert.constData()));
    }
    static void post(int times = 1)
    {
        for (int i = 0; i < times; ++i) {
            core::LancaNoRazao(core::razaoCaixa, {.descricao = u"LINHA"_s, .valor = u"1,00"_s});
        }
    }

    std::unique_ptr<support::Program> program_;
};

void TestConfereFerramenta::nothingFound()
{
    post();
    const Ended ended = run({database()});
    QCOMPARE(ended.code, 0);
    QCOMPARE(ended.errors, QString());
    const QStringList lines = ended.output.split(u'\n');
    static const QRegularExpression heading(
        u"^Conferência de (.*) \\(\\d+ KB, gravado em \\d\\d/\\d\\d/\\d{4} \\d\\d:\\d\\d:\\d\\d\\)$"_s);
    const auto match = heading.match(lines.first());
    QVERIFY2(match.hasMatch(), qPrintable(lines.first()));
    QCOMPARE(match.captured(1), database());
    QVERIFY(lines.contains(u"certo Saldos do Livro Caixa: 1 linha"_s));
    QVERIFY(lines.contains(u"certo Saldos do estoque: 0 linhas"_s));
    QVERIFY(lines.contains(u"certo Integridade do arquivo: 21 tabelas"_s));
    QCOMPARE(lines.at(lines.size() - 2), u"Resultado: nada foi encontrado."_s);
}

void TestConfereFerramenta::somethingFound()
{
    post(2);
    damage();
    const Ended ended = run({database()});
    QCOMPARE(ended.code, 1);
    QVERIFY2(ended.output.contains(u"ERRO  Saldos do Livro Caixa: 2 linhas, 1 erro\n"
                                   "        Caixa, código 0001 de 15/05/2024 tem o saldo 9,00, mas a primeira linha, "
                                   "com a entrada de 1,00, dá 1,00.\n"_s),
             qPrintable(ended.output));
    QVERIFY(ended.output.endsWith(u"\nResultado: 1 erro e 0 avisos.\n"_s));
}

void TestConfereFerramenta::warningsAreFindings()
{
    const qint32 customer = program_->customer(u"MARIA"_s);
    program_->vehicle(customer, u"ABC1234"_s);
    program_->vehicle(customer, u"ABC4321"_s);
    program_->sql(u"DELETE * FROM Clientes"_s);
    const Ended ended = run({database()});
    QCOMPARE(ended.code, 1);
    QVERIFY(ended.output.contains(u"aviso Clientes dos veículos: 2 linhas, 2 avisos\n"_s));
    QVERIFY(ended.output.endsWith(u"\nResultado: 0 erros e 2 avisos.\n"_s));
}

void TestConfereFerramenta::allFindingsOrTheFirstOfThem()
{
    post(12);
    program_->sql(u"UPDATE Caixa SET CodOs = 5"_s);
    const auto shown = [](const QString &output) { return output.count(u"cita a ordem de serviço 0005"_s); };
    const Ended some = run({database()});
    QCOMPARE(shown(some.output), 10);
    QVERIFY(some.output.contains(u"        ... e mais 2 (--tudo mostra todos)\n"_s));
    const Ended all = run({u"--tudo"_s, database()});
    QCOMPARE(shown(all.output), 12);
    QVERIFY(!all.output.contains(u"... e mais"_s));
    QVERIFY(all.output.endsWith(u"\nResultado: 0 erros e 12 avisos.\n"_s));
    QCOMPARE(all.code, 1);
}

/// They are told on the way, in their order.
void TestConfereFerramenta::allOfMoreThanAReportKeeps()
{
    constexpr int rows = 2500;
    refer("2500");
    const Ended some = run({database()});
    QVERIFY(some.output.contains(u"        ... e mais 2.490 (--tudo mostra todos)\n"_s));
    const Ended all = run({u"--tudo"_s, database()});
    QCOMPARE(all.code, 1);
    QStringList expected{u"aviso Ordens do Livro Caixa: 2.500 linhas, 2.500 avisos"_s};
    for (int code = 1; code <= rows; ++code) {
        expected.append(u"        Caixa, código %1 cita a ordem de serviço 0005, que não existe em OrdemServico."_s.arg(
            confere::TextoDoCodigo(code)));
    }
    const QStringList lines = all.output.split(u'\n');
    const auto heading = lines.indexOf(expected.first());
    QVERIFY(heading > 0);
    QCOMPARE(lines.mid(heading, expected.size()), expected);
    QVERIFY(lines.at(heading + expected.size()).startsWith(u"certo "_s));
    QVERIFY(all.output.endsWith(u"\nResultado: 0 erros e 2.500 avisos.\n"_s));
}

/// The reader of a pipe, who takes the first letter and leaves the rest, stands for one that turns pages.
void TestConfereFerramenta::whoReadsSlowlyHoldsNobody()
{
    refer("2500"); // more than a pipe takes
    QProcess tool;
    QProcess reader;
    tool.setStandardOutputProcess(&reader);
    reader.start(u"sh"_s, {u"-c"_s, u"head -c 1 && exec sleep 600"_s});
    tool.start(QStringLiteral(FERRAMENTA), {u"--tudo"_s, database()});
    QVERIFY(reader.waitForStarted() && tool.waitForStarted());
    QVERIFY(reader.waitForReadyRead(60000));
    QCOMPARE(reader.readAll(), QByteArray("C"));
    QVERIFY(support::OtherProgram(database()).take());
    QCOMPARE(tool.state(), QProcess::Running); // it has more to say
    reader.kill();
    QVERIFY(reader.waitForFinished(60000) && tool.waitForFinished(60000));
}

void TestConfereFerramenta::leavesEverythingAsItWas()
{
    post(5);
    damage();
    const QString file = database();
    core::DBDados->Close();
    const QStringList before = everythingIn(path());
    QVERIFY(before.size() > 2);
    QCOMPARE(run({file}).code, 1);
    QCOMPARE(run({path()}).code, 1);
    QCOMPARE(everythingIn(path()), before);
}

/// Another user's file in another user's folder.
void TestConfereFerramenta::readsWhatItMayNotWrite()
{
    post();
    const QString file = database();
    core::DBDados->Close();
    const auto readable = QFile::ReadOwner | QFile::ReadGroup | QFile::ReadOther;
    const auto enterable = readable | QFile::ExeOwner | QFile::ExeGroup | QFile::ExeOther;
    QVERIFY(QFile::setPermissions(file, readable));
    QVERIFY(QFile::setPermissions(QFileInfo(file).path(), enterable));
    QVERIFY(QFile::setPermissions(path(), enterable));
    {
        const support::OrdinaryUser user;
        QVERIFY(!QFile(file).open(QIODevice::ReadWrite));
        QVERIFY(!QFile(file + u"-journal"_s).open(QIODevice::WriteOnly));
        QCOMPARE(conferido::findings(confere::Confere(file)), QStringList());
        QCOMPARE(conferido::counted(confere::Confere(file), u"Saldos do Livro Caixa"_s), 1);
    }
    for (const QString &folder : {QFileInfo(file).path(), path()}) {
        QVERIFY(QFile::setPermissions(folder, enterable | QFile::WriteOwner));
    }
}

void TestConfereFerramenta::takesAFileOrAFolder()
{
    const QString file = database();
    core::DBDados->Close();
    QCOMPARE(confere::ArquivoDe(file), file);
    QCOMPARE(confere::ArquivoDe(QFileInfo(file).path()), file); // the folder that it stands in
    QVERIFY(run({path()}).output.startsWith(u"Conferência de "_s + file));

    // the settings name another place, in the program's own spelling
    QVERIFY(QDir().mkpath(path(u"REDE"_s)));
    const QString moved = path(u"REDE/OFICINA.MDB"_s);
    QVERIFY(QFile::rename(file, moved));
    program_->config(u"FileDB"_s, QString(path() + u"\\rede\\oficina.mdb"_s));
    QCOMPARE(confere::ArquivoDe(path()), moved);
    const Ended ended = run({path()});
    QCOMPARE(ended.code, 0);
    QVERIFY(ended.output.startsWith(u"Conferência de "_s + moved));
}

/// Beside the program of a portable installation.
void TestConfereFerramenta::findsTheDatabaseOfItsInstallation()
{
    const QString file = database();
    core::DBDados->Close();
    const QString tool = path(u"tarvelo-confere"_s);
    QVERIFY(QFile::copy(QStringLiteral(FERRAMENTA), tool));
    const QTemporaryDir home;
    const Ended ended = run({}, tool, home.path());
    QCOMPARE(ended.errors, QString());
    QCOMPARE(ended.code, 0);
    QVERIFY2(ended.output.startsWith(u"Conferência de "_s + file), qPrintable(ended.output));

    // an older database of the user's own is not meant
    QVERIFY(QDir(home.path()).mkpath(u"tarvelo/DADOS"_s));
    QVERIFY(QFile::copy(file, home.filePath(u"tarvelo/DADOS/DADOS.MDB"_s)));
    QVERIFY(run({}, tool, home.path()).output.startsWith(u"Conferência de "_s + file));
    // where none stands beside the program, it is
    QVERIFY(QFile::remove(file));
    QVERIFY(run({}, tool, home.path()).output.startsWith(u"Conferência de "_s + home.path()));
}

void TestConfereFerramenta::findsTheDatabaseOfThePackagesUser()
{
    const QString file = database();
    core::DBDados->Close();
    const QTemporaryDir root;
    for (const char *const folder : {"bin", "share/tarvelo/DADOS", "home/tarvelo/DADOS"}) {
        QVERIFY(QDir(root.path()).mkpath(QString::fromLatin1(folder)));
    }
    const QString user = root.filePath(u"home/tarvelo/DADOS/DADOS.MDB"_s);
    QVERIFY(QFile::copy(file, user));
    const QString tool = root.filePath(u"bin/tarvelo-confere"_s);
    QVERIFY(QFile::copy(QStringLiteral(FERRAMENTA), tool));
    const Ended ended = run({}, tool, root.filePath(u"home"_s));
    QCOMPARE(ended.errors, QString());
    QVERIFY(ended.output.startsWith(u"Conferência de "_s + user));
    QCOMPARE(ended.code, 0);
}

void TestConfereFerramenta::makesNoFolder()
{
    const QTemporaryDir root;
    QVERIFY(QDir(root.path()).mkpath(u"bin"_s) && QDir(root.path()).mkpath(u"share/tarvelo"_s));
    const QString tool = root.filePath(u"bin/tarvelo-confere"_s);
    QVERIFY(QFile::copy(QStringLiteral(FERRAMENTA), tool));
    const QStringList before = everythingIn(root.path());
    const Ended ended = run({}, tool, root.filePath(u"home"_s));
    QCOMPARE(ended.code, 2);
    QCOMPARE(ended.errors,
             u"tarvelo-confere: Não foi possível encontrar o arquivo '%1/home/tarvelo/DADOS/DADOS.MDB'.\nConfira o "
             "nome, ou diga a pasta do programa.\n"_s.arg(root.path()));
    QCOMPARE(everythingIn(root.path()), before);
}

void TestConfereFerramenta::filesThatAreNone_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("words");
    const QString none = u"não é um banco de dados reconhecido.\nSe este é o arquivo em que a oficina trabalha, "
                         "restaure a última cópia de segurança.\n"_s;
    QTest::newRow("empty") << QByteArray() << none;
    QTest::newRow("text") << QByteArray("texto qualquer").repeated(100) << none;
    QTest::newRow("cut off") << QByteArray("SQLite format 3") << none;
    QTest::newRow("another program's") << QByteArray("SQLite format 3\0", 16) + QByteArray(4080, '\0') << none;
    QByteArray jet(4096, '\0');
    jet.replace(0, 20, QByteArrayLiteral("\x00\x01\x00\x00Standard Jet DB\x00"));
    QTest::newRow("Jet") << jet
                         << u"É um banco de dados Jet (.MDB) genuíno e precisa ser convertido antes de ser usado.\n"_s;
}

void TestConfereFerramenta::filesThatAreNone()
{
    QFETCH(QByteArray, bytes);
    QFETCH(QString, words);
    const QString file = path(u"outro.mdb"_s);
    write(file, bytes);
    const Ended ended = run({file});
    QCOMPARE(ended.code, 2);
    QCOMPARE(ended.output, QString());
    QVERIFY2(ended.errors.startsWith(u"tarvelo-confere: O arquivo '%1' "_s.arg(file)), qPrintable(ended.errors));
    QVERIFY2(ended.errors.contains(words), qPrintable(ended.errors));
    QCOMPARE(contentsOf(file), bytes);
}

/// Its message tells what to do; a copy would not help.
void TestConfereFerramenta::oldDataAreToBeImported()
{
    const QString file = path(u"outro.mdb"_s);
    write(file, QByteArrayLiteral("\x00\x01\x00\x00Standard Jet DB\x00").leftJustified(4096, '\0'));
    const Ended ended = run({file});
    QCOMPARE(ended.code, 2);
    QVERIFY2(ended.errors.contains(u"\ntarvelo-importa ANTIGO.MDB \"outro.mdb\"\n"_s), qPrintable(ended.errors));
    QVERIFY2(!ended.errors.contains(u"cópia de segurança"_s), qPrintable(ended.errors));
}

void TestConfereFerramenta::thePostalCodesAreNotTheMainDatabase()
{
    const QString file = path(u"CEP.MDB"_s);
    dao::DBEngine::CreateDatabase(file, {})->Execute(u"CREATE TABLE CEPS (CEP TEXT(8))"_s);
    const Ended ended = run({file});
    QCOMPARE(ended.code, 2);
    QVERIFY2(
        ended.errors.startsWith(
            u"tarvelo-confere: O arquivo '%1' não tem as tabelas da oficina: não é o banco de dados principal.\n"_s.arg(
                file)),
        qPrintable(ended.errors));
}

/// The tool waits for ten seconds; here the wait is that of the tests.
void TestConfereFerramenta::aFileInUse()
{
    support::OtherProgram other(database());
    QVERIFY(other.take());
    try {
        conferido::audit();
        QFAIL("was read");
    } catch (const runtime::RuntimeError &error) {
        QCOMPARE(error.number(), 3051);
        QVERIFY(confere::Explica(error).endsWith(
            u"\nFeche os programas que copiam ou gravam este arquivo, confira se o seu usuário pode lê-lo, e tente de "
            "novo."_s));
    }
    other.giveBack();
    NOTHING_FOUND();
}

/// The journal of a write that a kill has cut off.
void TestConfereFerramenta::anInterruptedWrite()
{
    const QString copy = path(u"corte.mdb"_s);
    {
        support::OtherProgram other(database());
        QVERIFY(other.run("PRAGMA cache_size = 1"));
        QVERIFY(other.reserve());
        QVERIFY(other.run("INSERT INTO Caixa (Codigo) WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n "
                          "WHERE i < 20000) SELECT i FROM n"));
        QVERIFY(QFile::copy(database(), copy));
        QVERIFY(QFile::copy(database() + u"-journal"_s, copy + u"-journal"_s));
        other.giveBack();
    }
    const QByteArray file = contentsOf(copy);
    const QByteArray journal = contentsOf(copy + u"-journal"_s);
    const Ended ended = run({copy});
    QCOMPARE(ended.code, 2);
    QCOMPARE(ended.errors,
             u"tarvelo-confere: A última gravação no arquivo '%1' foi interrompida e ainda não foi desfeita.\nAbra o "
             "Tarvelo uma vez, que ele a desfaz, e confira de novo.\n"_s.arg(copy));
    QCOMPARE(contentsOf(copy), file);
    QCOMPARE(contentsOf(copy + u"-journal"_s), journal);
    dao::DBEngine::OpenDatabase(copy)->Close();
    QCOMPARE(run({copy}).code, 0);
}

void TestConfereFerramenta::tellsHowToCallIt_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::newRow("unknown option") << QStringList{u"--conserta"_s};
    QTest::newRow("two files") << QStringList{u"a.mdb"_s, u"b.mdb"_s};
    QTest::newRow("empty name") << QStringList{u""_s};
}

void TestConfereFerramenta::tellsHowToCallIt()
{
    QFETCH(QStringList, arguments);
    const Ended ended = run(arguments);
    QCOMPARE(ended.code, 2);
    QCOMPARE(ended.output, QString());
    QVERIFY(ended.errors.startsWith(u"uso: tarvelo-confere [--tudo] [ARQUIVO|PASTA]\n"_s));
}

void TestConfereFerramenta::tellsWhatItAsks()
{
    const Ended ended = run({u"--ajuda"_s});
    QCOMPARE(ended.code, 0);
    QVERIFY(ended.output.startsWith(u"uso: tarvelo-confere [--tudo] [ARQUIVO|PASTA]\n"_s));
    for (const confere::Conferencia &check : confere::Conferencias()) {
        const QString kind = check.nivel == confere::Nivel::Erro ? u"erro"_s : u"aviso"_s;
        QVERIFY2(ended.output.contains(u"\n  %1 (%2): "_s.arg(check.nome, kind)), qPrintable(check.nome));
    }
}

TARVELO_TEST_MAIN(TestConfereFerramenta)
#include "tst_confere_ferramenta.moc"
