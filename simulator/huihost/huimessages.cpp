#include "huimessages.h"

#include "lineparts.h"

#include <array>

namespace huimessages
{

namespace
{

struct Zone {
    const char* name;
    std::array<const char*, portsInZone> ports; // null where there is none
};

constexpr std::array<const char*, portsInZone> channelPorts{"touch", "select", "mute",   "solo",
                                                            "auto",  "v-sel",  "insert", "record"};

constexpr std::array<Zone, zones> zoneTable{{
    {"channel-1", channelPorts},
    {"channel-2", channelPorts},
    {"channel-3", channelPorts},
    {"channel-4", channelPorts},
    {"channel-5", channelPorts},
    {"channel-6", channelPorts},
    {"channel-7", channelPorts},
    {"channel-8", channelPorts},
    {"keyboard", {"ctrl", "shift", "edit-mode", "undo", "alt", "option", "edit-tool", "save"}},
    {"window", {"mix", "edit", "transport", "memory", "status", "alt"}},
    {"banks", {"channel-left", "bank-left", "channel-right", "bank-right"}},
    {"assign-1", {"output", "input", "pan", "send-e", "send-d", "send-c", "send-b", "send-a"}},
    {"assign-2", {"assign", "default", "suspend", "shift", "mute", "bypass", "record-all"}},
    {"cursor", {"down", "left", "mode", "right", "up", "scrub", "shuttle"}},
    {"transport", {"talkback", "rewind", "fast-forward", "stop", "play", "record"}},
    {"locate", {"to-zero", "to-end", "online", "loop", "quick-punch"}},
    {"punch", {"audition", "pre", "in", "out", "post"}},
    {"monitor-in", {"input-3", "input-2", "input-1", "mute", "discrete"}},
    {"monitor-out", {"output-3", "output-2", "output-1", "dim", "mono"}},
    {"digits-1", {"0", "1", "4", "2", "5", "dot", "3", "6"}},
    {"digits-2", {"enter", "plus"}},
    {"digits-3", {"7", "8", "9", "minus", "clear", "equals", "slash", "star"}},
    {"time-lights", {"timecode", "feet", "beats", "rude-solo"}},
    {"auto-enable", {"plug-in", "pan", "fader", "send-mute", "send", "mute"}},
    {"auto-mode", {"trim", "latch", "read", "off", "write", "touch"}},
    {"status", {"phase", "monitor", "auto", "suspend", "create", "group"}},
    {"edit", {"paste", "cut", "capture", "delete", "copy", "separate"}},
    {"function", {"f1", "f2", "f3", "f4", "f5", "f6", "f7", "f8"}},
    {"parameters",
     {"insert", "assign", "select-1", "dial-1", "select-2", "dial-2", "select-3", "dial-3"}},
    {"relays", {"footswitch-1", "footswitch-2", "click", "beep"}},
}};

QByteArray bytesOf(std::initializer_list<int> values)
{
    QByteArray bytes;
    for (const int value : values)
        bytes.append(static_cast<char>(value));
    return bytes;
}

// The first number whose name is the word.
template <typename Name> std::optional<int> named(const QString& word, int count, Name name)
{
    for (int i = 0; i < count; ++i) {
        if (word == name(i))
            return i;
    }
    return {};
}

} // namespace

QString zoneName(int zone)
{
    if (zone < 0 || zone >= zones)
        return {};
    return QLatin1String(zoneTable[static_cast<std::size_t>(zone)].name);
}

QString portName(int zone, int port)
{
    if (zone < 0 || zone >= zones || port < 0 || port >= portsInZone)
        return {};
    return QLatin1String(
        zoneTable[static_cast<std::size_t>(zone)].ports[static_cast<std::size_t>(port)]);
}

std::optional<int> zoneOf(const QString& word)
{
    const auto number = lineparts::number(word, 0, zones - 1);
    return number ? number : named(word, zones, zoneName);
}

std::optional<int> portOf(int zone, const QString& word)
{
    // Some names are digits, and mean what is written on the button.
    const auto name = named(word, portsInZone, [zone](int port) { return portName(zone, port); });
    return name ? name : lineparts::number(word, 0, portsInZone - 1);
}

QByteArray fader(int number, int position)
{
    return bytesOf({0xB0, number, position >> 7, 0xB0, number + lowByte, position & 0x7F});
}

QByteArray light(int zone, int port, bool on)
{
    return bytesOf({0xB0, zoneToSurface, zone, 0xB0, portToSurface, port + (on ? onFlag : 0)});
}

QByteArray ping() { return bytesOf({0x90, 0, 0}); }

QByteArray meter(int channel, bool right, int level)
{
    return bytesOf({0xA0, channel, (right ? 0x10 : 0) + level});
}

QByteArray ring(int dial, int value) { return bytesOf({0xB0, 0x10 + dial, value}); }

QByteArray display(int place, const QString& text)
{
    constexpr int width = 4;
    QByteArray message = QByteArray::fromHex("f00000660500") + bytesOf({0x10, place});
    for (const QChar character : text.leftJustified(width, u' ', true)) {
        const auto code = character.unicode();
        message.append(static_cast<char>(code < 0x80 ? code : u'?'));
    }
    return message + bytesOf({0xF7});
}

QByteArray systemReset() { return bytesOf({0xFF}); }

} // namespace huimessages
