#include "fakeports.h"
#include "firmwareupdatemanager.h"
#include "fullpowerview.h"
#include "globalpresetinterface.h"
#include "presetinterface.h"
#include "sysexmanager.h"
#include "testcase.h"
#include "viewmanager.h"

#include <QAction>
#include <QDir>
#include <QFile>
#include <QHelpEvent>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QProgressBar>
#include <QPushButton>
#include <QSettings>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTextEdit>
#include <QToolButton>
#include <QToolTip>

namespace
{

const QStringList mixerPorts{QStringLiteral("J-Sum Audio Control"),
                             QStringLiteral("J-Sum Control Surface")};

} // namespace

class TestViewManager : public TestCase
{
    Q_OBJECT

    std::unique_ptr<QTemporaryDir> folder;
    QString startFolder = QDir::currentPath();
    FakePorts* ports = nullptr;
    std::unique_ptr<ViewManager> window;

    void prepare() override
    {
        folder = std::make_unique<QTemporaryDir>();
        QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, folder->path());
        QDir::setCurrent(folder->path());
        QDir().mkdir("resources");
    }

    void open()
    {
        window.reset();
        auto fake = std::make_unique<FakePorts>();
        ports = fake.get();
        window = std::make_unique<ViewManager>(std::move(fake));
        window->show();
    }
    void plug()
    {
        ports->plug(mixerPorts);
        window->sysex()->midi()->slot_PollDevices();
    }
    void unplug()
    {
        ports->unplug();
        window->sysex()->midi()->slot_PollDevices();
    }
    void answerQuery()
    {
        const QByteArray reply = QByteArray::fromHex("f000015f2300000000010203f7");
        window->sysex()->slotReceiveMidiInput(mixerPorts.first(),
                                              MidiMessage(reply.constData(), int(reply.size())));
    }

    template <typename Widget> Widget* find(const char* name, QWidget* in = nullptr)
    {
        return (in ? in : window.get())->findChild<Widget*>(name);
    }
    QWidget* dialog(const char* name) { return find<QWidget>(name); }
    void press(const char* dialogName, const char* button)
    {
        find<QPushButton>(button, dialog(dialogName))->click();
    }
    QAction* action(const char* text)
    {
        for (QAction* candidate : window->findChildren<QAction*>()) {
            if (candidate->text() == QLatin1String(text))
                return candidate;
        }
        return nullptr;
    }
    // The sheet behind the dialogs bears no name: it is known by its style.
    QWidget* sheet()
    {
        for (auto* child : window->findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly)) {
            if (child->styleSheet() == "background: rgba(0,0,0,200);")
                return child;
        }
        return nullptr;
    }
    // Of two widgets in the window, whether the first is drawn above the second.
    bool isAbove(QWidget* upper, QWidget* lower)
    {
        return window->children().indexOf(upper) > window->children().indexOf(lower);
    }

