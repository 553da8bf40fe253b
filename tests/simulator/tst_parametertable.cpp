#include "parametertable.h"
#include "testcase.h"

#include <QSet>

// The mixer's tables against the wire, with the bytes written out.
class TestParameterTable : public TestCase
{
    Q_OBJECT

private slots:
    void countsAndRanges()
    {
        QCOMPARE(presetTable().size(), 329);
        QCOMPARE(globalTable().size(), 208);
        for (const ParameterTable* table : {&presetTable(), &globalTable()}) {
            QSet<QByteArray> messages;
            for (const Parameter& row : table->rows()) {
                messages.insert(row.message(0));
                QVERIFY2(row.minimum <= row.factory && row.factory <= row.maximum,
                         qPrintable(row.name));
            }
            QCOMPARE(messages.size(), table->size());
        }
    }

    // One of each way to count channels, bands, banks and directions; all others travel to the
    // editor and back in the whole system's tests.
    void messages_data()
    {
        QTest::addColumn<int>("value");
        QTest::addColumn<QByteArray>("message");
        QTest::addColumn<int>("factory");
        const auto row = [](const char* name, int value, const char* hex, int factory) {
            QTest::newRow(name) << value << QByteArray(hex) << factory;
        };
        row("faderframe_ch1_fader", 8938, "f000015f230201010004456af7", 3000);
        row("channelstrip_ch3_trim", 16, "f000015f2302020300010010f7", 16);
        row("channelstrip_ch3_eq_mid_q", 300, "f000015f23020203000f022cf7", 100);
        row("channelstrip_ch1_aux2_routing_send_level", 10600, "f000015f230202010b265268f7", 3000);
        row("channelstrip_ch1_aux1_routing_pre_post", 1, "f000015f230202010a020001f7", 1);
        row("channelstrip_mains_gate_gain", 7600, "f000015f23020209001c3b30f7", 7600);
        row("phones_impedance", 2, "f000015f2303060d00420002f7", 1);
        row("tone_gen_freq", 440, "f000015f2303060000380338f7", 440);
        row("surroundtab_ch7_assign", 3, "f000015f2303040700310003f7", 3);
        // The channel travels less one, everything else as it is.
        row("miditab_bank2_channel", 5, "f000015f2303050000020004f7", 2);
        row("miditab_fader9_bank3_cc", 9, "f000015f2303050109030109f7", 9);
        row("miditab_button04_bank1_note", 14, "f000015f230305040401020ef7", 14);
        row("miditab_diamond_bank3_down_note", 27, "f000015f230305060403021bf7", 27);
    }
    void messages()
    {
        QFETCH(int, value);
        QFETCH(QByteArray, message);
        const QString name = QTest::currentDataTag();
        const ParameterTable& table = presetTable().find(name) >= 0 ? presetTable() : globalTable();
        const int index = table.find(name);
        QVERIFY(index >= 0);
        QCOMPARE(table[index].message(value).toHex(), message);
        QTEST(table[index].factory, "factory");
        const auto setting = table.read(QByteArray::fromHex(message));
        QVERIFY(setting);
        QCOMPARE(setting->index, index);
        QCOMPARE(setting->value, value);
    }
};

QTEST_APPLESS_MAIN(TestParameterTable)
#include "tst_parametertable.moc"
