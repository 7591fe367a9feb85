#pragma once

#include <QString>
#include <QtGlobal>

namespace files
{

/// A lock that the system drops with the process that holds it, however that one ends. What stands in the file, how old
/// it is and who made it count for nothing. It excludes the processes of one machine: others that share the folder have
/// a place of their own in the file.
class FileLock
{
public:
    enum class Result {
        Taken,
        Busy,       ///< another lock of this machine is alive
        Impossible, ///< the place takes no lock: no permission, no ordinary file, a file system without locks
    };

    explicit FileLock(QString path) : path_(std::move(path)) {}
    ~FileLock() { release(); }
    Q_DISABLE_COPY_MOVE(FileLock)

    /// Tries once, without waiting. The holder's process number, program and machine are then written into the file,
    /// for people.
    Result take();

    /// Gives the lock back. The file stays: taking it away would take it from under the next one.
    void release();

private:
    static constexpr qintptr noHandle = -1;

    void signFile() const;

    QString path_;
    qintptr handle_ = noHandle;
};

} // namespace files
