#pragma once

#include <QString>
#include <QVariantMap>

// The one key of a preset that is no parameter, and the name of the preset that follows the mixer.

inline QString presetNameKey() { return QStringLiteral("preset_name"); }
inline QString syncPresetName() { return QStringLiteral("[CONNECTION SYNC]"); }

inline QString nameOfPreset(const QVariantMap& preset)
{
    return preset.value(presetNameKey()).toString();
}
