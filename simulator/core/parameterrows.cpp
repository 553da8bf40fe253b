// The rows of both parameter tables.
#include "parametertable.h"

namespace
{

using Rows = std::vector<Parameter>;

// One parameter of a family that several channels have.
struct Member {
    const char* name;
    quint8 number;
    int factory;
    int minimum;
    int maximum;
};

constexpr Member trim{"trim", 1, 0, 0, 40};
constexpr Member filter[] = {
    {"highPass_freq", 51, 80, 40, 400},
    {"highPass_bypass", 50, 1, 0, 1},
};
// What input channels and mains have alike.
constexpr Member processing[] = {
    {"eq_bypass", 35, 0, 0, 1},
    {"eq_hi_freq", 16, 324, 300, 2000},
    {"eq_hi_gain", 12, 10000, 8200, 11800},
    {"eq_low_freq", 13, 276, 20, 400},
    {"eq_low_gain", 9, 10000, 8200, 11800},
    {"eq_mid_freq", 11, 346, 200, 6000},
    {"eq_mid_gain", 10, 10000, 8200, 11800},
    {"eq_mid_q", 15, 100, 10, 1000},
    {"compressor_bypass", 36, 0, 0, 1},
    {"compressor_attack", 23, 10, 1, 1000},
    {"compressor_gain", 20, 10000, 10000, 12400},
    {"compressor_release", 19, 50, 1, 3000},
    {"compressor_thresh", 17, 10000, 3000, 11000},
    {"compressor_ratio", 18, 300, 0, 1000},
    {"gate_bypass", 37, 0, 0, 1},
    {"gate_attack", 26, 10, 1, 1000},
    {"gate_gain", 28, 7600, 3600, 10000},
    {"gate_release", 27, 50, 1, 3000},
    {"gate_thresh", 25, 3000, 3000, 11000},
};
constexpr Member pan{"pan", 3, 10000, 9900, 10100};
constexpr Member sends[] = {
    pan,
    {"pre_post", 2, 1, 0, 1},
    {"send_level", 38, 3000, 3000, 10600},
};
constexpr Member reverb[] = {
    {"pre_post", 2, 1, 0, 1},
    {"pre_delay", 29, 20, 0, 200},
    {"decay_time", 32, 1000, 100, 10000},
    {"damping", 30, 50, 0, 100},
    {"diffusion", 31, 50, 0, 100},
    {"level", 33, 0, 3000, 10600},
    {"bypass", 57, 0, 0, 1},
};

void add(Rows& rows, const QString& prefix, quint8 view, int channel, int second,
         const Member& member)
{
    rows.push_back(
        {prefix + QLatin1String(member.name),
         {view, static_cast<quint8>(channel), static_cast<quint8>(second), member.number, 0},
         member.factory,
         member.minimum,
         member.maximum});
}

template <size_t N>
void addAll(Rows& rows, const QString& prefix, quint8 view, int channel, int second,
            const Member (&members)[N])
{
    for (const auto& member : members)
        add(rows, prefix, view, channel, second, member);
}

void addFaders(Rows& rows, const QString& channelName, int channel, bool hasSolo)
{
    const QString prefix = QStringLiteral("faderframe_%1_").arg(channelName);
    add(rows, prefix, 1, channel, 0, {"fader", 4, 3000, 3000, 10600});
    add(rows, prefix, 1, channel, 0, {"mute", 5, 0, 0, 1});
    if (hasSolo)
        add(rows, prefix, 1, channel, 0, {"solo", 6, 0, 0, 1});
}

void addStrip(Rows& rows, int channel)
{
    const QString prefix = QStringLiteral("channelstrip_ch%1_").arg(channel);
    Member ownTrim = trim;
    ownTrim.factory = channel <= 2 ? 0 : 16;
    add(rows, prefix, 2, channel, 0, ownTrim);
    addAll(rows, prefix, 2, channel, 0, filter);
    // A pair is told by its odd channel.
    if (channel % 2 == 1)
        add(rows, prefix, 2, channel, 0, {"stereo", 67, 0, 0, 1});
    addAll(rows, prefix, 2, channel, 0, processing);
    add(rows, prefix, 2, channel, 0, pan);
    for (int aux = 1; aux <= 3; ++aux)
        addAll(rows, prefix + QStringLiteral("aux%1_routing_").arg(aux), 2, channel, 9 + aux,
               sends);
}

Rows presetRows()
{
    Rows rows;
    for (int channel = 1; channel <= 8; ++channel)
        addFaders(rows, QStringLiteral("ch%1").arg(channel), channel, true);
    addFaders(rows, QStringLiteral("mains"), 9, false);
    for (int aux = 1; aux <= 3; ++aux)
        addFaders(rows, QStringLiteral("aux%1").arg(aux), 9 + aux, false);
    addFaders(rows, QStringLiteral("phones"), 13, false);
    for (int channel = 1; channel <= 8; ++channel)
        addStrip(rows, channel);
    addAll(rows, QStringLiteral("channelstrip_mains_"), 2, 9, 0, processing);
    add(rows, QStringLiteral("channelstrip_phones_"), 2, 13, 0, {"monitor_select", 34, 9, 0, 9});
    for (int channel = 1; channel <= 8; ++channel)
        add(rows, QStringLiteral("reverbtab_ch%1_").arg(channel), 3, channel, 0,
            {"send_level", 38, 3000, 3000, 10600});
    addAll(rows, QStringLiteral("reverbtab_"), 3, 0, 0, reverb);
    return rows;
}

void addSettings(Rows& rows)
{
    const auto setting = [&rows](const char* name, int channel, quint8 number, int factory,
                                 int maximum) {
        add(rows, {}, 6, channel, 0, {name, number, factory, 0, maximum});
    };
    setting("ch1_phantom", 1, 62, 0, 1);
    setting("ch2_phantom", 2, 62, 0, 1);
    setting("phantom_voltage", 0, 63, 1, 1);
    setting("ch3_line_phono", 3, 39, 1, 1);
    setting("ch4_line_phono", 4, 39, 1, 1);
    setting("ch5_line_phono", 5, 39, 1, 1);
    setting("ch6_line_phono", 6, 39, 1, 1);
    setting("ch7_line_phono", 7, 39, 1, 1);
    setting("ch8_line_phono", 8, 39, 1, 1);
    setting("hardware_limiter", 0, 52, 0, 1);
    setting("mode_backlighting_enable", 0, 53, 1, 1);
    setting("led_brightness", 0, 54, 16, 31);
    setting("tone_gen_enable", 0, 55, 0, 1);
    setting("tone_gen_freq", 0, 56, 440, 16383);
    setting("pass_thru_width", 0, 60, 0, 1);
    setting("pass_thru_rotaries", 0, 68, 0, 1);
    setting("phones_impedance", 13, 66, 1, 2);
    setting("expander_control", 0, 69, 0, 1);
}

void addSurround(Rows& rows)
{
    const QString prefix = QStringLiteral("surroundtab_");
    for (int rotary = 1; rotary <= 4; ++rotary) {
        const auto radius = static_cast<quint8>(38 + 2 * rotary);
        const auto angle = static_cast<quint8>(39 + 2 * rotary);
        const QString name = prefix + QStringLiteral("rotary%1_").arg(rotary);
        add(rows, name, 4, 0, 0, {"radius", radius, 63, 0, 127});
        add(rows, name, 4, 0, 0, {"angle", angle, 0, 0, 359});
    }
    for (int channel = 1; channel <= 8; ++channel)
        add(rows, prefix + QStringLiteral("ch%1_").arg(channel), 4, channel, 0,
            {"assign", 49, (channel - 1) / 2, 0, 3});
    add(rows, prefix, 4, 0, 0, {"format", 48, 1, 0, 3});
    add(rows, prefix, 4, 0, 0, {"enable", 0, 0, 0, 1});
    add(rows, prefix, 4, 0, 0, {"bass_management", 61, 39, 0, 127});
}

void addUsb(Rows& rows)
{
    for (int channel = 1; channel <= 8; ++channel) {
        const QString prefix = QStringLiteral("usbtab_ch%1_").arg(channel);
        add(rows, prefix, 7, channel, 0, {"input_prepost", 64, 0, 0, 1});
        add(rows, prefix, 7, channel, 0, {"output_prepost", 65, 0, 0, 1});
    }
}

void addMapping(Rows& rows, const QString& name, std::array<int, 4> address, int factory,
                int maximum = 127)
{
    const auto byte = [&address](size_t i) { return static_cast<quint8>(address[i]); };
    rows.push_back({QStringLiteral("miditab_") + name,
                    {5, byte(0), byte(1), byte(2), byte(3)},
                    factory,
                    0,
                    maximum});
}

void addBank(Rows& rows, int bank)
{
    const QString in = QStringLiteral("bank%1_").arg(bank);
    rows.push_back({QStringLiteral("miditab_") + in + QStringLiteral("channel"),
                    {5, 0, 0, static_cast<quint8>(bank), 0},
                    bank,
                    1,
                    16,
                    1});
    for (int n = 1; n <= 9; ++n) {
        addMapping(rows, QStringLiteral("fader%1_%2cc").arg(n).arg(in), {1, n, bank, 1}, n);
        addMapping(rows, QStringLiteral("select%1_%2note").arg(n).arg(in), {2, n, bank, 2}, n);
    }
    for (int n = 1; n <= 4; ++n)
        addMapping(rows, QStringLiteral("rotary%1_%2cc").arg(n).arg(in), {3, n, bank, 1}, 9 + n);
    for (int n = 1; n <= 15; ++n) {
        // Note 13 is the preset button's.
        const int note = n <= 3 ? n + 9 : n + 10;
        const auto name = QStringLiteral("button%1_%2note").arg(n, 2, 10, QChar(u'0')).arg(in);
        addMapping(rows, name, {4, n, bank, 2}, note);
    }
    addMapping(rows, QStringLiteral("presetbutton_%1note").arg(in), {5, 0, bank, 2}, 13);
    const QString diamond = QStringLiteral("diamond_") + in;
    addMapping(rows, diamond + QStringLiteral("left_note"), {6, 1, bank, 2}, 28);
    addMapping(rows, diamond + QStringLiteral("up_note"), {6, 2, bank, 2}, 26);
    addMapping(rows, diamond + QStringLiteral("right_note"), {6, 3, bank, 2}, 29);
    addMapping(rows, diamond + QStringLiteral("down_note"), {6, 4, bank, 2}, 27);
}

Rows globalRows()
{
    Rows rows;
    addSettings(rows);
    addSurround(rows);
    addUsb(rows);
    for (int bank = 1; bank <= 3; ++bank)
        addBank(rows, bank);
    for (int n = 1; n <= 9; ++n)
        addMapping(rows, QStringLiteral("select%1_toggle").arg(n), {2, n, 0, 3}, 0, 1);
    for (int n = 1; n <= 15; ++n)
        addMapping(rows, QStringLiteral("button%1_toggle").arg(n, 2, 10, QChar(u'0')), {4, n, 0, 3},
                   0, 1);
    addMapping(rows, QStringLiteral("presetbutton_toggle"), {5, 0, 0, 3}, 0, 1);
    addMapping(rows, QStringLiteral("diamond_toggle"), {6, 0, 0, 3}, 0, 1);
    return rows;
}

} // namespace

const ParameterTable& presetTable()
{
    static const ParameterTable table(presetRows());
    return table;
}

const ParameterTable& globalTable()
{
    static const ParameterTable table(globalRows());
    return table;
}
