// What the HUI bridge costs: from a message at one port to what leaves at another, each way, beside
// the same bytes sent straight; and one off and on.

#include "fakeports.h"
#include "sysexmanager.h"

#include <QApplication>

#include <benchmark/benchmark.h>

namespace
{

const QString mixer = QStringLiteral("J-Sum Audio Control");
const QString surface = QStringLiteral("J-Sum Control Surface");
const QString toHost = QStringLiteral("loopMIDI Port");
const QString fromHost = QStringLiteral("loopMIDI Port 1");

struct Bridge {
    Bridge()
    {
        manager.slotDidAttemptFwUpdate(); // or it would look for the firmware tool
        ports->plug({mixer, surface, toHost, fromHost});
        manager.midi()->slot_PollDevices();
        manager.slotEnableHuiPort(true);
        ports->sent.clear();
    }
    // Whether as many messages left as should.
    void check(benchmark::State& state, qsizetype messages)
    {
        if (ports->sent.size() != messages)
            state.SkipWithError("not what should be sent");
        ports->sent.clear();
    }

    FakePorts* ports = new FakePorts;
    SysexManager manager{nullptr, std::unique_ptr<MidiPorts>(ports)};
};

void oneStraight(benchmark::State& state)
{
    Bridge bridge;
    for (auto _ : state) {
        bridge.manager.midi()->outputCC(surface, 0, 3, 100);
        bridge.check(state, 1);
    }
}

void hostFaderToMixer(benchmark::State& state)
{
    Bridge bridge;
    const MidiMessage high(0xB0, 2, 100);
    const MidiMessage low(0xB0, 0x22, 16);
    for (auto _ : state) {
        bridge.manager.slotReceiveMidiInput(fromHost, high);
        bridge.manager.slotReceiveMidiInput(fromHost, low);
        bridge.check(state, 1);
    }
}

void pairStraight(benchmark::State& state)
{
    Bridge bridge;
    for (auto _ : state) {
        bridge.manager.midi()->outputCC(toHost, 0, 2, 100);
        bridge.manager.midi()->outputCC(toHost, 0, 0x22, 0);
        bridge.check(state, 2);
    }
}

void mixerFaderToHost(benchmark::State& state)
{
    Bridge bridge;
    const MidiMessage move(0xB0, 3, 100);
    for (auto _ : state) {
        bridge.manager.slotReceiveMidiInput(surface, move);
        bridge.check(state, 2);
    }
}

void offAndOn(benchmark::State& state)
{
    Bridge bridge;
    for (auto _ : state) {
        bridge.manager.slotEnableHuiPort(false);
        bridge.manager.slotEnableHuiPort(true);
        bridge.check(state, 2);
    }
}

} // namespace

BENCHMARK(oneStraight)->Unit(benchmark::kMicrosecond);
BENCHMARK(hostFaderToMixer)->Unit(benchmark::kMicrosecond);
BENCHMARK(pairStraight)->Unit(benchmark::kMicrosecond);
BENCHMARK(mixerFaderToHost)->Unit(benchmark::kMicrosecond);
BENCHMARK(offAndOn)->Unit(benchmark::kMicrosecond)->Iterations(1000);

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
}
