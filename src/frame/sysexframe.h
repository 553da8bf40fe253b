#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>

// The frame of the mixer's system-exclusive messages: pure functions on buffers, no ports, no
// state. "Data" is a message without its 0xF0 and 0xF7, as MIDI libraries hand it over.
namespace sysex
{

inline constexpr std::size_t frameSize = 13;
inline constexpr std::size_t payloadSize = 6;
using Frame = std::array<std::uint8_t, frameSize>;
using Payload = std::array<std::uint8_t, payloadSize>;
using PayloadView = std::span<const std::uint8_t, payloadSize>;
// What a slot transfer has in place of a payload: slot, whether it is finished, whether to save.
inline constexpr std::size_t transferSize = 3;

enum class Type : std::uint8_t {
    FirmwareVersion = 0x00,
    PresetParameter = 0x02,
    GlobalParameter = 0x03,
    ModeChange = 0x05,
    ChannelSelect = 0x06,
    SaveToSlot = 0x09,
    SlotTransfer = 0x0A,
    SaveGlobalsToFlash = 0x0B,
    UpdatingStatus = 0x0C,
    GoToSyncPreset = 0x0D,
    Restart = 0x0E,
    Hui = 0x10,
    CommEnd = 0x7F,
};

// Where things stand in the data of a received message.
namespace at
{
inline constexpr std::size_t type = 4;
inline constexpr std::size_t payload = 5;
} // namespace at

// Channel numbers with a role of their own in the protocol.
inline constexpr int mainsChannel = 9;
inline constexpr int firstAuxChannel = 10;
inline constexpr int phonesChannel = 13;

// A whole 13-byte message, 0xF0 and 0xF7 included. The payload is taken as it stands, also the byte
// above 0x7F that a negative value makes. It gets as far as the system's MIDI layer, which takes it
// for a status byte: the message breaks there, and 0xFF becomes a reset.
Frame buildFrame(Type type, const Payload& payload = {});

// A parameter value as it travels: its lower seven bits, and the rest, sign kept, cut to eight
// bits.
struct ValueBytes {
    std::uint8_t high;
    std::uint8_t low;
};
ValueBytes encodeValue(int value);
// Always unsigned: no sign is restored.
int decodeValue(std::uint8_t high, std::uint8_t low);

// Setlist slots: the editor counts the live memory as 0 and the slots A to L as 1 to 12; on the
// wire A to L are 0 to 11 and the live memory is 12. Both expect a number from 0 to 12.
std::uint8_t slotToWire(int slot);
int slotFromWire(std::uint8_t wire);
inline constexpr std::uint8_t lastWireSlot = 12;

// What a received message is. Only size and type byte decide; manufacturer and device are not
// looked at.
enum class Incoming {
    FirmwareVersion,
    SlotTransfer,
    PresetParameter,
    GlobalParameter,
    GoToSyncPreset,
    ModeChange,
    ChannelSelect,
    Hui,
    Unknown,
};
Incoming classify(std::span<const std::uint8_t> data);

// The type byte, or -1 for data too short to hold one.
int typeOf(std::span<const std::uint8_t> data);

} // namespace sysex
