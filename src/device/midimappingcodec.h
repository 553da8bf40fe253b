#pragma once

#include "codecresult.h"

// The codec of the MIDI mapping, the view of the global parameters that has a grammar and a payload
// layout of its own: control type, control number, bank, message type, value. Pure functions, no
// state.
namespace sysex
{

// Any name, any value; the value is cut to its low eight bits, and a channel goes out one lower. A
// name without a message type, without a number or bank where one is due, or a diamond without a
// direction is dropped with a line.
Encoded encodeMidiMapping(QStringView name, int value);

// The fields as they came, of any size. Gives View::MidiMapping, or View::None and at least one
// line. The value is handed on as it is: a channel comes one lower than its name's value.
Decoded decodeMidiMapping(int ctrlType, int ctrlTypeNum, int bankNum, int msgType, int value);

} // namespace sysex
