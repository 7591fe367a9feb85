#pragma once

#include <QString>
#include <QStringList>

#include <map>
#include <vector>

namespace support
{
class Program;
}

namespace crash
{

/// What the program that is killed tells of the orders that it alters and of the estimates that it turns into orders,
/// and whether the file agrees with it. An order that is altered stands as one of its steps left it: the one that was
/// told, or, where the kill came before it could be told, the next one.
class Altered
{
public:
    /// Takes a line, by its words; false where it is about something else.
    bool read(const QStringList &words);

    /// What was told since the last check.
    void check(const support::Program &program);

    /// All that was told in the whole run still stands, and each step was told more than `least` times.
    void checkAll(const support::Program &program, int least) const;

private:
    void checkTold(const support::Program &program);
    void checkUntold(const support::Program &program);

    std::map<int, int> steps_; ///< by the code of the order, the step that it is known to stand at
    std::vector<int> told_;    ///< the orders of this run
    std::map<int, int> estimateOf_;
    std::vector<int> estimates_;
    std::vector<int> timesTold_ = std::vector<int>(6);
    int checkedUntold_ = 0;
};

} // namespace crash
