#include "sysexframe.h"

#include <algorithm>

namespace sysex
{

namespace
{

constexpr std::array<std::uint8_t, 5> header{0xF0, 0x00, 0x01, 0x5F, 0x23};
constexpr std::size_t typePosition = header.size();
static_assert(typePosition + 1 + payloadSize + 1 == frameSize);
static_assert(at::payload + payloadSize == 11 && at::payload + transferSize == 8);

struct IncomingRow {
    std::size_t dataSize;
    Type type;
    Incoming message;
};

constexpr std::array<IncomingRow, 8> incomingRows{{
    {11, Type::FirmwareVersion, Incoming::FirmwareVersion},
    {8, Type::SlotTransfer, Incoming::SlotTransfer},
    {11, Type::PresetParameter, Incoming::PresetParameter},
    {11, Type::GlobalParameter, Incoming::GlobalParameter},
    {5, Type::GoToSyncPreset, Incoming::GoToSyncPreset},
    {6, Type::ModeChange, Incoming::ModeChange},
    {6, Type::ChannelSelect, Incoming::ChannelSelect},
    {11, Type::Hui, Incoming::Hui},
}};

} // namespace

Frame buildFrame(Type type, const Payload& payload)
{
    Frame frame{};
    auto out = std::copy(header.begin(), header.end(), frame.begin());
    *out++ = static_cast<std::uint8_t>(type);
    out = std::copy(payload.begin(), payload.end(), out);
    *out = 0xF7;
    return frame;
}

ValueBytes encodeValue(int value)
{
    return {static_cast<std::uint8_t>(value >> 7), static_cast<std::uint8_t>(value & 0x7F)};
}

int decodeValue(std::uint8_t high, std::uint8_t low) { return (high << 7) | low; }

std::uint8_t slotToWire(int slot)
{
    return slot == 0 ? lastWireSlot : static_cast<std::uint8_t>(slot - 1);
}

int slotFromWire(std::uint8_t wire) { return wire == lastWireSlot ? 0 : wire + 1; }

int typeOf(std::span<const std::uint8_t> data)
{
    return data.size() > at::type ? data[at::type] : -1;
}

Incoming classify(std::span<const std::uint8_t> data)
{
    const int type = typeOf(data);
    for (const auto& row : incomingRows) {
        if (row.dataSize == data.size() && static_cast<int>(row.type) == type)
            return row.message;
    }
    return Incoming::Unknown;
}

} // namespace sysex
