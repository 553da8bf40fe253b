#include "simulatedmixer.h"
#include "testcase.h"

// What each message does to the mixer, and what it answers.
class TestSimulatedMixer : public TestCase
{
    Q_OBJECT

    QList<QByteArray> sent;
    QStringList told;
    int restarts = 0;
    std::unique_ptr<SimulatedMixer> mixer;

    void prepare() override
    {
        sent.clear();
        told.clear();
        restarts = 0;
        mixer = std::make_unique<SimulatedMixer>(SimulatedMixer::Callbacks{
            [this](MixerPort, const QByteArray& message) { sent.append(message.toHex()); },
            [this] { ++restarts; }, [this](const QString& text) { told.append(text); }});
        mixer->setFirmware({1, 10, 3});
    }
    void receive(const char* hex)
    {
        mixer->receive(MixerPort::AudioControl, QByteArray::fromHex(hex));
    }
    int live(const char* name) const { return mixer->live()[at(presetTable(), name)]; }
    static size_t at(const ParameterTable& table, const char* name)
    {
        return static_cast<size_t>(table.find(QLatin1String(name)));
    }

private slots:
    void versionQuery()
    {
        receive("f000015f2300000000000000f7");
        QCOMPARE(sent, QList<QByteArray>{"f000015f2300000000010a03f7"});
        mixer->setAnswersVersion(false);
        receive("f000015f2300000000000000f7");
        QCOMPARE(sent.size(), 1);
    }

    void parametersAndModes()
    {
        receive("f000015f230201010004456af7");
        QCOMPARE(live("faderframe_ch1_fader"), 8938);
        receive("f000015f2302010100"
                "04ff7ff7"); // an illegal byte is kept as it came
        QCOMPARE(live("faderframe_ch1_fader"), 32767);
        receive("f000015f2303060000380338f7");
        receive("f000015f2303050000020004f7");
        QCOMPARE(mixer->globals()[at(globalTable(), "tone_gen_freq")], 440);
        QCOMPARE(mixer->globals()[at(globalTable(), "miditab_bank2_channel")], 5);
        receive("f000015f2305000000000005f7");
        QCOMPARE(mixer->mode(), 5);
        receive("f000015f2306000000000008f7");
        QCOMPARE(mixer->channel(), 8);
        receive("f000015f230500000000000cf7"); // an aux has a channel of its own
        QCOMPARE(mixer->mode(), 12);
        QCOMPARE(mixer->channel(), 12);
        receive("f000015f230c000000000000f7");
        QVERIFY(!mixer->dspUpdating() && mixer->stereoUpdating());
        receive("f000015f230c010000000000f7");
        receive("f000015f230c000000010000f7");
        QVERIFY(mixer->dspUpdating() && !mixer->stereoUpdating());
        receive("f000015f2310120500000001f7");
        QVERIFY(mixer->lights(0x12)[5] && !mixer->lights(0x11)[5] && !mixer->lights(0x12)[4]);
        receive("f000015f237f000000000000f7");
        QVERIFY(mixer->communicationEnded());
        QVERIFY(told.isEmpty());
        QVERIFY(sent.isEmpty()); // none of these is answered
    }

    void slotTransfer()
    {
        receive("f000015f2302010100044e10f7");
        receive("f000015f2309040000000000f7"); // save as slot E
        receive("f000015f2302010100040001f7"); // what is live afterwards is not of the slot
        receive("f000015f230a040100000000f7");
        QCOMPARE(sent.size(), 331);
        QCOMPARE(sent.first(), QByteArray("f000015f230a040001f7"));
        QCOMPARE(sent.last(), QByteArray("f000015f230a040101f7"));
        QVERIFY(sent.contains("f000015f2302010100044e10f7"));
        SimulatedMixer::Values arrived(329, -1);
        for (const QByteArray& message : sent.mid(1, 329)) {
            const auto setting = presetTable().read(QByteArray::fromHex(message));
            QVERIFY(setting && message.startsWith("f000015f2302"));
            arrived[static_cast<size_t>(setting->index)] = setting->value;
        }
        QCOMPARE(arrived, mixer->slot(4));

        sent.clear();
        receive("f000015f230a0c0000000000f7");
        QCOMPARE(sent.first(), QByteArray("f000015f230a0c0000f7"));
        QVERIFY(sent.contains("f000015f2302010100040001f7"));
        QCOMPARE(sent.last(), QByteArray("f000015f230a0c0100f7"));
    }

    void flashAndRestart()
    {
        receive("f000015f2303060000380101f7"); // tone generator 129 Hz
        receive("f000015f230b000000000000f7");
        receive("f000015f2303060000380102f7");
        receive("f000015f230201010004000af7");
        receive("f000015f230e000000000000f7");
        QCOMPARE(restarts, 1);
        mixer->powerUp();
        QCOMPARE(mixer->globals()[at(globalTable(), "tone_gen_freq")], 129);
        QCOMPARE(live("faderframe_ch1_fader"), 10);
    }

