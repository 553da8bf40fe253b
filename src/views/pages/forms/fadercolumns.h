#pragma once

#include "controlrow.h"

#include <QList>

class FormBuilder;
class QRect;
class QToolButton;
class QWidget;

// The channels as columns of faders, in the order of the mixer's panel: what the fader frame and
// the low-power face have in common.
namespace fadercolumns
{

struct Column {
    QString word; // as "ch1"
    QString name; // as it is shown
    QString spoken;
    bool isInput;
};

// All thirteen, the inputs first.
const QList<Column>& all();

// part: as "mute"; gives "faderframe_ch1_mute".
QString nameOf(const Column& channel, const char* part);
// toolTip: what is to be told of the fader beside that it is the level.
ControlRow faderRow(const Column& channel, const QString& toolTip = {});
ButtonRow muteRow(const Column& channel);

// A button of one letter that the style sheet knows by what is said of it, as "mute".
QToolButton* layMark(FormBuilder& builder, QWidget* parent, const ButtonRow& row,
                     const char* letter, const QRect& place);

} // namespace fadercolumns
