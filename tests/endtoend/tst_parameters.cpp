#include "simulatorprocess.h"
#include "sysexmanager.h"
#include "testcase.h"

#include <QDir>
#include <QSignalSpy>
#include <QTemporaryDir>

// The editor's names and bytes against the mixer's own tables, which were written apart: every
// parameter, both ways, over the system's MIDI.
class TestParameters : public TestCase
{
    Q_OBJECT

    using Values = QMap<QString, int>;

    std::unique_ptr<QTemporaryDir> folder;
    std::unique_ptr<SimulatorProcess> simulator;
    std::unique_ptr<SysexManager> manager;
    QString startFolder = QDir::currentPath();
    Values received;

    void prepare() override
    {
        folder = std::make_unique<QTemporaryDir>();
        QDir::setCurrent(folder->path());
        simulator = std::make_unique<SimulatorProcess>(SIMULATOR, folder->filePath("state.json"));
        QVERIFY(simulator->start());
        manager = std::make_unique<SysexManager>();
        for (const char* signal : {SIGNAL(signalReceiveMainwindowPresetParams(QString, int)),
                                   SIGNAL(signalReceiveChannelStripParams(QString, int)),
                                   SIGNAL(signalReceiveReverbParams(QString, int)),
                                   SIGNAL(signalReceiveSurroundParams(QString, int)),
                                   SIGNAL(signalReceiveMainwindowGlobalParams(QString, int)),
                                   SIGNAL(signalReceiveUSBParams(QString, int)),
                                   SIGNAL(signalReceiveMidiParams(QString, int))}) {
            connect(manager.get(), signal, this, SLOT(take(QString, int)));
        }
        QVERIFY(QTest::qWaitFor([this] { return manager->isConnected(); },
                                SimulatorProcess::patienceMs));
        received.clear();
    }

    // The mixer's memory: its "preset" parameters of this moment, its "global" ones or its "map".
    Values memory(const QString& kind)
    {
        simulator->mark();
        simulator->command("state");
        Values values;
        const QRegularExpression line(kind == "preset" ? R"(^live (\S+) (\d+)$)"
                                                       : R"(^global (\S+) (\d+)$)");
        for (const QString& text : simulator->linesSinceMark()) {
            const auto match = line.match(text);
            const QString name = match.captured(1);
            if (match.hasMatch() && (kind == "map") == name.startsWith("miditab_"))
                values[name] = match.captured(2).toInt();
        }
        return values;
    }

    static bool isChannel(const QString& name) { return name.endsWith("_channel"); }

public slots:
    void take(QString name, int value) { received[name] = value; }

private slots:
    void cleanup()
    {
        manager.reset();
        simulator.reset();
        QDir::setCurrent(startFolder);
    }

    void everyParameterReachesTheMixer_data()
    {
        QTest::addColumn<QString>("kind");
        QTest::addColumn<int>("count");
        QTest::addColumn<int>("highest");
        QTest::newRow("preset") << "preset" << 329 << 16383;
        QTest::newRow("global") << "global" << 53 << 16383;
        QTest::newRow("mapping") << "map" << 155 << 127;
    }
    void everyParameterReachesTheMixer()
    {
        QFETCH(QString, kind);
        QFETCH(int, highest);
        Values wanted = memory(kind);
        QTEST(int(wanted.size()), "count");
        int value = 1;
        for (auto entry = wanted.begin(); entry != wanted.end(); ++entry) {
            value = (value * 37 + 11) % highest + 1;
            *entry = value;
            if (kind == "preset")
                manager->slotSendPresetParameters(entry.key(), value);
            else
                manager->slotSendGlobalParameters(entry.key(), value);
            QTest::qSleep(2);
        }
        QTRY_COMPARE_WITH_TIMEOUT(memory(kind), wanted, SimulatorProcess::patienceMs);
    }

    void theLiveMemoryArrivesWhole()
    {
        QVERIFY(simulator->command("randomise 7"));
        const Values wanted = memory("preset");
        QSignalSpy complete(manager.get(), SIGNAL(signalLiveMemoryFinishedSyncing()));
        manager->slotSendSinglePresetRequest(0, false);
        QVERIFY(QTest::qWaitFor([&] { return !complete.isEmpty(); }, SimulatorProcess::patienceMs));
        QCOMPARE(received, wanted);
    }

    void everyGlobalParameterReturns()
    {
        for (const QString& kind : {QString("global"), QString("map")}) {
            received.clear();
            Values wanted = memory(kind);
            for (auto entry = wanted.begin(); entry != wanted.end(); ++entry) {
                const int next = isChannel(entry.key()) ? 7 : *entry ? 0 : 1;
                QVERIFY(simulator->command(
                    QString("%1 %2 %3").arg(kind, entry.key()).arg(next).toLatin1()));
                // A channel travels one lower, and is not raised again on the way in.
                *entry = isChannel(entry.key()) ? 6 : next;
            }
            QTRY_COMPARE_WITH_TIMEOUT(received, wanted, SimulatorProcess::patienceMs);
        }
    }
};

QTEST_MAIN(TestParameters)
#include "tst_parameters.moc"
