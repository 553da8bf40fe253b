#include "fakeports.h"
#include "inputpause.h"
#include "juceports.h"
#include "midimanager.h"
#include "testcase.h"

#include <QSignalSpy>

#include <algorithm>

#if defined(__linux__)
#include <alsa/asoundlib.h>
#endif

namespace
{

const QString mixer = QStringLiteral("J-Sum Audio Control");
const QString surface = QStringLiteral("J-Sum Control Surface");

QByteArrayList hexes(QByteArrayList texts)
{
    std::transform(texts.begin(), texts.end(), texts.begin(), QByteArray::fromHex);
    return texts;
}

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

    void findNames()
    {
        manager->slotRenameDevices("Audio Control", "Audio Control", "Control Surface",
                                   "Control Surface");
    }

private slots:
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
        QCOMPARE(ports->openOutputs, QStringList({"id-0-C", "id-0-loopMIDI Port"}));
        QCOMPARE(ports->openInputs, QStringList({"id-0-loopMIDI Port 1"}));

        manager->outputCC("C", 1, 7, 100);
        manager->outputCC("loopMIDI Port", 1, 7, 100);
        QCOMPARE(ports->sent.size(), 2);
        QCOMPARE(ports->sent.first().identifier, QString("id-0-C"));
        QCOMPARE(ports->sent.last().identifier, QString("id-0-loopMIDI Port"));
    }

    // Only the identifiers tell that the port that is open has gone.
    void aPortThatAnotherOfItsNameReplacedIsStale()
    {
        QSignalSpy inputs(manager.get(), SIGNAL(signal_MidiInputsChanged()));
        QSignalSpy outputs(manager.get(), SIGNAL(signal_MidiOutputsChanged()));
        ports->plug({"A", "B"});
        manager->slot_PollDevices();
        QVERIFY(manager->openMidiInput("A") && manager->openMidiOutput("A"));
        QVERIFY(manager->openMidiOutput("B"));
        ports->inputList[0].identifier = ports->outputList[0].identifier = "new";
        manager->slot_PollDevices();
        manager->slot_PollDevices();
        QCOMPARE(inputs.count() + outputs.count(), 2 + 2);
        QCOMPARE(ports->openInputs, QStringList());
        QCOMPARE(ports->openOutputs, QStringList("id-0-B"));
        QVERIFY(!manager->isInputOpen("A") && !manager->isOutputOpen("A"));
    }

    void twinsAndUnknownNames()
    {
        ports->plug({"X", "A", "A"});
        QVERIFY(!manager->openMidiOutput("absent"));
        QVERIFY(manager->openMidiOutput("A"));
        QCOMPARE(ports->openOutputs, QStringList("id-0-A")); // the first of twins
        manager->outputNoteOn("A", 1, 60, 100);
        QCOMPARE(ports->sent.size(), 1);
        manager->outputCC("B", 1, 1, 1);
        QCOMPARE(ports->sent.size(), 1);
    }

    void rename()
    {
        QSignalSpy inputs(manager.get(), SIGNAL(signalUpdateInputDeviceName(QString, QString)));
        QSignalSpy outputs(manager.get(), SIGNAL(signalUpdateOutputDeviceName(QString, QString)));
        const auto found = [&](const QStringList& names) {
            ports->plug(names);
            findNames();
            const auto pair = inputs.takeLast();
            return pair == outputs.takeLast() ? pair : QVariantList();
        };
        QCOMPARE(found({mixer, surface}), QVariantList({mixer, surface}));
        // Folded after the fifth letter; all capitals match nothing.
        QCOMPARE(found({"J-Sum Audio control 2", "Control surface"}),
                 QVariantList({"J-Sum Audio control 2", "Control surface"}));
        QCOMPARE(found({"J-SUM AUDIO CONTROL"}),
                 QVariantList({"Audio Control", "Control Surface"}));
        // The last wins.
        QCOMPARE(found({mixer, "Other", "2- " + mixer}),
                 QVariantList({"2- " + mixer, "Control Surface"}));
    }

    void sysexWaitsInOrderUntilItCanBeSent()
    {
        sendSysex("f001f7"); // no port yet: kept
        ports->plug({mixer});
        findNames();
        manager->setDemoMode(true);
        sendSysex("f002f7");
        QVERIFY(manager->openMidiOutput(mixer));
        manager->setDemoMode(false);
        QVERIFY(ports->sent.isEmpty());
        sendSysex("f003ff7ff7"); // bytes above 7f go out as they are
        QCOMPARE(ports->sentBytes(), hexes({"f001f7", "f002f7", "f003ff7ff7"}));

        ports->unplug();
        manager->slot_PollDevices();
        sendSysex("f004f7");
        QCOMPARE(ports->sent.size(), 3);
        manager->outputSysEx(mixer, nullptr, 0);
    }

    void channelMessages()
    {
        ports->plug({"A"});
        manager->openMidiOutput("A");
        manager->outputCC("A", 16, 0x87, 0x1FF); // seven bits of each
        manager->outputCC("A", 0, 1, 2);
        manager->outputCC("A", 17, 1, 2);
        manager->outputNoteOn("A", 2, 0x8E, 300);
        QCOMPARE(ports->sentBytes(), hexes({"bf077f", "b00102", "bf0102", "910e7f"}));
    }

    // After the last close it outlasts the reader's poll; an input beside another needs none.
    void inputPause()
    {
        InputPause pause;
        QCOMPARE(pause.remainingMs(), 0);
        pause.inputOpened();
        pause.inputOpened();
        pause.inputClosed();
        QCOMPARE(pause.remainingMs(), 0);
        pause.inputClosed();
        QVERIFY(pause.remainingMs() > InputPause::readerPollMs);
        pause.inputOpened();
        QCOMPARE(pause.remainingMs(), 0);
    }

    // JUCE's audio devices take ALSA's silencer away, and with it the silence of each poll.
    void listingTheAudioDevicesLeavesAlsaQuiet()
    {
#if defined(__linux__)
        JucePorts system;
        const auto quiet = snd_lib_error;
        system.audioOutputNames();
        QVERIFY(snd_lib_error == quiet);
#endif
    }

    void huiPortsOpenTogetherAndCloseTogether()
    {
        ports->plug({mixer, surface, "loopMIDI Port", "loopMIDI Port 1"});
        findNames();
        QSignalSpy on(manager.get(), SIGNAL(signalConnectHuiStuff()));
        manager->slotEnableHuiPort(true);
        QCOMPARE(on.count(), 1);
        QCOMPARE(ports->openInputs, QStringList({"id-0-loopMIDI Port 1", "id-0-" + surface}));
        QCOMPARE(ports->openOutputs, QStringList({"id-0-loopMIDI Port", "id-0-" + surface}));
        // Both bank indicators are lit.
        QCOMPARE(ports->sentBytes(), hexes({"900e7f", "900f7f"}));
        manager->slotEnableHuiPort(false);
        QVERIFY(ports->openInputs.isEmpty());
        QVERIFY(ports->openOutputs.isEmpty());
    }
};

QTEST_MAIN(TestMidiManager)
#include "tst_midimanager.moc"
