#include "definitions.h"
#include "testcase.h"

#include <cmath>
#include <limits>

namespace
{

constexpr int intMin = std::numeric_limits<int>::min();
constexpr int intMax = std::numeric_limits<int>::max();

// What a spin box of two decimals shows.
QString shown(double value) { return QString::number(value, 'f', 2); }

} // namespace

class TestDefinitions : public TestCase
{
    Q_OBJECT

    const Definitions definitions{};

private slots:
    void faderPoints()
    {
        const QList<std::pair<int, QString>> displayed{
            {3000, "-70.00"}, {3001, "-66.13"}, {8938, "-0.00"}, {8939, "0.00"}, {10600, "6.00"}};
        for (const auto& [position, decibels] : displayed)
            QCOMPARE(shown(definitions.slotFadertoSpinboxVolumeMath(position, -70, 6)), decibels);
    }

    // Every position comes back at full precision; through two decimals a known number doesn't.
    void faderThereAndBack()
    {
        int lost = 0;
        int lostByRounding = 0;
        for (int position = 3000; position <= 10600; ++position) {
            const double decibels = definitions.slotFadertoSpinboxVolumeMath(position, -70, 6);
            const auto back = [this](double value) {
                return definitions.slotSpinboxtoFaderVolumeMath(value, 3000, 10600);
            };
            lost += back(decibels) != position;
            lostByRounding += back(shown(decibels).toDouble()) != position;
        }
        QCOMPARE(lost, 0);
        QCOMPARE(lostByRounding, 2925);
    }

    // The truncations' well-known losses: a rounding, or a fused multiply-add, changes the counts.
    void truncations()
    {
        int oneLower = 0;
        for (int value = 1; value <= 1999; ++value) {
            const int stored = definitions.slotSpinboxtoValueMath(value / 100.0);
            QVERIFY(stored == value || stored == value - 1);
            oneLower += stored != value;
        }
        QCOMPARE(oneLower, 137);
        QCOMPARE(definitions.slotSpinboxtoDialVolumeMath(-69.98), 3001);
        QCOMPARE(definitions.slotSpinboxtoValueMath(-0.29), -28); // towards zero
        QVERIFY(definitions.slotDialtoSpinboxVolumeMath(7600) == -24.0);
        QVERIFY(definitions.slotValuetoSpinboxMath(29) == 0.29);
    }

    void scaling()
    {
        QVERIFY(definitions.slotScaleDoubleValue(0.5, 0.0, 1.0, 8200.0, 11800.0) == 10000.0);
        // Dividing before multiplying gives 10.857142857142856.
        QVERIFY(definitions.slotScaleDoubleValue(1, 0, 7, 0, 76) == 10.857142857142858);
    }

    void numbersOutOfRange()
    {
        const QList<std::pair<double, int>> rows{{1e300, intMax},
                                                 {-1e300, intMin},
                                                 {std::numeric_limits<double>::infinity(), intMax},
                                                 {std::numeric_limits<double>::quiet_NaN(), 0}};
        for (const auto& [value, result] : rows) {
            QCOMPARE(definitions.slotSpinboxtoValueMath(value), result);
            QCOMPARE(definitions.slotSpinboxtoDialVolumeMath(value), result);
            QCOMPARE(definitions.slotSpinboxtoFaderVolumeMath(value, 3000, 10600), result);
        }
        QVERIFY(std::isnan(definitions.slotFadertoSpinboxVolumeMath(2999, -70, 6)));
        QCOMPARE(definitions.slotSpinboxtoFaderVolumeMath(0.0, 3000, 3000), 0);
    }
};

QTEST_APPLESS_MAIN(TestDefinitions)
#include "tst_definitions.moc"
