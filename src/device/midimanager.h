#pragma once

#include "midiports.h"

#include <QList>
#include <QMap>
#include <QMetaType>
#include <QObject>
#include <QStringList>
#include <QTimer>

#include <memory>
#include <vector>

using juce::MidiMessage;
Q_DECLARE_METATYPE(MidiMessage)

// Owns every MIDI port that the editor opens: watches the system's device lists, opens and closes
// ports by name, queues SysEx and hands each received message on. It knows nothing of what a
// message means. SysexManager creates it and is its parent. Everything runs on the GUI thread, but
// for handleIncomingMidiMessage, which only emits a signal that is queued to it.
class MidiManager : public QObject, public juce::MidiInputCallback
{
    Q_OBJECT

public:
    // ports: the system's MIDI; the real one when null.
    explicit MidiManager(QObject* parent = nullptr, std::unique_ptr<MidiPorts> ports = nullptr);
    ~MidiManager() override;

    static constexpr int pollIntervalMs = 500;

    // The names at this moment, in the system's order. Open ports that are gone from the list, by
    // name or by identifier, are closed and forgotten, but for the virtual ports of the HUI bridge.
    QStringList getMidiInputDevices();
    QStringList getMidiOutputDevices();

    // What the last poll found.
    const QList<MidiPortInfo>& inputsAtLastPoll() const { return knownInputNames; }
    const QList<MidiPortInfo>& outputsAtLastPoll() const { return knownOutputNames; }

    // Open the first port of exactly this name; false, with a debug line, when there is none or it
    // can't be opened. A caller who has the system's list passes the port itself.
    bool openMidiInput(QString name);
    bool openMidiOutput(QString name);
    bool openMidiInput(const MidiPortInfo& found);
    bool openMidiOutput(const MidiPortInfo& found);
    // False when the name is not open.
    bool closeMidiInput(QString name);
    bool closeMidiOutput(QString name);
    bool isInputOpen(const QString& name) const { return openInputIndex.contains(name); }
    bool isOutputOpen(const QString& name) const { return openOutputIndex.contains(name); }

    struct MixerNames {
        QString input, output, controlInput, controlOutput;
    };
    // What slotRenameDevices does, in lists that the caller has.
    void renameDevices(const MixerNames& wanted, const QStringList& inputs,
                       const QStringList& outputs);

    void setDemoMode(bool enabled) { demoMode = enabled; }

    // Called on the MIDI input thread.
    void handleIncomingMidiMessage(juce::MidiInput* source, const MidiMessage& message) override;
    void handlePartialSysexMessage(juce::MidiInput*, const juce::uint8*, int, double) override { }

public slots:
    // Finds the mixer's ports by the names passed in, which a port's name holds as they stand or in
    // lower case after their fifth character. The last match in the system's order wins, and a name
    // without a match is answered as it came.
    void slotRenameDevices(QString inputDevice, QString outputDevice, QString controlInputDevice,
                           QString controlOutputDevice);
    void slotFindAudioDeviceNameOnConnect();
    // Turns the HUI bridge on or off: opens its four ports or closes those that it opened. What is
    // so already stays as it is. Without the host's input it stays off, and a box says so.
    void slotEnableHuiPort(bool enabled);

    // Queues size bytes, 0xF0 and 0xF7 included, and sends the queue unless in demo mode. All SysEx
    // goes to the port that slotRenameDevices found; deviceName plays no part.
    void outputSysEx(QString deviceName, uchar* data, int size);
    // Sent at once to deviceName, ahead of queued SysEx. channel is one-based and brought into 1 to
    // 16; the velocity into 0 to 127; note, controller and its value lose their upper bits.
    void outputNoteOn(QString deviceName, int channel, int noteNum, int noteVelocity);
    void outputCC(QString deviceName, int channel, int controllerNum, int controllerValue);

    void slot_PollDevices();
    void slot_EmptyMidiBuffer();

signals:
    // The list differs from the last poll's, if only in an identifier.
    void signal_MidiInputsChanged();
    void signal_MidiOutputsChanged();
    // A poll that raised neither.
    void signal_MidiPortsUnchanged();
    void signal_ReceiveMidiInput(QString sourceName, MidiMessage message);
    void signalUpdateInputDeviceName(QString newInputDeviceName, QString newControlInputDeviceName);
    void signalUpdateOutputDeviceName(QString newOutputDeviceName,
                                      QString newControlOutputDeviceName);
    void signalConnectHuiStuff();
    void signalDisconnectHuiStuff();
    void signalHUIPortButton(bool checked);

private:
    // An entry's port is null after a failed open; such a one is in no map.
    template <typename Port> struct OpenPort {
        std::unique_ptr<Port> port;
        QString identifier;
    };

    // A port of the HUI bridge, under the name of the moment when the bridge was turned on.
    struct HuiPort {
        QString name;
        bool isInput;
        QString identifier; // as last seen; empty while the system has no such port
    };

    QList<MidiPortInfo> listInputs();
    QList<MidiPortInfo> listOutputs();
    bool openHuiPort(HuiPort& port);
    void closeHuiPort(const HuiPort& port);
    void turnHuiOn();
    void turnHuiOff();
    void reopenHuiPorts();
    void reopenHuiPort(HuiPort& port);
    void tellHuiInputMissing();
    void lightBankIndicators(const QString& name);
    MidiOutputPort* findOpenOutput(const QString& name, const char* complaint) const;

    std::unique_ptr<MidiPorts> systemPorts;

    QString sysexOutputName;
    QString controlOutputName;
    bool demoMode = false;
    QTimer pollTimer;
    // With their identifiers.
    QList<MidiPortInfo> knownInputNames;
    QList<MidiPortInfo> knownOutputNames;
    std::vector<OpenPort<MidiInputPort>> openInputs;
    QMap<QString, int> openInputIndex;
    std::vector<OpenPort<MidiOutputPort>> openOutputs;
    QMap<QString, int> openOutputIndex;
    QList<MidiMessage> sysexQueue;
    bool sendingSysex = false;
    std::vector<HuiPort> huiPorts; // empty while the bridge is off
    bool huiBoxIsOpen = false;
};
