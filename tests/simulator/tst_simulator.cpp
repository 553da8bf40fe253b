#include "commands.h"
#include "fakemixerports.h"
#include "sysexassembler.h"
#include "testcase.h"

#include <QElapsedTimer>
#include <QSignalSpy>
#include <QTemporaryDir>

// The mixer on its desk: its commands, its cable and the pace at which it speaks.
class TestSimulator : public TestCase
{
    Q_OBJECT

    std::unique_ptr<QTemporaryDir> folder;
    std::unique_ptr<Simulator> simulator;
    std::unique_ptr<Commands> commands;
    FakeMixerPorts* ports = nullptr;

    void prepare() override
    {
        simulator.reset();
        folder = std::make_unique<QTemporaryDir>();
        simulator = std::make_unique<Simulator>(std::make_unique<FakeMixerPorts>(),
                                                StateFile(folder->filePath("state.json")));
        ports = FakeMixerPorts::last;
        commands = std::make_unique<Commands>(*simulator);
        simulator->start(true);
    }
    bool sentAll()
    {
        return QTest::qWaitFor([this] { return simulator->queued() == 0; });
    }
    QString answer(const QString& line) { return commands->run(line).answer; }

private slots:
    void cleanup() { simulator.reset(); }

    void commandsThatSend_data()
    {
        QTest::addColumn<QString>("line");
        QTest::addColumn<QByteArray>("message");
        const auto row = [](const char* line, const char* hex) {
            QTest::newRow(line) << QString(line) << QByteArray(hex);
        };
        row("set faderframe_ch1_fader 8938", "f000015f230201010004456af7");
        row("set faderframe_ch1_mute true", "f000015f2302010100050001f7");
        row("  global   ch1_phantom 0x1 ", "f000015f23030601003e0001f7");
        row("map miditab_bank2_channel 5", "f000015f2303050000020004f7");
        row("mode 14", "f000015f23050ef7");
        row("channel 13", "f000015f23060df7");
        row("sync", "f000015f230df7");
        row("cc 1 3 100", "surface b00364");
        row("note 16 14 0", "surface 9f0e00");
        row("hui 0x11 7 1", "f000015f2310110700000001f7");
        row("raw f0 00*3 f7 c1", "f0000000f7c1");
    }
    void commandsThatSend()
    {
        QFETCH(QString, line);
        QFETCH(QByteArray, message);
        QCOMPARE(answer(line), QString("ok"));
        QVERIFY(sentAll());
        QCOMPARE(ports->sent, QList<QByteArray>{message});
    }

    void badCommands()
    {
        for (const char* line : {"nonsense",
                                 "set",
                                 "set faderframe_ch1_fader",
                                 "set no_such 1",
                                 "set faderframe_ch1_fader 16384",
                                 "set faderframe_ch1_fader -1",
                                 "set faderframe_ch1_fader 1 2",
                                 "set ch1_phantom 1",
                                 "global faderframe_ch1_fader 1",
                                 "global miditab_bank1_channel 1",
                                 "map ch1_phantom 1",
                                 "map miditab_bank1_channel 0",
                                 "mode 7",
                                 "mode x",
                                 "channel 0",
                                 "cc 0 1 1",
                                 "cc 1 128 1",
                                 "note 17 1 1",
                                 "hui 1 2",
                                 "raw",
                                 "raw f",
                                 "raw zz",
                                 "raw f0*99999999",
                                 "raw 00*4194305",
                                 "plug sideways",
                                 "plug inputs-first",
                                 "plug inputs-first 0",
                                 "plug outputs-first x",
                                 "state no_such",
                                 "firmware",
                                 "firmware 1.2",
                                 "firmware fail",
                                 "firmware fail often",
                                 "mute-version maybe",
                                 "randomise x",
                                 "slot",
                                 "slot M",
                                 "slot AB",
                                 "slot A no_such",
                                 "slot A reverbtab_bypass 99999",
                                 "slot A randomise"}) {
            QVERIFY2(answer(line).startsWith("error: "), line);
        }
        QVERIFY(answer("").isEmpty());
        QVERIFY(ports->sent.isEmpty());
    }

