#include "tablefilereader.h"
#include "testcase.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <functional>

#include <sys/stat.h>

namespace
{

const QString path = QStringLiteral("resources/tables/table.txt");

} // namespace

class TestTableFileReader : public TestCase
{
    Q_OBJECT

    std::unique_ptr<QTemporaryDir> folder;
    QString startFolder = QDir::currentPath();

    void prepare() override
    {
        folder = std::make_unique<QTemporaryDir>();
        QDir::setCurrent(folder->path());
        QDir().mkpath("resources/tables");
    }

    static void write(const QByteArray& content)
    {
        QFile file(path);
        QVERIFY(file.open(QIODevice::WriteOnly));
        QCOMPARE(file.write(content), content.size());
    }

private slots:
    void cleanup() { QDir::setCurrent(startFolder); }

    void numbers_data()
    {
        QTest::addColumn<QList<double>>("reals");
        QTest::addColumn<QList<int>>("integers");
        const auto row = [](const char* content, const QList<double>& reals,
                            const QList<int>& integers) {
            QTest::newRow(content) << reals << integers;
        };
        row(".5,20.50,2.10,3.,-.25,", {0.5, 20.5, 2.1, 3.0, -0.25}, {0, 0, 0, 0, 0});
        row("1,,2", {1.0, 0.0}, {1, 0});
        row("1.250,1.005,", {3.5, 1.05}, {0, 0}); // only two decimals are understood
        row("5-,1-2,1.2.5,1. 05,", {-5.0, -12.0, 1.25, 1.5}, {0, 0, 0, 0});
        row("1,\n 25 ,\r\n-3 \n.5\n,\n", {1.0, 25.0, -3.5}, {1, 25, 0});
        row("six,1 2,0x10,1e3,2.x,+4,", {0.0, 0.0, 0.0, 0.0, 2.0, 4.0}, {0, 0, 0, 0, 0, 4});
        row("5\xB2,\xC3\xA9,6,", {0.0, 0.0, 6.0}, {0, 0, 6});
    }
    void numbers()
    {
        write(QTest::currentDataTag());
        QTEST(TableFileReader().readDoubleTable("table.txt"), "reals");
        QTEST(TableFileReader().readIntTable("table.txt"), "integers");
    }

    // A pipe that were opened would hang the program, a device would fill its memory.
    void unreadable()
    {
        const std::function<bool()> makes[]{
            [] { return true; }, // missing
            [] { return QDir().mkpath(path); },
            [] { return ::mkfifo(QFile::encodeName(path).constData(), 0600) == 0; },
            [] { return QFile::link("/dev/zero", path); },
            [] {
                write(QByteArray(TableFileReader::maxFileSize + 1, ','));
                return true;
            }};
        for (const auto& make : makes) {
            prepare();
            QVERIFY(make());
            QVERIFY(TableFileReader().readDoubleTable("table.txt").isEmpty());
            QVERIFY(TableFileReader().readIntTable("table.txt").isEmpty());
        }
    }
};

QTEST_APPLESS_MAIN(TestTableFileReader)
#include "tst_tablefilereader.moc"
