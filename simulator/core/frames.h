#pragma once

#include <QByteArray>
#include <QString>

#include <initializer_list>

// The mixer's system-exclusive messages as bytes: building them and looking into them. Free
// functions, no state. Positions count from the 0xF0 at position 0.

enum class MixerPort { AudioControl, ControlSurface };

QString portName(MixerPort port);

namespace frames
{

enum Type : int {
    Version = 0x00,
    PresetParameter = 0x02,
    GlobalParameter = 0x03,
    Mode = 0x05,
    Channel = 0x06,
    SaveToSlot = 0x09,
    SlotTransfer = 0x0A,
    SaveGlobals = 0x0B,
    Updating = 0x0C,
    GoToSync = 0x0D,
    Restart = 0x0E,
    Hui = 0x10,
    CommEnd = 0x7F,
};

// Every message from the host has this length.
constexpr int hostLength = 13;
// The number that stands for the live memory where slots are numbered.
constexpr int liveMemorySlot = 12;
constexpr int slotCount = 12;

// 0xF0, the mixer's identifiers, the type, the payload, 0xF7. Only the low eight bits of each
// number count.
QByteArray build(int type, std::initializer_list<int> payload);

// The byte at a position, 0 to 255; -1 beyond the end.
int byteAt(const QByteArray& message, int position);

// Whether the message is a whole SysEx that carries the mixer's identifiers and a type.
bool isMixerMessage(const QByteArray& message);

// "mode 0 (faderframe)" and the like need names; an empty text where the number names no mode.
QString modeName(int mode);
// "ch1" to "phones" for 1 to 13; empty otherwise.
QString channelName(int channel);
// "slot A" to "slot L", "the live memory", or "slot 77" for what is none.
QString slotName(int slot);

} // namespace frames
