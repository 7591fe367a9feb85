#pragma once

#include <QByteArray>
#include <QHash>
#include <QRandomGenerator>
#include <QString>

#include <map>
#include <memory>
#include <vector>

namespace powercut
{

/// One operation on the files of a folder, as the engine asked the system for it. A file that is removed and made again
/// under its name is another file.
struct Operation {
    enum class Kind { Make, Write, Truncate, Sync, Remove };

    Kind kind = Kind::Sync;
    QString name{};      ///< of Make and Remove
    int file = 0;        ///< of all but Remove
    qint64 at = 0;       ///< of Write; of Truncate the new size
    QByteArray bytes{};  ///< of Write
    bool folder = false; ///< of Sync and Remove: the names of the folder are on the disk too
};

/// A file that stood on the disk when it was opened first.
struct Standing {
    int file = 0;
    QByteArray bytes{};
};

/// Records, while it lives, what the engine does with every file that is opened. Files that stood there before count as
/// being on the disk.
class Recorder
{
public:
    Recorder();
    ~Recorder();
    Recorder(const Recorder &) = delete;
    Recorder &operator=(const Recorder &) = delete;

    const std::vector<Operation> &operations() const { return operations_; }

    /// What stood on the disk, by name.
    const std::map<QString, Standing> &before() const { return before_; }

    int opened(const QString &name, bool made);
    void add(const Operation &operation) { operations_.push_back(operation); }
    void removed(const QString &name, bool folder);

private:
    std::vector<Operation> operations_;
    std::map<QString, Standing> before_;
    QHash<QString, int> names_;
    int files_ = 0;
};

/// A disk with a cache that loses its power: what was synced is there, of the rest any part may be, torn and in any
/// order. The same goes for the names in the folder.
class Disk
{
public:
    explicit Disk(const std::map<QString, Standing> &before);

    void apply(const Operation &operation);

    /// The files by name, as one of the possible cuts at this moment leaves them.
    std::map<QString, QByteArray> cut(QRandomGenerator &random) const;

private:
    struct File {
        QByteArray bytes;
        std::vector<Operation> unsynced;
    };

    void syncFolder();

    std::map<int, File> files_;
    std::map<QString, int> names_;
    std::vector<Operation> unsyncedNames_;
};

} // namespace powercut
