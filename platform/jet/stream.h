#pragma once

#include "platform/jet/table.h"

#include <QStringList>

#include <chrono>
#include <memory>

namespace jet
{

/// The end that reads the file: writes its tables to standard output, then the rows of each table whose place it is
/// given on standard input, until that ends. The exit status of its program.
int serve(const QString &path);

/// The program that calls `serve`, with what stands on its command line before the path of the file.
struct Server {
    QString program;
    QStringList arguments;
};

/// The other end: reads a Jet file through a process of its own, as a damaged file can end or hang whoever reads it.
/// What goes wrong there is raised here as `Damaged`. No rows are taken ahead of whoever takes them.
class Reader
{
public:
    /// Starts the process, which may be silent for `limit` at a time.
    Reader(const QString &path, Server server, std::chrono::milliseconds limit = std::chrono::seconds(30));
    ~Reader();
    Reader(const Reader &) = delete;
    Reader &operator=(const Reader &) = delete;

    const std::vector<Table> &tables() const;

    /// As `File::read`. A reading that `take` ends leaves the process; the next one starts another.
    Reading read(std::size_t table, const TakeRow &take);

private:
    class Private;
    std::unique_ptr<Private> d_;
};

} // namespace jet