    void stateAndSlots()
    {
        QCOMPARE(answer("randomise 3"), QString("ok"));
        QCOMPARE(answer("slot b save"), QString("ok"));
        QCOMPARE(answer("slot C reverbtab_bypass 1"), QString("ok"));
        QCOMPARE(commands->run("slot C reverbtab_bypass").lines,
                 QStringList{"slot C reverbtab_bypass 1"});
        QCOMPARE(commands->run("slot B").lines.size(), 329);
        QCOMPARE(commands->run("state changed-in-slot").lines.filter(" C ").join(' '),
                 QString("changed-in-slot C 1"));
        QCOMPARE(answer("global tone_gen_freq 77"), QString("ok"));
        QCOMPARE(commands->run("state tone_gen_freq").lines,
                 (QStringList{"global tone_gen_freq 77", "flash tone_gen_freq 440"}));
        QCOMPARE(commands->run("state not-in-flash").lines, QStringList{"not-in-flash 1"});
        QCOMPARE(answer("firmware 1.3.0"), QString("ok"));
        QCOMPARE(answer("firmware fail check-exit 9"), QString("ok"));
        QCOMPARE(commands->run("state firmware").lines,
                 (QStringList{"firmware running 1.2.5", "firmware stored 1.3.0",
                              "firmware failure check-exit 9"}));
        const QStringList all = commands->run("state").lines;
        QCOMPARE(all.filter(QRegularExpression("^live ")).size(), 329);
        QCOMPARE(all.filter(QRegularExpression("^global ")).size(), 208);
    }

    void unpluggedNothingIsSent()
    {
        QCOMPARE(answer("unplug"), QString("ok"));
        QCOMPARE(ports->shown.last(), qMakePair(false, false));
        QVERIFY(answer("set faderframe_ch1_fader 5").startsWith("ok, but unplugged"));
        QCOMPARE(commands->run("state faderframe_ch1_fader").lines,
                 QStringList{"live faderframe_ch1_fader 5"});
        QVERIFY(ports->sent.isEmpty());
    }

    void neverBackTooSoon()
    {
        QElapsedTimer away;
        QSignalSpy plugged(simulator.get(), SIGNAL(signalPlugged(bool)));
        away.start();
        QCOMPARE(answer("unplug"), QString("ok"));
        const auto reply = commands->run("plug outputs-first 100");
        QVERIFY(reply.waitsForPlug);
        QVERIFY(!simulator->isPlugged());
        QVERIFY(QTest::qWaitFor([&] { return simulator->isPlugged(); }));
        QVERIFY2(away.elapsed() >= 1200, qPrintable(QString::number(away.elapsed())));
        QVERIFY(ports->shown.last() == qMakePair(false, true));
        QVERIFY(QTest::qWaitFor([&] { return ports->shown.last() == qMakePair(true, true); }));
        QCOMPARE(plugged.count(), 2);
        QVERIFY(answer("plug").startsWith("ok, it was"));

        // The mixer's own restart takes longer still, and a dump in progress goes with it.
        ports->events.received(MixerPort::AudioControl,
                               QByteArray::fromHex("f000015f230a0c0000000000f7"));
        QVERIFY(simulator->queued() > 300);
        away.start();
        ports->events.received(MixerPort::AudioControl,
                               QByteArray::fromHex("f000015f230e000000000000f7"));
        QVERIFY(!simulator->isPlugged());
        QCOMPARE(simulator->queued(), 0);
        QVERIFY(QTest::qWaitFor([&] { return simulator->isPlugged(); }));
        QVERIFY(away.elapsed() >= 2000);

        // A cable pulled out meanwhile stays out.
        QCOMPARE(answer("restart"), QString("ok"));
        QCOMPARE(answer("unplug"), QString("ok"));
        QVERIFY(!simulator->isComing());
    }

    void portsThatCannotBeOpened()
    {
        ports->refusal = "no more ports";
        simulator->unplug();
        QTest::qWait(Simulator::shortestAbsenceMs + 50);
        QVERIFY(answer("plug").startsWith("error: "));
        QVERIFY(!simulator->isPlugged());
    }

