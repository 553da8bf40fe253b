// What the preset library costs as it grows to the format's limit, beside the floor of each figure.

#include "exchange.h"
#include "importexporthandler.h"
#include "jsonfile.h"
#include "librarytext.h"
#include "presetdefaults.h"
#include "presetinterface.h"

#include <QApplication>
#include <QDir>
#include <QJsonDocument>
#include <QTemporaryDir>
#include <QWidget>

#include <benchmark/benchmark.h>

#include <memory>

namespace
{

constexpr int mostPresets = PresetInterface::maxPresets;
// Near the end of a preset, so that the check walks nearly all of it.
const QString parameter = QStringLiteral("reverbtab_level");

QVariantMap libraryOf(int presets)
{
    QVariantMap library;
    for (int number = 0; number < presets; ++number) {
        QVariantMap preset = presetdefaults::preset();
        preset.insert(QStringLiteral("preset_name"),
                      number == 0 ? QStringLiteral("[CONNECTION SYNC]")
                                  : QStringLiteral("Preset %1").arg(number));
        preset.insert(parameter, 9000 + number);
        library.insert(QStringLiteral("Preset_%1").arg(number, 3, 10, QLatin1Char('0')), preset);
    }
    return library;
}

// A store whose file is in a folder of its own.
struct Store {
    explicit Store(int presets)
    {
        QDir(folder.path()).mkdir(QStringLiteral("presets"));
        bytes = QJsonDocument::fromVariant(libraryOf(presets)).toJson();
        JsonFile(folder.filePath(QStringLiteral("presets/jsum.json"))).write(bytes);
        interface.resourcesFolder = folder.path() + QLatin1Char('/');
        interface.useResourcesFolder = true;
        interface.slotUpdateJSONPath();
        interface.slotReadJSON();
        interface.slotRecallPreset(presets / 2);
    }

    QTemporaryDir folder;
    QByteArray bytes;
    PresetInterface interface;
};

void storeAndCheck(benchmark::State& state)
{
    Store store(static_cast<int>(state.range(0)));
    int value = 0;
    for (auto _ : state) {
        store.interface.slotStoreValue(parameter, ++value, -1);
        store.interface.slotCheckSaveState(-1);
    }
}
BENCHMARK(storeAndCheck)->ArgName("presets")->Arg(1)->Arg(100)->Arg(mostPresets);

void lookUpByName(benchmark::State& state)
{
    const auto presets = static_cast<int>(state.range(0));
    Store store(presets);
    const QString name = QStringLiteral("Preset %1").arg(presets - 1);
    for (auto _ : state)
        benchmark::DoNotOptimize(store.interface.slotGetPresetStringFromName(name));
}
BENCHMARK(lookUpByName)->ArgName("presets")->Arg(1)->Arg(100)->Arg(mostPresets);

void parseVariantAndMap(benchmark::State& state)
{
    const Store store(mostPresets);
    for (auto _ : state) {
        const QVariantMap map = QJsonDocument::fromJson(store.bytes).toVariant().toMap();
        benchmark::DoNotOptimize(map);
    }
}
BENCHMARK(parseVariantAndMap)->Unit(benchmark::kMillisecond);

void load(benchmark::State& state)
{
    const Store store(mostPresets);
    for (auto _ : state) {
        PresetInterface interface;
        interface.resourcesFolder = store.interface.resourcesFolder;
        interface.useResourcesFolder = true;
        interface.slotUpdateJSONPath();
        interface.slotReadJSON();
        benchmark::DoNotOptimize(interface.isFull());
    }
}
BENCHMARK(load)->Unit(benchmark::kMillisecond);

void fullText(benchmark::State& state)
{
    const QVariantMap library = libraryOf(mostPresets);
    for (auto _ : state)
        benchmark::DoNotOptimize(QJsonDocument::fromVariant(library).toJson());
}
BENCHMARK(fullText)->Unit(benchmark::kMillisecond);

void textOfOneChangedPreset(benchmark::State& state)
{
    QVariantMap library = libraryOf(mostPresets);
    const QString key = QStringLiteral("Preset_500");
    LibraryText text;
    text.textOf(library);
    int value = 0;
    for (auto _ : state) {
        QVariantMap preset = library.value(key).toMap();
        preset.insert(parameter, ++value);
        library.insert(key, preset);
        benchmark::DoNotOptimize(text.textOf(library));
    }
}
BENCHMARK(textOfOneChangedPreset)->Unit(benchmark::kMillisecond);

// With the kept copy, both flushed to disk.
void saveOneChangedPreset(benchmark::State& state)
{
    Store store(mostPresets);
    int value = 0;
    for (auto _ : state) {
        store.interface.slotStoreValue(parameter, ++value, -1);
        store.interface.slotSavePreset(-1);
    }
}
BENCHMARK(saveOneChangedPreset)->Unit(benchmark::kMillisecond)->UseRealTime();

// Files for all but a hundred presets, each with another name and other values: read, named and
// written once, beside the save above.
constexpr int importedFiles = mostPresets - 100;

void importOfMany(benchmark::State& state)
{
    const QTemporaryDir folder;
    const QVariantMap library = libraryOf(importedFiles + 1);
    QStringList paths;
    for (const QVariant& preset : library) {
        const QVariantMap map = preset.toMap();
        const QString name = map.value(QStringLiteral("preset_name")).toString();
        paths.append(folder.filePath(name + QStringLiteral(".jsumpreset")));
        if (!exchange::writeFile(paths.last(), exchange::textOf(map)).isEmpty())
            state.SkipWithError("no file");
    }
    paths.removeFirst(); // the mixer's
    for (auto _ : state) {
        state.PauseTiming();
        auto store = std::make_unique<Store>(mostPresets - importedFiles);
        auto window = std::make_unique<QWidget>();
        auto* handler = new ImportExportHandler(&store->interface, window.get());
        state.ResumeTiming();
        handler->importFiles(paths);
        state.PauseTiming();
        if (store->interface.presetCount() != mostPresets)
            state.SkipWithError("not all came in");
        window.reset();
        store.reset();
        state.ResumeTiming();
    }
}
BENCHMARK(importOfMany)->Unit(benchmark::kMillisecond)->UseRealTime();

void exportOfAll(benchmark::State& state)
{
    const QTemporaryDir folder;
    Store store(mostPresets);
    for (auto _ : state) {
        for (int number = 1; number < mostPresets; ++number)
            exchange::writeFile(folder.filePath(QString::number(number)),
                                exchange::textOf(store.interface.presetToExport(number)));
    }
}
BENCHMARK(exportOfAll)->Unit(benchmark::kMillisecond)->UseRealTime();

constexpr int parameters = 329;

void bareWaits(benchmark::State& state)
{
    for (auto _ : state) {
        for (int i = 0; i < parameters; ++i) {
            QTimer timer;
            timer.start(2);
            while (timer.remainingTime() >= 1) { }
        }
    }
}
BENCHMARK(bareWaits)->Unit(benchmark::kMillisecond)->UseRealTime();

void recall(benchmark::State& state)
{
    Store store(mostPresets);
    store.interface.slotSetSyncStatus(true);
    for (auto _ : state)
        store.interface.slotRecallPreset(7);
}
BENCHMARK(recall)->Unit(benchmark::kMillisecond)->UseRealTime();

} // namespace

int main(int argc, char* argv[])
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
