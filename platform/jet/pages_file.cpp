// The pages of a file where there is no libmdb.
#include "platform/jet/pages.h"
#include "platform/jet/table.h"

#include <QFile>

namespace jet
{

struct Pages::Access {
    QFile file;
};

Pages::Pages(const QString &path) : access_(std::make_unique<Access>())
{
    QFile &file = access_->file;
    file.setFileName(path);
    // What Qt would read ahead is thrown away by the next jump.
    if (!file.open(QIODevice::ReadOnly | QIODevice::Unbuffered)) {
        throw Damaged(Damage::Catalogue);
    }
    count_ = file.size() / pageSize;
}

Pages::~Pages() = default;

bool Pages::read(quint32 number, Page &into) const
{
    QFile &file = access_->file;
    return number < count_ && file.seek(qint64{number} * pageSize) &&
           file.read(reinterpret_cast<char *>(into.data()), pageSize) == pageSize;
}

} // namespace jet
