#pragma once

#include "codecresult.h"

// The codec of preset parameters, messages of type 0x02: pure functions, no state. A name is taken
// apart and put together from the identifier tables; there is no list of known names.
namespace sysex
{

// Any name, any value. A name that holds no view word is dropped with a line, a channel strip's
// phantom power without one; a channel or parameter part that is in no table goes out as 0xFF.
Encoded encodePresetParameter(QStringView name, int value);

// Gives view 1, 2 or 3, or View::None and at least one line. The value is unsigned, up to 32767.
Decoded decodePresetParameter(PayloadView payload);

} // namespace sysex
