#include "viewfixture.h"

// The drawer with the library and the setlist, its dialogs, and the Edit menu.
class TestPresetDrawer : public TestCase
{
    Q_OBJECT

private slots:
    void dialogs()
    {
        const std::pair<QString, QString> rows[]{
            {"saveas", "saveAs"},
            {"rename", "rename"},
            {"receiveA", "receivePreset"},
            {"receiveB", "receiveAs"}, // [DEFAULT]
            {"receiveC", "receiveAs"}, // a name that no preset has
            {"receive_all", "receiveAll"},
            {"deletepreset", "delete"},
            {"liveMemoryHelpButton", "connectionSync"},
        };
        Desk desk(libraryOf(fewNames), {{"receiveDecision", "toNew"}},
                  {{"A", "One"}, {"B", "[DEFAULT]"}, {"C", "Gone"}});
        desk.start();
        for (const auto& [opener, name] : rows) {
            const QString form = name + "DialogForm";
            desk.clickRow(1);
            for (const QString closing : {"cancel", "Escape", "unplug"}) {
                if (opener == "rename")
                    desk.view->slotCheckToAllowRename(desk.list->item(1));
                else
                    desk.click(opener);
                QVERIFY2(desk.isOpen(form) && desk.isSheetOpen(), qPrintable(opener));
                if (auto* edit = desk.at(form)->findChild<QLineEdit*>(); edit != nullptr) {
                    QVERIFY(edit->hasFocus() && edit->text().isEmpty());
                    desk.type("\r"); // without a name
                    QVERIFY2(desk.isOpen(form), qPrintable(opener + ", " + closing));
                    desk.type(QString(25, 'x'));
                    QCOMPARE(edit->text(), QString(24, 'x'));
                }
                QTest::keyClick(desk.windowHandle(), Qt::Key_Tab);
                if (closing == "cancel") {
                    desk.press(form, opener.startsWith("live") ? "ok" : "cancel");
                } else if (closing == "Escape") {
                    desk.type("\x1b");
                } else {
                    desk.unplug();
                    desk.start();
                }
                QVERIFY(!desk.isOpen(form) && !desk.isSheetOpen());
                QVERIFY(!desk.at(form)->isAncestorOf(desk.focusWidget()));
            }
        }
        QCOMPARE(desk.rows(), fewNames);
    }

    void aTypedNumberGoesToThePresetItWasTypedIn()
    {
        const struct {
            int currentThen;
            std::function<void(Desk&)> action;
            int valueThen = 6740;
            int liveThen = 5000;
        } rows[]{
            {2, [](Desk& desk) { desk.actions[2]->trigger(); }, 5200}, // pastes
            {3, [](Desk& desk) { desk.clickRow(3); }},
            {0, [](Desk& desk) { desk.changePreset(); }, 6740, 6740}, // goes on from what is shown
            {4, [](Desk& desk) { desk.actions[3]->trigger(); }},      // pastes to new
            {1,
             [](Desk& desk) {
                 desk.click("receiveA");
                 desk.press("receivePresetDialogForm", "receive");
                 desk.slotEndMarker(1);
             }},
            {0,
             [](Desk& desk) {
                 desk.unplug();
                 desk.start();
             }},
        };
        for (const auto& row : rows) {
            Desk desk;
            desk.start();
            desk.clickRow(2);
            desk.actions[1]->trigger(); // copies the preset
            desk.press(ch1 + "_level", "qt_spinbox_lineedit");
            desk.type("-10");
            row.action(desk);
            QCOMPARE(desk.list->currentRow(), row.currentThen);
            const QList<int> before{row.liveThen, 5100, 5200, 5300, 5200};
            for (int preset = 0; preset < desk.list->count(); ++preset)
                QCOMPARE(desk.value(ch1, preset), preset == 2 ? row.valueThen : before.at(preset));
        }
    }

