#include "platform/jet/file.h"
#include "platform/jet/frames.h"
#include "platform/jet/stream.h"

#include <csignal>
#include <cstdio>

#include <QtGlobal>

#if defined(Q_OS_WIN)
#include <fcntl.h>
#include <io.h>
#include <windows.h>
#elif defined(Q_OS_LINUX)
#include <sys/prctl.h>
#include <sys/resource.h>
#endif

namespace jet
{

namespace
{

// Rows go in batches of about this size: a write a row would take longer than reading it.
constexpr qsizetype batchSize = qsizetype{256} * 1024;

enum Status { Done = 0, Failed = 1 };

bool write(Frame frame, const QByteArray &bytes)
{
    const FrameHead head{frame, static_cast<quint32>(bytes.size())};
    const auto size = static_cast<std::size_t>(bytes.size());
    return std::fwrite(&head, sizeof head, 1, stdout) == 1 && std::fwrite(bytes.constData(), 1, size, stdout) == size &&
           std::fflush(stdout) == 0;
}

// What stops the other end (a key of the terminal reaches both) is its own to act upon; this one goes with it: on Linux
// even out of an endless loop, elsewhere as soon as it finds its pipes closed. That it may crash is reckoned with, and
// no core or box is wanted.
void liveWithTheOtherEnd()
{
    for (const int signal : {SIGINT, SIGTERM}) {
        std::signal(signal, SIG_IGN);
    }
#if defined(Q_OS_WIN)
    SetErrorMode(SEM_FAILCRITICALERRORS | SEM_NOGPFAULTERRORBOX);
#elif defined(Q_OS_LINUX)
    std::signal(SIGHUP, SIG_IGN);
    prctl(PR_SET_PDEATHSIG, SIGKILL);
    const rlimit none{};
    setrlimit(RLIMIT_CORE, &none);
#endif
}

// Windows would take some bytes for ends of lines and of the file.
void passBytesAsTheyAre()
{
#if defined(Q_OS_WIN)
    for (std::FILE *stream : {stdin, stdout}) {
        _setmode(_fileno(stream), _O_BINARY);
    }
#endif
}

bool writeRows(File &file, std::size_t table)
{
    QByteArray batch;
    bool written = true;
    const Reading reading = file.read(table, [&batch, &written](const Row &row) {
        packRow(row, batch);
        if (batch.size() >= batchSize) {
            written = write(Frame::Rows, batch);
            batch.resize(0);
        }
        return written;
    });
    if (written && !batch.isEmpty()) {
        written = write(Frame::Rows, batch);
    }
    return written && write(Frame::End, packReading(reading));
}

int answer(const QString &path)
{
    File file(path);
    if (!write(Frame::Tables, packTables(file.tables()))) {
        return Failed;
    }
    quint32 table = 0;
    while (std::fread(&table, sizeof table, 1, stdin) == 1) {
        if (table >= file.tables().size() || !writeRows(file, table)) {
            return Failed;
        }
    }
    return Done;
}

} // namespace

int serve(const QString &path)
{
    liveWithTheOtherEnd();
    passBytesAsTheyAre();
    try {
        return answer(path);
    } catch (const Damaged &damaged) {
        write(Frame::Damaged, packDamage(damaged.damage()));
        return Failed;
    }
}

} // namespace jet
