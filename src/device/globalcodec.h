#pragma once

#include "codecresult.h"

// The codec of global parameters, messages of type 0x03: pure functions, no state. Names that hold
// "miditab_" and messages of view 5 are handed on to the codec of the MIDI mapping.
namespace sysex
{

// Any name, any value. A name with no view word counts as a setting, so nothing is dropped here;
// parts that are in no table go out as 0xFF.
Encoded encodeGlobalParameter(QStringView name, int value);

// Gives view 4, 5, 6 or 7, or View::None and at least one line. The value is unsigned, up to 32767;
// 255 for the mapping.
Decoded decodeGlobalParameter(PayloadView payload);

} // namespace sysex
