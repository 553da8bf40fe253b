// What the full-power view costs: a mode entry and exit, a fader's drag step to the byte at the
// port, the mixer's whole live state at its pace, the list at the library's limit, and a setlist
// sent. Each beside its floor.

#include "channelstriptab.h"
#include "fakeports.h"
#include "fullpowerview.h"
#include "globalpresetinterface.h"
#include "jsonfile.h"
#include "pagestyle.h"
#include "portableslider.h"
#include "presetcodec.h"
#include "presetdefaults.h"
#include "presetinterface.h"
#include "setlist.h"
#include "sysexframe.h"
#include "sysexmanager.h"

#include <QApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QJsonDocument>
#include <QMouseEvent>
#include <QSettings>
#include <QTemporaryDir>
#include <QThread>

#include <benchmark/benchmark.h>

#include <ctime>

namespace
{

constexpr int slotCount = 12;
constexpr int parameters = 329;
constexpr int paceMs = 2;
constexpr int pauseMs = 500;
const QString fader = QStringLiteral("faderframe_ch1_fader");

QVariantMap libraryOf(int count)
{
    QVariantMap library;
    for (int number = 0; number < count; ++number) {
        QVariantMap preset = presetdefaults::preset();
        preset.insert(QStringLiteral("preset_name"),
                      number == 0 ? QStringLiteral("[CONNECTION SYNC]")
                                  : QStringLiteral("Preset %1").arg(number));
        preset.insert(fader, 9000 + number);
        library.insert(QStringLiteral("Preset_%1").arg(number, 3, 10, QLatin1Char('0')), preset);
    }
    return library;
}

// The view with a mixer that is there and answers nothing by itself.
struct Desk {
    explicit Desk(int presetCount)
    {
        QDir::setCurrent(folder.path());
        QDir().mkpath(QStringLiteral("resources/presets"));
        jsonfile::write(QStringLiteral("resources/presets/jsum.json"),
                        QJsonDocument::fromVariant(libraryOf(presetCount)).toJson());
        presets.slotUpdateJSONPath();
        presets.slotReadJSON();
        globals.slotSetJSONPath();
        globals.slotReadGlobal();
        sysex.slotDidAttemptFwUpdate(); // or it would look for the firmware tool
        settingsDialog.hide();
        view = std::make_unique<FullPowerView>(false, QString(), &sysex, &presets, &globals,
                                               &settingsDialog, &settings, &window);
        window.resize(view->size());
        window.show();
        ports->plug(
            {QStringLiteral("J-Sum Audio Control"), QStringLiteral("J-Sum Control Surface")});
        sysex.midi()->slot_PollDevices();
        list = view->findChild<ReorderableListWidget*>();
    }

    void enter()
    {
        view->slotInitializeFullPowerMode();
        emit sysex.signalLiveMemoryFinishedSyncing();
        ports->sent.clear();
    }

