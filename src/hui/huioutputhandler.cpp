#include "huioutputhandler.h"

#include "huiports.h"
#include "sysexframe.h"

#include <QDebug>

#include <array>
#include <utility>

namespace
{

constexpr int channels = 8;
constexpr int switchZone = 0x0F;
constexpr int switchPort = 0x2F;
constexpr int pressedFlag = 0x40;
constexpr int lowByteFlag = 0x20;

// Ports of a channel's zone.
constexpr int touchPort = 0;
constexpr int mutePort = 2;
constexpr int soloPort = 3;
constexpr int recordPort = 7;

// The mixer's buttons beside the eight selects, by note less one.
struct ButtonRow {
    int noteNum;
    int zone;
    int port;
};
constexpr std::array<ButtonRow, 6> buttons{{
    {13, 10, 1}, // bank left
    {14, 10, 3}, // bank right
    {25, 14, 5},
    {26, 14, 3},
    {27, 14, 1},
    {28, 14, 4},
}};

enum Subtype { Touch = 0x02, Status = 0x10, Mute = 0x11, Solo = 0x12 };

} // namespace

HuiOutputHandler::HuiOutputHandler(QObject* parent)
    : QObject(parent)
    , mutePressed(channels, 0)
    , soloPressed(channels, 0)
{
}

void HuiOutputHandler::slotReceiveCCsForHUI(int bank, int faderChan, int faderLoc)
{
    qDebug() << "received ccs for hui" << bank << faderChan << faderLoc;
    if (bank > 0)
        return;
    // All controllers are faders here: those beyond the eighth go on by the same rule, and the one
    // below the first, -1, leaves as 0x7F twice.
    send(faderChan, faderLoc);
    send(faderChan | lowByteFlag, 0);
}

void HuiOutputHandler::slotReceiveNotesForHUI(int bank, int noteNum, int noteVel)
{
    if (bank > 0)
        return;
    // Also of a note-off, whose velocity is passed as it came.
    const bool pressed = noteVel != 0;
    if (noteNum >= 0 && noteNum < channels)
        sendSwitch(noteNum, recordPort, pressed);
    for (const ButtonRow& row : buttons) {
        if (row.noteNum == noteNum)
            sendSwitch(row.zone, row.port, pressed);
    }
}

void HuiOutputHandler::slotReceiveSysexForHUI(uchar* syxData)
{
    const uchar* payload = syxData + sysex::at::payload;
    const int channel = payload[1];
    const int value = payload[5];
    if (channel >= channels || payload[2] != 0 || value > 1)
        return;
    switch (payload[0]) {
    case Touch:
        touchFader(channel, value != 0);
        break;
    case Status:
        huiStatusValue = value;
        break;
    case Mute: // a press, whatever the value
        press(mutePressed, channel, mutePort);
        break;
    case Solo:
        press(soloPressed, channel, soloPort);
        break;
    default:
        break;
    }
}

void HuiOutputHandler::touchFader(int channel, bool touched)
{
    sendSwitch(channel, touchPort, touched);
    if (touched)
        return;
    // The mixer tells presses alone; they end with the touch.
    releaseDue(mutePressed, channel, mutePort);
    releaseDue(soloPressed, channel, soloPort);
}

void HuiOutputHandler::press(QList<int>& pressed, int channel, int port)
{
    pressed[channel] = 1;
    sendSwitch(channel, port, true);
}

void HuiOutputHandler::releaseDue(QList<int>& pressed, int channel, int port)
{
    if (std::exchange(pressed[channel], 0))
        sendSwitch(channel, port, false);
}

void HuiOutputHandler::sendSwitch(int zone, int port, bool pressed)
{
    send(switchZone, zone);
    send(switchPort, port + (pressed ? pressedFlag : 0));
}

void HuiOutputHandler::send(int ccNum, int ccVal)
{
    emit signalOutputHuiCCMessage(huiports::output, 0, ccNum, ccVal);
}