    void saveAsRenameAndDeleteMeanTheirPreset()
    {
        for (const bool mixerChangesPreset : {false, true}) {
            Desk desk(libraryOf(fewNames), {}, {{"A", "Two"}, {"C", "Gone"}});
            desk.start();
            desk.clickRow(2);
            desk.set(ch1, 5555);
            desk.view->slotCheckToAllowRename(desk.list->item(2));
            desk.type("Th");
            if (mixerChangesPreset)
                desk.changePreset();
            desk.type("ree\r"); // goes on in the dialog; another preset has that name
            QCOMPARE(desk.rows(), (QStringList{syncName, "One", "Three copy1*", "Three"}));
            QCOMPARE(desk.list->currentRow(), mixerChangesPreset ? 0 : 2);
            QCOMPARE(desk.value(ch1, 2), 5555);
            QCOMPARE(Desk::file("jsum.json")["Preset_002"].toMap()[ch1].toInt(), 5200);
            QCOMPARE(Desk::file("setlist.json")["A"].toString(), "Three copy1");

            desk.clickRow(3);
            desk.click("deletepreset");
            if (mixerChangesPreset)
                desk.changePreset();
            desk.press("deleteDialogForm", "delete_2");
            QCOMPARE(desk.rows(), (QStringList{syncName, "One", "Three copy1*"}));
            QCOMPARE(desk.list->currentRow(), 0);
            desk.moveOnce();
            QCOMPARE(desk.value(ch1, 1), 5100);

            desk.clickRow(2);
            desk.click("saveas");
            if (mixerChangesPreset)
                desk.changePreset();
            desk.type("New\r");
            QCOMPARE(desk.rows(), (QStringList{syncName, "One", "Three copy1", "New"}));
            QCOMPARE(desk.value(ch1, 3), 5555);
            QCOMPARE(desk.value(ch1, 2), 5200); // the edits live in the new one
            QCOMPARE(desk.apart(), QStringList());

            // Which can be neither renamed nor deleted.
            desk.clickRow(0);
            desk.view->slotCheckToAllowRename(desk.list->item(0));
            desk.view->slotDeletePreset();
            QVERIFY(!desk.isSheetOpen() && desk.list->count() == 4);
        }
    }

    void aDeleteThatAnUnplugCutsShortLeavesNoName()
    {
        Desk desk;
        desk.start();
        desk.clickRow(1);
        desk.click("deletepreset");
        const Meanwhile meanwhile(2, [&] { desk.unplug(); });
        desk.press("deleteDialogForm", "delete_2");
        QCOMPARE(desk.list->isEnabled(), false); // cut short
        QCOMPARE(Desk::file("setlist.json")["A"].toString(), "[OFF]");
    }

    // A library from elsewhere may hold two of one name.
    void theSecondOfANameIsDeleted()
    {
        Desk desk(libraryOf({syncName, "One", "One"}));
        desk.start();
        desk.clickRow(2);
        desk.click("deletepreset");
        desk.press("deleteDialogForm", "delete_2");
        QCOMPARE(desk.rows(), (QStringList{syncName, "One"}));
        QCOMPARE(desk.value(ch1, 1), 5100);
    }

    void aSaveAfterADragGoesToTheRowShown()
    {
        Desk desk;
        desk.start();
        desk.clickRow(1);
        desk.set(ch1, 5555);
        QVERIFY(desk.list->model()->moveRow({}, 1, {}, 4));
        emit desk.list->signalReorderPresets();
        QCOMPARE(desk.rows(), (QStringList{syncName, "Two", "Three", "One*"}));
        QCOMPARE(desk.list->currentRow(), 3);
        desk.set(ch2, 6666);
        desk.click("save");
        QCOMPARE(desk.rows(), (QStringList{syncName, "Two", "Three", "One"}));
        QList<QPair<int, int>> inFile;
        for (const QVariant& preset : Desk::file("jsum.json"))
            inFile.append({preset.toMap()[ch1].toInt(), preset.toMap()[ch2].toInt()});
        QCOMPARE(inFile,
                 (QList<QPair<int, int>>{{5000, 6000}, {5200, 6200}, {5300, 6300}, {5555, 6666}}));
    }

