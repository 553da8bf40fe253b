#pragma once

#include <QString>

// The channels by number, 1 to 8 inputs, 9 mains, 10 to 12 aux 1 to 3 and 13 phones, and the names
// of their select buttons.
namespace channels
{

constexpr int lastInput = 8;
constexpr int mains = 9;
constexpr int firstAux = 10;
constexpr int lastAux = 12;
constexpr int phones = 13;

constexpr bool isInput(int channel) { return channel >= 1 && channel <= lastInput; }

// Of the phones for any number that is no channel's.
QString selectName(int channel);
// selectName: of a select button.
int numberOf(const QString& selectName);
// 0 if the name is not that of an input's select button.
int inputOf(const QString& selectName);

} // namespace channels
