#include "platform/files/filelock.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

#ifdef Q_OS_UNIX
#include <sys/stat.h>
#endif

using namespace Qt::StringLiterals;
using files::FileLock;
using Result = files::FileLock::Result;

class tst_filelock : public QObject
{
    Q_OBJECT

private slots:
    void init() { folder_ = std::make_unique<QTemporaryDir>(); }
    void cleanup() { folder_.reset(); }

    void oneHoldsItAtATime();
    void theHolderIsToldInTheFile();
    void leftoversDoNotCount_data();
    void leftoversDoNotCount();
    void aLockThatWasReadIsHeldStill();
    void aStartedProgramDoesNotKeepIt();
    void whatIsNoOrdinaryFileTakesNoLock_data();
    void whatIsNoOrdinaryFileTakesNoLock();
    void aLinkIsNotFollowed();
    void aFolderThatIsNotThereTakesNoLock();

private:
    QString path(const QString &name = u"x.lock"_s) const { return folder_->filePath(name); }
    QByteArray contents() const
    {
        QFile file(path());
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

    std::unique_ptr<QTemporaryDir> folder_;
};

void tst_filelock::oneHoldsItAtATime()
{
    FileLock first(path());
    FileLock second(path());
    QCOMPARE(first.take(), Result::Taken);
    QCOMPARE(second.take(), Result::Busy);
    first.release();
    QCOMPARE(second.take(), Result::Taken);
    QCOMPARE(first.take(), Result::Busy);
}

void tst_filelock::theHolderIsToldInTheFile()
{
    FileLock lock(path());
    QCOMPARE(lock.take(), Result::Taken);
    QCOMPARE(contents().split('\n').first(), QByteArray::number(QCoreApplication::applicationPid()));
    QCOMPARE(contents().split('\n').at(2), QSysInfo::machineHostName().toUtf8());
}

void tst_filelock::leftoversDoNotCount_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("empty") << QByteArray();
    QTest::newRow("cut off") << QByteArray("12");
    QTest::newRow("no text") << QByteArray(5000, '\xFE');
    QTest::newRow("another program that is alive") << QByteArray("1\ninit\n") + QSysInfo::machineHostName().toUtf8();
    QTest::newRow("another machine") << QByteArray("4711\ntarvelo\nRECEPCAO\n");
}

/// A year old, and marked as one that nobody writes.
void tst_filelock::leftoversDoNotCount()
{
    QFETCH(const QByteArray, bytes);
    QFile file(path());
    QVERIFY(file.open(QIODevice::WriteOnly));
    QCOMPARE(file.write(bytes), bytes.size());
    QVERIFY(file.flush());
    QVERIFY(file.setFileTime(QDateTime::currentDateTime().addYears(-1), QFileDevice::FileModificationTime));
    file.close();
    QVERIFY(file.setPermissions(QFile::ReadOwner | QFile::ReadUser));

    FileLock lock(path());
    QCOMPARE(lock.take(), Result::Taken);
    QCOMPARE(contents().split('\n').first(), QByteArray::number(QCoreApplication::applicationPid()));
}

/// As a support person does, who looks who holds it.
void tst_filelock::aLockThatWasReadIsHeldStill()
{
    FileLock first(path());
    QCOMPARE(first.take(), Result::Taken);
    QVERIFY(!contents().isEmpty());
    FileLock second(path());
    QCOMPARE(second.take(), Result::Busy);
}

void tst_filelock::aStartedProgramDoesNotKeepIt()
{
#ifdef Q_OS_WIN
    const QString shell = u"cmd"_s;
#else
    const QString shell = u"/bin/sh"_s;
#endif
    FileLock lock(path());
    QCOMPARE(lock.take(), Result::Taken);
    QProcess child; // waits for its input
    child.start(shell, QStringList());
    QVERIFY(child.waitForStarted());
    lock.release();
    FileLock next(path());
    QCOMPARE(next.take(), Result::Taken);
    QCOMPARE(child.state(), QProcess::Running);
    child.closeWriteChannel();
    QVERIFY(child.waitForFinished());
}

void tst_filelock::whatIsNoOrdinaryFileTakesNoLock_data()
{
    QTest::addColumn<bool>("pipe");
    QTest::newRow("folder") << false;
#ifdef Q_OS_UNIX
    QTest::newRow("pipe") << true;
#endif
}

void tst_filelock::whatIsNoOrdinaryFileTakesNoLock()
{
    QFETCH(const bool, pipe);
#ifdef Q_OS_UNIX
    QVERIFY(!pipe || ::mkfifo(QFile::encodeName(path()).constData(), 0600) == 0);
#endif
    QVERIFY(pipe || QDir().mkdir(path()));
    FileLock lock(path());
    QCOMPARE(lock.take(), Result::Impossible);
}

/// Its target would be signed, and might be anything.
void tst_filelock::aLinkIsNotFollowed()
{
    QFile target(path(u"DADOS.MDB"_s));
    QVERIFY(target.open(QIODevice::WriteOnly));
    QCOMPARE(target.write("dados"), 5);
    target.close();
    QVERIFY(QFile::link(target.fileName(), path()));
#ifdef Q_OS_UNIX
    FileLock lock(path());
    QCOMPARE(lock.take(), Result::Impossible);
#endif
    QVERIFY(target.open(QIODevice::ReadOnly));
    QCOMPARE(target.readAll(), QByteArray("dados"));
}

void tst_filelock::aFolderThatIsNotThereTakesNoLock()
{
    FileLock lock(path(u"ausente/x.lock"_s));
    QCOMPARE(lock.take(), Result::Impossible);
}

QTEST_GUILESS_MAIN(tst_filelock)
#include "tst_filelock.moc"
