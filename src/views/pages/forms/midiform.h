#pragma once

#include "controlrow.h"

#include <QList>
#include <QRect>
#include <QSize>
#include <QString>

class FormBuilder;
class PanelMap;
class QLabel;
class QStackedWidget;
class QToolButton;
class QWidget;

// The form of the MIDI mapping: the mixer's panel drawn, the boxes of each bank on a page of their
// own above it, and above those, once, the toggles that the banks share. The page that it is laid
// on owns the widgets.
class MidiForm
{
public:
    // A control of the panel that sends a CC or a note.
    struct Sender {
        QString pattern; // of its keys, with "%1" for the bank
        QString spoken;
        bool isNote;
    };

    // Below this texts are clipped.
    static constexpr QSize smallest{784, 336};

    // Makes the widget as large and fills it.
    MidiForm(QWidget* form, const QSize& size, const QString& spokenPage);

    QList<ControlRow> controlRows;
    QList<ButtonRow> buttonRows;
    QList<Sender> senders;

    PanelMap* map = nullptr;
    QStackedWidget* pages = nullptr;
    QList<QToolButton*> bankButtons; // bank 1 first
    QLabel* clashes = nullptr;
    QPoint saveCorner; // bottom right, of the button that saves

private:
    // Those of the panels are laid at once, below the map.
    void layPanels(FormBuilder& builder);
    void layMap();
    void layHeader(FormBuilder& builder);
    void layRotaries(FormBuilder& builder);
    void layDiamond(FormBuilder& builder);
    void layFaders(FormBuilder& builder);
    void layButtons(FormBuilder& builder);

    // One for each bank.
    void layNumbers(FormBuilder& builder, const QString& pattern, const QString& spoken,
                    const QString& toolTip, const QRect& place);
    // control and message: as in the keys, as "fader1" and "cc".
    void laySender(FormBuilder& builder, const QString& control, const QString& message,
                   const QString& spoken, const QRect& place);
    void layToggle(FormBuilder& builder, const QString& control, const QString& spoken,
                   const QRect& place);
    void layKey(FormBuilder& builder, const QString& caption, const QString& control,
                const QString& spoken, const QRect& place);

    QWidget* const host;
    const int column; // the width of one of the twelve
    QRect rotaries;
    QRect preset;
    QRect diamond;
    QRect faders;
    QRect buttons;
};
