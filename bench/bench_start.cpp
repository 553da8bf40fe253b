// The start: from nothing to the painted splash beside an empty window of Qt's, the time until the
// program can be used, and the first mode entry, which shows what nobody has seen yet. Run it where
// there is a display, or with QT_QPA_PLATFORM=offscreen, in the runnable folder: there are the
// tables and styles.

#include "viewmanager.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QEvent>
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

} // namespace

BENCHMARK(emptyWindow)->Unit(benchmark::kMillisecond)->UseManualTime()->Iterations(10);
BENCHMARK(splash)->Unit(benchmark::kMillisecond)->UseManualTime()->Iterations(5);
BENCHMARK(toTheEventLoop)->Unit(benchmark::kMillisecond)->UseManualTime()->Iterations(5);
BENCHMARK(firstModeEntry)->Unit(benchmark::kMillisecond)->UseManualTime()->Iterations(5);

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
