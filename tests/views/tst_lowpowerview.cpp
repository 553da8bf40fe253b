#include "controlkind.h"
#include "globalpresetinterface.h"
#include "lowpowerview.h"
#include "mixerend.h"
#include "testcase.h"

#include <QDoubleSpinBox>
#include <QPushButton>
#include <QSignalSpy>

#include <memory>

class TestLowPowerView : public TestCase
{
    Q_OBJECT

    const QString fader = "faderframe_ch8_fader";
    const QString gain = "channelstrip_ch3_eq_mid_gain";
    const QString mapping = "miditab_fader1_bank2_cc";
    std::unique_ptr<MixerEnd> mixer;
    std::unique_ptr<GlobalPresetInterface> globals;
    std::unique_ptr<QWidget> dialog;
    std::unique_ptr<LowPowerView> view;

    void prepare() override
    {
        view.reset();
        mixer = std::make_unique<MixerEnd>();
        mixer->sysex.slotDidAttemptFwUpdate(); // or it would look for the firmware tool
        mixer->plug();
        globals = std::make_unique<GlobalPresetInterface>();
        globals->slotStoreGlobal(mapping, 77);
        dialog = std::make_unique<QWidget>();
        view = std::make_unique<LowPowerView>(&mixer->sysex, globals.get(), dialog.get(), nullptr);
        (new QPushButton(dialog.get()))->setObjectName("globalSendButton");
        mixer->sent();
    }

    void enter(bool synced = true)
    {
        view->slotInitializeLowPowerMode();
        if (!synced)
            return;
        mixer->endMarker();
        mixer->sent();
    }
    template <class Widget = QWidget> Widget* at(const QString& name) const
    {
        return view->findChild<Widget*>(name);
    }
    int valueOf(const QString& key) const { return kindOf(at(key))->value(at(key)); }
    void move(const QString& key, int value) const { kindOf(at(key))->set(at(key), value); }
    void hear(const QString& key, int value)
    {
        if (key.startsWith("miditab_"))
            emit mixer->sysex.signalReceiveMidiParams(key, value);
        else
            mixer->hear(key, value);
    }
    void saveInMixer()
    {
        for (auto* button :
             {dialog->findChild<QPushButton*>(), at<QPushButton>("globalSendButton")})
            button->click();
    }
    QVariantMap stored() const { return globals->document().value("Global").toMap(); }

private slots:
    void entry()
    {
        enter(); // what follows begins anew
        QSignalSpy cut(view.get(), SIGNAL(signalDisconnectGlobalSysex()));
        QSignalSpy joined(view.get(), SIGNAL(signalConnectGlobalSysex()));
        enter(false);
        QCOMPARE(mixer->sent(), "0a0c0000000000");
        QCOMPARE(valueOf(mapping), 77);
        QVERIFY(!at(fader)->isEnabled() && !at(mapping)->isEnabled());
        move(fader, 4000);
        move(mapping, 3);
        QCOMPARE(mixer->sent(), "");
        hear(fader, 5000); // of the live state
        QCOMPARE(valueOf(fader), 5000);
        QCOMPARE(cut.size(), 1);
        QCOMPARE(joined.size(), 0);
        mixer->endMarker();
        QCOMPARE(joined.size(), 1);
        QVERIFY(at(fader)->isEnabled() && at(mapping)->isEnabled());
        saveInMixer();
        QCOMPARE(mixer->sent(), "0b000000000000 0b000000000000");
    }

    void eachKind_data()
    {
        QTest::addColumn<int>("moved");
        QTest::addColumn<int>("told");
        QTest::addColumn<int>("shownThen");
        for (const char* channel : {"ch1", "ch8", "mains", "aux3", "phones"}) {
            const QString name = QString("faderframe_%1_").arg(channel);
            QTest::newRow(qPrintable(name + "fader")) << 9000 << 3001 << 3001;
            QTest::newRow(qPrintable(name + "mute")) << 1 << 0 << 0;
        }
        for (const char* band : {"ch1_eq_hi", "ch3_eq_mid", "ch8_eq_low"})
            QTest::newRow(qPrintable(QString("channelstrip_%1_gain").arg(band)))
                << 8200 << 11000 << 11000;
        QTest::newRow(qPrintable(mapping)) << 127 << 5 << 5;
        QTest::newRow("miditab_bank3_channel") << 16 << 4 << 5;
        QTest::newRow("miditab_diamond_toggle") << 1 << 0 << 0;
    }
    void eachKind()
    {
        const QString key = QTest::currentDataTag();
        QFETCH(int, moved);
        QFETCH(int, told);
        QFETCH(int, shownThen);
        enter();
        enter(); // again, and nothing comes twice
        move(key, moved);
        const QString once = mixer->sent();
        const bool isGlobal = key.startsWith("miditab_");
        if (isGlobal)
            mixer->sysex.slotSendGlobalParameters(key, moved);
        else
            mixer->sysex.slotSendPresetParameters(key, moved);
        QCOMPARE(once, mixer->sent());
        QCOMPARE(stored().value(key), isGlobal ? QVariant(moved) : QVariant());
        hear(key, told);
        QCOMPARE(valueOf(key), shownThen);
        QCOMPARE(mixer->sent(), "");
        QCOMPARE(stored().value(key), isGlobal ? QVariant(shownThen) : QVariant());
    }

    void boxes_data()
    {
        QTest::addColumn<QString>("typed");
        QTest::addColumn<int>("value");
        QTest::addColumn<QString>("text"); // for one step more
        QTest::newRow(qPrintable(fader)) << "-10" << 6740 << "-9.99 dB";
        QTest::newRow(qPrintable(gain)) << "3.5" << 10350 << "3.51 dB";
    }
    void boxes()
    {
        const QString key = QTest::currentDataTag();
        QFETCH(QString, typed);
        QFETCH(QString, text);
        enter();
        view->show();
        view->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(view.get()));
        auto* box = at<QDoubleSpinBox>(key + "_level");
        box->setFocus();
        box->selectAll();
        QTest::keyClicks(box, typed);
        at("lowPowerMidiTabButton")->setFocus();
        QTEST(valueOf(key), "value");
        move(key, valueOf(key) + 1);
        QCOMPARE(box->text(), text);
    }

    void parked_data()
    {
        QTest::addColumn<bool>("synced");
        QTest::newRow("left before the sync") << false;
        QTest::newRow("left after it") << true;
    }
    void parked()
    {
        QFETCH(bool, synced);
        enter(synced);
        mixer->unplug();
        view->slotDeInitializeLowPowerMode();
        mixer->plug(); // what was sent would be heard
        mixer->sent();
        QSignalSpy joined(view.get(), SIGNAL(signalConnectGlobalSysex()));
        const QVariantMap before = stored();
        const int shownBefore = valueOf(mapping);
        hear(fader, 5555);
        hear(gain, 8888);
        hear(mapping, 11);
        mixer->endMarker();
        emit globals->signalRecallGlobal({{mapping, 12}});
        QCOMPARE(QString("%1 %2").arg(valueOf(fader)).arg(valueOf(gain)), "3000 10000");
        QCOMPARE(valueOf(mapping), shownBefore);
        for (const QString& key : {fader, gain, mapping})
            move(key, valueOf(key) + 1);
        saveInMixer();
        QCOMPARE(mixer->sent(), "");
        QCOMPARE(stored(), before);
        QCOMPARE(joined.size(), 0);
        QVERIFY(!globals->globalSaveTimer->isActive());
    }
};

QTEST_MAIN(TestLowPowerView)
#include "tst_lowpowerview.moc"
