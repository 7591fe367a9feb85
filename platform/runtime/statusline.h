#pragma once

#include <QElapsedTimer>
#include <QString>

namespace runtime
{

/// What a long work of a command-line tool tells while it lasts: one line of the terminal, written over and over, and
/// gone with this object. Where no person reads it nothing is written, as it would only fill a log.
class StatusLine
{
public:
    StatusLine();
    ~StatusLine();
    Q_DISABLE_COPY_MOVE(StatusLine)

    /// Ten times a second is as much as anybody reads.
    void show(const QString &text);
    void clear();

private:
    const bool terminal_;
    QElapsedTimer sinceShown_;
    qsizetype shown_ = 0;
};

/// From here on Ctrl+C and a request to end are only noted, for a work that has to leave everything in order.
void noteInterruption();
bool interrupted();

} // namespace runtime
