// What a dial on screen costs: a value change through to the painted ring, and one step of a drag,
// beside a QDial that draws nothing and one that draws itself.

#include "nowrapdial.h"

#include <QApplication>
#include <QMouseEvent>

#include <benchmark/benchmark.h>

namespace
{

// As large as a strip shows it.
constexpr int side = 56;

// The floor: all that a QDial does, but for its picture.
class EmptyDial : public QDial
{
public:
    using QDial::QDial;

protected:
    void paintEvent(QPaintEvent* /*event*/) override { }
};

// A value change repaints a NoWrapDial at once; the others are told to.
void paint(QDial& dial) { dial.repaint(); }
void paint(NoWrapDial&) { }

void look(QDial&, const benchmark::State&) { }
void look(NoWrapDial& dial, const benchmark::State& state)
{
    dial.slotSetDialThickness(5);
    dial.slotSetCenteredDial(state.range(0) != 0);
}

template <class Dial> void show(Dial& dial, const benchmark::State& state)
{
    look(dial, state);
    dial.setRange(8200, 11800);
    dial.resize(side, side);
    dial.show();
    QApplication::processEvents();
}

template <class Dial> void valueToScreen(benchmark::State& state)
{
    Dial dial;
    show(dial, state);
    int value = dial.minimum();
    for (auto _ : state) {
        value = value < dial.maximum() - 37 ? value + 37 : dial.minimum();
        dial.setValue(value);
        paint(dial);
    }
}

// Up and down over the whole travel, a pixel at a time.
template <class Dial> void dragStepToScreen(benchmark::State& state)
{
    Dial dial;
    show(dial, state);
    const auto send = [&dial](QEvent::Type type, int y, Qt::MouseButton button) {
        const QPointF place(side / 4.0, y);
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
        paint(dial);
    }
    send(QEvent::MouseButtonRelease, y, Qt::LeftButton);
}

} // namespace

// The argument is 1 for a centred dial.
BENCHMARK(valueToScreen<EmptyDial>);
BENCHMARK(valueToScreen<QDial>);
BENCHMARK(valueToScreen<NoWrapDial>)->Arg(0)->Arg(1);
BENCHMARK(dragStepToScreen<EmptyDial>);
BENCHMARK(dragStepToScreen<QDial>);
BENCHMARK(dragStepToScreen<NoWrapDial>)->Arg(0)->Arg(1);

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
}
