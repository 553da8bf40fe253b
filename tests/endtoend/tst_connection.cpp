#include "simulatorprocess.h"
#include "sysexmanager.h"
#include "testcase.h"
#include "viewmanager.h"

#include <QAction>
#include <QDir>
#include <QLabel>
#include <QPushButton>
#include <QSettings>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QToolButton>

// From the ports' appearance to the full-power face and back, over the system's MIDI.
class TestConnection : public TestCase
{
    Q_OBJECT

    std::unique_ptr<QTemporaryDir> folder;
    std::unique_ptr<SimulatorProcess> simulator;
    std::unique_ptr<ViewManager> window;
    std::unique_ptr<QSignalSpy> queryTimeouts;
    std::unique_ptr<QSignalSpy> connections;
    std::unique_ptr<QSignalSpy> syncs;
    QString startFolder = QDir::currentPath();

    const QSize splash{400, 495};
    const QSize full{1200, 728};
    const QString query = QStringLiteral("[Vv]ersion quer");

    void prepare() override
    {
        folder = std::make_unique<QTemporaryDir>();
        QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, folder->path());
        QDir::setCurrent(folder->path());
        QVERIFY(QDir().mkpath("resources/firmware"));
        const QString state = folder->filePath("simulator.json");
        qputenv("JSUM_SIMULATOR_STATE", state.toLocal8Bit());
        simulator = std::make_unique<SimulatorProcess>(SIMULATOR, state);
    }

    void installTool()
    {
        const QDir from(STAND_IN);
        QVERIFY(QFile::copy(from.filePath("dfucons.exe"), "resources/dfucons.exe"));
        for (const char* name : {"flashupgrade.bin", "flashdata.bin", "flashdata.txt"}) {
            QVERIFY(QFile::copy(from.filePath(name), QString("resources/firmware/") + name));
        }
    }

    void openEditor()
    {
        window = std::make_unique<ViewManager>();
        window->show();
        auto* timer = window->sysex()->findChild<QTimer*>(QString(), Qt::FindDirectChildrenOnly);
        queryTimeouts = std::make_unique<QSignalSpy>(timer, SIGNAL(timeout()));
        connections = std::make_unique<QSignalSpy>(window->sysex(), SIGNAL(signalConnected(bool)));
        syncs = std::make_unique<QSignalSpy>(window->sysex(),
                                             SIGNAL(signalLiveMemoryFinishedSyncing()));
    }

    bool becomes(const QSize& size)
    {
        return QTest::qWaitFor([&] { return window->size() == size; },
                               SimulatorProcess::patienceMs);
    }
    // A mixer that restarts is away for two seconds only. An editor that is still taking in the
    // live memory on a slow machine could miss them, so whoever restarts it waits for the sync's
    // end.
    bool isSynced(int times = 1)
    {
        return QTest::qWaitFor([&] { return syncs->count() >= times; },
                               SimulatorProcess::patienceMs);
    }
    bool isConnected(bool wanted)
    {
        return QTest::qWaitFor([&] { return window->sysex()->isConnected() == wanted; },
                               SimulatorProcess::patienceMs);
    }
    QWidget* dialog(const char* name) { return window->findChild<QWidget*>(name); }
    bool opens(const char* name)
    {
        return QTest::qWaitFor([&] { return dialog(name)->isVisible(); },
                               SimulatorProcess::patienceMs);
    }
    void press(const char* dialogName, const char* button)
    {
        dialog(dialogName)->findChild<QPushButton*>(button)->click();
    }

