#pragma once

#include "codecresult.h"
#include "midimanager.h"
#include "sysexframe.h"

#include <QObject>
#include <QStringList>
#include <QTimer>

#include <memory>

class FirmwareUpdateManager;
class HuiInputHandler;
class HuiOutputHandler;
struct Wire;

// The editor's single gateway to the mixer: follows its ports, decides whether the editor counts as
// connected, runs the firmware query, dispatches every received message and sends the status
// messages. ViewManager owns it. Every sending slot tests the connection itself and does nothing
// beyond a debug line without one.
class SysexManager : public QObject
{
    Q_OBJECT

public:
    // ports: the system's MIDI; the real one when null.
    explicit SysexManager(QObject* parent = nullptr, std::unique_ptr<MidiPorts> ports = nullptr);

    static constexpr int fwQueryIntervalMs = 3000;

    bool isConnected() const { return connected; }
    // While set, each parameter sent may first move the mixer's mode to where it can be seen.
    void setViewChangingEnabled(bool enabled) { viewChangingEnabled = enabled; }
    bool isViewChangingEnabled() const { return viewChangingEnabled; }
    FirmwareUpdateManager* firmware() const { return firmwareManager; }
    MidiManager* midi() const { return midiManager; }

public slots:
    void slotSendFwQuery();
    void slotSendRestartMessage();
    void slotSendSysexCommEndMessage();
    // setlistSlotNumber: 0 the live memory, 1 to 12 the slots A to L. Others are dropped with a
    // debug line.
    void slotSendSaveToSlot(int setlistSlotNumber);
    void slotSendDSPUpdatingStatus(bool enableDSPUpdating);
    void slotSendStereoUpdatingStatus(bool enableStereoUpdating);
    // slotNum as above.
    void slotSendSinglePresetRequest(int slotNum, bool saveAfterReceive);
    // view: a mode identifier.
    void slotSendModeChange(int view);
    // channelNum: a channel identifier; 10 to 13 are modes to the mixer.
    void slotSendChannelSelect(int channelNum);
    void slotSaveGlobalParamsToFlash();

    // Set one parameter on the mixer, by its name; any value of 32 bits. A name that has no wire
    // form is dropped with a debug line.
    void slotSendPresetParameters(QString parameterName, int dataValue);
    void slotSendGlobalParameters(QString parameterName, int dataValue);
    void slotSendMidiParameters(QString parameterName, int dataValue);
    // syxData: the eleven bytes between 0xF0 and 0xF7. Bad identifiers are dropped with a debug
    // line.
    void slotReceivePresetParameters(uchar* syxData);
    void slotReceiveGlobalParameters(uchar* syxData);
    void slotReceiveMidiParameters(int ctrlType, int ctrlTypeNum, int bankNum, int msgType,
                                   int value);

    void slotUpdateInputDeviceName(QString newInputDeviceName, QString newControlInputDeviceName);
    void slotUpdateOutputDeviceName(QString newOutputDeviceName,
                                    QString newControlOutputDeviceName);
    void slotMidiOutputsChanged();
    void slotMidiInputsChanged();
    // Opens the mixer's input if it is there and not open: one that was refused is tried again.
    void slotOpenMissingInput();
    void slotClosePorts();
    void slotConnectInputsandOutputs();
    void slotReceiveMidiInput(QString sourceName, MidiMessage message);

    void slotDidAttemptFwUpdate();
    void slotFwUpdateSuccessful();
    void slotSetFirmwareVersions(QString foundV, QString expectedV);
    void slotSetDemoModeEnabled(bool enabled);

    // dataValue: a mode identifier, as the mixer sends it.
    void slotReceiveModeChange(int dataValue);
    void slotReceiveChannelSelect(int dataValue);
    // Moves the mixer to the mode in which the parameter can be seen.
    void slotFindModeChangeFromParameterName(QString jsonName);

