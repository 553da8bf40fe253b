#include "viewfixture.h"

// Between the mode's entry and the end of the mixer's live state, and what the mixer changes by
// itself.
class TestLiveSync : public TestCase
{
    Q_OBJECT

    const QVariantMap linked{{"view_linking_enable", true}};

private slots:
    void aRowPickedTooEarlyKeepsItsPreset()
    {
        Desk desk;
        desk.plug();
        desk.versionReply();
        desk.sent();
        desk.clickRow(2);
        desk.hear(gain, 9999);
        desk.set(ch1, 4321);
        QCOMPARE(desk.preset(2), smallPreset("Two", 2));
        QCOMPARE(desk.value(gain, 0), 9999);
        QCOMPARE(desk.value(ch1, 0), 4321);
        QCOMPARE(desk.rows(), fewNames);
        QCOMPARE(desk.sent(), QString());

        // It is recalled as soon as it can be, and once.
        desk.endMarker();
        QCOMPARE(desk.sent(), recallOf(2));
        QCOMPARE(desk.shown(gain), desk.value(gain, 2));
        desk.endMarker();
        QCOMPARE(desk.sent(), QString());
        desk.moveOnce();
        QCOMPARE(desk.value(gain, 0), 9999);
    }

    void nothingTouchedTooEarlyIsSent()
    {
        Desk desk(libraryOf(fewNames), linked);
        desk.plug();
        desk.versionReply();
        desk.sent();
        const auto touchAll = [&] {
            desk.click("faderframe_ch3_select");
            desk.click("reverbTabButton");
            desk.click("faderframe_ch1_mute");
            desk.button("channelstrip_ch1_phantom")->click();
        };
        touchAll();
        for (const char* name : {"sendA", "receiveA", "send_all", "receive_all", "saveas"})
            QVERIFY2(!desk.button(name)->isEnabled(), name);
        QCOMPARE(desk.sent(), QString());

        desk.endMarker();
        for (const char* name : {"sendA", "receiveA", "send_all", "receive_all", "saveas"})
            QVERIFY2(desk.button(name)->isEnabled(), name);
        desk.click("channelStripTabButton");
        desk.click("faderframe_ch2_select");
        desk.sent();
        touchAll();
        QCOMPARE(desk.sent(),
                 "06000000000003 05000000000005 05000000000000 "
                 "faderframe_ch1_mute=0 030601003e0001");
    }

    // An echo could switch power. It is no parameter of a preset.
    void phantomPowerShowsWhatIsThere()
    {
        const QString one = "channelstrip_ch1_phantom";
        const QString two = "channelstrip_ch2_phantom";
        Desk desk;
        const auto held = [&desk](const QString& key) {
            return desk.globals.document()["Global"].toMap()[key].toInt();
        };
        const auto says = [&desk](const QString& key) {
            return QString("%1 %2").arg(desk.shown(key)).arg(desk.button(key)->text());
        };
        desk.globals.slotStoreGlobal("ch2_phantom", true);
        desk.plug();
        desk.versionReply();
        QCOMPARE(says(one) + says(two), "0 48v1 48v");
        desk.sent();
        desk.button(two)->click(); // too early
        QCOMPARE(says(two), "1 48v");
        desk.endMarker();
        desk.click("faderframe_ch2_select", Qt::ShiftModifier);
        desk.hear("03060100"
                  "3e0001");
        desk.hear("03060000"
                  "3f0000");
        desk.hear(two, 0);
        QCOMPARE(says(one) + says(two), "1 12v1 12v");
        desk.hear("03060200"
                  "3e0000");
        QCOMPARE(says(one) + says(two), "1 12v0 12v");
        QVERIFY(desk.at(one)->styleSheet().contains("rgb(255,0,0)"));
        QCOMPARE(desk.sent(), QString());
        for (const char* message : {"030601003e0000", "030601003e0001"}) {
            desk.button(one)->click();
            QVERIFY(desk.sent().contains(message));
        }
        QCOMPARE(held("ch1_phantom"), 1);
        QVERIFY(desk.globals.globalSaveTimer->isActive());
    }

    void theFadersOfTheMixerStayShownThere()
    {
        Desk desk(libraryOf(fewNames), linked);
        desk.start();
        desk.click("faderframe_phones_select");
        desk.click("reverbTabButton");
        desk.sent();
        desk.hear("0500");
        QVERIFY(desk.button("channelStripTabButton")->isChecked());
        QCOMPARE(desk.sent(), QString());
        desk.click("reverbTabButton");
        desk.click("channelStripTabButton");
        QCOMPARE(desk.sent(), "05000000000005 0500000000000d");
    }

    void aChangeOfPresetWaitsForTheSlotThatArrives_data()
    {
        QTest::addColumn<int>("endsWith");
        QTest::newRow("its end") << 1;
        QTest::newRow("another slot's end") << 2;
    }
    void aChangeOfPresetWaitsForTheSlotThatArrives()
    {
        QFETCH(int, endsWith);
        Desk desk;
        desk.start();
        desk.clickRow(2);
        desk.click("receiveA");
        desk.press("receivePresetDialogForm", "receive");
        desk.hear(gain, 8001);
        desk.changePreset();
        desk.hear(ch1, 4001);
        QCOMPARE(desk.list->currentRow(), 1);
        desk.slotEndMarker(endsWith);
        QTRY_COMPARE(desk.list->currentRow(), 0);
        QCOMPARE(desk.value(gain, 1), 8001);
        QCOMPARE(desk.value(ch1, 1), 4001);
        QVERIFY(!desk.isOpen("progressDialogForm"));
        desk.moveOnce();
    }

