#pragma once

#include <QElapsedTimer>

// How long a reader without room is waited for: it loses all that waits for it once its input
// overflows, but one that has stopped reading for good must not hold up the others.
class RoomPatience
{
public:
    static constexpr int retryMs = 2;
    static constexpr int patienceMs = 5000;

    // To be asked again after retryMs where it says so.
    bool mustWait(bool hasRoom)
    {
        if (hasRoom) {
            m_waiting.invalidate();
            return false;
        }
        if (!m_waiting.isValid())
            m_waiting.start();
        return m_waiting.elapsed() < patienceMs;
    }
    void forget() { m_waiting.invalidate(); }

private:
    QElapsedTimer m_waiting;
};
