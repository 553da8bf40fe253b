#include "selectalldoublespinbox.h"

#include <QLineEdit>

#include <algorithm>

SelectAllDoubleSpinbox::SelectAllDoubleSpinbox(QWidget* parent)
    : DragSpinBox(parent, {})
{
}

double SelectAllDoubleSpinbox::shownValue(double number) const
{
    const double bounded = std::clamp(number, minimum(), maximum());
    return QString::number(bounded, 'f', decimals()).toDouble();
}

double SelectAllDoubleSpinbox::slotGetScrollDivisorFromCursorPos(int cursorPos)
{
    qint64 length = text().size() - suffix().size();
    qint64 position = std::min<qint64>(cursorPos, length);
    if (value() < 0.0) {
        // The sign does not count.
        position = std::max<qint64>(position - 1, 0);
        --length;
    }
    // A unit is reached from either side of its digit, and all further left go at one speed.
    const qint64 point = length - decimals() - 1;
    if (decimals() < 1 || position <= point)
        return point - position > 1 ? 0.1 : 1.0;
    return position - point > 2 ? 100.0 : 10.0;
}

void SelectAllDoubleSpinbox::startDrag(QPoint place)
{
    pressValue = value();
    scrollDivisor = slotGetScrollDivisorFromCursorPos(edit->cursorPositionAt(place));
}

void SelectAllDoubleSpinbox::drag(int pixelsUp)
{
    edit->setCursorPosition(0);
    setValue(pressValue + pixelsUp / scrollDivisor);
    emit signalSetDial(value());
}

void SelectAllDoubleSpinbox::focusOutEvent(QFocusEvent* event)
{
    DragSpinBox::focusOutEvent(event);
    if (!isForOwnMenu(event))
        emit signalSetDial(value());
}
