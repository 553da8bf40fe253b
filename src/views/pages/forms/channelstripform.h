#pragma once

#include "controlrow.h"

#include <QList>

class QFrame;
class QToolButton;
class QWidget;

// The form of an input channel, 912 by 371 pixels.
struct ChannelStripForm {
    QFrame* routing = nullptr;
    QToolButton* phantom = nullptr;
    // A press on the free room of these takes the focus from a number.
    QList<QWidget*> focusAreas{};

    // channel: from 1.
    ChannelStripForm(QWidget* host, const QString& spokenPage, int channel, int firstOfPair);

    static QList<ControlRow> controlRows(int channel);
    static const QList<ButtonRow>& buttonRows();
};