    void malformedIsIgnored_data()
    {
        QTest::addColumn<QByteArray>("message");
        for (const char* hex : {"",
                                "f0f7",
                                "f000015f2300f7",
                                "f000015f230000000000000000f7",
                                "f000015f2200000000000000f7",
                                "f000015f2302000000000001f7",
                                "f000015f2302040100040001f7",
                                "f000015f23020101000e0001f7",
                                "f000015f2302010e00040001f7",
                                "f000015f2303010100040001f7",
                                "f000015f2303060000460001f7",
                                "f000015f2305000000000007f7",
                                "f000015f230500000000000ff7",
                                "f000015f230600000000000af7",
                                "f000015f23090d0000000000f7",
                                "f000015f230a0d0000000000f7",
                                "f000015f230c020000000000f7",
                                "f000015f230c010000020000f7",
                                "f000015f2310140000000001f7",
                                "f000015f2310110800000001f7",
                                "f000015f2310110000000002f7",
                                "f000015f2301000000000000f7",
                                "f000015f230503f7",
                                "f000015f230a000001f7",
                                "903c7f",
                                "f000015f230000000000000000"}) {
            QTest::newRow(hex) << QByteArray::fromHex(hex);
        }
    }
    void malformedIsIgnored()
    {
        QFETCH(QByteArray, message);
        const QJsonObject before = mixer->toJson();
        const auto globals = mixer->globals();
        mixer->receive(MixerPort::AudioControl, message);
        QCOMPARE(told.size(), 1);
        QVERIFY(told.first().startsWith("ignored: "));
        QVERIFY(sent.isEmpty());
        QCOMPARE(restarts, 0);
        QCOMPARE(mixer->toJson(), before);
        QCOMPARE(mixer->globals(), globals);
    }

    void panel()
    {
        QVERIFY(mixer->turn(presetTable().find("channelstrip_ch3_eq_mid_q"), 300));
        QCOMPARE(live("channelstrip_ch3_eq_mid_q"), 300);
        QVERIFY(mixer->turnGlobal(globalTable().find("miditab_bank2_channel"), 16));
        QVERIFY(mixer->selectMode(14));
        QVERIFY(mixer->selectChannel(13));
        mixer->goToSync();
        QCOMPARE(sent,
                 (QList<QByteArray>{"f000015f23020203000f022cf7", "f000015f230305000002000ff7",
                                    "f000015f23050ef7", "f000015f23060df7", "f000015f230df7"}));
        // What no message can carry is refused.
        QVERIFY(!mixer->turn(0, 16384) && !mixer->turn(0, -1));
        QVERIFY(!mixer->turnGlobal(globalTable().find("miditab_bank2_channel"), 0));
        QVERIFY(!mixer->turnGlobal(globalTable().find("miditab_fader1_bank1_cc"), 128));
        QVERIFY(!mixer->selectMode(9) && !mixer->selectChannel(0) && !mixer->selectChannel(14));
        QCOMPARE(sent.size(), 5);
    }

    void recallTellsOfEachChange()
    {
        mixer->setLive(mixer->slot(0));
        mixer->setSlotValue(1, presetTable().find("reverbtab_bypass"), 1);
        mixer->setSlotValue(1, presetTable().find("faderframe_ch1_mute"), 1);
        mixer->recallSlot(1);
        QCOMPARE(sent,
                 (QList<QByteArray>{"f000015f230df7", "f000015f2302010100050001f7",
                                    "f000015f2302030000390001f7"}));
        QCOMPARE(mixer->live(), mixer->slot(1));
    }

    void controlSurface()
    {
        mixer->receive(MixerPort::ControlSurface, QByteArray::fromHex("b00364"));
        mixer->receive(MixerPort::ControlSurface, QByteArray::fromHex("910e7f"));
        mixer->receive(MixerPort::ControlSurface, QByteArray::fromHex("810e40"));
        QCOMPARE(mixer->surface().size(), size_t(2));
        QCOMPARE(mixer->surface().at({0xB0, 1, 3}), 100);
        QCOMPARE(mixer->surface().at({0x90, 2, 14}), 0);
        mixer->receive(MixerPort::ControlSurface, QByteArray::fromHex("f0f7"));
        QCOMPARE(told.size(), 1);
    }

    void randomValuesAreLegalAndTheSameAgain()
    {
        const auto values = SimulatedMixer::randomValues(presetTable(), 7);
        QCOMPARE(SimulatedMixer::randomValues(presetTable(), 7), values);
        QVERIFY(SimulatedMixer::randomValues(presetTable(), 8) != values);
        for (int i = 0; i < presetTable().size(); ++i) {
            const int value = values[static_cast<size_t>(i)];
            QVERIFY(value >= presetTable()[i].minimum && value <= presetTable()[i].maximum);
        }
    }
};

QTEST_APPLESS_MAIN(TestSimulatedMixer)
#include "tst_simulatedmixer.moc"
