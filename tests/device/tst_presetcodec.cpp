#include "codectest.h"
#include "presetcodec.h"
#include "testcase.h"

#include <QSet>

#include <climits>

namespace
{

struct Part {
    const char* text;
    int id;
};

const QList<Part> inputs{{"_ch1", 1}, {"_ch2", 2}, {"_ch3", 3}, {"_ch4", 4},
                         {"_ch5", 5}, {"_ch6", 6}, {"_ch7", 7}, {"_ch8", 8}};
const QList<Part> auxes{{"_aux1", 10}, {"_aux2", 11}, {"_aux3", 12}};
const Part mains{"_mains", 9};
const Part phones{"_phones", 13};

const QList<Part> stripParameters{
    {"_eq_bypass", 0x23},         {"_eq_hi_freq", 0x10},       {"_eq_hi_gain", 0x0C},
    {"_eq_low_freq", 0x0D},       {"_eq_low_gain", 0x09},      {"_eq_mid_freq", 0x0B},
    {"_eq_mid_gain", 0x0A},       {"_eq_mid_q", 0x0F},         {"_compressor_bypass", 0x24},
    {"_compressor_attack", 0x17}, {"_compressor_gain", 0x14},  {"_compressor_release", 0x13},
    {"_compressor_thresh", 0x11}, {"_compressor_ratio", 0x12}, {"_gate_bypass", 0x25},
    {"_gate_attack", 0x1A},       {"_gate_gain", 0x1C},        {"_gate_release", 0x1B},
    {"_gate_thresh", 0x19},
};
const QList<Part> inputParameters{
    {"_trim", 0x01}, {"_highPass_freq", 0x33}, {"_highPass_bypass", 0x32}, {"_pan", 0x03}};
const QList<Part> routingParameters{
    {"_routing_pan", 0x03}, {"_routing_pre_post", 0x02}, {"_routing_send_level", 0x26}};
const QList<Part> reverbParameters{
    {"_pre_post", 0x02},  {"_pre_delay", 0x1D}, {"_decay_time", 0x20}, {"_damping", 0x1E},
    {"_diffusion", 0x1F}, {"_level", 0x21},     {"_bypass", 0x39},
};

} // namespace

class TestPresetCodec : public TestCase
{
    Q_OBJECT

private slots:
    void keys_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QByteArray>("hex");
        QSet<QString> names;
        const auto key = [&names](const char* view, int viewId, Part channel, Part parameter,
                                  Part secondary = {"", 0}) {
            const auto name = QLatin1String(view) + channel.text + secondary.text + parameter.text;
            names.insert(name);
            const char bytes[]{static_cast<char>(viewId),
                               static_cast<char>(channel.id),
                               static_cast<char>(secondary.id),
                               static_cast<char>(parameter.id),
                               0x4E,
                               0x10};
            QTest::newRow(qPrintable(name)) << name << QByteArray(bytes, 6).toHex(' ');
        };

