#include "midimappingcodec.h"

#include "nameparts.h"

#include <algorithm>

namespace sysex
{

namespace
{

enum ControlType : std::uint8_t {
    NoType,
    Fader,
    Select,
    Rotary,
    Button,
    PresetButton,
    Diamond,
};
constexpr std::array<QStringView, 7> controlWords{u"noType", u"fader",        u"select", u"rotary",
                                                  u"button", u"presetbutton", u"diamond"};

enum MessageType : std::uint8_t {
    Channel,
    ControlChange,
    Note,
    Toggle,
};
constexpr std::array<QStringView, 4> messageWords{u"channel", u"cc", u"note", u"toggle"};

// A diamond's control numbers are these, from 1.
constexpr std::array<QStringView, 4> directionWords{u"left", u"up", u"right", u"down"};

constexpr int lastControlNumber = 15;
constexpr int lastBank = 3;

struct Control {
    std::uint8_t type;
    std::uint8_t number;
};

// Every test is one for containment, in this order.
std::optional<Control> takeControl(NameRest& rest)
{
    for (const auto type : {Fader, Select, Rotary, Button}) {
        if (!rest.holds(controlWords[type]) || (type == Button && rest.holds(u"preset")))
            continue;
        const auto number = takeNumber(rest, controlWords[type], type == Button ? 2 : 1);
        if (!number)
            return {};
        return Control{type, *number};
    }
    for (const auto type : {PresetButton, Diamond}) {
        if (rest.holds(controlWords[type])) {
            rest.removeAll({controlWords[type], u"_"});
            return Control{type, 0};
        }
    }
    return Control{NoType, 0};
}

// From 1; 0 without a direction.
std::uint8_t takeDirection(NameRest& rest)
{
    std::uint8_t number = 0;
    for (const auto word : directionWords) {
        ++number;
        if (rest.holds(word)) {
            rest.removeAll({word, u"_"});
            return number;
        }
    }
    return 0;
}

// The payload without its value.
std::optional<Payload> takeMapping(NameRest& rest)
{
    rest.removeAll({u"miditab_"});
    auto control = takeControl(rest);
    if (!control)
        return {};

    std::uint8_t bank = 0;
    if (!rest.holds(messageWords[Toggle])) {
        const auto number = takeNumber(rest, u"bank", 1);
        if (!number)
            return {};
        bank = *number;
        if (control->type == Diamond) {
            control->number = takeDirection(rest);
            if (control->number == 0)
                return {};
        }
    }

    const auto message = std::find_if(messageWords.begin(), messageWords.end(),
                                      [&rest](QStringView word) { return rest.holds(word); });
    if (message == messageWords.end())
        return {};
    return Payload{static_cast<std::uint8_t>(View::MidiMapping),
                   control->type,
                   control->number,
                   bank,
                   static_cast<std::uint8_t>(message - messageWords.begin()),
                   0};
}

constexpr std::size_t index(int number) { return static_cast<std::size_t>(number); }
constexpr QChar digit(int number) { return QChar(u'0' + number); }

// With its number, where the control has one, and "_".
void appendControl(QString& name, int type, int number)
{
    name.append(controlWords[index(type)]);
    if (type != PresetButton && type != Diamond) {
        if (type == Button || number > 9)
            name.append(digit(number / 10));
        name.append(digit(number % 10));
    }
    name.append(u'_');
}

} // namespace

Encoded encodeMidiMapping(QStringView name, int value)
{
    NameRest rest(name);
    auto payload = takeMapping(rest);
    if (!payload)
        return {.lines = {lineWithName("midi parameter output error", name)}};

    auto& fields = *payload;
    // Not masked: a value is taken to fit in seven bits. Unsigned, so that the least one can be
    // lowered.
    const auto wire = static_cast<unsigned>(value) - (fields[4] == Channel ? 1U : 0U);
    fields[5] = static_cast<std::uint8_t>(wire);
    return {.payload = fields};
}

Decoded decodeMidiMapping(int ctrlType, int ctrlTypeNum, int bankNum, int msgType, int value)
{
    Decoded decoded;
    const auto outside = [](int number, int last) { return number < 0 || number > last; };
    const auto complain = [&decoded](const char* text) { decoded.lines.push_back({.text = text}); };
    constexpr const char* badNumber = "invalid global midi ctrl type number sysex";

    // Only the first that is wrong is told...
    if (outside(ctrlType, Diamond))
        complain("invalad global midi ctrl type sysex"); // spelled so
    else if (outside(ctrlTypeNum, lastControlNumber))
        complain(badNumber);
    else if (outside(bankNum, lastBank))
        complain("invalid global midi bank number sysex");
    else if (outside(msgType, Toggle))
        complain("invalid global midi message type sysex");

    // ...and beside it that fields don't go together: only a bank's channel has no control, and a
    // CC or a note always belongs to a bank.
    if ((ctrlType != NoType && msgType == Channel)
        || (bankNum == 0 && (msgType == ControlChange || msgType == Note))) {
        decoded.lines.push_back({.text = "invalid global midi sysex: probably bad toggles",
                                 .numbers = {ctrlType, ctrlTypeNum, bankNum, msgType, value}});
    }
    if (!decoded.lines.isEmpty())
        return decoded;

    const bool hasDirection = ctrlType == Diamond && msgType != Toggle;
    if (hasDirection && outside(ctrlTypeNum - 1, directionWords.size() - 1)) {
        complain(badNumber);
        return decoded;
    }

    auto& name = decoded.name;
    name.reserve(usualNameSize);
    name.append(u"miditab_");
    if (ctrlType != NoType)
        appendControl(name, ctrlType, ctrlTypeNum);
    if (bankNum != 0)
        name.append(u"bank").append(digit(bankNum)).append(u'_');
    if (hasDirection)
        name.append(directionWords[index(ctrlTypeNum - 1)]).append(u'_');
    name.append(messageWords[index(msgType)]);
    decoded.view = View::MidiMapping;
    decoded.value = value;
    return decoded;
}

} // namespace sysex
