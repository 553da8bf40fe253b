#include "fakeports.h"
#include "midimanager.h"
#include "testcase.h"

#include <QSignalSpy>

namespace
{

const QString mixer = QStringLiteral("J-Sum Audio Control");
const QString surface = QStringLiteral("J-Sum Control Surface");

} // namespace

class TestMidiManager : public TestCase
{
    Q_OBJECT

    std::unique_ptr<MidiManager> manager;
    FakePorts* ports = nullptr;

    void prepare() override
    {
        auto fake = std::make_unique<FakePorts>();
        ports = fake.get();
        manager = std::make_unique<MidiManager>(nullptr, std::move(fake));
    }

    void sendSysex(const char* hex)
    {
        QByteArray bytes = QByteArray::fromHex(hex);
        manager->outputSysEx(QStringLiteral("not looked at"),
                             reinterpret_cast<uchar*>(bytes.data()), int(bytes.size()));
    }

private slots:
    void pollReportsEveryChangeOfALine()
    {
        QSignalSpy inputs(manager.get(), SIGNAL(signal_MidiInputsChanged()));
        QSignalSpy outputs(manager.get(), SIGNAL(signal_MidiOutputsChanged()));
        const auto poll = [&](int expectedInputs, int expectedOutputs) {
            inputs.clear();
            outputs.clear();
            manager->slot_PollDevices();
            return inputs.count() == expectedInputs && outputs.count() == expectedOutputs;
        };
        QVERIFY(poll(0, 0)); // nothing there, nothing said
        ports->plug({"A", "B"});
        QVERIFY(poll(1, 1));
        QVERIFY(poll(0, 0));
        ports->inputList = FakePorts::named({"B", "A"}); // only the order
        QVERIFY(poll(1, 0));
        ports->outputList = FakePorts::named({"A"});
        QVERIFY(poll(0, 1));
    }

    void vanishedPortsAreForgottenAndOthersKeepTheirPlace()
    {
        ports->plug({"A", "B", "C", "loopMIDI Port", "loopMIDI Port 1"});
        for (const char* name : {"A", "B", "C", "loopMIDI Port"})
            QVERIFY(manager->openMidiOutput(name));
        QVERIFY(manager->openMidiInput("loopMIDI Port"));
        QVERIFY(manager->openMidiInput("loopMIDI Port 1"));

        ports->plug({"C"});
        manager->slot_PollDevices();
        // The virtual output is spared by either name, the virtual input only by its own.
        QCOMPARE(ports->openOutputs, QStringList({"id-2-C", "id-3-loopMIDI Port"}));
        QCOMPARE(ports->openInputs, QStringList({"id-4-loopMIDI Port 1"}));

        manager->outputCC("C", 1, 7, 100);
        manager->outputCC("loopMIDI Port", 1, 7, 100);
        QCOMPARE(ports->sent.size(), 2);
        QCOMPARE(ports->sent[0].identifier, QString("id-2-C"));
        QCOMPARE(ports->sent[1].identifier, QString("id-3-loopMIDI Port"));

        QVERIFY(manager->closeMidiOutput("C"));
        QVERIFY(!manager->closeMidiOutput("C"));
        QVERIFY(!manager->closeMidiInput("never opened"));
        manager->outputCC("loopMIDI Port", 1, 7, 100);
        QCOMPARE(ports->sent.last().identifier, QString("id-3-loopMIDI Port"));
    }

    void aFailedOpenLeavesTheRestWorking()
    {
        ports->plug({"A"});
        QTest::ignoreMessage(QtDebugMsg, "error adding output device \"absent\"");
        QVERIFY(!manager->openMidiOutput("absent"));
        ports->refuseToOpen = true;
        QTest::ignoreMessage(QtDebugMsg, "error adding input device \"A\"");
        QVERIFY(!manager->openMidiInput("A"));
        ports->refuseToOpen = false;
        QVERIFY(manager->openMidiOutput("A"));
        manager->slot_PollDevices();
        manager->outputNoteOn("A", 1, 60, 100);
        QCOMPARE(ports->sent.size(), 1);
        QVERIFY(manager->closeMidiOutput("A"));
    }

    void theFirstOfTwinsIsOpened()
    {
        ports->plug({"X", mixer, mixer});
        QVERIFY(manager->openMidiOutput(mixer));
        QCOMPARE(ports->openOutputs, QStringList({"id-1-" + mixer}));
    }

    void rename_data()
    {
        QTest::addColumn<QStringList>("names");
        QTest::addColumn<QString>("found");
        QTest::addColumn<QString>("foundControl");
        const QString wanted = "Audio Control", wantedControl = "Control Surface";
        QTest::newRow("plain") << QStringList{mixer, surface} << mixer << surface;
        QTest::newRow("folded after the fifth letter")
            << QStringList{"J-Sum Audio control 2", "Control surface"} << "J-Sum Audio control 2"
            << "Control surface";
        QTest::newRow("all capitals match nothing")
            << QStringList{"J-SUM AUDIO CONTROL"} << wanted << wantedControl;
        QTest::newRow("the last wins")
            << QStringList{mixer, "Other", "2- " + mixer} << "2- " + mixer << wantedControl;
        QTest::newRow("none") << QStringList{"Audio", "Surface"} << wanted << wantedControl;
    }
    void rename()
    {
        QFETCH(QStringList, names);
        QFETCH(QString, found);
        QFETCH(QString, foundControl);
        ports->plug(names);
        QSignalSpy inputs(manager.get(), SIGNAL(signalUpdateInputDeviceName(QString, QString)));
        QSignalSpy outputs(manager.get(), SIGNAL(signalUpdateOutputDeviceName(QString, QString)));
        manager->slotRenameDevices("Audio Control", "Audio Control", "Control Surface",
                                   "Control Surface");
        QCOMPARE(inputs.value(0), QVariantList({found, foundControl}));
        QCOMPARE(outputs.value(0), QVariantList({found, foundControl}));
    }

