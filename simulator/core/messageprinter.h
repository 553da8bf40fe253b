#pragma once

#include "frames.h"

#include <QByteArray>
#include <QString>

// One line for each MIDI message, in words and bytes: what the monitor shows. Free functions, no
// state.
namespace messageprinter
{

enum class Direction { FromHost, ToHost };

// What the message says, such as "mode 2 (eq)"; for one that the mixer would not understand, what
// is wrong with it.
QString words(Direction direction, const QByteArray& message);

// "f0 00 01 f7"; of a long message the first bytes and how many there are in all.
QString bytes(const QByteArray& message);

// The whole line: who spoke, on which port, the words and the bytes.
QString line(Direction direction, MixerPort port, const QByteArray& message);

} // namespace messageprinter
