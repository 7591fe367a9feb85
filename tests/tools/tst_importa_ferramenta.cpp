// The import as a user starts it: what it says, how it ends, and that nothing is half done.
#include "core/caminhos.h"
#include "core/modulo.h"
#include "platform/dao/database.h"
#include "platform/files/filelock.h"
#include "support/diskfiles.h"
#include "support/ordinaryuser.h"
#include "support/otherprogram.h"
#include "support/program.h"
#include "support/testmain.h"

#include <QFile>
#include <QProcess>
#include <QTest>
#include <QtEndian>

#include <array>
#include <numeric>
#include <utility>

using namespace Qt::StringLiterals;
using support::contentsOf;

namespace
{

constexpr int pageSize = 4096;
constexpr int pageKeyAt = 0x3E;
constexpr int passwordAt = 0x42;

struct Ended {
    int code = -1;
    QString output;
    QString errors;
};

Ended run(const QStringList &arguments, const QString &folder)
{
    QProcess tool;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(u"LC_ALL"_s, u"C.UTF-8"_s);
    environment.insert(u"XDG_DATA_HOME"_s, u"/nenhuma"_s);
    tool.setProcessEnvironment(environment);
    tool.setWorkingDirectory(folder);
    tool.start(QStringLiteral(FERRAMENTA), arguments);
    tool.waitForFinished(120'000);
    return {.code = tool.exitStatus() == QProcess::NormalExit ? tool.exitCode() : -1,
            .output = QString::fromUtf8(tool.readAllStandardOutput()),
            .errors = QString::fromUtf8(tool.readAllStandardError())};
}

/// The bytes from 0x18 on are hidden by RC4 with a key that is the same in every file.
void mask(QByteArray &header)
{
    constexpr std::array<uchar, 4> key{0xC7, 0xDA, 0x39, 0x6B};
    constexpr qsizetype from = 0x18;
    constexpr qsizetype size = 128;
    std::array<uchar, 256> state{};
    std::iota(state.begin(), state.end(), uchar{0});
    for (std::size_t i = 0, j = 0; i < state.size(); ++i) {
        j = (j + state[i] + key[i % key.size()]) % state.size();
        std::swap(state[i], state[j]);
    }
    for (qsizetype n = 0, i = 0, j = 0; n < size; ++n) {
        i = (i + 1) % 256;
        j = (j + state[static_cast<std::size_t>(i)]) % 256;
        std::swap(state[static_cast<std::size_t>(i)], state[static_cast<std::size_t>(j)]);
        const auto sum = static_cast<uchar>(state[static_cast<std::size_t>(i)] + state[static_cast<std::size_t>(j)]);
        header[from + n] = static_cast<char>(static_cast<uchar>(header[from + n]) ^ state[sum]);
    }
}

/// A file that is Jet 4 by its first page; behind it there is nothing but empty pages.
struct Header {
    QByteArray name = "Standard Jet DB";
    char version = 1;
    char pageKey = 0;
    QByteArray password = {};
    qsizetype size = 8 * pageSize;
};

QByteArray fileWith(const Header &header)
{
    QByteArray bytes(header.size, '\0');
    bytes.replace(0, 4, QByteArray("\0\1\0\0", 4));
    bytes.replace(4, header.name.size(), header.name);
    bytes[0x14] = header.version;
    bytes[pageKeyAt] = header.pageKey;
    bytes.replace(passwordAt, header.password.size(), header.password);
    mask(bytes);
    return bytes;
}

void put(const QString &path, const QByteArray &bytes)
{
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    QCOMPARE(file.write(bytes), bytes.size());
}

/// Every file below a folder with what it holds.
QList<std::pair<QString, QByteArray>> everythingIn(const QString &folder)
{
    QList<std::pair<QString, QByteArray>> all;
    for (const QString &file : support::filesOf(folder)) {
        all.append({file, contentsOf(QDir(folder).filePath(file))});
    }
    return all;
}

} // namespace

class TestImportaFerramenta : public QObject
{
    Q_OBJECT

private slots:
    void init() { program_ = std::make_unique<support::Program>(); }
    void cleanup() { program_.reset(); }

    void tellsHowToCallIt_data();
    void tellsHowToCallIt();
    void tellsItsHelp();

    void sourcesThatAreNone_data();
    void sourcesThatAreNone();
    void aMissingSource();
    void aFolderForASource();
    void aSourceThatMayNotBeRead();
    void aDatabaseOfTheProgramForASource();