private slots:
    void cleanup()
    {
        window.reset();
        simulator.reset();
        QDir::setCurrent(startFolder);
    }

    void presentAtStart_noTool()
    {
        QVERIFY(simulator->start());
        openEditor();
        QVERIFY(isConnected(true));
        QVERIFY(becomes(full));
        // The process's first query waits for the timer, and so does each that repeats it where the
        // answer is slow.
        QTRY_COMPARE_WITH_TIMEOUT(simulator->count(query), int(queryTimeouts->count()),
                                  SimulatorProcess::patienceMs);

        // At a reconnection it goes out at once.
        QVERIFY(simulator->command("unplug"));
        QVERIFY(becomes(splash));
        simulator->mark();
        queryTimeouts->clear();
        QVERIFY(simulator->command("plug"));
        QVERIFY(becomes(full));
        QTRY_COMPARE_WITH_TIMEOUT(simulator->count(query), int(queryTimeouts->count()) + 1,
                                  SimulatorProcess::patienceMs);
    }

    void presentAtStart_firmwareMatches()
    {
        installTool();
        QVERIFY(simulator->start());
        openEditor();
        QVERIFY(simulator->waitFor(query));
        QCOMPARE(queryTimeouts->count(), 0); // the tool's word spares the first wait
        QVERIFY(becomes(full));
        QVERIFY(!window->findChild<QLabel*>("fw_found")->text().isEmpty());
        QCOMPARE(window->findChild<QLabel*>("portName")->text(), QString("Audio Control"));
    }

    void pluggedLater()
    {
        QVERIFY(simulator->start({"--unplugged"}));
        openEditor();
        QTest::qWait(3 * MidiManager::pollIntervalMs);
        QVERIFY(!window->sysex()->isConnected());
        QCOMPARE(window->size(), splash);
        QVERIFY(simulator->command("plug"));
        QVERIFY(becomes(full));
    }

    void outputsFirst() { arrivesInTwoPolls("plug outputs-first 2500"); }
    void inputsFirst() { arrivesInTwoPolls("plug inputs-first 2500"); }

    void unplugTwentyTimes()
    {
        QVERIFY(simulator->start());
        openEditor();
        QVERIFY(becomes(full));
        for (int round = 0; round < 20; ++round) {
            // Every other time while it waits for the answer.
            const bool midQuery = round % 2;
            QVERIFY(simulator->command(midQuery ? "mute-version on" : "mute-version off"));
            QVERIFY(simulator->command("unplug"));
            QVERIFY(isConnected(false));
            QCOMPARE(window->size(), splash);
            simulator->mark();
            QVERIFY(simulator->command("plug"));
            QVERIFY(midQuery ? simulator->waitFor(query) : becomes(full));
        }
        QVERIFY(simulator->command("mute-version off"));
        QVERIFY(becomes(full));
        // Nothing is heard twice for all the opening and closing.
        QSignalSpy modes(window->sysex(), SIGNAL(signalViewChange(int)));
        QVERIFY(simulator->command("mode 5"));
        QVERIFY(QTest::qWaitFor([&] { return !modes.isEmpty(); }, SimulatorProcess::patienceMs));
        QTest::qWait(500);
        QCOMPARE(modes.count(), 1);
        // And one message makes one message.
        simulator->mark();
        window->sysex()->slotSendModeChange(2);
        QVERIFY(simulator->waitFor("f0 00 01 5f 23 05 00 00 00 00 00 02 f7"));
        QTest::qWait(500);
        QCOMPARE(simulator->count("f0 00 01 5f 23 05 00 00 00 00 00 02 f7"), 1);
    }

    void restartByTheMixer()
    {
        QVERIFY(simulator->start());
        openEditor();
        QVERIFY(isSynced());
        QVERIFY(simulator->command("restart"));
        QVERIFY(becomes(splash));
        QVERIFY(becomes(full));
        QVERIFY(isSynced(2));

        // And by the editor's own message.
        window->sysex()->slotSendRestartMessage();
        QVERIFY(becomes(splash));
        QVERIFY(becomes(full));
    }

    void demoModeEnds()
    {
        QVERIFY(simulator->start({"--unplugged"}));
        openEditor();
        window->slotEnterDemoMode();
        press("demoDialogForm", "ok");
        QCOMPARE(window->size(), full);
        connections->clear();
        QVERIFY(simulator->command("plug"));
        QVERIFY(becomes(splash));
        QVERIFY(window->findChild<QToolButton*>("splashScreen")->isChecked());
        QVERIFY(becomes(full));
    }

    void twinMixers()
    {
        SimulatorProcess twin(SIMULATOR, folder->filePath("twin.json"));
        QVERIFY(simulator->start());
        QVERIFY(twin.start());
        openEditor();
        QVERIFY(becomes(full));
        QVERIFY((simulator->count(query) > 0) != (twin.count(query) > 0)); // one is spoken to
    }

    void firmwareUpdate()
    {
        meetOldFirmware();
        QVERIFY(dialog("fwOutOfDateDialogForm")->isVisible());
        QCOMPARE(dialog("fwOutOfDateDialogForm")->findChild<QLabel*>("found")->text(),
                 QString("1.2.0"));
        QCOMPARE(simulator->count(query), 0);
        press("fwOutOfDateDialogForm", "update");
        QVERIFY(dialog("fwProgressDialogForm")->isVisible());
        QVERIFY(opens("restartDialogForm"));
        QCOMPARE(window->size(), splash);
        QVERIFY(simulator->command("restart"));
        QVERIFY(becomes(full));
        QVERIFY(!dialog("restartDialogForm")->isVisible());
        QCOMPARE(window->findChild<QLabel*>("fw_found")->text(), QString("1.2.5"));
    }

    void firmwareUpdateFails()
    {
        installTool();
        QVERIFY(simulator->start());
        QVERIFY(simulator->command("firmware fail stderr"));
        openEditor();
        QVERIFY(isSynced());
        emit window->sysex()->signalUpdateFirmware();
        QVERIFY(opens("fwErrorDialogForm"));
        QVERIFY(!dialog("fwErrorDialogForm")->findChild<QLabel*>("errorMsg")->text().isEmpty());
        QVERIFY(simulator->command("firmware fail none"));
        press("fwErrorDialogForm", "update"); // restarts the mixer
        QVERIFY(becomes(splash));
        QVERIFY(becomes(full));
        QVERIFY(!dialog("restartDialogForm")->isVisible());
    }

    void cancelledUpdateStaysUnconnected()
    {
        meetOldFirmware();
        QVERIFY(dialog("fwOutOfDateDialogForm")->isVisible());
        press("fwOutOfDateDialogForm", "cancel");
        QTest::qWait(SysexManager::fwQueryIntervalMs + 1500);
        QCOMPARE(simulator->count(query), 0);
        QCOMPARE(window->size(), splash);
        QVERIFY(window->findChild<QToolButton*>("splashScreen")->isChecked());
    }

    void closingSaysGoodbye()
    {
        QVERIFY(simulator->start());
        openEditor();
        QVERIFY(becomes(full));
        window->close();
        QVERIFY(simulator->waitFor("f0 00 01 5f 23 7f 00 00 00 00 00 00 f7"));
    }

private:
    // Up to the question whether to update.
    void meetOldFirmware()
    {
        installTool();
        QVERIFY(simulator->start({"--unplugged"}));
        QVERIFY(simulator->command("firmware 1.2.0"));
        QVERIFY(simulator->command("plug"));
        openEditor();
        QVERIFY(opens("fwOutOfDateDialogForm"));
    }

    void arrivesInTwoPolls(const QByteArray& plug)
    {
        QVERIFY(simulator->start({"--unplugged"}));
        openEditor();
        QTest::qWait(2 * MidiManager::pollIntervalMs);
        QVERIFY(simulator->command(plug));
        QVERIFY(becomes(full));
    }
};

QTEST_MAIN(TestConnection)
#include "tst_connection.moc"
