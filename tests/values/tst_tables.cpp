#include "definitions.h"
#include "tablefilereader.h"
#include "tablelookup.h"
#include "testcase.h"

#include <QDir>

#include <algorithm>
#include <functional>
#include <limits>

// The tables as they ship, and the search in them.
class TestTables : public TestCase
{
    Q_OBJECT

    TableFileReader reader;

    template <typename Number> static bool isRising(const QList<Number>& table)
    {
        return std::adjacent_find(table.begin(), table.end(), std::greater_equal<Number>())
            == table.end();
    }

private slots:
    void initTestCase() { QVERIFY(QDir::setCurrent(JSUM_SOURCE_DIR)); }

    void trimTables()
    {
        const auto channels1And2 = reader.readDoubleTable("trimTableNoPad.txt");
        const auto channels3To8 = reader.readDoubleTable("trimTableWithPad.txt");
        QCOMPARE(channels1And2.size(), 41);
        QCOMPARE(channels3To8.size(), 41);
        for (int position = 0; position < 41; ++position) {
            QCOMPARE(channels1And2[position], position);
            QCOMPARE(channels3To8[position], position - 16);
        }
    }

    void frequencyTables_data()
    {
        QTest::addColumn<QList<double>>("points"); // the ends, one seventh and six sevenths
        const auto row = [](const char* name, const QList<double>& points) {
            QTest::newRow(name) << points;
        };
        row("highPassFreqTable-9bit.txt", {40.0, 55.58, 287.87, 400.0});
        row("lowEQFreqTable-9bit.txt", {20.0, 30.68, 260.73, 400.0});
        row("midEQFreqTable-9bit.txt", {200.0, 325.12, 3690.91, 6000.0});
        row("highEQFreqTable-9bit.txt", {3000.0, 3933.89, 15252.07, 20000.0});
    }
    void frequencyTables()
    {
        const auto table = reader.readDoubleTable(QTest::currentDataTag());
        QCOMPARE(table.size(), 512);
        QTEST((QList<double>{table[0], table[73], table[438], table[511]}), "points");
        QVERIFY(isRising(table));
    }

    void phonesTables()
    {
        const auto displayed = reader.readDoubleTable("phonesDisplayTable.txt");
        const auto sent = reader.readIntTable("phonesSysexSendTable.txt");
        QCOMPARE(displayed.size(), 145);
        QCOMPARE(sent.size(), 145);
        QVERIFY(isRising(displayed));
        QVERIFY(isRising(sent));
        QVERIFY(displayed.first() == -70.0 && sent.first() == 3000);
        QVERIFY(displayed[132] == 0.0 && sent[132] == 8938);
        QVERIFY(displayed.last() == 6.0 && sent.last() == 10600);
        const Definitions definitions{};
        for (int n = 0; n < displayed.size(); ++n)
            QCOMPARE(definitions.slotSpinboxtoFaderVolumeMath(displayed[n], 3000, 10600), sent[n]);
    }

    void nearest()
    {
        const auto find = [](const auto& table, auto value) {
            const auto match = findInTable(table, value);
            return std::pair(match.index, match.exact);
        };
        const QList<double> rising{-16.0, -15.0, 0.0, 1.0};
        QCOMPARE(find(rising, -15.0), std::pair(1, true));
        QCOMPARE(find(rising, 0.51), std::pair(3, false));
        QCOMPARE(find(rising, 0.5), std::pair(2, false)); // a tie
        QCOMPARE(find(rising, -20.0), std::pair(0, false));
        QCOMPARE(find(rising, 40.0), std::pair(3, false));
        QCOMPARE(find(QList{1.0, 3.0, 2.0}, 2.0), std::pair(2, true)); // also after a tie
        QCOMPARE(find(QList{5.0, 2.0, 2.0}, 2.0), std::pair(1, true));
        QCOMPARE(find(QList<double>(), 2.0), std::pair(-1, false));
        constexpr int intMin = std::numeric_limits<int>::min();
        constexpr int intMax = std::numeric_limits<int>::max();
        QCOMPARE(find(QList{3000, 3001, 3003}, 3002), std::pair(1, false));
        QCOMPARE(find(QList{intMin, 0}, intMax), std::pair(1, false)); // far apart
    }
};

QTEST_APPLESS_MAIN(TestTables)
#include "tst_tables.moc"