    void aChangeOfPresetWaitsForTheEndOfAReceiveAll()
    {
        Desk desk;
        desk.start();
        QString sent;
        int slot = 0;
        QTimer mixer;
        connect(&mixer, &QTimer::timeout, [&] {
            sent += ' ' + desk.sent();
            if (sent.count(" 0a") == slot) // requests so far
                return;
            ++slot;
            if (slot == 3)
                desk.changePreset();
            desk.slotEndMarker(slot);
        });
        mixer.start(0);
        desk.click("receive_all");
        desk.type("Gig");
        desk.press("receiveAllDialogForm", "receive");
        QTRY_COMPARE(desk.list->currentRow(), 0);
        mixer.stop();
        QCOMPARE(slot, 12);
        sent += desk.sent();
        QVERIFY2(sent.count(ch1) == 1, qPrintable(sent)); // the last preset's recall
        desk.moveOnce();
    }

    // From one mixer message to many recalls is a flood.
    void manySlotEndsThatNobodyAskedForAreOneMoreRecall()
    {
        Desk desk;
        desk.start();
        desk.clickRow(1);
        desk.sent();
        for (int end = 0; end < 20; ++end)
            QMetaObject::invokeMethod(
                &desk, [&] { desk.slotEndMarker(1 + end % 12); }, Qt::QueuedConnection);
        QString sent;
        const auto soFar = [&] { return sent = (sent + ' ' + desk.sent()).trimmed(); };
        QTRY_COMPARE(soFar(), recallOf(1) + ' ' + recallOf(1));
        QTest::qWait(200);
        QCOMPARE(desk.sent(), QString());
        desk.slotEndMarker(3); // and it listens again
        QCOMPARE(desk.sent(), recallOf(1));
    }

    // Whatever comes at whatever moment of a recall: in the end screen, store and mixer agree.
    void inTheMidstOfARecallAllStayTogether_data()
    {
        QTest::addColumn<bool>("silently");
        for (const char* what : {"a value", "a recall", "a send", "a value and a send"}) {
            QTest::addRow("%s", what) << false;
            QTest::addRow("%s, the mixer's own recall", what) << true;
        }
    }
    void inTheMidstOfARecallAllStayTogether()
    {
        QFETCH(bool, silently);
        const QString what = QString(QTest::currentDataTag()).section(',', 0, 0);
        if (what == "a recall" && silently)
            QSKIP("the user can't, and the mixer's waits");
        const QString decay = "reverbtab_decay_time"; // of the last page
        QVariantMap library = libraryOf(fewNames);
        for (QVariant& preset : library) {
            QVariantMap more = preset.toMap();
            more[decay] = 1000 + more[ch1].toInt() % 1000;
            preset = more;
        }
        for (int moment = 1; moment <= (silently ? 1 : 12); moment += 5) {
            Desk desk(library);
            desk.start();
            desk.clickRow(2);
            desk.set(ch1, 5678);
            desk.sent();
            const Meanwhile meanwhile(moment, [&] {
                QVERIFY(desk.presets.isRecalling());
                if (what.startsWith("a value"))
                    for (const QString& key : {ch2, gain, decay})
                        desk.hear(key, 9000);
                if (what == "a recall")
                    desk.list->setCurrentRow(3);
                if (what.endsWith("a send"))
                    desk.click("sendA");
            });
            if (silently)
                desk.changePreset();
            else
                desk.list->setCurrentRow(1);
            QString sent = desk.sent();
            // A slot never gets what the live memory happens to hold.
            if (what.endsWith("a send")) {
                QTRY_VERIFY((sent += ' ' + desk.sent()).contains("09000000000000"));
                QVERIFY2(sent.contains(QRegularExpression(decay + "=\\d+ 09")), qPrintable(sent));
                QTRY_VERIFY(!desk.isOpen("progressDialogForm"));
            }
            QCoreApplication::processEvents();
            QCOMPARE(desk.apart({ch1, ch2, gain, decay}), QStringList());
            desk.moveOnce();
        }
    }

    void clicksInAQuickDoubleRecallFollowIt()
    {
        const QString mute = "faderframe_ch5_mute";
        Desk desk;
        desk.start();
        desk.sent();
        const Meanwhile second(2, [&] { desk.postRow(3); });
        const Meanwhile third(5, [&] { desk.post(desk.at(mute), desk.at(mute)->rect()); });
        desk.postRow(2);
        QTRY_COMPARE(desk.list->currentRow(), 3);
        QTRY_COMPARE(desk.value(mute, 3), 1);
        QCOMPARE(desk.apart({ch1, ch2, gain, mute}), QStringList());
        QCOMPARE(desk.sent(), recallOf(2) + ' ' + recallOf(3) + ' ' + mute + "=1");
        QCOMPARE(desk.preset(2), smallPreset("Two", 2));
    }

    // The closing send puts the saved state into the mixer.
    void aSlotThatIsSentLeavesUnsavedEditsOnTheMixer()
    {
        Desk desk(libraryOf(fewNames), {}, {{"A", "One"}});
        desk.start();
        desk.clickRow(2);
        desk.set(ch1, 5678);
        desk.sent();
        desk.click("sendA");
        QCOMPARE(desk.apart(), QStringList());
        QVERIFY(desk.sent().endsWith(recallOf(2) + ' ' + ch1 + "=5678"));
        QCOMPARE(desk.rows().at(2), "Two*");
    }

    void thePanelChecksNothingWhileTheViewIsAway()
    {
        Desk desk(libraryOf(fewNames), linked);
        desk.start();
        desk.unplug();
        desk.hear("0505");
        desk.start();
        QVERIFY(!desk.button("reverbTabButton")->isChecked());
        desk.click("reverbTabButton");
        QVERIFY(!desk.button("channelStripTabButton")->isChecked());
    }
};

QTEST_MAIN(TestLiveSync)
#include "tst_livesync.moc"
