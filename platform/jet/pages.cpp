#include "platform/jet/pages.h"

#include "platform/jet/table.h"

#include <QFile>
#include <QFileInfo>

namespace jet
{

namespace
{

// Their values change how libmdb reads texts, where it looks for files and what it prints.
constexpr std::array environment{"MDBICONV", "MDB_JET3_CHARSET", "MDBPATH", "MDBOPTS"};

MdbHandle *open(const QString &path)
{
    for (const char *name : environment) {
        qunsetenv(name);
    }
    return mdb_open(QFile::encodeName(QFileInfo(path).absoluteFilePath()).constData(), MDB_NOFLAGS);
}

} // namespace

Pages::Pages(const QString &path) : handle_(open(path)), count_(QFileInfo(path).size() / pageSize)
{
    if (!handle_ || !IS_JET4(handle_)) {
        throw Damaged(Damage::Catalogue);
    }
}

bool Pages::read(quint32 number, Page &into) const
{
    if (number >= count_ || mdb_read_pg(handle_.get(), number) != pageSize) {
        return false;
    }
    std::memcpy(into.data(), handle_->pg_buf, into.size());
    return true;
}

} // namespace jet
