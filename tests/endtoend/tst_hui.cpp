#include "editorrig.h"
#include "testcase.h"

#include <QApplication>
#include <QMessageBox>
#include <QTimer>

struct LoopPortsProcess : LineProcess {
    using LineProcess::LineProcess;
    ~LoopPortsProcess() { terminate(); }

    bool startPorts() { return start() && waitFor("the ports are there"); }
};

// A recording program, the loop ports and the simulator in processes of their own, and the editor
// between them.
class TestHui : public TestCase, EditorRig
{
    Q_OBJECT

    std::unique_ptr<LoopPortsProcess> loops;
    std::unique_ptr<LineProcess> host;

    QToolButton* hui() { return window->findChild<QToolButton*>("hui"); }
    void mark()
    {
        simulator->mark();
        host->mark();
    }
    bool mixerHears(const QString& bytes) { return simulator->waitFor("^from host .*" + bytes); }
    bool hostHears(const QString& bytes) { return host->waitFor("^from surface .*" + bytes); }
    // Bytes without what passes between editor and mixer anyway.
    static QStringList bridged(const LineProcess& process, const QString& who)
    {
        const QRegularExpression line('^' + who + R"( .*(\| b0|\| 90|\| f0 00 01 5f 23 10))");
        QStringList bytes;
        for (const QString& text : process.linesSinceMark().filter(line))
            bytes << text.section(" | ", -1).remove(' ');
        return bytes;
    }
    // A pair each way, and nothing else since the mark.
    bool nothingCameBefore()
    {
        if (!host->command("fader 8 8192") || !mixerHears("b0 08 40")
            || !simulator->command("surface fader 8 5") || !hostHears("b0 27 00"))
            return false;
        const QStringList mixer = bridged(*simulator, "from host");
        const QStringList recorder = bridged(*host, "(from surface|unexpected)");
        if (mixer != QStringList{"b00840"} || recorder != QStringList{"b00705", "b02700"}) {
            qWarning() << mixer << recorder;
            return false;
        }
        mark();
        return true;
    }

private slots:
    void cleanup()
    {
        host.reset();
        loops.reset();
        leaveFolder();
    }

