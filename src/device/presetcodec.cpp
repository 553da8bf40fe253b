#include "presetcodec.h"

#include "nameparts.h"

#include <QStringBuilder>

#include <algorithm>

namespace sysex
{

namespace
{

struct ViewWord {
    View view;
    QStringView word;
    // How a name shows it.
    QStringView marker;
};

constexpr std::array<ViewWord, 3> viewWords{{
    {View::FaderFrame, u"faderframe", u"faderframe_"},
    {View::ChannelStrip, u"channelstrip", u"channelstrip_"},
    {View::ReverbTab, u"reverbtab", u"reverbtab_"},
}};

// From an input to an aux bus. No other pair says "_routing", not even mains to aux.
bool isRouting(View view, int channel, int secondary)
{
    return view == View::ChannelStrip && channel > 0 && channel < mainsChannel
        && secondary >= firstAuxChannel && secondary < phonesChannel;
}

} // namespace

Encoded encodePresetParameter(QStringView name, int value)
{
    // The word may stand anywhere.
    const auto found = std::find_if(viewWords.begin(), viewWords.end(),
                                    [name](const auto& row) { return name.contains(row.marker); });
    if (found == viewWords.end())
        return {.lines = {lineWithName("preset parameter not sent - no view in its name", name)}};
    // A strip's phantom power travels as a global parameter only.
    if (found->view == View::ChannelStrip && name.endsWith(u"_phantom"))
        return {};

    NameRest rest(name);
    rest.removeAll({found->word});
    const auto channel = takeChannel(rest);
    std::uint8_t secondary = 0;
    if (found->view == View::ChannelStrip) {
        secondary = takeSecondaryChannel(rest);
        rest.removeAll({u"_routing"});
    }
    const auto parameter = parameterIdOf(rest.view());
    const auto bytes = encodeValue(value);
    return {.payload = Payload{static_cast<std::uint8_t>(found->view), channel, secondary,
                               parameter, bytes.high, bytes.low}};
}

Decoded decodePresetParameter(PayloadView payload)
{
    const std::uint8_t channel = payload[1];
    const std::uint8_t secondary = channel == 0 ? std::uint8_t{0} : payload[2]; // not read then
    const std::uint8_t parameter = payload[3];

    Decoded decoded;
    const auto found = std::find_if(viewWords.begin(), viewWords.end(), [&](const auto& row) {
        return static_cast<std::uint8_t>(row.view) == payload[0];
    });
    if (found == viewWords.end()) {
        decoded.lines.push_back(
            {.text = "invalid preset viewType sysex message", .numbers = {payload[0]}});
    }
    if (!isChannelId(channel)) {
        decoded.lines.push_back({.text = "invalid preset channelID sysex message"});
    } else if (!isChannelId(secondary)) {
        decoded.lines.push_back(
            {.text = "invalid preset secondaryChannelId sysex message", .numbers = {secondary}});
    }
    if (!isParameterId(parameter))
        decoded.lines.push_back({.text = "invalid preset parameterID sysex message"});
    if (!decoded.lines.isEmpty())
        return decoded;

    decoded.view = found->view;
    const QStringView routing =
        isRouting(found->view, channel, secondary) ? u"_routing" : QStringView();
    decoded.name = found->word % channelPart(channel) % channelPart(secondary) % routing
        % parameterPart(parameter);
    decoded.value = decodeValue(payload[4], payload[5]);
    return decoded;
}

} // namespace sysex
