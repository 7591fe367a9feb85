#include "platform/runtime/statusline.h"

#include "platform/runtime/console.h"

#include <algorithm>
#include <csignal>

using namespace Qt::StringLiterals;

namespace runtime
{

namespace
{

constexpr qsizetype narrowestTerminal = 79;
constexpr qint64 leastTime = 100;

volatile std::sig_atomic_t noted = 0;

void note(int /*signal*/)
{
    noted = 1;
}

} // namespace

StatusLine::StatusLine() : terminal_(isTerminal(stdout)) {}

StatusLine::~StatusLine()
{
    clear();
}

/// A line that is wider than the terminal could not be written over.
void StatusLine::show(const QString &text)
{
    if (!terminal_ || (sinceShown_.isValid() && sinceShown_.elapsed() < leastTime)) {
        return;
    }
    const QString line = text.left(narrowestTerminal);
    print(u'\r' + line.leftJustified(shown_));
    shown_ = std::max(shown_, line.size());
    sinceShown_.start();
}

void StatusLine::clear()
{
    if (shown_ > 0) {
        print(u'\r' + QString(shown_, u' ') + u'\r');
        shown_ = 0;
    }
}

void noteInterruption()
{
    std::signal(SIGINT, note);
    std::signal(SIGTERM, note);
}

bool interrupted()
{
    return noted != 0;
}

} // namespace runtime
