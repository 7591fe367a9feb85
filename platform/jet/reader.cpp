#include "platform/jet/frames.h"
#include "platform/jet/page.h"
#include "platform/jet/stream.h"

#include <QFileInfo>
#include <QProcess>
#include <QScopeGuard>

namespace jet
{

namespace
{

// A frame is a batch of rows and one row more, with all its texts: those take two bytes where the file has one.
constexpr qint64 frameRoom = qint64{4} << 20;
constexpr qint64 mostGrowth = 2;

constexpr qint64 mostRowsOfPage = 256;

constexpr std::chrono::milliseconds timeToEnd{2000};

} // namespace

class Reader::Private
{
public:
    Private(const QString &path, Server server, std::chrono::milliseconds limit)
        : server_(std::move(server)), limit_(static_cast<int>(limit.count())), fileSize_(QFileInfo(path).size())
    {
        server_.arguments.append(path);
        start();
    }
    ~Private()
    {
        process_.closeWriteChannel();
        if (!process_.waitForFinished(static_cast<int>(timeToEnd.count()))) {
            stop();
        }
    }
    Private(const Private &) = delete;
    Private &operator=(const Private &) = delete;

    const std::vector<Table> &tables() const { return tables_; }
    Reading read(std::size_t table, const TakeRow &take);

private:
    void start();
    void stop();
    [[noreturn]] void giveUp(Damage damage);
    void ask(quint32 table);
    QByteArray bytes(qint64 size);
    std::pair<Frame, QByteArray> frame();

    Server server_;
    int limit_;
    qint64 fileSize_;
    QProcess process_;
    std::vector<Table> tables_;
};

// libmdb tells what it meets on standard error, in words for its own developers.
void Reader::Private::start()
{
    process_.setStandardErrorFile(QProcess::nullDevice());
    process_.start(server_.program, server_.arguments);
    if (!process_.waitForStarted(limit_)) {
        giveUp(Damage::NotStarted);
    }
    const auto [frame, bytes] = this->frame();
    if (frame != Frame::Tables) {
        giveUp(Damage::Garbled);
    }
    // Whoever reads holds on to those of the first process.
    auto tables = unpackTables(bytes);
    if (tables_.empty()) {
        tables_ = std::move(tables);
    } else if (tables.size() != tables_.size()) {
        giveUp(Damage::Garbled);
    }
}

void Reader::Private::stop()
{
    process_.kill();
    process_.waitForFinished();
}

void Reader::Private::giveUp(Damage damage)
{
    stop();
    throw Damaged(damage);
}

void Reader::Private::ask(quint32 table)
{
    if (process_.state() != QProcess::Running) {
        start();
    }
    process_.write(reinterpret_cast<const char *>(&table), sizeof table);
    while (process_.bytesToWrite() > 0) {
        if (!process_.waitForBytesWritten(limit_)) {
            giveUp(process_.state() == QProcess::Running ? Damage::Silent : Damage::Crashed);
        }
    }
}

// Reads no further than it needs to: what is not taken yet stays in the pipe, and the process waits.
QByteArray Reader::Private::bytes(qint64 size)
{
    while (process_.bytesAvailable() < size) {
        if (!process_.waitForReadyRead(limit_) && process_.bytesAvailable() < size) {
            giveUp(process_.state() == QProcess::Running ? Damage::Silent : Damage::Crashed);
        }
    }
    return process_.read(size);
}

std::pair<Frame, QByteArray> Reader::Private::frame()
{
    FrameHead head{};
    const QByteArray start = bytes(sizeof head);
    std::memcpy(&head, start.constData(), sizeof head);
    if (head.bytes > frameRoom + mostGrowth * fileSize_) {
        giveUp(Damage::Garbled);
    }
    const QByteArray content = bytes(head.bytes);
    if (head.frame == Frame::Damaged) {
        giveUp(unpackDamage(content));
    }
    return {head.frame, content};
}

Reading Reader::Private::read(std::size_t table, const TakeRow &take)
{
    ask(static_cast<quint32>(table));
    auto unlessAtEnd = qScopeGuard([this] { stop(); });
    Reading read;
    const qint64 most = fileSize_ / pageSize * mostRowsOfPage;
    const auto takeCounted = [&](const Row &row) {
        if (++read.rows > most) {
            giveUp(Damage::Flooded);
        }
        read.ended = !take(row);
        return !read.ended;
    };
    for (;;) {
        const auto [frame, bytes] = this->frame();
        if (frame == Frame::End) {
            const Reading told = unpackReading(bytes);
            if (told.rows != read.rows) {
                giveUp(Damage::Garbled);
            }
            unlessAtEnd.dismiss();
            return told;
        }
        if (frame != Frame::Rows || bytes.isEmpty()) {
            giveUp(Damage::Garbled);
        }
        unpackRows(bytes, tables_[table].columns.size(), takeCounted);
        if (read.ended) {
            return read;
        }
    }
}

Reader::Reader(const QString &path, Server server, std::chrono::milliseconds limit)
    : d_(std::make_unique<Private>(path, std::move(server), limit))
{
}

Reader::~Reader() = default;

const std::vector<Table> &Reader::tables() const
{
    return d_->tables();
}

Reading Reader::read(std::size_t table, const TakeRow &take)
{
    return d_->read(table, take);
}

} // namespace jet
