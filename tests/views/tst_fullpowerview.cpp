#include "viewfixture.h"

#include <QSignalSpy>

namespace
{

const QString ch1 = QStringLiteral("faderframe_ch1_fader");
const QString ch2 = QStringLiteral("faderframe_ch2_fader");
const QString gain = QStringLiteral("channelstrip_ch1_eq_hi_gain");
const QString liveMemoryRequest = QStringLiteral("0a0c0000000000");

QStringList readKeys()
{
    QFile blank(JSUM_SOURCE_DIR "/resources/presets/Blank.jsumpreset");
    if (!blank.open(QIODevice::ReadOnly))
        return {};
    QStringList keys = QJsonDocument::fromJson(blank.readAll()).toVariant().toMap().keys();
    keys.removeAll("preset_name");
    return keys;
}
// The 329 parameters.
const QStringList allKeys = readKeys();

// What one recall of a preset of a small library sends.
QString recallOf(int number)
{
    QStringList words;
    for (const auto& [key, first] : {std::pair(gain, 10000), {ch1, 5000}, {ch2, 6000}})
        words << QString("%1=%2").arg(key).arg(first + 100 * number);
    return words.join(' ');
}

// Whatever went before: it is stored once and sent once.
void moveOnce(Desk& desk)
{
    QSignalSpy stored(desk.view.get(), SIGNAL(signalStoreValue(QString, QVariant, int)));
    desk.sent();
    const int value = desk.shown(ch1) + 7;
    desk.set(ch1, value);
    QCOMPARE(desk.sent(), QString("%1=%2").arg(ch1).arg(value));
    QCOMPARE(stored.size(), 1);
    QCOMPARE(desk.value(ch1), value);
}

void happen(Desk& desk, const QString& event)
{
    if (event == "unplug")
        desk.unplug();
    else if (event == "version")
        desk.versionReply();
    else if (event == "end marker")
        desk.endMarker();
    else if (event == "preset change")
        desk.changePreset();
}

using Action = std::function<void(Desk&)>;

} // namespace

class TestFullPowerView : public TestCase
{
    Q_OBJECT

private slots:
    // The mixer and its live memory

    void nothingTouchedDuringTheSyncIsSent()
    {
        Desk desk;
        desk.plug();
        desk.versionReply();
        QCOMPARE(desk.sent(), liveMemoryRequest);
        for (const QString& key : allKeys)
            desk.set(key, desk.shown(key) + 1);
        desk.clickRow(2);
        desk.changePreset();
        QCOMPARE(desk.list->currentRow(), 0);
        desk.set(ch1, 8000);
        QCOMPARE(desk.sent(), QString());
        for (int marker = 0; marker < 2; ++marker) {
            desk.endMarker();
            moveOnce(desk);
        }
    }

    void everyControlStoresAndSendsOnceAndEchoesNothing()
    {
        Desk desk;
        desk.start();
        QCOMPARE(allKeys.size(), 329);
        for (const QString& key : allKeys) {
            const int before = desk.shown(key);
            const QString style = desk.at(key)->styleSheet();
            desk.set(key, before + 1);
            if (desk.shown(key) == before)
                desk.set(key, before - 1);
            QVERIFY2(desk.shown(key) != before, qPrintable(key));
            QCOMPARE(desk.sent(), QString("%1=%2").arg(key).arg(desk.shown(key)));
            QCOMPARE(desk.value(key), desk.shown(key));
            desk.hear(key, before);
            QCOMPARE(desk.shown(key), before);
            QCOMPARE(desk.value(key), before);
            QCOMPARE(desk.sent(), QString());
            QCOMPARE(desk.at(key)->styleSheet(), style); // a button's colour follows too
        }
    }

