#include "viewfixture.h"

#include <QStackedWidget>

// Clicks are told as "3 S5 mains": on channel 3, on channel 5 with Shift, on the mains.
class TestSelection : public TestCase
{
    Q_OBJECT

    static QString fader(int channel) { return QString("faderframe_ch%1_fader").arg(channel); }
    // Of the button or the page.
    static QString word(const QString& name) { return name.section('_', 1, 1).remove("ch"); }
    static QString selectName(const QString& word)
    {
        return QString("faderframe_%1_select").arg(word.toInt() > 0 ? "ch" + word : word);
    }

    static void click(Desk& desk, const QString& clicks)
    {
        for (const QString& one : clicks.split(' ')) {
            const bool shift = one.startsWith('S');
            desk.click(selectName(one.mid(shift)), shift ? Qt::ShiftModifier : Qt::NoModifier);
        }
    }
    static void setPaired(Desk& desk, int first, int on)
    {
        desk.hear(QString("channelstrip_ch%1_stereo").arg(first), on);
    }
    static QStringList lit(const Desk& desk)
    {
        QStringList words;
        for (const auto* button : desk.at("faderGroupBox")->findChildren<QAbstractButton*>())
            if (button->objectName().endsWith("_select") && button->isChecked())
                words << word(button->objectName());
        return words;
    }
    static QStringList selected(const Desk& desk)
    {
        QStringList words;
        for (const QString& name : desk.view->selectedChannels())
            words << word(name);
        return words;
    }
    static QString pageShown(const Desk& desk)
    {
        const auto* pages = desk.view->channelStrips()->findChild<QStackedWidget*>();
        return word(pages->currentWidget()->objectName());
    }

private slots:
    void byMouse()
    {
        const struct {
            QString clicks;
            QString selected;
            QString lit; // 7 and 8 are a pair
        } rows[]{
            {"S3", "1 3", "1 3"},        {"S1", "1", "1"},
            {"S5 S3", "1 5 3", "1 3 5"}, {"S5 S3 S1", "5 3", "3 5"},
            {"S5 S3 5", "5", "5"},       {"S8", "1 8", "1 7 8"},
            {"S7 S7", "1", "1"},         {"S8 S7", "1", "1"},
            {"S7 S1 8", "8", "8"},       {"S3 Smains", "mains", "mains"},
            {"aux2 S3", "3", "3"},
        };
        Desk desk;
        desk.start();
        setPaired(desk, 7, 1);
        for (const auto& row : rows) {
            click(desk, "1 " + row.clicks);
            QCOMPARE(row.clicks + ": " + selected(desk).join(' '),
                     row.clicks + ": " + row.selected);
            QCOMPARE(row.clicks + ": " + lit(desk).join(' '), row.clicks + ": " + row.lit);
            QCOMPARE(pageShown(desk), selected(desk).last());
        }
    }

    // Each channel is told to the mixer once, and nobody else moves.
    void whatIsSelectedTogetherMovesTogether()
    {
        const QString send = "reverbtab_ch%1_send_level";
        const QString mid = "channelstrip_ch%1_eq_mid_gain";
        const QString muteKey = "faderframe_ch%1_mute";
        const struct {
            QString clicks;
            QString key;
            int moved; // of a strip's controls those of the newest lead, which are on screen
            QString sent;
        } rows[]{
            {"1 S3 S5", "faderframe_ch%1_fader", 3, "1 3 5"},
            {"1 S3 S5", "faderframe_ch%1_fader", 1, "1 3 5"},
            {"4 S2", send, 4, "2 4"},
            {"1 S3 S5 S3", muteKey, 1, "1 5"},
            {"1 S3 S5 S1", mid, 5, "3 5"},
            {"2 S6 S4", mid, 4, "2 4 6"},
            {"2 S6 S4", mid, 6, "2 6"},
            {"1 S3 4", "faderframe_ch%1_fader", 3, "3"},
            {"1 S3 Smains", muteKey, 1, "1"},
        };
        Desk desk;
        desk.start();
        for (const auto& row : rows) {
            for (int channel = 1; channel <= 8; ++channel) {
                const QString key = row.key.arg(channel);
                desk.hear(key, row.key == muteKey ? 0 : 9000);
                QVERIFY2(!desk.sent().contains(key + '='), qPrintable("an echo of " + key));
            }
            click(desk, row.clicks);
            desk.sent();
            desk.set(row.key.arg(row.moved), row.key == muteKey ? 1 : 9500);
            QStringList channels;
            for (const QString& one : desk.sent().split(' '))
                channels << one.section("_ch", 1).first(1);
            channels.sort();
            QCOMPARE(row.clicks + ": " + channels.join(' '), row.clicks + ": " + row.sent);
        }
    }

