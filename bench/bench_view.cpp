// What the full-power view costs: a mode entry and exit, a fader's drag step to the byte at the
// port, the mixer's whole live state at its pace, the list at the library's limit, and a setlist
// sent. Each beside its floor.

#include "fakeports.h"
#include "fullpowerview.h"
#include "globalpresetinterface.h"
#include "jsonfile.h"
#include "portableslider.h"
#include "presetdefaults.h"
#include "presetinterface.h"
#include "setlist.h"
#include "sysexmanager.h"

#include <QAbstractButton>
#include <QApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QJsonDocument>
#include <QLineEdit>
#include <QListWidget>
#include <QMouseEvent>
#include <QSettings>
#include <QTemporaryDir>
#include <QThread>
#include <QTimer>

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
        JsonFile(QStringLiteral("resources/presets/jsum.json"))
            .write(QJsonDocument::fromVariant(libraryOf(presetCount)).toJson());
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

// The messages of a whole preset, each value raised by shift, as the mixer sends them.
QList<MidiMessage> messagesOf(Desk& desk, int shift)
{
    desk.ports->sent.clear();
    for (const auto& [key, value] : presetdefaults::preset().asKeyValueRange())
        if (presetdefaults::isPresetParameter(key))
            desk.sysex.slotSendPresetParameters(key, value.toInt() + shift);
    QList<MidiMessage> messages;
    for (const QByteArray& bytes : desk.ports->sentBytes())
        messages.append(MidiMessage(bytes.constData(), static_cast<int>(bytes.size())));
    desk.ports->sent.clear();
    return messages;
}

// Calls for each parameter of a live state, a millisecond between two; busy: the processor's share
// of the time.
template <class Action> void paced(benchmark::State& state, Action action)
{
    double busy = 0.0;
    double total = 0.0;
    for (auto _ : state) {
        QElapsedTimer clock;
        clock.start();
        const double before = processorSeconds();
        for (int number = 0; number < parameters; ++number) {
            action(number);
            const qint64 early = (number + 1) * 1'000'000LL - clock.nsecsElapsed();
            if (early > 0)
                QThread::usleep(static_cast<unsigned long>(early / 1000));
        }
        busy += processorSeconds() - before;
        total += static_cast<double>(clock.nsecsElapsed()) / 1e9;
    }
    state.counters["busy"] = busy / total;
}

void paceAlone(benchmark::State& state)
{
    Desk desk(12);
    desk.enter();
    paced(state, [](int) { QApplication::processEvents(); });
}

void receiveLiveState(benchmark::State& state)
{
    Desk desk(12);
    desk.enter();
    const QList<MidiMessage> states[]{messagesOf(desk, 0), messagesOf(desk, 1)};
    qsizetype turn = 0;
    paced(state, [&](int number) {
        if (number == 0)
            turn = 1 - turn;
        desk.sysex.slotReceiveMidiInput(QStringLiteral("J-Sum Audio Control"),
                                        states[turn].at(number));
        QApplication::processEvents();
    });
    const QVariantMap arrived = desk.presets.workingPreset(0);
    for (const auto& [key, value] : presetdefaults::preset().asKeyValueRange()) {
        // A button takes any value as on.
        const int sent = value.toInt() + static_cast<int>(turn);
        if (presetdefaults::isPresetParameter(key) && arrived.value(key).toInt() != qMin(sent, 1)
            && arrived.value(key).toInt() != sent)
            state.SkipWithError("a parameter has not arrived");
    }
    if (states[0].size() != parameters || !desk.ports->sent.isEmpty())
        state.SkipWithError("a message is missing, or one was echoed");
}

void bareList(benchmark::State& state)
{
    QListWidget list;
    list.show();
    QStringList names;
    for (int number = 0; number < state.range(0); ++number)
        names.append(QStringLiteral("Preset %1").arg(number));
    for (auto _ : state) {
        list.clear();
        list.addItems(names);
    }
}

