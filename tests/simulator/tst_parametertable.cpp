#include "parametertable.h"
#include "testcase.h"

#include <QSet>

// The mixer's tables against the wire, with the bytes written out.
class TestParameterTable : public TestCase
{
    Q_OBJECT

private slots:
    void countsAndUniqueness()
    {
        QCOMPARE(presetTable().size(), 329);
        QCOMPARE(globalTable().size(), 208);
        for (const ParameterTable* table : {&presetTable(), &globalTable()}) {
            QSet<QString> names;
            QSet<QByteArray> addresses;
            int mappings = 0;
            for (const Parameter& row : table->rows()) {
                names.insert(row.name);
                addresses.insert(QByteArray(reinterpret_cast<const char*>(row.address.data()), 5));
                mappings += row.isMapping();
                QVERIFY2(row.minimum <= row.factory && row.factory <= row.maximum,
                         qPrintable(row.name));
            }
            QCOMPARE(names.size(), table->size());
            QCOMPARE(addresses.size(), table->size());
            QCOMPARE(mappings, table == &globalTable() ? 155 : 0);
        }
    }

    void preset_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<int>("value");
        QTest::addColumn<QByteArray>("message");
        QTest::addColumn<int>("factory");

        const auto row = [](const char* name, int value, const char* hex, int factory) {
            QTest::newRow(name) << QString(name) << value << QByteArray(hex) << factory;
        };
        row("faderframe_ch1_fader", 8938, "f000015f230201010004456af7", 3000);
        row("faderframe_aux2_mute", 1, "f000015f2302010b00050001f7", 0);
        row("faderframe_mains_fader", 128, "f000015f2302010900040100f7", 3000);
        row("faderframe_phones_mute", 0, "f000015f2302010d00050000f7", 0);
        row("faderframe_ch8_solo", 1, "f000015f2302010800060001f7", 0);
        row("channelstrip_ch2_trim", 40, "f000015f2302020200010028f7", 0);
        row("channelstrip_ch3_trim", 16, "f000015f2302020300010010f7", 16);
        row("channelstrip_ch3_eq_mid_q", 300, "f000015f23020203000f022cf7", 100);
        row("channelstrip_ch4_highPass_freq", 80, "f000015f2302020400330050f7", 80);
        row("channelstrip_ch5_highPass_bypass", 1, "f000015f2302020500320001f7", 1);
        row("channelstrip_ch7_stereo", 1, "f000015f2302020700430001f7", 0);
        row("channelstrip_ch1_pan", 10000, "f000015f2302020100034e10f7", 10000);
        row("channelstrip_ch1_aux2_routing_send_level", 10600, "f000015f230202010b265268f7", 3000);
        row("channelstrip_ch8_aux3_routing_pan", 9900, "f000015f230202080c034d2cf7", 10000);
        row("channelstrip_ch1_aux1_routing_pre_post", 1, "f000015f230202010a020001f7", 1);
        row("channelstrip_ch6_compressor_ratio", 300, "f000015f230202060012022cf7", 300);
        row("channelstrip_mains_gate_thresh", 3000, "f000015f2302020900191738f7", 3000);
        row("channelstrip_mains_gate_gain", 7600, "f000015f23020209001c3b30f7", 7600);
        row("channelstrip_phones_monitor_select", 9, "f000015f2302020d00220009f7", 9);
        row("reverbtab_ch5_send_level", 3000, "f000015f2302030500261738f7", 3000);
        row("reverbtab_decay_time", 1000, "f000015f2302030000200768f7", 1000);
        row("reverbtab_bypass", 1, "f000015f2302030000390001f7", 0);
    }
    void preset() { checkRow(presetTable()); }

    void global_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<int>("value");
        QTest::addColumn<QByteArray>("message");
        QTest::addColumn<int>("factory");

        const auto row = [](const char* name, int value, const char* hex, int factory) {
            QTest::newRow(name) << QString(name) << value << QByteArray(hex) << factory;
        };
        row("ch1_phantom", 1, "f000015f23030601003e0001f7", 0);
        row("ch3_line_phono", 0, "f000015f2303060300270000f7", 1);
        row("phantom_voltage", 1, "f000015f23030600003f0001f7", 1);
        row("phones_impedance", 2, "f000015f2303060d00420002f7", 1);
        row("tone_gen_freq", 440, "f000015f2303060000380338f7", 440);
        row("pass_thru_rotaries", 1, "f000015f2303060000440001f7", 0);
        row("expander_control", 1, "f000015f2303060000450001f7", 0);
        row("surroundtab_rotary1_radius", 63, "f000015f230304000028003ff7", 63);
        row("surroundtab_rotary4_angle", 300, "f000015f23030400002f022cf7", 0);
        row("surroundtab_ch7_assign", 3, "f000015f2303040700310003f7", 3);
        row("surroundtab_enable", 1, "f000015f2303040000000001f7", 0);
        row("surroundtab_bass_management", 39, "f000015f23030400003d0027f7", 39);
        row("usbtab_ch1_input_prepost", 1, "f000015f2303070100400001f7", 0);
        row("usbtab_ch8_output_prepost", 1, "f000015f2303070800410001f7", 0);
        // The channel travels less one, everything else as it is.
        row("miditab_bank2_channel", 5, "f000015f2303050000020004f7", 2);
        row("miditab_fader9_bank3_cc", 9, "f000015f2303050109030109f7", 9);
        row("miditab_select1_bank1_note", 127, "f000015f230305020101027ff7", 1);
        row("miditab_select9_toggle", 1, "f000015f2303050209000301f7", 0);
        row("miditab_rotary4_bank1_cc", 13, "f000015f230305030401010df7", 13);
        row("miditab_button03_bank1_note", 12, "f000015f230305040301020cf7", 12);
        row("miditab_button04_bank1_note", 14, "f000015f230305040401020ef7", 14);
        row("miditab_button12_toggle", 1, "f000015f230305040c000301f7", 0);
        row("miditab_presetbutton_bank2_note", 13, "f000015f230305050002020df7", 13);
        row("miditab_diamond_bank1_left_note", 28, "f000015f230305060101021cf7", 28);
        row("miditab_diamond_bank3_down_note", 27, "f000015f230305060403021bf7", 27);
        row("miditab_diamond_toggle", 1, "f000015f2303050600000301f7", 0);
    }
    void global() { checkRow(globalTable()); }

    void unknownAddresses()
    {
        const auto read = [](const ParameterTable& table, const char* hex) {
            return table.read(QByteArray::fromHex(hex)).has_value();
        };
        QVERIFY(!read(presetTable(), "f000015f2302020200430001f7")); // stereo of an even channel
        QVERIFY(!read(presetTable(),
                      "f000015f2302020100"
                      "0e0001f7"));                                  // a reserved number
        QVERIFY(!read(presetTable(), "f000015f2302010a0b040001f7")); // a second channel too many
        QVERIFY(!read(presetTable(), "f000015f2302ff7f7f7f0001f7"));
        QVERIFY(!read(presetTable(), "f000015f23020101000445f7")); // too short
        QVERIFY(
            !read(globalTable(), "f000015f2303050600010200f7")); // a diamond that points nowhere
    }

private:
    void checkRow(const ParameterTable& table)
    {
        QFETCH(QString, name);
        QFETCH(int, value);
        QFETCH(QByteArray, message);
        QFETCH(int, factory);
        const int index = table.find(name);
        QVERIFY(index >= 0);
        QCOMPARE(table[index].message(value).toHex(), message);
        QCOMPARE(table[index].factory, factory);
        const auto setting = table.read(QByteArray::fromHex(message));
        QVERIFY(setting);
        QCOMPARE(setting->index, index);
        QCOMPARE(setting->value, value);
    }
};

QTEST_APPLESS_MAIN(TestParameterTable)
#include "tst_parametertable.moc"
