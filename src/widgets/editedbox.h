#pragma once

#include <QAbstractSpinBox>
#include <QApplication>

// A number that is being typed belongs to what is current now: ends the typing, and it counts. To
// be called before something else becomes current; a press of a button takes no focus by itself.
inline void commitEditedBox()
{
    if (auto* box = qobject_cast<QAbstractSpinBox*>(QApplication::focusWidget()); box != nullptr)
        box->clearFocus();
}

// Whether a press on empty ground leaves the widget the focus: it does for what is turned by the
// keys, by its name a rotary, but for none of its number boxes.
inline bool keepsFocusOnGround(const QWidget* widget)
{
    return widget->objectName().contains(QLatin1String("rotary"))
        && qobject_cast<const QAbstractSpinBox*>(widget) == nullptr;
}
