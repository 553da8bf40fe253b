#include "commands.h"
#include "fakemixerports.h"
#include "sysexassembler.h"
#include "testcase.h"

#include <QElapsedTimer>
#include <QSignalSpy>
#include <QTemporaryDir>

// The mixer on its desk: what each message and command does to it, its cable and its pace.
class TestSimulator : public TestCase
{
    Q_OBJECT

    std::unique_ptr<QTemporaryDir> folder;
    std::unique_ptr<Simulator> simulator;
    std::unique_ptr<Commands> commands;
    std::unique_ptr<QSignalSpy> lines;
    FakeMixerPorts* ports = nullptr;

    void prepare() override
    {
        folder = std::make_unique<QTemporaryDir>();
        simulator = std::make_unique<Simulator>(std::make_unique<FakeMixerPorts>(),
                                                StateFile(folder->filePath("state.json")));
        ports = FakeMixerPorts::last;
        commands = std::make_unique<Commands>(*simulator);
        lines = std::make_unique<QSignalSpy>(simulator.get(), SIGNAL(signalLine(QString)));
        simulator->start(true);
    }
    // What a command answers. Behind "host" or "surface" stand the bytes of a message to that port,
    // and the answer is what the monitor says last of it.
    QString run(const QString& line)
    {
        const QString word = line.section(' ', 0, 0);
        if (word != "host" && word != "surface")
            return commands->run(line).answer;
        ports->events.received(word == "host" ? MixerPort::AudioControl : MixerPort::ControlSurface,
                               QByteArray::fromHex(line.section(' ', 1).toLatin1()));
        return lines->last()[0].toString();
    }
    QStringList state() { return commands->run("state").lines; }
    bool sentAll()
    {
        return QTest::qWaitFor([this] { return simulator->queued() == 0; });
    }

private slots:
    void cleanup() { simulator.reset(); }

    void effects_data()
    {
        QTest::addColumn<QString>("holds");
        QTest::addColumn<QByteArray>("sent");
        const auto row = [](const char* input, const char* holds, const char* sent = "") {
            QTest::newRow(input) << QString(holds) << QByteArray(sent);
        };
        // From the host; only the version query is answered.
        row("host f000015f2300000000000000f7", "mute-version no", "f000015f2300000000010205f7");
        row("mute-version on;host f000015f2300000000000000f7", "mute-version yes");
        row("host f000015f230201010004456af7", "live faderframe_ch1_fader 8938");
        row("host f000015f230201010004ff7ff7", "live faderframe_ch1_fader 32767"); // as it came
        row("host f000015f2303050000020004f7",
            "global miditab_bank2_channel 5;flash miditab_bank2_channel 2");
        row("host f000015f230500000000000ef7;host f000015f2306000000000008f7",
            "mode 14 trim;channel 8");
        row("host f000015f230500000000000cf7", "channel 12"); // an aux has a channel of its own
        row("host f000015f230c000000000000f7", "dsp-updating no;stereo-updating yes");
        row("host f000015f230c000000000000f7;host f000015f230c000000010000f7;"
            "host f000015f230c010000000000f7",
            "dsp-updating yes;stereo-updating no");
        row("host f000015f2310120500000001f7", "light mute 00000000;light solo 00000100");
        row("host f000015f237f000000000000f7", "communication-ended yes");
        row("surface b00364;surface 910e7f;surface 810e40",
            "surface cc 1 3 100;surface note 2 14 0");
        // What is in flash outlasts a restart, and so do the live values.
        row("host f000015f2303060000380101f7;host f000015f230b000000000000f7;"
            "host f000015f2303060000380102f7;host f000015f230201010004000af7;"
            "host f000015f230e000000000000f7",
            "plugged coming;not-in-flash 0;global tone_gen_freq 129;live faderframe_ch1_fader 10");
        // By command.
        row("set faderframe_ch1_fader 8938", "queued 0", "f000015f230201010004456af7");
        row("  global   ch1_phantom 0x1 ", "global ch1_phantom 1", "f000015f23030601003e0001f7");
        row("map miditab_bank2_channel 16", "queued 0", "f000015f230305000002000ff7");
        row("mode 14;channel 13", "mode 14 trim;channel 13", "f000015f23050ef7,f000015f23060df7");
        row("cc 1 3 100;note 16 14 0", "queued 0", "surface b00364,surface 9f0e00");
        row("hui 0x11 7 1", "queued 0", "f000015f2310110700000001f7");
        row("raw f0 00*3 f7 c1", "queued 0", "f0000000f7c1");
        row("unplug;set faderframe_ch1_fader 5", "plugged no;live faderframe_ch1_fader 5");
        row("firmware 1.3.0;firmware fail check-exit 9",
            "firmware running 1.2.5;firmware stored 1.3.0;firmware failure check-exit 9");
        row("slot C reverbtab_bypass on;slot c", "changed-in-slot C 1;changed-in-slot B 0");
        row("slot a save;slot A reverbtab_bypass 1;slot A faderframe_ch1_mute 1;slot A recall",
            "live reverbtab_bypass 1",
            "f000015f230df7,f000015f2302010100050001f7,f000015f2302030000390001f7");
    }
    void effects()
    {
        QFETCH(QString, holds);
        for (const QString& input : QString(QTest::currentDataTag()).split(';')) {
            const QString answer = run(input);
            QVERIFY2(!answer.contains("error") && !answer.contains("ignored"), qPrintable(answer));
        }
        QVERIFY(sentAll());
        for (const QString& line : holds.split(';'))
            QVERIFY2(state().contains(line), qPrintable(line));
        QTEST(ports->sent.join(','), "sent");
    }