    QTemporaryDir folder;
    QSettings settings{folder.filePath(QStringLiteral("settings.ini")), QSettings::IniFormat};
    PresetInterface presets;
    GlobalPresetInterface globals;
    FakePorts* ports = new FakePorts;
    SysexManager sysex{nullptr, std::unique_ptr<MidiPorts>(ports)};
    QWidget window;
    QWidget settingsDialog{&window};
    std::unique_ptr<FullPowerView> view;
    ReorderableListWidget* list = nullptr;
};

void modeEntryAndExit(benchmark::State& state)
{
    Desk desk(static_cast<int>(state.range(0)));
    for (auto _ : state) {
        desk.enter();
        desk.view->slotDeInitializeFullPowerMode();
    }
}

void faderStepToTheByte(benchmark::State& state)
{
    Desk desk(12);
    desk.enter();
    auto* slider = desk.view->findChild<PortableSlider*>(fader);
    const auto send = [slider](QEvent::Type type, int y, Qt::MouseButton button) {
        const QPointF place(10, y);
        QMouseEvent event(type, place, slider->mapToGlobal(place), button, Qt::LeftButton,
                          Qt::NoModifier);
        QApplication::sendEvent(slider, &event);
    };
    send(QEvent::MouseButtonPress, 40, Qt::LeftButton);
    int y = 40;
    int step = 1;
    for (auto _ : state) {
        y += step;
        if (y == 40 || y == 120)
            step = -step;
        send(QEvent::MouseMove, y, Qt::NoButton);
        if (desk.ports->sent.isEmpty())
            state.SkipWithError("nothing was sent");
        desk.ports->sent.clear();
    }
    send(QEvent::MouseButtonRelease, y, Qt::LeftButton);
}

void sameBytesBare(benchmark::State& state)
{
    Desk desk(12);
    desk.enter();
    desk.sysex.slotSendPresetParameters(fader, 8000);
    const QByteArray bytes = desk.ports->sent.last().bytes;
    auto port = desk.ports->openOutput(QStringLiteral("bare"));
    for (auto _ : state) {
        port->sendMessageNow(juce::MidiMessage(bytes.constData(), static_cast<int>(bytes.size())));
        desk.ports->sent.clear();
    }
}

double processorSeconds() { return static_cast<double>(std::clock()) / CLOCKS_PER_SEC; }

// A whole live state, a millisecond between two messages; busy: the processor's share of the time.
void receiveLiveState(benchmark::State& state)
{
    Desk desk(12);
    desk.enter();
    const QStringList keys = presetdefaults::preset().keys();
    int shift = 0;
    double busy = 0.0;
    double total = 0.0;
    for (auto _ : state) {
        ++shift;
        QElapsedTimer clock;
        clock.start();
        const double before = processorSeconds();
        int sent = 0;
        for (const QString& key : keys) {
            if (key == QLatin1String("preset_name"))
                continue;
            const int value = presetdefaults::preset().value(key).toInt() + shift % 2;
            if (key.startsWith(QLatin1String("faderframe_")))
                emit desk.sysex.signalReceiveMainwindowPresetParams(key, value);
            else if (key.startsWith(QLatin1String("channelstrip_")))
                emit desk.sysex.signalReceiveChannelStripParams(key, value);
            else
                emit desk.sysex.signalReceiveReverbParams(key, value);
            QApplication::processEvents();
            ++sent;
            while (clock.elapsed() < sent)
                QThread::usleep(50);
        }
        busy += processorSeconds() - before;
        total += static_cast<double>(clock.nsecsElapsed()) / 1e9;
        if (sent != parameters || !desk.ports->sent.isEmpty())
            state.SkipWithError("a parameter is missing, or one was echoed");
    }
    state.counters["busy"] = busy / total;
}

void rebuildList(benchmark::State& state)
{
    Desk desk(static_cast<int>(state.range(0)));
    desk.enter();
    for (auto _ : state)
        desk.view->slotPopulatePresetMenu();
}

// Without the recall that follows: in demo mode the mixer sets no pace, and nothing is written.
struct DemoDesk : Desk {
    explicit DemoDesk(int presetCount)
        : Desk(presetCount)
    {
        presets.slotSetDemoModeEnabled(true);
        view->slotSetDemoModeEnabled(true);
        view->slotInitializeFullPowerMode();
    }
};

void recallInDemo(benchmark::State& state)
{
    DemoDesk desk(static_cast<int>(state.range(0)));
    int row = 1;
    for (auto _ : state) {
        row = 3 - row;
        desk.list->setCurrentRow(row);
    }
}

void renameInDemo(benchmark::State& state)
{
    DemoDesk desk(static_cast<int>(state.range(0)));
    desk.list->setCurrentRow(5);
    int number = 0;
    for (auto _ : state)
        desk.presets.slotRenamePreset(QStringLiteral("New %1").arg(++number));
}

void deleteInDemo(benchmark::State& state)
{
    DemoDesk desk(static_cast<int>(state.range(0)));
    for (auto _ : state) {
        desk.list->setCurrentRow(5);
        desk.presets.slotDeletePreset();
    }
}

void sendAll(benchmark::State& state)
{
    Desk desk(slotCount + 1);
    desk.enter();
    desk.view->setlistStore()->slotAutoPopulateSetlist(desk.list);
    constexpr double floor = ((slotCount + 1) * parameters * paceMs + slotCount * pauseMs) / 1e3;
    double total = 0.0;
    for (auto _ : state) {
        QElapsedTimer clock;
        clock.start();
        desk.view->slotSendAllPresets();
        total += static_cast<double>(clock.nsecsElapsed()) / 1e9;
    }
    state.counters["of floor"] = total / static_cast<double>(state.iterations()) / floor;
}

} // namespace

BENCHMARK(modeEntryAndExit)->Arg(12)->Arg(1000)->Unit(benchmark::kMillisecond);
BENCHMARK(sameBytesBare)->Unit(benchmark::kMicrosecond);
BENCHMARK(faderStepToTheByte)->Unit(benchmark::kMicrosecond);
BENCHMARK(receiveLiveState)->Unit(benchmark::kMillisecond)->Iterations(3);
BENCHMARK(rebuildList)->Arg(12)->Arg(1000)->Unit(benchmark::kMillisecond);
BENCHMARK(recallInDemo)->Arg(12)->Arg(1000)->Unit(benchmark::kMillisecond);
BENCHMARK(renameInDemo)->Arg(12)->Arg(1000)->Unit(benchmark::kMillisecond);
BENCHMARK(deleteInDemo)->Arg(1000)->Unit(benchmark::kMillisecond)->Iterations(20);
BENCHMARK(sendAll)->Unit(benchmark::kSecond)->Iterations(1);

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
}
