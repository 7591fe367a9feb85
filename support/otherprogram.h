#pragma once

#include <QProcess>
#include <QString>

#include <chrono>
#include <memory>

struct sqlite3;

namespace support
{

/// How a program locks a file: as a write does at its beginning, when others may still read; as a tool does that
/// copies, when others may begin to write, and not end it; as every write does at its end.
enum class Lock { Reserve, Read, Take };

/// A second program at work on a database file: a bare connection of the engine, which never waits.
class OtherProgram
{
public:
    explicit OtherProgram(const QString &path);
    ~OtherProgram();
    OtherProgram(const OtherProgram &) = delete;
    OtherProgram &operator=(const OtherProgram &) = delete;

    /// False where it is refused, as somebody else has a lock.
    bool hold(Lock lock);
    bool take() { return hold(Lock::Take); }
    bool reserve() { return hold(Lock::Reserve); }
    bool read() { return hold(Lock::Read); }
    void giveBack(); ///< whichever it is

    /// Runs a statement of the engine; false where it is refused.
    bool run(const char *sql);

    /// The first column of the first row; -1 where it can't be read.
    int count(const char *select);

private:
    struct Closer {
        void operator()(sqlite3 *handle) const;
    };
    std::unique_ptr<sqlite3, Closer> handle_;
};

/// A program that holds a lock for a time, and ends it on its own.
class Holder
{
public:
    Holder(const QString &path, Lock lock, std::chrono::milliseconds time);
    ~Holder();
    Holder(const Holder &) = delete;
    Holder &operator=(const Holder &) = delete;

private:
    QProcess process_;
};

/// How many writes of the engine the file has seen, by the counter that each of them moves. For a file at rest.
quint32 writesOf(const QString &path);

/// What keeps another program from writing the file: "" where nothing does.
QString whatHolds(const QString &path);

} // namespace support