void rebuildList(benchmark::State& state)
{
    Desk desk(static_cast<int>(state.range(0)));
    desk.enter();
    for (auto _ : state)
        desk.view->slotPopulatePresetMenu();
}

// In demo mode the mixer sets no pace, and nothing is written. What is renamed is recalled, and so
// is the first preset after a deletion.
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
    auto* dialog = desk.view->findChild<QWidget*>(QStringLiteral("renameDialogForm"));
    int number = 0;
    for (auto _ : state) {
        desk.view->slotCheckToAllowRename(desk.list->item(5));
        dialog->findChild<QLineEdit*>(QStringLiteral("name"))
            ->setText(QStringLiteral("New %1").arg(++number));
        dialog->findChild<QAbstractButton*>(QStringLiteral("rename"))->click();
    }
    if (desk.list->item(5)->text() != QStringLiteral("New %1").arg(number))
        state.SkipWithError("nothing was renamed");
}

void deleteInDemo(benchmark::State& state)
{
    DemoDesk desk(static_cast<int>(state.range(0)));
    auto* sure = desk.view->findChild<QAbstractButton*>(QStringLiteral("delete_2"));
    const int before = desk.list->count();
    for (auto _ : state) {
        state.PauseTiming();
        desk.list->setCurrentRow(5);
        state.ResumeTiming();
        desk.view->slotDeletePreset();
        sure->click();
    }
    if (desk.list->count() != before - static_cast<int>(state.iterations()))
        state.SkipWithError("nothing was deleted");
}

// The waits of a setlist sent: one behind each parameter, and one behind each slot.
void bareWaits(benchmark::State& state)
{
    const auto wait = [](int ms) {
        QTimer timer;
        timer.start(ms);
        while (timer.remainingTime() >= 1) { }
    };
    for (auto _ : state) {
        for (int sent = 0; sent < (slotCount + 1) * parameters; ++sent)
            wait(paceMs);
        for (int slot = 0; slot < slotCount; ++slot)
            wait(pauseMs);
    }
}

void sendAll(benchmark::State& state)
{
    Desk desk(slotCount + 1);
    desk.enter();
    desk.view->setlistStore()->slotAutoPopulateSetlist(desk.list);
    for (auto _ : state)
        desk.view->slotSendAllPresets();
    if (desk.ports->sent.size() < (slotCount + 1) * parameters + slotCount)
        state.SkipWithError("not all was sent");
}

} // namespace

BENCHMARK(modeEntryAndExit)->Arg(12)->Arg(1000)->Unit(benchmark::kMillisecond);
BENCHMARK(sameBytesBare)->Unit(benchmark::kMicrosecond);
BENCHMARK(faderStepToTheByte)->Unit(benchmark::kMicrosecond);
BENCHMARK(paceAlone)->Unit(benchmark::kMillisecond)->Iterations(5)->UseRealTime();
BENCHMARK(receiveLiveState)->Unit(benchmark::kMillisecond)->Iterations(5)->UseRealTime();
BENCHMARK(bareList)->Arg(12)->Arg(1000)->Unit(benchmark::kMillisecond);
BENCHMARK(rebuildList)->Arg(12)->Arg(1000)->Unit(benchmark::kMillisecond);
BENCHMARK(recallInDemo)->Arg(12)->Arg(1000)->Unit(benchmark::kMillisecond);
BENCHMARK(renameInDemo)->Arg(12)->Arg(1000)->Unit(benchmark::kMillisecond);
BENCHMARK(deleteInDemo)->Arg(1000)->Unit(benchmark::kMillisecond)->Iterations(20);
BENCHMARK(bareWaits)->Unit(benchmark::kSecond)->Iterations(1)->UseRealTime();
BENCHMARK(sendAll)->Unit(benchmark::kSecond)->Iterations(1)->UseRealTime();

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
}
