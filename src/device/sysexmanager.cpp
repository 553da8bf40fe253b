// SysexManager's life and connection.
#include "sysexmanager.h"

#include "firmwareupdatemanager.h"
#include "modes.h"
#include "sysextables.h"

#include <QDebug>

#include <functional>
#include <utility>

namespace
{

template <typename Table, typename Text = std::identity>
QStringList toStringList(const Table& table, Text text = {})
{
    QStringList list;
    for (const auto& row : table)
        list.append(QString::fromStdString(std::string(std::invoke(text, row))));
    return list;
}

// What the mixer's ports are found by, whatever the system puts around it.
const QString audioName = QStringLiteral("Audio Control");
const QString controlName = QStringLiteral("Control Surface");

// A name that was found is looked for only while its port is there. Later only the told one finds
// the mixer whatever stands around it: "2- ..." would never find the port without the number.
QString nameToFind(const QString& remembered, const QString& told, const QStringList& present)
{
    return present.contains(remembered) ? remembered : told;
}

} // namespace

SysexManager::SysexManager(QObject* parent, std::unique_ptr<MidiPorts> ports)
    : QObject(parent)
    , midiManager(new MidiManager(this, std::move(ports)))
    , firmwareManager(new FirmwareUpdateManager(this))
    , fwQueryTimer(new QTimer(this))
    , inputDeviceName(audioName)
    , outputDeviceName(audioName)
    , controlOutputDeviceName(controlName)
    , controlInputDeviceName(controlName)
    , portNamePrefix(QStringLiteral("J-Sum "))
    , portNameSuffix(QStringLiteral(" In"))
    , channelIds(toStringList(sysex::channelIdTable))
    , parameterIds(toStringList(sysex::parameterIdTable))
    , modeIds(toStringList(sysex::modeTable, &sysex::ModeRow::name))
{
    setObjectName(QStringLiteral("sysexManager"));
    connectMidiManager();
    connectFirmwareManager();

    connect(fwQueryTimer, SIGNAL(timeout()), this, SLOT(slotSendFwQuery()));
    connect(this, SIGNAL(signalStartFwQueryTimer(int)), fwQueryTimer, SLOT(start(int)));
    connect(this, SIGNAL(signalStopFwQueryTimer()), fwQueryTimer, SLOT(stop()));
}

void SysexManager::connectMidiManager()
{
    connect(midiManager, SIGNAL(signalUpdateInputDeviceName(QString, QString)), this,
            SLOT(slotUpdateInputDeviceName(QString, QString)));
    connect(midiManager, SIGNAL(signalUpdateOutputDeviceName(QString, QString)), this,
            SLOT(slotUpdateOutputDeviceName(QString, QString)));
    slotConnectInputsandOutputs();
    connect(midiManager, SIGNAL(signal_MidiPortsUnchanged()), this, SLOT(slotOpenMissingInput()));
    connect(midiManager, SIGNAL(signal_ReceiveMidiInput(QString, MidiMessage)), this,
            SLOT(slotReceiveMidiInput(QString, MidiMessage)));
    connect(midiManager, SIGNAL(signalConnectHuiStuff()), this, SLOT(slotConnectHuiStuff()));
    connect(midiManager, SIGNAL(signalDisconnectHuiStuff()), this, SLOT(slotDisconnectHuiStuff()));
    connect(midiManager, SIGNAL(signalHUIPortButton(bool)), this,
            SIGNAL(signalHUIPortButton(bool)));
    connect(this, SIGNAL(signalFindAudioDevicesAfterConnection()), midiManager,
            SLOT(slotFindAudioDeviceNameOnConnect()));
}

void SysexManager::connectFirmwareManager()
{
    connect(firmwareManager, SIGNAL(signalConsoleText(QString)), this,
            SIGNAL(signalConsoleText(QString)));
    connect(firmwareManager, SIGNAL(signalSetFwProgressBar(int)), this,
            SIGNAL(signalSetFwProgressBar(int)));
    connect(firmwareManager, SIGNAL(signalOpenFwOOD()), this, SIGNAL(signalOpenFwOOD()));
    connect(firmwareManager, SIGNAL(signalOpenRestartDialog()), this,
            SIGNAL(signalOpenRestartDialog()));
    connect(firmwareManager, SIGNAL(signalCloseRestartDialog()), this,
            SIGNAL(signalCloseRestartDialog()));
    connect(firmwareManager, SIGNAL(signalFwError(QString)), this, SIGNAL(signalFwError(QString)));
    connect(firmwareManager, SIGNAL(signalFwCheckStarted()), this, SIGNAL(signalFwCheckStarted()));
    connect(firmwareManager, SIGNAL(signalUpdateComplete()), this, SLOT(slotFwUpdateSuccessful()));
    connect(firmwareManager, SIGNAL(signalFwMatch()), this, SLOT(slotSendFwQuery()));
    connect(this, SIGNAL(signalUpdateFirmware()), firmwareManager, SLOT(slot_UpgradeFWStarted()));
}

void SysexManager::slotConnectInputsandOutputs()
{
    connect(midiManager, SIGNAL(signal_MidiInputsChanged()), this, SLOT(slotMidiInputsChanged()));
    connect(midiManager, SIGNAL(signal_MidiOutputsChanged()), this, SLOT(slotMidiOutputsChanged()));
}

