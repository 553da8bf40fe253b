#pragma once

#include <QChar>
#include <QString>
#include <QVariantMap>

// The names that have a meaning of their own: the keys that are no parameters, the preset that
// follows the mixer, what a setlist's menu offers beside the presets, and the mixer's slots. For
// whoever deals with documents and presets by name.

// Around the parameters in the document of the globals.
inline QString globalsKey() { return QStringLiteral("Global"); }
inline QString presetNameKey() { return QStringLiteral("preset_name"); }
inline QString syncPresetName() { return QStringLiteral("[CONNECTION SYNC]"); }
inline QString emptySlotName() { return QStringLiteral("[OFF]"); }
inline QString factoryPresetName() { return QStringLiteral("[DEFAULT]"); }

// What a setlist's menu offers beside the presets can't be a preset's name: another in its place.
inline QString unreserved(const QString& name)
{
    if (name == QStringLiteral("[Off]") || name == emptySlotName())
        return QStringLiteral("off");
    return name == factoryPresetName() ? QStringLiteral("default") : name;
}

// What an imported name is cut to; and when it is given a copy number, which has up to eight.
constexpr int longestName = 32;
constexpr int nameLengthBeforeCopyNumber = 24;

// Without a space at the end, and without half a character.
inline QString shortened(const QString& name, int length)
{
    QString start = name.left(length);
    if (start.size() < name.size() && start.back().isHighSurrogate())
        start.chop(1);
    return start.trimmed();
}

inline QString nameOfPreset(const QVariantMap& preset)
{
    return preset.value(presetNameKey()).toString();
}

// The mixer's slots, A to L.
constexpr int slotCount = 12;
// slot: from 0.
constexpr QChar slotLetter(qsizetype slot) { return QChar(static_cast<char16_t>(u'A' + slot)); }
// From 1, as the mixer counts them.
constexpr int slotNumberOf(QChar letter) { return letter.unicode() - u'A' + 1; }
