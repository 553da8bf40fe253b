#include "firmwareupdatemanager.h"
#include "fullpowerview.h"
#include "globalpresetinterface.h"
#include "presetinterface.h"
#include "secondeditor.h"
#include "windowtest.h"

#include <QFile>
#include <QHelpEvent>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>
#include <QSignalSpy>
#include <QTextEdit>
#include <QTimer>
#include <QToolButton>
#include <QToolTip>

#include <functional>
#include <utility>

class TestViewManager : public WindowTest
{
    Q_OBJECT

    void plug() { WindowTest::plug(mixerPorts); }
    void answerQuery() { hear("00000000010203"); }

    template <typename Widget> Widget* find(const char* name, QWidget* in = nullptr)
    {
        return (in ? in : window.get())->findChild<Widget*>(name);
    }
    QWidget* dialog(const char* name) { return find<QWidget>(name); }
    void press(const char* dialogName, const char* button)
    {
        find<QPushButton>(button, dialog(dialogName))->click();
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

    // What comes in the midst of the next entry.
    std::function<void()> inEntry;

public slots:
    void slotInEntry()
    {
        if (inEntry)
            std::exchange(inEntry, nullptr)();
    }

private slots:
    // The sizes and the way there and back are tested end to end.
    void facesFollowTheMixer()
    {
        open();
        plug();
        QVERIFY(find<QToolButton>("splashScreen")->isChecked()); // until the version arrives
        QVERIFY(!find<QPushButton>("enterDemoMode")->isVisible());
        QVERIFY(action("Force Firmware Update")->isEnabled());
        QVERIFY(!action("Enter Demo Mode...")->isEnabled());
        answerQuery();
        QCOMPARE(window->size(), QSize(1200, 728));
        // What lies in the middle stays there.
        QCOMPARE(dialog("aboutDialogForm")->geometry(), QRect(444, 257, 312, 179));
        window->slotShowPresets(); // no key: closed
        QCOMPARE(window->size(), QSize(935, 728));
        QCOMPARE(dialog("aboutDialogForm")->geometry(), QRect(311, 257, 312, 179));
        unplug();
        QVERIFY(!find<QToolButton>("splashScreen")->isChecked());
        QVERIFY(find<QPushButton>("enterDemoMode")->isVisible());
    }

    // Several queries may be under way, and a button may be pressed twice.
    void aConnectionIsEnteredOnce()
    {
        const auto liveMemoryRequests = [this] {
            return ports->sentBytes().count(QByteArray::fromHex("f000015f230a0c0000000000f7"));
        };
        open();
        connect(window->fullPower(), SIGNAL(signalDisconnectGlobalSysex()), SLOT(slotInEntry()));
        QWidget* inView = dialog("renameDialogForm"); // which each entry closes
        plug();
        inEntry = [this] { unplug(); };
        answerQuery();
        QVERIFY(!window->fullPower()->isVisible());
        for (int connection = 1; connection <= 2; ++connection) {
            plug();
            inEntry = [this] { answerQuery(); };
            answerQuery();
            inView->show();
            answerQuery();
            QVERIFY(inView->isVisible());
            QCOMPARE(liveMemoryRequests(), connection);
            if (connection == 2) // restarts between two polls
                ports->outputList[0].identifier = "anew";
            else
                ports->unplug();
            window->sysex()->midi()->slot_PollDevices();
            QVERIFY(!window->fullPower()->isVisible());
        }
        answerQuery();
        QCOMPARE(liveMemoryRequests(), 3);
        unplug();
        window->slotEnterDemoMode();
        press("demoDialogForm", "ok");
        inView->show();
        press("demoDialogForm", "ok");
        QVERIFY(inView->isVisible());
    }

    void escapeClosesOnlyWhatItMay()
    {
        open();
        action("About JSum Editor")->trigger();
        QVERIFY(dialog("aboutDialogForm")->isVisible() && sheet()->isVisible());
        QTest::keyClick(find<QPushButton>("ok", dialog("aboutDialogForm")), Qt::Key_Escape);
        QVERIFY(!dialog("aboutDialogForm")->isVisible() && !sheet()->isVisible());

        emit window->sysex()->signalFwError("broken");
        QCOMPARE(find<QLabel>("errorMsg")->text(), QString("broken"));
        QTest::keyClick(find<QPushButton>("update", dialog("fwErrorDialogForm")), Qt::Key_Escape);
        QVERIFY(!dialog("fwErrorDialogForm")->isVisible());

        window->slotEnterDemoMode();
        QTest::keyClick(find<QPushButton>("ok", dialog("demoDialogForm")), Qt::Key_Escape);
        QVERIFY(dialog("demoDialogForm")->isVisible());
        QTest::keyClick(window.get(), Qt::Key_Escape);
        QVERIFY(window->isVisible());
    }

    // The keys go where the focus is, not to a widget of the test's choice.
    void noKeyGoesBeneathADialog()
    {
        const QList<QKeySequence> wandering{Qt::Key_Tab,   Qt::Key_Tab, Qt::Key_Backtab,
                                            Qt::Key_Down,  Qt::Key_Up,  Qt::Key_Left,
                                            Qt::Key_Right, Qt::Key_Alt, Qt::CTRL | Qt::Key_C};
        const auto type = [this](const QKeySequence& key) {
            QTest::keyClick(window->windowHandle(), key[0].key(), key[0].keyboardModifiers());
        };
        const auto stays = [&](const char* form) {
            for (const QKeySequence& key : wandering) {
                type(key);
                const QWidget* focus = window->focusWidget();
                if (focus != dialog(form) && !dialog(form)->isAncestorOf(focus))
                    return false;
            }
            return true;
        };
        open();
        QVERIFY(QTest::qWaitForWindowActive(window.get()));
        QSignalSpy entries(window->fullPower(), SIGNAL(signalFindAudioDeviceNames()));
        QSignalSpy copies(action("Copy Channel"), SIGNAL(triggered()));
        find<QPushButton>("enterDemoMode")->setFocus();
        type(Qt::Key_Space);
        QVERIFY(stays("demoDialogForm"));
        action("Enter Demo Mode...")->trigger();
        type(Qt::Key_Space);
        type(Qt::Key_Space); // the button is hidden now
        QCOMPARE(entries.size(), 1);
        type(Qt::CTRL | Qt::Key_C);
        QCOMPARE(copies.size(), 1);

        // One above the other.
        find<QToolButton>("liveMemoryHelpButton")->click();
        QVERIFY(stays("connectionSyncDialogForm"));
        action("About JSum Editor")->trigger();
        QVERIFY(stays("aboutDialogForm"));
        emit window->sysex()->signalFwError("broken");
        QVERIFY(stays("fwErrorDialogForm"));
        find<QWidget>("errorScroll")->setFocus();
        type(Qt::Key_Escape);
        emit window->sysex()->signalOpenRestartDialog(); // nothing in it takes a key
        QVERIFY(stays("restartDialogForm"));
        emit window->sysex()->signalCloseRestartDialog();
        QVERIFY(stays("aboutDialogForm"));
        type(Qt::Key_Escape);
        QVERIFY(stays("connectionSyncDialogForm"));
        QCOMPARE(copies.size(), 1);
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

    void versionsAreFoundAcrossPieces()
    {
        const QStringList rows[]{
            // The pieces of console text between bars, what is found, what is expected.
            // The first is unfinished, and nothing is left of it.
            {"9 TYPE_VERSION 0 10203(TYPE_VERSION 0 10204", "", ""},
            {"9 TYPE_VERSION 0 123456(|TYPE_VERSION 0 5(", "12.34.56", "0.0.5"},
            {"9 TYPE_VE|RSION 0 0102|03(x)TYPE_VERS|ION 0 1|0204|(", "1.2.3", "1.2.4"},
            {"9 TYPE_VERSION 0 1234567(TYPE_VERSION 0 10204(", "fw format error", "1.2.4"},
            {QString(1 << 20, 'x') + "|9 TYPE_VERSION 0 1(TYPE_VERSION 0 2(", "0.0.1", "0.0.2"},
        };
        open();
        for (const QStringList& row : rows) {
            emit window->sysex()->signalFwCheckStarted();
            for (const QString& piece : row.at(0).split('|'))
                emit window->sysex()->signalConsoleText(piece);
            // The comparison is made with the same two.
            QCOMPARE(window->sysex()->firmware()->foundVersion, row.at(1));
            QCOMPARE(window->sysex()->firmware()->expectedVersion, row.at(2));
            if (row.at(1).isEmpty())
                continue;
            QCOMPARE(find<QLabel>("fw_found")->text(), row.at(1));
            QCOMPARE(find<QLabel>("expected", dialog("aboutDialogForm"))->text(), row.at(2));
        }
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
        emit window->sysex()->signalConsoleText("text");
        plug();
        answerQuery();
        QVERIFY(find<FullPowerView>("fullPowerView")->isVisible());
    }

    void toolTipsAreRemembered()
    {
        open();
        action("Hide Tool Tips")->trigger();
        open();
        QVERIFY(action("Show Tool Tips"));
        QHelpEvent tip(QEvent::ToolTip, QPoint(1, 1), QPoint(1, 1));
        QCoreApplication::sendEvent(find<QPushButton>("enterDemoMode"), &tip);
        QVERIFY(!QToolTip::isVisible());
        action("Show Tool Tips")->trigger();
        QCoreApplication::sendEvent(find<QPushButton>("enterDemoMode"), &tip);
        QVERIFY(QToolTip::isVisible());
    }

    void aDemoLeavesNoTraceInTheLibrary()
    {
        QVERIFY(QDir().mkpath("resources/presets"));
        QFile library("resources/presets/jsum.json");
        QVERIFY(library.open(QIODevice::ReadWrite));
        const QByteArray before = "{\"Preset_000\":{\"preset_name\":\"[CONNECTION SYNC]\","
                                  "\"faderframe_ch1_fader\":3000}}";
        library.write(before);
        library.close();
        open();
        const auto changeAndSave = [this] {
            window->presets()->slotStoreValue("faderframe_ch1_fader", 8938, 0);
            window->presets()->slotSavePreset(0);
            window->globals()->slotStoreGlobal("tone_gen_freq", 1000);
            window->globals()->slotWriteGlobal();
        };
        window->slotEnterDemoMode();
        changeAndSave();
        plug(); // ends the demo
        QCOMPARE(window->presets()->workingPreset(0).value("faderframe_ch1_fader").toInt(), 3000);
        QVERIFY(library.open(QIODevice::ReadOnly));
        QCOMPARE(library.readAll(), before);
        QVERIFY(!QFile::exists("resources/presets/global.json"));
        changeAndSave();
        QVERIFY(QFile::exists("resources/presets/global.json"));
    }

    void secondEditorAsks()
    {
        for (const auto& [answer, isYes] :
             {std::pair("Go On Without Saving", true), {"Quit", false}, {"", false}}) {
            QTimer::singleShot(0, this, [answer = QString(answer)] {
                auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
                for (QAbstractButton* button : box->buttons())
                    if (button->text() == answer)
                        return button->click();
                QTest::keyClick(box, Qt::Key_Escape);
            });
            QCOMPARE(mayGoOnWithoutSaving(), isYes);
        }
    }

    // The first editor may be in the midst of a save, or keep a setlist that was not read yet.
    void secondEditorTouchesNothing()
    {
        const QDir presets("resources/presets");
        QVERIFY(QDir().mkpath(presets.filePath("backups")));
        const auto write = [&presets](const char* name, const QByteArray& bytes) {
            QFile file(presets.filePath(name));
            QVERIFY(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size());
        };
        const auto contents = [&presets] {
            QStringList all;
            for (const QString& name : presets.entryList(QDir::Files | QDir::Hidden)) {
                QFile file(presets.filePath(name));
                all << name << (file.open(QIODevice::ReadOnly) ? file.readAll() : "");
            }
            return all + QDir(presets.filePath("backups")).entryList(QDir::Files);
        };
        write("jsum.json", "{ \"half");
        write("jsum.json.bak", "{\"Preset_000\":{\"preset_name\":\"[CONNECTION SYNC]\"}}");
        write("global.json", "{\"Global\":{}}");
        write("setlist.json.new", "{ \"half");
        write("setlist.json.bak", "{\"A\":\"[OFF]\"}");
        const QStringList before = contents();
        open(JsonFile::Access::LookOnly);
        plug();
        answerQuery();
        QCOMPARE(window->presets()->presetCount(), 1);
        window->presets()->slotSavePreset(0);
        window->globals()->slotWriteDefaultGlobal();
        action("Auto Populate Setlist")->trigger();
        QCOMPARE(contents(), before);
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
