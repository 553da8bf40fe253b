#pragma once

#include "mixerports.h"

#include <QList>
#include <QPair>

// Ports that lead nowhere: what was sent is kept, and the test plays the host.
class FakeMixerPorts : public MixerPorts
{
public:
    // The ports of the Simulator that was made last.
    inline static FakeMixerPorts* last = nullptr;

    FakeMixerPorts() { last = this; }

    Events events;
    QList<QPair<bool, bool>> shown; // readable, writable
    QList<QByteArray> sent;         // hexadecimal, with "surface " in front where it left there
    QString refusal;
    int room = -1; // how many messages still fit; -1 is no bound

    void setEvents(Events wanted) override { events = std::move(wanted); }
    QString show(bool readable, bool writable) override
    {
        shown.append({readable, writable});
        return readable || writable ? refusal : QString();
    }
    bool hasRoom(MixerPort, qsizetype) override { return room != 0; }
    bool send(MixerPort port, const QByteArray& bytes) override
    {
        if (room > 0)
            --room;
        sent.append((port == MixerPort::ControlSurface ? "surface " : "") + bytes.toHex());
        return true;
    }
};
