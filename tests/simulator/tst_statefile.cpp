#include "fakemixerports.h"
#include "simulator.h"
#include "testcase.h"

#include <QDir>
#include <QFile>
#include <QJsonDocument>
#include <QTemporaryDir>

// The file in which the mixer's memory lives, which the firmware tool changes too.
class TestStateFile : public TestCase
{
    Q_OBJECT

    std::unique_ptr<QTemporaryDir> folder;
    QStringList lines;

    void prepare() override
    {
        folder = std::make_unique<QTemporaryDir>();
        lines.clear();
    }
    QString path() const { return folder->filePath("state.json"); }
    void write(const QByteArray& bytes)
    {
        QFile file(path());
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write(bytes);
    }
    QByteArray content(const QString& name)
    {
        QFile file(folder->filePath(name));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("none");
    }
    QJsonObject document() { return QJsonDocument::fromJson(content("state.json")).object(); }
    QStringList asideFiles() const
    {
        return QDir(folder->path()).entryList({"state.json.broken-*"}, QDir::Files);
    }
    // The signal comes from constructors' ends on, so the lines are caught before start.
    std::unique_ptr<Simulator> simulator()
    {
        auto made =
            std::make_unique<Simulator>(std::make_unique<FakeMixerPorts>(), StateFile(path()));
        connect(made.get(), SIGNAL(signalLine(QString)), this, SLOT(slotLine(QString)));
        made->start(false);
        return made;
    }

public slots:
    void slotLine(const QString& line) { lines.append(line); }

private slots:
    void everythingSurvivesTheProgram()
    {
        const int fader = presetTable().find("faderframe_ch1_fader");
        {
            auto first = simulator();
            QVERIFY(QFile::exists(path())); // the tool must find it at once
            SimulatedMixer& mixer = first->mixer();
            mixer.setLive(SimulatedMixer::randomValues(presetTable(), 1));
            mixer.setSlot(11, SimulatedMixer::randomValues(presetTable(), 2));
            mixer.turnGlobal(globalTable().find("tone_gen_freq"), 1000);
            mixer.receive(MixerPort::AudioControl,
                          QByteArray::fromHex("f000015f230b000000000000f7"));
            mixer.turnGlobal(globalTable().find("tone_gen_freq"), 2000); // not in flash
            mixer.turn(fader, 3000); // a factory value over another one
            mixer.selectMode(3);
            mixer.selectChannel(7);
        }
        auto second = simulator();
        const SimulatedMixer& mixer = second->mixer();
        auto live = SimulatedMixer::randomValues(presetTable(), 1);
        live[static_cast<size_t>(fader)] = 3000;
        QCOMPARE(mixer.live(), live);
        QCOMPARE(mixer.slot(11), SimulatedMixer::randomValues(presetTable(), 2));
        QCOMPARE(mixer.slot(0), presetTable().factoryValues());
        const auto tone = static_cast<size_t>(globalTable().find("tone_gen_freq"));
        QCOMPARE(mixer.globals()[tone], 1000);
        QCOMPARE(mixer.mode(), 3);
        QCOMPARE(mixer.channel(), 7);
        QVERIFY(asideFiles().isEmpty());
    }

    void theToolsChangesStay()
    {
        auto running = simulator();
        QVERIFY(StateFile(path())
                    .update([](QJsonObject& json) {
                        FirmwareState{{2, 0, 1}, "exit"}.putInto(json);
                        json.insert("audio", QJsonObject{{"sampleRate", 96000}});
                    })
                    .isEmpty());
        running->mixer().selectMode(2);
        running->save();
        QCOMPARE(FirmwareState::of(document()), (FirmwareState{{2, 0, 1}, "exit"}));
        QCOMPARE(document()["audio"].toObject()["sampleRate"].toInt(), 96000);
        QCOMPARE(document()["mixer"].toObject()["mode"].toInt(), 2);
        // It runs only once the mixer has come again.
        QCOMPARE(running->mixer().firmware().text(), QString("1.2.5"));
        running->plug();
        QCOMPARE(running->mixer().firmware().text(), QString("2.0.1"));
        // The other way round, a command changes only its own.
        QVERIFY(running->storeFirmware({3, 0, 0}).isEmpty());
        QCOMPARE(FirmwareState::of(document()), (FirmwareState{{3, 0, 0}, "exit"}));
        QCOMPARE(document()["audio"].toObject()["sampleRate"].toInt(), 96000);
    }

