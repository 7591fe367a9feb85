// What becomes of the settings when the disk is full or broken, or the program is killed while it writes.
#include "platform/files/replacefile.h"
#include "platform/ini/profile.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QRandomGenerator>
#include <QTemporaryDir>
#include <QTest>

#include <chrono>
#include <memory>
#include <thread>

#ifdef Q_OS_UNIX
#include <sys/file.h>
#include <sys/stat.h>
#endif

using namespace Qt::StringLiterals;

namespace
{

constexpr auto writer = "tst_ini_safewrite_writer";

QString writerPath()
{
    return QCoreApplication::applicationDirPath() + u'/' + QLatin1StringView(writer);
}

/// What a settings file of some length holds.
QByteArray settings(const QByteArray &name)
{
    QByteArray text = "[Config]\r\nNome=" + name + "\r\n";
    for (int i = 0; i < 200; ++i) {
        text += "Chave" + QByteArray::number(i) + "=" + QByteArray(20, 'v') + "\r\n";
    }
    return text;
}

} // namespace

class tst_safewrite : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup() { folder_.reset(); }

#ifdef Q_OS_UNIX // a shell takes the writer's disk away, or stands in for it
    void aLimitOnFilesLeavesTheOldOneWhole_data();
    void aLimitOnFilesLeavesTheOldOneWhole();
    void aFullDiskLeavesTheOldOneWhole();
    void aBrokenDiskLeavesTheOldOneWhole();
    void theFileIsOnTheDiskBeforeItHasItsName();
#endif
    void killsInTheMiddleLeaveTheOldOrTheNewOne();
    void leftoversOfTheDeadAreCleared();
    void whatSomebodyStillWritesStays();
    void whoReadsItForAMomentHindersNoWrite();
    void copiesOfTheUserStay();
    void aLinkStaysALink();
    void aLinkToNothingGetsItsFile_data();
    void aLinkToNothingGetsItsFile();
    void theFileKeepsItsRights();
    void aNewFileIsForUserAndGroup();
    void aPipeIsNoSettingsFile();

private:
    QString path(const QString &name = u"config.ini"_s) const
    {
        return folder_->filePath(name);
    }
    QStringList names() const
    {
        return QDir(folder_->path()).entryList(QDir::Files | QDir::Hidden | QDir::System);
    }
    QByteArray stored() const;
    void put(const QString &name, const QByteArray &contents) const;
#ifdef Q_OS_UNIX
    QByteArray runWriter(const QString &command, const QString &disk = {}) const;
#endif

    std::unique_ptr<QTemporaryDir> folder_;
};

void tst_safewrite::init()
{
    folder_ = std::make_unique<QTemporaryDir>();
    put(u"config.ini"_s, settings("ANTES"));
}

void tst_safewrite::put(const QString &name, const QByteArray &contents) const
{
    QFile file(path(name));
    QVERIFY(file.open(QIODevice::WriteOnly));
    QCOMPARE(file.write(contents), contents.size());
}

QByteArray tst_safewrite::stored() const
{
    QFile file(path());
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("(no file)");
}

#ifdef Q_OS_UNIX

