#pragma once

#include <algorithm>
#include <limits>

// Truncates towards zero. What 32 bits can't hold gives the nearest end of their range, and what is
// not a number gives 0: a plain conversion of either would be undefined.
inline int cutToInt(double value)
{
    if (value != value)
        return 0;
    constexpr double lowest = std::numeric_limits<int>::min();
    constexpr double highest = std::numeric_limits<int>::max();
    return static_cast<int>(std::clamp(value, lowest, highest));
}
