#pragma once

#include "mixerports.h"

#include <QList>

// Ports that lead nowhere: what was sent is kept, and the test plays the host.
class FakeMixerPorts : public MixerPorts
{
public:
    Events events;
    QList<QByteArray> sent; // hexadecimal, with "surface " in front where it left there
    int room = -1;          // how many messages still fit; -1 is no bound

    void setEvents(Events wanted) override { events = std::move(wanted); }
    QString show(bool, bool) override { return {}; }
    bool hasRoom(MixerPort, qsizetype) override { return room != 0; }
    bool send(MixerPort port, const QByteArray& bytes) override
    {
        if (room > 0)
            --room;
        sent.append((port == MixerPort::ControlSurface ? "surface " : "") + bytes.toHex());
        return true;
    }
};
