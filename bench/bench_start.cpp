// The start: from nothing to the painted splash beside an empty window of Qt's, the time until the
// program can be used, and the first mode entry, which shows what nobody has seen yet. Run it where
// there is a display, or with QT_QPA_PLATFORM=offscreen, in the runnable folder: there are the
// tables and styles.

#include "jsonfile.h"
#include "presetdefaults.h"
#include "viewmanager.h"

#include <QApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QEvent>
#include <QJsonDocument>
#include <QPushButton>
#include <QTemporaryDir>

#include <juce_events/juce_events.h>

#include <benchmark/benchmark.h>

namespace
{

// When any widget was painted first.
class FirstPaint : public QObject
{
public:
    FirstPaint() { qApp->installEventFilter(this); }
    double seconds() const { return static_cast<double>(nanoseconds) / 1e9; }
    bool isSeen() const { return nanoseconds > 0; }

    bool eventFilter(QObject* /*watched*/, QEvent* event) override
    {
        if (event->type() == QEvent::Paint && nanoseconds == 0)
            nanoseconds = clock.nsecsElapsed();
        return false;
    }

private:
    const QElapsedTimer clock = [] {
        QElapsedTimer started;
        started.start();
        return started;
    }();
    qint64 nanoseconds = 0;
};

void emptyWindow(benchmark::State& state)
{
    for (auto _ : state) {
        const FirstPaint paint;
        QWidget window;
        window.setGeometry(200, 50, 400, 495);
        window.show();
        while (!paint.isSeen())
            QCoreApplication::processEvents();
        state.SetIterationTime(paint.seconds());
    }
}

void splash(benchmark::State& state)
{
    for (auto _ : state) {
        const FirstPaint paint;
        ViewManager window;
        window.show();
        while (!paint.isSeen())
            QCoreApplication::processEvents();
        state.SetIterationTime(paint.seconds());
    }
}

void toTheEventLoop(benchmark::State& state)
{
    for (auto _ : state) {
        QElapsedTimer clock;
        clock.start();
        ViewManager window;
        window.show();
        QCoreApplication::processEvents();
        state.SetIterationTime(static_cast<double>(clock.nsecsElapsed()) / 1e9);
    }
}

// The demo's, to the painted face.
void firstModeEntry(benchmark::State& state)
{
    for (auto _ : state) {
        ViewManager window;
        window.show();
        window.slotEnterDemoMode();
        auto* ok = window.findChild<QWidget*>(QStringLiteral("demoDialogForm"))
                       ->findChild<QPushButton*>(QStringLiteral("ok"));
        QCoreApplication::processEvents();
        QElapsedTimer clock;
        clock.start();
        ok->click();
        QCoreApplication::processEvents();
        state.SetIterationTime(static_cast<double>(clock.nsecsElapsed()) / 1e9);
        window.slotExitDemoMode();
    }
}

// A library of so many presets, as after each change of a name.
void exportSubmenu(benchmark::State& state)
{
    const QString before = QDir::currentPath();
    const QTemporaryDir folder;
    QFile::link(QDir(QStringLiteral("resources/tables")).absolutePath(), folder.filePath("tables"));
    QDir(folder.path()).mkpath(QStringLiteral("resources/presets"));
    QFile::rename(folder.filePath("tables"), folder.filePath("resources/tables"));
    QVariantMap library;
    for (int number = 0; number < state.range(0); ++number) {
        QVariantMap preset = presetdefaults::preset();
        preset.insert(QStringLiteral("preset_name"), QStringLiteral("Preset %1").arg(number));
        library.insert(QStringLiteral("Preset_%1").arg(number, 3, 10, QLatin1Char('0')), preset);
    }
    QDir::setCurrent(folder.path());
    JsonFile(QStringLiteral("resources/presets/jsum.json"))
        .write(QJsonDocument::fromVariant(library).toJson());
    {
        ViewManager window;
        for (auto _ : state)
            window.slotUpdateExportPresetActions();
    }
    QDir::setCurrent(before);
}

} // namespace

BENCHMARK(emptyWindow)->Unit(benchmark::kMillisecond)->UseManualTime()->Iterations(10);
BENCHMARK(splash)->Unit(benchmark::kMillisecond)->UseManualTime()->Iterations(5);
BENCHMARK(toTheEventLoop)->Unit(benchmark::kMillisecond)->UseManualTime()->Iterations(5);
BENCHMARK(firstModeEntry)->Unit(benchmark::kMillisecond)->UseManualTime()->Iterations(5);

BENCHMARK(exportSubmenu)->Arg(12)->Arg(1000)->Unit(benchmark::kMillisecond);

int main(int argc, char** argv)
{
    const juce::ScopedJuceInitialiser_GUI juce;
    QApplication application(argc, argv);
    const QTemporaryDir settings;
    qputenv("XDG_CONFIG_HOME", settings.path().toLocal8Bit());
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
