// What the mixing pages cost, each figure beside empty QDials doing the same: making all pages, a
// whole preset's recall, one parameter from the mixer to the painted dial, one step of a drag.

#include "auxstrip.h"
#include "channelstrip.h"
#include "channelstriptab.h"
#include "jsonfile.h"
#include "mainsstrip.h"
#include "nowrapdial.h"
#include "phonesstrip.h"
#include "presetdefaults.h"
#include "presetinterface.h"

#include <QApplication>
#include <QDir>
#include <QJsonDocument>
#include <QMouseEvent>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>

#include <memory>
#include <vector>

namespace
{

// The controls of all pages, dials and buttons.
constexpr int allControls = 8 * 35 + 3 * 24 + 20 + 1;
const QString dialName = QStringLiteral("eq_hi_gain");
const QString key = QStringLiteral("channelstrip_ch3_eq_hi_gain");

// The floor: all that a QDial does, but for its picture.
class EmptyDial : public QDial
{
public:
    explicit EmptyDial(QWidget* parent = nullptr)
        : QDial(parent)
    {
        setRange(8200, 11800);
    }

protected:
    void paintEvent(QPaintEvent* /*event*/) override { }
};

struct EmptyDials {
    EmptyDials()
    {
        for (int count = 0; count < allControls; ++count)
            dials.push_back(new EmptyDial(&window));
    }

    QWidget window;
    std::vector<EmptyDial*> dials;
};

// On screen with channel 3, its wires connected as in use.
struct Pages {
    Pages()
    {
        for (ChannelStrip* strip : tab.channelStrips()) {
            strip->slotConnectElements();
            strip->slotConnectToSysexSending();
        }
        tab.slotSelectChannelStrip(3);
        tab.show();
        QApplication::processEvents();
        dial = tab.channelStrips().at(2)->findChild<NoWrapDial*>(dialName);
    }

    ChannelStripTab tab;
    NoWrapDial* dial = nullptr;
};

int nextValue(int value) { return value < 11700 ? value + 37 : 8200; }

void makeEmptyDials(benchmark::State& state)
{
    for (auto _ : state) {
        EmptyDials dials;
        benchmark::DoNotOptimize(dials.dials.data());
    }
}

void makePages(benchmark::State& state)
{
    for (auto _ : state) {
        ChannelStripTab tab;
        benchmark::DoNotOptimize(&tab);
    }
}

void makeAndShowPages(benchmark::State& state)
{
    for (auto _ : state) {
        Pages pages;
        benchmark::DoNotOptimize(pages.dial);
    }
}

void recallIntoEmptyDials(benchmark::State& state)
{
    EmptyDials dials;
    dials.window.show();
    QApplication::processEvents();
    int value = 8200;
    for (auto _ : state) {
        value = nextValue(value);
        for (EmptyDial* dial : dials.dials)
            dial->setValue(value);
        QApplication::processEvents();
    }
}

// Every value differs from the one before.
QVariantMap shifted(QVariantMap preset, int by)
{
    for (auto value = preset.begin(); value != preset.end(); ++value)
        if (value.key().startsWith(QLatin1String("channelstrip_")))
            *value = value->toInt() + by;
    return preset;
}

void recallPreset(benchmark::State& state)
{
    Pages pages;
    const QVariantMap one = shifted(presetdefaults::preset(), 1);
    const QVariantMap other = shifted(presetdefaults::preset(), 7);
    bool turn = false;
    for (auto _ : state) {
        turn = !turn;
        const QVariantMap& preset = turn ? one : other;
        for (ChannelStrip* strip : pages.tab.channelStrips())
            strip->slotRecallPreset(preset);
        pages.tab.mainsStrip()->slotRecallPreset(preset);
        pages.tab.phonesStrip()->slotRecallPreset(preset);
    }
}

void setEmptyDial(benchmark::State& state)
{
    EmptyDial dial;
    dial.resize(57, 57);
    dial.show();
    QApplication::processEvents();
    int value = 8200;
    for (auto _ : state) {
        value = nextValue(value);
        dial.setValue(value);
        dial.repaint();
    }
}

// As in use: all eight strips hear it.
void receiveParameter(benchmark::State& state)
{
    Pages pages;
    int value = 8200;
    for (auto _ : state) {
        value = nextValue(value);
        for (ChannelStrip* strip : pages.tab.channelStrips())
            strip->slotReceiveChannelStripParams(key, value);
    }
}

// The library, with its one preset current and on disk.
struct Store {
    Store()
    {
        QVariantMap preset = presetdefaults::preset();
        preset.insert(QStringLiteral("preset_name"), QStringLiteral("[CONNECTION SYNC]"));
        const QVariantMap library{{QStringLiteral("Preset_000"), preset}};
        QDir(folder.path()).mkdir(QStringLiteral("presets"));
        JsonFile(folder.filePath(QStringLiteral("presets/jsum.json")))
            .write(QJsonDocument::fromVariant(library).toJson());
        presets.resourcesFolder = folder.path() + QLatin1Char('/');
        presets.useResourcesFolder = true;
        presets.slotUpdateJSONPath();
        presets.slotReadJSON();
        presets.slotSetCurrentPreset(0);
    }