    void sysexWaitsInOrderUntilItCanBeSent()
    {
        sendSysex("f001f7"); // no port yet: kept
        ports->plug({mixer});
        manager->slotRenameDevices("Audio Control", "Audio Control", "x", "x");
        manager->setDemoMode(true);
        sendSysex("f002f7");
        QVERIFY(manager->openMidiOutput(mixer));
        manager->setDemoMode(false);
        QVERIFY(ports->sent.isEmpty());
        sendSysex("f003ff7ff7"); // bytes above 7f go out as they are
        QCOMPARE(ports->sentBytes(),
                 QList<QByteArray>({QByteArray::fromHex("f001f7"), QByteArray::fromHex("f002f7"),
                                    QByteArray::fromHex("f003ff7ff7")}));

        ports->unplug();
        manager->slot_PollDevices();
        QTest::ignoreMessage(QtDebugMsg,
                             "____ERROR: Cannot send sysex to \"J-Sum Audio Control\" -- not found "
                             "in output array lookup.");
        sendSysex("f004f7");
        QCOMPARE(ports->sent.size(), 3);
        manager->outputSysEx(mixer, nullptr, 0);
    }

    void channelMessages_data()
    {
        QTest::addColumn<bool>("note");
        QTest::addColumn<int>("channel");
        QTest::addColumn<int>("number");
        QTest::addColumn<int>("value");
        QTest::addColumn<QByteArray>("bytes");
        QTest::newRow("cc") << false << 1 << 7 << 100 << QByteArray::fromHex("b00764");
        QTest::newRow("cc masked") << false << 16 << 0x87 << 0x1FF << QByteArray::fromHex("bf077f");
        QTest::newRow("channel 0") << false << 0 << 1 << 2 << QByteArray::fromHex("b00102");
        QTest::newRow("channel 17") << false << 17 << 1 << 2 << QByteArray::fromHex("bf0102");
        QTest::newRow("note") << true << 0 << 14 << 127 << QByteArray::fromHex("900e7f");
        QTest::newRow("loud note") << true << 2 << 0x8E << 300 << QByteArray::fromHex("910e7f");
    }
    void channelMessages()
    {
        QFETCH(bool, note);
        QFETCH(int, channel);
        QFETCH(int, number);
        QFETCH(int, value);
        ports->plug({"A"});
        manager->openMidiOutput("A");
        if (note)
            manager->outputNoteOn("A", channel, number, value);
        else
            manager->outputCC("A", channel, number, value);
        QTEST(ports->sentBytes().value(0), "bytes");
    }

    void unknownTargetIsLoggedOnly()
    {
        QTest::ignoreMessage(QtDebugMsg,
                             "____ERROR: Cannot send CC to \"B\" -- not found in output "
                             "array lookup.");
        manager->outputCC("B", 1, 1, 1);
        QTest::ignoreMessage(QtDebugMsg,
                             "____ERROR: Cannot send Note On to \"B\" -- not found in "
                             "output array lookup.");
        manager->outputNoteOn("B", 1, 1, 1);
    }

    void huiPortsOpenTogetherAndCloseTogether()
    {
        ports->plug({mixer, surface, "loopMIDI Port", "loopMIDI Port 1"});
        manager->slotRenameDevices("Audio Control", "Audio Control", "Control Surface",
                                   "Control Surface");
        QSignalSpy on(manager.get(), SIGNAL(signalConnectHuiStuff()));
        manager->slotEnableHuiPort(true);
        QCOMPARE(on.count(), 1);
        QCOMPARE(ports->openInputs, QStringList({"id-3-loopMIDI Port 1", "id-1-" + surface}));
        QCOMPARE(ports->openOutputs, QStringList({"id-2-loopMIDI Port", "id-1-" + surface}));
        // Both bank indicators are lit.
        QCOMPARE(ports->sentBytes(),
                 QList<QByteArray>({QByteArray::fromHex("900e7f"), QByteArray::fromHex("900f7f")}));
        manager->slotEnableHuiPort(false);
        QVERIFY(ports->openInputs.isEmpty());
        QVERIFY(ports->openOutputs.isEmpty());
    }

    void wrongAudioNameIsOnlyLogged()
    {
        manager->slotFindAudioDeviceNameOnConnect(); // the fake has the right one: silent
        ports->audioNames = QStringList{"J-Sum Line"};
        QTest::ignoreMessage(QtDebugMsg, QRegularExpression("INCORRECT AUDIO DEVICE NAME"));
        manager->slotFindAudioDeviceNameOnConnect();
    }
};

QTEST_MAIN(TestMidiManager)
#include "tst_midimanager.moc"
