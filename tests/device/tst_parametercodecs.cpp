#include "globalcodec.h"
#include "midimappingcodec.h"
#include "presetcodec.h"
#include "testcase.h"

#include <QSet>

#include <climits>

// Payloads are written as hex text here, and debug lines as qDebug() prints them.
namespace
{

using Parts = QList<std::pair<const char*, int>>;

const Parts inputs{{"_ch1", 1}, {"_ch2", 2}, {"_ch3", 3}, {"_ch4", 4},
                   {"_ch5", 5}, {"_ch6", 6}, {"_ch7", 7}, {"_ch8", 8}};
const Parts mains{{"_mains", 9}};
const Parts auxes{{"_aux1", 10}, {"_aux2", 11}, {"_aux3", 12}};
const Parts phones{{"_phones", 13}};
const Parts none{{"", 0}};

const Parts stripParameters{
    {"_eq_bypass", 0x23},         {"_eq_hi_freq", 0x10},       {"_eq_hi_gain", 0x0C},
    {"_eq_low_freq", 0x0D},       {"_eq_low_gain", 0x09},      {"_eq_mid_freq", 0x0B},
    {"_eq_mid_gain", 0x0A},       {"_eq_mid_q", 0x0F},         {"_compressor_bypass", 0x24},
    {"_compressor_attack", 0x17}, {"_compressor_gain", 0x14},  {"_compressor_release", 0x13},
    {"_compressor_thresh", 0x11}, {"_compressor_ratio", 0x12}, {"_gate_bypass", 0x25},
    {"_gate_attack", 0x1A},       {"_gate_gain", 0x1C},        {"_gate_release", 0x1B},
    {"_gate_thresh", 0x19},
};
const Parts inputParameters{
    {"_trim", 0x01}, {"_highPass_freq", 0x33}, {"_highPass_bypass", 0x32}, {"_pan", 0x03}};
const Parts routingParameters{
    {"_routing_pan", 0x03}, {"_routing_pre_post", 0x02}, {"_routing_send_level", 0x26}};
const Parts reverbParameters{
    {"_pre_post", 0x02},  {"_pre_delay", 0x1D}, {"_decay_time", 0x20}, {"_damping", 0x1E},
    {"_diffusion", 0x1F}, {"_level", 0x21},     {"_bypass", 0x39},
};

QByteArray hexOf(const sysex::Payload& payload)
{
    return QByteArray(reinterpret_cast<const char*>(payload.data()), 6).toHex(' ');
}

sysex::Payload payloadOf(const QByteArray& hex)
{
    const QByteArray bytes = QByteArray::fromHex(hex);
    sysex::Payload payload{};
    std::copy_n(bytes.begin(), 6, payload.begin());
    return payload;
}

// The lines, and before them what there is to send or, as "view name value", to emit.
template <typename Result> QStringList told(const Result& result)
{
    QStringList texts;
    if constexpr (std::is_same_v<Result, sysex::Encoded>) {
        if (result.payload)
            texts.append(hexOf(*result.payload));
    } else if (result.view != sysex::View::None) {
        texts.append(QStringLiteral("%1 %2 %3")
                         .arg(static_cast<int>(result.view))
                         .arg(result.name)
                         .arg(result.value));
    }
    for (const auto& line : result.lines) {
        QString text;
        QDebug(&text) << line;
        texts.append(text.trimmed());
    }
    return texts;
}

// How many of the 256 values at each place of the payload give something to emit.
template <typename Decode> QList<int> acceptedAtEachPlace(const QByteArray& hex, Decode decode)
{
    QList<int> counts;
    for (std::size_t place = 0; place < 6; ++place) {
        auto payload = payloadOf(hex);
        int count = 0;
        for (int byte = 0; byte <= 0xFF; ++byte) {
            payload[place] = static_cast<std::uint8_t>(byte);
            const auto decoded = decode(payload);
            if (decoded.view == sysex::View::None && decoded.lines.isEmpty())
                qFatal("dropped without a line: %s", hexOf(payload).constData());
            count += decoded.view != sysex::View::None;
        }
        counts.append(count);
    }
    return counts;
}

} // namespace

