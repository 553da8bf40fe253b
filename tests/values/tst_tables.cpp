#include "definitions.h"
#include "tablefilereader.h"
#include "tablelookup.h"
#include "testcase.h"

#include <QDir>

#include <algorithm>
#include <limits>

// The tables as they ship, and the search in them.
class TestTables : public TestCase
{
    Q_OBJECT

    TableFileReader reader;

private slots:
    void initTestCase() { QVERIFY(QDir::setCurrent(JSUM_SOURCE_DIR)); }

    void frequencyTables()
    {
        for (const auto& [name, seventh] : {std::pair("highPassFreqTable-9bit.txt", 55.58),
                                            {"lowEQFreqTable-9bit.txt", 30.68},
                                            {"midEQFreqTable-9bit.txt", 325.12},
                                            {"highEQFreqTable-9bit.txt", 3933.89}}) {
            const auto table = reader.readDoubleTable(name);
            QCOMPARE(table.size(), 512);
            QCOMPARE(table[73], seventh);
            QVERIFY(std::is_sorted(table.begin(), table.end()));
        }
    }

    void phonesTables()
    {
        const auto displayed = reader.readDoubleTable("phonesDisplayTable.txt");
        const auto sent = reader.readIntTable("phonesSysexSendTable.txt");
        QCOMPARE(displayed.size(), 145);
        QCOMPARE(sent.size(), 145);
        QVERIFY(displayed[132] == 0.0 && sent[132] == 8938);
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
        QCOMPARE(find(rising, 40.0), std::pair(3, false));
        QCOMPARE(find(QList{5.0, 2.0, 2.0}, 2.0), std::pair(1, true));
        QCOMPARE(find(QList<double>(), 2.0), std::pair(-1, false));
        constexpr int intMin = std::numeric_limits<int>::min();
        constexpr int intMax = std::numeric_limits<int>::max();
        QCOMPARE(find(QList{intMin, 0}, intMax), std::pair(1, false)); // far apart
    }
};

QTEST_APPLESS_MAIN(TestTables)
#include "tst_tables.moc"