    void aFullListenerIsWaitedFor()
    {
        ports->room = 10;
        ports->events.received(MixerPort::AudioControl,
                               QByteArray::fromHex("f000015f230a000000000000f7"));
        QTest::qWait(200);
        QCOMPARE(ports->sent.size(), 10);
        ports->room = -1;
        QVERIFY(sentAll());
        QCOMPARE(ports->sent.size(), 331);
    }

    void aFloodOfRequestsIsBounded()
    {
        QSignalSpy lines(simulator.get(), SIGNAL(signalLine(QString)));
        for (int i = 0; i < 100; ++i)
            ports->events.received(MixerPort::AudioControl,
                                   QByteArray::fromHex("f000015f230a000000000000f7"));
        QVERIFY(simulator->queued() <= 20000);
        simulator->unplug();
    }

    void longRawMessagesLeaveInPieces()
    {
        QSignalSpy lines(simulator.get(), SIGNAL(signalLine(QString)));
        QCOMPARE(answer("raw f0 41*600 f7"), QString("ok"));
        QVERIFY(sentAll());
        QCOMPARE(ports->sent.size(), 3);
        QCOMPARE(ports->sent.join(), QByteArray("f0") + QByteArray("41").repeated(600) + "f7");
        QCOMPARE(lines.count(), 1);
        QVERIFY(lines[0][0].toString().endsWith("(602 bytes)"));
    }

    void pace()
    {
        // A timer that is 0 to 3 ms late: no two messages closer than a millisecond, and no slower
        // in the long run.
        Pacer pacer;
        std::int64_t now = 5'000'000;
        std::int64_t last = 0;
        std::int64_t begin = now;
        for (int i = 0; i < 331; ++i) {
            now += pacer.wait(now);
            now += (i * 7 % 4) * 1000 * (i % 10 == 0);
            QVERIFY(i == 0 || now - last >= 1000);
            pacer.left(now);
            last = now;
        }
        QVERIFY(now - begin < 331 * 1250 + 4000);
        // A long stop is not made up for in one go.
        now += 10'000'000;
        begin = now;
        for (int i = 0; i < 2000; ++i) {
            now += pacer.wait(now);
            pacer.left(now);
        }
        QVERIFY(now - begin > 2000 * 1250 - 210'000);
    }

    void sysexPieces()
    {
        using Kind = SysexAssembler::Result::Kind;
        SysexAssembler assembler;
        QVERIFY(assembler.add(1, QByteArray::fromHex("f001")).isEmpty());
        QVERIFY(assembler.add(2, QByteArray::fromHex("f009")).isEmpty()); // another sender
        auto results = assembler.add(1, QByteArray::fromHex("02f7f003f7"));
        QCOMPARE(results.size(), 2);
        QCOMPARE(results[0].bytes.toHex(), QByteArray("f00102f7"));
        QCOMPARE(results[1].bytes.toHex(), QByteArray("f003f7"));
        results = assembler.add(2, QByteArray::fromHex("f005fff7")); // begun anew; an illegal byte
        QCOMPARE(results.size(), 2);
        QVERIFY(results[0].kind == Kind::Torn && results[1].kind == Kind::Message);
        QCOMPARE(results[1].bytes.toHex(), QByteArray("f005fff7"));
        results = assembler.add(1, QByteArray::fromHex("4142f7"));
        QVERIFY(results.size() == 1 && results[0].kind == Kind::Torn);
        assembler.add(3, QByteArray::fromHex("f044"));
        QCOMPARE(assembler.interrupt(3).size(), 1);
        QVERIFY(assembler.interrupt(3).isEmpty());

        // One that never ends is told of once and forgotten up to its end.
        int reports = 0;
        assembler.add(4, QByteArray::fromHex("f0"));
        for (int i = 0; i < 5000; ++i)
            reports += int(assembler.add(4, QByteArray(256, 'A')).size());
        QCOMPARE(reports, 1);
        QVERIFY(assembler.add(4, QByteArray::fromHex("f7")).isEmpty());
        QCOMPARE(assembler.add(4, QByteArray::fromHex("f0f7")).size(), 1);
    }
};

QTEST_GUILESS_MAIN(TestSimulator)
#include "tst_simulator.moc"
