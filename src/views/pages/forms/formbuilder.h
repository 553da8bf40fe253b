#pragma once

#include "controlrow.h"

#include <QPoint>
#include <QRect>
#include <QString>

class NoWrapDial;
class QAbstractSpinBox;
class QComboBox;
class QFrame;
class QLabel;
class QToolButton;
class QWidget;

// Lays the controls of a page's form, each with its label, its tooltip and the name that a screen
// reader says. Controls come in the tab order in which they are laid.
class FormBuilder
{
public:
    // spokenPage begins every accessible name, as "Channel 3".
    FormBuilder(QWidget* form, const QString& spokenPage);

    // The name that a screen reader says.
    QString accessible(const QString& spoken) const;

    // A panel with a quiet frame, its title at the top left.
    QFrame* group(const char* name, const QString& title, const QRect& place);
    // A part of a panel, without a frame.
    QFrame* frame(QWidget* parent, const char* name, const QRect& place);
    // role: what the style sheet calls this kind of text.
    QLabel* label(QWidget* parent, const QString& text, const QRect& place,
                  const char* role = "caption");

    // A dial with its top at the middle of a column, below it its box, if the row has one, and its
    // caption; the reset button is in the gap of the ring. The height follows from the row.
    NoWrapDial* knob(QWidget* parent, const ControlRow& row, const QPoint& topMiddle);
    static int knobHeight(const ControlRow& row);
    // The same, its caption within the ring; narrow enough for the width.
    NoWrapDial* namedRing(QWidget* parent, const ControlRow& row, const QPoint& topMiddle,
                          int width);
    // A fader as high as the place less its box and its caption, which stand below it.
    void fader(QWidget* parent, const ControlRow& row, const QRect& place);

    QToolButton* button(QWidget* parent, const ButtonRow& row, const QRect& place);
    // A lamp that is lit while the part is bypassed, its label at the left. place: of both.
    QToolButton* bypass(QWidget* parent, const ButtonRow& row, const QRect& place);
    // A line of a panel: the caption at the left, the control at the right. A number box that
    // stands alone, a menu, and radio buttons side by side, without their caption; the parameter's
    // entry is the place of the text.
    QLabel* lineLabel(QWidget* parent, const QString& text, const QRect& place);
    QAbstractSpinBox* number(QWidget* parent, const ControlRow& row, const QRect& place);
    QComboBox* menu(QWidget* parent, const ControlRow& row, const QStringList& entries,
                    const QRect& place);
    void choice(QWidget* parent, const ChoiceRow& row, const QRect& place);
    // The same with keys in one piece, of which the chosen one is lit.
    void keys(QWidget* parent, const ChoiceRow& row, const QRect& place);
    // A number box without a caption beside it.
    QAbstractSpinBox* numberBox(QWidget* parent, const ControlRow& row, const QRect& place);
    // For a control that stands elsewhere than under its dial.
    QToolButton* resetButton(QWidget* parent, const ControlRow& row, const QPoint& middle);

private:
    template <class Button>
    QWidget* layChoice(QWidget* parent, const ChoiceRow& row, const QRect& place);
    QAbstractSpinBox* box(QWidget* parent, const ControlRow& row, const QRect& place);
    NoWrapDial* ring(QWidget* parent, const ControlRow& row, const QPoint& topMiddle);
    QLabel* caption(QWidget* parent, const ControlRow& row, const QRect& place);

    QWidget* const form;
    const QString page;
};
