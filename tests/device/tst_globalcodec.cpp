#include "codectest.h"
#include "globalcodec.h"
#include "midimappingcodec.h"
#include "testcase.h"

#include <QSet>

#include <climits>

class TestGlobalCodec : public TestCase
{
    Q_OBJECT

private:
    QSet<QString> names;

    // A row for each number: it stands for the "#" of the pattern and the "N" of the bytes. The
    // value is 100.
    void addKeys(const char* pattern, int first, int last, const QByteArray& bytes, int digits = 1)
    {
        for (int number = first; number <= last; ++number) {
            const auto digitsOf = QStringLiteral("%1").arg(number, digits, 10, QLatin1Char('0'));
            const auto name = QString(pattern).replace('#', digitsOf);
            auto hex = bytes;
            hex.replace("N", QByteArray::number(number, 16).rightJustified(2, '0'));
            names.insert(name);
            QTest::newRow(qPrintable(name)) << name << hex;
        }
    }

private slots:
    void keys_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QByteArray>("hex");
        names.clear();
        addKeys("ch#_phantom", 1, 2, "06 N 00 3e 00 64");
        addKeys("ch#_line_phono", 3, 8, "06 N 00 27 00 64");
        addKeys("phones_impedance", 1, 1, "06 0d 00 42 00 64");
        addKeys("phantom_voltage", 1, 1, "06 00 00 3f 00 64");
        addKeys("hardware_limiter", 1, 1, "06 00 00 34 00 64");
        addKeys("mode_backlighting_enable", 1, 1, "06 00 00 35 00 64");
        addKeys("led_brightness", 1, 1, "06 00 00 36 00 64");
        addKeys("tone_gen_enable", 1, 1, "06 00 00 37 00 64");
        addKeys("tone_gen_freq", 1, 1, "06 00 00 38 00 64");
        addKeys("pass_thru_width", 1, 1, "06 00 00 3c 00 64");
        addKeys("pass_thru_rotaries", 1, 1, "06 00 00 44 00 64");
        addKeys("expander_control", 1, 1, "06 00 00 45 00 64");
        addKeys("surroundtab_rotary1_radius", 1, 1, "04 00 00 28 00 64");
        addKeys("surroundtab_rotary1_angle", 1, 1, "04 00 00 29 00 64");
        addKeys("surroundtab_rotary2_radius", 1, 1, "04 00 00 2a 00 64");
        addKeys("surroundtab_rotary2_angle", 1, 1, "04 00 00 2b 00 64");
        addKeys("surroundtab_rotary3_radius", 1, 1, "04 00 00 2c 00 64");
        addKeys("surroundtab_rotary3_angle", 1, 1, "04 00 00 2d 00 64");
        addKeys("surroundtab_rotary4_radius", 1, 1, "04 00 00 2e 00 64");
        addKeys("surroundtab_rotary4_angle", 1, 1, "04 00 00 2f 00 64");
        addKeys("surroundtab_ch#_assign", 1, 8, "04 N 00 31 00 64");
        addKeys("surroundtab_format", 1, 1, "04 00 00 30 00 64");
        addKeys("surroundtab_enable", 1, 1, "04 00 00 00 00 64");
        addKeys("surroundtab_bass_management", 1, 1, "04 00 00 3d 00 64");
        addKeys("usbtab_ch#_input_prepost", 1, 8, "07 N 00 40 00 64");
        addKeys("usbtab_ch#_output_prepost", 1, 8, "07 N 00 41 00 64");