    void byTheMixer()
    {
        const struct {
            QString clicks;
            QByteArray heard;
            QString then;
            QString sent;
        } rows[]{
            {"3", "0605", "5", "06000000000005"},
            {"3 S5", "0607", "7", "06000000000007"},
            {"3 S5 S1", "0605", "5", ""},
            {"1 S7", "0608", "8", ""}, // lit as the partner
            {"3", "0609", "mains", "06000000000009"},
            {"aux2", "0602", "2", "06000000000002"},
            {"3", "0600", "phones", ""},
        };
        for (const bool linked : {true, false}) {
            Desk desk(libraryOf(fewNames), {{"view_linking_enable", linked}});
            desk.start();
            setPaired(desk, 7, 1);
            for (const auto& row : rows) {
                click(desk, row.clicks);
                const QString before = selected(desk).join(' ');
                desk.sent();
                desk.hear(row.heard);
                QCOMPARE(desk.sent(), linked ? row.sent : QString());
                QCOMPARE(selected(desk).join(' '), linked ? row.then : before);
                if (linked)
                    QCOMPARE(lit(desk), QStringList{row.then});
            }
        }
    }

    void tabs()
    {
        const QStringList names{"surround", "channelStrip", "reverb", "midi", "usb"};
        const struct {
            QByteArray action; // a tab, an output, or what the mixer says
            int page;
            QString sent;
        } rows[]{
            {"reverb", 2, "05000000000005"},
            {"midi", 3, ""},
            {"phones", 1, "0500000000000d 0500000000000d"},
            {"usb", 4, ""},
            {"channelStrip", 1, "0500000000000d"},
            {"mains", 1, "05000000000000 06000000000009"},
            {"reverb", 2, "05000000000005"},
            {"0506", 0, ""},
            {"0500", 1, ""},
            {"0505", 2, "05000000000005"},
        };
        Desk desk(libraryOf(fewNames), {{"view_linking_enable", true}});
        desk.start();
        for (const auto& row : rows) {
            if (names.contains(row.action))
                desk.button(row.action + "TabButton")->click();
            else if (row.action.startsWith('0'))
                desk.hear(row.action);
            else
                click(desk, row.action);
            QCOMPARE(row.action + ": " + desk.sent(), row.action + ": " + row.sent);
            QCOMPARE(desk.at<QStackedWidget>("mainTabWidget")->currentIndex(), row.page);
            for (const QString& tab : names)
                QCOMPARE(desk.button(tab + "TabButton")->isChecked(), tab == names[row.page]);
        }
        // The mixer's panel goes where something is changed, but not with a recall.
        desk.clickRow(1);
        QCOMPARE(desk.sent(), recallOf(1));
        desk.set(gain, 10555);
        QCOMPARE(desk.sent(), "05000000000002 " + gain + "=10555");
    }

    // Surround uses the aux buses.
    void auxLocking()
    {
        const struct {
            QString clicks;
            QString tab;
            QString then;
            int page;
        } rows[]{
            {"aux2", "channelStrip", "1", 1}, {"mains", "midi", "1", 3},
            {"aux2", "reverb", "1", 0},       {"3 S5", "channelStrip", "3 5", 1},
            {"3 S5 Saux2", "usb", "1", 4},
        };
        for (const auto& row : rows) {
            Desk desk(libraryOf(fewNames), {{"view_linking_enable", true}});
            desk.start();
            click(desk, row.clicks);
            desk.button(row.tab + "TabButton")->click();
            desk.sent();
            desk.view->slotSetAuxTabLocking(true);
            QCOMPARE(selected(desk).join(' '), row.then);
            QCOMPARE(lit(desk).join(' '), row.then);
            QCOMPARE(pageShown(desk), selected(desk).last());
            QCOMPARE(desk.at<QStackedWidget>("mainTabWidget")->currentIndex(), row.page);
            QCOMPARE(desk.sent(), row.tab == "reverb" ? "05000000000006" : "");
            for (const bool locked : {true, false}) {
                desk.view->slotSetAuxTabLocking(locked);
                for (const char* name :
                     {"faderframe_mains_select", "faderframe_aux1_mute", "faderframe_aux2_fader",
                      "faderframe_aux3_fader_level", "faderframe_aux1_select", "reverbTabButton"})
                    QCOMPARE(desk.at(name)->isEnabled(), !locked);
                QVERIFY(desk.at("faderframe_mains_fader")->isEnabled());
                QVERIFY(desk.at("faderframe_phones_select")->isEnabled());
            }
            click(desk, "7");
            QCOMPARE(desk.sent(), "06000000000007"); // linked again
        }
    }

