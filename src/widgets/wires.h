#pragma once

#include <QObject>

// One connection by string signature, as data: what makes it also unmakes it. The strings are those
// that SIGNAL() and SLOT() give. To be used in the GUI thread alone.
struct Wire {
    QObject* sender = nullptr;
    const char* signal = nullptr;
    QObject* receiver = nullptr;
    const char* slot = nullptr;

    // Both change nothing where it is so already. A signature that nobody has leaves Qt's warning.
    void connect() const;
    bool disconnect() const;
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