        // A bank's channel goes out, and comes back, one lower.
        addKeys("miditab_bank#_channel", 1, 3, "05 00 00 N 00 63");
        addKeys("miditab_fader#_bank1_cc", 1, 9, "05 01 N 01 01 64");
        addKeys("miditab_fader#_bank2_cc", 1, 9, "05 01 N 02 01 64");
        addKeys("miditab_fader#_bank3_cc", 1, 9, "05 01 N 03 01 64");
        addKeys("miditab_select#_bank1_note", 1, 9, "05 02 N 01 02 64");
        addKeys("miditab_select#_bank2_note", 1, 9, "05 02 N 02 02 64");
        addKeys("miditab_select#_bank3_note", 1, 9, "05 02 N 03 02 64");
        addKeys("miditab_select#_toggle", 1, 9, "05 02 N 00 03 64");
        addKeys("miditab_rotary#_bank1_cc", 1, 4, "05 03 N 01 01 64");
        addKeys("miditab_rotary#_bank2_cc", 1, 4, "05 03 N 02 01 64");
        addKeys("miditab_rotary#_bank3_cc", 1, 4, "05 03 N 03 01 64");
        addKeys("miditab_button#_bank1_note", 1, 15, "05 04 N 01 02 64", 2);
        addKeys("miditab_button#_bank2_note", 1, 15, "05 04 N 02 02 64", 2);
        addKeys("miditab_button#_bank3_note", 1, 15, "05 04 N 03 02 64", 2);
        addKeys("miditab_button#_toggle", 1, 15, "05 04 N 00 03 64", 2);
        addKeys("miditab_presetbutton_bank#_note", 1, 3, "05 05 00 N 02 64");
        addKeys("miditab_presetbutton_toggle", 1, 1, "05 05 00 00 03 64");
        addKeys("miditab_diamond_bank#_left_note", 1, 3, "05 06 01 N 02 64");
        addKeys("miditab_diamond_bank#_up_note", 1, 3, "05 06 02 N 02 64");
        addKeys("miditab_diamond_bank#_right_note", 1, 3, "05 06 03 N 02 64");
        addKeys("miditab_diamond_bank#_down_note", 1, 3, "05 06 04 N 02 64");
        addKeys("miditab_diamond_toggle", 1, 1, "05 06 00 00 03 64");
        QCOMPARE(names.size(), 208);
    }
    void keys()
    {
        QFETCH(QString, name);
        QFETCH(QByteArray, hex);
        QCOMPARE(hexOf(sysex::encodeGlobalParameter(name, 100).payload), hex);
        const auto value = hex.endsWith("63") ? " 99" : " 100";
        QCOMPARE(told(sysex::decodeGlobalParameter(payloadOf(hex))),
                 QStringList{hex.mid(1, 1) + ' ' + name.toLatin1() + value});
    }

    void oddNames_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<int>("value");
        QTest::addColumn<QByteArray>("hex");
        const auto row = [](const char* title, const QString& name, int value, const char* hex) {
            QTest::newRow(title) << name << value << QByteArray(hex);
        };
        row("surround goes before mapping", "miditab_surroundtab_enable", 1, "04 00 00 ff 00 01");
        row("mapping goes before USB", "miditab_usbtab_bank1_cc", 1, "nothing");
        row("surround of a bus", "surroundtab_aux1_fader", 1, "04 0a 00 04 00 01");
        row("nothing after the view", "surroundtab_", 1, "04 00 00 ff 00 01");
        row("USB of no input", "usbtab_mains", 1, "07 ff 00 ff 00 01");
        row("USB without a channel", "usbtab_input_prepost", 1, "07 ff 00 ff 00 01");
        row("USB, channel cut short", "usbtab_ch", 1, "07 ff 00 ff 00 01");
        row("USB, no such channel", "usbtab_ch9_input_prepost", 1, "07 ff 00 40 00 01");
        row("sample rate", "sample_rate", 1, "06 00 00 3a 00 01");
        row("bit depth", "bit_depth", 1, "06 00 00 3b 00 01");
        row("empty", "", 1, "06 00 00 ff 00 01");
        row("channel cut short", "ch", 1, "06 ff 00 ff 00 01");
        row("no such channel", "ch9_phantom", 1, "06 ff 00 3e 00 01");
        row("channel twice", "ch1_phantomch1", 1, "06 01 00 3e 00 01");
        row("\"none\" is removed", "hardwarenone_limiter", 1, "06 00 00 34 00 01");
        row("reserved row, the first", "EMPTY", 1, "06 00 00 0e 00 01");
        row("\"none\" alone", "none", 1, "06 00 00 ff 00 01");
        row("negative value", "led_brightness", -1, "06 00 00 36 ff 7f");
        row("a megabyte", QStringLiteral("none").repeated(1 << 18), 1, "06 00 00 ff 00 01");

        row("no range for numbers", "miditab_button99_bank9_note", 1, "05 04 63 09 02 01");
        row("toggles have no bank", "miditab_select1_bank2_toggle", 1, "05 02 01 00 03 01");
        row("first direction of the list", "miditab_diamond_bank1_up_left_note", 1,
            "05 06 01 01 02 01");
        row("channel of a control", "miditab_presetbutton_bank1_channel", 1, "05 05 00 01 00 00");
        row("first message type of the list", "miditab_fader1_bank1_notecc", 1,
            "05 01 01 01 01 01");
        row("unmasked value", "miditab_fader1_bank1_cc", 511, "05 01 01 01 01 ff");
        row("channel 0", "miditab_bank1_channel", 0, "05 00 00 01 00 ff");
        row("lowest channel", "miditab_bank1_channel", INT_MIN, "05 00 00 01 00 ff");
    }
    void oddNames()
    {
        QFETCH(QString, name);
        QFETCH(int, value);
        QTEST(hexOf(sysex::encodeGlobalParameter(name, value).payload), "hex");
    }

    void linesBeforeSending()
    {
        QCOMPARE(printed(sysex::encodeGlobalParameter(u"ch1_phantom", 300).lines),
                 (QStringList{"syx: send settings param:  6 1 62", "syx send:  6 1 0 62 2 44"}));
        QCOMPARE(printed(sysex::encodeGlobalParameter(u"usbtab_ch2_input_prepost", 1).lines),
                 QStringList{"syx send:  7 2 0 64 0 1"});
        QVERIFY(sysex::encodeGlobalParameter(u"miditab_diamond_toggle", 1).lines.isEmpty());
    }

    void droppedMappings_data()
    {
        QTest::addColumn<QString>("name");
        for (const char* name : {"miditab_",
                                 "miditab_fader",
                                 "miditab_fader1",
                                 "miditab_fader1_bank",
                                 "miditab_fader1_bank1_",
                                 "miditab_fader_bank1_cc",
                                 "miditab_fader12_bank1_cc",
                                 "xmiditab_fader1_bank1_cc",
                                 "miditab_select",
                                 "miditab_rotary",
                                 "miditab_button",
                                 "miditab_button1",
                                 "miditab_button1_bank1_note",
                                 "miditab_presetbutton",
                                 "miditab_presetbutton_note",
                                 "miditab_diamond",
                                 "miditab_diamond_bank1_note",
                                 "miditab_diamond_left_note",
                                 "miditab_bank",
                                 "miditab_bank1",
                                 "miditab_channel"}) {
            QTest::newRow(name) << QString(name);
        }
        QTest::newRow("foreign digit") << QStringLiteral(u"miditab_fader\u0661_bank1_cc");
        QTest::newRow("a megabyte") << "miditab_" + QStringLiteral("fader1_").repeated(150000);
    }
    void droppedMappings()
    {
        QFETCH(QString, name);
        const auto encoded = sysex::encodeGlobalParameter(name, 1);
        QVERIFY(!encoded.payload);
        QString line;
        QDebug(&line) << "midi parameter output error" << name;
        QCOMPARE(printed(encoded.lines), QStringList{line.trimmed()});
    }

    void messages_data()
    {
        QTest::addColumn<QByteArray>("hex");
        QTest::addColumn<QStringList>("result");
        const auto row = [](const char* hex, const QStringList& result) {
            QTest::newRow(hex) << QByteArray(hex) << result;
        };
        const QString view = "invalid global viewType sysex message ";
        const QString channel = "invalid global channel ID sysex message ";
        const QString parameter = "invalid global parameter ID sysex message ";
        row("04 0d 00 42 00 01", {"4 surroundtab_phones_impedance 1"});
        row("06 09 00 04 00 01", {"6 mains_fader 1"});
        row("06 00 00 04 00 01", {"6 _fader 1"});
        row("06 01 7f 3e ff 7f", {"6 ch1_phantom 32767"});
        row("07 00 00 40 00 01", {"7 usbtab_input_prepost 1"});
        row("00 01 00 05 00 01", {view + "0"});
        row("03 0d 00 05 00 01", {view + "3"});
        row("08 01 00 05 00 01", {view + "8", view + "8"});
        row("08 0e 00 05 00 01", {view + "8", channel + "14", view + "0"});
        row("08 00 00 ff 00 01", {view + "8", parameter + "255", view + "0"});
        row("06 00 00 46 00 01", {parameter + "70", view + "0"});
        row("06 ff 00 46 00 01", {channel + "255", parameter + "70", view + "0"});

        const QString type = "invalad global midi ctrl type sysex";
        const QString number = "invalid global midi ctrl type number sysex";
        const QString toggles = "invalid global midi sysex: probably bad toggles ";
        row("05 00 00 02 00 04", {"5 miditab_bank2_channel 4"});
        row("05 00 00 00 00 ff", {"5 miditab_channel 255"});
        row("05 00 05 00 03 01", {"5 miditab_toggle 1"});
        row("05 01 0c 02 01 03", {"5 miditab_fader12_bank2_cc 3"});
        row("05 02 01 03 03 01", {"5 miditab_select1_bank3_toggle 1"});
        row("05 06 09 00 03 01", {"5 miditab_diamond_toggle 1"});
        row("05 04 10 01 02 01", {number});
        row("05 01 10 04 04 01", {number});
        row("05 01 01 04 04 01", {"invalid global midi bank number sysex"});
        row("05 01 01 01 04 01", {"invalid global midi message type sysex"});
        row("05 02 03 00 02 01", {toggles + "2 3 0 2 1"});
        row("05 02 03 01 00 01", {toggles + "2 3 1 0 1"});
        row("05 01 10 00 01 7f", {number, toggles + "1 16 0 1 127"});
        row("05 07 ff ff 00 09", {type, toggles + "7 255 255 0 9"});
        row("05 06 00 01 02 01", {number});
        row("05 06 05 01 01 01", {number});
        row("05 06 05 00 02 01", {toggles + "6 5 0 2 1"});
    }
    void messages()
    {
        QFETCH(QByteArray, hex);
        QTEST(told(sysex::decodeGlobalParameter(payloadOf(hex))), "result");
    }

    void everyByte()
    {
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
            QCOMPARE(sysex::decodeMidiMapping(bad, 1, 1, 1, 1).view, sysex::View::None);
            QCOMPARE(sysex::decodeMidiMapping(6, bad, 1, 2, 1).view, sysex::View::None);
            QCOMPARE(sysex::decodeMidiMapping(1, 1, bad, 1, 1).view, sysex::View::None);
            QCOMPARE(sysex::decodeMidiMapping(1, 1, 1, bad, 1).view, sysex::View::None);
            QCOMPARE(sysex::decodeMidiMapping(1, 1, 1, 1, bad).value, bad);
        }
    }
};

QTEST_APPLESS_MAIN(TestGlobalCodec)
#include "tst_globalcodec.moc"
