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
