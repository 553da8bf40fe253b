#pragma once

#include "midiports.h"

// The system's MIDI ports through JUCE. Owned by MidiManager.
class JucePorts : public MidiPorts
{
public:
    JucePorts();

    QList<MidiPortInfo> inputs() override;
    QList<MidiPortInfo> outputs() override;
    std::unique_ptr<MidiInputPort> openInput(const QString& identifier,
                                             juce::MidiInputCallback* callback) override;
    std::unique_ptr<MidiOutputPort> openOutput(const QString& identifier) override;
    QStringList audioOutputNames() override;
};
