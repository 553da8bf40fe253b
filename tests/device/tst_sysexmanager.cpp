#include "fakeports.h"
#include "sysexmanager.h"
#include "testcase.h"

#include <QSignalSpy>

namespace
{

const QString mixer = QStringLiteral("J-Sum Audio Control");
const QString surface = QStringLiteral("J-Sum Control Surface");
const QStringList mixerPorts{mixer, surface};

MidiMessage message(const char* hex)
{
    const QByteArray bytes = QByteArray::fromHex(hex);
    return MidiMessage(bytes.constData(), int(bytes.size()));
}

} // namespace

class TestSysexManager : public TestCase
{
    Q_OBJECT

    std::unique_ptr<SysexManager> manager;
    FakePorts* ports = nullptr;

    void prepare() override
    {
        auto fake = std::make_unique<FakePorts>();
        ports = fake.get();
        manager = std::make_unique<SysexManager>(nullptr, std::move(fake));
    }

    void poll() { manager->midi()->slot_PollDevices(); }
    void connectMixer()
    {
        ports->plug(mixerPorts);
        poll();
        QVERIFY(manager->isConnected());
        ports->sent.clear();
    }
    void receive(const char* hex, const QString& port = mixer)
    {
        manager->slotReceiveMidiInput(port, message(hex));
    }

private slots:
    void connectsInWhateverOrderThePortsArrive_data()
    {
        QTest::addColumn<QList<QStringList>>("inputsByPoll");
        QTest::addColumn<QList<QStringList>>("outputsByPoll");
        const QStringList none;
        const QStringList other{"Other"};
        QTest::newRow("together") << QList<QStringList>{mixerPorts}
                                  << QList<QStringList>{mixerPorts};
        QTest::newRow("inputs first")
            << QList<QStringList>{mixerPorts, mixerPorts} << QList<QStringList>{none, mixerPorts};
        QTest::newRow("outputs first")
            << QList<QStringList>{none, mixerPorts} << QList<QStringList>{mixerPorts, mixerPorts};
        QTest::newRow("inputs first, beside another device")
            << QList<QStringList>{other, other + mixerPorts, other + mixerPorts}
            << QList<QStringList>{other, other, other + mixerPorts};
    }
    void connectsInWhateverOrderThePortsArrive()
    {
        QFETCH(QList<QStringList>, inputsByPoll);
        QFETCH(QList<QStringList>, outputsByPoll);
        QSignalSpy connectedSpy(manager.get(), SIGNAL(signalConnected(bool)));
        QSignalSpy textSpy(manager.get(), SIGNAL(signalPortConnectionText(QString)));
        for (int i = 0; i < inputsByPoll.size(); ++i) {
            ports->inputList = FakePorts::named(inputsByPoll[i]);
            ports->outputList = FakePorts::named(outputsByPoll[i]);
            poll();
        }
        QVERIFY(manager->isConnected());
        QCOMPARE(ports->openInputs.size(), 1);
        QCOMPARE(ports->openOutputs.size(), 1);
        QVERIFY(connectedSpy.last().first().toBool());
        QCOMPARE(textSpy.last().first().toString(), QString("Audio Control"));

        const auto changes = connectedSpy.count();
        ports->inputList = ports->outputList =
            FakePorts::named(mixerPorts + QStringList{"A keyboard"});
        poll(); // somebody else's port
        QCOMPARE(connectedSpy.count(), changes);

        ports->unplug();
        poll();
        QVERIFY(!manager->isConnected());
        QCOMPARE(connectedSpy.last().first().toBool(), false);
        QCOMPARE(textSpy.last().first().toString(), QString("not connected"));
        QVERIFY(ports->openInputs.isEmpty());

        ports->plug(mixerPorts);
        poll();
        QVERIFY(manager->isConnected());
        QCOMPARE(ports->openInputs.size(), 1);
    }

    void aPortThatDoesNotOpenIsNoConnection()
    {
        ports->plug(mixerPorts);
        ports->refuseToOpen = true;
        QSignalSpy connectedSpy(manager.get(), SIGNAL(signalConnected(bool)));
        poll();
        QCOMPARE(connectedSpy.count(), 1);
        QCOMPARE(connectedSpy.first().first().toBool(), false);
    }

