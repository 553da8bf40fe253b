#include "selectallspinbox.h"

#include <QKeyEvent>
#include <QLineEdit>

#include <algorithm>

SelectAllSpinbox::SelectAllSpinbox(QWidget* parent)
    : DragSpinBox(parent, {})
{
}

void SelectAllSpinbox::startDrag(QPoint /*place*/) { pressValue = value(); }

void SelectAllSpinbox::drag(int pixelsUp)
{
    edit->setCursorPosition(0);
    const qint64 next = qint64{pressValue} + pixelsUp;
    setValue(static_cast<int>(std::clamp<qint64>(next, minimum(), maximum())));
    emit signalSetDial(value());
}

void SelectAllSpinbox::keyPressEvent(QKeyEvent* event)
{
    // The word can't be typed, only its first letter.
    if (event->key() == Qt::Key_O && specialValueText() == QStringLiteral("off")) {
        setValue(-1);
        selectAll();
        event->accept();
        return;
    }
    DragSpinBox::keyPressEvent(event);
}

void SelectAllSpinbox::focusOutEvent(QFocusEvent* event)
{
    DragSpinBox::focusOutEvent(event);
    if (!isForOwnMenu(event))
        emit signalSetDial(value());
}
