#include "huiinputhandler.h"

#include "sysexframe.h"

#include <array>
#include <utility>

namespace
{

constexpr int faders = 8;
constexpr int lightZone = 0x0C;
constexpr int lightPort = 0x2C;
constexpr int lowByteRow = 2; // of controllers, sixteen in a row

// A port of the host's lights, and what the mixer calls it.
constexpr std::array<std::pair<int, int>, 3> lights{{{2, 0x11}, {3, 0x12}, {7, 0x13}}};

constexpr int bankLeftNote = 14;
constexpr int bankRightNote = 15;
constexpr int lit = 127;

constexpr int highNibble(int byte) { return byte >> 4; }
constexpr int lowNibble(int byte) { return byte & 0x0F; }

} // namespace

HuiInputHandler::HuiInputHandler(const QString& sysexDevice, const QString& controlDevice,
                                 QObject* parent)
    : QObject(parent)
    , sysexDeviceName(sysexDevice)
    , controlDeviceName(controlDevice)
{
}

void HuiInputHandler::slotHandleHuiInput(int ccChan, int ccNum, int ccVal)
{
    if (ccChan >= 1)
        return;
    // What does not fit ends its pair and is not looked at for itself.
    switch (std::exchange(huiState, Idle)) {
    case FaderLowByte:
        endFader(ccChan, ccNum, ccVal);
        break;
    case PortSelect:
        endLight(ccNum, ccVal);
        break;
    default:
        begin(ccNum, ccVal);
        break;
    }
}

void HuiInputHandler::begin(int ccNum, int ccVal)
{
    if (highNibble(ccNum) != 0)
        return;
    if (lowNibble(ccNum) < faders) {
        huiZone = lowNibble(ccNum);
        faderHighByte = ccVal;
        huiState = FaderLowByte;
    } else if (ccNum == lightZone) {
        // A zone above 15 counts by its low nibble.
        huiZone = lowNibble(ccVal);
        huiState = PortSelect;
    }
}

void HuiInputHandler::endFader(int ccChan, int ccNum, int ccVal)
{
    if (highNibble(ccNum) != lowByteRow || lowNibble(ccNum) != huiZone)
        return;
    faderLowByte = ccVal;
    emit signalSendHuiCCMessage(controlDeviceName, ccChan, huiZone + 1, faderHighByte);
}

void HuiInputHandler::endLight(int ccNum, int ccVal)
{
    if (ccNum != lightPort)
        return;
    for (const auto& [port, subtype] : lights) {
        // Zones 8 to 15 go on as they are; the mixer ignores them.
        if (port == lowNibble(ccVal))
            sendHuiStatus(subtype, huiZone, highNibble(ccVal) != 0);
    }
}

void HuiInputHandler::sendHuiStatus(int subtype, int zone, bool on)
{
    auto frame = sysex::buildFrame(
        sysex::Type::Hui,
        {static_cast<uchar>(subtype), static_cast<uchar>(zone), 0, 0, 0, static_cast<uchar>(on)});
    emit signalSendHuiSysex(sysexDeviceName, frame.data(), static_cast<int>(frame.size()));
}

void HuiInputHandler::slotSendBankLeftRightLED()
{
    emit signalSendHuiNoteOnMessage(controlDeviceName, 0, bankLeftNote, lit);
    emit signalSendHuiNoteOnMessage(controlDeviceName, 0, bankRightNote, lit);
}
