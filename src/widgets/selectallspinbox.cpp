#include "selectallspinbox.h"

#include <QKeyEvent>
#include <QLineEdit>

#include <algorithm>

SelectAllSpinbox::SelectAllSpinbox(QWidget* parent)
    : DragSpinBox(parent, {})
{
}

QValidator::State SelectAllSpinbox::validate(QString& text, int& position) const
{
    const QValidator::State state = DragSpinBox::validate(text, position);
    const auto point = text.indexOf(QLatin1Char('.'));
    if (point < 0)
        return state;
    const QString rest = text.mid(point + 1);
    if (!rest.isEmpty() && rest != suffix())
        return QValidator::Invalid;
    QString whole = text;
    whole.remove(point, 1);
    int place = position;
    return DragSpinBox::validate(whole, place);
}

int SelectAllSpinbox::valueFromText(const QString& text) const
{
    QString whole = text;
    return DragSpinBox::valueFromText(whole.remove(QLatin1Char('.')));
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
