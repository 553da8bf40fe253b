#include "alsaports.h"

namespace
{
constexpr std::array bothPorts{MixerPort::AudioControl, MixerPort::ControlSurface};
}

void AlsaPorts::setEvents(Events events)
{
    m_client.setEvents({[this, received = events.received](int id, const QByteArray& bytes) {
                            received(id == idOf(MixerPort::ControlSurface)
                                         ? MixerPort::ControlSurface
                                         : MixerPort::AudioControl,
                                     bytes);
                        },
                        events.tell});
}

QString AlsaPorts::show(bool readable, bool writable)
{
    const bool visible = readable || writable;
    for (const MixerPort port : bothPorts) {
        int& id = m_ids[indexOf(port)];
        if (!visible) {
            if (id >= 0)
                m_client.removePort(id);
            id = -1;
        } else if (id < 0) {
            id = m_client.addPort(portName(port), readable, writable);
            if (id < 0)
                return m_client.describe("no port", id);
        } else if (const QString error = m_client.changePort(id, readable, writable);
                   !error.isEmpty()) {
            return error;
        }
    }
    if (!visible)
        m_client.dropAll();
    return {};
}

bool AlsaPorts::hasRoom(MixerPort port, qsizetype size)
{
    return idOf(port) < 0 || m_client.hasRoom(idOf(port), size);
}

bool AlsaPorts::send(MixerPort port, const QByteArray& bytes)
{
    return m_client.send(idOf(port), bytes);
}