// The preset, the global and the MIDI mapping parameters: names to payloads and back.
class TestParameterCodecs : public TestCase
{
    Q_OBJECT

private:
    QSet<QByteArray> names;
    bool ofPresets = false; // which codec the next rows are for

    static void addColumns()
    {
        QTest::addColumn<bool>("preset");
        QTest::addColumn<QByteArray>("input");
        QTest::addColumn<QStringList>("result");
    }
    void addRow(const QByteArray& input, const QStringList& result) const
    {
        QTest::addRow("%s%s", ofPresets ? "" : "global ", input.left(60).constData())
            << ofPresets << input << result;
    }
    void addKey(const QByteArray& name, const QByteArray& hex)
    {
        names.insert(name);
        addRow(name, {hex});
    }
    // Names whose numbers "N" follow each other.
    void addInOrder(const QByteArray& hex, int first, const QList<QByteArray>& inOrder)
    {
        for (int i = 0; i < inOrder.size(); ++i)
            addKey(inOrder[i], QByteArray(hex).replace("N", QByteArray::number(first + i, 16)));
    }
    // Each number stands for the "#" of the name and the "N" of the bytes.
    void addNumbered(const QByteArray& name, int first, int last, const QByteArray& hex,
                     int digits = 1)
    {
        for (int number = first; number <= last; ++number) {
            const auto shown = QByteArray::number(number).rightJustified(digits, '0');
            const auto byte = QByteArray::number(number, 16).rightJustified(2, '0');
            addKey(QByteArray(name).replace("#", shown), QByteArray(hex).replace("N", byte));
        }
    }

    static QStringList encoded(bool preset, const QString& name, int value)
    {
        return told(preset ? sysex::encodePresetParameter(name, value)
                           : sysex::encodeGlobalParameter(name, value));
    }
    static QStringList decoded(bool preset, const QByteArray& hex)
    {
        const auto payload = payloadOf(hex);
        return told(preset ? sysex::decodePresetParameter(payload)
                           : sysex::decodeGlobalParameter(payload));
    }

    void addPresetKeys()
    {
        const auto keys = [this](const QByteArray& view, char viewId, const Parts& channels,
                                 const Parts& targets, const Parts& parameters) {
            for (const auto& [channel, channelId] : channels) {
                for (const auto& [target, targetId] : targets) {
                    for (const auto& [parameter, parameterId] : parameters) {
                        const QByteArray name = view + channel + target + parameter;
                        const char bytes[]{
                            viewId, char(channelId), char(targetId), char(parameterId), 0x4E, 0x10};
                        addKey(name, QByteArray(bytes, 6).toHex(' '));
                    }
                }
            }
        };
        keys("faderframe", 1, inputs + mains + auxes + phones, none,
             {{"_fader", 0x04}, {"_mute", 0x05}});
        keys("faderframe", 1, inputs, none, {{"_solo", 0x06}});
        keys("channelstrip", 2, {inputs[0], inputs[2], inputs[4], inputs[6]}, none,
             {{"_stereo", 0x43}});
        keys("channelstrip", 2, inputs, none, inputParameters);
        keys("channelstrip", 2, inputs + mains, none, stripParameters);
        keys("channelstrip", 2, inputs, auxes, routingParameters);
        keys("channelstrip", 2, phones, none, {{"_monitor_select", 0x22}});
        keys("reverbtab", 3, inputs, none, {{"_send_level", 0x26}});
        keys("reverbtab", 3, none, none, reverbParameters);
    }

