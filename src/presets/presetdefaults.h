#pragma once

#include <QString>
#include <QVariantMap>

// The factory values of every parameter, compiled in. Both stores take their default maps from
// here, and the names of what can be sent.
namespace presetdefaults
{

// A preset: its 329 parameters and "preset_name".
const QVariantMap& preset();

// The 208 global parameters, with nothing around them.
const QVariantMap& globals();

// Whether a preset's key is a parameter of the mixer.
bool isPresetParameter(const QString& key);

} // namespace presetdefaults
