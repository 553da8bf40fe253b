#pragma once

#include "controlrow.h"

#include <QList>

class QWidget;

// The levels of the low-power face, laid on the host at its size: the inputs left, each with the
// gains of its equaliser over mute and fader, and right of them the outputs with long faders.
struct LowPowerAudioForm {
    explicit LowPowerAudioForm(QWidget* host);

    static const QList<ControlRow>& controlRows();
    static const QList<ButtonRow>& buttonRows();
};