    void addGlobalKeys()
    {
        addNumbered("ch#_phantom", 1, 2, "06 N 00 3e 00 64");
        addNumbered("ch#_line_phono", 3, 8, "06 N 00 27 00 64");
        addKey("phones_impedance", "06 0d 00 42 00 64");
        addKey("phantom_voltage", "06 00 00 3f 00 64");
        addInOrder("06 00 00 N 00 64", 0x34,
                   {"hardware_limiter", "mode_backlighting_enable", "led_brightness",
                    "tone_gen_enable", "tone_gen_freq"});
        addKey("pass_thru_width", "06 00 00 3c 00 64");
        addKey("pass_thru_rotaries", "06 00 00 44 00 64");
        addKey("expander_control", "06 00 00 45 00 64");
        addInOrder("04 00 00 N 00 64", 0x28,
                   {"surroundtab_rotary1_radius", "surroundtab_rotary1_angle",
                    "surroundtab_rotary2_radius", "surroundtab_rotary2_angle",
                    "surroundtab_rotary3_radius", "surroundtab_rotary3_angle",
                    "surroundtab_rotary4_radius", "surroundtab_rotary4_angle"});
        addNumbered("surroundtab_ch#_assign", 1, 8, "04 N 00 31 00 64");
        addKey("surroundtab_format", "04 00 00 30 00 64");
        addKey("surroundtab_enable", "04 00 00 00 00 64");
        addKey("surroundtab_bass_management", "04 00 00 3d 00 64");
        addNumbered("usbtab_ch#_input_prepost", 1, 8, "07 N 00 40 00 64");
        addNumbered("usbtab_ch#_output_prepost", 1, 8, "07 N 00 41 00 64");

        // A bank's channel goes out, and comes back, one lower.
        addNumbered("miditab_bank#_channel", 1, 3, "05 00 00 N 00 63");
        for (const QByteArray bank : {"1", "2", "3"}) {
            const auto banked = [&](QByteArray name, int last, QByteArray hex, int digits = 1) {
                addNumbered(name.replace('B', bank), 1, last, hex.replace('B', bank), digits);
            };
            banked("miditab_fader#_bankB_cc", 9, "05 01 N 0B 01 64");
            banked("miditab_select#_bankB_note", 9, "05 02 N 0B 02 64");
            banked("miditab_rotary#_bankB_cc", 4, "05 03 N 0B 01 64");
            banked("miditab_button#_bankB_note", 15, "05 04 N 0B 02 64", 2);
        }
        addNumbered("miditab_select#_toggle", 1, 9, "05 02 N 00 03 64");
        addNumbered("miditab_button#_toggle", 1, 15, "05 04 N 00 03 64", 2);
        addNumbered("miditab_presetbutton_bank#_note", 1, 3, "05 05 00 N 02 64");
        addKey("miditab_presetbutton_toggle", "05 05 00 00 03 64");
        addNumbered("miditab_diamond_bank#_left_note", 1, 3, "05 06 01 N 02 64");
        addNumbered("miditab_diamond_bank#_up_note", 1, 3, "05 06 02 N 02 64");
        addNumbered("miditab_diamond_bank#_right_note", 1, 3, "05 06 03 N 02 64");
        addNumbered("miditab_diamond_bank#_down_note", 1, 3, "05 06 04 N 02 64");
        addKey("miditab_diamond_toggle", "05 06 00 00 03 64");
    }

private slots:
    void keys_data()
    {
        addColumns();
        names.clear();
        ofPresets = true;
        addPresetKeys();
        QCOMPARE(names.size(), 329);
        ofPresets = false;
        addGlobalKeys();
        QCOMPARE(names.size(), 329 + 208);
    }
    void keys()
    {
        QFETCH(bool, preset);
        QFETCH(QByteArray, input);
        QFETCH(QStringList, result);
        const QByteArray hex = result.first().toLatin1();
        QCOMPARE(encoded(preset, input, preset ? 10000 : 100).first(), hex);
        const char* value = preset ? " 10000" : hex.endsWith("63") ? " 99" : " 100";
        QCOMPARE(decoded(preset, hex), QStringList{hex.mid(1, 1) + ' ' + input + value});
    }