    void theTimerQueriesUntilTheReplyAndEndsWithThePort()
    {
        connectMixer();
        QSignalSpy start(manager.get(), SIGNAL(signalStartFwQueryTimer(int)));
        QSignalSpy stop(manager.get(), SIGNAL(signalStopFwQueryTimer()));
        QSignalSpy full(manager.get(), SIGNAL(signalInitFullPowerMode()));
        manager->slotSendFwQuery();
        manager->slotSendFwQuery(); // not the first of the process
        QCOMPARE(ports->sentBytes().last(), QByteArray::fromHex("f000015f2300000000000000f7"));
        QCOMPARE(start.last().first().toInt(), 3000);

        QTest::ignoreMessage(QtDebugMsg, "received fw version from control board \"1.a.3\"");
        receive("f000015f2300000000010a03f7");
        QCOMPARE(stop.count(), 1);
        QCOMPARE(full.count(), 1);

        ports->unplug();
        poll();
        QCOMPARE(stop.count(), 2);
        receive("f000015f2300000000010a03f7"); // left in the queue
        QCOMPARE(full.count(), 1);
        QTest::ignoreMessage(QtDebugMsg, "fw version query not sent - no connection");
        manager->slotSendFwQuery();
    }

    void sendsLiteralBytes_data()
    {
        QTest::addColumn<int>("which");
        QTest::addColumn<QList<QByteArray>>("bytes");
        const auto row = [](const char* name, int which, QList<QByteArray> hex) {
            for (auto& bytes : hex)
                bytes = QByteArray::fromHex("f000015f23" + bytes + "f7");
            QTest::newRow(name) << which << hex;
        };
        row("save live memory", 0, {"090c0000000000"});
        row("save slot L", 1, {"090b0000000000"});
        row("request slot A, saving", 2, {"0a000100000000"});
        row("mode", 3, {"0500000000000e"});
        row("channel 9", 4, {"06000000000009"});
        row("channel 12 is a mode", 5, {"0500000000000c"});
        row("globals to flash", 6, {"0b000000000000"});
        row("dsp updating off", 7, {"0c000000000000"});
        row("stereo updating on", 8, {"0c010000010000"});
        row("restart", 9, {"0e000000000000"});
        row("comm end", 10, {"7f000000000000"});
        row("from phones to a channel", 11, {"0500000000000d", "05000000000000", "06000000000002"});
        row("no such slot", 12, {});
    }
    void sendsLiteralBytes()
    {
        const auto send = [this](int which) {
            switch (which) {
            case 0:
                return manager->slotSendSaveToSlot(0);
            case 1:
                return manager->slotSendSaveToSlot(12);
            case 2:
                return manager->slotSendSinglePresetRequest(1, true);
            case 3:
                return manager->slotSendModeChange(14);
            case 4:
                return manager->slotSendChannelSelect(9);
            case 5:
                return manager->slotSendChannelSelect(12);
            case 6:
                return manager->slotSaveGlobalParamsToFlash();
            case 7:
                return manager->slotSendDSPUpdatingStatus(false);
            case 8:
                return manager->slotSendStereoUpdatingStatus(true);
            case 9:
                return manager->slotSendRestartMessage();
            case 10:
                return manager->slotSendSysexCommEndMessage();
            case 11:
                manager->slotSendChannelSelect(13);
                return manager->slotSendChannelSelect(2);
            case 12:
                manager->slotSendSaveToSlot(13);
                return manager->slotSendSinglePresetRequest(-1, false);
            }
        };
        QFETCH(int, which);
        send(which);
        QVERIFY(ports->sent.isEmpty()); // not connected
        connectMixer();
        send(which);
        QTEST(ports->sentBytes(), "bytes");
    }

    void demoModeDoesNotWaitForAnAnswer()
    {
        QSignalSpy sheet(manager.get(), SIGNAL(signalHideDisableWidget()));
        QSignalSpy progress(manager.get(), SIGNAL(signalHideProgressWidget()));
        QSignalSpy exit(manager.get(), SIGNAL(signalExitDemoMode()));
        manager->slotSendSinglePresetRequest(0, false);
        QCOMPARE(sheet.count(), 0);
        manager->slotSetDemoModeEnabled(true);
        manager->slotSendSinglePresetRequest(0, false);
        QCOMPARE(sheet.count(), 1);
        QCOMPARE(progress.count(), 1);
        ports->plug(mixerPorts);
        poll();
        QCOMPARE(exit.count(), 1);
        ports->unplug();
        poll();
        QCOMPARE(exit.count(), 1);
    }

