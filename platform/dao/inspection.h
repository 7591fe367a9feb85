#pragma once

#include <QString>
#include <QStringList>

#include <memory>

namespace dao
{

class Connection;

/// Examines a database file and holds it still meanwhile: as long as it lives everybody reads what stood there when it
/// was opened, and what other programs write has to wait. Whatever else of this program reads the file is opened before
/// it: the system drops all locks that a process has on a file when it closes the file once. Changes nothing and leaves
/// nothing beside the file. Errors are those of `DBEngine::OpenDatabase`; 3428 where a write was interrupted that only
/// a program that may write can take back.
class Inspection
{
public:
    explicit Inspection(const QString &path);
    ~Inspection();
    Inspection(const Inspection &) = delete;
    Inspection &operator=(const Inspection &) = delete;

    /// What is wrong with the inner order of the file, at most a hundred lines in the engine's words; empty for a whole
    /// one.
    QStringList faults() const;

    /// The highest number that the table's counter has given so far, the next one being higher by one; 0 for none.
    qint64 lastNumber(const QString &table) const;

private:
    std::shared_ptr<Connection> connection_;
};

} // namespace dao
