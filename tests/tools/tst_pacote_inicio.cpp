#include "support/diskfiles.h"
#include "support/ordinaryuser.h"

#include <QDeadlineTimer>
#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTest>

#include <algorithm>
#include <memory>
#include <optional>

using namespace Qt::StringLiterals;
using support::contentsOf;
using support::filesOf;

namespace
{

constexpr int patience = 60000;

} // namespace

/// The program started from the layout of the package, with a home folder of its own.
class TestPacoteInicio : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();

    void aFirstStartMakesTheUsersFolder_data();
    void aFirstStartMakesTheUsersFolder();
    void aFirstStartGoesWhereTheUserKeepsHisData();
    void aSecondStartKeepsWhatTheUserChanged();
    void aStartAfterAKilledOneMakesTheFolderWhole();

private:
    /// The real program; it is killed at the end, as nobody is there to close it.
    std::unique_ptr<QProcess> started(const QProcessEnvironment &environment) const
    {
        auto process = std::make_unique<QProcess>();
        process->setProcessEnvironment(environment);
        process->setProcessChannelMode(QProcess::ForwardedChannels);
        process->start(package_.filePath(u"usr/bin/tarvelo"_s), QStringList());
        process->waitForStarted(patience);
        return process;
    }
    QProcessEnvironment environment() const
    {
        auto environment = QProcessEnvironment::systemEnvironment();
        environment.insert(u"QT_QPA_PLATFORM"_s, u"offscreen"_s);
        environment.insert(u"HOME"_s, home());
        environment.remove(u"XDG_DATA_HOME"_s);
        return environment;
    }
    static void kill(QProcess &process)
    {
        process.kill();
        process.waitForFinished(patience);
    }
    /// Starts it, waits for its database, and ends it.
    void start(const QProcessEnvironment &environment, const QString &folder) const
    {
        const auto process = started(environment);
        QTRY_VERIFY_WITH_TIMEOUT(
            QFile::exists(folder + u"/DADOS/DADOS.MDB"_s) || process->state() == QProcess::NotRunning, patience);
        QCOMPARE(process->state(), QProcess::Running);
        kill(*process);
    }
    void start() const { start(environment(), folder()); }

    QString home() const { return home_->filePath(u"casa do Zé"_s); }
    QString folder() const { return home() + u"/.local/share/tarvelo"_s; }
    QString shipped(const QString &name) const { return package_.filePath(u"usr/share/tarvelo/"_s + name); }
    /// What the user's folder is made of: all that is shipped but what is read where it lies.
    QStringList names() const { return filesOf(shipped(QString())).filter(QRegularExpression(u"\\.(BAT|MDB|bmp)$"_s)); }
    bool whole() const
    {
        const QStringList wanted = names();
        return std::all_of(wanted.begin(), wanted.end(), [this](const QString &name) {
            return contentsOf(folder() + u'/' + name) == contentsOf(shipped(name));
        });
    }

    QTemporaryDir package_;
    std::unique_ptr<QTemporaryDir> home_;
};

void TestPacoteInicio::initTestCase()
{
    QProcess cmake;
    cmake.setProcessChannelMode(QProcess::MergedChannels);
    cmake.start(QStringLiteral(CMAKE_PROGRAM), {u"--install"_s, QStringLiteral(BUILD), u"--component"_s, u"pacote"_s,
                                                u"--prefix"_s, package_.filePath(u"usr"_s)});
    QVERIFY(cmake.waitForFinished(patience));
    QVERIFY2(cmake.exitCode() == 0, cmake.readAll().constData());
    // Users start it from here who did not make it.
    QVERIFY(QFile::setPermissions(package_.path(), QFile::Permissions(0x7755)));
    QVERIFY(names().size() >= 10);
}

void TestPacoteInicio::init()
{
    home_ = std::make_unique<QTemporaryDir>();
    QVERIFY(QFile::setPermissions(home_->path(), QFile::Permissions(0x7755)));
    QVERIFY(QDir().mkpath(home()));
    QVERIFY(QFile::setPermissions(home(), QFile::Permissions(0x7777)));
}

void TestPacoteInicio::aFirstStartMakesTheUsersFolder_data()
{
    QTest::addColumn<bool>("ordinary");
    QTest::newRow("whoever runs the test") << false;
    QTest::newRow("a user without privileges") << true;
}

