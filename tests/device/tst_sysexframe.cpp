#include "sysexframe.h"
#include "testcase.h"

#include <climits>
#include <vector>

using sysex::Incoming;

class TestSysexFrame : public TestCase
{
    Q_OBJECT

private slots:
    // None is refused: the sign is lost, what 15 bits can't hold is cut.
    void values()
    {
        const QList<std::array<int, 4>> rows{
            {127, 0x00, 0x7F, 127},     {128, 0x01, 0x00, 128},      {300, 0x02, 0x2C, 300},
            {16383, 0x7F, 0x7F, 16383}, {-1, 0xFF, 0x7F, 32767},     {40000, 0x38, 0x40, 7232},
            {INT_MIN, 0x00, 0x00, 0},   {INT_MAX, 0xFF, 0x7F, 32767}};
        for (const auto& [value, high, low, readBack] : rows) {
            const auto bytes = sysex::encodeValue(value);
            QCOMPARE(int(bytes.high), high);
            QCOMPARE(int(bytes.low), low);
            QCOMPARE(sysex::decodeValue(bytes.high, bytes.low), readBack);
        }
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
                if (sysex::classify(data) != expected)
                    QFAIL(qPrintable(QStringLiteral("size %1 type %2").arg(size).arg(type)));
            }
        }
    }
};

QTEST_APPLESS_MAIN(TestSysexFrame)
#include "tst_sysexframe.moc"
