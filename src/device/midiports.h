#pragma once

#include <QList>
#include <QStringList>

#include <juce_audio_devices/juce_audio_devices.h>

#include <memory>

// The system's MIDI as MidiManager sees it. JucePorts is the real one; a test stands in for all
// hardware by implementing these three.

class MidiInputPort
{
public:
    virtual ~MidiInputPort() = default;
    virtual void start() = 0;
    virtual void stop() = 0;
};

class MidiOutputPort
{
public:
    virtual ~MidiOutputPort() = default;
    // Sends at once, in the caller's thread.
    virtual void sendMessageNow(const juce::MidiMessage& message) = 0;
};

struct MidiPortInfo {
    QString name;
    // Tells twins of one name apart; valid until the device goes.
    QString identifier;

    bool operator==(const MidiPortInfo&) const = default;
};

inline QStringList namesOf(const QList<MidiPortInfo>& ports)
{
    QStringList names;
    names.reserve(ports.size());
    for (const auto& port : ports)
        names.append(port.name);
    return names;
}

// The first of twins; without an identifier when there is none of this name.
inline MidiPortInfo portNamed(const QList<MidiPortInfo>& ports, const QString& name)
{
    for (const auto& port : ports) {
        if (port.name == name)
            return port;
    }
    return {name, {}};
}

class MidiPorts
{
public:
    virtual ~MidiPorts() = default;

    // In the system's order.
    virtual QList<MidiPortInfo> inputs() = 0;
    virtual QList<MidiPortInfo> outputs() = 0;

    // Null when the port can't be opened.
    virtual std::unique_ptr<MidiInputPort> openInput(const QString& identifier,
                                                     juce::MidiInputCallback* callback) = 0;
    virtual std::unique_ptr<MidiOutputPort> openOutput(const QString& identifier) = 0;

    // The names of all audio output devices, for the diagnostic check on connection.
    virtual QStringList audioOutputNames() = 0;
};
