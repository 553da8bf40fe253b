#pragma once

#include "controlrow.h"

#include <QList>

class QWidget;

// The faders of all channels with their buttons, laid on the host at its size: the inputs left, the
// outputs in a frame of their own right of them.
struct FaderFrameForm {
    explicit FaderFrameForm(QWidget* host);

    static const QList<ControlRow>& controlRows();
    static const QList<ButtonRow>& buttonRows();
};
