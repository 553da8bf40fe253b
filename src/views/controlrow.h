#pragma once

#include <QColor>
#include <QString>

// What a control's integer means, and with it how its box shows it.
enum class Encoding {
    plain,         // the number itself, in a whole-number box
    linearLevel,   // (dB + 100) * 100
    faderPosition, // 3000 to 10600 on the volume curve
    hundredths,
    trimTable, // the index of an entry in dB
    hertz,
    tensOfHertz,
};

// What is added to a control's name for that of its box.
inline const QString boxSuffix = QStringLiteral("_level");

// A dial or a fader, and its box if it has one. The row builds them,
// gives them their look and tells the way from the one to the other.
struct ControlRow {
    QString name{};    // the object name
    QString caption{}; // the visible label
    QString spoken{};  // the accessible name, after that of the page
    Encoding encoding = Encoding::plain;
    int minimum = 0;
    int maximum = 0;
    int singleStep = 1;
    int pageStep = 10;

    // The box. Its range is in the unit that is shown, in a FreqSpinBox in Hz.
    bool hasBox = false;
    double boxMinimum = 0.0;
    double boxMaximum = 0.0;
    QString suffix{};
    QString lowestText{}; // instead of the lowest number

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

// Every fader has this range and these steps.
constexpr int faderMinimum = 3000;
constexpr int faderMaximum = 10600;
constexpr int faderSingleStep = 200;
constexpr int faderPageStep = 400;