    void brokenFiles_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::newRow("empty") << QByteArray();
        QTest::newRow("cut off") << QByteArray("{\"mixer\": {\"live\": {\"faderf");
        QTest::newRow("no object") << QByteArray("[1, 2]");
        QTest::newRow("binary") << QByteArray::fromHex("00ff80c3287f454c46");
        QTest::newRow("deep") << QByteArray(5000, '[');
    }
    void brokenFiles()
    {
        QFETCH(QByteArray, bytes);
        write(bytes);
        auto made = simulator();
        QCOMPARE(asideFiles().size(), 1);
        QCOMPARE(content(asideFiles().first()), bytes);
        QVERIFY(lines.join('\n').contains("set aside as"));
        QCOMPARE(made->mixer().slot(3), presetTable().factoryValues());
        QCOMPARE(document()["firmware"].toObject()["version"].toString(), QString("1.2.5"));
    }

    void usablePartsOfADamagedFileAreUsed()
    {
        const QByteArray damaged =
            R"({"firmware": {"version": "9.9.9"}, "mixer": {"mode": "x", "channel": 99,
                "live": {"faderframe_ch1_fader": 4444, "faderframe_ch2_fader": -1,
                         "faderframe_ch3_fader": "loud", "no_such": 1},
                "slots": {"B": 5, "C": {"reverbtab_bypass": 1}}, "globals": []}})";
        write(damaged);
        auto made = simulator();
        const auto at = [](const char* name) {
            return static_cast<size_t>(presetTable().find(QLatin1String(name)));
        };
        QCOMPARE(made->mixer().live()[at("faderframe_ch1_fader")], 4444);
        QCOMPARE(made->mixer().live()[at("faderframe_ch2_fader")], 3000);
        QCOMPARE(made->mixer().slot(2)[at("reverbtab_bypass")], 1);
        QCOMPARE(made->mixer().globals(), globalTable().factoryValues());
        QCOMPARE(made->mixer().firmware().text(), QString("9.9.9"));
        QCOMPARE(asideFiles().size(), 1);
        QCOMPARE(content(asideFiles().first()), damaged);
        QCOMPARE(FirmwareState::of(document()).version.text(), QString("9.9.9"));
    }

    void brokenWhileRunning()
    {
        auto made = simulator();
        write("somebody else's");
        made->mixer().selectMode(4);
        made->save();
        QCOMPARE(document()["mixer"].toObject()["mode"].toInt(), 4);
        QCOMPARE(asideFiles().size(), 1);
        QFile::remove(path());
        made->save();
        QCOMPARE(document()["firmware"].toObject()["version"].toString(), QString("1.2.5"));
    }

    void aPlaceThatCannotBeWritten()
    {
        QDir().mkpath(path()); // a folder of that name
        auto made = simulator();
        made->save();
        made->save();
        QCOMPARE(lines.filter("not saved: ").size(), 1); // once is enough
        QVERIFY(QDir(path()).exists());
        QVERIFY(!made->storeFailure("exit").isEmpty());
    }

    void firmwareSection()
    {
        QVERIFY(!FirmwareVersion::fromText("1.2"));
        QVERIFY(!FirmwareVersion::fromText("1.2.100"));
        QVERIFY(!FirmwareVersion::fromText("-1.2.3"));
        QCOMPARE(FirmwareVersion::fromText("12.3.4")->packed(), 120304);
        QCOMPARE(FirmwareVersion::fromFlashData("; built today\r\nVersion: 1.2.6\r\nsize 7\r\n"),
                 (FirmwareVersion{1, 2, 6}));
        QVERIFY(!FirmwareVersion::fromFlashData("no version here 1.2.3"));
        for (const char* mode : {"none", "stderr", "exit", "hang", "check-hang", "check-exit 255"})
            QVERIFY2(FirmwareState::isFailure(mode), mode);
        for (const char* mode : {"", "check-exit", "check-exit 256", "check-exit -1", "exit 5"})
            QVERIFY2(!FirmwareState::isFailure(mode), mode);
    }
};

QTEST_GUILESS_MAIN(TestStateFile)
#include "tst_statefile.moc"