    void aPairIsNotSelectedTwice()
    {
        Desk desk;
        desk.start();
        for (const QString clicks : {"2 S5 S1", "1 S5 S2"}) {
            click(desk, clicks);
            setPaired(desk, 1, 1);
            QCOMPARE(selected(desk), (QStringList{"5", clicks.last(1)}));
            desk.set("channelstrip_ch1_stereo", 0);
            QCOMPARE(selected(desk), QStringList{clicks.last(1)});
            QCOMPARE(lit(desk), QStringList{clicks.last(1)});
        }
    }

    // Linked controls would move each other while a preset is laid on them.
    void aRecallEndsTheSelection()
    {
        Desk desk;
        desk.start();
        for (const QString by : {"row", "revert", "paste"}) {
            desk.clickRow(1);
            desk.click("revert");
            desk.actions[1]->trigger();
            click(desk, "1 S2 S3");
            desk.set(fader(3), 7500);
            const int preset = by == "row" ? 2 : 1;
            if (by == "revert")
                desk.click("revert");
            else if (by == "paste")
                desk.actions[2]->trigger();
            else
                desk.clickRow(preset);
            QCOMPARE(by + selected(desk).join(' '), by + "3");
            QCOMPARE(lit(desk), QStringList{"3"});
            desk.set(fader(3), 7600);
            QCOMPARE(desk.shown(fader(1)), 5000 + 100 * preset);
            QCOMPARE(desk.shown(fader(2)), 6000 + 100 * preset);
        }
    }

    // Or an edit and a paste would go to the one that isn't lit.
    void thePageAfterARecallIsThatOfTheChannelLit()
    {
        Desk desk;
        desk.start();
        desk.clickRow(1);
        setPaired(desk, 1, 1);
        click(desk, "1 S2");
        QCOMPARE(pageShown(desk), "2");
        desk.clickRow(2);
        QCOMPARE(lit(desk), QStringList{"1"});
        QCOMPARE(pageShown(desk), "1");
        desk.actions[4]->trigger();
        desk.clickRow(3);
        desk.actions[5]->trigger();
        QCOMPARE(desk.value(fader(1)), 5200);
        QCOMPARE(desk.value(fader(2)), 6300);
    }

    void trimAndPasteConcernTheChannelShownOnly()
    {
        Desk desk;
        desk.start();
        click(desk, "1 S3 S3"); // back to 1
        desk.actions[4]->trigger();
        click(desk, "4 S5");
        desk.sent();
        desk.set("channelstrip_ch5_trim", 7);
        QCOMPARE(desk.sent(), "channelstrip_ch5_trim=7");
        desk.actions[5]->trigger();
        QCOMPARE(desk.value(fader(5)), 5000);
        QVERIFY(!desk.preset(0).contains(fader(4)));
        QCOMPARE(selected(desk), QStringList{"5"});
    }

    void solo()
    {
        const struct {
            QString selection;
            QString actions; // "S" a click with Shift, "m" the mixer, "k" the keyboard
            QString sentByTheLast;
            QString soloed;
        } rows[]{
            {"1", "S5 k1", "1=1", "1 5"},         {"1", "S5 m1", "", "1 5"},
            {"1", "S5 1 S5", "1=0 5=0", ""},      {"1 S3", "5 S1", "1=1 3=1 5=0", "1 3"},
            {"1 S3", "1 S5", "1=0 3=0 5=1", "5"},
        };
        const QString key = "faderframe_ch%1_solo";
        Desk desk;
        desk.start();
        for (const auto& row : rows) {
            for (int channel = 1; channel <= 8; ++channel)
                desk.hear(key.arg(channel), 0);
            click(desk, row.selection);
            for (const QString& action : row.actions.split(' ')) {
                const QString name = key.arg(action.back());
                desk.sent();
                if (action.startsWith('m'))
                    desk.hear(name, 1);
                else if (action.startsWith('k'))
                    QTest::keyClick(desk.at(name), Qt::Key_Space);
                else
                    desk.click(name, action.startsWith('S') ? Qt::ShiftModifier : Qt::NoModifier);
            }
            QStringList sent = desk.sent().remove("faderframe_ch").remove("_solo").split(' ');
            sent.sort();
            QCOMPARE(row.actions + ": " + sent.join(' '), row.actions + ": " + row.sentByTheLast);
            QStringList soloed;
            for (int channel = 1; channel <= 8; ++channel)
                if (desk.shown(key.arg(channel)) != 0)
                    soloed << QString::number(channel);
            QCOMPARE(row.actions + ": " + soloed.join(' '), row.actions + ": " + row.soloed);
        }
    }
};

QTEST_MAIN(TestSelection)
#include "tst_selection.moc"
