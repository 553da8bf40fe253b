#include "presetdefaults.h"

#include "presetnames.h"

#include <span>

namespace
{

constexpr int channels = 8;
constexpr int auxes = 3;
constexpr int banks = 3;
constexpr int rotaries = 4;
constexpr int fadersOfABank = 9;
constexpr int buttons = 15;

struct Parameter {
    const char* name;
    int value;
};

// On every input channel and on the mains.
constexpr Parameter stripParameters[]{
    {"eq_bypass", 0},           {"eq_hi_freq", 324}, // tens of Hz
    {"eq_hi_gain", 10000},      {"eq_low_freq", 276},         {"eq_low_gain", 10000},
    {"eq_mid_freq", 346},       {"eq_mid_gain", 10000},       {"eq_mid_q", 100},
    {"compressor_bypass", 0},   {"compressor_attack", 10},    {"compressor_gain", 10000},
    {"compressor_release", 50}, {"compressor_thresh", 10000}, {"compressor_ratio", 300},
    {"gate_bypass", 0},         {"gate_attack", 10},          {"gate_gain", 7600},
    {"gate_release", 50},       {"gate_thresh", 3000},
};

constexpr Parameter channelParameters[]{
    {"highPass_freq", 80},
    {"highPass_bypass", 1},
    {"pan", 10000},
};

constexpr Parameter reverbParameters[]{
    {"pre_delay", 20}, {"decay_time", 1000}, {"damping", 50}, {"diffusion", 50}, {"level", 0},
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

constexpr int faderFloor = 3000;

void insert(QVariantMap& map, const QString& prefix, std::span<const Parameter> parameters)
{
    for (const Parameter& parameter : parameters)
        map.insert(prefix + QLatin1String(parameter.name), parameter.value);
}

void insertFader(QVariantMap& map, const QString& channel)
{
    map.insert(QStringLiteral("faderframe_%1_fader").arg(channel), faderFloor);
    map.insert(QStringLiteral("faderframe_%1_mute").arg(channel), false);
}

void insertChannel(QVariantMap& map, int channel)
{
    const QString name = QStringLiteral("ch%1").arg(channel);
    insertFader(map, name);
    map.insert(QStringLiteral("faderframe_%1_solo").arg(name), false);
    map.insert(QStringLiteral("reverbtab_%1_send_level").arg(name), faderFloor);

    const QString strip = QStringLiteral("channelstrip_%1_").arg(name);
    insert(map, strip, stripParameters);
    insert(map, strip, channelParameters);
    // Of channels 3 to 8 the trim's 0 dB is the 17th entry of their table.
    map.insert(strip + QStringLiteral("trim"), channel <= 2 ? 0 : 16);
    // A pair is stated on its first channel only.
    if (channel % 2 == 1)
        map.insert(strip + QStringLiteral("stereo"), 0);
    for (int aux = 1; aux <= auxes; ++aux) {
        const QString routing = strip + QStringLiteral("aux%1_routing_").arg(aux);
        map.insert(routing + QStringLiteral("pan"), 10000);
        map.insert(routing + QStringLiteral("pre_post"), true);
        map.insert(routing + QStringLiteral("send_level"), faderFloor);
    }
}

QVariantMap makePreset()
{
    QVariantMap map;
    map.insert(presetNameKey(), QStringLiteral("DefaultPreset"));
    for (int channel = 1; channel <= channels; ++channel)
        insertChannel(map, channel);
    for (int aux = 1; aux <= auxes; ++aux)
        insertFader(map, QStringLiteral("aux%1").arg(aux));
    insertFader(map, QStringLiteral("phones"));
    insertFader(map, QStringLiteral("mains"));
    map.insert(QStringLiteral("channelstrip_phones_monitor_select"), 9);
    insert(map, QStringLiteral("channelstrip_mains_"), stripParameters);
    insert(map, QStringLiteral("reverbtab_"), reverbParameters);
    map.insert(QStringLiteral("reverbtab_pre_post"), true);
    map.insert(QStringLiteral("reverbtab_bypass"), false);
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
    insert(map, QString(), globalParameters);
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
    return key != presetNameKey() && preset().contains(key);
}
