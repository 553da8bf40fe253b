#include "loopports.h"

#include "pieces.h"

const std::array<QString, 2> LoopPorts::names{QStringLiteral("loopMIDI Port"),
                                              QStringLiteral("loopMIDI Port 1")};

LoopPorts::LoopPorts(std::function<void(const QString&)> tell)
    : m_tell(std::move(tell))
{
    m_client.setEvents({[this](int id, const QByteArray& message) { relay(id, message); }, m_tell});
}

void LoopPorts::relay(int id, const QByteArray& message)
{
    const auto first = static_cast<quint8>(message.front());
    if (first < 0x80 || (first == sysexStart && static_cast<quint8>(message.back()) != sysexEnd)) {
        m_tell(QStringLiteral("a SysEx without beginning or end is dropped"));
        return;
    }
    for (const Loop& loop : m_loops) {
        if (loop.id == id)
            loop.relay->add(message);
    }
}

int LoopPorts::open(QString& error)
{
    error = m_client.open("J-Sum Loop Ports");
    if (!error.isEmpty())
        return noSequencer;
    for (const QString& name : names) {
        if (!m_client.findPort(name))
            continue;
        error = QStringLiteral("there is a \"%1\" already").arg(name);
        return namesTaken;
    }
    for (const QString& name : names) {
        const int id = m_client.addPort(name, true, true);
        if (id < 0) {
            error = m_client.describe("no port", id);
            return noSequencer;
        }
        auto relay = std::make_unique<Relay>(Relay::Callbacks{
            [this, id](qsizetype size) { return m_client.hasRoom(id, size); },
            [this, id](const QByteArray& piece) { m_client.send(id, piece); },
            [this, name](const QString& text) { m_tell(name + QStringLiteral(": ") + text); }});
        m_loops.push_back({id, std::move(relay)});
    }
    return 0;
}
