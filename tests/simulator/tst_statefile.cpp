#include "fakemixerports.h"
#include "simulator.h"
#include "testcase.h"

#include <QDir>
#include <QFile>
#include <QSignalSpy>
#include <QTemporaryDir>

// The file in which the mixer's memory lives, which the firmware tool changes too.
class TestStateFile : public TestCase
{
    Q_OBJECT

    std::unique_ptr<QTemporaryDir> folder;

    void prepare() override { folder = std::make_unique<QTemporaryDir>(); }
    QString path() const { return folder->filePath("state.json"); }
    void write(const QByteArray& bytes)
    {
        QFile file(path());
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write(bytes);
    }
    QJsonObject document() const { return StateFile(path()).read().document; }
    // What was set aside, as long as that is one file.
    QByteArray aside() const
    {
        const auto files = QDir(folder->path()).entryList({"state.json.broken-*"}, QDir::Files);
        QFile file(folder->filePath(files.value(0)));
        return files.size() == 1 && file.open(QIODevice::ReadOnly) ? file.readAll() : "none";
    }
    std::unique_ptr<Simulator> simulator()
    {
        auto made =
            std::make_unique<Simulator>(std::make_unique<FakeMixerPorts>(), StateFile(path()));
        made->start(false);
        return made;
    }

private slots:
    void everythingSurvivesTheProgram()
    {
        const int fader = presetTable().find("faderframe_ch1_fader");
        const int tone = globalTable().find("tone_gen_freq");
        {
            auto first = simulator();
            QVERIFY(QFile::exists(path())); // the tool must find it at once
            SimulatedMixer& mixer = first->mixer();
            mixer.setLive(SimulatedMixer::randomValues(presetTable(), 1));
            mixer.setSlot(11, SimulatedMixer::randomValues(presetTable(), 2));
            mixer.turnGlobal(tone, 1000);
            mixer.receive(MixerPort::AudioControl,
                          QByteArray::fromHex("f000015f230b000000000000f7"));
            mixer.turnGlobal(tone, 2000); // not in flash
            mixer.turn(fader, 3000);      // a factory value over another one
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
        QCOMPARE(mixer.globals()[static_cast<size_t>(tone)], 1000);
        QCOMPARE(mixer.mode(), 3);
        QCOMPARE(mixer.channel(), 7);
    }

    void theToolsChangesStay()
    {
        auto running = simulator();
        const QString error = StateFile(path()).update([](QJsonObject& json) {
            FirmwareState{{2, 0, 1}, "exit"}.putInto(json);
            json.insert("audio", QJsonObject{{"sampleRate", 96000}});
        });
        QVERIFY(error.isEmpty());
        running->mixer().selectMode(2);
        running->save();
        QCOMPARE(FirmwareState::of(document()), (FirmwareState{{2, 0, 1}, "exit"}));
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

    void damage_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<int>("fader");
        QTest::addColumn<QString>("version");
        const auto row = [](const char* name, const QByteArray& bytes, int fader = 3000,
                            const char* version = "1.2.5") {
            QTest::newRow(name) << bytes << fader << QString(version);
        };
        row("empty", "");
        row("cut off", "{\"mixer\": {\"live\": {\"faderf");
        row("binary", QByteArray::fromHex("00ff80c3287f454c46"));
        row("deep", QByteArray(5000, '['));
        row("in part", R"({"firmware": {"version": "9.9.9"}, "mixer": {"mode": "x", "channel": 99,
            "live": {"faderframe_ch2_fader": -1, "faderframe_ch3_fader": "loud", "no_such": 1},
            "slots": {"B": 5, "D": {"faderframe_ch1_fader": 4444}}, "globals": []}})",
            4444, "9.9.9");
    }
    // What is usable is used, and all of it is kept.
    void damage()
    {
        QFETCH(QByteArray, bytes);
        write(bytes);
        auto made = simulator();
        QCOMPARE(aside(), bytes);
        const auto at = static_cast<size_t>(presetTable().find("faderframe_ch1_fader"));
        QTEST(made->mixer().slot(3)[at], "fader");
        QCOMPARE(made->mixer().globals(), globalTable().factoryValues());
        QTEST(made->mixer().firmware().text(), "version");
        QTEST(document()["firmware"].toObject()["version"].toString(), "version");
    }

    void damageWhileRunning()
    {
        auto made = simulator();
        write("somebody else's");
        made->mixer().selectMode(4);
        made->save();
        QCOMPARE(document()["mixer"].toObject()["mode"].toInt(), 4);
        QCOMPARE(aside(), QByteArray("somebody else's"));
        // A place that cannot be written: a folder of that name. Once told is enough.
        QVERIFY(QFile::remove(path()) && QDir().mkpath(path()));
        QSignalSpy lines(made.get(), SIGNAL(signalLine(QString)));
        made->save();
        made->save();
        QCOMPARE(lines.count(), 1);
        QVERIFY(lines[0][0].toString().contains("not saved: "));
        QVERIFY(!made->storeFailure("exit").isEmpty());
    }
};

QTEST_GUILESS_MAIN(TestStateFile)
#include "tst_statefile.moc"