void TestPacoteInicio::aFirstStartMakesTheUsersFolder()
{
    QFETCH(const bool, ordinary);
    const QStringList before = filesOf(package_.path());
    std::optional<support::OrdinaryUser> user;
    if (ordinary) {
        user.emplace();
    }
    start();

    for (const QString &name : names()) {
        QVERIFY2(contentsOf(folder() + u'/' + name) == contentsOf(shipped(name)), qPrintable(name));
    }
    QVERIFY(contentsOf(folder() + u"/DADOS/DADOS.MDB"_s).startsWith("SQLite"));
    QCOMPARE(QFileInfo(folder() + u"/dados"_s).canonicalFilePath(),
             QFileInfo(folder() + u"/DADOS"_s).canonicalFilePath());
    // Of the program's own configuration and what it is told nothing is anywhere else.
    QVERIFY(QFile::exists(folder() + u"/config.ini"_s));
    QCOMPARE(filesOf(package_.path()), before);
    const auto others = QFile::ReadOther | QFile::WriteOther | QFile::ExeOther;
    const auto group = QFile::ReadGroup | QFile::WriteGroup;
    QStringList made = filesOf(folder());
    made << QString() << u"DADOS"_s;
    for (const QString &name : made) {
        const auto rights = QFile::permissions(folder() + u'/' + name);
        QVERIFY2(!(rights & others) && rights.testFlags(group), qPrintable(name));
    }
}

void TestPacoteInicio::aFirstStartGoesWhereTheUserKeepsHisData()
{
    auto told = environment();
    const QString elsewhere = home() + u"/dados meus"_s;
    told.insert(u"XDG_DATA_HOME"_s, elsewhere);
    start(told, elsewhere + u"/tarvelo"_s);
    QCOMPARE(contentsOf(elsewhere + u"/tarvelo/DADOS/logo.bmp"_s), contentsOf(shipped(u"DADOS/logo.bmp"_s)));
    QVERIFY(!QFile::exists(folder()));
}

void TestPacoteInicio::aSecondStartKeepsWhatTheUserChanged()
{
    start();
    for (const QString &name : {u"DADOS/logo.bmp"_s, u"BACKUPDA.BAT"_s, u"CEP.MDB"_s}) {
        QFile file(folder() + u'/' + name);
        QVERIFY(file.open(QIODevice::WriteOnly));
        QVERIFY(file.write("da oficina: " + name.toLatin1()) > 0);
    }
    QVERIFY(QFile::remove(folder() + u"/DADOS/bg800.bmp"_s));
    QVERIFY(QFile::remove(folder() + u"/RESTORFI.BAT"_s));
    QVERIFY(QFile::remove(folder() + u"/tarvelo.lock"_s));

    const auto second = started(environment());
    QTRY_VERIFY_WITH_TIMEOUT(QFile::exists(folder() + u"/tarvelo.lock"_s), patience);
    kill(*second);
    for (const QString &name : {u"DADOS/logo.bmp"_s, u"BACKUPDA.BAT"_s, u"CEP.MDB"_s}) {
        QCOMPARE(contentsOf(folder() + u'/' + name), "da oficina: " + name.toLatin1());
    }
    for (const QString &name : {u"DADOS/bg800.bmp"_s, u"RESTORFI.BAT"_s}) {
        QCOMPARE(contentsOf(folder() + u'/' + name), contentsOf(shipped(name)));
    }
}

/// Killed when so many files are there, the one being written among them.
void TestPacoteInicio::aStartAfterAKilledOneMakesTheFolderWhole()
{
    int halves = 0;
    for (int many = 1; many <= 8; ++many) {
        QVERIFY(QDir(folder()).removeRecursively());
        const auto first = started(environment());
        const QDeadlineTimer deadline(patience);
        while (filesOf(folder()).size() < many && !deadline.hasExpired()) {
        }
        kill(*first);
        halves += whole() ? 0 : 1;
        start();
        QVERIFY(whole());
        QCOMPARE(filesOf(folder()).filter(u".gravando-"_s), QStringList());
    }
    QVERIFY(halves > 0);
}

QTEST_GUILESS_MAIN(TestPacoteInicio)
#include "tst_pacote_inicio.moc"