    void slotTransfers_data()
    {
        QTest::addColumn<QByteArray>("hex");
        QTest::addColumn<int>("live");
        QTest::addColumn<QVariantList>("complete");
        QTest::addColumn<QByteArray>("log");
        const QVariantList none;
        QTest::newRow("begin") << QByteArray("f000015f230a000001f7") << 0 << none
                               << QByteArray("receiving slot number 1 from the board");
        QTest::newRow("live memory") << QByteArray("f000015f230a0c0101f7") << 1 << none
                                     << QByteArray("finished receiving live memory preset");
        QTest::newRow("slot, to be saved")
            << QByteArray("f000015f230a0b0101f7") << 0 << QVariantList{12, true}
            << QByteArray("finished receiving slot 12 it should now save");
        QTest::newRow("slot, not saved")
            << QByteArray("f000015f230a000100f7") << 0 << QVariantList{1, false}
            << QByteArray("finished receiving slot 1 the preset should not save but read as dirty "
                          "instead");
        QTest::newRow("no such slot") << QByteArray("f000015f230a0d0100f7") << 0 << none
                                      << QByteArray("sysex type code 10 size 8");
    }
    void slotTransfers()
    {
        QFETCH(QByteArray, hex);
        QFETCH(QByteArray, log);
        connectMixer();
        QSignalSpy live(manager.get(), SIGNAL(signalLiveMemoryFinishedSyncing()));
        QSignalSpy complete(manager.get(), SIGNAL(signalReceiveSinglePresetComplete(int, bool)));
        QTest::ignoreMessage(QtDebugMsg, log.constData());
        receive(hex.constData());
        QTEST(int(live.count()), "live");
        QTEST(complete.value(0), "complete");
    }

    void modes_data()
    {
        QTest::addColumn<int>("mode");
        QTest::addColumn<int>("view"); // -1: nothing is signalled
        QTest::addColumn<int>("channel");
        for (int mode = 0; mode <= 127; ++mode) {
            int view = -1;
            if (mode <= 4 || mode == 14 || (mode >= 10 && mode <= 13))
                view = 1;
            if (mode == 5)
                view = 2;
            if (mode == 6)
                view = 0;
            QTest::addRow("%d", mode) << mode << view << (mode >= 10 && mode <= 13 ? mode : -1);
        }
    }
    void modes()
    {
        QFETCH(int, mode);
        connectMixer();
        QSignalSpy view(manager.get(), SIGNAL(signalViewChange(int)));
        QSignalSpy channel(manager.get(), SIGNAL(signalChannelSelect(int)));
        QByteArray bytes = QByteArray::fromHex("f000015f230500f7");
        bytes[6] = char(mode);
        manager->slotReceiveMidiInput(mixer, MidiMessage(bytes.constData(), 8));
        QTEST(view.isEmpty() ? -1 : view.first().first().toInt(), "view");
        QTEST(channel.isEmpty() ? -1 : channel.first().first().toInt(), "channel");
    }

    void followsTheParameter_data()
    {
        QTest::addColumn<int>("before");
        QTest::addColumn<QString>("name");
        QTest::addColumn<QList<int>>("sent"); // type and last byte, in turn
        using Sent = QList<int>;
        QTest::newRow("fader from reverb") << 5 << "faderframe_ch1_fader" << Sent{5, 0};
        QTest::newRow("fader from eq stays") << 2 << "faderframe_ch1_fader" << Sent{};
        QTest::newRow("trim") << 0 << "channelstrip_ch1_trim" << Sent{5, 14};
        QTest::newRow("aux pan is pan") << 0 << "channelstrip_ch1_aux2_routing_pan" << Sent{5, 1};
        QTest::newRow("eq") << 0 << "channelstrip_mains_eq_hi_gain" << Sent{5, 2};
        QTest::newRow("compressor") << 0 << "channelstrip_ch1_compressor_gain" << Sent{5, 3};
        QTest::newRow("gate") << 0 << "channelstrip_ch1_gate_gain" << Sent{5, 4};
        QTest::newRow("aux send") << 0 << "channelstrip_ch8_aux3_routing_send_level" << Sent{5, 12};
        QTest::newRow("aux fader") << 0 << "faderframe_aux1_fader" << Sent{5, 10};
        QTest::newRow("phones") << 0 << "faderframe_phones_mute" << Sent{5, 13};
        QTest::newRow("reverb") << 0 << "reverbtab_decay_time" << Sent{5, 5};
        QTest::newRow("surround") << 0 << "surroundtab_enable" << Sent{5, 6};
        QTest::newRow("nothing") << 0 << "tone_gen_freq" << Sent{};
        QTest::newRow("mains from pan") << 1 << "channelstrip_mains_eq_hi_gain" << Sent{5, 2, 6, 9};
        QTest::newRow("no aux number") << 0 << "x_aux" << Sent{};
    }
    void followsTheParameter()
    {
        QFETCH(int, before);
        QFETCH(QString, name);
        connectMixer();
        manager->slotSendModeChange(before);
        ports->sent.clear();
        manager->slotFindModeChangeFromParameterName(name);
        QList<int> sent;
        for (const QByteArray& bytes : ports->sentBytes())
            sent << bytes[5] << bytes[11];
        QTEST(sent, "sent");
    }