    void bridge()
    {
        QVERIFY(enterFolder(RESOURCES, SIMULATOR));
        openWindow();
        QSettings().setValue("hui", true);
        withoutPorts();
        QVERIFY(!QTest::currentTestFailed());

        loops = std::make_unique<LoopPortsProcess>(LOOPPORTS);
        QVERIFY(loops->startPorts());
        LoopPortsProcess second(LOOPPORTS);
        QVERIFY(second.start() && second.waitFor("already"));
        QCOMPARE(second.terminate(), 3); // the names are taken
        host = std::make_unique<LineProcess>(HUI_HOST);
        QVERIFY(host->start() && host->waitFor("the ports are open"));
        QVERIFY(host->command("pings off"));

        mark();
        hui()->click();
        QVERIFY(mixerHears("90 0e 7f") && mixerHears("90 0f 7f"));
        mark();
        for (const auto step : {&TestHui::bothWays, &TestHui::inGreatNumbers, &TestHui::offAndOn,
                                &TestHui::unplugAndPlug, &TestHui::loopPortsRestart}) {
            (this->*step)();
            if (QTest::currentTestFailed())
                return;
        }
        QVERIFY(host->command("quit"));
        QCOMPARE(host->terminate(), 0); // nothing but HUI came
    }

private:
    // Switched on by what is stored, and then by hand.
    void withoutPorts()
    {
        int boxes = 0;
        QTimer closer;
        closer.callOnTimeout([&] {
            if (auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget())) {
                ++boxes;
                box->accept();
            }
        });
        closer.start(100);
        for (const bool byHand : {false, true}) {
            if (byHand)
                hui()->click();
            else
                QVERIFY(plug());
            QCOMPARE(boxes, byHand ? 2 : 1);
            QVERIFY(!hui()->isChecked() && !QSettings().value("hui").toBool());
            QCOMPARE(hui()->text(), "OFF");
        }
    }

    void bothWays()
    {
        QVERIFY(host->command("fader 3 12816") && mixerHears("b0 03 64"));
        QVERIFY(host->command("light channel-6 mute on"));
        QVERIFY(mixerHears("f0 00 01 5f 23 10 11 05 00 00 00 01 f7"));
        mark();
        // The pings that nobody answers, and all else that the mixer has no place for.
        for (const char* line :
             {"ping", "meter 1 left 12", "display 1 Kick", "ring 1 5", "reset", "raw f000*1000 f7",
              "light transport play on", "light channel-1 touch on", "raw b10364 b12300"})
            QVERIFY(host->command(line));
        QVERIFY(nothingCameBefore());

        for (const char* line : {"touch 6 on", "fader 6 127", "mute 6", "solo 6", "touch 6 off",
                                 "record 1", "transport right", "bank left"})
            QVERIFY(simulator->command(QByteArray("surface ") + line));
        QVERIFY(mixerHears("90 0f 7f")); // the bank's lights are the last of it
        QVERIFY(hostHears("b0 2f 01"));
        QCOMPARE(bridged(*host, "(from surface|unexpected)").join(' '),
                 QString("b00f05 b02f40 b0057f b02500 b00f05 b02f42 b00f05 b02f43 "
                         "b00f05 b02f00 b00f05 b02f02 b00f05 b02f03 b00f00 b02f47 b00f00 b02f07 "
                         "b00f0e b02f44 b00f0e b02f04 b00f0a b02f41 b00f0a b02f01"));
        mark();
        // One move, and what the host's motors make of it; then silence.
        QVERIFY(host->command("echo on") && simulator->command("surface fader 2 33"));
        QVERIFY(mixerHears("b0 02 21"));
        QVERIFY(host->command("echo off"));
        QCOMPARE(bridged(*host, "(from surface|unexpected)").join(' '), QString("b00121 b02100"));
        mark();
    }

    // More than the kernel's pools hold, and as fast as they are emptied.
    void inGreatNumbers()
    {
        constexpr int pairs = 2000;
        const QByteArray raw = "raw " + QByteArray("b00364b02300 ").repeated(pairs);
        QVERIFY(host->command(raw));
        QVERIFY(simulator->waitFor("^from host .*b0 04 64", pairs));
        mark();
        QVERIFY(nothingCameBefore());
    }

    void offAndOn()
    {
        hui()->click();
        QVERIFY(host->command("fader 1 100") && simulator->command("surface bank right"));
        for (int i = 0; i < 4; ++i)
            hui()->click();
        hui()->click();
        QVERIFY(simulator->waitFor("^from host .*90 0f 7f", 3));
        mark();
        QVERIFY(nothingCameBefore());
    }

    void unplugAndPlug()
    {
        // In mid-pair and in mid-touch.
        QVERIFY(simulator->command("surface touch 1 on") && simulator->command("surface mute 1"));
        QVERIFY(hostHears("b0 2f 42"));
        host->command("raw b00264");
        QVERIFY(simulator->command("unplug"));
        QTRY_VERIFY_WITH_TIMEOUT(!window->sysex()->isConnected(), patienceMs);
        for (const char* line : {"raw b02200", "light channel-1 solo on", "fader 1 0"})
            QVERIFY(host->command(line));
        mark();
        QVERIFY(plug());
        QVERIFY(mixerHears("90 0f 7f"));
        // What the host said meanwhile is not made up for.
        QCOMPARE(simulator->count("^from host .*10 12 00"), 0);
        QVERIFY(hui()->isChecked() && hui()->text() == "ON");
        mark();
        QVERIFY(nothingCameBefore());
    }

    void loopPortsRestart()
    {
        QSignalSpy changes(window->sysex()->midi(), SIGNAL(signal_MidiInputsChanged()));
        QCOMPARE(loops->terminate(), 0);
        QTRY_COMPARE_WITH_TIMEOUT(changes.count(), 1, patienceMs);
        QVERIFY(simulator->command("surface fader 1 1")); // lost
        loops = std::make_unique<LoopPortsProcess>(LOOPPORTS);
        QVERIFY(loops->startPorts());
        QTRY_COMPARE_WITH_TIMEOUT(changes.count(), 2, patienceMs);
        QVERIFY(host->command("open"));
        mark();
        QVERIFY(nothingCameBefore());
    }
};

QTEST_MAIN(TestHui)
#include "tst_hui.moc"