    // Every key differs; also where the mixer holds what the control happens to show at start.
    void afterTheSyncPresetZeroIsTheMixer()
    {
        QVariantMap initials;
        QVariantMap others;
        for (const Desk fresh; const QString& key : allKeys) {
            const QAbstractSlider* slider = fresh.slider(key);
            const int value = fresh.shown(key);
            const bool isLow = slider == nullptr ? value == 0 : value < slider->maximum();
            initials[key] = value;
            others[key] = slider == nullptr ? int{isLow}
                : isLow                     ? slider->maximum()
                                            : slider->minimum();
        }
        for (const bool holdsInitials : {true, false}) {
            const QVariantMap mixer = holdsInitials ? initials : others;
            QVariantMap before = holdsInitials ? others : initials;
            before["preset_name"] = syncName;
            Desk desk({{"Preset_000", before}});
            desk.plug();
            desk.versionReply();
            for (const QString& key : allKeys)
                QCOMPARE(desk.shown(key), before[key].toInt());
            QCOMPARE(desk.at("faderframe_ch3_solo")->styleSheet().contains("grey"), !holdsInitials);
            for (const QString& key : allKeys)
                desk.hear(key, mixer[key].toInt());
            desk.endMarker();
            QCOMPARE(desk.sent(), liveMemoryRequest);
            QSignalSpy written(&desk.presets, SIGNAL(signalStopLiveMemoryTimer()));
            QVERIFY(written.wait());
            const QVariantMap inFile = Desk::file("jsum.json")["Preset_000"].toMap();
            for (const QString& key : allKeys) {
                QCOMPARE(desk.shown(key), mixer[key].toInt());
                QCOMPARE(inFile[key].toInt(), mixer[key].toInt());
            }
            QCOMPARE(desk.rows(), QStringList{syncName}); // never shown dirty
        }
    }

    void reentryDoublesNothing()
    {
        Desk desk;
        for (const bool unplugged : {true, false, true}) {
            desk.plug();
            desk.sent();
            desk.versionReply();
            desk.set(ch1, 8000);
            QCOMPARE(desk.sent(), liveMemoryRequest);
            desk.endMarker();
            moveOnce(desk);
            for (const int row : {2, 3, 2}) {
                desk.clickRow(row);
                QCOMPARE(desk.sent(), recallOf(row));
            }
            if (unplugged)
                desk.unplug();
        }
    }

    void whatComesInTheMidstOfARecall_data()
    {
        QTest::addColumn<QString>("event");
        QTest::addColumn<int>("nth");
        QTest::addColumn<bool>("silently");
        for (const QString event : {"unplug", "version", "end marker", "preset change"}) {
            for (const int nth : {1, 5, 12})
                QTest::addRow("%s, pass %d", qPrintable(event), nth) << event << nth << false;
            QTest::addRow("%s, the mixer's own", qPrintable(event)) << event << 1 << true;
        }
    }
    void whatComesInTheMidstOfARecall()
    {
        QFETCH(QString, event);
        QFETCH(int, nth);
        QFETCH(bool, silently);
        Desk desk;
        desk.start();
        desk.clickRow(2);
        desk.sent();
        const int recalled = silently ? 0 : 1;
        bool came = false;
        const Meanwhile meanwhile(nth, [&] {
            came = desk.presets.isRecalling();
            happen(desk, event);
        });
        if (silently)
            desk.changePreset();
        else
            desk.list->setCurrentRow(recalled);
        QVERIFY(came);
        const QString whole = silently ? QString() : recallOf(recalled);
        const QMap<QString, QString> sent{
            {"version", liveMemoryRequest}, {"end marker", whole}, {"preset change", whole}};
        QCOMPARE(desk.sent(), sent[event]);
        QCoreApplication::processEvents();
        QCOMPARE(desk.sent(), QString());
        if (event == "unplug")
            desk.start();
        else if (event == "version")
            desk.endMarker();
        QCOMPARE(desk.list->currentRow(), event == "end marker" ? recalled : 0);
        QVERIFY(desk.list->isEnabled());
        moveOnce(desk);
        for (int preset = 1; preset <= 3; ++preset)
            if (preset != desk.list->currentRow())
                QCOMPARE(desk.preset(preset), smallPreset(fewNames.at(preset), preset));
        desk.clickRow(3);
        QCOMPARE(desk.sent(), recallOf(3));
        QCOMPARE(desk.shown(gain), 10300);
    }

