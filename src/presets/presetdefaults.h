#pragma once

#include <QString>
#include <QVariantMap>

// The table of parameters as the stores use it: their default maps, and what of a preset can be
// sent.
namespace presetdefaults
{

// A preset: its 329 parameters and "preset_name".
const QVariantMap& preset();

// The 208 global parameters, with nothing around them.
const QVariantMap& globals();

// Whether a preset's key is a parameter of the mixer.
bool isPresetParameter(const QString& key);

// The value, or the end of the parameter's range that it is beyond. A factory value stays, also the
// one that is out of its range; and so does the value of any other key.
int bounded(const QString& key, int value);

} // namespace presetdefaults
