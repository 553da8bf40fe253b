#pragma once

#include "parametertable.h"

#include <QColor>
#include <QList>
#include <QString>

#include <optional>

// What is added to a control's name for that of its box.
inline const QString boxSuffix = QStringLiteral("_level");

// In the unit that a box shows, in a FreqSpinBox in Hz.
struct BoxLimits {
    double lowest;
    double highest;
};

// The looks of a control that shows a number: a dial or a fader, with its box if it has one, a
// number box that stands alone, or a menu. What its number means and how far it goes is told by its
// parameter.
struct ControlRow {
    QString name{};                       // the object name
    QString caption{};                    // the visible label
    QString spoken{};                     // the accessible name, after that of the page
    const Parameter* parameter = nullptr; // must be there before the row is laid, but for a menu

    // The box.
    bool hasBox = false;
    QString suffix{};
    QString lowestText{};                   // instead of the lowest number
    std::optional<BoxLimits> tableLimits{}; // where no formula leads from the parameter's range

    // The dial.
    QColor color = Qt::yellow;
    int thickness = 6;
    bool centered = false;
    bool hasReset = false;

    QString toolTip{};
};

// A button that stays down; it is stored as 0 or 1.
struct ButtonRow {
    QString name{};
    QString spoken{};
    QString toolTip{};
    // What it says up and down; empty where the text is no matter of its state.
    QString textOff{};
    QString textOn{};
};

// Several buttons of which one is down, under one key. They stand on a widget of their own.
struct ChoiceRow {
    struct Button {
        QString name{};
        int value; // from 0
        QString caption{};
    };

    QString name{}; // of them all, as a control, and of the widget that they stand on
    QString caption{};
    QString spoken{};
    QString toolTip{};
    QList<Button> buttons{};
    // Whether a value that no button has chooses the next one to it, or changes and stores nothing.
    bool takesNearest = false;
};

// The limits of the row's box: those of its parameter, as they are shown.
BoxLimits boxLimits(const ControlRow& row);

// Gives each row that has no parameter yet that of its name after the prefix, as
// "channelstrip_ch3_".
void setParameters(QList<ControlRow>& rows, const QString& prefix);
