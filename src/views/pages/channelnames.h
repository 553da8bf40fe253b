#pragma once

#include "mixershape.h"

#include <QString>

// The names of the channels' select buttons.
namespace channels
{

// Of the phones for any number that is no channel's.
QString selectName(int channel);
// selectName: of a select button.
int numberOf(const QString& selectName);
// 0 if the name is not that of an input's select button.
int inputOf(const QString& selectName);

} // namespace channels
