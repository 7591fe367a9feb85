#pragma once

#include <QtGlobal>

#include <ctime>

namespace support
{

/// The time that this process has worked since it was made or restarted: what a busy machine gives to others does not
/// count, as it does on a clock on the wall.
class CpuTime
{
public:
    qint64 milliseconds() const { return (std::clock() - since_) / (CLOCKS_PER_SEC / 1000); }
    void restart() { since_ = std::clock(); }

private:
    std::clock_t since_ = std::clock();
};

} // namespace support