    // The HUI bridge. It needs no connected mixer, but stays off in demo mode. What is so already
    // stays as it is.
    void slotEnableHuiPort(bool enabled);
    // Make and wire the bridge's handlers, and undo it; MidiManager calls for them around its
    // ports.
    void slotConnectHuiStuff();
    void slotDisconnectHuiStuff();

signals:
    void signalConnected(bool con);
    void signalPortConnectionText(QString portConnectionText);
    void signalInitFullPowerMode();
    // Nothing raises it: no message tells the mixer's power state.
    void signalInitLowPowerMode();
    void signalExitDemoMode();
    void signalViewChange(int view);
    void signalChannelSelect(int channelNum);
    void signalLiveMemoryFinishedSyncing();
    void signalReceiveSinglePresetComplete(int slotNum, bool save);
    // Always 0.
    void signalReceiveGoToSyncPreset(int presetLibraryNumber);
    void signalHideDisableWidget();
    void signalHideProgressWidget();

    // A parameter changed on the mixer, or a slot is being sent. Whoever moves a control for it
    // must not send it back. A MIDI channel comes one lower than its name's value.
    void signalReceiveMainwindowPresetParams(QString jsonName, int value);
    void signalReceiveChannelStripParams(QString jsonName, int value);
    void signalReceiveReverbParams(QString jsonName, int value);
    void signalReceiveSurroundParams(QString jsonName, int value);
    void signalReceiveMainwindowGlobalParams(QString jsonName, int value);
    void signalReceiveUSBParams(QString jsonName, int value);
    void signalReceiveMidiParams(QString jsonName, int value);

    // From the mixer's control surface and the HUI host; channels, and on the mixer's side also
    // controllers and notes, count from 0.
    void signalReceiveCCsForHUI(int channel, int controller, int value);
    void signalReceiveNotesForHUI(int channel, int note, int velocity);
    void signalReceiveBankPressOffIndicators();
    void signalReceiveCCsForHuiLeds(int channel, int controller, int value);
    // The data after 0xF0; valid only during the call.
    void signalReceiveSysexForHUI(uchar* syxData);
    void signalHUIPortButton(bool checked);

    void signalConsoleText(QString text);
    void signalSetFwProgressBar(int value);
    void signalOpenFwOOD();
    void signalOpenRestartDialog();
    void signalCloseRestartDialog();
    void signalFwError(QString errorMsg);
    void signalFwCheckStarted();
    void signalUpdateFirmware();
    void signalFindAudioDevicesAfterConnection();

    void signalStartFwQueryTimer(int intervalMs);
    void signalStopFwQueryTimer();

private:
    void connectMidiManager();
    void connectFirmwareManager();
    void followPorts();
    void findNames(const QStringList& inputs, const QStringList& outputs);
    void followOutput(const QString& lastName, bool wasPresent);
    void tellConnection();
    void sendFrame(sysex::Type type, const sysex::Payload& payload = {});
    void sendChannelSelectFrame(int channelNum);
    void sendEncoded(sysex::Type type, const sysex::Encoded& message);
    void emitGlobal(const sysex::Decoded& parameter);

    void receiveSysex(const MidiMessage& message);
    void receivePresetParameter(sysex::PayloadView payload);
    void receiveGlobalParameter(sysex::PayloadView payload);
    void receiveFirmwareVersion(sysex::PayloadView payload);
    void receiveSlotTransfer(std::span<const uchar, sysex::transferSize> payload);
    void receiveFromControlSurface(const MidiMessage& message);
    void receiveFromHuiHost(const MidiMessage& message);
    QList<Wire> huiOutputWires();
    QList<Wire> huiInputWires();

    bool connected = false;
    bool viewChangingEnabled = false;
    bool demoMode = false;
    QString foundFirmwareVersion;
    QString expectedFirmwareVersion;
    MidiManager* midiManager;
    FirmwareUpdateManager* firmwareManager;
    // Null while the bridge is off.
    HuiOutputHandler* huiOutputHandler = nullptr;
    HuiInputHandler* huiInputHandler = nullptr;
    QTimer* fwQueryTimer;
    QString inputDeviceName;
    QString outputDeviceName;
    QString controlOutputDeviceName;
    QString controlInputDeviceName;
    // What followPorts has seen to, with their identifiers.
    QList<MidiPortInfo> knownOutputDevices;
    QList<MidiPortInfo> knownInputDevices;
    QString portNamePrefix;
    QString portNameSuffix;
    // The wire's tables under the names they are known by; the codec reads the tables themselves.
    QStringList channelIds;
    QStringList parameterIds;
    int currentChannel = 0;
    // A mode identifier after a send, a view number after a receive; the two are compared as they
    // stand.
    int currentMode = 0;
    QStringList modeIds; // as channelIds
    bool didAttemptFwUpdate = false;
};
