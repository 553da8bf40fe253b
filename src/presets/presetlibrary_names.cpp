#include "presetlibrary.h"

#include "presetnames.h"

#include <QSet>

#include <algorithm>

namespace
{

// Without a number of up to three digits behind " copy", if there is more than that. A bare " copy"
// stays: its space stands nearer to the end than those that are looked for.
QString withoutCopyNumber(const QString& name)
{
    if (!name.contains(QStringLiteral(" copy")))
        return name;
    for (const qsizetype length : {6, 7, 8}) {
        if (name.size() > length && name.at(name.size() - length) == QLatin1Char(' '))
            return name.chopped(length);
    }
    return name;
}

QString copyName(const QString& name, int number)
{
    // In one call: a place mark within the name is not replaced then.
    return QStringLiteral("%1 copy%2").arg(name, QString::number(number));
}

QString freeNameAmong(const QStringList& namesInUse, QString name)
{
    name = unreserved(name);
    if (namesInUse.isEmpty())
        return name;

    // Again, since "[OFF] copy1" becomes a reserved name without its number.
    name = unreserved(withoutCopyNumber(name));
    int number = static_cast<int>(
        std::count_if(namesInUse.cbegin(), namesInUse.cend(),
                      [&](const QString& used) { return withoutCopyNumber(used) == name; }));
    QString result = number == 0 ? name : copyName(name, number);
    while (namesInUse.contains(result))
        result = copyName(name, ++number);
    return result;
}

} // namespace

QStringList PresetLibrary::names() const
{
    QStringList all;
    const int presets = count();
    for (int presetNum = 0; presetNum < presets; ++presetNum)
        all.append(nameOfPreset(workingPreset(presetNum)));
    return all;
}

QString PresetLibrary::keyOfName(const QString& name)
{
    if (keysByName.isEmpty()) {
        for (int presetNum = count() - 1; presetNum >= 0; --presetNum)
            keysByName.insert(nameOfPreset(savedPreset(presetNum)), keyOf(presetNum));
    }
    return keysByName.value(name);
}

QStringList PresetLibrary::savedNames() const
{
    QStringList all;
    const int presets = count();
    for (int presetNum = 0; presetNum < presets; ++presetNum)
        all.append(nameOfPreset(savedPreset(presetNum)));
    return all;
}

QString PresetLibrary::freeName(const QString& name) const
{
    return freeNameAmong(savedNames(), name);
}

QStringList PresetLibrary::freeNames(const QStringList& wanted) const
{
    QStringList namesInUse = savedNames();
    QSet<QString> taken(namesInUse.cbegin(), namesInUse.cend());
    QStringList names;
    for (const QString& name : wanted) {
        const bool isFree = unreserved(name) == name && !taken.contains(name);
        names.append(
            isFree ? name : freeNameAmong(namesInUse, shortened(name, nameLengthBeforeCopyNumber)));
        namesInUse.append(names.last());
        taken.insert(names.last());
    }
    return names;
}
