#include "presetinterface.h"

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

QString PresetInterface::slotAppendSuffixToNewPresetName(QString name)
{
    name = unreserved(name);
    const int count = presetCount();
    if (count == 0)
        return name;

    // Once more: "[OFF] copy1" is a reserved name again without its number.
    name = unreserved(withoutCopyNumber(name));
    QStringList namesInUse;
    int alike = 0;
    for (int presetNum = 0; presetNum < count; ++presetNum) {
        const QString used = nameOfPreset(savedPreset(presetNum));
        namesInUse.append(used);
        if (withoutCopyNumber(used) == name)
            ++alike;
    }

    QString result = alike == 0 ? name : copyName(name, alike);
    if (namesInUse.contains(result)) {
        int number = alike;
        while (namesInUse.contains(result))
            result = copyName(name, ++number);
    }
    return result;
}