private slots:
    void cleanup()
    {
        window.reset();
        QDir::setCurrent(startFolder);
    }

    void facesFollowTheMixer()
    {
        open();
        QToolButton* splash = find<QToolButton>("splashScreen");
        QPushButton* demo = find<QPushButton>("enterDemoMode");
        QCOMPARE(window->size(), QSize(400, 495));
        QVERIFY(!splash->isChecked() && demo->isVisible());
        QVERIFY(!action("Force Firmware Update")->isEnabled());
        QVERIFY(action("Enter Demo Mode...")->isEnabled());

        plug();
        QCOMPARE(window->size(), QSize(400, 495)); // until the version arrives
        QVERIFY(splash->isChecked() && !demo->isVisible());
        QVERIFY(action("Force Firmware Update")->isEnabled());
        QVERIFY(!action("Enter Demo Mode...")->isEnabled());
        QCOMPARE(find<QLabel>("portName")->text(), QString("Audio Control"));

        answerQuery();
        QCOMPARE(window->size(), QSize(1200, 728));
        QCOMPARE(window->minimumSize(), window->maximumSize());
        QVERIFY(!splash->isVisible());
        QVERIFY(find<FullPowerView>("fullPowerView")->isVisible());

        unplug();
        QCOMPARE(window->size(), QSize(400, 495));
        QVERIFY(splash->isVisible() && !splash->isChecked() && demo->isVisible());
        QVERIFY(!find<FullPowerView>("fullPowerView")->isVisible());
        plug();
        answerQuery();
        answerQuery(); // a fresh reply rebuilds
        QCOMPARE(window->size(), QSize(1200, 728));
    }

    void dialogsArePlacedByTheTable_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QRect>("splash");
        QTest::addColumn<QRect>("full");
        QTest::addColumn<QRect>("drawerClosed");
        const auto row = [](const char* name, QRect a, QRect b, QRect c) {
            QTest::newRow(name) << QString(name) << a << b << c;
        };
        row("aboutDialogForm", {44, 146, 312, 179}, {444, 257, 312, 179}, {311, 257, 312, 179});
        row("settingsDialogForm", {-225, 67, 850, 336}, {175, 178, 850, 336}, {42, 196, 850, 336});
        row("demoDialogForm", {42, 120, 317, 230}, {42, 120, 317, 230}, {42, 120, 317, 230});
        row("fwOutOfDateDialogForm", {52, 125, 297, 221}, {452, 236, 297, 221},
            {452, 236, 297, 221});
        row("fwForceDialogForm", {71, 144, 258, 183}, {471, 255, 258, 183}, {338, 255, 258, 183});
        row("fwProgressDialogForm", {38, 106, 324, 258}, {438, 217, 324, 258},
            {305, 217, 324, 258});
        row("fwErrorDialogForm", {57, 157, 286, 157}, {457, 268, 286, 157}, {324, 268, 286, 157});
        row("restartDialogForm", {80, 145, 240, 181}, {80, 145, 240, 181}, {80, 145, 240, 181});
    }
    void dialogsArePlacedByTheTable()
    {
        QFETCH(QString, name);
        open();
        QWidget* widget = dialog(name.toLatin1().constData());
        QTEST(widget->geometry(), "splash");
        plug();
        answerQuery();
        QTEST(widget->geometry(), "full");
        window->slotShowPresets(); // no key: closed
        QCOMPARE(window->size(), QSize(935, 728));
        QCOMPARE(find<QMenuBar>("")->geometry(), QRect(0, 0, 935, 20));
        if (name != "settingsDialogForm") // the view moves this one last
            QTEST(widget->geometry(), "drawerClosed");
    }

    void escapeClosesOnlyWhatItMay()
    {
        open();
        const auto isOpen = [this](const char* name) { return dialog(name)->isVisible(); };
        action("About JSum Editor")->trigger();
        QVERIFY(isOpen("aboutDialogForm") && sheet()->isVisible());
        QVERIFY(isAbove(dialog("aboutDialogForm"), sheet()));
        QTest::keyClick(find<QPushButton>("ok", dialog("aboutDialogForm")), Qt::Key_Escape);
        QVERIFY(!isOpen("aboutDialogForm") && !sheet()->isVisible());

        emit window->sysex()->signalFwError("broken");
        QCOMPARE(find<QLabel>("errorMsg")->text(), QString("broken"));
        QTest::keyClick(find<QPushButton>("update", dialog("fwErrorDialogForm")), Qt::Key_Escape);
        QVERIFY(!isOpen("fwErrorDialogForm"));

        window->slotEnterDemoMode();
        QTest::keyClick(find<QPushButton>("ok", dialog("demoDialogForm")), Qt::Key_Escape);
        QVERIFY(isOpen("demoDialogForm"));
        QTest::keyClick(window.get(), Qt::Key_Escape);
        QVERIFY(window->isVisible());
    }

    void withTwoDialogsTheSheetCoversTheSurvivor()
    {
        open();
        action("About JSum Editor")->trigger();
        emit window->sysex()->signalOpenFwOOD();
        emit window->sysex()->signalOpenRestartDialog();
        press("aboutDialogForm", "ok");
        QVERIFY(isAbove(sheet(), dialog("fwOutOfDateDialogForm")));
        press("fwOutOfDateDialogForm", "cancel");
        QVERIFY(isAbove(dialog("restartDialogForm"), sheet()));
        emit window->sysex()->signalCloseRestartDialog();
        QVERIFY(!sheet()->isVisible());
    }

    void demoModeRunsAndEndsByItselfWhenTheMixerAppears()
    {
        open();
        for (int round = 0; round < 2; ++round) {
            QTest::mouseClick(find<QPushButton>("enterDemoMode"), Qt::LeftButton, {},
                              QPoint(100, 20));
            QVERIFY(dialog("demoDialogForm")->isVisible());
            QSignalSpy entries(find<FullPowerView>("fullPowerView"),
                               SIGNAL(signalFindAudioDeviceNames()));
            press("demoDialogForm", "ok");
            QCOMPARE(entries.count(), 1); // the second demo is no double one
            QVERIFY(!dialog("demoDialogForm")->isVisible() && !sheet()->isVisible());
            QCOMPARE(window->size(), QSize(1200, 728));
            plug();
            QCOMPARE(window->size(), QSize(400, 495));
            QVERIFY(find<QToolButton>("splashScreen")->isChecked());
            answerQuery();
            QCOMPARE(window->size(), QSize(1200, 728));
            unplug();
        }
    }

    void entriesStackOnlyWhatTheyShould()
    {
        open();
        plug();
        answerQuery();
        answerQuery();
        auto* view = find<FullPowerView>("fullPowerView");
        QTextEdit* console = find<QTextEdit>("console");
        QSignalSpy position(view, SIGNAL(signalReportMainWindowPos(int, int)));
        const auto countOf = [&](const QString& text) {
            emit view->signalAddTextToFwLog(text);
            return console->toPlainText().count(text);
        };
        QCOMPARE(countOf("<b>one</b>"), 2);
        window->move(30, 40);
        QTRY_COMPARE(position.count() % 2, 0);
        QVERIFY(position.count() > 0);
        QCOMPARE(position.last(), QVariantList({30, 40}));
        unplug();
        position.clear();
        window->move(50, 60);
        QTest::qWait(20);
        QCOMPARE(position.count(), 0);
        plug();
        answerQuery();
        QCOMPARE(countOf("two"), 3); // this one stays for good
    }

    void versionsAreFoundAcrossPieces_data()
    {
        QTest::addColumn<QStringList>("pieces");
        QTest::addColumn<QString>("found");
        QTest::addColumn<QString>("expected");
        QTest::newRow("whole")
            << QStringList{"x 9 TYPE_VERSION 0 10203(a)\n9 TYPE_VERSION 0 10204(b)"} << "1.2.3"
            << "1.2.4";
        QTest::newRow("expected without the 9")
            << QStringList{"9 TYPE_VERSION 0 123456(", "TYPE_VERSION 0 5("} << "12.34.56"
            << "0.0.5";
        QTest::newRow("cut anywhere")
            << QStringList{"9 TYPE_VE", "RSION 0 0102", "03(x)TYPE_VERS", "ION 0 1", "0204", "("}
            << "1.2.3"
            << "1.2.4";
        QTest::newRow("too long") << QStringList{"9 TYPE_VERSION 0 1234567(TYPE_VERSION 0 10204("}
                                  << "fw format error"
                                  << "1.2.4";
        QTest::newRow("no numbers")
            << QStringList{"9 TYPE_VERSION 0 (TYPE_VERSION 0 abcdef("} << "0.0.0"
            << "0.0.0";
        QTest::newRow("behind a megabyte")
            << QStringList{QString(1 << 20, QChar('x')), "9 TYPE_VERSION 0 1(TYPE_VERSION 0 2("}
            << "0.0.1"
            << "0.0.2";
        QTest::newRow("unfinished")
            << QStringList{"9 TYPE_VERSION 0 10203(TYPE_VERSION 0 10204"} << ""
            << "";
    }
    void versionsAreFoundAcrossPieces()
    {
        QFETCH(QStringList, pieces);
        QFETCH(QString, found);
        QFETCH(QString, expected);
        open();
        emit window->sysex()->signalFwCheckStarted();
        for (const QString& piece : pieces)
            emit window->sysex()->signalConsoleText(piece);
        QCOMPARE(find<QLabel>("fw_found")->text(), found);
        QCOMPARE(find<QLabel>("found", dialog("fwOutOfDateDialogForm"))->text(), found);
        for (const char* name : {"aboutDialogForm", "fwOutOfDateDialogForm"})
            QCOMPARE(find<QLabel>("expected", dialog(name))->text(), expected);
        if (!expected.isEmpty()) {
            QCOMPARE(find<QLabel>("version")->text(), "firmware version " + expected + "?");
        }
        // The comparison is made with the same two.
        QCOMPARE(window->sysex()->firmware()->foundVersion, found);
        QCOMPARE(window->sysex()->firmware()->expectedVersion, expected);

        emit window->sysex()->signalFwCheckStarted();
        emit window->sysex()->signalConsoleText("(9 TYPE_VERSION 0 70809(9 TYPE_VERSION 0 70810(");
        QCOMPARE(find<QLabel>("fw_found")->text(), QString("7.8.9")); // nothing left over
    }

    void consoleKeepsItsEndAndTheLogFollows()
    {
        QFile old("resources/fwLog.txt");
        QVERIFY(old.open(QIODevice::WriteOnly) && old.write("last run"));
        old.close();
        open();
        QFile log("resources/fwLog.txt");
        QCOMPARE(log.size(), 0);
        // While it is shown, a line without an end must not stop the window.
        dialog("fwProgressDialogForm")->show();
        const QString line(1 << 16, QChar('x'));
        for (int i = 0; i < 40; ++i) {
            emit window->sysex()->signalConsoleText(line);
            QCoreApplication::processEvents();
        }
        emit window->sysex()->signalConsoleText(QString(QChar(0)) + "<i>end</i>\n");
        const QString shown = find<QTextEdit>("console")->toPlainText();
        QVERIFY(shown.size() <= 256 * 1024);
        QVERIFY(shown.endsWith("<i>end</i>\n"));
        QVERIFY(log.open(QIODevice::ReadOnly));
        QCOMPARE(QString::fromUtf8(log.readAll()), shown);
    }

    void worksWithoutResources()
    {
        QVERIFY(QDir("resources").removeRecursively());
        open();
        QTest::ignoreMessage(QtDebugMsg, "Firmware log file not found; was not written to.");
        emit window->sysex()->signalConsoleText("text");
        plug();
        answerQuery();
        QCOMPARE(window->size(), QSize(1200, 728));
    }

    void firmwareDialogsGoThroughAnUpdate()
    {
        QFile tool("resources/dfucons.exe");
        QVERIFY(tool.open(QIODevice::WriteOnly));
        tool.write("#!/bin/sh\n"
                   "[ $1 = jsumdownload ] && { echo; sleep 0.1; echo; touch new; exit 0; }\n"
                   "[ -e new ] && v=10204 || v=10203\n"
                   "echo \"9 TYPE_VERSION 0 $v(\"; echo \"9 TYPE_VERSION 0 10204(\"\n"
                   "[ -e new ] || exit 38\n");
        tool.close();
        tool.setPermissions(QFile::ReadOwner | QFile::ExeOwner);
        open();
        plug();
        QTRY_VERIFY(dialog("fwOutOfDateDialogForm")->isVisible());
        answerQuery();
        QVERIFY(dialog("fwOutOfDateDialogForm")->isVisible());

        press("fwOutOfDateDialogForm", "update");
        QVERIFY(!dialog("fwOutOfDateDialogForm")->isVisible());
        QVERIFY(dialog("fwProgressDialogForm")->isVisible());
        QVERIFY(isAbove(dialog("fwProgressDialogForm"), sheet()));
        unplug(); // a flasher restarts the board
        QVERIFY(dialog("fwProgressDialogForm")->isVisible());
        QCOMPARE(dialog("fwProgressDialogForm")->geometry(), QRect(38, 106, 324, 258));
        QTRY_VERIFY(dialog("restartDialogForm")->isVisible());
        QVERIFY(!dialog("fwProgressDialogForm")->isVisible());

        plug();
        QTRY_VERIFY(!dialog("restartDialogForm")->isVisible());
        QVERIFY(!sheet()->isVisible());
        QCOMPARE(find<QLabel>("fw_found")->text(), QString("1.2.4"));
    }

    void toolTipsAreRemembered()
    {
        const auto tipAppears = [this] {
            QHelpEvent tip(QEvent::ToolTip, QPoint(1, 1), QPoint(1, 1));
            QCoreApplication::sendEvent(find<QPushButton>("enterDemoMode"), &tip);
            const bool appears = QToolTip::isVisible();
            QToolTip::hideText();
            return appears;
        };
        open();
        QAction* hide = action("Hide Tool Tips");
        QVERIFY(hide && QSettings().value("toolTipsEnabled").toBool());
        hide->trigger();
        QCOMPARE(hide->text(), QString("Show Tool Tips"));
        open();
        QVERIFY(action("Show Tool Tips"));
        QVERIFY(!tipAppears());
        action("Show Tool Tips")->trigger();
        QVERIFY(tipAppears());
        open();
        QVERIFY(action("Hide Tool Tips"));
    }

    void aDemoLeavesNoTraceInTheLibrary()
    {
        QVERIFY(QDir().mkpath("resources/presets"));
        QFile library("resources/presets/jsum.json");
        QVERIFY(library.open(QIODevice::WriteOnly));
        const QByteArray before = "{\"Preset_000\":{\"faderframe_ch1_fader\":3000,"
                                  "\"preset_name\":\"[CONNECTION SYNC]\"}}";
        library.write(before);
        library.close();
        open();
        const auto fader = [this] {
            return window->presets()->workingPreset(0).value("faderframe_ch1_fader").toInt();
        };
        const auto changeAndSave = [this] {
            window->presets()->slotStoreValue("faderframe_ch1_fader", 8938, 0);
            window->presets()->slotSavePreset(0);
            window->globals()->slotStoreGlobal("tone_gen_freq", 1000);
            window->globals()->slotWriteGlobal();
        };
        QCOMPARE(fader(), 3000);
        window->slotEnterDemoMode();
        changeAndSave();
        QCOMPARE(fader(), 8938);
        plug(); // ends the demo
        QCOMPARE(fader(), 3000);
        QVERIFY(library.open(QIODevice::ReadOnly));
        QCOMPARE(library.readAll(), before);
        QVERIFY(!QFile::exists("resources/presets/global.json"));
        changeAndSave();
        QVERIFY(QFile::exists("resources/presets/global.json"));
    }

    void closingWaitsForARunningUpdate()
    {
        QFile tool("resources/dfucons.exe");
        QVERIFY(tool.open(QIODevice::WriteOnly));
        tool.write("#!/bin/sh\n[ $1 = jsumdownload ] && { sleep 0.3; touch done; }\nexit 0\n");
        tool.close();
        tool.setPermissions(QFile::ReadOwner | QFile::ExeOwner);
        open();
        emit window->sysex()->signalUpdateFirmware();
        window->close();
        QVERIFY(QFile::exists("resources/done"));
        QVERIFY(!window->isVisible());
    }
};

QTEST_MAIN(TestViewManager)
#include "tst_viewmanager.moc"