    void aFullLibraryTakesNothingNew()
    {
        for (const int size : {988, 989, 1000}) {
            QStringList names{syncName};
            while (names.size() < size)
                names << QString("P%1").arg(names.size());
            QVariantMap library = libraryOf(names);
            library["MyPreset"] = smallPreset("no preset", 0);
            Desk desk(library,
                      {{"receiveDecision", "toNew"}, {"rememberReceiveDecision", size == 1000}},
                      {{"A", "P1"}, {"B", "[DEFAULT]"}});
            desk.start();
            desk.actions[1]->trigger();
            const auto check = [&desk](bool one, bool twelve) {
                QCOMPARE(desk.at("saveas")->isEnabled(), one);
                QCOMPARE(desk.actions[3]->isEnabled(), one);
                QCOMPARE(desk.at("toNew")->isEnabled(), one);
                QCOMPARE(desk.at("receive_all")->isEnabled(), twelve);
                QCOMPARE(desk.at("saveas")->toolTip().contains("1000"), !one);
                QCOMPARE(desk.at("receive_all")->toolTip().contains("no room"), !twelve);
            };
            check(size < 1000, size == 988);
            QCOMPARE(desk.at("receiveB")->isEnabled(), size < 1000);
            desk.click("receiveA");
            QVERIFY(desk.isOpen("receivePresetDialogForm")); // whatever is remembered
            QCOMPARE(desk.button("toSetlistSlot")->isChecked(), size == 1000);
            desk.type("\x1b");
            desk.clickRow(5);
            desk.click("deletepreset");
            desk.press("deleteDialogForm", "delete_2");
            check(true, size < 1000);
        }
    }

    // Everything is pressed once, and nothing hangs.
    void tinyLibraries()
    {
        for (const QStringList& names : {QStringList(), {"One", "Two"}}) {
            Desk desk(libraryOf(names), {}, {{"A", "One"}, {"B", "[DEFAULT]"}, {"C", "[OFF]"}});
            desk.start();
            bool hangs = false;
            QTimer::singleShot(60000, &desk, [&] {
                hangs = true;
                desk.unplug();
            });
            for (const char* button :
                 {"save", "revert", "saveas", "deletepreset", "receiveA", "receiveB", "sendA"}) {
                desk.click(button);
                if (QApplication::focusWidget() != nullptr)
                    desk.type("New\r");
            }
            desk.slotEndMarker(2);
            for (QAction* action : desk.actions)
                action->trigger();
            desk.changePreset();
            desk.endMarker();
            QVERIFY(!hangs);
            desk.unplug();
            desk.start();
            desk.set(ch1, 5432);
            QCOMPARE(desk.sent(), ch1 + "=5432");
        }
    }

    void theSheetKeepsOffKeysToo()
    {
        Desk desk(libraryOf(fewNames), {{"rememberReceiveDecision", true}});
        desk.start();
        desk.actions[6]->setShortcut(QKeySequence("Ctrl+D"));
        QSignalSpy triggered(desk.actions[6], SIGNAL(triggered()));
        desk.click("receiveA"); // without a dialog
        for (const bool isThrough : {false, true}) {
            QTest::keyClick(&desk, Qt::Key_D, Qt::ControlModifier);
            QTest::keyClick(desk.list, Qt::Key_Down);
            QCOMPARE(triggered.size(), isThrough ? 1 : 0);
            QCOMPARE(desk.list->currentRow(), isThrough ? 2 : 1);
            QCOMPARE(desk.menuBar()->isEnabled(), isThrough);
            QCOMPARE(desk.isOpen("progressDialogForm"), !isThrough);
            desk.slotEndMarker(1);
        }
    }

    // They outlast two entries, and so does the drawer's, which each entry opens.
    void preferences()
    {
        const QVariantMap values{{"autoCheckForUpdates", false},
                                 {"view_linking_enable", true},
                                 {"hui", true},
                                 {"rememberReceiveDecision", true},
                                 {"receiveDecision", "toNew"},
                                 {"show_preset_drawer", true}};
        Desk desk(libraryOf(fewNames), values);
        desk.start();
        desk.start();
        for (auto key = values.cbegin(); key != values.cend(); ++key)
            QCOMPARE(desk.settings.value(key.key()), key.value());
        QVERIFY(desk.button("rememberReceiveDecision")->isChecked());
        QVERIFY(desk.button("toNew")->isChecked());
        for (const bool open : {false, true, false}) {
            desk.click("showPreset");
            QCOMPARE(desk.view->width(), open ? 1200 : 935);
            QCOMPARE(desk.settings.value("show_preset_drawer").toBool(), open);
        }
        desk.start();
        QCOMPARE(desk.view->width(), 1200);
    }
};

QTEST_MAIN(TestPresetDrawer)
#include "tst_presetdrawer.moc"