    void whatComesInTheMidstOfAnEntry_data()
    {
        QTest::addColumn<QString>("event");
        QTest::addColumn<bool>("underBox");
        for (const QString event : {"unplug", "version", "end marker", "preset change"})
            QTest::newRow(qPrintable(event)) << event << false;
        // Which tells that the ports of the control surface's bridge are not there.
        QTest::newRow("version, under a box") << "version" << true;
        QTest::newRow("unplug, under a box") << "unplug" << true;
    }
    void whatComesInTheMidstOfAnEntry()
    {
        QFETCH(QString, event);
        QFETCH(bool, underBox);
        Desk desk(libraryOf(fewNames), {{"hui", underBox}});
        desk.plug({});
        bool came = false;
        const Meanwhile meanwhile(4, [&] {
            came = (QApplication::activeModalWidget() != nullptr) == underBox;
            happen(desk, event);
            if (event == "version")
                desk.endMarker();
            if (underBox)
                QApplication::activeModalWidget()->close();
        });
        desk.versionReply();
        QVERIFY(came);
        if (event != "version") {
            desk.set(ch1, 8000); // its own end marker is not there yet
            QCOMPARE(desk.sent(), event == "unplug" ? QString() : liveMemoryRequest);
            event == "unplug" ? desk.start() : desk.endMarker();
        }
        moveOnce(desk);
    }

    // A paste of a channel sends some keys only, and so is not quite a recall.
    void aPresetChangeInTheMidstOfAPasteIsFollowedAtOnce()
    {
        Desk desk;
        desk.start();
        desk.clickRow(2);
        desk.actions[4]->trigger();
        const Meanwhile meanwhile(3, [&] { desk.changePreset(); });
        desk.actions[5]->trigger();
        QCoreApplication::processEvents();
        QCOMPARE(desk.list->currentRow(), 0);
        desk.clickRow(3);
        QCoreApplication::processEvents();
        QCOMPARE(desk.list->currentRow(), 3);
        moveOnce(desk);
    }

    void theMixersPanelDoesNotFollowARecall()
    {
        Desk desk(libraryOf(fewNames), {{"view_linking_enable", true}});
        desk.start();
        desk.hear("0505"); // it shows its reverb
        desk.sent();
        desk.clickRow(1);
        QCOMPARE(desk.sent(), recallOf(1));
        desk.set(gain, 10555);
        QCOMPARE(desk.sent(), "05000000000002 " + gain + "=10555");
    }

    void namesThatNoControlHasAreIgnored()
    {
        Desk desk;
        desk.start();
        for (const QString name :
             {"faderframe_ch9_fader", "faderframe_ch1_select", "faderframe_ch1_fader_level",
              "faderframe_", "channelstrip_ch1_", "channelstrip_ch1_EMPTY", "channelstrip_ch9_pan",
              "channelstrip_ch1_eq_hi_gain_level", "channelstrip_mains_reverb_level",
              "channelstrip_aux1_pan", "reverbtab_", "reverbtab_x", ""})
            desk.hear(name, 1);
        QCOMPARE(desk.preset(0), smallPreset(syncName, 0));
        QCOMPARE(desk.sent(), QString());
    }

    // Faders

    void aControlClickSetsZeroDecibels()
    {
        Desk desk;
        desk.start();
        for (const QString key : {"faderframe_ch1_fader", "faderframe_aux2_fader"}) {
            for (const bool enabled : {true, false}) {
                desk.at(key + "_level")->setEnabled(enabled);
                desk.set(key, 4000);
                desk.sent();
                desk.click(key, Qt::ControlModifier);
                QCOMPARE(desk.sent(), enabled ? key + "=8938" : QString());
                QCOMPARE(desk.shown(key), enabled ? 8938 : 4000);
            }
        }
    }

