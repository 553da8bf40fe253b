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

    void trimTables_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<int>("zeroAt");
        QTest::newRow("channels 1 and 2") << "trimTableNoPad.txt" << 0;
        QTest::newRow("channels 3 to 8") << "trimTableWithPad.txt" << 16;
    }
    void trimTables()
    {
        QFETCH(QString, name);
        QFETCH(int, zeroAt);
        const auto table = reader.readDoubleTable(name);
        QCOMPARE(table.size(), 41);
        for (int position = 0; position < 41; ++position)
            QVERIFY2(table[position] == position - zeroAt, qPrintable(QString::number(position)));
    }

    void frequencyTables_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<double>("first");
        QTest::addColumn<double>("atOneSeventh");
        QTest::addColumn<double>("atSixSevenths");
        QTest::addColumn<double>("last");
        QTest::newRow("high pass")
            << "highPassFreqTable-9bit.txt" << 40.0 << 55.58 << 287.87 << 400.0;
        QTest::newRow("low") << "lowEQFreqTable-9bit.txt" << 20.0 << 30.68 << 260.73 << 400.0;
        QTest::newRow("mid") << "midEQFreqTable-9bit.txt" << 200.0 << 325.12 << 3690.91 << 6000.0;
        QTest::newRow("high") << "highEQFreqTable-9bit.txt" << 3000.0 << 3933.89 << 15252.07
                              << 20000.0;
    }
    void frequencyTables()
    {
        QFETCH(QString, name);
        QFETCH(double, first);
        QFETCH(double, last);
        const auto table = reader.readDoubleTable(name);
        QCOMPARE(table.size(), 512);
        QVERIFY(table.first() == first);
        QTEST(table[73], "atOneSeventh");
        QTEST(table[438], "atSixSevenths");
        QVERIFY(table.last() == last);
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

    void nearestReal_data()
    {
        QTest::addColumn<QList<double>>("table");
        QTest::addColumn<double>("value");
        QTest::addColumn<int>("index");
        QTest::addColumn<bool>("exact");
        const QList<double> rising{-16.0, -15.0, 0.0, 1.0};
        QTest::newRow("exact") << rising << -15.0 << 1 << true;
        QTest::newRow("nearer to the upper") << rising << 0.51 << 3 << false;
        QTest::newRow("tie") << rising << 0.5 << 2 << false;
        QTest::newRow("below both ends") << rising << -20.0 << 0 << false;
        QTest::newRow("above both ends") << rising << 40.0 << 3 << false;
        QTest::newRow("exact after a tie") << QList<double>{1.0, 3.0, 2.0} << 2.0 << 2 << true;
        QTest::newRow("first of duplicates") << QList<double>{5.0, 2.0, 2.0} << 2.0 << 1 << true;
        QTest::newRow("empty") << QList<double>() << 2.0 << -1 << false;
        QTest::newRow("no number")
            << rising << std::numeric_limits<double>::quiet_NaN() << 0 << false;
    }
    void nearestReal()
    {
        QFETCH(QList<double>, table);
        QFETCH(double, value);
        const auto match = findInTable(table, value);
        QTEST(match.index, "index");
        QTEST(match.exact, "exact");
    }

    void nearestInteger_data()
    {
        QTest::addColumn<QList<int>>("table");
        QTest::addColumn<int>("value");
        QTest::addColumn<int>("index");
        QTest::addColumn<bool>("exact");
        constexpr int intMin = std::numeric_limits<int>::min();
        constexpr int intMax = std::numeric_limits<int>::max();
        QTest::newRow("exact") << QList<int>{3000, 3001, 3003} << 3001 << 1 << true;
        QTest::newRow("tie") << QList<int>{3000, 3001, 3003} << 3002 << 1 << false;
        QTest::newRow("far apart") << QList<int>{intMin, 0} << intMax << 1 << false;
        QTest::newRow("empty") << QList<int>() << 0 << -1 << false;
    }
    void nearestInteger()
    {
        QFETCH(QList<int>, table);
        QFETCH(int, value);
        const auto match = findInTable(table, value);
        QTEST(match.index, "index");
        QTEST(match.exact, "exact");
    }
};

QTEST_APPLESS_MAIN(TestTables)
#include "tst_tables.moc"
