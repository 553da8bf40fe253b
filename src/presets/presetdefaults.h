#pragma once

#include <QString>
#include <QVariantMap>

#include <optional>

// The factory values of every parameter and, of a preset's, the ranges, compiled in. Both stores
// take their default maps from here, and what can be sent.
namespace presetdefaults
{

// A preset: its 329 parameters and "preset_name".
const QVariantMap& preset();

// The 208 global parameters, with nothing around them.
const QVariantMap& globals();

// Whether a preset's key is a parameter of the mixer.
bool isPresetParameter(const QString& key);

struct Range {
    int lowest;
    int highest;
};

// Of the control of a preset's parameter, in the control's own unit; nothing for any other key.
std::optional<Range> range(const QString& key);

// The value, or the end of the parameter's range that it is beyond. A factory value stays, also the
// one that is out of its range; and so does the value of any other key.
int bounded(const QString& key, int value);

} // namespace presetdefaults
