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

/// What the program that is killed tells of the suppliers' notes that it receives, and whether the file agrees with it:
/// a note stands whole or not at all, with its lines, its entries in the ledgers and the costs that it set.
class Received
{
public:
    /// Takes a line, by its words; false where it is about something else.
    bool read(const QStringList &words);

    /// What has been written since the last check, told or not.
    void check(const support::Program &program);

    /// All that was told in the whole run still stands, more than `least` notes.
    void checkAll(const support::Program &program, int least) const;

private:
    void checkNotes(const support::Program &program);
    void checkLedger(const support::Program &program, int part);

    std::vector<int> told_;
    std::size_t checkedTold_ = 0;
    int checked_ = 0;               ///< up to which note
    std::map<int, int> checkedRow_; ///< up to which row of a part's ledger
    std::map<int, float> balance_;  ///< and the balance there
};

} // namespace crash
