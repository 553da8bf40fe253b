#include "tablefilereader.h"
#include "testcase.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <functional>

#include <sys/stat.h>

class TestTableFileReader : public TestCase
{
    Q_OBJECT

    std::unique_ptr<QTemporaryDir> folder;
    QString startFolder = QDir::currentPath();
    inline static const QString path = "resources/tables/table.txt";

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

    void numbers()
    {
        const std::tuple<QByteArray, QList<double>, QList<int>> rows[]{
            {".5,20.50,2.10,3.,-.25,", {0.5, 20.5, 2.1, 3.0, -0.25}, {0, 0, 0, 0, 0}},
            {"1,,2", {1.0, 0.0}, {1, 0}},
            {"1.250,1.005,", {3.5, 1.05}, {0, 0}}, // only two decimals are understood
            {"5-,1-2,1.2.5,1. 05,", {-5.0, -12.0, 1.25, 1.5}, {0, 0, 0, 0}},
            {"1,\n 25 ,\r\n-3 \n.5\n,\n", {1.0, 25.0, -3.5}, {1, 25, 0}},
            {"six,1 2,0x10,1e3,2.x,+4,", {0.0, 0.0, 0.0, 0.0, 2.0, 4.0}, {0, 0, 0, 0, 0, 4}},
            {"5\xB2,\xC3\xA9,6,", {0.0, 0.0, 6.0}, {0, 0, 6}},
        };
        for (const auto& [content, reals, integers] : rows) {
            write(content);
            QCOMPARE(TableFileReader().readDoubleTable("table.txt"), reals);
            QCOMPARE(TableFileReader().readIntTable("table.txt"), integers);
        }
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
