#include "platform/runtime/console.h"

#include <QByteArray>

#ifdef Q_OS_WIN
#include <io.h>
#include <windows.h>
#else
#include <unistd.h>
#endif

namespace runtime
{

namespace
{

#ifdef Q_OS_WIN

/// False where the stream is no console: letters as they are go nowhere else.
bool printToConsole(const QString &text, std::FILE *stream)
{
    const auto handle = reinterpret_cast<HANDLE>(_get_osfhandle(_fileno(stream)));
    DWORD mode = 0;
    DWORD written = 0;
    return GetConsoleMode(handle, &mode) != 0 &&
           WriteConsoleW(handle, text.utf16(), static_cast<DWORD>(text.size()), &written, nullptr) != 0;
}

#else

bool printToConsole(const QString & /*text*/, std::FILE * /*stream*/)
{
    return false;
}

#endif

} // namespace

void print(const QString &text, std::FILE *stream)
{
    std::fflush(stream);
    if (!printToConsole(text, stream)) {
        std::fputs(text.toLocal8Bit().constData(), stream);
        std::fflush(stream);
    }
}

bool isTerminal(std::FILE *stream)
{
#ifdef Q_OS_WIN
    return _isatty(_fileno(stream)) != 0;
#else
    return ::isatty(::fileno(stream)) != 0;
#endif
}

} // namespace runtime
