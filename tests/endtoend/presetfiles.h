#pragma once

#include <QFile>
#include <QJsonDocument>
#include <QMap>
#include <QString>
#include <QTest>
#include <QVariantMap>

// The library and the setlist as they stand on disk, and what two presets have of each other.

#define SAME(one, other) QCOMPARE(differences(one, other), QString())

using Values = QMap<QString, int>;
constexpr int presetSize = 329;

inline QVariantMap document(const QString& name)
{
    QFile file("resources/presets/" + name);
    return file.open(QIODevice::ReadOnly)
        ? QJsonDocument::fromJson(file.readAll()).toVariant().toMap()
        : QVariantMap();
}
inline void write(const QString& name, const QByteArray& text)
{
    QFile file("resources/presets/" + name);
    QVERIFY(file.open(QIODevice::WriteOnly) && file.write(text) == text.size());
}
inline Values valuesOf(const QVariantMap& preset)
{
    Values values;
    for (auto entry = preset.begin(); entry != preset.end(); ++entry)
        if (entry.key() != "preset_name")
            values[entry.key()] = entry->toInt();
    return values;
}
inline Values saved(const QString& preset)
{
    for (const QVariant& entry : document("jsum.json"))
        if (entry.toMap()["preset_name"].toString() == preset)
            return valuesOf(entry.toMap());
    return {};
}
inline QString inSlot(QChar letter) { return document("setlist.json")[letter].toString(); }
// Empty where both are whole presets, or that many other values, and the same.
inline QString differences(const Values& one, const Values& other, int size = presetSize)
{
    QStringList keys;
    if (one.size() != size || other.size() != size)
        keys.append(QString("%1 and %2 values").arg(one.size()).arg(other.size()));
    for (auto entry = one.begin(); entry != one.end(); ++entry) {
        const int value = other.value(entry.key(), -1);
        if (value != *entry)
            keys.append(QString("%1: %2 and %3").arg(entry.key()).arg(*entry).arg(value));
    }
    return keys.join(", ");
}