    void aTypedNumberGoesToThePresetItWasTypedIn_data()
    {
        QTest::addColumn<Action>("action");
        QTest::addColumn<int>("goesTo");
        QTest::addColumn<int>("currentThen");
        const auto row = [](const char* name, int to, int then, const Action& action) {
            QTest::newRow(name) << action << to << then;
        };
        row("a click on another row", 2, 3, [](Desk& desk) { desk.clickRow(3); });
        row("the mixer changes preset", 2, 0, [](Desk& desk) { desk.changePreset(); });
        row("paste to new", 2, 4, [](Desk& desk) { desk.actions[3]->trigger(); });
        row("save as", 4, 4, [](Desk& desk) {
            desk.click("saveas");
            desk.type("New\r");
        });
        row("receive slot A", 2, 1, [](Desk& desk) {
            desk.click("receiveA");
            desk.press("receivePresetDialogForm", "receive");
            desk.slotEndMarker(1);
        });
        row("the mixer goes and comes", 2, 0, [](Desk& desk) {
            desk.unplug();
            desk.start();
        });
    }
    void aTypedNumberGoesToThePresetItWasTypedIn()
    {
        QFETCH(Action, action);
        QFETCH(int, goesTo);
        Desk desk;
        desk.start();
        desk.clickRow(2);
        desk.actions[1]->trigger(); // copies the preset
        QTest::mouseClick(desk.in<QLineEdit>(ch1 + "_level", "qt_spinbox_lineedit"),
                          Qt::LeftButton);
        desk.type("-10");
        action(desk);
        QTEST(desk.list->currentRow(), "currentThen");
        const QList<int> before{5000, 5100, 5200, 5300, 5200};
        for (int preset = 0; preset < desk.list->count(); ++preset)
            QCOMPARE(desk.value(ch1, preset), preset == goesTo ? 6740 : before.at(preset));
    }

    // Dialogs

    void dialogs_data()
    {
        QTest::addColumn<QString>("form");
        QTest::addColumn<QString>("edit");
        QTest::addColumn<QString>("accept");
        QTest::newRow("saveas") << "saveAs"
                                << "name"
                                << "save";
        QTest::newRow("rename") << "rename"
                                << "name"
                                << "rename";
        QTest::newRow("receiveA") << "receivePreset"
                                  << "name"
                                  << "receive";
        QTest::newRow("receiveB") << "receiveAs"
                                  << "name"
                                  << "receive"; // [DEFAULT]
        QTest::newRow("receiveC") << "receiveAs"
                                  << "name"
                                  << "receive"; // of an unknown name
        QTest::newRow("receive_all") << "receiveAll"
                                     << "prefix"
                                     << "receive";
        QTest::newRow("deletepreset") << "delete"
                                      << ""
                                      << "";
        QTest::newRow("liveMemoryHelpButton") << "connectionSync"
                                              << ""
                                              << "";
    }
    void dialogs()
    {
        QFETCH(QString, form);
        QFETCH(QString, edit);
        QFETCH(QString, accept);
        const QString opener = QTest::currentDataTag();
        form += "DialogForm";
        Desk desk(libraryOf(fewNames), {{"receiveDecision", "toNew"}},
                  {{"A", "One"}, {"B", "[DEFAULT]"}, {"C", "Gone"}});
        desk.start();
        desk.clickRow(1);
        for (const QString closing : {"cancel", "Escape", "unplug"}) {
            if (opener == "rename")
                desk.view->slotCheckToAllowRename(desk.list->item(1));
            else
                desk.click(opener);
            QVERIFY(desk.isOpen(form) && desk.isSheetOpen());
            if (!edit.isEmpty()) {
                auto* line = desk.in<QLineEdit>(form, edit);
                QVERIFY(line->hasFocus() && line->text().isEmpty());
                QVERIFY(!desk.in(form, accept)->isEnabled());
                desk.type(QString(25, 'x'));
                QCOMPARE(line->text(), QString(24, 'x'));
                QVERIFY(desk.in(form, accept)->isEnabled());
            }
            if (closing == "cancel") {
                desk.press(form, form.startsWith("conn") ? "ok" : "cancel");
            } else if (closing == "Escape") {
                desk.type("\x1b");
            } else {
                desk.unplug();
                desk.start();
            }
            QVERIFY(!desk.isOpen(form) && !desk.isSheetOpen());
        }
        QCOMPARE(desk.rows(), fewNames);
    }