        for (const auto& channel : inputs + auxes + QList{mains, phones}) {
            key("faderframe", 1, channel, {"_fader", 0x04});
            key("faderframe", 1, channel, {"_mute", 0x05});
        }
        for (const auto& channel : inputs) {
            key("faderframe", 1, channel, {"_solo", 0x06});
            if (channel.id % 2 == 1)
                key("channelstrip", 2, channel, {"_stereo", 0x43});
            for (const auto& parameter : inputParameters + stripParameters)
                key("channelstrip", 2, channel, parameter);
            for (const auto& aux : auxes) {
                for (const auto& parameter : routingParameters)
                    key("channelstrip", 2, channel, parameter, aux);
            }
            key("reverbtab", 3, channel, {"_send_level", 0x26});
        }
        for (const auto& parameter : stripParameters)
            key("channelstrip", 2, mains, parameter);
        key("channelstrip", 2, phones, {"_monitor_select", 0x22});
        for (const auto& parameter : reverbParameters)
            key("reverbtab", 3, {"", 0}, parameter);
        QCOMPARE(names.size(), 329);
    }
    void keys()
    {
        QFETCH(QString, name);
        QFETCH(QByteArray, hex);
        QCOMPARE(hexOf(sysex::encodePresetParameter(name, 10000).payload), hex);
        const auto decoded = sysex::decodePresetParameter(payloadOf(hex));
        QCOMPARE(told(decoded), QStringList{hex.mid(1, 1) + ' ' + name.toLatin1() + " 10000"});
    }

    void oddNames_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QByteArray>("hex");
        const auto row = [](const char* title, const QString& name, const char* fields) {
            QTest::newRow(title) << name << QByteArray(fields) + " 00 01";
        };
        row("view word not first", "x_faderframe_ch1_fader", "01 00 00 ff");
        row("first view word of the list wins", "reverbtab_faderframe_level", "01 00 00 ff");
        row("channel twice", "channelstrip_ch1_ch1_pan", "02 01 00 03");
        row("all of it twice", "channelstrip_ch1_aux2_aux2_routing_routing_pan", "02 01 0b 03");
        row("an input as target", "channelstrip_ch1_ch2_pan", "02 01 02 03");
        row("mains as target", "channelstrip_aux1_mains_pan", "02 0a 09 03");
        row("phones are no target", "channelstrip_ch1_phones_pan", "02 01 00 ff");
        row("targets only in a strip", "faderframe_ch1_aux1_fader", "01 01 00 ff");
        row("\"none\" is removed", "reverbtab_levelnone", "03 00 00 21");
        row("no such channel", "channelstrip_ch9_pan", "02 ff 00 03");
        row("foreign digit", QStringLiteral(u"channelstrip_ch\u0661_pan"), "02 ff 00 03");
        row("channel cut short", "faderframe_ch", "01 ff 00 ff");
        row("nothing after the view", "reverbtab_", "03 00 00 ff");
        row("other case", "faderframe_ch1_Fader", "01 01 00 ff");
        row("reserved row, the first", "faderframe_ch1EMPTY", "01 01 00 0e");
        row("phantom power elsewhere", "faderframe_ch1_phantom", "01 01 00 3e");
        row("a megabyte", "channelstrip" + QStringLiteral("_ch1").repeated(1 << 18) + "_pan",
            "02 01 00 03");
    }
    void oddNames()
    {
        QFETCH(QString, name);
        const auto encoded = sysex::encodePresetParameter(name, 1);
        QTEST(hexOf(encoded.payload), "hex");
        QVERIFY(encoded.lines.isEmpty());
    }

    void droppedNames()
    {
        for (const char* name : {"", "preset_name", "faderframe", "Channelstrip_ch1_pan"}) {
            const auto encoded = sysex::encodePresetParameter(QLatin1String(name).toString(), 1);
            QVERIFY(!encoded.payload);
            QCOMPARE(
                printed(encoded.lines),
                QStringList{QStringLiteral("preset parameter not sent - no view in its name \"%1\"")
                                .arg(name)});
        }
        const auto phantom = sysex::encodePresetParameter(u"channelstrip_ch1_phantom", 1);
        QVERIFY(!phantom.payload && phantom.lines.isEmpty());
    }

    // None is refused.
    void values()
    {
        const QMap<int, QByteArray> bytes{{0, "00 00"},       {127, "00 7f"},    {128, "01 00"},
                                          {16383, "7f 7f"},   {32768, "00 00"},  {-1, "ff 7f"},
                                          {INT_MIN, "00 00"}, {INT_MAX, "ff 7f"}};
        for (auto row = bytes.begin(); row != bytes.end(); ++row) {
            const auto encoded = sysex::encodePresetParameter(u"faderframe_ch1_fader", row.key());
            QCOMPARE(hexOf(encoded.payload), "01 01 00 04 " + row.value());
        }
    }

    void messages_data()
    {
        QTest::addColumn<QByteArray>("hex");
        QTest::addColumn<QStringList>("result");
        const auto row = [](const char* hex, const QStringList& result) {
            QTest::newRow(hex) << QByteArray(hex) << result;
        };
        const QString view = "invalid preset viewType sysex message ";
        const QString channel = "invalid preset channelID sysex message";
        const QString secondary = "invalid preset secondaryChannelId sysex message ";
        const QString parameter = "invalid preset parameterID sysex message";

        row("02 09 0a 03 00 01", {"2 channelstrip_mains_aux1_pan 1"});
        row("02 01 02 03 00 01", {"2 channelstrip_ch1_ch2_pan 1"});
        row("01 01 0a 04 00 01", {"1 faderframe_ch1_aux1_fader 1"});
        row("02 01 0d 03 00 01", {"2 channelstrip_ch1_phones_pan 1"});
        row("01 00 00 04 00 01", {"1 faderframe_fader 1"});
        row("03 00 63 20 00 01", {"3 reverbtab_decay_time 1"});
        row("02 01 0a 0e 00 01", {"2 channelstrip_ch1_aux1_routingEMPTY 1"});
        row("01 01 00 04 ff ff", {"1 faderframe_ch1_fader 32767"});

        row("00 01 00 04 00 01", {view + "0"});
        row("04 01 00 04 00 01", {view + "4"});
        row("01 0e 0e 04 00 01", {channel});
        row("01 01 0e 04 00 01", {secondary + "14"});
        row("01 01 00 46 00 01", {parameter});
        row("ff 00 ff 00 00 01", {view + "255"});
        row("ff 01 ff ff 00 01", {view + "255", secondary + "255", parameter});
        row("ff ff ff ff ff ff", {view + "255", channel, parameter});
    }
    void messages()
    {
        QFETCH(QByteArray, hex);
        QTEST(told(sysex::decodePresetParameter(payloadOf(hex))), "result");
    }

    void everyByte()
    {
        const QList<int> accepted{3, 14, 14, 70, 256, 256};
        QCOMPARE(acceptedAtEachPlace("02 01 0a 03 00 01", sysex::decodePresetParameter), accepted);
    }
};

QTEST_APPLESS_MAIN(TestPresetCodec)
#include "tst_presetcodec.moc"
