#pragma once

#include <QString>

#include <memory>

namespace dao
{
class Database;
}

namespace walk
{

/// What must hold at every step, whatever the user does. Looks at the program from outside: the widgets that stand, and
/// the database through a connection of its own.
class Watch
{
public:
    Watch();
    ~Watch();
    Watch(const Watch &) = delete;
    Watch &operator=(const Watch &) = delete;

    /// What is wrong with the windows; empty for nothing. `waits` tells that the program waits for the user.
    QString windows();

    /// Whether somebody else can write to the database now; what holds him off otherwise.
    QString lock();

    /// Whether the file is whole; what is wrong with it otherwise.
    QString file();

    /// A statement of another workstation. Returns what happened, for the list of steps.
    QString elsewhere(const QString &statement);

private:
    QString keyboard();

    std::shared_ptr<dao::Database> other_;
    int deaf_ = 0; ///< looks in a row that found nobody at the keyboard
};

} // namespace walk
