#include "testcase.h"

#include <QDir>
#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QTemporaryDir>

// The stand-in for the firmware tool, as a program: what it prints, how it ends, what it changes.
class TestDfucons : public TestCase
{
    Q_OBJECT

    struct Run {
        int code;
        QByteArray out;
        QByteArray err;
    };
    std::unique_ptr<QTemporaryDir> folder;

    void prepare() override
    {
        folder = std::make_unique<QTemporaryDir>();
        qputenv("JSUM_SIMULATOR_STATE", file("state.json").toLocal8Bit());
        qputenv("JSUM_DFUCONS_MS", "50");
    }
    QString file(const char* name) const { return folder->filePath(name); }
    void write(const char* name, const QByteArray& bytes)
    {
        QFile target(file(name));
        QVERIFY(target.open(QIODevice::WriteOnly));
        target.write(bytes);
    }
    void mixerWith(const QByteArray& version, const QByteArray& failure = "none")
    {
        write("state.json",
              "{\"mixer\": {\"mode\": 3}, \"firmware\": {\"version\": \"" + version
                  + "\", \"failure\": \"" + failure + "\"}}");
    }
    void firmwareFiles(const QByteArray& version)
    {
        write("flashdata.txt", "version " + version + "\n");
        write("flashdata.bin", "data");
        write("flashupgrade.bin", "upgrade");
    }
    QJsonObject state() const
    {
        QFile source(file("state.json"));
        return source.open(QIODevice::ReadOnly) ? QJsonDocument::fromJson(source.readAll()).object()
                                                : QJsonObject();
    }
    static Run run(const QStringList& arguments, const QString& program = TOOL)
    {
        QProcess process;
        process.start(program, arguments);
        process.waitForFinished(60000);
        return {process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1,
                process.readAllStandardOutput(), process.readAllStandardError()};
    }
    Run check() { return run({"chipversions", file("flashdata.txt")}); }
    Run update()
    {
        return run({"jsumdownload", file("flashupgrade.bin"), file("flashdata.bin"), "-v"});
    }

private slots:
    void versions_data()
    {
        QTest::addColumn<QByteArray>("found");
        QTest::addColumn<QByteArray>("expected");
        QTest::addColumn<QByteArray>("foundMark");
        QTest::addColumn<QByteArray>("expectedMark");
        QTest::addColumn<int>("code");
        QTest::newRow("equal") << QByteArray("1.2.5") << QByteArray("1.2.5") << QByteArray("10205")
                               << QByteArray("10205") << 0;
        QTest::newRow("older") << QByteArray("1.2.3") << QByteArray("1.10.0") << QByteArray("10203")
                               << QByteArray("11000") << 38;
        QTest::newRow("small") << QByteArray("0.0.7") << QByteArray("12.34.56") << QByteArray("7")
                               << QByteArray("123456") << 38;
    }
    void versions()
    {
        QFETCH(QByteArray, found);
        QFETCH(QByteArray, expected);
        mixerWith(found);
        firmwareFiles(expected);
        const Run result = check();
        QTEST(result.code, "code");
        QVERIFY(result.err.isEmpty());
        // Read as the editor does: the found version's mark, and behind it the expected one's.
        const QByteArray foundMark = "9 TYPE_VERSION 0 ";
        const QByteArray mark = "TYPE_VERSION 0 ";
        const auto begin = result.out.indexOf(foundMark) + foundMark.size();
        QVERIFY(begin > foundMark.size());
        const auto end = result.out.indexOf('(', begin);
        QTEST(result.out.mid(begin, end - begin), "foundMark");
        const auto second = result.out.indexOf(mark, end) + mark.size();
        QVERIFY(second > end);
        QTEST(result.out.mid(second, result.out.indexOf('(', second) - second), "expectedMark");
        QVERIFY(result.out.size() > 2048);
    }

    void updateChangesTheVersionOnly()
    {
        mixerWith("1.2.0");
        firmwareFiles("1.2.5");
        const Run result = update();
        QCOMPARE(result.code, 0);
        QVERIFY(result.err.isEmpty());
        QCOMPARE(result.out.count("writing block"), 50);
        QVERIFY(result.out.endsWith("\r\n"));
        QCOMPARE(state()["firmware"].toObject()["version"].toString(), QString("1.2.5"));
        QCOMPARE(state()["mixer"].toObject()["mode"].toInt(), 3);
        QCOMPARE(check().code, 0);
    }

