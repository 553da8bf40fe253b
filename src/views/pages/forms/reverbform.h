#pragma once

#include "controlrow.h"

#include <QList>

class QWidget;

// The form of the reverb page, as large as an input channel's.
struct ReverbForm {
    // A press on their free room takes the focus from a number.
    QList<QWidget*> focusAreas{};

    ReverbForm(QWidget* host, const QString& spokenPage);

    static QString levelName() { return QStringLiteral("reverbtab_level"); }
    static const QList<ControlRow>& controlRows();
    static const QList<ButtonRow>& buttonRows();
};