void SysexManager::slotClosePorts()
{
    midiManager->closeMidiInput(inputDeviceName);
    midiManager->closeMidiOutput(outputDeviceName);
}

void SysexManager::slotUpdateInputDeviceName(QString newInputDeviceName,
                                             QString newControlInputDeviceName)
{
    inputDeviceName = newInputDeviceName;
    controlInputDeviceName = newControlInputDeviceName;
}

void SysexManager::slotUpdateOutputDeviceName(QString newOutputDeviceName,
                                              QString newControlOutputDeviceName)
{
    outputDeviceName = newOutputDeviceName;
    controlOutputDeviceName = newControlOutputDeviceName;
}

void SysexManager::findNames(const QStringList& inputs, const QStringList& outputs)
{
    midiManager->renameDevices({nameToFind(inputDeviceName, audioName, inputs),
                                nameToFind(outputDeviceName, audioName, outputs),
                                nameToFind(controlInputDeviceName, controlName, inputs),
                                nameToFind(controlOutputDeviceName, controlName, outputs)},
                               inputs, outputs);
}

void SysexManager::slotMidiInputsChanged() { followPorts(); }

void SysexManager::slotMidiOutputsChanged() { followPorts(); }

void SysexManager::followPorts()
{
    const auto lastInputs = std::exchange(knownInputDevices, midiManager->inputsAtLastPoll());
    const auto lastOutputs = std::exchange(knownOutputDevices, midiManager->outputsAtLastPoll());
    const bool inputsChanged = lastInputs != knownInputDevices;
    const bool outputsChanged = lastOutputs != knownOutputDevices;
    // The second signal of a poll that changed both.
    if (!inputsChanged && !outputsChanged)
        return;

    const QString lastInput = inputDeviceName;
    const QString lastOutput = outputDeviceName;
    const QStringList inputs = namesOf(knownInputDevices);
    const QStringList outputs = namesOf(knownOutputDevices);
    findNames(inputs, outputs);
    const bool outputIsThere = outputs.contains(outputDeviceName);
    // When only its output has gone, the line that tells so still names the mixer.
    if (!inputsChanged && !outputIsThere)
        outputDeviceName = lastOutput;

    if (inputsChanged)
        qDebug() << "____New Input Devices:" << inputs;
    slotOpenMissingInput();
    if (lastInput != inputDeviceName)
        midiManager->closeMidiInput(lastInput);

    const bool isRenamed = lastOutput != outputDeviceName;
    if (outputsChanged)
        qDebug() << "____New Output Devices:" << outputs;
    if (outputsChanged || (isRenamed && outputIsThere))
        followOutput(lastOutput, !isRenamed && namesOf(lastOutputs).contains(lastOutput));
}

void SysexManager::slotOpenMissingInput()
{
    const MidiPortInfo port = portNamed(knownInputDevices, inputDeviceName);
    if (!port.identifier.isEmpty() && !midiManager->isInputOpen(inputDeviceName))
        midiManager->openMidiInput(port);
}

void SysexManager::followOutput(const QString& lastName, bool wasPresent)
{
    const MidiPortInfo port = portNamed(knownOutputDevices, outputDeviceName);
    const bool isPresent = !port.identifier.isEmpty();
    // The open port has gone and another is in its place, of another mixer or after a restart: told
    // as an unplug, then as a plug.
    const bool isReplaced = connected && isPresent && !midiManager->isOutputOpen(outputDeviceName);
    if (!isPresent || isReplaced) {
        connected = false;
        midiManager->closeMidiOutput(lastName);
    }
    if (isReplaced) {
        tellConnection();
        wasPresent = false;
    }
    if (isPresent && !wasPresent)
        connected = midiManager->openMidiOutput(port);
    if (!wasPresent || !connected)
        tellConnection();
}

void SysexManager::tellConnection()
{
    if (!connected) {
        emit signalStopFwQueryTimer();
        firmwareManager->slotAbortCheck();
    }
    qDebug() << "wasn't already connected on port change or isn't connected -- current connection "
                "state:"
             << outputDeviceName << connected;

    QString text = QStringLiteral("not connected");
    if (connected) {
        if (demoMode)
            emit signalExitDemoMode();
        if (!didAttemptFwUpdate) {
            qDebug() << "start fw update check...";
            firmwareManager->slot_CheckFWStarted();
        }
        text = outputDeviceName;
    }
    emit signalConnected(connected);
    text.remove(portNamePrefix);
    text.remove(portNameSuffix);
    emit signalPortConnectionText(text);
}

void SysexManager::slotDidAttemptFwUpdate() { didAttemptFwUpdate = true; }

void SysexManager::slotFwUpdateSuccessful()
{
    didAttemptFwUpdate = false;
    firmwareManager->updateSucceeded = true;
}

void SysexManager::slotSetFirmwareVersions(QString foundV, QString expectedV)
{
    foundFirmwareVersion = foundV;
    expectedFirmwareVersion = expectedV;
    firmwareManager->foundVersion = foundV;
    firmwareManager->expectedVersion = expectedV;
}

void SysexManager::slotSetDemoModeEnabled(bool enabled)
{
    demoMode = enabled;
    midiManager->setDemoMode(enabled);
}
