#include "testcase.h"

#include <QDir>
#include <QFile>
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
    QString tool;

    void prepare() override
    {
        folder = std::make_unique<QTemporaryDir>();
        tool = TOOL;
        qputenv("JSUM_SIMULATOR_STATE", file("state.json").toLocal8Bit());
        qputenv("JSUM_DFUCONS_MS", "50");
        write("flashdata.txt", "; built today\r\nVersion: 1.10.0\r\nsize 7\r\n");
        write("flashdata.bin", "data");
        write("flashupgrade.bin", "upgrade");
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
    bool stateHas(const QByteArray& text) const
    {
        QFile source(file("state.json"));
        return source.open(QIODevice::ReadOnly) && source.readAll().contains(text);
    }
    // The code is -1 where it had to be killed.
    Run run(const QStringList& arguments, int patienceMs = 60000) const
    {
        QProcess process;
        process.start(tool, arguments);
        const bool ended = process.waitForFinished(patienceMs);
        process.kill();
        process.waitForFinished();
        return {ended ? process.exitCode() : -1, process.readAllStandardOutput(),
                process.readAllStandardError()};
    }
    QStringList check() const { return {"chipversions", file("flashdata.txt")}; }
    QStringList update() const
    {
        return {"jsumdownload", file("flashupgrade.bin"), file("flashdata.bin"), "-v"};
    }

private slots:
    void outcomes_data()
    {
        QTest::addColumn<bool>("updating");
        QTest::addColumn<QByteArray>("found");
        QTest::addColumn<int>("code");
        QTest::addColumn<QByteArray>("says");
        const auto row = [](bool updating, const char* found, const char* failure, int code,
                            const char* says) {
            QTest::newRow(failure) << updating << QByteArray(found) << code << QByteArray(says);
        };
        row(false, "1.10.0", "none", 0, "   TYPE_VERSION 0 11000(1.10.0)");
        row(false, "0.0.7", "nonsense", 38, " 9 TYPE_VERSION 0 7(0.0.7)"); // counts as none
        row(false, "1.10.0", "check-exit 7", 7, " 9 TYPE_VERSION 0 11000(1.10.0)");
        row(false, "1.2.3", "check-hang", -1, " 9 TYPE_VERSION 0 10203(1.2.3)");
        row(true, "1.2.0", "", 0, "writing block 50 of 50: ok\r\nDone");
        row(true, "1.2.0", "stderr", 1, "block 25 of");
        row(true, "1.2.0", "exit", 5, "block 25 of");
        row(true, "1.2.0", "hang", -1, "block 25 of");
    }
    void outcomes()
    {
        QFETCH(bool, updating);
        QFETCH(QByteArray, found);
        const QByteArray failure = QTest::currentDataTag();
        QFETCH(int, code);
        QFETCH(QByteArray, says);
        mixerWith(found, failure);
        const Run result = run(updating ? update() : check(), code < 0 ? 2000 : 60000);
        QCOMPARE(result.code, code);
        QCOMPARE(result.err.contains("ERROR"), failure == "stderr");
        QVERIFY2(result.out.contains(says), result.out);
        QVERIFY(stateHas(updating && code == 0 ? "\"version\": \"1.10.0\"" : found));
        QVERIFY(stateHas("\"mode\": 3"));
    }

    void audioSettings()
    {
        // Without the environment's word the state lies in the folder above the tool's.
        qunsetenv("JSUM_SIMULATOR_STATE");
        QVERIFY(QDir().mkpath(file("resources")));
        QVERIFY(QFile::copy(TOOL, file("resources/dfucons.exe")));
        tool = file("resources/dfucons.exe");
        QCOMPARE(run({"getaudiosettings"}).code, 2);
        write("jsum-simulator-state.json", "{}");
        QCOMPARE(run({"setsamplerate", "96000"}).code, 0);
        QCOMPARE(run({"setbuffersize", "2048"}).code, 0);
        QCOMPARE(run({"setsamplerate", "12"}).code, 1);
        QCOMPARE(run({"setbuffersize", "many"}).code, 1);
        QCOMPARE(run({"getaudiosettings"}).out,
                 QByteArray("Current SampleRate: 96000\r\nMinimum BufferSize: 2048\r\n"
                            "USB Safe Mode Enabled: 1\r\n"));
    }

    void refusals()
    {
        for (const auto& arguments : {check(), update(), {"getaudiosettings"}}) {
            const Run result = run(arguments);
            QCOMPARE(result.code, 2);
            QVERIFY(!result.err.isEmpty() && result.out.isEmpty());
        }
        QVERIFY(!QFile::exists(file("state.json")));
        write("state.json", "{ broken");
        QCOMPARE(run(update()).code, 2);
        QCOMPARE(run({"setsamplerate", "96000"}).code, 2);
        QVERIFY(stateHas("{ broken"));
        mixerWith("1.2.0");
        QFile::remove(file("flashupgrade.bin"));
        QCOMPARE(run(update()).code, 1);
        QFile::remove(file("flashdata.txt"));
        QCOMPARE(run(check()).code, 1);
        QVERIFY(stateHas("1.2.0"));
        for (const char* line : {"", "selfdestruct", "chipversions", "getaudiosettings x"})
            QCOMPARE(run(QString(line).split(' ', Qt::SkipEmptyParts)).code, 64);
    }
};

QTEST_GUILESS_MAIN(TestDfucons)
#include "tst_dfucons.moc"
