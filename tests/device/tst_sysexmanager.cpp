#include "fakeports.h"
#include "sysexmanager.h"
#include "testcase.h"

#include <QMetaMethod>
#include <QSignalSpy>

#include <functional>

namespace
{

const QString mixer = QStringLiteral("J-Sum Audio Control");
const QString surface = QStringLiteral("J-Sum Control Surface");
const QString host = QStringLiteral("loopMIDI Port 1");
const QStringList mixerPorts{mixer, surface};

using Send = std::function<void(SysexManager&)>;

} // namespace

class TestSysexManager : public TestCase
{
    Q_OBJECT

    std::vector<std::unique_ptr<QSignalSpy>> spies;
    std::unique_ptr<SysexManager> manager;
    FakePorts* ports = nullptr;

    // Every signal of the manager is listened to.
    void prepare() override
    {
        auto fake = std::make_unique<FakePorts>();
        ports = fake.get();
        manager = std::make_unique<SysexManager>(nullptr, std::move(fake));
        qRegisterMetaType<uchar*>("uchar*");
        const QMetaObject& meta = SysexManager::staticMetaObject;
        spies.clear();
        for (int i = meta.methodOffset(); i < meta.methodCount(); ++i) {
            if (meta.method(i).methodType() == QMetaMethod::Signal)
                spies.push_back(std::make_unique<QSignalSpy>(manager.get(), meta.method(i)));
        }
    }

    // What was emitted since the last call, each "name argument argument", in the order in which
    // the signals are declared.
    QStringList heard()
    {
        QStringList texts;
        for (const auto& spy : spies) {
            for (const QVariantList& arguments : *spy) {
                QStringList words{spy->signal().left(spy->signal().indexOf('('))};
                for (const QVariant& argument : arguments)
                    words.append(argument.toString());
                texts.append(words.join(' '));
            }
            spy->clear();
        }
        return texts;
    }

    void plug(const QStringList& names)
    {
        ports->plug(names);
        manager->midi()->slot_PollDevices();
    }
    void connectMixer()
    {
        plug(mixerPorts);
        QVERIFY(manager->isConnected());
        heard();
    }
    void receive(const QByteArray& bytes, const QString& port = mixer)
    {
        manager->slotReceiveMidiInput(port, MidiMessage(bytes.constData(), int(bytes.size())));
    }
    static QByteArray framed(const QByteArray& hex)
    {
        return QByteArray::fromHex("f000015f23" + hex + "f7");
    }

private slots:
    void connectsInWhateverOrderThePortsArrive_data()
    {
        QTest::addColumn<QList<QStringList>>("inputsByPoll");
        QTest::addColumn<QList<QStringList>>("outputsByPoll");
        using Polls = QList<QStringList>;
        const QStringList none;
        const QStringList other{"Other"};
        const QStringList both = other + mixerPorts;
        QTest::newRow("outputs first") << Polls{none, mixerPorts} << Polls{mixerPorts, mixerPorts};
        QTest::newRow("inputs first, beside another device")
            << Polls{other, both, both} << Polls{other, other, both};
    }
    void connectsInWhateverOrderThePortsArrive()
    {
        QFETCH(QList<QStringList>, inputsByPoll);
        QFETCH(QList<QStringList>, outputsByPoll);
        for (int i = 0; i < inputsByPoll.size(); ++i) {
            ports->inputList = FakePorts::named(inputsByPoll[i]);
            ports->outputList = FakePorts::named(outputsByPoll[i]);
            manager->midi()->slot_PollDevices();
        }
        QCOMPARE(heard().filter("signalConnected").last(), "signalConnected true");
        QCOMPARE(ports->openInputs.size(), 1);
        QCOMPARE(ports->openOutputs.size(), 1);

        plug(mixerPorts + QStringList{"A keyboard"});
        QCOMPARE(heard(), QStringList()); // somebody else's port
        plug({});
        QVERIFY(!manager->isConnected());
        QVERIFY(ports->openInputs.isEmpty());
        QVERIFY(heard().contains("signalConnected false"));
        ports->refuseToOpen = true;
        plug(mixerPorts);
        QVERIFY(!manager->isConnected());
        QVERIFY(!heard().contains("signalConnected true"));
        plug({});
        ports->refuseToOpen = false;
        plug(mixerPorts);
        QVERIFY(manager->isConnected());
        QCOMPARE(ports->openInputs.size(), 1);
    }