    void oddNames_data()
    {
        addColumns();
        ofPresets = true;
        addRow("x_faderframe_ch1_fader", {"01 00 00 ff 00 01"});
        addRow("reverbtab_faderframe_level", {"01 00 00 ff 00 01"}); // first of the list wins
        addRow("channelstrip_ch1_aux2_aux2_routing_routing_pan", {"02 01 0b 03 00 01"});
        addRow("channelstrip_ch1_phones_pan", {"02 01 00 ff 00 01"}); // phones are no target
        addRow("faderframe_ch1_aux1_fader", {"01 01 00 ff 00 01"});   // targets only in a strip
        addRow("reverbtab_levelnone", {"03 00 00 21 00 01"});
        addRow("channelstrip_ch\u0661_pan", {"02 ff 00 03 00 01"});
        addRow("faderframe_ch", {"01 ff 00 ff 00 01"});
        addRow("faderframe_ch1_phantom", {"01 01 00 3e 00 01"});
        addRow("channelstrip_ch1_phantom", {});
        addRow("channelstrip" + QByteArray("_ch1").repeated(1 << 18) + "_pan",
               {"02 01 00 03 00 01"});
        for (const char* name : {"", "faderframe", "Channelstrip_ch1_pan"}) {
            const QString line = "preset parameter not sent - no view in its name \"%1\"";
            addRow(name, {line.arg(name)});
        }

        ofPresets = false;
        addRow("miditab_surroundtab_enable", {"04 00 00 ff 00 01"}); // surround goes first
        addRow("usbtab_ch", {"07 ff 00 ff 00 01"});
        addRow("", {"06 00 00 ff 00 01"});
        addRow("ch", {"06 ff 00 ff 00 01"});
        addRow("ch9_phantom", {"06 ff 00 3e 00 01"});
        addRow("hardwarenone_limiter", {"06 00 00 34 00 01"});
        addRow(QByteArray("none").repeated(1 << 18), {"06 00 00 ff 00 01"});

        addRow("miditab_button99_bank9_note", {"05 04 63 09 02 01"});  // numbers have no range
        addRow("miditab_select1_bank2_toggle", {"05 02 01 00 03 01"}); // toggles have no bank
        // The first direction and the first message type of their lists.
        addRow("miditab_diamond_bank1_up_left_note", {"05 06 01 01 02 01"});
        addRow("miditab_fader1_bank1_notecc", {"05 01 01 01 01 01"});
        addRow("miditab_presetbutton_bank1_channel", {"05 05 00 01 00 00"});
        for (const QByteArray name :
             {"miditab_", "miditab_usbtab_bank1_cc", "miditab_fader", "miditab_fader1",
              "miditab_fader1_bank", "miditab_fader1_bank1_", "miditab_fader_bank1_cc",
              "miditab_fader12_bank1_cc", "xmiditab_fader1_bank1_cc", "miditab_button1",
              "miditab_button1_bank1_note", "miditab_presetbutton_note",
              "miditab_diamond_bank1_note", "miditab_diamond_left_note", "miditab_bank1",
              "miditab_fader\u0661_bank1_cc"}) {
            addRow(name, {"midi parameter output error \"" + name + '"'});
        }
    }
    void oddNames()
    {
        QFETCH(bool, preset);
        QFETCH(QByteArray, input);
        QFETCH(QStringList, result);
        QCOMPARE(encoded(preset, QString::fromUtf8(input), 1).value(0), result.value(0));
    }

    void valuesAndLines()
    {
        const auto sent = [](const char* name, int value) {
            return told(sysex::encodeGlobalParameter(QString(name), value)).join(", ");
        };
        QCOMPARE(sent("miditab_fader1_bank1_cc", 511), "05 01 01 01 01 ff"); // not masked
        QCOMPARE(sent("miditab_bank1_channel", INT_MIN), "05 00 00 01 00 ff");
        QCOMPARE(sent("ch1_phantom", 300),
                 "06 01 00 3e 02 2c, syx: send settings param:  6 1 62, syx send:  6 1 0 62 2 44");
        QCOMPARE(sent("usbtab_ch2_input_prepost", -1),
                 "07 02 00 40 ff 7f, syx send:  7 2 0 64 255 127");
    }

