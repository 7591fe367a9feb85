#include "platform/files/files.h"
#include "platform/files/replacefile.h"

#include <QDeadlineTimer>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <QTest>
#include <QThread>

#include <atomic>
#include <memory>

#ifdef Q_OS_UNIX
#include <sys/stat.h>
#endif
#ifdef Q_OS_WIN
#include <windows.h>
#endif

using namespace Qt::StringLiterals;

class tst_files : public QObject
{
    Q_OBJECT

private slots:
    void init() { folder_ = std::make_unique<QTemporaryDir>(); }
    void cleanup() { folder_.reset(); }

    void onlyFilesAreOrdinary();
    void whatStandsThereIsToldInOneLook();
    void aMarkedFileIsReadOnly();
    void aNewFileIsNobodyElses();
#ifdef Q_OS_WIN
    void whatIsCreatedHasTheRightsOfItsFolder_data();
    void whatIsCreatedHasTheRightsOfItsFolder();
#endif
#ifdef Q_OS_UNIX
    void pipesAndDevicesAreNotOrdinary();
    void whatIsCreatedIsForUserAndGroup_data();
    void whatIsCreatedIsForUserAndGroup();
    void aFileIsMadeForUserAndGroup_data()
    {
        whatIsCreatedIsForUserAndGroup_data();
    }
    void aFileIsMadeForUserAndGroup();
    void rightsAreGivenToWhatIsThere_data();
    void rightsAreGivenToWhatIsThere();
    void aReadOnlyFileOfTheUserIsOpened();
#endif

private:
    QString path(const QString &name) const
    {
        return folder_->filePath(name);
    }
    void make(const QString &name) const
    {
        QFile file(path(name));
        QVERIFY(file.open(QIODevice::WriteOnly));
    }
    int rights(const QString &name) const
    {
        // The lowest nine bits, as the system has them.
        const int all = QFile::permissions(path(name)).toInt();
        return (all >> 12 & 7) << 6 | (all >> 4 & 7) << 3 | (all & 7);
    }

    std::unique_ptr<QTemporaryDir> folder_;
};

void tst_files::onlyFilesAreOrdinary()
{
    make(u"a.txt"_s);
    QVERIFY(files::isOrdinary(path(u"a.txt"_s)));
    QVERIFY(!files::isOrdinary(path(u"b.txt"_s)));
    QVERIFY(!files::isOrdinary(folder_->path()));
    QVERIFY(!files::isOrdinary(QString()));
    QVERIFY(QFile::link(path(u"a.txt"_s), path(u"c.lnk"_s)));
    QVERIFY(files::isOrdinary(path(u"c.lnk"_s)));
}