    void renameAndDeleteMeanTheirPreset()
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
            QCOMPARE(desk.at("save")->styleSheet().isEmpty(), mixerChangesPreset);
            QCOMPARE(desk.value(ch1, 2), 5555);
            QCOMPARE(Desk::file("jsum.json")["Preset_002"].toMap()[ch1].toInt(), 5200);
            QCOMPARE(Desk::file("setlist.json")["A"].toString(), "Three copy1");
            QCOMPARE(desk.at<QComboBox>("setlistA")->currentText(), "Three copy1");

            desk.clickRow(3);
            desk.click("deletepreset");
            if (mixerChangesPreset)
                desk.changePreset();
            desk.press("deleteDialogForm", "delete_2");
            QCOMPARE(desk.rows(), (QStringList{syncName, "One", "Three copy1*"}));
            QCOMPARE(Desk::file("jsum.json").size(), 3);
            QCOMPARE(desk.list->currentRow(), 0);
            moveOnce(desk);
            QCOMPARE(desk.value(ch1, 1), 5100);

            desk.view->slotCheckToAllowRename(desk.list->item(0));
            desk.view->slotDeletePreset();
            QVERIFY(!desk.isSheetOpen());
            QVERIFY(!desk.at("save")->isEnabled() && !desk.at("deletepreset")->isEnabled());
        }
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
        const QVariantMap library = Desk::file("jsum.json");
        for (const auto& [key, one, two] : {std::tuple("Preset_001", 5200, 6200),
                                            {"Preset_002", 5300, 6300},
                                            {"Preset_003", 5555, 6666}}) {
            QCOMPARE(library[key].toMap()[ch1].toInt(), one);
            QCOMPARE(library[key].toMap()[ch2].toInt(), two);
        }
    }

    // Libraries and slots

    void aFullLibraryTakesNothingNew()
    {
        for (const int size : {988, 989, 1000}) {
            QStringList names{syncName};
            while (names.size() < size)
                names << QString("P%1").arg(names.size());
            Desk desk(libraryOf(names), {{"receiveDecision", "toNew"}}, {{"A", "P1"}});
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
            desk.click("receiveA");
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
        for (const QStringList& names : {QStringList(), {syncName}, {"One", "Two"}}) {
            Desk desk(libraryOf(names), {}, {{"A", "One"}, {"B", "[DEFAULT]"}, {"C", "[OFF]"}});
            desk.start();
            bool hangs = false;
            QTimer::singleShot(20000, &desk, [&] {
                hangs = true;
                desk.unplug();
            });
            for (const char* button :
                 {"save", "revert", "saveas", "deletepreset", "liveMemoryHelpButton", "receiveA",
                  "receiveB", "receiveC", "sendA", "sendC"}) {
                desk.click(button);
                if (QApplication::focusWidget() != nullptr)
                    desk.type("New\r");
            }
            desk.slotEndMarker(2);
            for (QAction* action : desk.actions)
                action->trigger();
            desk.changePreset();
            desk.endMarker();
            desk.set(ch1, 4321);
            desk.view->slotReorderPresetList();
            desk.view->slotRename();
            QVERIFY(!hangs);
            desk.unplug();
            desk.start();
            desk.set(ch1, 5432);
            QCOMPARE(desk.sent(), ch1 + "=5432");
        }
    }

    void aSlotOfAnUnknownNameIsPassedOver()
    {
        Desk desk(libraryOf(fewNames), {}, {{"A", "Gone"}, {"B", "[OFF]"}});
        desk.start();
        desk.clickRow(1);
        desk.sent();
        desk.click("sendA");
        QCOMPARE(desk.sent(), "0c000000000000 0c010000000000 " + recallOf(1));
        QVERIFY(!desk.isOpen("progressDialogForm") && !desk.isSheetOpen());
        QVERIFY(!desk.at("sendB")->isEnabled() && !desk.at("receiveB")->isEnabled());
        moveOnce(desk);
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

    // Preferences, drawer, Edit menu

    // on: the opposite of what is written when a key is absent.
    void preferences()
    {
        for (const bool on : {false, true}) {
            const QVariantMap values{{"autoCheckForUpdates", !on},
                                     {"view_linking_enable", on},
                                     {"hui", on},
                                     {"show_preset_drawer", on},
                                     {"rememberReceiveDecision", on},
                                     {"receiveDecision", on ? "toNew" : "toSlot"}};
            Desk desk(libraryOf(fewNames), on ? values : QVariantMap());
            desk.start();
            desk.start();
            for (auto key = values.cbegin(); key != values.cend(); ++key)
                QCOMPARE(desk.settings.value(key.key()), key.value());
            for (const QString name : {"view_linking_enable", "hui", "auto_check_for_updates"})
                QCOMPARE(desk.settingsDialog.findChild<QAbstractButton*>(name)->text(),
                         on != name.startsWith("auto") ? "ON" : "OFF");
            QCOMPARE(desk.button("rememberReceiveDecision")->isChecked(), on);
            QCOMPARE(desk.button("toNew")->isChecked(), on);
        }
    }

    void theFirstClickClosesTheDrawer()
    {
        Desk desk;
        QSignalSpy sizes(desk.view.get(), SIGNAL(signalChangeWindowSize(int, int)));
        for (const bool open : {false, true, false, false}) {
            if (!open) { // each entry opens it, and leaves the key
                const QVariant before = desk.settings.value("show_preset_drawer", false);
                desk.start();
                QCOMPARE(desk.view->width(), 1200);
                QCOMPARE(desk.settings.value("show_preset_drawer"), before);
            }
            sizes.clear();
            desk.click("showPreset");
            QCOMPARE(sizes, (QList<QVariantList>{{open ? 1200 : 935, 728}}));
            QCOMPARE(desk.view->width(), open ? 1200 : 935);
            QCOMPARE(desk.settingsDialog.geometry(), QRect(open ? 175 : 42, 178, 850, 336));
            QCOMPARE(desk.settings.value("show_preset_drawer").toBool(), open);
        }
        QVERIFY(desk.at("presetFrame")->x() >= 935);
    }

    void theEditMenuWorksInTheModeOnly()
    {
        Desk desk;
        for (int entry = 1; entry <= 2; ++entry) {
            desk.start();
            desk.clickRow(1);
            desk.actions[1]->trigger();
            QVERIFY(desk.actions[2]->isEnabled() && desk.actions[3]->isEnabled());
            QCOMPARE(desk.actions[5]->isEnabled(), entry == 2);
            desk.actions[4]->trigger();
            QVERIFY(desk.actions[5]->isEnabled());
            for (const bool inMode : {true, false}) {
                if (!inMode)
                    desk.unplug();
                desk.actions[3]->trigger();
                QCOMPARE(desk.rows().size(), 4 + entry);
                QCOMPARE(desk.list->currentRow(), 3 + entry);
            }
        }
    }
};

QTEST_MAIN(TestFullPowerView)
#include "tst_fullpowerview.moc"