    // The last one in the system's order is used, though its outputs came before its inputs.
    void aSecondMixerTakesOver()
    {
        connectMixer();
        const QString second = "2- J-Sum Audio Control";
        ports->outputList = FakePorts::named(mixerPorts + QStringList{second});
        manager->midi()->slot_PollDevices();
        ports->inputList = ports->outputList;
        manager->midi()->slot_PollDevices();
        ports->sent.clear();
        manager->slotSendModeChange(1);
        QCOMPARE(ports->sent.value(0).identifier, "id-2-" + second);
    }

    void theTimerQueriesUntilTheReplyAndEndsWithThePort()
    {
        connectMixer();
        manager->slotSendFwQuery();
        manager->slotSendFwQuery(); // not the first of the process
        QCOMPARE(ports->sentBytes().last(), framed("00000000000000"));
        QCOMPARE(heard().last(), QString("signalStartFwQueryTimer 3000"));

        receive(framed("00000000010a03"));
        QCOMPARE(heard(),
                 (QStringList{"signalConnected true", "signalInitFullPowerMode",
                              "signalStopFwQueryTimer"}));
        plug({});
        QCOMPARE(heard().last(), QString("signalStopFwQueryTimer"));
        receive(framed("00000000010a03")); // left in the queue
        manager->slotSendFwQuery();
        QCOMPARE(heard(), QStringList());
    }

    void sends_data()
    {
        QTest::addColumn<QByteArrayList>("bodies");
        QTest::addColumn<Send>("send");
        const auto row = [](const QByteArrayList& bodies, const Send& send) {
            QTest::newRow(bodies.join(' ').constData()) << bodies << send;
        };
        row({"090c0000000000"}, [](auto& m) { m.slotSendSaveToSlot(0); });
        row({"0a000100000000"}, [](auto& m) { m.slotSendSinglePresetRequest(1, true); });
        row({"0500000000000e"}, [](auto& m) { m.slotSendModeChange(14); });
        row({"06000000000009"}, [](auto& m) { m.slotSendChannelSelect(9); });
        row({"0500000000000d", "05000000000000", "06000000000002"}, [](auto& m) {
            m.slotSendChannelSelect(13); // from phones back to a channel
            m.slotSendChannelSelect(2);
        });
        row({"0b000000000000"}, [](auto& m) { m.slotSaveGlobalParamsToFlash(); });
        row({"0c000000000000"}, [](auto& m) { m.slotSendDSPUpdatingStatus(false); });
        row({"0c010000010000"}, [](auto& m) { m.slotSendStereoUpdatingStatus(true); });
        row({"0e000000000000"}, [](auto& m) { m.slotSendRestartMessage(); });
        row({"7f000000000000"}, [](auto& m) { m.slotSendSysexCommEndMessage(); });
        row({"0202010b26456a"}, [](auto& m) {
            m.slotSendPresetParameters("channelstrip_ch1_aux2_routing_send_level", 8938);
        });
        row({"03060300270001"}, [](auto& m) { m.slotSendGlobalParameters("ch3_line_phono", 1); });
        row({"0305040c000301"},
            [](auto& m) { m.slotSendMidiParameters("miditab_button12_toggle", 1); });
        row({"0500000000000b", "0202010b02456a"}, [](auto& m) {
            m.setViewChangingEnabled(true); // first to aux 2
            m.slotSendPresetParameters("channelstrip_ch1_aux2_routing_pre_post", 8938);
        });
        row({}, [](auto& m) {
            m.slotSendSaveToSlot(13);
            m.slotSendSinglePresetRequest(-1, false);
        });
    }
    void sends()
    {
        QFETCH(Send, send);
        QFETCH(QByteArrayList, bodies);
        send(*manager);
        QVERIFY(ports->sent.isEmpty()); // not connected
        connectMixer();
        QVERIFY(ports->sent.isEmpty());
        send(*manager);
        std::transform(bodies.begin(), bodies.end(), bodies.begin(), framed);
        QCOMPARE(ports->sentBytes(), bodies);
    }

    void followsTheParameter_data()
    {
        QTest::addColumn<int>("before");
        QTest::addColumn<QList<int>>("sent"); // type and last byte, in turn
        const auto row = [](const char* name, int before, const QList<int>& sent) {
            QTest::newRow(name) << before << sent;
        };
        row("faderframe_ch1_fader", 5, {5, 0});
        row("faderframe_ch2_fader", 2, {});                  // a mode with faders stays
        row("channelstrip_ch1_aux2_routing_pan", 0, {5, 1}); // goes before the aux
        row("faderframe_phones_mute", 0, {5, 13});
        row("reverbtab_decay_time", 0, {5, 5});
        row("channelstrip_mains_eq_hi_gain", 1, {5, 2, 6, 9}); // leaving pan, selects mains
        row("tone_gen_freq", 0, {});
    }
    void followsTheParameter()
    {
        QFETCH(int, before);
        connectMixer();
        manager->slotSendModeChange(before);
        ports->sent.clear();
        manager->slotFindModeChangeFromParameterName(QTest::currentDataTag());
        QList<int> sent;
        for (const QByteArray& bytes : ports->sentBytes())
            sent << bytes[5] << bytes[11];
        QTEST(sent, "sent");
    }

