#include "sequencerhost.h"
#include "simulatorprocess.h"
#include "testcase.h"

#include <QElapsedTimer>
#include <QFile>
#include <QTemporaryDir>

// The simulator as a program on the system's MIDI sequencer, seen by a host that knows nothing of
// it.
class TestSimulatorPorts : public TestCase
{
    Q_OBJECT

    const QString audio = QStringLiteral("J-Sum Audio Control");
    const QString surface = QStringLiteral("J-Sum Control Surface");
    const QStringList both{audio, surface};
    const QStringList none;

    std::unique_ptr<QTemporaryDir> folder;
    std::unique_ptr<SimulatorProcess> simulator;
    std::unique_ptr<SequencerHost> host;
    QList<QByteArray> arrived;

    void prepare() override
    {
        folder = std::make_unique<QTemporaryDir>();
        arrived.clear();
        simulator = std::make_unique<SimulatorProcess>(SIMULATOR, folder->filePath("state.json"));
        QVERIFY(simulator->start());
        host = std::make_unique<SequencerHost>();
        QVERIFY2(host->open(), "no sequencer");
    }
    template <typename Condition> static bool wait(Condition condition)
    {
        return QTest::qWaitFor(condition, SimulatorProcess::patienceMs);
    }
    bool arrives(const QByteArray& hex)
    {
        return wait([&] {
            host->read(arrived);
            return arrived.contains(hex);
        });
    }
    bool send(const char* hex) { return host->sendSysex(QByteArray::fromHex(hex)); }
    // Whether the mixer's state has this line.
    bool holds(const QByteArray& name, int value)
    {
        simulator->mark();
        return simulator->command("state " + name)
            && simulator->count(QString("^live %1 %2$").arg(QString(name)).arg(value)) == 1;
    }

private slots:
    void cleanup()
    {
        host.reset();
        simulator.reset();
    }

    void portsComeAndGo()
    {
        QCOMPARE(host->inputs(), both);
        QCOMPARE(host->outputs(), both);
        for (const bool inputsFirst : {true, false}) {
            QElapsedTimer away;
            away.start();
            QVERIFY(simulator->command("unplug"));
            QCOMPARE(host->inputs() + host->outputs(), none);
            QVERIFY(simulator->command(inputsFirst ? "plug inputs-first 5000"
                                                   : "plug outputs-first 5000"));
            QVERIFY(away.elapsed() >= 1200);
            QCOMPARE(host->inputs(), inputsFirst ? both : none);
            QCOMPARE(host->outputs(), inputsFirst ? none : both);
            QVERIFY(wait([&] { return host->inputs() == both && host->outputs() == both; }));
        }
    }

    void answersAndRestarts()
    {
        QVERIFY(host->listenTo(audio) && host->listenTo(surface) && host->speakTo(audio));
        QVERIFY(send("f000015f2300000000000000f7"));
        QVERIFY(arrives("f000015f2300000000010205f7"));
        QVERIFY(simulator->command("cc 1 3 100"));
        QVERIFY(arrives("cc 100"));
        QVERIFY(send("f000015f230e000000000000f7"));
        QVERIFY(wait([&] { return host->inputs() == none; }));
        QVERIFY(wait([&] { return host->outputs() == both; }));
        QVERIFY(host->listenTo(audio) && host->speakTo(audio));
        QVERIFY(send("f000015f2300000000000000f7"));
        QVERIFY(simulator->waitFor("version query", 2));
    }

    // A host with the usual pool of 200 cells, which 331 messages at once would overrun.
    void dumpArrivesWhole_data()
    {
        QTest::addColumn<int>("delayMs");
        QTest::newRow("as fast as it can") << 0;
        QTest::newRow("a slow host") << 8;
    }
    void dumpArrivesWhole()
    {
        QFETCH(int, delayMs);
        QVERIFY(host->listenTo(audio) && host->speakTo(audio));
        QVERIFY(simulator->command("slot C randomise 5"));
        QElapsedTimer time;
        time.start();
        QVERIFY(send("f000015f230a020100000000f7"));
        QVERIFY(wait([&] {
            host->read(arrived, static_cast<unsigned long>(delayMs));
            return arrived.contains("f000015f230a020101f7");
        }));
        qInfo("331 messages in %lld ms", time.elapsed());
        QCOMPARE(arrived.size(), 331);
        QCOMPARE(arrived.first(), QByteArray("f000015f230a020001f7"));
        QCOMPARE(QSet<QByteArray>(arrived.begin(), arrived.end()).size(), 331);
        QVERIFY(time.elapsed() >= 330); // a millisecond between any two
    }

    // Nothing that a host writes in one go is lost: a whole preset, without any pace.
    void takesABurst()
    {
        QVERIFY(host->speakTo(audio));
        const QByteArray begin = QByteArray::fromHex("f000015f230201010004");
        for (int value = 0; value < 400; ++value) {
            QVERIFY(host->sendSysex(begin + char(value >> 7) + char(value & 0x7F) + '\xf7'));
        }
        QVERIFY(simulator->waitFor("faderframe_ch1_fader = 399 "));
        QCOMPARE(simulator->count("faderframe_ch1_fader = "), 400);
        QVERIFY(holds("faderframe_ch1_fader", 399));
    }

    void piecesAndIllegalBytes()
    {
        QVERIFY(host->speakTo(audio));
        // In three pieces, with something else between that may not stand there.
        QVERIFY(send("f000015f23") && send("0500000000") && send("000ef7"));
        QVERIFY(simulator->waitFor("mode 14 \\(trim\\)"));
        QVERIFY(send("f000015f") && host->sendController(1, 7, 99));
        QVERIFY(simulator->waitFor("\\| f0 00 01 5f$"));
        QVERIFY(simulator->waitFor("control change 7 = 99, channel 1"));
        QVERIFY(send("f000015f23020101000"
                     "4ff7ff7"));
        QVERIFY(simulator->waitFor("faderframe_ch1_fader = 32767"));
        // One that does not end.
        QVERIFY(host->sendSysex(QByteArray("\xf0") + QByteArray(1000, 'A')));
        for (int i = 0; i < 70; ++i) {
            QVERIFY(wait([&] { return host->sendSysex(QByteArray(1000, 'A')); }));
            QTest::qWait(5);
        }
        QVERIFY(simulator->waitFor("more than 65536 bytes is dropped"));
        QVERIFY(send("f7") && send("f000015f2306000000000003f7"));
        QVERIFY(simulator->waitFor("channel 3 \\(ch3\\)"));
    }

    void stateIsSavedAtTheEnd()
    {
        QVERIFY(simulator->command("set faderframe_ch2_fader 7777"));
        simulator->stop();
        QFile file(folder->filePath("state.json"));
        QVERIFY(file.open(QIODevice::ReadOnly));
        QVERIFY(file.readAll().contains("\"faderframe_ch2_fader\": 7777"));
        QVERIFY(simulator->start());
        QVERIFY(holds("faderframe_ch2_fader", 7777));
    }
};

QTEST_GUILESS_MAIN(TestSimulatorPorts)
#include "tst_simulatorports.moc"
