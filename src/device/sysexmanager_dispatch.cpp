// What SysexManager does with received messages.
#include "sysexmanager.h"

#include "huiports.h"
#include "modes.h"

#include <QDebug>

#include <algorithm>

namespace
{

// Letting go of one of these darkens the mixer's bank indicators.
bool isBankNote(int note) { return note == 14 || note == 15; }

} // namespace

void SysexManager::slotReceiveMidiInput(QString sourceName, MidiMessage message)
{
    if (sourceName == inputDeviceName && message.isSysEx())
        receiveSysex(message);
    else if (sourceName.contains(controlInputDeviceName))
        receiveFromControlSurface(message);
    else if (sourceName.contains(huiports::input))
        receiveFromHuiHost(message);
    else
        qDebug() << "unexpected message received" << sourceName;
}

void SysexManager::receiveSysex(const MidiMessage& message)
{
    const uchar* bytes = message.getSysExData();
    const std::span<const uchar> data(
        bytes, static_cast<std::size_t>(std::max(0, message.getSysExDataSize())));
    // As long as the row that classify has found says.
    const auto payload = data.subspan(std::min(sysex::at::payload, data.size()));

    switch (sysex::classify(data)) {
    case sysex::Incoming::FirmwareVersion:
        receiveFirmwareVersion(payload.first<sysex::payloadSize>());
        return;
    case sysex::Incoming::SlotTransfer:
        if (payload[0] > sysex::lastWireSlot)
            break;
        receiveSlotTransfer(payload.first<sysex::transferSize>());
        return;
    case sysex::Incoming::PresetParameter:
        receivePresetParameter(payload.first<sysex::payloadSize>());
        return;
    case sysex::Incoming::GlobalParameter:
        receiveGlobalParameter(payload.first<sysex::payloadSize>());
        return;
    case sysex::Incoming::GoToSyncPreset:
        emit signalReceiveGoToSyncPreset(0);
        return;
    case sysex::Incoming::ModeChange:
        slotReceiveModeChange(payload[0]);
        return;
    case sysex::Incoming::ChannelSelect:
        slotReceiveChannelSelect(payload[0]);
        return;
    case sysex::Incoming::Hui:
        emit signalReceiveSysexForHUI(const_cast<uchar*>(bytes));
        return;
    case sysex::Incoming::Unknown:
        break;
    }
    qDebug() << "sysex type code" << sysex::typeOf(data) << "size" << data.size();
}

void SysexManager::receiveFirmwareVersion(sysex::PayloadView payload)
{
    // A reply that was still queued when the mixer was unplugged.
    if (!connected)
        return;
    emit signalStopFwQueryTimer();
    const QString version = QStringLiteral("%1.%2.%3")
                                .arg(payload[3], 0, 16)
                                .arg(payload[4], 0, 16)
                                .arg(payload[5], 0, 16);
    qDebug() << "received fw version from control board" << version;
    emit signalConnected(connected);
    emit signalInitFullPowerMode();
}

void SysexManager::receiveSlotTransfer(std::span<const uchar, sysex::transferSize> payload)
{
    const int slot = sysex::slotFromWire(payload[0]);
    const bool finished = payload[1] != 0;
    const bool save = payload[2] != 0;

    if (!finished) {
        qDebug() << "receiving slot number" << slot << "from the board";
    } else if (slot == 0) {
        emit signalLiveMemoryFinishedSyncing();
        qDebug() << "finished receiving live memory preset";
    } else {
        emit signalReceiveSinglePresetComplete(slot, save);
        qDebug() << "finished receiving slot" << slot
                 << (save ? "it should now save"
                          : "the preset should not save but read as dirty instead");
    }
}

void SysexManager::slotReceiveModeChange(int dataValue)
{
    const auto page = sysex::pageOf(dataValue);
    if (!page)
        return;
    const bool isBus = sysex::isBus(dataValue);
    const int view = static_cast<int>(*page);
    currentMode = view;
    if (isBus)
        currentChannel = dataValue;
    emit signalViewChange(view);
    if (isBus)
        emit signalChannelSelect(dataValue);
}

void SysexManager::slotReceiveChannelSelect(int dataValue)
{
    currentChannel = dataValue;
    emit signalChannelSelect(dataValue);
}

void SysexManager::receiveFromControlSurface(const MidiMessage& message)
{
    const int channel = message.getChannel() - 1;
    if (message.isController()) {
        emit signalReceiveCCsForHUI(channel, message.getControllerNumber() - 1,
                                    message.getControllerValue());
    } else if (message.isNoteOnOrOff()) {
        const int note = message.getNoteNumber();
        emit signalReceiveNotesForHUI(channel, note - 1, message.getVelocity());
        // A note-on of velocity 0 is a note-off too.
        if (message.isNoteOff() && channel == 0 && isBankNote(note))
            emit signalReceiveBankPressOffIndicators();
    }
}

void SysexManager::receiveFromHuiHost(const MidiMessage& message)
{
    if (message.isController()) {
        // The controller as it comes, unlike the mixer's.
        emit signalReceiveCCsForHuiLeds(message.getChannel() - 1, message.getControllerNumber(),
                                        message.getControllerValue());
    }
}