    void parametersAreSentByName()
    {
        const auto sendAll = [this] {
            ports->sent.clear();
            manager->slotSendPresetParameters("channelstrip_ch1_aux2_routing_send_level", 8938);
            manager->slotSendGlobalParameters("ch3_line_phono", 1);
            manager->slotSendGlobalParameters("miditab_bank2_channel", 5);
            manager->slotSendMidiParameters("miditab_button12_toggle", 1);
            QList<QByteArray> bytes;
            for (const QByteArray& message : ports->sentBytes())
                bytes.append(message.mid(5, 7).toHex());
            return bytes;
        };
        QCOMPARE(sendAll(), QList<QByteArray>()); // not connected
        connectMixer();
        QCOMPARE(sendAll(),
                 QList<QByteArray>(
                     {"0202010b26456a", "03060300270001", "03050000020004", "0305040c000301"}));
        manager->setViewChangingEnabled(true);
        manager->slotSendChannelSelect(13);                        // phones are a mode
        QCOMPARE(sendAll().first(), QByteArray("0500000000000b")); // first to aux 2
    }

    void receivedParametersReachTheirPage_data()
    {
        QTest::addColumn<QByteArray>("hex");
        QTest::addColumn<QString>("page");
        QTest::addColumn<QString>("name");
        QTest::addColumn<int>("value");
        QTest::newRow("fader") << QByteArray("0201010004456a") << "faders"
                               << "faderframe_ch1_fader" << 8938;
        QTest::newRow("strip") << QByteArray("0202090019007f") << "strips"
                               << "channelstrip_mains_gate_thresh" << 127;
        QTest::newRow("reverb") << QByteArray("02030000200768") << "reverb"
                                << "reverbtab_decay_time" << 1000;
        QTest::newRow("surround") << QByteArray("03040100310003") << "surround"
                                  << "surroundtab_ch1_assign" << 3;
        QTest::newRow("setting") << QByteArray("030601003e0001") << "settings"
                                 << "ch1_phantom" << 1;
        QTest::newRow("usb") << QByteArray("03070800410001") << "usb"
                             << "usbtab_ch8_output_prepost" << 1;
        QTest::newRow("mapping") << QByteArray("03050401010214") << "midi"
                                 << "miditab_button01_bank1_note" << 20;
        QTest::newRow("no such channel") << QByteArray("02010e00040000") << ""
                                         << "" << 0;
    }
    void receivedParametersReachTheirPage()
    {
        QFETCH(QByteArray, hex);
        connectMixer();
        const QMap<QString, const char*> pages{
            {"faders", SIGNAL(signalReceiveMainwindowPresetParams(QString, int))},
            {"strips", SIGNAL(signalReceiveChannelStripParams(QString, int))},
            {"reverb", SIGNAL(signalReceiveReverbParams(QString, int))},
            {"surround", SIGNAL(signalReceiveSurroundParams(QString, int))},
            {"settings", SIGNAL(signalReceiveMainwindowGlobalParams(QString, int))},
            {"usb", SIGNAL(signalReceiveUSBParams(QString, int))},
            {"midi", SIGNAL(signalReceiveMidiParams(QString, int))}};
        std::map<QString, std::unique_ptr<QSignalSpy>> spies;
        for (auto page = pages.begin(); page != pages.end(); ++page)
            spies[page.key()] = std::make_unique<QSignalSpy>(manager.get(), page.value());
        receive("f000015f23" + hex + "f7");
        QStringList heard;
        QVariantList arguments;
        for (const auto& [page, spy] : spies) {
            for (const auto& emission : *spy) {
                heard << page;
                arguments = emission;
            }
        }
        QTEST(heard.join(','), "page");
        QFETCH(QString, name);
        QFETCH(int, value);
        if (!name.isEmpty())
            QCOMPARE(arguments, QVariantList({name, value}));
    }

