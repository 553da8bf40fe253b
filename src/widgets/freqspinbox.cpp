#include "freqspinbox.h"

#include "cuttoint.h"

#include <QKeyEvent>

#include <cmath>

FreqSpinBox::FreqSpinBox(QWidget* parent)
    : DragSpinBox(parent, QStringLiteral("padding: 0px"))
{
    // Whatever the limits are, kHz must fit in as well as Hz.
    setRange(0.0, 20000.0);
    connect(this, SIGNAL(signalTrueValue(double)), SLOT(slotSetTrueValue(double)));
}

double FreqSpinBox::bounded(double hz) const
{
    if (hz > highest)
        return highest;
    return hz >= lowest ? hz : lowest;
}

double FreqSpinBox::shownValue(double hz) const { return bounded(std::round(bounded(hz))); }

void FreqSpinBox::slotSetRange(double min, double max)
{
    lowest = min;
    highest = max;
}

void FreqSpinBox::slotSetFrequencyScaling(double hz)
{
    hz = bounded(hz);
    display(hz);
    emit signalTrueValue(hz);
}

void FreqSpinBox::display(double hz)
{
    // While it is edited the number stays in Hz: "5.00" would be read as 5 Hz on leaving.
    const bool inKiloHertz = hz >= 1000.0 && !editing;
    setDecimals(inKiloHertz ? 2 : 0);
    setValue(inKiloHertz ? hz / 1000.0 : hz);
    setSuffix(inKiloHertz ? QStringLiteral(" kHz") : QStringLiteral(" Hz"));
}

void FreqSpinBox::startDrag(QPoint /*place*/) { pressValue = exact; }

void FreqSpinBox::drag(int pixelsUp)
{
    // A step past a limit is dropped, so the number may stop short of the limit.
    const double hz = cutToInt(pressValue + pixelsUp);
    if (hz < lowest || hz > highest)
        return;
    display(hz);
    emit signalTrueValue(hz);
}

void FreqSpinBox::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Up && value() >= highest) {
        setValue(highest);
        event->accept();
    } else if (event->key() == Qt::Key_Down && value() <= lowest) {
        setValue(lowest);
        event->accept();
    } else {
        DragSpinBox::keyPressEvent(event);
    }
}

// The base class steps within 0 to 20000 Hz and may have gone past a limit.
void FreqSpinBox::keyReleaseEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Up && value() >= highest)
        setValue(highest);
    else if (event->key() == Qt::Key_Down && value() <= lowest)
        setValue(lowest);
    DragSpinBox::keyReleaseEvent(event);
}

void FreqSpinBox::focusInEvent(QFocusEvent* event)
{
    if (!isForOwnMenu(event)) {
        editing = true;
        display(exact);
    }
    DragSpinBox::focusInEvent(event);
}

void FreqSpinBox::focusOutEvent(QFocusEvent* event)
{
    if (!isForOwnMenu(event)) {
        editing = false;
        slotSetFrequencyScaling(value());
    }
    DragSpinBox::focusOutEvent(event);
}
