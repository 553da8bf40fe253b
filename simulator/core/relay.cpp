#include "relay.h"

#include "pieces.h"

Relay::Relay(Callbacks callbacks, QObject* parent)
    : QObject(parent)
    , m_callbacks(std::move(callbacks))
{
    m_timer.setSingleShot(true);
    m_timer.setTimerType(Qt::PreciseTimer);
    connect(&m_timer, SIGNAL(timeout()), this, SLOT(slotSend()));
}

void Relay::add(const QByteArray& message)
{
    const QList<QByteArray> pieces = piecesOf(message);
    const bool isFull = m_waiting.size() + static_cast<std::size_t>(pieces.size()) > mostWaiting;
    if (isFull && !m_isDropping)
        m_callbacks.tell(QStringLiteral("nobody takes what comes: messages are dropped"));
    m_isDropping = isFull;
    if (isFull)
        return;
    m_waiting.insert(m_waiting.end(), pieces.begin(), pieces.end());
    if (!m_timer.isActive())
        slotSend();
}

void Relay::slotSend()
{
    while (!m_waiting.empty()) {
        if (m_patience.mustWait(m_callbacks.hasRoom(m_waiting.front().size()))) {
            m_timer.start(RoomPatience::retryMs);
            return;
        }
        const QByteArray next = std::move(m_waiting.front());
        m_waiting.pop_front();
        m_callbacks.send(next);
    }
}
