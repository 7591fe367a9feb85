#pragma once

#include <QString>

#include <memory>

struct sqlite3;

namespace support
{

/// A second program at work on a database file: a bare connection of the engine, which never waits.
class OtherProgram
{
public:
    explicit OtherProgram(const QString &path);
    ~OtherProgram();
    OtherProgram(const OtherProgram &) = delete;
    OtherProgram &operator=(const OtherProgram &) = delete;

    /// Takes the whole file, as every write does at its end. False where somebody holds a lock, be it for reading only.
    bool take();
    bool reserve();  ///< as a write does at its beginning: others may read
    bool read();     ///< as a tool does that copies: others may begin to write, and not end it
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

/// How many writes of the engine the file has seen, by the counter that each of them moves. For a file at rest.
quint32 writesOf(const QString &path);

/// What keeps another program from writing the file: "" where nothing does.
QString whatHolds(const QString &path);

} // namespace support