    void whatMakesNoSenseChangesNothing()
    {
        const QString commandLines =
            "nonsense;set;set faderframe_ch1_fader;set no_such 1;set faderframe_ch1_fader 16384;"
            "set faderframe_ch1_fader -1;set faderframe_ch1_fader 1 2;set ch1_phantom 1;"
            "global faderframe_ch1_fader 1;global miditab_bank1_channel 1;map ch1_phantom 1;"
            "map miditab_bank1_channel 0;map miditab_fader1_bank1_cc 128;mode 7;mode x;"
            "channel 0;channel 14;cc 0 1 1;cc 1 128 1;note 17 1 1;hui 1 2;raw;raw f;raw zz;"
            "raw f0*99999999;raw 00*4194305;plug sideways;plug inputs-first;"
            "plug inputs-first 0;plug outputs-first x;state no_such;firmware;firmware 1.2;firmware "
            "1.2.100;"
            "firmware fail;firmware fail often;firmware fail check-exit 256;mute-version "
            "maybe;randomise x;slot;slot M;"
            "slot AB;slot A no_such;slot A reverbtab_bypass 99999;slot A randomise;"
            "end-marker thrice";
        const QString messages =
            "surface f0f7;host ;host f0f7;host 903c7f;host f000015f2300f7;host f000015f230503f7;"
            "host f000015f230000000000000000f7;host f000015f2200000000000000f7;"
            "host f000015f230000000000000000;host f000015f2301000000000000f7;"
            "host f000015f2302000000000001f7;host f000015f2302040100040001f7;"
            "host f000015f23020101000e0001f7;host f000015f2302010e00040001f7;"
            "host f000015f2303010100040001f7;host f000015f2303060000460001f7;"
            "host f000015f2305000000000007f7;host f000015f230500000000000ff7;"
            "host f000015f230600000000000af7;host f000015f23090d0000000000f7;"
            "host f000015f230a0d0000000000f7;host f000015f230c020000000000f7;"
            "host f000015f230c010000020000f7;host f000015f2310140000000001f7;"
            "host f000015f2310110800000001f7;host f000015f2310110000000002f7;"
            // A stereo of an even channel, a second channel too many, a diamond that points
            // nowhere.
            "host f000015f2302020200430001f7;host f000015f2302010a0b040001f7;"
            "host f000015f2303050600010200f7;host f000015f2302ff7f7f7f0001f7";
        const QStringList before = state();
        for (const QString& input : (commandLines + ';' + messages).split(';')) {
            const QString answer = run(input);
            QVERIFY2(answer.startsWith("error: ") || answer.startsWith("-- ignored: "),
                     qPrintable(input + " -> " + answer));
        }
        QCOMPARE(state(), before);
        QVERIFY(ports->sent.isEmpty());
    }

