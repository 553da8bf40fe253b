#include "sysexframe.h"
#include "testcase.h"

#include <vector>

using sysex::Incoming;

class TestSysexFrame : public TestCase
{
    Q_OBJECT

private slots:
    void frames_data()
    {
        QTest::addColumn<int>("type");
        QTest::addColumn<QByteArray>("payload");
        QTest::addColumn<QByteArray>("bytes");
        QTest::newRow("version query") << 0x00 << QByteArray::fromHex("000000000000")
                                       << QByteArray::fromHex("f000015f2300000000000000f7");
        QTest::newRow("parameter") << 0x02 << QByteArray::fromHex("02010a26022c")
                                   << QByteArray::fromHex("f000015f230202010a26022cf7");
        QTest::newRow("negative value, sent as it is")
            << 0x03 << QByteArray::fromHex("04010031ff7f")
            << QByteArray::fromHex("f000015f230304010031ff7ff7");
        QTest::newRow("comm end") << 0x7F << QByteArray::fromHex("000000000000")
                                  << QByteArray::fromHex("f000015f237f000000000000f7");
    }
    void frames()
    {
        QFETCH(int, type);
        QFETCH(QByteArray, payload);
        sysex::Payload fields{};
        std::copy(payload.begin(), payload.end(), fields.begin());
        const auto frame = sysex::buildFrame(static_cast<sysex::Type>(type), fields);
        QTEST(QByteArray(reinterpret_cast<const char*>(frame.data()), 13), "bytes");
    }

    void values_data()
    {
        QTest::addColumn<int>("value");
        QTest::addColumn<int>("high");
        QTest::addColumn<int>("low");
        QTest::addColumn<int>("readBack");
        QTest::newRow("0") << 0 << 0 << 0 << 0;
        QTest::newRow("127") << 127 << 0 << 127 << 127;
        QTest::newRow("128") << 128 << 1 << 0 << 128;
        QTest::newRow("300") << 300 << 2 << 44 << 300;
        QTest::newRow("16383") << 16383 << 127 << 127 << 16383;
        QTest::newRow("-1 loses its sign") << -1 << 0xFF << 0x7F << 32767;
        QTest::newRow("beyond 15 bits is cut") << 40000 << 0x38 << 0x40 << 7232;
    }
    void values()
    {
        QFETCH(int, value);
        const auto bytes = sysex::encodeValue(value);
        QTEST(static_cast<int>(bytes.high), "high");
        QTEST(static_cast<int>(bytes.low), "low");
        QTEST(sysex::decodeValue(bytes.high, bytes.low), "readBack");
    }

    void slotNumbers()
    {
        QCOMPARE(sysex::slotToWire(0), 12);
        QCOMPARE(sysex::slotToWire(1), 0);
        QCOMPARE(sysex::slotToWire(12), 11);
        QCOMPARE(sysex::slotFromWire(12), 0);
        QCOMPARE(sysex::slotFromWire(0), 1);
        QCOMPARE(sysex::slotFromWire(11), 12);
    }

    // Every type byte at every length: exactly these eight pairs are messages.
    void classification()
    {
        QMap<std::pair<int, int>, Incoming> known{
            {{11, 0x00}, Incoming::FirmwareVersion}, {{8, 0x0A}, Incoming::SlotTransfer},
            {{11, 0x02}, Incoming::PresetParameter}, {{11, 0x03}, Incoming::GlobalParameter},
            {{5, 0x0D}, Incoming::GoToSyncPreset},   {{6, 0x05}, Incoming::ModeChange},
            {{6, 0x06}, Incoming::ChannelSelect},    {{11, 0x10}, Incoming::Hui},
        };
        for (int size = 0; size <= 64; ++size) {
            for (int type = 0; type <= 0xFF; ++type) {
                // Neither manufacturer nor device count.
                std::vector<std::uint8_t> data(static_cast<std::size_t>(size), 0x55);
                if (size > 4)
                    data[4] = static_cast<std::uint8_t>(type);
                const auto expected = known.value({size, type}, Incoming::Unknown);
                if (sysex::classify(data) != expected
                    || sysex::typeOf(data) != (size > 4 ? type : -1)) {
                    QFAIL(qPrintable(QStringLiteral("size %1 type %2").arg(size).arg(type)));
                }
            }
        }
    }
};

QTEST_APPLESS_MAIN(TestSysexFrame)
#include "tst_sysexframe.moc"
