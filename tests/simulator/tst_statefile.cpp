#include "fakemixerports.h"
#include "simulator.h"
#include "testcase.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

// The file in which the mixer's memory lives.
class TestStateFile : public TestCase
{
    Q_OBJECT

    std::unique_ptr<QTemporaryDir> folder;

    void prepare() override { folder = std::make_unique<QTemporaryDir>(); }
    QString path() const { return folder->filePath("state.json"); }
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
        QCOMPARE(mixer.channel(), 7);
    }

    // What is usable of a damaged file is used, and all of it is kept.
    void damage()
    {
        const QByteArray inPart = R"({"firmware": {"version": "9.9.9"},
            "mixer": {"mode": "x", "channel": 99, "slots": {"B": 5, "D": {
            "faderframe_ch1_fader": 4444}}, "globals": [],
            "live": {"faderframe_ch2_fader": -1, "faderframe_ch3_fader": "loud", "no_such": 1}}})";
        const std::tuple<QByteArray, int, QString> rows[]{
            {"{\"mixer\": {\"live\": {\"faderf", 3000, "1.2.5"}, {inPart, 4444, "9.9.9"}};
        for (const auto& [bytes, fader, version] : rows) {
            prepare();
            QFile file(path());
            QVERIFY(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size());
            file.close();
            auto made = simulator();
            const auto aside = QDir(folder->path()).entryList({"state.json.broken-*"});
            QCOMPARE(aside.size(), 1);
            QFile kept(folder->filePath(aside.first()));
            QVERIFY(kept.open(QIODevice::ReadOnly));
            QCOMPARE(kept.readAll(), bytes);
            const auto at = static_cast<size_t>(presetTable().find("faderframe_ch1_fader"));
            QCOMPARE(made->mixer().slot(3)[at], fader);
            QCOMPARE(made->mixer().globals(), globalTable().factoryValues());
            QCOMPARE(made->mixer().firmware().text(), version);
        }
    }
};

QTEST_GUILESS_MAIN(TestStateFile)
#include "tst_statefile.moc"