/// A file that comes and goes, as a journal does beside a database at work, is never taken for something else.
void tst_files::whatStandsThereIsToldInOneLook()
{
    QVERIFY(files::isOther(folder_->path()));
    QVERIFY(!files::isOther(path(u"nada"_s)));
    std::atomic<bool> ends = false;
    const std::unique_ptr<QThread> other(QThread::create([&] {
        QFile file(path(u"some"_s));
        while (!ends && file.open(QIODevice::WriteOnly) && file.remove()) {
        }
    }));
    other->start();
    int there = 0;
    int gone = 0;
    bool taken = false;
    const QDeadlineTimer patience(60'000);
    while (!taken && (there < 5000 || gone < 5000) && !patience.hasExpired()) {
        ++(QFileInfo::exists(path(u"some"_s)) ? there : gone);
        taken = files::isOther(path(u"some"_s));
    }
    ends = true;
    QVERIFY(other->wait());
    QVERIFY(!taken);
    QVERIFY2(there > 0 && gone > 0, "the file never came or never went");
}

void tst_files::aMarkedFileIsReadOnly()
{
    make(u"a.txt"_s);
    QVERIFY(!files::isReadOnly(path(u"a.txt"_s)));
    QVERIFY(QFile::setPermissions(path(u"a.txt"_s), QFile::ReadOwner | QFile::ReadGroup));
    QVERIFY(files::isReadOnly(path(u"a.txt"_s)));
    QVERIFY(!files::isReadOnly(path(u"ausente.txt"_s))); // it can be made
}

void tst_files::aNewFileIsNobodyElses()
{
    QFile file(path(u"a.txt"_s));
    QVERIFY(files::openNew(file, QIODevice::WriteOnly, QFile::ReadOwner | QFile::WriteOwner));
    QCOMPARE(file.write("a"), 1);
    QFile second(path(u"a.txt"_s));
    QVERIFY(!files::openNew(second, QIODevice::WriteOnly, QFile::ReadOwner | QFile::WriteOwner));
    QFile nowhere(path(u"ausente/a.txt"_s));
    QVERIFY(!files::openNew(nowhere, QIODevice::WriteOnly, QFile::ReadOwner | QFile::WriteOwner));
}

#ifdef Q_OS_WIN

namespace
{

/// Who may do what with a file, as the system keeps it.
QByteArray accessList(const QString &path)
{
    const auto *const name = reinterpret_cast<const wchar_t *>(path.utf16());
    DWORD size = 0;
    GetFileSecurityW(name, DACL_SECURITY_INFORMATION, nullptr, 0, &size);
    QByteArray list(static_cast<qsizetype>(size), '\0');
    return GetFileSecurityW(name, DACL_SECURITY_INFORMATION, list.data(), size, &size) ? list : QByteArray();
}

} // namespace

void tst_files::whatIsCreatedHasTheRightsOfItsFolder_data()
{
    QTest::addColumn<int>("way");
    QTest::newRow("a new file") << 0;
    QTest::newRow("an empty file") << 1;
    QTest::newRow("a replaced file") << 2;
}

/// Another user of the shared folder reads and writes it too.
void tst_files::whatIsCreatedHasTheRightsOfItsFolder()
{
    QFETCH(const int, way);
    make(u"a.txt"_s);
    const QByteArray usual = accessList(path(u"a.txt"_s));
    QVERIFY(!usual.isEmpty());
    QFile file(path(u"b.txt"_s));
    switch (way) {
    case 0:
        QVERIFY(files::openNew(file, QIODevice::WriteOnly, QFile::ReadOwner | QFile::WriteOwner));
        break;
    case 1:
        QVERIFY(files::createForGroup(file.fileName()));
        break;
    default:
        QVERIFY(files::replaceFile(file.fileName(), "b"));
    }
    QCOMPARE(accessList(file.fileName()), usual);
}

#endif

#ifdef Q_OS_UNIX

void tst_files::pipesAndDevicesAreNotOrdinary()
{
    QCOMPARE(::mkfifo(QFile::encodeName(path(u"p"_s)).constData(), 0600), 0);
    QVERIFY(!files::isOrdinary(path(u"p"_s)));
    QVERIFY(QFile::link(path(u"p"_s), path(u"l"_s)));
    QVERIFY(!files::isOrdinary(path(u"l"_s)));
    QVERIFY(!files::isOrdinary(u"/dev/zero"_s));
    QVERIFY(files::isOther(path(u"p"_s)));
    QVERIFY(files::isOther(path(u"l"_s)));
}

void tst_files::whatIsCreatedIsForUserAndGroup_data()
{
    QTest::addColumn<int>("users");
    QTest::newRow("open") << 0;
    QTest::newRow("usual") << 022;
    QTest::newRow("closed") << 077;
}

void tst_files::whatIsCreatedIsForUserAndGroup()
{
    QFETCH(const int, users);
    const mode_t before = ::umask(mode_t(users));
    files::keepToGroup();
    make(u"a.txt"_s);
    QVERIFY(QDir(folder_->path()).mkdir(u"pasta"_s));
    ::umask(before);
    QCOMPARE(rights(u"a.txt"_s), 0660);
    QCOMPARE(rights(u"pasta"_s), 0770);
}

/// By itself too, without the setting for the whole program.
void tst_files::aFileIsMadeForUserAndGroup()
{
    QFETCH(const int, users);
    const mode_t before = ::umask(mode_t(users));
    const bool made = files::createForGroup(path(u"a.txt"_s));
    ::umask(before);
    QVERIFY(made);
    QCOMPARE(rights(u"a.txt"_s), 0660);
    QVERIFY(!files::createForGroup(path(u"a.txt"_s)));
    QVERIFY(!files::createForGroup(path(u"ausente/a.txt"_s)));
}

void tst_files::rightsAreGivenToWhatIsThere_data()
{
    QTest::addColumn<int>("before");
    QTest::addColumn<int>("after");
    QTest::newRow("open to all") << 0666 << 0660;
    QTest::newRow("closed to the group") << 0600 << 0660;
    QTest::newRow("script") << 0755 << 0770;
    QTest::newRow("read only") << 0444 << 0660;
}

void tst_files::rightsAreGivenToWhatIsThere()
{
    QFETCH(const int, before);
    make(u"a.txt"_s);
    QCOMPARE(::chmod(QFile::encodeName(path(u"a.txt"_s)).constData(), mode_t(before)), 0);
    QVERIFY(files::restrictToGroup(path(u"a.txt"_s)));
    QTEST(rights(u"a.txt"_s), "after");
    QVERIFY(!files::restrictToGroup(path(u"ausente"_s)));
}

void tst_files::aReadOnlyFileOfTheUserIsOpened()
{
    make(u"a.txt"_s);
    QCOMPARE(::chmod(QFile::encodeName(path(u"a.txt"_s)).constData(), 0440), 0);
    QVERIFY(QFile::link(path(u"a.txt"_s), path(u"l"_s)));
    QVERIFY(!files::letWrite(path(u"l"_s)));
    QCOMPARE(rights(u"a.txt"_s), 0440);
    QVERIFY(files::letWrite(path(u"a.txt"_s)));
    QCOMPARE(rights(u"a.txt"_s), 0640);
    QVERIFY(!files::letWrite(path(u"ausente"_s)));
}

#endif

QTEST_GUILESS_MAIN(tst_files)
#include "tst_files.moc"
