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
    void refusedPortsAndOtherDevices()
    {
        plug({"Other"});
        ports->refuseToOpen = true;
        plug(mixerPorts);
        QVERIFY(!manager->isConnected());
        QVERIFY(!heard().contains("signalConnected true"));
        plug({});
        ports->refuseToOpen = false;
        ports->asked = 0;
        plug(mixerPorts);
        QCOMPARE(ports->asked, 2); // each asking walks all that the system has
        QVERIFY(manager->isConnected());
        QCOMPARE(ports->openInputs.size(), 1);
        QCOMPARE(ports->openOutputs.size(), 1);
        heard();
        plug(mixerPorts + QStringList{"A keyboard"});
        QCOMPARE(heard(), QStringList()); // somebody else's port
        plug({});
        QVERIFY(!manager->isConnected());
        QVERIFY(ports->openInputs.isEmpty());
    }

    void anInputThatCannotBeOpenedIsTriedAtEachPoll()
    {
        ports->refuseInputs = true;
        for (int poll = 0; poll < 3; ++poll) {
            QTest::ignoreMessage(QtDebugMsg,
                                 qPrintable("error adding input device \"" + mixer + '"'));
            plug(mixerPorts);
        }
        QVERIFY(manager->isConnected()); // which the output decides
        ports->refuseInputs = false;
        plug(mixerPorts);
        plug(mixerPorts);
        QCOMPARE(ports->openInputs, QStringList("id-0-" + mixer));
        QCOMPARE(ports->openOutputs, QStringList("id-0-" + mixer));
        QCOMPARE(heard().filter("signalConnected "), QStringList("signalConnected true"));
    }

    void whoeverIsThereIsMetAnew_data()
    {
        QTest::addColumn<bool>("inputsFirst");
        QTest::addColumn<bool>("outputsFirst");
        QTest::newRow("at one poll") << false << false;
        QTest::newRow("inputs first") << true << false;
        QTest::newRow("outputs first") << false << true;
    }
    void whoeverIsThereIsMetAnew()
    {
        QFETCH(bool, inputsFirst);
        QFETCH(bool, outputsFirst);
        const MidiPortInfo plain{mixer, "plain"};
        const MidiPortInfo again{mixer, "again"};
        const MidiPortInfo twin{mixer, "twin"};
        const MidiPortInfo first{"1- " + mixer, "first"};
        const MidiPortInfo second{"2- " + mixer, "second"};
        const QStringList connects{"signalConnected true"};
        const QStringList leaves{"signalConnected false"};
        const struct {
            QList<MidiPortInfo> present;
            MidiPortInfo open;
            QStringList heard;
        } steps[]{
            {{plain}, plain, connects},
            {{again}, again, leaves + connects}, // a replug that the names don't tell
            {{twin, again}, again, {}},          // a namesake comes
            {{twin}, twin, leaves + connects},   // and is the one that stays
            {{twin, second}, second, leaves + connects},
            {{twin}, twin, leaves + connects},
            {{second}, second, leaves + connects},
            {{}, {}, leaves},
            {{first}, first, connects},
            {{first, second, plain}, first, {}}, // no other name holds its own
            {{second, plain}, plain, leaves + connects},
        };
        QSignalSpy found(manager->midi(), SIGNAL(signalUpdateOutputDeviceName(QString, QString)));
        const auto withSurface = [](QList<MidiPortInfo> list) {
            for (const MidiPortInfo& port : QList(list))
                list.append({QString(port.name).replace(mixer, surface), port.identifier + "-s"});
            return list;
        };
        for (const auto& step : steps) {
            const auto now = withSurface(step.present);
            if (!outputsFirst)
                ports->inputList = now;
            if (!inputsFirst)
                ports->outputList = now;
            manager->midi()->slot_PollDevices();
            ports->inputList = ports->outputList = now;
            manager->midi()->slot_PollDevices();
            QCOMPARE(heard().filter("signalConnected "), step.heard);
            if (step.present.isEmpty())
                continue;
            QCOMPARE(ports->openInputs, QStringList(step.open.identifier));
            QCOMPARE(ports->openOutputs, QStringList(step.open.identifier));
            QCOMPARE(found.last().last().toString(),
                     QString(step.open.name).replace(mixer, surface));
            manager->slotSaveGlobalParamsToFlash();
            QCOMPARE(ports->sent.last().identifier, step.open.identifier);
        }
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

    // Frames, what goes before a parameter, and what is refused.
    void sends()
    {
        const std::pair<QByteArrayList, Send> rows[]{
            {{"090c0000000000"}, [](auto& m) { m.slotSendSaveToSlot(0); }},
            {{"0500000000000d", "05000000000000", "06000000000002"},
             [](auto& m) {
                 m.slotSendChannelSelect(13); // from phones back to a channel
                 m.slotSendChannelSelect(2);
             }},
            {{"0600000000000e"}, [](auto& m) { m.slotSendChannelSelect(14); }},
            {{"0b000000000000"}, [](auto& m) { m.slotSaveGlobalParamsToFlash(); }},
            {{"0c010000010000"}, [](auto& m) { m.slotSendStereoUpdatingStatus(true); }},
            {{"0305040c000301"},
             [](auto& m) { m.slotSendMidiParameters("miditab_button12_toggle", 1); }},
            {{"0500000000000b", "0202010b02456a"},
             [](auto& m) {
                 m.setViewChangingEnabled(true); // first to aux 2
                 m.slotSendPresetParameters("channelstrip_ch1_aux2_routing_pre_post", 8938);
             }},
            {{},
             [](auto& m) {
                 m.slotSendSaveToSlot(13);
                 m.slotSendSinglePresetRequest(-1, false);
             }},
        };
        for (const auto& [bodies, send] : rows) {
            prepare();
            send(*manager);
            connectMixer();
            QVERIFY(ports->sent.isEmpty()); // what was sent unconnected is not made up for
            send(*manager);
            QByteArrayList frames;
            for (const QByteArray& body : bodies)
                frames << framed(body);
            QCOMPARE(ports->sentBytes(), frames);
        }
    }

    void followsTheParameter()
    {
        // The mode before, and what is sent: type and last byte, in turn.
        const std::tuple<const char*, int, QList<int>> rows[]{
            {"faderframe_ch1_fader", 5, {5, 0}},
            {"faderframe_ch2_fader", 2, {}},                  // a mode with faders stays
            {"channelstrip_ch1_aux2_routing_pan", 0, {5, 1}}, // goes before the aux
            {"faderframe_phones_mute", 0, {5, 13}},
            {"reverbtab_decay_time", 0, {5, 5}},
            {"channelstrip_mains_eq_hi_gain", 1, {5, 2, 6, 9}}, // leaving pan, selects mains
            {"tone_gen_freq", 0, {}},
        };
        connectMixer();
        for (const auto& [name, before, wanted] : rows) {
            manager->slotSendModeChange(before);
            ports->sent.clear();
            manager->slotFindModeChangeFromParameterName(name);
            QList<int> sent;
            for (const QByteArray& bytes : ports->sentBytes())
                sent << bytes[5] << bytes[11];
            QCOMPARE(sent, wanted);
        }
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

    void receives()
    {
        const QString dark = "signalReceiveBankPressOffIndicators";
        const std::tuple<QString, QByteArray, QStringList> rows[]{
            {mixer, framed("0a000001"), {}}, // begins
            {mixer, framed("0a0b0101"), {"signalReceiveSinglePresetComplete 12 true"}},
            {mixer, framed("0a000100"), {"signalReceiveSinglePresetComplete 1 false"}},
            {mixer, framed("0607"), {"signalChannelSelect 7"}},
            {mixer, framed("0500"), {"signalViewChange 1"}},
            {mixer, framed("0505"), {"signalViewChange 2"}},
            {mixer, framed("0507"), {}},
            {mixer, framed("050c"), {"signalViewChange 1", "signalChannelSelect 12"}},
            {mixer, framed("050f"), {}},
            {mixer,
             framed("03040100310003"),
             {"signalReceiveSurroundParams surroundtab_ch1_assign 3"}},
            {mixer,
             QByteArray::fromHex("f07d7d7d7d0df7"),
             {"signalReceiveGoToSyncPreset 0"}}, // whoever made it
            {surface, QByteArray::fromHex("b10740"), {"signalReceiveCCsForHUI 1 6 64"}},
            {surface, QByteArray::fromHex("900e7f"), {"signalReceiveNotesForHUI 0 13 127"}},
            // As good as a note-off.
            {surface, QByteArray::fromHex("900e00"), {"signalReceiveNotesForHUI 0 13 0", dark}},
            {surface, QByteArray::fromHex("800f10"), {"signalReceiveNotesForHUI 0 14 16", dark}},
            {host, QByteArray::fromHex("b00c41"), {"signalReceiveCCsForHuiLeds 0 12 65"}},
            {host, QByteArray::fromHex("900c41"), {}},
        };
        connectMixer();
        for (const auto& [port, bytes, emitted] : rows) {
            receive(bytes, port);
            QCOMPARE(heard(), emitted);
        }
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
