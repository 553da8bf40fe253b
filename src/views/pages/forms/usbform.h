#pragma once

#include "controlrow.h"

#include <QList>

class QWidget;

// The form of the USB page, as large as an input channel's: the way of each channel's signal, from
// its input at the top to the mix, with its switches below.
struct UsbForm {
    UsbForm(QWidget* host, const QString& spokenPage);

    // Of each channel the send's and the return's.
    static const QList<ButtonRow>& buttonRows();
};
