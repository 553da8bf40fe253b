#include "pacer.h"

#include <algorithm>

std::int64_t Pacer::wait(std::int64_t now) const
{
    if (!m_begun)
        return 0;
    return std::max<std::int64_t>(0, std::max(m_due, m_lastLeft + smallestGap) - now);
}

void Pacer::left(std::int64_t now)
{
    const std::int64_t due = m_begun ? std::max(m_due, now - longestDebt) : now;
    m_begun = true;
    m_lastLeft = now;
    m_due = due + pace;
}