    void messages_data()
    {
        addColumns();
        ofPresets = true;
        QString view = "invalid preset viewType sysex message ";
        QString channel = "invalid preset channelID sysex message";
        const QString secondary = "invalid preset secondaryChannelId sysex message ";
        QString parameter = "invalid preset parameterID sysex message";
        addRow("02 09 0a 03 00 01", {"2 channelstrip_mains_aux1_pan 1"});
        addRow("02 01 0d 03 00 01", {"2 channelstrip_ch1_phones_pan 1"});
        addRow("02 01 0a 0e 00 01", {"2 channelstrip_ch1_aux1_routingEMPTY 1"});

        addRow("00 00 ff 04 00 01", {view + "0"}); // no target is read beside channel 0
        addRow("01 0e 0e 04 00 01", {channel});
        addRow("01 01 0e 04 00 01", {secondary + "14"});
        addRow("ff 01 ff ff 00 01", {view + "255", secondary + "255", parameter});
        addRow("ff ff ff ff ff ff", {view + "255", channel, parameter});

        ofPresets = false;
        view = "invalid global viewType sysex message ";
        channel = "invalid global channel ID sysex message ";
        parameter = "invalid global parameter ID sysex message ";
        addRow("04 0d 00 42 00 01", {"4 surroundtab_phones_impedance 1"});
        addRow("06 00 00 04 00 01", {"6 _fader 1"});
        addRow("06 01 7f 3e ff 7f", {"6 ch1_phantom 32767"});
        addRow("03 0d 00 05 00 01", {view + "3"});
        addRow("08 01 00 05 00 01", {view + "8", view + "8"});
        addRow("06 ff 00 46 00 01", {channel + "255", parameter + "70", view + "0"});

        const QString number = "invalid global midi ctrl type number sysex";
        const QString toggles = "invalid global midi sysex: probably bad toggles ";
        addRow("05 00 05 00 03 01", {"5 miditab_toggle 1"});
        addRow("05 01 0c 02 01 03", {"5 miditab_fader12_bank2_cc 3"});
        addRow("05 06 09 00 03 01", {"5 miditab_diamond_toggle 1"});
        addRow("05 01 10 04 04 01", {number});
        addRow("05 01 01 04 04 01", {"invalid global midi bank number sysex"});
        addRow("05 01 01 01 04 01", {"invalid global midi message type sysex"});
        addRow("05 02 03 00 02 01", {toggles + "2 3 0 2 1"});
        addRow("05 02 03 01 00 01", {toggles + "2 3 1 0 1"});
        addRow("05 01 10 00 01 7f", {number, toggles + "1 16 0 1 127"});
        addRow("05 07 ff ff 00 09",
               {"invalad global midi ctrl type sysex", toggles + "7 255 255 0 9"});
        addRow("05 06 05 01 01 01", {number});
        addRow("05 06 05 00 02 01", {toggles + "6 5 0 2 1"});
    }
    void messages()
    {
        QFETCH(bool, preset);
        QFETCH(QByteArray, input);
        QTEST(decoded(preset, input), "result");
    }

    void everyByte()
    {
        QCOMPARE(acceptedAtEachPlace("02 01 0a 03 00 01", sysex::decodePresetParameter),
                 (QList<int>{3, 14, 14, 70, 256, 256}));
        const auto accepted = [](const char* hex) {
            return acceptedAtEachPlace(hex, sysex::decodeGlobalParameter);
        };
        QCOMPARE(accepted("04 01 00 31 00 01"), (QList<int>{3, 14, 256, 70, 256, 256}));
        QCOMPARE(accepted("05 01 01 01 01 01"), (QList<int>{4, 7, 16, 3, 3, 256}));
        QCOMPARE(accepted("05 06 01 01 02 01"), (QList<int>{4, 7, 4, 3, 3, 256}));
    }

    // The fields may come as whole ints too.
    void mappingFieldsBeyondBytes()
    {
        for (const int bad : {INT_MIN, -1, 256, INT_MAX}) {
            for (std::size_t place = 0; place < 4; ++place) {
                std::array<int, 4> fields{6, 1, 1, 2};
                fields[place] = bad;
                const auto [type, number, bank, message] = fields;
                QVERIFY(sysex::decodeMidiMapping(type, number, bank, message, 1).name.isEmpty());
            }
        }
    }
};

QTEST_APPLESS_MAIN(TestParameterCodecs)
#include "tst_parametercodecs.moc"
