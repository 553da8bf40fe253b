#pragma once

#include "frames.h"

#include <QByteArray>
#include <QString>

#include <functional>

// The mixer's two ports on some MIDI system, as the Simulator needs them; it owns the object.
class MixerPorts
{
public:
    struct Events {
        // A whole message, or what came that is none.
        std::function<void(MixerPort, const QByteArray&)> received;
        // Something else worth a line of the monitor.
        std::function<void(const QString&)> tell;
    };

    virtual ~MixerPorts() = default;

    virtual void setEvents(Events events) = 0;
    // What a host can see: ports to read from (its inputs), to write to (its outputs), both or,
    // with both false, no ports at all. Returns what went wrong; empty when nothing did.
    virtual QString show(bool readable, bool writable) = 0;
    // Whether everybody who listens to the port can take this now. A host that is slow loses all
    // that waits for it once it has no more room.
    virtual bool hasRoom(MixerPort port, qsizetype size) = 0;
    // What begins with 0xF0, or continues such a message, leaves byte by byte as it is, however
    // illegal; anything else must be MIDI messages. False where nothing could be sent.
    virtual bool send(MixerPort port, const QByteArray& bytes) = 0;
};
