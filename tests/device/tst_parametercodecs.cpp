#include "globalcodec.h"
#include "presetcodec.h"
#include "testcase.h"

#include <climits>

// Payloads are written as hex text here.
namespace
{

// What is sent of a parameter; empty if nothing is.
QByteArray encoded(bool preset, const QString& name, int value)
{
    const auto result = preset ? sysex::encodePresetParameter(name, value)
                               : sysex::encodeGlobalParameter(name, value);
    if (!result.payload)
        return {};
    return QByteArray(reinterpret_cast<const char*>(result.payload->data()), 6).toHex(' ');
}

// What is emitted for a payload, as "view name value"; empty if nothing is.
QString decoded(bool preset, const QByteArray& hex)
{
    const QByteArray bytes = QByteArray::fromHex(hex);
    sysex::Payload payload{};
    std::copy_n(bytes.begin(), 6, payload.begin());
    const auto result =
        preset ? sysex::decodePresetParameter(payload) : sysex::decodeGlobalParameter(payload);
    if (result.view == sysex::View::None)
        return {};
    return QStringLiteral("%1 %2 %3")
        .arg(static_cast<int>(result.view))
        .arg(result.name)
        .arg(result.value);
}

} // namespace

// The preset, the global and the MIDI mapping parameters: names to payloads and back. All that the
// mixer has go to the simulated one and back end to end; here is what it would not tell of.
class TestParameterCodecs : public TestCase
{
    Q_OBJECT

private slots:
    void names()
    {
        const QByteArray endless = "channelstrip" + QByteArray("_ch1").repeated(1 << 18) + "_pan";
        for (const auto& [name, hex] :
             {std::pair("faderframe_mains_mute", "01 09 00 05 00 01"),
              {"channelstrip_ch1_aux3_routing_send_level", "02 01 0c 26 00 01"},
              {"channelstrip_ch1_aux2_aux2_routing_routing_pan", "02 01 0b 03 00 01"},
              {"channelstrip_ch1_phones_pan", "02 01 00 ff 00 01"}, // phones are no target
              {"channelstrip_ch\u0661_pan", "02 ff 00 03 00 01"},
              {"channelstrip_ch1_phantom", ""},
              {endless.constData(), "02 01 00 03 00 01"},
              {"Channelstrip_ch1_pan", ""}})
            QCOMPARE(encoded(true, name, 1), hex);
        for (const auto& [name, hex] :
             {std::pair("surroundtab_rotary4_angle", "04 00 00 2f 00 01"),
              {"miditab_bank3_channel", "05 00 00 03 00 00"}, // goes out one lower
              {"miditab_diamond_bank2_right_note", "05 06 03 02 02 01"},
              {"miditab_surroundtab_enable", "04 00 00 ff 00 01"}, // surround goes first
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
};

QTEST_APPLESS_MAIN(TestParameterCodecs)
#include "tst_parametercodecs.moc"