    void neverBackTooSoon()
    {
        QElapsedTimer away;
        away.start();
        run("unplug");
        QVERIFY(commands->run("plug outputs-first 100").waitsForPlug);
        QVERIFY(!simulator->isPlugged());
        QVERIFY(QTest::qWaitFor([&] { return simulator->isPlugged(); }));
        QVERIFY2(away.elapsed() >= 1200, qPrintable(QString::number(away.elapsed())));
        QVERIFY(ports->shown.last() == qMakePair(false, true));
        QVERIFY(QTest::qWaitFor([&] { return ports->shown.last() == qMakePair(true, true); }));

        // The mixer's own restart takes longer still, and a dump in progress goes with it.
        run("host f000015f230a0c0000000000f7");
        QVERIFY(simulator->queued() > 300);
        away.start();
        run("host f000015f230e000000000000f7");
        QCOMPARE(simulator->queued(), 0);
        QVERIFY(QTest::qWaitFor([&] { return simulator->isPlugged(); }));
        QVERIFY(away.elapsed() >= 2000);

        // A cable pulled out meanwhile stays out; so does one that finds no ports.
        run("restart");
        run("unplug");
        QVERIFY(!simulator->isComing());
        ports->refusal = "no more ports";
        QTest::qWait(Simulator::shortestAbsenceMs + 50);
        QVERIFY(run("plug").startsWith("error: "));
    }

    void muchAtATime()
    {
        ports->room = 10; // a full listener is waited for
        run("host f000015f230a000000000000f7");
        QTest::qWait(200);
        QCOMPARE(ports->sent.size(), 10);
        ports->room = -1;
        QVERIFY(sentAll());
        QCOMPARE(ports->sent.size(), 331);
        run("raw f0 41*600 f7"); // leaves in pieces
        QVERIFY(sentAll());
        QCOMPARE(ports->sent.size(), 334);
        QCOMPARE(ports->sent.mid(331).join(), "f0" + QByteArray("41").repeated(600) + "f7");
        for (int i = 0; i < 100; ++i)
            run("host f000015f230a000000000000f7");
        QVERIFY(simulator->queued() <= 20000); // a flood of requests is bounded
    }

    void endMarkers()
    {
        const auto endsOfSlotL = [this](const QString& marker) {
            ports->sent.clear();
            run("end-marker " + marker);
            run("host f000015f230a0b0100000000f7");
            while (simulator->queued() > 0)
                QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
            return ports->sent.mid(330).join(',');
        };
        QCOMPARE(endsOfSlotL("never"), QByteArray());
        QCOMPARE(endsOfSlotL("twice"), QByteArray("f000015f230a0b0101f7,f000015f230a0b0101f7"));
        QCOMPARE(endsOfSlotL("other"), QByteArray("f000015f230a000101f7"));
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
        SysexAssembler assembler;
        const auto add = [&assembler](int sender, const QByteArray& hex) {
            QStringList told;
            for (const auto& [kind, bytes] : assembler.add(sender, QByteArray::fromHex(hex))) {
                const bool whole = kind == SysexAssembler::Result::Kind::Message;
                told.append((whole ? "whole " : "bad ") + bytes.left(8).toHex());
            }
            return told.join(", ").toLatin1();
        };
        QCOMPARE(add(1, "f001"), QByteArray());
        QCOMPARE(add(2, "f009"), QByteArray()); // another sender
        QCOMPARE(add(1, "02f7f003f7"), QByteArray("whole f00102f7, whole f003f7"));
        QCOMPARE(add(2, "f005fff7"), QByteArray("bad f009, whole f005fff7")); // begun anew
        QCOMPARE(add(1, "4142f7"), QByteArray("bad 4142f7"));
        QCOMPARE(add(3, "f044"), QByteArray());
        QCOMPARE(assembler.interrupt(3).size(), 1);
        QVERIFY(assembler.interrupt(3).isEmpty());
        // One that never ends is told of once and forgotten up to its end.
        QCOMPARE(add(4, "f0" + QByteArray(200'000, '4')), QByteArray("bad f044444444444444"));
        QCOMPARE(add(4, QByteArray(200'000, '4') + "f7f001f7"), QByteArray("whole f001f7"));
    }
};

QTEST_GUILESS_MAIN(TestSimulator)
#include "tst_simulator.moc"
