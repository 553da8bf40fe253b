#pragma once

#include <cstdint>

// When the next message may leave, in microseconds of any steady clock. There is always the
// smallest gap after the last one; a timer that came late is made up for, so that a long dump keeps
// the schedule's pace.
class Pacer
{
public:
    static constexpr std::int64_t smallestGap = 1000;
    static constexpr std::int64_t pace = 1250;

    // How long to wait from `now`; 0 where it may leave at once.
    std::int64_t wait(std::int64_t now) const;
    void left(std::int64_t now);

private:
    // Lateness beyond this is not made up for.
    static constexpr std::int64_t longestDebt = 200'000;

    bool m_begun = false;
    std::int64_t m_lastLeft = 0;
    std::int64_t m_due = 0;
};