    void controlSurfaceAndHost()
    {
        connectMixer();
        QSignalSpy ccs(manager.get(), SIGNAL(signalReceiveCCsForHUI(int, int, int)));
        QSignalSpy notes(manager.get(), SIGNAL(signalReceiveNotesForHUI(int, int, int)));
        QSignalSpy bank(manager.get(), SIGNAL(signalReceiveBankPressOffIndicators()));
        QSignalSpy leds(manager.get(), SIGNAL(signalReceiveCCsForHuiLeds(int, int, int)));

        receive("b10740", surface);
        QCOMPARE(ccs.value(0), QVariantList({1, 6, 64}));
        receive("900e7f", surface);
        QCOMPARE(bank.count(), 0);
        receive("900e00", surface); // as good as a note-off
        receive("800f10", surface);
        receive("910e00", surface); // another channel
        receive("801000", surface); // another note
        QCOMPARE(bank.count(), 2);
        QCOMPARE(notes.count(), 5);
        QCOMPARE(notes[0], QVariantList({0, 13, 127}));
        QCOMPARE(notes[2], QVariantList({0, 14, 16}));
        receive("c005", surface);
        receive("b00c41", "loopMIDI Port 1");
        receive("900c41", "loopMIDI Port 1");
        QCOMPARE(leds.count(), 1);
        QCOMPARE(leds.value(0), QVariantList({0, 12, 65}));
        QCOMPARE(ccs.count(), 1);

        QTest::ignoreMessage(QtDebugMsg, "unexpected message received \"J-Sum Audio Control\"");
        receive("b00740");
        QTest::ignoreMessage(QtDebugMsg, "unexpected message received \"Keyboard\"");
        receive("f000015f2300000000010a03f7", "Keyboard");
    }

    void hostileSysexIsDropped()
    {
        connectMixer();
        QSignalSpy full(manager.get(), SIGNAL(signalInitFullPowerMode()));
        QTest::ignoreMessage(QtDebugMsg, "sysex type code -1 size 0");
        receive("f0f7");
        QTest::ignoreMessage(QtDebugMsg, "sysex type code -1 size 4");
        receive("f000015f23f7");
        QTest::ignoreMessage(QtDebugMsg, "sysex type code 5 size 11");
        receive("f000015f2305000000000001f7"); // the editor's own form
        QByteArray huge(1024 * 1024, 0x02);
        huge[0] = char(0xF0);
        huge.back() = char(0xF7);
        QTest::ignoreMessage(QtDebugMsg, "sysex type code 2 size 1048574");
        manager->slotReceiveMidiInput(mixer, MidiMessage(huge.constData(), int(huge.size())));
        for (int size = 1; size < 20; ++size) {
            QByteArray cut = QByteArray::fromHex("f000015f2300000000010a03").left(size);
            manager->slotReceiveMidiInput(mixer, MidiMessage(cut.constData(), int(cut.size())));
        }
        for (int type = 0; type < 128; ++type) {
            for (int size = 7; size < 16; ++size) {
                QByteArray bytes(size, 0x7F);
                bytes[0] = char(0xF0);
                bytes[5] = char(type);
                bytes.back() = char(0xF7);
                manager->slotReceiveMidiInput(mixer, MidiMessage(bytes.constData(), size));
            }
        }
        QCOMPARE(full.count(), 1); // type 0 at its one length
        QVERIFY(manager->isConnected());
    }

    void whoeverMadeIt_isNotLookedAt()
    {
        connectMixer();
        QSignalSpy sync(manager.get(), SIGNAL(signalReceiveGoToSyncPreset(int)));
        receive("f07d7d7d7d0df7");
        QCOMPARE(sync.value(0), QVariantList({0}));
    }
};

QTEST_MAIN(TestSysexManager)
#include "tst_sysexmanager.moc"
