#include "presetlibrary.h"

#include "presetnames.h"

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

QString PresetLibrary::freeName(QString name) const
{
    name = unreserved(name);
    const int presets = count();
    if (presets == 0)
        return name;

    // Again, since "[OFF] copy1" becomes a reserved name without its number.
    name = unreserved(withoutCopyNumber(name));
    QStringList namesInUse;
    int alike = 0;
    for (int presetNum = 0; presetNum < presets; ++presetNum) {
        const QString used = nameOfPreset(savedPreset(presetNum));
        namesInUse.append(used);
        if (withoutCopyNumber(used) == name)
            ++alike;
    }

    int number = alike;
    QString result = alike == 0 ? name : copyName(name, alike);
    while (namesInUse.contains(result))
        result = copyName(name, ++number);
    return result;
}