    void demoModeDoesNotWaitForAnAnswer()
    {
        manager->slotSendSinglePresetRequest(0, false);
        QCOMPARE(heard(), QStringList());
        manager->slotSetDemoModeEnabled(true);
        manager->slotSendSinglePresetRequest(0, false);
        QCOMPARE(heard(), (QStringList{"signalHideDisableWidget", "signalHideProgressWidget"}));
        plug(mixerPorts);
        QVERIFY(heard().contains("signalExitDemoMode"));
        plug({});
        QVERIFY(!heard().contains("signalExitDemoMode"));
    }

    void receives_data()
    {
        QTest::addColumn<QString>("port");
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<QStringList>("emitted");
        const auto row = [](const QString& port, const char* hex, const QStringList& emitted) {
            QTest::addRow("%s: %s", qPrintable(port), hex)
                << port << QByteArray::fromHex(hex) << emitted;
        };
        const auto fromMixer = [](const char* hex, const QStringList& emitted) {
            QTest::newRow(hex) << mixer << framed(hex) << emitted;
        };
        fromMixer("0a000001", {}); // begins
        fromMixer("0a0c0101", {"signalLiveMemoryFinishedSyncing"});
        fromMixer("0a0b0101", {"signalReceiveSinglePresetComplete 12 true"});
        fromMixer("0a000100", {"signalReceiveSinglePresetComplete 1 false"});
        fromMixer("0607", {"signalChannelSelect 7"});
        fromMixer("0500", {"signalViewChange 1"});
        fromMixer("0505", {"signalViewChange 2"});
        fromMixer("0507", {});
        fromMixer("050c", {"signalViewChange 1", "signalChannelSelect 12"});
        fromMixer("050f", {});

        fromMixer("0201010004456a",
                  {"signalReceiveMainwindowPresetParams faderframe_ch1_fader 8938"});
        fromMixer("0202090019007f",
                  {"signalReceiveChannelStripParams channelstrip_mains_gate_thresh 127"});
        fromMixer("02030000200768", {"signalReceiveReverbParams reverbtab_decay_time 1000"});
        fromMixer("03040100310003", {"signalReceiveSurroundParams surroundtab_ch1_assign 3"});
        fromMixer("030601003e0001", {"signalReceiveMainwindowGlobalParams ch1_phantom 1"});
        fromMixer("03070800410001", {"signalReceiveUSBParams usbtab_ch8_output_prepost 1"});
        fromMixer("03050401010214", {"signalReceiveMidiParams miditab_button01_bank1_note 20"});

        row(mixer, "f07d7d7d7d0df7", {"signalReceiveGoToSyncPreset 0"}); // whoever made it

        const QString dark = "signalReceiveBankPressOffIndicators";
        row(surface, "b10740", {"signalReceiveCCsForHUI 1 6 64"});
        row(surface, "900e7f", {"signalReceiveNotesForHUI 0 13 127"});
        row(surface, "900e00", {"signalReceiveNotesForHUI 0 13 0", dark}); // as good as a note-off
        row(surface, "800f10", {"signalReceiveNotesForHUI 0 14 16", dark});
        row(host, "b00c41", {"signalReceiveCCsForHuiLeds 0 12 65"});
        row(host, "900c41", {});
    }
    void receives()
    {
        QFETCH(QString, port);
        QFETCH(QByteArray, bytes);
        connectMixer();
        receive(bytes, port);
        QTEST(heard(), "emitted");
    }

    void hostileSysexIsDropped()
    {
        connectMixer();
        receive(QByteArray::fromHex("f0f7"));
        receive(framed(""));
        receive(framed("0a0d0100")); // no such slot
        receive(framed("02" + QByteArray("02").repeated(1024 * 1024)));
        receive(framed("00000000010a03"), "Keyboard");
        for (int size = 1; size < 12; ++size)
            receive(framed("00000000010a03").left(size));
        QCOMPARE(heard(), QStringList());
    }
};

QTEST_MAIN(TestSysexManager)
#include "tst_sysexmanager.moc"
