#include "globalcodec.h"
#include "midimappingcodec.h"
#include "presetcodec.h"
#include "testcase.h"

#include <climits>

// Payloads are written as hex text here.
namespace
{

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

// What is sent of a parameter; empty if nothing is.
QByteArray encoded(bool preset, const QString& name, int value)
{
    const auto result = preset ? sysex::encodePresetParameter(name, value)
                               : sysex::encodeGlobalParameter(name, value);
    return result.payload ? hexOf(*result.payload) : QByteArray();
}

// What is emitted for a payload, as "view name value"; empty if nothing is.
QString decoded(bool preset, const QByteArray& hex)
{
    const auto result = preset ? sysex::decodePresetParameter(payloadOf(hex))
                               : sysex::decodeGlobalParameter(payloadOf(hex));
    if (result.view == sysex::View::None)
        return {};
    return QStringLiteral("%1 %2 %3")
        .arg(static_cast<int>(result.view))
        .arg(result.name)
        .arg(result.value);
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
            count += decode(payload).view != sysex::View::None;
        }
        counts.append(count);
    }
    return counts;
}

} // namespace

// The preset, the global and the MIDI mapping parameters: names to payloads and back. Here is one
// of each kind; all of them go to the simulated mixer and back end to end.
class TestParameterCodecs : public TestCase
{
    Q_OBJECT

private slots:
    void keys_data()
    {
        QTest::addColumn<QByteArray>("hex");
        const auto row = [](const char* name, const char* hex) {
            QTest::newRow(name) << QByteArray(hex);
        };
        row("faderframe_ch1_fader", "01 01 00 04 4e 10");
        row("faderframe_mains_mute", "01 09 00 05 4e 10");
        row("faderframe_ch8_solo", "01 08 00 06 4e 10");
        row("channelstrip_ch3_stereo", "02 03 00 43 4e 10");
        row("channelstrip_ch2_trim", "02 02 00 01 4e 10");
        row("channelstrip_mains_eq_mid_q", "02 09 00 0f 4e 10");
        row("channelstrip_ch1_aux3_routing_send_level", "02 01 0c 26 4e 10");
        row("channelstrip_phones_monitor_select", "02 0d 00 22 4e 10");
        row("reverbtab_ch8_send_level", "03 08 00 26 4e 10");
        row("reverbtab_decay_time", "03 00 00 20 4e 10");
        row("ch2_phantom", "06 02 00 3e 00 64");
        row("phones_impedance", "06 0d 00 42 00 64");
        row("tone_gen_freq", "06 00 00 38 00 64");
        row("surroundtab_rotary4_angle", "04 00 00 2f 00 64");
        row("surroundtab_ch8_assign", "04 08 00 31 00 64");
        row("usbtab_ch1_output_prepost", "07 01 00 41 00 64");
        // A bank's channel goes out, and comes back, one lower.
        row("miditab_bank3_channel", "05 00 00 03 00 63");
        row("miditab_fader9_bank2_cc", "05 01 09 02 01 64");
        row("miditab_button15_bank1_note", "05 04 0f 01 02 64");
        row("miditab_select9_toggle", "05 02 09 00 03 64");
        row("miditab_presetbutton_bank3_note", "05 05 00 03 02 64");
        row("miditab_diamond_bank2_right_note", "05 06 03 02 02 64");
    }
    void keys()
    {
        QFETCH(QByteArray, hex);
        const QString name = QTest::currentDataTag();
        const bool preset = hex.endsWith("10");
        QCOMPARE(encoded(preset, name, preset ? 10000 : 100), hex);
        const char* value = preset ? " 10000" : hex.endsWith("63") ? " 99" : " 100";
        QCOMPARE(decoded(preset, hex), hex.mid(1, 1) + ' ' + name + value);
    }

    void oddNames()
    {
        const QByteArray endless = "channelstrip" + QByteArray("_ch1").repeated(1 << 18) + "_pan";
        for (const auto& [name, hex] :
             {std::pair("channelstrip_ch1_aux2_aux2_routing_routing_pan", "02 01 0b 03 00 01"),
              {"channelstrip_ch1_phones_pan", "02 01 00 ff 00 01"}, // phones are no target
              {"channelstrip_ch\u0661_pan", "02 ff 00 03 00 01"},
              {"channelstrip_ch1_phantom", ""},
              {endless.constData(), "02 01 00 03 00 01"},
              {"Channelstrip_ch1_pan", ""}})
            QCOMPARE(encoded(true, name, 1), hex);
        for (const auto& [name, hex] :
             {std::pair("miditab_surroundtab_enable", "04 00 00 ff 00 01"), // surround goes first
              {"", "06 00 00 ff 00 01"},
              {"hardwarenone_limiter", "06 00 00 34 00 01"},
              {"miditab_button99_bank9_note", "05 04 63 09 02 01"}, // numbers have no range
              // The first direction and the first message type of their lists.
              {"miditab_diamond_bank1_up_left_note", "05 06 01 01 02 01"},
              {"miditab_fader1_bank1_notecc", "05 01 01 01 01 01"},
              {"miditab_", ""},
              {"miditab_fader_bank1_cc", ""},
              {"miditab_button1_bank1_note", ""},
              {"miditab_fader\u0661_bank1_cc", ""}})
            QCOMPARE(encoded(false, name, 1), hex);
    }

    // None is refused: the sign is lost, what 15 bits can't hold is cut.
    void oddValues()
    {
        QCOMPARE(encoded(false, "miditab_fader1_bank1_cc", 511), "05 01 01 01 01 ff"); // not masked
        QCOMPARE(encoded(false, "miditab_bank1_channel", INT_MIN), "05 00 00 01 00 ff");
        for (const auto& [value, bytes] :
             {std::pair(300, "02 2c"), {-1, "ff 7f"}, {40000, "38 40"}, {INT_MIN, "00 00"}})
            QCOMPARE(encoded(false, "ch1_phantom", value), QByteArray("06 01 00 3e ") + bytes);
        QCOMPARE(decoded(false, "06 01 7f 3e ff 7f"), "6 ch1_phantom 32767");
    }

    void messages()
    {
        for (const auto& [hex, result] :
             {std::pair("02 09 0a 03 00 01", "2 channelstrip_mains_aux1_pan 1"),
              {"02 01 0d 03 00 01", "2 channelstrip_ch1_phones_pan 1"},
              {"02 01 0a 0e 00 01", "2 channelstrip_ch1_aux1_routingEMPTY 1"},
              {"ff ff ff ff ff ff", ""}})
            QCOMPARE(decoded(true, hex), result);
        for (const auto& [hex, result] : {std::pair("06 00 00 04 00 01", "6 _fader 1"),
                                          {"05 00 05 00 03 01", "5 miditab_toggle 1"},
                                          {"05 01 0c 02 01 03", "5 miditab_fader12_bank2_cc 3"},
                                          {"05 06 09 00 03 01", "5 miditab_diamond_toggle 1"},
                                          {"05 02 03 01 00 01", ""},
                                          {"05 07 ff ff 00 09", ""}})
            QCOMPARE(decoded(false, hex), result);
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
