#include "presetdefaults.h"

#include "presetnames.h"

#include <QHash>

#include <algorithm>
#include <cstddef>
#include <span>

namespace
{

constexpr int channels = 8;
constexpr int auxes = 3;
constexpr int banks = 3;
constexpr int rotaries = 4;
constexpr int fadersOfABank = 9;
constexpr int buttons = 15;

// A preset's parameters come in families: the same on each of these channels.
using Channels = std::span<const char* const>;
constexpr const char* inputs[]{"ch1", "ch2", "ch3", "ch4", "ch5", "ch6", "ch7", "ch8"};
constexpr const char* inputsAndMains[]{"ch1", "ch2", "ch3", "ch4",  "ch5",
                                       "ch6", "ch7", "ch8", "mains"};
constexpr const char* allChannels[]{"ch1", "ch2",  "ch3",  "ch4",  "ch5",    "ch6",  "ch7",
                                    "ch8", "aux1", "aux2", "aux3", "phones", "mains"};
// A pair is stated on its first channel only.
constexpr const char* firstOfPairs[]{"ch1", "ch3", "ch5", "ch7"};
constexpr const char* nowhere[]{""};
constexpr std::size_t inputsWithoutPad = 2;

enum class Stored { Number, Truth };

// The range is that of the parameter's control.
struct Family {
    const char* name; // %1: the channel, %2: the number of an aux
    Channels channels;
    int factoryValue;
    int lowest;
    int highest;
    Stored stored = Stored::Number;
};

constexpr Family presetFamilies[]{
    {"faderframe_%1_fader", allChannels, 3000, 3000, 10600},
    {"faderframe_%1_mute", allChannels, 0, 0, 1, Stored::Truth},
    {"faderframe_%1_solo", inputs, 0, 0, 1, Stored::Truth},

    // An index; in the table of the inputs with a pad, 0 dB is the 17th entry.
    {"channelstrip_%1_trim", Channels(inputs).first(inputsWithoutPad), 0, 0, 40},
    {"channelstrip_%1_trim", Channels(inputs).subspan(inputsWithoutPad), 16, 0, 40},
    {"channelstrip_%1_highPass_freq", inputs, 80, 40, 400},
    {"channelstrip_%1_highPass_bypass", inputs, 1, 0, 1},
    {"channelstrip_%1_stereo", firstOfPairs, 0, 0, 1},
    {"channelstrip_%1_pan", inputs, 10000, 9900, 10100},
    {"channelstrip_%1_aux%2_routing_pan", inputs, 10000, 9900, 10100},
    {"channelstrip_%1_aux%2_routing_pre_post", inputs, 1, 0, 1, Stored::Truth},
    {"channelstrip_%1_aux%2_routing_send_level", inputs, 3000, 3000, 10600},

    {"channelstrip_%1_eq_bypass", inputsAndMains, 0, 0, 1},
    {"channelstrip_%1_eq_hi_freq", inputsAndMains, 324, 300, 2000}, // tens of Hz
    {"channelstrip_%1_eq_hi_gain", inputsAndMains, 10000, 8200, 11800},
    {"channelstrip_%1_eq_low_freq", inputsAndMains, 276, 20, 400},
    {"channelstrip_%1_eq_low_gain", inputsAndMains, 10000, 8200, 11800},
    {"channelstrip_%1_eq_mid_freq", inputsAndMains, 346, 200, 6000},
    {"channelstrip_%1_eq_mid_gain", inputsAndMains, 10000, 8200, 11800},
    {"channelstrip_%1_eq_mid_q", inputsAndMains, 100, 10, 1000},
    {"channelstrip_%1_compressor_bypass", inputsAndMains, 0, 0, 1},
    {"channelstrip_%1_compressor_attack", inputsAndMains, 10, 1, 1000},
    {"channelstrip_%1_compressor_gain", inputsAndMains, 10000, 10000, 12400},
    {"channelstrip_%1_compressor_release", inputsAndMains, 50, 1, 3000},
    {"channelstrip_%1_compressor_thresh", inputsAndMains, 10000, 3000, 11000},
    {"channelstrip_%1_compressor_ratio", inputsAndMains, 300, 0, 1000},
    {"channelstrip_%1_gate_bypass", inputsAndMains, 0, 0, 1},
    {"channelstrip_%1_gate_attack", inputsAndMains, 10, 1, 1000},
    {"channelstrip_%1_gate_gain", inputsAndMains, 7600, 3600, 10000},
    {"channelstrip_%1_gate_release", inputsAndMains, 50, 1, 3000},
    {"channelstrip_%1_gate_thresh", inputsAndMains, 3000, 3000, 11000},

    {"channelstrip_phones_monitor_select", nowhere, 9, 1, 12},

    {"reverbtab_%1_send_level", inputs, 3000, 3000, 10600},
    {"reverbtab_pre_post", nowhere, 1, 0, 1, Stored::Truth},
    {"reverbtab_pre_delay", nowhere, 20, 0, 200},
    {"reverbtab_decay_time", nowhere, 1000, 100, 10000},
    {"reverbtab_damping", nowhere, 50, 0, 100},
    {"reverbtab_diffusion", nowhere, 50, 0, 100},
    {"reverbtab_level", nowhere, 0, 3000, 10600}, // delivered below what its fader can reach
    {"reverbtab_bypass", nowhere, 0, 0, 1, Stored::Truth},
};

using PresetParameters = QHash<QString, const Family*>;

PresetParameters makePresetParameters()
{
    PresetParameters parameters;
    for (const Family& family : presetFamilies) {
        const QString name = QLatin1String(family.name);
        for (const char* const channel : family.channels) {
            const QString ofChannel =
                QString(name).replace(QLatin1String("%1"), QLatin1String(channel));
            if (!name.contains(QLatin1String("%2"))) {
                parameters.insert(ofChannel, &family);
                continue;
            }
            for (int aux = 1; aux <= auxes; ++aux)
                parameters.insert(
                    QString(ofChannel).replace(QLatin1String("%2"), QString::number(aux)), &family);
        }
    }
    return parameters;
}

const PresetParameters& presetParameters()
{
    static const PresetParameters parameters = makePresetParameters();
    return parameters;
}

struct Parameter {
    const char* name;
    int value;
};

constexpr Parameter globalParameters[]{
    {"ch1_phantom", 0},
    {"ch2_phantom", 0},
    {"phantom_voltage", 1},
    {"hardware_limiter", 0},
    {"mode_backlighting_enable", 1},
    {"led_brightness", 16},
    {"tone_gen_enable", 0},
    {"tone_gen_freq", 440},
    {"pass_thru_width", 0},
    {"pass_thru_rotaries", 0},
    {"phones_impedance", 1},
    {"expander_control", 0},
    {"surroundtab_format", 1},
    {"surroundtab_enable", 0},
    {"surroundtab_bass_management", 39},
    {"miditab_diamond_toggle", 0},
    {"miditab_presetbutton_toggle", 0},
};

// Of the mapping's controls that are there once in each bank. The preset button's note stands among
// those of the buttons, which step over it.
constexpr int presetButtonNote = 13;
constexpr Parameter notesOfABank[]{
    {"presetbutton_bank%1_note", presetButtonNote},
    {"diamond_bank%1_up_note", 26},
    {"diamond_bank%1_down_note", 27},
    {"diamond_bank%1_left_note", 28},
    {"diamond_bank%1_right_note", 29},
};

QVariantMap makePreset()
{
    QVariantMap map;
    map.insert(presetNameKey(), QStringLiteral("DefaultPreset"));
    for (const auto& [key, family] : presetParameters().asKeyValueRange()) {
        map.insert(key,
                   family->stored == Stored::Truth ? QVariant(family->factoryValue != 0)
                                                   : QVariant(family->factoryValue));
    }
    return map;
}

void insertMappingOfBank(QVariantMap& map, int bank)
{
    map.insert(QStringLiteral("miditab_bank%1_channel").arg(bank), bank);
    for (int fader = 1; fader <= fadersOfABank; ++fader) {
        map.insert(QStringLiteral("miditab_fader%1_bank%2_cc").arg(fader).arg(bank), fader);
        map.insert(QStringLiteral("miditab_select%1_bank%2_note").arg(fader).arg(bank), fader);
    }
    for (int rotary = 1; rotary <= rotaries; ++rotary)
        map.insert(QStringLiteral("miditab_rotary%1_bank%2_cc").arg(rotary).arg(bank), 9 + rotary);
    for (int button = 1; button <= buttons; ++button) {
        const int note = 9 + button < presetButtonNote ? 9 + button : 10 + button;
        map.insert(QStringLiteral("miditab_button%1_bank%2_note")
                       .arg(button, 2, 10, QLatin1Char('0'))
                       .arg(bank),
                   note);
    }
    for (const Parameter& parameter : notesOfABank) {
        map.insert(QStringLiteral("miditab_")
                       + QLatin1String(parameter.name).arg(QString::number(bank)),
                   parameter.value);
    }
}

QVariantMap makeGlobals()
{
    QVariantMap map;
    for (const Parameter& parameter : globalParameters)
        map.insert(QLatin1String(parameter.name), parameter.value);
    for (int channel = 3; channel <= channels; ++channel)
        map.insert(QStringLiteral("ch%1_line_phono").arg(channel), 1);
    for (int rotary = 1; rotary <= rotaries; ++rotary) {
        map.insert(QStringLiteral("surroundtab_rotary%1_radius").arg(rotary), 63);
        map.insert(QStringLiteral("surroundtab_rotary%1_angle").arg(rotary), 0);
    }
    for (int channel = 1; channel <= channels; ++channel) {
        map.insert(QStringLiteral("surroundtab_ch%1_assign").arg(channel), (channel - 1) / 2);
        map.insert(QStringLiteral("usbtab_ch%1_input_prepost").arg(channel), false);
        map.insert(QStringLiteral("usbtab_ch%1_output_prepost").arg(channel), false);
    }
    for (int bank = 1; bank <= banks; ++bank)
        insertMappingOfBank(map, bank);
    for (int fader = 1; fader <= fadersOfABank; ++fader)
        map.insert(QStringLiteral("miditab_select%1_toggle").arg(fader), 0);
    for (int button = 1; button <= buttons; ++button) {
        map.insert(QStringLiteral("miditab_button%1_toggle").arg(button, 2, 10, QLatin1Char('0')),
                   0);
    }
    return map;
}

} // namespace

const QVariantMap& presetdefaults::preset()
{
    static const QVariantMap map = makePreset();
    return map;
}

const QVariantMap& presetdefaults::globals()
{
    static const QVariantMap map = makeGlobals();
    return map;
}

bool presetdefaults::isPresetParameter(const QString& key)
{
    return presetParameters().contains(key);
}

std::optional<presetdefaults::Range> presetdefaults::range(const QString& key)
{
    const Family* const family = presetParameters().value(key);
    return family ? std::optional(Range{family->lowest, family->highest}) : std::nullopt;
}

int presetdefaults::bounded(const QString& key, int value)
{
    const Family* const family = presetParameters().value(key);
    if (family == nullptr || value == family->factoryValue)
        return value;
    return std::clamp(value, family->lowest, family->highest);
}