    void toldToFail()
    {
        firmwareFiles("1.2.5");
        mixerWith("1.2.0", "stderr");
        Run result = update();
        QCOMPARE(result.code, 1);
        QVERIFY(result.err.contains("ERROR") && result.out.contains("block 25 of"));
        QCOMPARE(check().code, 38);
        mixerWith("1.2.0", "exit");
        result = update();
        QCOMPARE(result.code, 5);
        QVERIFY(result.err.isEmpty());
        mixerWith("1.2.5", "check-exit 7");
        QCOMPARE(check().code, 7);
        mixerWith("1.2.5", "nonsense"); // counts as none
        QCOMPARE(check().code, 0);
        QCOMPARE(state()["firmware"].toObject()["version"].toString(), QString("1.2.5"));
    }

    void hangsUntilKilled_data()
    {
        QTest::addColumn<QByteArray>("failure");
        QTest::addColumn<bool>("updating");
        QTest::newRow("check") << QByteArray("check-hang") << false;
        QTest::newRow("update") << QByteArray("hang") << true;
    }
    void hangsUntilKilled()
    {
        QFETCH(QByteArray, failure);
        QFETCH(bool, updating);
        firmwareFiles("1.2.5");
        mixerWith("1.2.0", failure);
        QProcess process;
        process.start(TOOL,
                      updating ? QStringList{"jsumdownload", file("flashupgrade.bin"),
                                             file("flashdata.bin"), "-v"}
                               : QStringList{"chipversions", file("flashdata.txt")});
        QVERIFY(process.waitForReadyRead(10000));
        QVERIFY(!process.waitForFinished(700));
        process.kill();
        QVERIFY(process.waitForFinished(10000));
        QCOMPARE(state()["firmware"].toObject()["version"].toString(), QString("1.2.0"));
    }

    void audioSettings()
    {
        mixerWith("1.2.5");
        QCOMPARE(run({"getaudiosettings"}).out,
                 QByteArray("Current SampleRate: 48000\r\nMinimum BufferSize: 1024\r\n"
                            "USB Safe Mode Enabled: 1\r\n"));
        QCOMPARE(run({"setsamplerate", "96000"}).code, 0);
        QCOMPARE(run({"setbuffersize", "2048"}).code, 0);
        QCOMPARE(run({"setsamplerate", "12"}).code, 1);
        QCOMPARE(run({"setbuffersize", "many"}).code, 1);
        QVERIFY(run({"getaudiosettings"})
                    .out.startsWith("Current SampleRate: 96000\r\nMinimum BufferSize: 2048\r\n"));
        QCOMPARE(state()["mixer"].toObject()["mode"].toInt(), 3);
    }

    void noMixer()
    {
        firmwareFiles("1.2.5");
        for (const auto& result : {check(), update(), run({"getaudiosettings"})}) {
            QCOMPARE(result.code, 2);
            QVERIFY(!result.err.isEmpty() && result.out.isEmpty());
        }
        QVERIFY(!QFile::exists(file("state.json")));
        write("state.json", "{ broken");
        QCOMPARE(update().code, 2);
        QCOMPARE(run({"setsamplerate", "96000"}).code, 2);
        QFile broken(file("state.json"));
        QVERIFY(broken.open(QIODevice::ReadOnly));
        QCOMPARE(broken.readAll(), QByteArray("{ broken"));
    }

    void missingFirmwareFiles()
    {
        mixerWith("1.2.0");
        QCOMPARE(check().code, 1);
        QCOMPARE(update().code, 1);
        firmwareFiles("1.2.5");
        QFile::remove(file("flashupgrade.bin"));
        QCOMPARE(update().code, 1);
        QCOMPARE(state()["firmware"].toObject()["version"].toString(), QString("1.2.0"));
    }

    void usage()
    {
        for (const QStringList& arguments :
             {QStringList{}, {"selfdestruct"}, {"chipversions"}, {"getaudiosettings", "x"}}) {
            const Run result = run(arguments);
            QCOMPARE(result.code, 64);
            QVERIFY(result.err.startsWith("usage:"));
        }
    }

    // Without the environment's word the state lies in the folder above the tool's.
    void findsTheStateAboveItself()
    {
        qunsetenv("JSUM_SIMULATOR_STATE");
        QVERIFY(QDir().mkpath(file("resources")));
        const QString copy = file("resources/dfucons.exe");
        QVERIFY(QFile::copy(TOOL, copy));
        QCOMPARE(run({"getaudiosettings"}, copy).code, 2);
        write("jsum-simulator-state.json", "{}");
        QCOMPARE(run({"getaudiosettings"}, copy).code, 0);
    }
};

QTEST_GUILESS_MAIN(TestDfucons)
#include "tst_dfucons.moc"
