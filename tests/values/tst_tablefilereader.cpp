#include "tablefilereader.h"
#include "testcase.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

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

    static void expectWarnings()
    {
        QTest::ignoreMessage(QtDebugMsg,
                             "WARNING: table.txt Not Found Path: resources/tables/table.txt");
        QTest::ignoreMessage(QtDebugMsg, "WARNING: table.txt Not Found");
    }

private slots:
    void cleanup() { QDir::setCurrent(startFolder); }

    void realNumbers_data()
    {
        QTest::addColumn<QByteArray>("content");
        QTest::addColumn<QList<double>>("numbers");
        const auto row = [](const char* content, const QList<double>& numbers) {
            QTest::newRow(content) << QByteArray(content) << numbers;
        };
        row("1.5,1.05,1.25,-0.5,", {1.5, 1.05, 1.25, -0.5});
        row(".5,20.50,2.9,2.10,3.,-.25,", {0.5, 20.5, 2.9, 2.1, 3.0, -0.25});
        row("12", {});
        row("", {});
        row("1,2", {1.0});
        row("1,,2,", {1.0, 0.0, 2.0});
        row("1.250,1.005,", {3.5, 1.05}); // only two decimals are understood
        row("5-,1-2,", {-5.0, -12.0});
        row("1.2.5,", {1.25});
        row("1. 05,", {1.5}); // its first character is no zero
        row("1,\n 2.5 ,\r\n-3 \n.5\n,\n", {1.0, 2.5, -3.5});
        row("six,1 2,0x10,1e3,2.x,+4,", {0.0, 0.0, 0.0, 0.0, 2.0, 4.0});
        row("99999999999,1.99999999999,", {0.0, 1.0});
        row("5\xB2,\xC3\xA9,6,", {0.0, 0.0, 6.0});
    }
    void realNumbers()
    {
        QFETCH(QByteArray, content);
        write(content);
        QTEST(TableFileReader().readDoubleTable("table.txt"), "numbers");
    }

    void integers_data()
    {
        QTest::addColumn<QByteArray>("content");
        QTest::addColumn<QList<int>>("numbers");
        const auto row = [](const char* content, const QList<int>& numbers) {
            QTest::newRow(content) << QByteArray(content) << numbers;
        };
        row("3000,-7,\r\n 10600 ,", {3000, -7, 10600});
        row("1,,2", {1, 0});
        row("5-,1.5,six,4294967296,", {0, 0, 0, 0});
    }
    void integers()
    {
        QFETCH(QByteArray, content);
        write(content);
        QTEST(TableFileReader().readIntTable("table.txt"), "numbers");
    }

    void bytesOfAllKinds()
    {
        QByteArray content;
        for (int round = 0; round < 64; ++round) {
            for (int byte = 0; byte < 256; ++byte)
                content.append(static_cast<char>(byte * (2 * round + 1)));
        }
        write(content);
        QCOMPARE(TableFileReader().readDoubleTable("table.txt").size(), 64);
        QCOMPARE(TableFileReader().readIntTable("table.txt").size(), 64);
    }

    // A pipe that were opened would hang the program, a device would fill its memory.
    void unreadable_data()
    {
        QTest::addColumn<QString>("kind");
        for (const char* kind : {"missing", "directory", "pipe", "device", "huge", "dead link"})
            QTest::newRow(kind) << kind;
    }
    void unreadable()
    {
        QFETCH(QString, kind);
        if (kind == "directory")
            QVERIFY(QDir().mkpath(path));
        else if (kind == "pipe")
            QCOMPARE(::mkfifo(QFile::encodeName(path).constData(), 0600), 0);
        else if (kind == "device")
            QVERIFY(QFile::link("/dev/zero", path));
        else if (kind == "dead link")
            QVERIFY(QFile::link("nowhere", path));
        else if (kind == "huge")
            QVERIFY(QFile(path).open(QIODevice::WriteOnly) && QFile::resize(path, qint64(1) << 32));

        expectWarnings();
        QVERIFY(TableFileReader().readDoubleTable("table.txt").isEmpty());
        QVERIFY(TableFileReader().readIntTable("table.txt").isEmpty());
    }

    void largestFile()
    {
        write(QByteArray(TableFileReader::maxFileSize, ','));
        QCOMPARE(TableFileReader().readDoubleTable("table.txt").size(),
                 TableFileReader::maxFileSize);
        write(QByteArray(TableFileReader::maxFileSize + 1, ','));
        expectWarnings();
        QVERIFY(TableFileReader().readDoubleTable("table.txt").isEmpty());
        QVERIFY(TableFileReader().readIntTable("table.txt").isEmpty());
    }

    void linkToAFile()
    {
        write("1.5,");
        QVERIFY(QFile::rename(path, "elsewhere.txt"));
        QVERIFY(QFile::link(folder->filePath("elsewhere.txt"), path));
        QCOMPARE(TableFileReader().readDoubleTable("table.txt"), QList<double>{1.5});
    }
};

QTEST_APPLESS_MAIN(TestTableFileReader)
#include "tst_tablefilereader.moc"
