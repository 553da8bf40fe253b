#pragma once

#include "simulator.h"

#include <QString>
#include <QStringList>

// The Simulator's state as lines "KEY VALUE..." and "KIND NAME VALUE", in an order that does not
// change. Free functions, no state.
namespace statereport
{

// With a name, only the lines whose first or second word it is.
QStringList lines(const Simulator& simulator, const QString& name = {});

// "slot A NAME VALUE" for every parameter of slot 0 to 11.
QStringList slotLines(const SimulatedMixer& mixer, int slot);

} // namespace statereport
