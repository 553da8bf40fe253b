#include "parametertable.h"

#include "cuttoint.h"
#include "mixershape.h"
#include "scaling.h"

#include <QHash>

#include <algorithm>
#include <cstddef>
#include <string_view>
#include <vector>

namespace
{

// Parameters come in families: the same for each number of one range, or of two.
struct Numbers {
    int first = 1;
    int last = 1;
    int step = 1;

    constexpr int count() const { return (last - first) / step + 1; }
};

struct Places {
    Numbers outer{};
    Numbers inner{};
};

using Type = Parameter::Type;

struct Family {
    // "@" is the word of the channel with the place's number, "#" the number itself, "&" the number
    // in two digits. The first of them takes the outer place, the second the inner one.
    const char* pattern;
    Places places;
    Encoding encoding;
    int lowest;
    int highest;
    int factoryValue;
    Type type = Type::Number;
    // For each step of the outer place after the first.
    int factoryStep = 0;
};

using enum Encoding;

constexpr Places once{};
constexpr Places inputs{{1, channels::lastInput}};
constexpr Places inputsAndMains{{1, channels::mains}};
constexpr Places allChannels{{1, channels::phones}};
constexpr Places inputsToAuxes{{1, channels::lastInput}, {1, channels::auxes}};
constexpr Places inputsWithPhantom{{1, channels::lastWithPhantom}};
constexpr Places inputsWithPad{{channels::lastWithPhantom + 1, channels::lastInput}};
// A pair is stated on its first channel only.
constexpr Places firstOfPairs{{1, channels::lastInput - 1, 2}};

constexpr Family presetFamilies[]{
    {"faderframe_@_fader", allChannels, faderPosition, 3000, 10600, 3000},
    {"faderframe_@_mute", allChannels, onOff, 0, 1, 0, Type::Truth},
    {"faderframe_@_solo", inputs, onOff, 0, 1, 0, Type::Truth},

    // In the table of the inputs with a pad, 0 dB is the 17th entry.
    {"channelstrip_@_trim", inputsWithPhantom, trimTable, 0, 40, 0},
    {"channelstrip_@_trim", inputsWithPad, trimTable, 0, 40, 16},
    {"channelstrip_@_highPass_freq", inputs, hertz, 40, 400, 80},
    {"channelstrip_@_highPass_bypass", inputs, onOff, 0, 1, 1},
    {"channelstrip_@_stereo", firstOfPairs, onOff, 0, 1, 0},
    {"channelstrip_@_pan", inputs, plain, 9900, 10100, 10000},
    {"channelstrip_@_aux#_routing_pan", inputsToAuxes, plain, 9900, 10100, 10000},
    {"channelstrip_@_aux#_routing_pre_post", inputsToAuxes, onOff, 0, 1, 1, Type::Truth},
    {"channelstrip_@_aux#_routing_send_level", inputsToAuxes, faderPosition, 3000, 10600, 3000},

    {"channelstrip_@_eq_bypass", inputsAndMains, onOff, 0, 1, 0},
    {"channelstrip_@_eq_hi_freq", inputsAndMains, tensOfHertz, 300, 2000, 324},
    {"channelstrip_@_eq_hi_gain", inputsAndMains, linearLevel, 8200, 11800, 10000},
    {"channelstrip_@_eq_low_freq", inputsAndMains, hertz, 20, 400, 276},
    {"channelstrip_@_eq_low_gain", inputsAndMains, linearLevel, 8200, 11800, 10000},
    {"channelstrip_@_eq_mid_freq", inputsAndMains, hertz, 200, 6000, 346},
    {"channelstrip_@_eq_mid_gain", inputsAndMains, linearLevel, 8200, 11800, 10000},
    {"channelstrip_@_eq_mid_q", inputsAndMains, hundredths, 10, 1000, 100},
    // The times in milliseconds.
    {"channelstrip_@_compressor_bypass", inputsAndMains, onOff, 0, 1, 0},
    {"channelstrip_@_compressor_attack", inputsAndMains, plain, 1, 1000, 10},
    {"channelstrip_@_compressor_gain", inputsAndMains, linearLevel, 10000, 12400, 10000},
    {"channelstrip_@_compressor_release", inputsAndMains, plain, 1, 3000, 50},
    {"channelstrip_@_compressor_thresh", inputsAndMains, linearLevel, 3000, 11000, 10000},
    {"channelstrip_@_compressor_ratio", inputsAndMains, hundredths, 0, 1000, 300},
    {"channelstrip_@_gate_bypass", inputsAndMains, onOff, 0, 1, 0},
    {"channelstrip_@_gate_attack", inputsAndMains, plain, 1, 1000, 10},
    {"channelstrip_@_gate_gain", inputsAndMains, linearLevel, 3600, 10000, 7600},
    {"channelstrip_@_gate_release", inputsAndMains, plain, 1, 3000, 50},
    {"channelstrip_@_gate_thresh", inputsAndMains, linearLevel, 3000, 11000, 3000},

    // The number of the channel that is heard.
    {"channelstrip_phones_monitor_select", once, plain, 1, channels::lastAux, channels::mains},

    {"reverbtab_@_send_level", inputs, faderPosition, 3000, 10600, 3000},
    {"reverbtab_pre_post", once, onOff, 0, 1, 1, Type::Truth},
    {"reverbtab_pre_delay", once, plain, 0, 200, 20},
    {"reverbtab_decay_time", once, plain, 100, 10000, 1000},
    {"reverbtab_damping", once, plain, 0, 100, 50},
    {"reverbtab_diffusion", once, plain, 0, 100, 50},
    {"reverbtab_level", once, faderPosition, 3000, 10600, 0}, // delivered below its fader's end
    {"reverbtab_bypass", once, onOff, 0, 1, 0, Type::Truth},
};

constexpr Places inBanks{{1, panel::banks}};
constexpr Places fadersInBanks{{1, panel::faders}, {1, panel::banks}};
constexpr Places rotariesInBanks{{1, panel::rotaries}, {1, panel::banks}};
constexpr Places eachFader{{1, panel::faders}};
constexpr Places eachRotary{{1, panel::rotaries}};
constexpr Places eachButton{{1, panel::buttons}};
// The preset button's note stands among those of the buttons, which step over it.
constexpr Places buttonsBeforePreset{{1, 3}, {1, panel::banks}};
constexpr Places buttonsAfterPreset{{4, panel::buttons}, {1, panel::banks}};

constexpr Family globalFamilies[]{
    {"@_phantom", inputsWithPhantom, onOff, 0, 1, 0},
    {"phantom_voltage", once, plain, 0, 1, 1}, // 12 V, 48 V
    {"@_line_phono", inputsWithPad, onOff, 0, 1, 1},
    {"hardware_limiter", once, onOff, 0, 1, 0},
    {"mode_backlighting_enable", once, onOff, 0, 1, 1},
    {"led_brightness", once, plain, 0, 31, 16},
    {"tone_gen_enable", once, onOff, 0, 1, 0},
    {"tone_gen_freq", once, plain, 20, 16000, 440}, // Hz, in a whole-number box
    {"pass_thru_width", once, onOff, 0, 1, 0},
    {"pass_thru_rotaries", once, onOff, 0, 1, 0},
    {"phones_impedance", once, plain, 0, 2, 1}, // low, medium, high
    {"expander_control", once, onOff, 0, 1, 0},

    {"surroundtab_rotary#_radius", eachRotary, plain, 0, 127, 63},
    {"surroundtab_rotary#_angle", eachRotary, plain, 0, 359, 0},
    // The rotary that carries the channel, from 0; two channels share one.
    {"surroundtab_@_assign", {{1, 2}}, plain, 0, 3, 0},
    {"surroundtab_@_assign", {{3, 4}}, plain, 0, 3, 1},
    {"surroundtab_@_assign", {{5, 6}}, plain, 0, 3, 2},
    {"surroundtab_@_assign", {{7, 8}}, plain, 0, 3, 3},
    {"surroundtab_format", once, plain, 0, 2, 1},
    {"surroundtab_enable", once, onOff, 0, 1, 0},
    {"surroundtab_bass_management", once, plain, 39, 200, 39}, // the lowest: off

    {"usbtab_@_input_prepost", inputs, onOff, 0, 1, 0, Type::Truth},
    {"usbtab_@_output_prepost", inputs, onOff, 0, 1, 0, Type::Truth},

    {"miditab_bank#_channel", inBanks, plain, 1, 16, 1, Type::Number, 1},
    {"miditab_fader#_bank#_cc", fadersInBanks, plain, 0, 127, 1, Type::Number, 1},
    {"miditab_select#_bank#_note", fadersInBanks, plain, 0, 127, 1, Type::Number, 1},
    {"miditab_rotary#_bank#_cc", rotariesInBanks, plain, 0, 127, 10, Type::Number, 1},
    {"miditab_button&_bank#_note", buttonsBeforePreset, plain, 0, 127, 10, Type::Number, 1},
    {"miditab_presetbutton_bank#_note", inBanks, plain, 0, 127, 13},
    {"miditab_button&_bank#_note", buttonsAfterPreset, plain, 0, 127, 14, Type::Number, 1},
    {"miditab_diamond_bank#_up_note", inBanks, plain, 0, 127, 26},
    {"miditab_diamond_bank#_down_note", inBanks, plain, 0, 127, 27},
    {"miditab_diamond_bank#_left_note", inBanks, plain, 0, 127, 28},
    {"miditab_diamond_bank#_right_note", inBanks, plain, 0, 127, 29},
    {"miditab_select#_toggle", eachFader, onOff, 0, 1, 0},
    {"miditab_button&_toggle", eachButton, onOff, 0, 1, 0},
    {"miditab_presetbutton_toggle", once, onOff, 0, 1, 0},
    {"miditab_diamond_toggle", once, onOff, 0, 1, 0},
};

constexpr int countOf(std::span<const Family> families)
{
    int count = 0;
    for (const Family& family : families)
        count += family.places.outer.count() * family.places.inner.count();
    return count;
}

constexpr int presetCount = 329;
constexpr int globalCount = 208;
static_assert(countOf(presetFamilies) == presetCount);
static_assert(countOf(globalFamilies) == globalCount);

QString keyOf(const char* pattern, int outer, int inner)
{
    QString key;
    int number = outer;
    for (const char character : std::string_view(pattern)) {
        switch (character) {
        case '@':
            key += QLatin1String(channels::words.at(static_cast<std::size_t>(number - 1)));
            break;
        case '#':
            key += QString::number(number);
            break;
        case '&':
            key += QStringLiteral("%1").arg(number, 2, 10, QLatin1Char('0'));
            break;
        default:
            key += QLatin1Char(character);
            continue;
        }
        number = inner;
    }
    return key;
}

using Parameters = std::vector<Parameter>;

void append(Parameters& parameters, const Family& family, Parameter::Store store)
{
    const auto& [outer, inner] = family.places;
    int factoryValue = family.factoryValue;
    for (int first = outer.first; first <= outer.last; first += outer.step) {
        for (int second = inner.first; second <= inner.last; second += inner.step)
            parameters.push_back({keyOf(family.pattern, first, second), family.encoding,
                                  family.lowest, family.highest, factoryValue, store, family.type});
        factoryValue += family.factoryStep;
    }
}

std::span<const Parameter> parameters()
{
    static const Parameters all = [] {
        Parameters made;
        made.reserve(presetCount + globalCount);
        for (const Family& family : presetFamilies)
            append(made, family, Parameter::Store::Preset);
        for (const Family& family : globalFamilies)
            append(made, family, Parameter::Store::Global);
        return made;
    }();
    return all;
}

} // namespace