    void theSourceForATarget();
    void aFolderForATarget();
    void aTargetInNoFolder();
    void aTargetThatHoldsData();
    void aTargetThatTheProgramHasOpen();
    void aTargetThatAnotherProgramHolds();
    void aTargetThatMayNotBeWritten();

private:
    QString path(const QString &name) const { return program_->path(name); }

    /// Runs the tool, which must refuse with these words and leave the folder as it is.
    void refused(const QStringList &arguments, const QString &words) const
    {
        const auto before = everythingIn(program_->path());
        const Ended ended = run(arguments, program_->path());
        QVERIFY2(ended.errors.startsWith(u"tarvelo-importa: "_s + words), qPrintable(ended.errors));
        QVERIFY2(ended.errors.endsWith(u"\n\nNada foi importado, e o destino continua como estava.\n"_s),
                 qPrintable(ended.errors));
        QCOMPARE(ended.output, QString());
        QCOMPARE(ended.code, 2);
        QCOMPARE(everythingIn(program_->path()), before);
    }

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

void TestImportaFerramenta::sourcesThatAreNone_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("words");
    const QString none = u"O arquivo de origem não é um banco de dados Jet (.MDB):"_s;
    const QString later = u"O arquivo de origem está em um formato mais novo que o Jet 4, que este programa não lê:"_s;
    const QString half = u"O arquivo de origem está incompleto:"_s;
    QTest::newRow("empty") << QByteArray() << none;
    QTest::newRow("text") << QByteArray("texto qualquer").repeated(1000) << none;
    QTest::newRow("Jet 3") << fileWith({.version = 0})
                           << u"O arquivo de origem está no formato Jet 3, que este programa não lê:"_s;
    QTest::newRow("version 2") << fileWith({.version = 2}) << later;
    QTest::newRow("accdb") << fileWith({.name = "Standard ACE DB", .version = 2}) << later;
    QTest::newRow("password") << fileWith({.password = "s\0e\0n\0h\0a"}) << u"O arquivo de origem tem uma senha:"_s;
    QTest::newRow("encrypted") << fileWith({.pageKey = 7}) << u"O arquivo de origem está criptografado:"_s;
    QTest::newRow("half a page") << fileWith({.size = 2000}) << half;
    QTest::newRow("two pages") << fileWith({.size = 2 * pageSize}) << half;
    QTest::newRow("no whole pages") << fileWith({.size = 5 * pageSize + 100}) << half;
    QTest::newRow("no catalogue")
        << fileWith({}) << u"O arquivo de origem está danificado, e a lista das suas tabelas não pode ser lida:"_s;
}

void TestImportaFerramenta::sourcesThatAreNone()
{
    QFETCH(const QByteArray, bytes);
    QFETCH(const QString, words);
    put(path(u"ANTIGO.MDB"_s), bytes);
    refused({u"ANTIGO.MDB"_s, u"NOVO.MDB"_s}, words + u'\n' + path(u"ANTIGO.MDB"_s) + u'\n');
}

void TestImportaFerramenta::aMissingSource()
{
    refused({u"ANTIGO.MDB"_s, u"NOVO.MDB"_s},
            u"Não foi possível encontrar o arquivo de origem:\n%1\n"_s.arg(path(u"ANTIGO.MDB"_s)));
}

void TestImportaFerramenta::aFolderForASource()
{
    refused({u"DADOS"_s, u"NOVO.MDB"_s}, u"A origem não é um arquivo:\n%1\n"_s.arg(path(u"DADOS"_s)));
}

void TestImportaFerramenta::aSourceThatMayNotBeRead()
{
    put(path(u"ANTIGO.MDB"_s), fileWith({}));
    QVERIFY(QFile::setPermissions(path(u"ANTIGO.MDB"_s), {}));
    QVERIFY(QFile::setPermissions(program_->path(), QFile::Permissions(0x7777)));
    Ended ended;
    {
        const support::OrdinaryUser user;
        ended = run({u"ANTIGO.MDB"_s, u"NOVO.MDB"_s}, program_->path());
    }
    QCOMPARE(ended.code, 2);
    QVERIFY2(ended.errors.startsWith(u"tarvelo-importa: O seu usuário não pode ler o arquivo de origem:\n"_s),
             qPrintable(ended.errors));
    QVERIFY(!QFile::exists(path(u"NOVO.MDB"_s)));
}

void TestImportaFerramenta::aDatabaseOfTheProgramForASource()
{
    const QString ours = core::DBDados->path();
    core::DBDados->Close();
    refused({ours, u"NOVO.MDB"_s}, u"O arquivo de origem não é um banco de dados Jet (.MDB):\n%1\n"_s.arg(ours));
}

void TestImportaFerramenta::theSourceForATarget()
{
    put(path(u"ANTIGO.MDB"_s), fileWith({}));
    const QString words = u"A origem e o destino são o mesmo arquivo:\n"_s;
    refused({u"ANTIGO.MDB"_s, u"ANTIGO.MDB"_s}, words);
    refused({u"--substitui"_s, u"ANTIGO.MDB"_s, path(u"DADOS/../ANTIGO.MDB"_s)}, words);
    QVERIFY(QFile::link(path(u"ANTIGO.MDB"_s), path(u"ATALHO.MDB"_s)));
    refused({u"--substitui"_s, u"ANTIGO.MDB"_s, u"ATALHO.MDB"_s}, words);
}

void TestImportaFerramenta::aFolderForATarget()
{
    put(path(u"ANTIGO.MDB"_s), fileWith({}));
    refused({u"ANTIGO.MDB"_s, u"DADOS"_s}, u"O destino não é um arquivo:\n%1\n"_s.arg(path(u"DADOS"_s)));
}

void TestImportaFerramenta::aTargetInNoFolder()
{
    put(path(u"ANTIGO.MDB"_s), fileWith({}));
    refused({u"ANTIGO.MDB"_s, u"nenhuma/NOVO.MDB"_s},
            u"A pasta do destino não existe:\n%1\n"_s.arg(path(u"nenhuma"_s)));
}

/// An operator is data, too.
void TestImportaFerramenta::aTargetThatHoldsData()
{
    const QString target = core::DBDados->path();
    core::DBDados->Close();
    put(path(u"ANTIGO.MDB"_s), fileWith({}));
    refused({u"ANTIGO.MDB"_s, target},
            u"O destino já tem dados:\n%1\nDiga outro nome para o destino, ou --substitui: "_s.arg(target));
    put(path(u"CARTA.TXT"_s), "Prezado cliente");
    refused({u"ANTIGO.MDB"_s, u"CARTA.TXT"_s}, u"O destino já tem dados:\n"_s);
}

void TestImportaFerramenta::aTargetThatTheProgramHasOpen()
{
    const QString target = core::DBDados->path();
    core::DBDados->Close();
    put(path(u"ANTIGO.MDB"_s), fileWith({}));
    files::FileLock program(path(u"tarvelo.lock"_s));
    QVERIFY(program.take() == files::FileLock::Result::Taken);
    refused({u"--substitui"_s, u"ANTIGO.MDB"_s, target}, u"O destino está em uso:\n%1\nFeche o Tarvelo"_s.arg(target));
}

/// Nobody here may read the file meanwhile: its lock would go with that.
void TestImportaFerramenta::aTargetThatAnotherProgramHolds()
{
    const QString target = core::DBDados->path();
    const QByteArray before = contentsOf(target);
    put(path(u"ANTIGO.MDB"_s), fileWith({}));
    support::OtherProgram other(target);
    QVERIFY(other.take());
    const Ended ended = run({u"ANTIGO.MDB"_s, target}, program_->path());
    QCOMPARE(ended.code, 2);
    QVERIFY2(ended.errors.startsWith(u"tarvelo-importa: O destino está em uso:\n%1\n"_s.arg(target)),
             qPrintable(ended.errors));
    other.giveBack();
    QCOMPARE(contentsOf(target), before);
}

void TestImportaFerramenta::aTargetThatMayNotBeWritten()
{
    put(path(u"ANTIGO.MDB"_s), fileWith({}));
    QVERIFY(QFile::setPermissions(path(u"ANTIGO.MDB"_s), QFile::Permissions(0x6666)));
    QVERIFY(QDir().mkpath(path(u"alheia"_s)));
    QVERIFY(QFile::setPermissions(path(u"alheia"_s), QFile::Permissions(0x5555)));
    QVERIFY(QFile::setPermissions(program_->path(), QFile::Permissions(0x7777)));
    Ended ended;
    {
        const support::OrdinaryUser user;
        ended = run({u"ANTIGO.MDB"_s, u"alheia/NOVO.MDB"_s}, program_->path());
    }
    QVERIFY(QFile::setPermissions(path(u"alheia"_s), QFile::Permissions(0x7777)));
    QCOMPARE(ended.code, 2);
    QVERIFY2(!QFile::exists(path(u"alheia/NOVO.MDB"_s)), "made");
    QCOMPARE(QDir(path(u"alheia"_s)).entryList(QDir::Files | QDir::Hidden), QStringList());
}

TARVELO_TEST_MAIN(TestImportaFerramenta)
#include "tst_importa_ferramenta.moc"