    QTemporaryDir folder;
    PresetInterface presets;
};

// To the control, its box, the store and the comparison with the saved preset, on a page that
// nobody sees: all but the painting.
void receiveUnseenAndStore(benchmark::State& state)
{
    Store store;
    Pages pages;
    for (ChannelStrip* strip : pages.tab.channelStrips()) {
        QObject::connect(strip, SIGNAL(signalStoreValue(QString, QVariant, int)), &store.presets,
                         SLOT(slotStoreValue(QString, QVariant, int)));
        QObject::connect(strip, SIGNAL(signalCheckSavedState(int)), &store.presets,
                         SLOT(slotCheckSaveState(int)));
    }
    pages.tab.slotSelectChannelStrip(4);
    int value = 8200;
    for (auto _ : state) {
        value = nextValue(value);
        for (ChannelStrip* strip : pages.tab.channelStrips())
            strip->slotReceiveChannelStripParams(key, value);
    }
    if (store.presets.workingPreset(0).value(key) != value)
        state.SkipWithError("nothing was stored");
}

// Every step leaves or meets the middle, where the reset button changes its picture.
void crossTheMiddle(benchmark::State& state, int channel)
{
    Pages pages;
    auto* dial = pages.tab.channelStrips().at(channel - 1)->findChild<NoWrapDial*>(dialName);
    int value = 10000;
    for (auto _ : state) {
        value = 20001 - value;
        dial->setValue(value);
    }
}

void crossTheMiddleSeen(benchmark::State& state) { crossTheMiddle(state, 3); }
void crossTheMiddleUnseen(benchmark::State& state) { crossTheMiddle(state, 4); }

// What cutting and restoring the send wires of the seven others would cost on top.
void cutAndRestoreSevenStrips(benchmark::State& state)
{
    Pages pages;
    for (auto _ : state) {
        for (ChannelStrip* strip : pages.tab.channelStrips().first(7)) {
            strip->slotDisconnectToSysexSending();
            strip->slotConnectToSysexSending();
        }
    }
}

template <class Dial> void drag(benchmark::State& state, Dial& dial)
{
    const auto send = [&dial](QEvent::Type type, int y, Qt::MouseButton button) {
        const QPointF place(14, y);
        QMouseEvent event(type, place, dial.mapToGlobal(place), button, Qt::LeftButton,
                          Qt::NoModifier);
        QApplication::sendEvent(&dial, &event);
    };
    send(QEvent::MouseButtonPress, 0, Qt::LeftButton);
    int y = 0;
    int step = 1;
    for (auto _ : state) {
        y += step;
        if (y == -100 || y == 100)
            step = -step;
        send(QEvent::MouseMove, y, Qt::NoButton);
    }
    send(QEvent::MouseButtonRelease, y, Qt::LeftButton);
}

void dragEmptyDial(benchmark::State& state)
{
    EmptyDial dial;
    dial.resize(57, 57);
    dial.show();
    QApplication::processEvents();
    drag(state, dial);
}

void dragOnStrip(benchmark::State& state)
{
    Pages pages;
    drag(state, *pages.dial);
}

} // namespace

BENCHMARK(makeEmptyDials)->Unit(benchmark::kMillisecond);
BENCHMARK(makePages)->Unit(benchmark::kMillisecond);
BENCHMARK(makeAndShowPages)->Unit(benchmark::kMillisecond);
BENCHMARK(recallIntoEmptyDials)->Unit(benchmark::kMicrosecond);
BENCHMARK(recallPreset)->Unit(benchmark::kMicrosecond);
BENCHMARK(setEmptyDial)->Unit(benchmark::kMicrosecond);
BENCHMARK(receiveParameter)->Unit(benchmark::kMicrosecond);
BENCHMARK(receiveUnseenAndStore)->Unit(benchmark::kMicrosecond);
BENCHMARK(crossTheMiddleSeen)->Unit(benchmark::kMicrosecond);
BENCHMARK(crossTheMiddleUnseen)->Unit(benchmark::kMicrosecond);
BENCHMARK(cutAndRestoreSevenStrips)->Unit(benchmark::kMicrosecond);
BENCHMARK(dragEmptyDial)->Unit(benchmark::kMicrosecond);
BENCHMARK(dragOnStrip)->Unit(benchmark::kMicrosecond);

// Run it in the folder that holds "resources".
int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
}
