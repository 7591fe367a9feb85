#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;

/// The installation of this build, laid into a scratch folder by the command of the README.
class TestInstalacao : public QObject
{
    Q_OBJECT

private slots:
    void init() { folder_ = std::make_unique<QTemporaryDir>(); }

    void holdsTheWholeProgram();
    void aSecondOneKeepsWhatTheUserChanged();
    void aSecondOneKeepsFilesWhateverTheCaseOfTheirNames();
    void aSecondOneBringsWhatIsMissing();

private:
    void install() const
    {
        QProcess cmake;
        cmake.setProcessChannelMode(QProcess::MergedChannels);
        cmake.start(QStringLiteral(CMAKE_PROGRAM), {u"--install"_s, QStringLiteral(BUILD), u"--prefix"_s, root()});
        QVERIFY(cmake.waitForFinished(120000));
        QVERIFY2(cmake.exitCode() == 0, cmake.readAll().constData());
    }
    QString root() const { return folder_->filePath(u"oficina do Zé"_s); }
    QString path(const QString &name) const { return root() + u'/' + name; }
    QByteArray contents(const QString &name) const
    {
        QFile file(path(name));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }
    void put(const QString &name, const QByteArray &bytes) const
    {
        QFile file(path(name));
        QVERIFY(file.open(QIODevice::WriteOnly));
        QCOMPARE(file.write(bytes), bytes.size());
    }

    std::unique_ptr<QTemporaryDir> folder_;
};

namespace
{

const QStringList scripts{u"BACKUPDA.BAT"_s, u"BACKUPFI.BAT"_s, u"RESTORDA.BAT"_s, u"RESTORFI.BAT"_s};
#ifdef Q_OS_WIN
const QByteArray firstLine = "@echo off\r\n";
#else
const QByteArray firstLine = "#!/bin/sh\n";
#endif

} // namespace

void TestInstalacao::holdsTheWholeProgram()
{
    install();
    QVERIFY(QFileInfo(path(u"tarvelo"_s)).isExecutable());
    QVERIFY(QFileInfo(path(u"tarvelo-copia"_s)).isExecutable());
    QVERIFY(QFileInfo(path(u"tarvelo-confere"_s)).isExecutable());
#ifdef Q_OS_LINUX
    QVERIFY(QFileInfo(path(u"tarvelo-importa"_s)).isExecutable()); // its library is there for no other system
#endif
    for (const QString &script : scripts) {
        QVERIFY2(contents(script).startsWith(firstLine), qPrintable(script));
        QVERIFY(QFileInfo(path(script)).isExecutable());
    }
    for (const QString &picture : {u"splash.bmp"_s, u"bg800.bmp"_s, u"bg1024.bmp"_s, u"bg1280.bmp"_s, u"logo.bmp"_s}) {
        QVERIFY2(contents(u"DADOS/"_s + picture).startsWith("BM"), qPrintable(picture));
        QVERIFY(QFile::exists(path(u"dados/"_s + picture)));
    }
    QVERIFY(contents(u"CEP.MDB"_s).startsWith("SQLite"));
    QVERIFY(contents(u"manual.html"_s).startsWith("<!DOCTYPE html>"));
}

void TestInstalacao::aSecondOneKeepsWhatTheUserChanged()
{
    install();
    QStringList changed = scripts;
    changed << u"DADOS/logo.bmp"_s << u"CEP.MDB"_s;
    for (const QString &name : changed) {
        put(name, "da oficina: " + name.toLatin1());
    }
    install();
    for (const QString &name : changed) {
        QCOMPARE(contents(name), "da oficina: " + name.toLatin1());
    }
}

void TestInstalacao::aSecondOneKeepsFilesWhateverTheCaseOfTheirNames()
{
    install();
    QVERIFY(QFile::remove(path(u"BACKUPDA.BAT"_s)));
    put(u"BackupDa.bat"_s, "da oficina");
    install();
    QCOMPARE(QDir(root()).entryList({u"backupda.bat"_s}, QDir::Files), QStringList{u"BackupDa.bat"_s});
    QCOMPARE(contents(u"BackupDa.bat"_s), QByteArray("da oficina"));
}

void TestInstalacao::aSecondOneBringsWhatIsMissing()
{
    install();
    QVERIFY(QFile::remove(path(u"RESTORFI.BAT"_s)));
    QVERIFY(QFile::remove(path(u"DADOS/bg800.bmp"_s)));
    install();
    QVERIFY(contents(u"RESTORFI.BAT"_s).startsWith(firstLine));
    QVERIFY(contents(u"DADOS/bg800.bmp"_s).startsWith("BM"));
}

QTEST_GUILESS_MAIN(TestInstalacao)
#include "tst_instalacao.moc"
