#include "platform/runtime/error.h"
#include "platform/runtime/shell.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;

namespace
{

constexpr int patience = 60'000; // milliseconds for a process that does its work and ends

} // namespace

class tst_shell : public QObject
{
    Q_OBJECT

private slots:
    void init() { folder_ = std::make_unique<QTemporaryDir>(); }

    void aBatchFileIsStarted_data();
    void aBatchFileIsStarted();
    void itIsNotWaitedFor();
    void itWorksInItsFolderAndWaitsForNoKeys();
    void itFindsTheProgramBehindAllElse();
    void whatIsNotThereIsError53_data();
    void whatIsNotThereIsError53();
#ifdef Q_OS_UNIX
    void itOutlivesTheProgram();
    void whereNothingIsSearchedNeitherIsTheProgram();
    void whatCanNotBeStartedIsError5();
#endif

private:
    QString path(const QString &name) const
    {
        return folder_->filePath(name);
    }
    QString batch(const QByteArray &text, bool executable = true, const QString &name = u"COPIA DO ZÉ.BAT"_s) const
    {
        QFile file(path(name));
        if (!file.open(QIODevice::WriteOnly) || file.write(text) != text.size()) {
            qFatal("no batch file");
        }
        const auto rights = QFile::ReadOwner | QFile::WriteOwner;
        file.setPermissions(executable ? rights | QFile::ExeOwner : rights);
        return file.fileName();
    }
    QByteArray mark() const
    {
        QFile file(path(u"marca"_s));
        return file.open(QIODevice::ReadOnly) ? file.readAll().trimmed() : QByteArray("(none)");
    }
    static int errorOf(const QString &path)
    {
        try {
            runtime::Shell(path);
        } catch (const runtime::RuntimeError &error) {
            return error.number();
        }
        return 0;
    }

    std::unique_ptr<QTemporaryDir> folder_;
};

void tst_shell::aBatchFileIsStarted_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<bool>("executable");
#ifdef Q_OS_WIN
    QTest::newRow("of this system") << QByteArray("@echo off\r\necho sim>marca\r\n") << true;
    QTest::newRow("by its own path") << QByteArray("@echo sim>\"%~dp0marca\"\r\n") << true;
#else
    QTest::newRow("by itself") << QByteArray("#!/bin/sh\necho sim >marca\n") << true;
    QTest::newRow("by another interpreter") << QByteArray("#!/usr/bin/env -S sed -n -e 2wmarca\nsim\n") << true;
    QTest::newRow("without the right") << QByteArray("#!/bin/sh\necho sim >marca\n") << false;
    QTest::newRow("without an interpreter") << QByteArray("echo sim >marca\n") << true;
    QTest::newRow("neither") << QByteArray("echo sim >marca\n") << false;
#endif
}

void tst_shell::aBatchFileIsStarted()
{
    QFETCH(const QByteArray, text);
    QFETCH(const bool, executable);
    runtime::Shell(batch(text, executable));
    QTRY_COMPARE_WITH_TIMEOUT(mark(), QByteArray("sim"), patience);
}

void tst_shell::itIsNotWaitedFor()
{
#ifdef Q_OS_WIN
    runtime::Shell(batch("@echo off\r\n:espera\r\nif not exist segue goto espera\r\necho sim>marca\r\n"));
#else
    runtime::Shell(batch("#!/bin/sh\nwhile [ ! -e segue ]; do sleep 0.05; done\necho sim >marca\n"));
#endif
    QCOMPARE(mark(), QByteArray("(none)"));
    QFile(path(u"segue"_s)).open(QIODevice::WriteOnly);
    QTRY_COMPARE_WITH_TIMEOUT(mark(), QByteArray("sim"), patience);
}

void tst_shell::itWorksInItsFolderAndWaitsForNoKeys()
{
#ifdef Q_OS_WIN // in a console of its own, where somebody may press one
    runtime::Shell(batch("@cd>marca\r\n"));
    QTRY_COMPARE_WITH_TIMEOUT(mark(), QDir::toNativeSeparators(folder_->path()).toLocal8Bit(), patience);
#else
    runtime::Shell(batch("#!/bin/sh\nread -r tecla\n[ -t 1 ] || { pwd; echo \"[$tecla]\"; } >marca\n"));
    QTRY_COMPARE_WITH_TIMEOUT(mark(), folder_->path().toUtf8() + "\n[]", patience);
#endif
}

void tst_shell::itFindsTheProgramBehindAllElse()
{
#ifdef Q_OS_WIN
    runtime::Shell(batch("@set PATH>marca.novo\r\n@ren marca.novo marca\r\n"));
#else
    runtime::Shell(batch("#!/bin/sh\necho \"PATH=$PATH\" >marca.novo; mv marca.novo marca\n"));
#endif
    QTRY_VERIFY(mark() != "(none)");
    const QString own = QDir::toNativeSeparators(QCoreApplication::applicationDirPath());
    const QString expected = qEnvironmentVariable("PATH") + QDir::listSeparator() + own;
    QCOMPARE(QString::fromLocal8Bit(mark().split('\n').value(0)).trimmed().mid(5), expected);
}

void tst_shell::whatIsNotThereIsError53_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("no file") << u"AUSENTE.BAT"_s;
    QTest::newRow("no folder") << u"ausente/AUSENTE.BAT"_s;
    QTest::newRow("a folder") << u"."_s;
}

void tst_shell::whatIsNotThereIsError53()
{
    QFETCH(const QString, name);
    QCOMPARE(errorOf(path(name)), 53);
}

#ifdef Q_OS_UNIX

/// A session of its own: what ends the program's leaves it alone.
void tst_shell::itOutlivesTheProgram()
{
    const auto session = [](const QByteArray &stat) { return stat.split(' ').value(5).toInt(); };
    runtime::Shell(batch("#!/bin/sh\ncat /proc/$$/stat >marca.novo; mv marca.novo marca\n", true, u"s.BAT"_s));
    QTRY_VERIFY_WITH_TIMEOUT(mark() != "(none)", patience);
    QFile own(u"/proc/self/stat"_s);
    QVERIFY(own.open(QIODevice::ReadOnly));
    QVERIFY(session(mark()) > 0);
    QVERIFY(session(mark()) != session(own.readAll()));
}

/// The shell's own places would not be searched any more.
void tst_shell::whereNothingIsSearchedNeitherIsTheProgram()
{
    const QByteArray folders = qgetenv("PATH");
    const QString text = batch("#!/bin/sh\nmv=$(command -v mv); echo \"$PATH\" >marca.novo; $mv marca.novo marca\n");
    QVERIFY(qunsetenv("PATH"));
    runtime::Shell(text);
    QVERIFY(qputenv("PATH", folders));
    QTRY_VERIFY(mark() != "(none)");
    QVERIFY(!mark().contains(QCoreApplication::applicationDirPath().toLocal8Bit()));
}

void tst_shell::whatCanNotBeStartedIsError5()
{
    QCOMPARE(errorOf(batch("#!/ausente/interpretador\n")), 5);
}

#endif

QTEST_GUILESS_MAIN(tst_shell)
#include "tst_shell.moc"
