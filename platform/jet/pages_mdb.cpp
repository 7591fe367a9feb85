// The pages of a file by libmdb.
#include "platform/jet/mdb.h"
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

Pages::Pages(const QString &path) : access_(std::make_unique<Access>()), count_(QFileInfo(path).size() / pageSize)
{
    access_->handle.reset(open(path));
    if (!access_->handle || !IS_JET4(access_->handle)) {
        throw Damaged(Damage::Catalogue);
    }
}

Pages::~Pages() = default;

bool Pages::read(quint32 number, Page &into) const
{
    MdbHandle *handle = access_->handle.get();
    if (number >= count_ || mdb_read_pg(handle, number) != pageSize) {
        return false;
    }
    std::memcpy(into.data(), handle->pg_buf, into.size());
    return true;
}

} // namespace jet
