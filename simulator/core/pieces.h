#pragma once

#include <QByteArray>
#include <QList>

// MIDI bytes as the sequencer takes them. Free functions, no state.

constexpr quint8 sysexStart = 0xF0;
constexpr quint8 sysexEnd = 0xF7;

// What a SysEx is cut into on its way.
constexpr qsizetype largestPiece = 256;

// All other messages stay whole.
QList<QByteArray> piecesOf(const QByteArray& message);

// Each begins with a status byte, but for data bytes in front of the first; a SysEx ends with 0xF7
// or before whatever else begins.
QList<QByteArray> messagesIn(const QByteArray& bytes);
