#include "globalcodec.h"

#include "midimappingcodec.h"
#include "nameparts.h"

#include <QStringBuilder>

#include <algorithm>

namespace sysex
{

namespace
{

struct Identifiers {
    std::uint8_t channel;
    std::uint8_t parameter;
};

Identifiers takeSurround(QStringView name)
{
    NameRest rest(name);
    rest.removeAll({u"surroundtab"});
    const auto channel = takeChannel(rest);
    return {channel, parameterIdOf(rest.view())};
}

Identifiers takeUsb(QStringView name)
{
    NameRest rest(name);
    rest.removeAll({u"usbtab"});
    // Only inputs have a place in the USB routing; any other name is refused whole, "_mains" too.
    if (!rest.view().startsWith(u"_ch"))
        return {notInTable, notInTable};
    const auto channel = takeChannel(rest);
    return {channel, parameterIdOf(rest.view())};
}

Identifiers takeSetting(QStringView name)
{
    // The channel stands first and without its underscore.
    QStringView part;
    if (name.startsWith(u"ch"))
        part = name.first(std::min<qsizetype>(3, name.size()));
    else if (name.startsWith(u"phones"))
        part = name.first(6);

    NameRest rest(name);
    std::uint8_t channel = 0;
    if (part.isEmpty()) {
        // A name that holds the word "none" loses it like a channel.
        rest.removeAll({u"none"});
    } else {
        QVarLengthArray<QChar, 8> tablePart{u'_'};
        tablePart.append(part.begin(), part.size());
        channel = channelIdOf(QStringView(tablePart.data(), tablePart.size()));
        rest.removeAll({part});
    }
    return {channel, parameterIdOf(rest.view())};
}

} // namespace

Encoded encodeGlobalParameter(QStringView name, int value)
{
    View view = View::Settings;
    Identifiers identifiers{};
    LogLines lines;
    if (name.contains(u"surroundtab_")) {
        view = View::SurroundTab;
        identifiers = takeSurround(name);
    } else if (name.contains(u"miditab_")) {
        return encodeMidiMapping(name, value);
    } else if (name.contains(u"usbtab_")) {
        view = View::UsbTab;
        identifiers = takeUsb(name);
    } else {
        identifiers = takeSetting(name);
        lines.push_back(
            {.text = "syx: send settings param: ",
             .numbers = {static_cast<int>(view), identifiers.channel, identifiers.parameter}});
    }

    const auto bytes = encodeValue(value);
    const Payload payload{static_cast<std::uint8_t>(view), identifiers.channel, 0,
                          identifiers.parameter,           bytes.high,          bytes.low};
    lines.push_back({.text = "syx send: ", .numbers{payload.begin(), payload.end()}});
    return {payload, std::move(lines)};
}

Decoded decodeGlobalParameter(PayloadView payload)
{
    if (payload[0] == static_cast<std::uint8_t>(View::MidiMapping))
        return decodeMidiMapping(payload[1], payload[2], payload[3], payload[4], payload[5]);

    std::uint8_t view = payload[0];
    const std::uint8_t channel = payload[1];
    const std::uint8_t parameter = payload[3];
    Decoded decoded;
    const auto complain = [&decoded](const char* text, int number) {
        decoded.lines.push_back({.text = text, .numbers = {number}});
    };

    constexpr const char* invalidView = "invalid global viewType sysex message";
    if (view > static_cast<std::uint8_t>(View::UsbTab))
        complain(invalidView, view);
    if (!isChannelId(channel)) {
        complain("invalid global channel ID sysex message", channel);
        view = 0;
    }
    if (!isParameterId(parameter)) {
        complain("invalid global parameter ID sysex message", parameter);
        view = 0;
    }

    QStringView word;
    QLatin1StringView channelName =
        isChannelId(channel) ? channelPart(channel) : QLatin1StringView();
    switch (static_cast<View>(view)) {
    case View::SurroundTab:
        word = u"surroundtab";
        break;
    case View::UsbTab:
        word = u"usbtab";
        break;
    case View::Settings:
        // A setting's name has no view word and no underscore before its channel.
        channelName = channelName.mid(1);
        break;
    default:
        // After the lines above; so a view beyond the last gets this line twice.
        complain(invalidView, view);
        return decoded;
    }

    decoded.view = static_cast<View>(view);
    decoded.name = word % channelName % parameterPart(parameter);
    decoded.value = decodeValue(payload[4], payload[5]);
    return decoded;
}

} // namespace sysex
