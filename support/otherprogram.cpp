#include "support/otherprogram.h"

#include <QByteArray>
#include <QFile>
#include <QtEndian>

#include <sqlite3.h>

using namespace Qt::StringLiterals;

namespace support
{

namespace
{

const char *statementOf(Lock lock)
{
    switch (lock) {
    case Lock::Reserve:
        return "BEGIN IMMEDIATE";
    case Lock::Read:
        return "BEGIN; SELECT 1 FROM sqlite_schema";
    case Lock::Take:
        break;
    }
    return "BEGIN EXCLUSIVE";
}

} // namespace

void OtherProgram::Closer::operator()(sqlite3 *handle) const
{
    sqlite3_close(handle);
}

OtherProgram::OtherProgram(const QString &path)
{
    sqlite3 *handle = nullptr;
    if (sqlite3_open_v2(path.toUtf8().constData(), &handle, SQLITE_OPEN_READWRITE, nullptr) != SQLITE_OK) {
        qFatal("%s can't be opened a second time", qPrintable(path));
    }
    handle_.reset(handle);
}

OtherProgram::~OtherProgram() = default;

bool OtherProgram::run(const char *sql)
{
    return sqlite3_exec(handle_.get(), sql, nullptr, nullptr, nullptr) == SQLITE_OK;
}

bool OtherProgram::hold(Lock lock)
{
    return run(statementOf(lock));
}

int OtherProgram::count(const char *select)
{
    int found = -1;
    const auto keep = [](void *place, int, char **texts, char **) {
        *static_cast<int *>(place) = QByteArray(texts[0]).toInt();
        return 0;
    };
    sqlite3_exec(handle_.get(), select, keep, &found, nullptr);
    return found;
}

void OtherProgram::giveBack()
{
    run("ROLLBACK");
}

Holder::Holder(const QString &path, Lock lock, std::chrono::milliseconds time)
{
    process_.start(QStringLiteral(TARVELO_HOLDER),
                   {path, QLatin1StringView(statementOf(lock)), QString::number(time.count())});
    if (!process_.waitForReadyRead(-1) || process_.readLine().trimmed() != "held") {
        qFatal("%s is locked already", qPrintable(path));
    }
}

Holder::~Holder()
{
    process_.waitForFinished(-1);
}

quint32 writesOf(const QString &path)
{
    constexpr qint64 counterAt = 24;
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly) || !file.seek(counterAt)) {
        qFatal("%s can't be read", qPrintable(path));
    }
    return qFromBigEndian<quint32>(file.read(sizeof(quint32)).constData());
}

QString whatHolds(const QString &path)
{
    OtherProgram other(path);
    if (other.take()) {
        other.giveBack();
        return {};
    }
    return u"the file is locked: "_s + path;
}

} // namespace support
