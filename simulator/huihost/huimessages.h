#pragma once

#include <QByteArray>
#include <QString>

#include <optional>

// The HUI protocol as the host knows it: the names of zones and ports, and what the host sends.
// Written apart from the editor's bridge, from what is public of the protocol. Free functions and
// constant data, no state.
namespace huimessages
{

constexpr int faders = 8;
constexpr int highestPosition = 16383;
constexpr int zones = 30;
constexpr int portsInZone = 8;

// Controllers. A switch is a zone, then a port: with onFlag pressed, or lit.
constexpr int zoneToSurface = 0x0C;
constexpr int portToSurface = 0x2C;
constexpr int zoneFromSurface = 0x0F;
constexpr int portFromSurface = 0x2F;
constexpr int onFlag = 0x40;
// Of a fader's high byte; its low byte follows under a controller 0x20 above.
constexpr int lowByte = 0x20;

// Empty where the protocol has none.
QString zoneName(int zone);
QString portName(int zone, int port);
// By number, also hexadecimal behind 0x, or by name.
std::optional<int> zoneOf(const QString& word);
std::optional<int> portOf(int zone, const QString& word);

// All numbers are in range. number: a fader, from 0.
QByteArray fader(int number, int position);
QByteArray light(int zone, int port, bool on);
QByteArray ping();
QByteArray meter(int channel, bool right, int level);
// The ring of a dial: 0 to 11 lights in one of four patterns.
QByteArray ring(int dial, int value);
// Four characters above a channel (0 to 7) or beside the select buttons (8).
QByteArray display(int place, const QString& text);
QByteArray systemReset();

} // namespace huimessages
