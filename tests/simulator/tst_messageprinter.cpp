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
        QTest::addColumn<bool>("fromHost");
        QTest::addColumn<QString>("words");

        const auto host = [](const char* hex, const char* words) {
            QTest::newRow(hex) << true << QString(words);
        };
        host("f000015f2300000000000000f7", "version query");
        host("f000015f230202010b265268f7",
             "preset channelstrip_ch1_aux2_routing_send_level = 10600");
        host("f000015f23020101000e0001f7",
             "malformed: no preset parameter: view 1, channel 1, second channel 0, parameter 14");
        host("f000015f23030601003e0001f7", "global ch1_phantom = 1");
        host("f000015f2303050000020004f7", "map miditab_bank2_channel = 5");
        host("f000015f230500000000000ef7", "mode 14 (trim)");
        host("f000015f2305000000000007f7", "malformed: no mode 7");
        host("f000015f2306000000000009f7", "channel 9 (mains)");
        host("f000015f2306010000000003f7", "channel 3 (ch3) (padding is not zero)");
        host("f000015f23090b0000000000f7", "save to slot L");
        host("f000015f230a0c0000000000f7", "request for the live memory");
        host("f000015f230a000100000000f7", "request for slot A, will be saved");
        host("f000015f230b000000000000f7", "save globals to flash");
        host("f000015f230c010000000000f7", "DSP updating on");
        host("f000015f230c000000010000f7", "stereo updating off");
        host("f000015f230e000000000000f7", "restart");
        host("f000015f2310130700000001f7", "HUI record light of 7 = 1");
        host("f000015f237f000000000000f7", "end of communication");
        host("f000015f2311000000000000f7", "malformed: no message type 17");
        host("f000015f230503f7", "malformed: type 5 with 8 bytes");
        host("f07e7f0601f7", "foreign SysEx of 6 bytes");
        host("f0f7", "foreign SysEx of 2 bytes");
        host("b00364", "control change 3 = 100, channel 1");
        host("9f0e7f", "note on 14, velocity 127, channel 16");
        host("f8", "MIDI message");

        const auto mixer = [](const char* hex, const char* words) {
            QTest::newRow(hex) << false << QString(words);
        };
        mixer("f000015f2300000000010a03f7", "firmware version 1.10.3");
        mixer("f000015f230201010004456af7", "preset faderframe_ch1_fader = 8938");
        mixer("f000015f230a0c0000f7", "begin of the live memory, save flag 0");
        mixer("f000015f230a030101f7", "end of slot D, save flag 1");
        mixer("f000015f230503f7", "mode 3 (compressor)");
        mixer("f000015f23060df7", "channel 13 (phones)");
        mixer("f000015f230df7", "go to the sync preset");
        mixer("f000015f2310020000000001f7", "HUI fader touch of 0 = 1");
        mixer("f000015f2342f7", "no message of the mixer: type 66, 7 bytes");
    }
    void words()
    {
        QFETCH(bool, fromHost);
        const QByteArray message = QByteArray::fromHex(QTest::currentDataTag());
        QTEST(messageprinter::words(fromHost ? Direction::FromHost : Direction::ToHost, message),
              "words");
    }

    void wholeLines()
    {
        QCOMPARE(messageprinter::line(Direction::FromHost, MixerPort::AudioControl,
                                      QByteArray::fromHex("f000015f2300000000000000f7")),
                 QString("from host | Audio Control   | version query | "
                         "f0 00 01 5f 23 00 00 00 00 00 00 00 f7"));
        QCOMPARE(messageprinter::line(Direction::ToHost, MixerPort::ControlSurface,
                                      QByteArray::fromHex("90017f")),
                 QString("to host   | Control Surface | note on 1, velocity 127, channel 1 | "
                         "90 01 7f"));
        QVERIFY(messageprinter::bytes(QByteArray(1000, 'A')).endsWith("41 41 ... (1000 bytes)"));
        QCOMPARE(messageprinter::words(Direction::FromHost, {}), QString("malformed: empty"));
    }

    // Whatever comes is printed; nothing may be looked for beyond its end.
    void everyTypeAtEveryLength()
    {
        for (int type = 0; type < 256; ++type) {
            for (int size = 0; size <= 16; ++size) {
                QByteArray message = QByteArray::fromHex("f000015f23");
                message += char(type);
                message = message.leftJustified(16, '\x7f').left(size);
                if (size > 0)
                    message.back() = '\xf7';
                for (const auto direction : {Direction::FromHost, Direction::ToHost})
                    QVERIFY(!messageprinter::words(direction, message).isEmpty());
            }
        }
    }
};

QTEST_APPLESS_MAIN(TestMessagePrinter)
#include "tst_messageprinter.moc"
