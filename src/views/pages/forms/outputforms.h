#pragma once

#include "controlrow.h"

#include <QList>

class QWidget;

// The forms of the pages that stand beside the input channels', of the same size. focusAreas: a
// press on their free room takes the focus from a number.

struct AuxStripForm {
    QList<QWidget*> focusAreas{};

    // aux: from 1.
    AuxStripForm(QWidget* host, const QString& spokenPage, int aux);

    static const QList<ControlRow>& controlRows();
    static const QList<ButtonRow>& buttonRows();
};

struct MainsStripForm {
    QList<QWidget*> focusAreas{};

    MainsStripForm(QWidget* host, const QString& spokenPage);

    static QString reverbLevelName() { return QStringLiteral("reverb_level"); }
    static const QList<ControlRow>& controlRows();
    static const QList<ButtonRow>& buttonRows();
};

struct PhonesStripForm {
    QWidget* panel = nullptr;

    PhonesStripForm(QWidget* host, const QString& spokenPage);

    static const ChoiceRow& choiceRow();
};
