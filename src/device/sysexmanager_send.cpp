// SysexManager's status messages to the mixer.
#include "sysexmanager.h"

#include "firmwareupdatemanager.h"
#include "modes.h"

#include <QDebug>

namespace
{

// Calls of slotSendFwQuery in the life of the process.
int fwQueryCalls = 0;

constexpr int dspUpdating = 0;
constexpr int stereoUpdating = 1;
constexpr int lastSlot = 12;

sysex::Payload updatingStatus(bool enable, int setting)
{
    return {static_cast<uchar>(enable), 0, 0, static_cast<uchar>(setting), 0, 0};
}

sysex::Payload lastByte(int value) { return {0, 0, 0, 0, 0, static_cast<uchar>(value)}; }

bool isSlot(int slotNum)
{
    if (slotNum >= 0 && slotNum <= lastSlot)
        return true;
    qDebug() << "no such slot" << slotNum;
    return false;
}

} // namespace

void SysexManager::sendFrame(sysex::Type type, const sysex::Payload& payload)
{
    sysex::Frame frame = sysex::buildFrame(type, payload);
    midiManager->outputSysEx(outputDeviceName, frame.data(), static_cast<int>(frame.size()));
}

void SysexManager::slotSendFwQuery()
{
    ++fwQueryCalls;
    if (!connected) {
        qDebug() << "fw version query not sent - no connection";
        return;
    }
    qDebug() << "fw version query sent" << outputDeviceName;
    // By design the first call of the process only starts the timer.
    if (fwQueryCalls > 1)
        sendFrame(sysex::Type::FirmwareVersion);
    emit signalStartFwQueryTimer(fwQueryIntervalMs);
}

void SysexManager::slotSendRestartMessage()
{
    if (!connected) {
        qDebug() << "restart message not sent - no connection";
        return;
    }
    sendFrame(sysex::Type::Restart);
    firmwareManager->slotSetErrorOccurredToFalse();
}

void SysexManager::slotSendSysexCommEndMessage()
{
    if (connected)
        sendFrame(sysex::Type::CommEnd);
}

void SysexManager::slotSendSaveToSlot(int setlistSlotNumber)
{
    if (!connected) {
        qDebug() << "did not send save message - not connected";
        return;
    }
    if (isSlot(setlistSlotNumber))
        sendFrame(sysex::Type::SaveToSlot, {sysex::slotToWire(setlistSlotNumber)});
}

void SysexManager::slotSendDSPUpdatingStatus(bool enableDSPUpdating)
{
    if (!connected)
        return;
    qDebug() << "sending message to request DSP updating turn off(false) or on(true)"
             << enableDSPUpdating;
    sendFrame(sysex::Type::UpdatingStatus, updatingStatus(enableDSPUpdating, dspUpdating));
}

void SysexManager::slotSendStereoUpdatingStatus(bool enableStereoUpdating)
{
    if (connected)
        sendFrame(sysex::Type::UpdatingStatus,
                  updatingStatus(enableStereoUpdating, stereoUpdating));
}

void SysexManager::slotSendSinglePresetRequest(int slotNum, bool saveAfterReceive)
{
    if (!connected) {
        qDebug() << "single preset request not sent - no connection";
        if (demoMode) {
            // No answer will come that closes them.
            emit signalHideDisableWidget();
            emit signalHideProgressWidget();
        }
        return;
    }
    if (isSlot(slotNum)) {
        sendFrame(sysex::Type::SlotTransfer,
                  {sysex::slotToWire(slotNum), static_cast<uchar>(saveAfterReceive)});
    }
}

void SysexManager::slotSendModeChange(int view)
{
    if (!connected) {
        qDebug() << "mode change not sent - no connection";
        return;
    }
    currentMode = view;
    sendFrame(sysex::Type::ModeChange, lastByte(view));
}

void SysexManager::slotSendChannelSelect(int channelNum)
{
    if (!connected) {
        qDebug() << "channel select not sent - no connection";
        return;
    }
    const bool leavesPhones =
        currentChannel == sysex::phonesChannel && channelNum < sysex::firstAuxChannel;
    currentChannel = channelNum;
    if (leavesPhones)
        slotSendModeChange(0);
    sendChannelSelectFrame(channelNum);
}

void SysexManager::sendChannelSelectFrame(int channelNum)
{
    sendFrame(sysex::isBus(channelNum) ? sysex::Type::ModeChange : sysex::Type::ChannelSelect,
              lastByte(channelNum));
}

void SysexManager::slotSaveGlobalParamsToFlash()
{
    if (!connected) {
        qDebug() << "save globals to flash message not sent - no connection";
        return;
    }
    sendFrame(sysex::Type::SaveGlobalsToFlash);
}

void SysexManager::slotFindModeChangeFromParameterName(QString jsonName)
{
    const int mode = sysex::modeForParameter(jsonName, currentMode);
    if (mode == currentMode)
        return;

    const bool mainsFromPan = currentMode == static_cast<int>(sysex::Mode::Pan)
        && jsonName.contains(QLatin1String("channelstrip_mains_"));
    slotSendModeChange(mode);
    if (mainsFromPan) {
        const bool leavesPhones = currentChannel == sysex::phonesChannel;
        currentChannel = sysex::mainsChannel;
        if (leavesPhones)
            slotSendModeChange(0);
        slotSendChannelSelect(sysex::mainsChannel);
    }
}
