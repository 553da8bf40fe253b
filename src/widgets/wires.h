#pragma once

#include <QObject>

// One connection by string signature, as data: what makes it also unmakes it. The strings are those
// that SIGNAL() and SLOT() give.
struct Wire {
    QObject* sender = nullptr;
    const char* signal = nullptr;
    QObject* receiver = nullptr;
    const char* slot = nullptr;

    // Both change nothing where it is so already.
    void connect() const { QObject::connect(sender, signal, receiver, slot, Qt::UniqueConnection); }
    bool disconnect() const { return QObject::disconnect(sender, signal, receiver, slot); }
};

// Keeps a wire cut for a scope. One that was not connected stays so.
class WireCut
{
public:
    explicit WireCut(const Wire& wireToCut)
        : wire(wireToCut)
        , wasConnected(wire.sender != nullptr && wire.disconnect())
    {
    }
    ~WireCut()
    {
        if (wasConnected)
            wire.connect();
    }
    Q_DISABLE_COPY_MOVE(WireCut)

private:
    const Wire wire;
    const bool wasConnected;
};
