// Any payload is decoded, and any text is encoded: the first six bytes are the payload, the next
// four the value, the rest is the name.

#include "globalcodec.h"
#include "midimappingcodec.h"
#include "presetcodec.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>

namespace
{

// Either there is something to emit, or a line says why not.
void check(const sysex::Decoded& decoded)
{
    if ((decoded.view == sysex::View::None) != !decoded.lines.isEmpty())
        std::abort();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    sysex::Payload payload{};
    const std::size_t head = std::min(size, payload.size());
    std::copy_n(data, head, payload.begin());
    data += head;
    size -= head;

    int value = 0;
    const std::size_t valueSize = std::min(size, sizeof value);
    std::memcpy(&value, data, valueSize);
    data += valueSize;
    size -= valueSize;

    check(sysex::decodePresetParameter(payload));
    check(sysex::decodeGlobalParameter(payload));
    check(sysex::decodeMidiMapping(payload[1], payload[2], payload[3], payload[4], value));
    check(sysex::decodeMidiMapping(value, value, value, value, value));

    const auto text =
        QString::fromUtf8(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    // Also as code units that need not be legal text.
    QString units(static_cast<qsizetype>(size / 2), Qt::Uninitialized);
    std::memcpy(units.data(), data, size / 2 * 2);
    for (const auto& name : {text, units}) {
        for (const auto encode : {sysex::encodePresetParameter, sysex::encodeGlobalParameter,
                                  sysex::encodeMidiMapping}) {
            const auto encoded = encode(name, value);
            for (const auto& line : encoded.lines) {
                QString printed;
                QDebug(&printed) << line;
            }
        }
    }
    return 0;
}
