#include "commands.h"
#include "fakemixerports.h"
#include "testcase.h"

#include <QSignalSpy>
#include <QTemporaryDir>

// The mixer on its desk: what messages and commands do to it where no editor sends them, and its
// pace.
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
        auto fake = std::make_unique<FakeMixerPorts>();
        ports = fake.get();
        simulator =
            std::make_unique<Simulator>(std::move(fake), StateFile(folder->filePath("state.json")));
        commands = std::make_unique<Commands>(*simulator);
        lines = std::make_unique<QSignalSpy>(simulator.get(), SIGNAL(signalLine(QString)));
        simulator->start(true);
    }
    // What a command answers. Behind "host" or "to-surface" stand the bytes of messages to that
    // port, and the answer is what the monitor says last of them.
    QString run(const QString& line)
    {
        const QString word = line.section(' ', 0, 0);
        if (word != "host" && word != "to-surface")
            return commands->run(line).answer;
        for (const QString& bytes : line.section(' ', 1).split(' ')) {
            ports->events.received(word == "host" ? MixerPort::AudioControl
                                                  : MixerPort::ControlSurface,
                                   QByteArray::fromHex(bytes.toLatin1()));
        }
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
        row("host f000015f2300000000000000f7", "mute-version no", "f000015f2300000000010205f7");
        row("host f000015f230201010004ff7ff7", "live faderframe_ch1_fader 32767"); // as it came
        row("host f000015f2310120500000001f7", "light mute 00000000;light solo 00000100");
        row("to-surface b00364 910e7f 810e40", "surface cc 1 3 100;surface note 2 14 0");
        // What is in flash outlasts a restart, and so do the live values.
        row("host f000015f2303060000380101f7;host f000015f230b000000000000f7;"
            "host f000015f2303060000380102f7;host f000015f230201010004000af7;"
            "host f000015f230e000000000000f7",
            "plugged coming;not-in-flash 0;global tone_gen_freq 129;live faderframe_ch1_fader 10");
        row("mode 14;channel 13", "mode 14 trim;channel 13", "f000015f23050ef7,f000015f23060df7");
        row("cc 1 3 100;note 16 14 0", "queued 0", "surface b00364,surface 9f0e00");
        row("hui 0x11 7 1", "queued 0", "f000015f2310110700000001f7");
        // The surface, by the factory's map and by another.
        row("surface fader 3 127;surface bank left;surface record 8 on;surface transport up",
            "surface faders 0 0 127 0 0 0 0 0",
            "surface b0037f,surface 900e7f,surface 900e00,surface 90087f,surface 901a7f,"
            "surface 901a00");
        row("surface touch 6 on;surface solo 6;surface mute 6;surface touch 6 off", "queued 0",
            "f000015f2310020500000001f7,f000015f2310120500000001f7,f000015f2310110500000001f7,"
            "f000015f2310020500000000f7");
        row("surface map 2;surface fader 1 5;surface record 1 on;host f000015f2303050000020004f7;"
            "host f000015f230305010102014df7;surface fader 1 6;to-surface 940d20 b44d07",
            "surface faders 7 0 0 0 0 0 0 0;surface map 2",
            "surface b10105,surface 91017f,surface b44d06");
        row("surface record 2 on;surface record 2 off;host f000015f2303050202000301f7;surface "
            "record 2;surface record 2;surface record 2",
            "queued 0",
            "surface 90027f,surface 900200,surface 90027f,surface 900200,surface 90027f");
        // The host moves what no hand holds; both bank lights go dark when a bank button does.
        row("surface touch 2 on;to-surface b0020a b0010b 900e7f 900f7f;surface bank right on",
            "surface faders 11 0 0 0 0 0 0 0;surface touched 01000000;light bank 11",
            "f000015f2310020100000001f7,surface 900f7f");
        row("to-surface 900e7f 900f7f;surface bank right", "light bank 00",
            "surface 900f7f,surface 900f00");
        row("raw f0 00*3 f7 c1", "queued 0", "f0000000f7c1");
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
            "nonsense;set;set no_such 1;set faderframe_ch1_fader 16384;set faderframe_ch1_fader 1 "
            "2;"
            "set ch1_phantom 1;map miditab_fader1_bank1_cc 128;mode 7;channel 14;cc 0 1 1;"
            "note 17 1 1;raw;raw zz;raw f0*99999999;plug sideways;firmware 1.2.100;slot M;"
            "slot A randomise;end-marker thrice;surface fader 9 1;surface fader 1 128;surface "
            "fader 1;"
            "surface mute 1 on;surface touch 1;surface record 1 down;surface bank up;surface map 4";
        const QString messages =
            "host ;host f0f7;host 903c7f;host f000015f2300f7;host f000015f2200000000000000f7;"
            "host f000015f230000000000000000;host f000015f2302010e00040001f7;"
            "host f000015f230500000000000ff7;host f000015f230600000000000af7;"
            "host f000015f23090d0000000000f7;host f000015f230a0d0000000000f7;"
            // A stereo of an even channel, a second channel too many, a diamond to nowhere.
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

    void muchAtATime()
    {
        ports->room = 10; // a full listener is waited for
        run("host f000015f230a000000000000f7");
        QTest::qWait(200);
        QCOMPARE(ports->sent.size(), 10);
        ports->room = -1;
        QVERIFY(sentAll());
        QCOMPARE(ports->sent.size(), 331);
        for (int i = 0; i < 100; ++i)
            run("host f000015f230a000000000000f7");
        QVERIFY(simulator->queued() <= 20000); // a flood of requests is bounded
    }

    // A timer that is 0 to 3 ms late: no two messages closer than a millisecond, and no slower in
    // the long run.
    void pace()
    {
        Pacer pacer;
        std::int64_t now = 5'000'000;
        std::int64_t last = 0;
        const std::int64_t begin = now;
        for (int i = 0; i < 331; ++i) {
            now += pacer.wait(now);
            now += (i * 7 % 4) * 1000 * (i % 10 == 0);
            QVERIFY(i == 0 || now - last >= 1000);
            pacer.left(now);
            last = now;
        }
        QVERIFY(now - begin < 331 * 1250 + 4000);
    }
};

QTEST_GUILESS_MAIN(TestSimulator)
#include "tst_simulator.moc"