int Parameter::bounded(int value) const
{
    return value == factoryValue ? value : std::clamp(value, lowest, highest);
}

double Parameter::shown(int value) const
{
    using namespace scaling;
    switch (encoding) {
    case linearLevel:
        return levelToDb(value);
    case faderPosition:
        return faderToDb(value, cutToInt(levelToDb(lowest)), cutToInt(levelToDb(highest)));
    case Encoding::hundredths:
        return fromHundredths(value);
    case tensOfHertz:
        return value * 10.0;
    default:
        return value;
    }
}

QVariant Parameter::stored(int value) const
{
    return type == Type::Truth ? QVariant(value != 0) : QVariant(value);
}

std::span<const Parameter> parametertable::preset() { return parameters().first(presetCount); }

std::span<const Parameter> parametertable::globals() { return parameters().last(globalCount); }

const Parameter* parametertable::find(const QString& key)
{
    static const QHash<QString, const Parameter*> byKey = [] {
        QHash<QString, const Parameter*> all;
        for (const Parameter& parameter : parameters())
            all.insert(parameter.key, &parameter);
        return all;
    }();
    return byKey.value(key);
}

const Parameter& parametertable::at(const QString& key)
{
    const Parameter* const parameter = find(key);
    Q_ASSERT(parameter != nullptr);
    return *parameter;
}
