#pragma once

#include <QByteArray>
#include <QElapsedTimer>
#include <QList>

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

// What a SysEx is cut into on its way through the sequencer.
constexpr qsizetype largestPiece = 256;

// All other messages stay whole.
inline QList<QByteArray> piecesOf(const QByteArray& message)
{
    if (message.isEmpty() || static_cast<quint8>(message[0]) != 0xF0)
        return {message};
    QList<QByteArray> pieces;
    for (qsizetype at = 0; at < message.size(); at += largestPiece)
        pieces.append(message.mid(at, largestPiece));
    return pieces;
}
