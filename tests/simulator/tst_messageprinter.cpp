#include "messageprinter.h"
#include "testcase.h"

using messageprinter::Direction;

// What the monitor says of each message, both ways.
class TestMessagePrinter : public TestCase
{
    Q_OBJECT

private slots:
    void words_data()
    {
        QTest::addColumn<QString>("words");
        const auto row = [](const char* hex, const char* words) {
            QTest::newRow(hex) << QString(words);
        };
        row("f000015f23020101000e0001f7",
            "malformed: no preset parameter: view 1, channel 1, second channel 0, parameter 14");
        row("f000015f23030601003e0001f7", "global ch1_phantom = 1");
        row("f000015f2303050000020004f7", "map miditab_bank2_channel = 5");
        row("f000015f2306010000000003f7", "channel 3 (ch3) (padding is not zero)");
        row("f000015f230a000100000000f7", "request for slot A, will be saved");
        row("f000015f230c000000010000f7", "stereo updating off");
        row("f000015f2310130700000001f7", "HUI record light of 7 = 1");
        row("f000015f230503f7", "malformed: type 5 with 8 bytes");
        row("f07e7f0601f7", "foreign SysEx of 6 bytes");
        row("b00364", "control change 3 = 100, channel 1");
    }
    void words()
    {
        const QByteArray message = QByteArray::fromHex(QTest::currentDataTag());
        QTEST(messageprinter::words(Direction::FromHost, message), "words");
    }

    // Whatever comes is printed; nothing may be looked for beyond its end.
    void everyTypeAtEveryLength()
    {
        for (int type = 0; type < 256; ++type) {
            for (int size = 0; size <= 16; ++size) {
                QByteArray message = QByteArray::fromHex("f000015f23") + char(type);
                message = message.leftJustified(16, '\x7f').left(size);
                if (size > 0)
                    message.back() = '\xf7';
                for (const auto direction : {Direction::FromHost, Direction::ToHost})
                    QVERIFY(!messageprinter::words(direction, message).isEmpty());
            }
        }
        QVERIFY(messageprinter::bytes(QByteArray(1000, 'A')).endsWith("41 41 ... (1000 bytes)"));
    }
};

QTEST_APPLESS_MAIN(TestMessagePrinter)
#include "tst_messageprinter.moc"