/// Runs a shell command in which $0 is the writer and $1 the settings file, and gives what it prints.
QByteArray tst_safewrite::runWriter(const QString &command, const QString &disk) const
{
    QProcess process;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(u"DISCO"_s, disk);
    process.setProcessEnvironment(environment);
    process.start(u"/bin/sh"_s, {u"-c"_s, command, writerPath(), path()});
    process.waitForFinished(60'000);
    return process.readAllStandardOutput().trimmed();
}

void tst_safewrite::aLimitOnFilesLeavesTheOldOneWhole_data()
{
    QTest::addColumn<int>("blocks");
    QTest::newRow("no byte") << 0;
    QTest::newRow("the first block") << 1;
    QTest::newRow("nearly all") << static_cast<int>(settings("ANTES").size() / 512);
}

void tst_safewrite::aLimitOnFilesLeavesTheOldOneWhole()
{
    QFETCH(const int, blocks);
    QCOMPARE(runWriter(u"ulimit -f %1 && exec \"$0\" \"$1\" once DEPOIS"_s.arg(blocks)), QByteArray("0"));
    QCOMPARE(stored(), settings("ANTES"));
    QCOMPARE(names(), QStringList{u"config.ini"_s});
    QCOMPARE(runWriter(u"exec \"$0\" \"$1\" once DEPOIS"_s), QByteArray("1"));
    QCOMPARE(stored(), settings("DEPOIS"));
}

/// A file system of its own, in memory, that lives as long as the shell.
void tst_safewrite::aFullDiskLeavesTheOldOneWhole()
{
    const QString mounted = u"mount -t tmpfs -o size=64k none \"$2\" 2>/dev/null"_s;
    const QString fill = u"cp \"$1\" \"$2\" && dd if=/dev/zero of=\"$2/cheio\" bs=512 2>/dev/null; "_s;
    const QString write = u"\"$0\" \"$2/config.ini\" once DEPOIS; ls -A \"$2\"; cat \"$2/config.ini\"; "_s;
    const QString again = u"rm \"$2/cheio\"; \"$0\" \"$2/config.ini\" once DEPOIS"_s;
    QVERIFY(QDir(folder_->path()).mkdir(u"disco"_s));
    QProcess process;
    process.start(u"unshare"_s,
                  {u"-rm"_s, u"/bin/sh"_s, u"-c"_s, mounted + u" || { echo no disk; exit; }; "_s + fill + write + again,
                   writerPath(), path(), path(u"disco"_s)});
    process.waitForFinished(60'000);
    const QByteArray told = process.readAllStandardOutput();
    if (process.error() == QProcess::FailedToStart || told.isEmpty() || told == "no disk\n") {
        QSKIP("this system lets a user mount no disk of his own; the limits on files are tried all the same");
    }
    QCOMPARE(told, "0\ncheio\nconfig.ini\n" + settings("ANTES") + "1\n");
}

void tst_safewrite::aBrokenDiskLeavesTheOldOneWhole()
{
    QCOMPARE(runWriter(u"exec \"$0\" \"$1\" once DEPOIS"_s, u"quebrado"_s), QByteArray("0"));
    QCOMPARE(stored(), settings("ANTES"));
    QCOMPARE(names(), QStringList{u"config.ini"_s});
}

void tst_safewrite::theFileIsOnTheDiskBeforeItHasItsName()
{
    const QByteArray size = QByteArray::number(settings("DEPOIS").size());
    QCOMPARE(runWriter(u"exec \"$0\" \"$1\" once DEPOIS"_s, u"registra"_s),
             "file " + size + "\nrename " + size + "\nfolder 0\n1");
}

#endif

/// Each time the file has to hold a number that was written, not older than the last one that was told.
void tst_safewrite::killsInTheMiddleLeaveTheOldOrTheNewOne()
{
    constexpr int kills = 60;
    constexpr int letters = 300'000;
    int leftovers = 0;
    for (int i = 0; i < kills; ++i) {
        QProcess process;
        process.start(writerPath(), {path(), u"forever"_s, QString::number(letters)});
        QVERIFY(process.waitForReadyRead(30'000));
        const auto pause = std::chrono::microseconds(QRandomGenerator::global()->bounded(30'000));
        std::this_thread::sleep_for(pause);
        process.kill();
        QVERIFY(process.waitForFinished(30'000));
        const int told = process.readAllStandardOutput().trimmed().split('\n').last().toInt();
        const QString value = ini::readProfile(u"Config"_s, u"Nome"_s, {}, letters + 20, path());
        const int found = QStringView(value).chopped(letters).toInt();
        QVERIFY2(found == told || found == told + 1, qPrintable(u"%1 of %2"_s.arg(found).arg(told)));
        QCOMPARE(stored(), settings(value.toLatin1()));
        const auto beside = names().size() - 1;
        QVERIFY2(beside <= 1, "what the writer before left was not cleared");
        leftovers += static_cast<int>(beside);
    }
    QVERIFY2(leftovers > 0, "no kill met a write");
    files::clearLeftovers(path());
    QCOMPARE(names(), QStringList{u"config.ini"_s});
}

void tst_safewrite::leftoversOfTheDeadAreCleared()
{
    put(u"config.ini.gravando-0123abcd"_s, "[Con");
    put(u"config.ini.gravando-89ef4567"_s, "");
    files::clearLeftovers(path());
    QCOMPARE(names(), QStringList{u"config.ini"_s});
    put(u"config.ini.gravando-0123abcd"_s, "[Con");
    QVERIFY(ini::writeProfile(u"Config"_s, u"Nome"_s, u"DEPOIS"_s, path()));
    QCOMPARE(names(), QStringList{u"config.ini"_s});
    QCOMPARE(stored(), settings("DEPOIS"));
}

void tst_safewrite::whatSomebodyStillWritesStays()
{
    const QString name = u"config.ini.gravando-0123abcd"_s;
    put(name, "[Con");
    QFile held(path(name));
    QVERIFY(held.open(QIODevice::WriteOnly));
#ifdef Q_OS_UNIX
    QCOMPARE(::flock(held.handle(), LOCK_EX | LOCK_NB), 0);
#endif
    QVERIFY(ini::writeProfile(u"Config"_s, u"Nome"_s, u"DEPOIS"_s, path()));
    QCOMPARE(names(), (QStringList{u"config.ini"_s, name}));
}

/// A virus scanner, or another workstation that starts.
void tst_safewrite::whoReadsItForAMomentHindersNoWrite()
{
    QFile read(path());
    QVERIFY(read.open(QIODevice::ReadOnly));
    std::thread reader([&read] {
        std::this_thread::sleep_for(std::chrono::milliseconds(200));
        read.close();
    });
    const bool written = ini::writeProfile(u"Config"_s, u"Nome"_s, u"DEPOIS"_s, path());
    reader.join();
    QVERIFY(written);
    QCOMPARE(stored(), settings("DEPOIS"));
    QCOMPARE(names(), QStringList{u"config.ini"_s});
}

void tst_safewrite::copiesOfTheUserStay()
{
    const QStringList copies{u"config.ini.backup"_s, u"config.ini.gravando-"_s, u"config.ini.gravando-0123abcde"_s,
                             u"config.ini.gravando-copia123"_s, u"outra.ini.gravando-0123abcd"_s};
    for (const QString &name : copies) {
        put(name, "[Config]");
    }
    QVERIFY(ini::writeProfile(u"Config"_s, u"Nome"_s, u"DEPOIS"_s, path()));
    QStringList all = copies + QStringList{u"config.ini"_s};
    all.sort();
    QStringList found = names();
    found.sort();
    QCOMPARE(found, all);
}

void tst_safewrite::aLinkStaysALink()
{
#ifdef Q_OS_UNIX
    QVERIFY(QFile::rename(path(), path(u"outra.ini"_s)));
    QVERIFY(QFile::link(path(u"outra.ini"_s), path(u"elo.ini"_s)));
    QVERIFY(QFile::link(path(u"elo.ini"_s), path()));
    QVERIFY(ini::writeProfile(u"Config"_s, u"Nome"_s, u"DEPOIS"_s, path()));
    QVERIFY(QFileInfo(path()).isSymLink() && QFileInfo(path(u"elo.ini"_s)).isSymLink());
    QVERIFY(!QFileInfo(path(u"outra.ini"_s)).isSymLink());
    QCOMPARE(stored(), settings("DEPOIS"));
#endif
}

void tst_safewrite::aLinkToNothingGetsItsFile_data()
{
    QTest::addColumn<QString>("target");
    QTest::newRow("absolute") << u"%1/outra/nova.ini"_s;
    QTest::newRow("beside") << u"nova.ini"_s;
    QTest::newRow("below") << u"outra/nova.ini"_s;
    QTest::newRow("by way of the folder above") << u"outra/../nova.ini"_s;
}

void tst_safewrite::aLinkToNothingGetsItsFile()
{
#ifdef Q_OS_UNIX
    QFETCH(const QString, target);
    QVERIFY(QDir(folder_->path()).mkdir(u"outra"_s));
    QVERIFY(QFile::remove(path()));
    QVERIFY(QFile::link(QString(target).replace(u"%1"_s, folder_->path()), path()));
    QVERIFY(ini::writeProfile(u"Config"_s, u"Nome"_s, u"DEPOIS"_s, path()));
    QVERIFY(QFileInfo(path()).isSymLink());
    QCOMPARE(ini::readProfile(u"Config"_s, u"Nome"_s, {}, 255, path()), u"DEPOIS"_s);
#endif
}

void tst_safewrite::theFileKeepsItsRights()
{
    constexpr auto rights = QFile::ReadOwner | QFile::WriteOwner | QFile::ReadGroup;
    QVERIFY(QFile::setPermissions(path(), rights));
    const auto before = QFile::permissions(path());
    QVERIFY(ini::writeProfile(u"Config"_s, u"Nome"_s, u"DEPOIS"_s, path()));
    QCOMPARE(QFile::permissions(path()), before);
}

void tst_safewrite::aNewFileIsForUserAndGroup()
{
#ifdef Q_OS_UNIX
    for (const mode_t usual : {mode_t{S_IRWXO}, mode_t{S_IWGRP | S_IWOTH}, mode_t{S_IRWXG | S_IRWXO}}) {
        QVERIFY(QFile::remove(path()));
        const mode_t before = ::umask(usual);
        const bool written = ini::writeProfile(u"Config"_s, u"Nome"_s, u"DEPOIS"_s, path());
        ::umask(before);
        QVERIFY(written);
        QVERIFY(QFile::permissions(path()).testFlags(QFile::ReadGroup | QFile::WriteGroup));
        QVERIFY(!(QFile::permissions(path()) & (QFile::ReadOther | QFile::WriteOther)));
    }
#endif
}

void tst_safewrite::aPipeIsNoSettingsFile()
{
#ifdef Q_OS_UNIX
    QVERIFY(QFile::remove(path()));
    QCOMPARE(::mkfifo(QFile::encodeName(path()).constData(), S_IRUSR | S_IWUSR), 0);
    QCOMPARE(ini::readProfile(u"Config"_s, u"Nome"_s, u"padrao"_s, 255, path()), u"padrao"_s);
    QVERIFY(!ini::writeProfile(u"Config"_s, u"Nome"_s, u"DEPOIS"_s, path()));
    QCOMPARE(names(), QStringList{u"config.ini"_s});
#endif
}

QTEST_GUILESS_MAIN(tst_safewrite)

#include "tst_safewrite.moc"
