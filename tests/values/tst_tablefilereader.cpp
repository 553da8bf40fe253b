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
        row("1.5,1.05,1.25,-0.5,", {1.5, 1.05, 1.25, -0.5}, {0, 0, 0, 0});
        row(".5,20.50,2.10,3.,-.25,", {0.5, 20.5, 2.1, 3.0, -0.25}, {0, 0, 0, 0, 0});
        row("12", {}, {});
        row("1,,2", {1.0, 0.0}, {1, 0});
        row("1.250,1.005,", {3.5, 1.05}, {0, 0}); // only two decimals are understood
        row("5-,1-2,1.2.5,1. 05,", {-5.0, -12.0, 1.25, 1.5}, {0, 0, 0, 0});
        row("1,\n 25 ,\r\n-3 \n.5\n,\n", {1.0, 25.0, -3.5}, {1, 25, 0});
        row("six,1 2,0x10,1e3,2.x,+4,", {0.0, 0.0, 0.0, 0.0, 2.0, 4.0}, {0, 0, 0, 0, 0, 4});
        row("4294967296,-7,1.99999999999,", {0.0, -7.0, 1.0}, {0, -7, 0});
        row("5\xB2,\xC3\xA9,6,", {0.0, 0.0, 6.0}, {0, 0, 6});
    }
    void numbers()
    {
        write(QTest::currentDataTag());
        QTEST(TableFileReader().readDoubleTable("table.txt"), "reals");
        QTEST(TableFileReader().readIntTable("table.txt"), "integers");
    }

    // A pipe that were opened would hang the program, a device would fill its memory.
    void unreadable_data()
    {
        QTest::addColumn<std::function<bool()>>("make");
        const auto row = [](const char* kind, const std::function<bool()>& make) {
            QTest::newRow(kind) << make;
        };
        row("missing", [] { return true; });
        row("directory", [] { return QDir().mkpath(path); });
        row("pipe", [] { return ::mkfifo(QFile::encodeName(path).constData(), 0600) == 0; });
        row("device", [] { return QFile::link("/dev/zero", path); });
        row("dead link", [] { return QFile::link("nowhere", path); });
        row("too large", [] {
            write(QByteArray(TableFileReader::maxFileSize + 1, ','));
            return true;
        });
    }
    void unreadable()
    {
        QFETCH(std::function<bool()>, make);
        QVERIFY(make());
        QTest::ignoreMessage(QtDebugMsg,
                             "WARNING: table.txt Not Found Path: resources/tables/table.txt");
        QVERIFY(TableFileReader().readDoubleTable("table.txt").isEmpty());
        QTest::ignoreMessage(QtDebugMsg, "WARNING: table.txt Not Found");
        QVERIFY(TableFileReader().readIntTable("table.txt").isEmpty());
    }

    void largestFileBehindALink()
    {
        write(QByteArray(TableFileReader::maxFileSize, ','));
        QVERIFY(QFile::rename(path, "elsewhere.txt"));
        QVERIFY(QFile::link(folder->filePath("elsewhere.txt"), path));
        QCOMPARE(TableFileReader().readDoubleTable("table.txt").size(),
                 TableFileReader::maxFileSize);
    }
};

QTEST_APPLESS_MAIN(TestTableFileReader)
#include "tst_tablefilereader.moc"
