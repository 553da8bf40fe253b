#pragma once

#include "controlrow.h"

#include <QList>

class FormBuilder;
class QLabel;
class QWidget;
class SurroundRoom;

// The form of the surround page, as large as an input channel's. A rotary has two number boxes, and
// a puck in the room, by which they are moved too.
struct SurroundForm {
    SurroundRoom* room = nullptr;
    // The channels of each rotary.
    QList<QLabel*> carried{};
    // A press on their free room takes the focus from a number.
    QList<QWidget*> focusAreas{};

    SurroundForm(QWidget* host, const QString& spokenPage);

    static QString enableName() { return QStringLiteral("surroundtab_enable"); }
    static QString formatName() { return QStringLiteral("surroundtab_format"); }
    // channel: 1 to 8.
    static QString assignName(int channel);
    static const QList<ControlRow>& controlRows();
    static const QList<ButtonRow>& buttonRows();
    static const QList<ChoiceRow>& choiceRows();

private:
    void layRoom(FormBuilder& builder);
    void laySettings(FormBuilder& builder);
    void layRotaries(FormBuilder& builder);
    void layChannels(FormBuilder& builder);
};
