#include "midimanager.h"

#include "juceports.h"

#include <QDebug>

#include <algorithm>
#include <utility>

namespace
{

// Empty without a match.
QString lastMatch(const QStringList& names, const QString& wanted)
{
    const QString folded = wanted.left(5) + wanted.mid(5).toLower();
    const auto found = std::find_if(names.crbegin(), names.crend(), [&](const QString& name) {
        return name.contains(wanted) || name.contains(folded);
    });
    return found == names.crend() ? QString() : *found;
}

juce::uint8 dataByte(int value) { return static_cast<juce::uint8>(value & 0x7F); }

juce::uint8 statusByte(int kind, int channel)
{
    return static_cast<juce::uint8>(kind | std::clamp(channel - 1, 0, 15));
}

} // namespace

MidiManager::MidiManager(QObject* parent, std::unique_ptr<MidiPorts> ports)
    : QObject(parent)
    , systemPorts(ports ? std::move(ports) : std::make_unique<JucePorts>())
{
    setObjectName(QStringLiteral("midiManager"));
    qRegisterMetaType<MidiMessage>("MidiMessage");

    connect(&pollTimer, SIGNAL(timeout()), this, SLOT(slot_PollDevices()));
    pollTimer.start(pollIntervalMs);
}

MidiManager::~MidiManager()
{
    // The input thread calls this object until its ports are closed.
    openInputs.clear();
}

void MidiManager::handleIncomingMidiMessage(juce::MidiInput* source, const MidiMessage& message)
{
    emit signal_ReceiveMidiInput(QString::fromUtf8(source->getName().toRawUTF8()), message);
}

void MidiManager::slot_PollDevices()
{
    // Both lists are known before either change is told, so that the first to hear can see to both.
    const QList<MidiPortInfo> lastInputs = std::exchange(knownInputNames, listInputs());
    const QList<MidiPortInfo> lastOutputs = std::exchange(knownOutputNames, listOutputs());
    const bool inputsChanged = lastInputs != knownInputNames;
    const bool outputsChanged = lastOutputs != knownOutputNames;

    if (inputsChanged)
        emit signal_MidiInputsChanged();
    if (outputsChanged)
        emit signal_MidiOutputsChanged();
    if (!inputsChanged && !outputsChanged)
        emit signal_MidiPortsUnchanged();
    reopenHuiPorts();
}

void MidiManager::slotRenameDevices(QString inputDevice, QString outputDevice,
                                    QString controlInputDevice, QString controlOutputDevice)
{
    renameDevices({inputDevice, outputDevice, controlInputDevice, controlOutputDevice},
                  getMidiInputDevices(), getMidiOutputDevices());
}

void MidiManager::renameDevices(const MixerNames& wanted, const QStringList& inputs,
                                const QStringList& outputs)
{
    const auto orElse = [](const QString& found, const QString& name) {
        return found.isEmpty() ? name : found;
    };
    emit signalUpdateInputDeviceName(
        orElse(lastMatch(inputs, wanted.input), wanted.input),
        orElse(lastMatch(inputs, wanted.controlInput), wanted.controlInput));

    const QString output = lastMatch(outputs, wanted.output);
    const QString controlOutput = lastMatch(outputs, wanted.controlOutput);
    sysexOutputName = orElse(output, sysexOutputName);
    controlOutputName = orElse(controlOutput, controlOutputName);
    emit signalUpdateOutputDeviceName(orElse(output, wanted.output),
                                      orElse(controlOutput, wanted.controlOutput));
}

MidiOutputPort* MidiManager::findOpenOutput(const QString& name, const char* complaint) const
{
    const auto entry = openOutputIndex.constFind(name);
    if (entry == openOutputIndex.constEnd()) {
        qDebug() << complaint << name << "-- not found in output array lookup.";
        return nullptr;
    }
    if (*entry < 0 || static_cast<std::size_t>(*entry) >= openOutputs.size()) {
        qDebug() << complaint << name << "-- index out of range.";
        return nullptr;
    }
    return openOutputs[static_cast<std::size_t>(*entry)].port.get();
}

void MidiManager::outputSysEx(QString /*deviceName*/, uchar* data, int size)
{
    if (!data || size <= 0)
        return;
    sysexQueue.append(MidiMessage(data, size, 0.0));
    if (!demoMode && !sendingSysex)
        slot_EmptyMidiBuffer();
}

void MidiManager::slot_EmptyMidiBuffer()
{
    while (!sysexQueue.isEmpty()) {
        sendingSysex = true;
        MidiOutputPort* output = findOpenOutput(sysexOutputName, "____ERROR: Cannot send sysex to");
        if (!output)
            break;
        output->sendMessageNow(sysexQueue.takeFirst());
    }
    sendingSysex = false;
}

void MidiManager::outputCC(QString deviceName, int channel, int controllerNum, int controllerValue)
{
    if (auto* output = findOpenOutput(deviceName, "____ERROR: Cannot send CC to")) {
        output->sendMessageNow(MidiMessage(statusByte(0xB0, channel), dataByte(controllerNum),
                                           dataByte(controllerValue)));
    }
}

void MidiManager::outputNoteOn(QString deviceName, int channel, int noteNum, int noteVelocity)
{
    if (auto* output = findOpenOutput(deviceName, "____ERROR: Cannot send Note On to")) {
        output->sendMessageNow(MidiMessage(statusByte(0x90, channel), dataByte(noteNum),
                                           std::clamp(noteVelocity, 0, 127)));
    }
}

void MidiManager::slotFindAudioDeviceNameOnConnect()
{
    const QStringList names = systemPorts->audioOutputNames();
    if (names.contains(QStringLiteral("J-Sum")))
        return;
    qDebug() << "\n============== !!!INCORRECT AUDIO DEVICE NAME!!! ==============\n"
             << names << "\n===============================================================\n";
}
