#pragma once

#include "platform/dao/database.h"
#include "platform/dao/unit.h"
#include "platform/runtime/runtime.h"
#include "support/diskfiles.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

#include <chrono>
#include <thread>

/// A program folder with a database, folders for its copies, and the tool at work on them.
namespace copia
{

using namespace Qt::StringLiterals;

struct Ended {
    int code = -1;
    QString output;
    QString errors;
};

inline QByteArray contents(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("(no file)");
}

inline void put(const QString &path, const QByteArray &bytes)
{
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    QCOMPARE(file.write(bytes), bytes.size());
}

/// All that stands in a folder, sorted.
inline QStringList names(const QString &folder)
{
    return QDir(folder).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot, QDir::Name);
}

/// Bytes in the middle of a file that do not belong there; its first pages stay.
inline void damage(const QString &path)
{
    QFile file(path);
    QVERIFY(file.open(QIODevice::ReadWrite) && file.seek(file.size() / 2));
    QCOMPARE(file.write(QByteArray(8192, 'X')), 8192);
}

/// The beginning of a database of the old system.
inline QByteArray oldDatabase()
{
    return QByteArray::fromHex("00010000") + "Standard Jet DB" + QByteArray(4096, '\0');
}

/// What the tool says, on every system alike: the slashes and the ends of the lines.
inline QString said(const QByteArray &bytes)
{
    return QDir::fromNativeSeparators(QString::fromLocal8Bit(bytes)).remove(u'\r');
}

class Workshop
{
public:
    Workshop()
    {
        const QString database = this->database();
        QDir().mkpath(QFileInfo(database).path());
        QDir().mkpath(copies());
        const auto made = dao::DBEngine::CreateDatabase(database, u";LANGID=0x0409;CP=1252;COUNTRY=0"_s);
        made->Execute(u"CREATE TABLE Caixa (Codigo COUNTER, Descricao TEXT(100))"_s);
        made->Execute(u"CREATE TABLE Banco1 (Codigo COUNTER, Descricao TEXT(100))"_s);
        made->Close();
        add(3000);
    }

    QString path(const QString &name = {}) const { return folder_.filePath(u"oficina do Zé/"_s + name); }
    QString database() const { return path(u"DADOS/DADOS.MDB"_s); }
    QString copies() const { return folder_.filePath(u"cópias"_s); }
    QString beside(const QString &name) const { return folder_.filePath(name); }

    void add(int rows) const
    {
        const auto database = dao::DBEngine::OpenDatabase(this->database());
        const dao::Unit batch;
        for (int i = 0; i < rows; ++i) {
            for (const QString &table : {u"Caixa"_s, u"Banco1"_s}) {
                database->Execute(u"INSERT INTO %1 (Descricao) VALUES ('%2')"_s.arg(table, QString(90, u'X')));
            }
        }
    }

    /// How many rows both tables of a database hold; -1 where they differ or the file is not whole.
    static int rowsOf(const QString &file)
    {
        const auto database = dao::DBEngine::OpenDatabase(file);
        const auto count = [&](const QString &table) {
            return runtime::CLng(database->OpenRecordset(u"SELECT count(Codigo) FROM "_s + table).value(0));
        };
        const bool whole = database->CheckIntegrity() == u"ok"_s && count(u"Caixa"_s) == count(u"Banco1"_s);
        return whole ? count(u"Caixa"_s) : -1;
    }
    int rows() const { return rowsOf(database()); }

    /// The copies in the folder of copies, the newest first, as paths.
    QStringList madeCopies(const QString &filter = u"DADOS-*.MDB"_s) const
    {
        QStringList found;
        for (const QFileInfo &one :
             QDir(copies()).entryInfoList({filter}, QDir::AllEntries, QDir::Name | QDir::Reversed)) {
            found.append(one.filePath());
        }
        return found;
    }

    /// Runs the tool for this folder, without waiting for the program's end.
    Ended run(const QStringList &arguments) const { return ended(QStringLiteral(FERRAMENTA), options() + arguments); }

    /// The same by a line of the shell, in which "$0" is the tool and "$@" are its arguments.
    Ended start(const QString &line, const QStringList &arguments) const
    {
        return ended(u"/bin/sh"_s, QStringList{u"-c"_s, line, QStringLiteral(FERRAMENTA)} + options() + arguments);
    }

private:
    QStringList options() const { return {u"--pasta"_s, path(), u"--espera"_s, u"0"_s}; }

    static Ended ended(const QString &program, const QStringList &arguments)
    {
        QProcess tool;
        tool.start(program, arguments);
        tool.waitForFinished(120'000);
        return {.code = tool.exitStatus() == QProcess::NormalExit ? tool.exitCode() : -1,
                .output = said(tool.readAllStandardOutput()),
                .errors = said(tool.readAllStandardError())};
    }

    QTemporaryDir folder_;
};

/// The tool, killed again and again in the same work: the first time at its start, the last time behind its end, and
/// once as soon as it writes, however quick the machine is and whatever else it does. The others are spread over the
/// work, which is done once whole to see how long it takes.
class Kills
{
public:
    Kills(const Workshop &workshop, const QStringList &arguments, int times)
        : workshop_(workshop), arguments_(QStringList{u"--pasta"_s, workshop.path()} + arguments), times_(times)
    {
        QElapsedTimer clock;
        clock.start();
        QProcess tool;
        start(tool);
        QVERIFY(tool.waitForFinished(patience));
        QCOMPARE(tool.exitCode(), 0);
        whole_ = std::chrono::nanoseconds(clock.nsecsElapsed());
    }

    int times() const { return times_; }

    /// The kill number `i`, from 0.
    void kill(int i) const
    {
        const QStringList before = standing();
        QProcess tool;
        start(tool);
        if (i == times_ / 2) {
            while (tool.state() == QProcess::Running && standing() == before) {
                tool.waitForFinished(1);
            }
        } else if (i < times_ - 1) {
            std::this_thread::sleep_for(whole_ * 3 * i / (2 * (times_ - 1)));
        }
        if (i < times_ - 1) {
            tool.kill();
        }
        QVERIFY(tool.state() == QProcess::NotRunning || tool.waitForFinished(patience));
    }

private:
    static constexpr int patience = 120'000; // milliseconds

    QStringList standing() const { return support::filesOf(workshop_.beside(QString())); }

    void start(QProcess &tool) const
    {
        tool.start(QStringLiteral(FERRAMENTA), arguments_);
        QVERIFY(tool.waitForStarted());
    }

    const Workshop &workshop_;
    QStringList arguments_;
    int times_;
    std::chrono::nanoseconds whole_{0};
};

} // namespace copia
