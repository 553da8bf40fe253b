#include "alignedmap.h"

#include "cuttoint.h"

#include <QDebug>

#include <optional>

namespace
{

std::optional<double> numberIn(const QVariant& value)
{
    switch (value.typeId()) {
    case QMetaType::Bool:
    case QMetaType::Int:
    case QMetaType::UInt:
    case QMetaType::LongLong:
    case QMetaType::ULongLong:
    case QMetaType::Float:
    case QMetaType::Double:
        return value.toDouble();
    default:
        return std::nullopt;
    }
}

// Each key of the globals, as they are few files; a folder of presets would fill the log.
void log(const AlignedMap& map, bool isPreset)
{
    if (isPreset) {
        if (!map.missing.isEmpty() || !map.unknown.isEmpty())
            qDebug() << "insert missing params from default preset:" << map.missing.size()
                     << "- remove extra params:" << map.unknown.size();
        return;
    }
    for (const QString& key : map.missing)
        qDebug().noquote() << "insert missing params from default global preset" << key
                           << map.values.value(key).toString();
    for (const QString& key : map.unknown)
        qDebug().noquote() << "remove extra params from default global preset" << key;
}

} // namespace

QStringList AlignedMap::inWords() const
{
    QStringList words;
    const auto add = [&words](const QStringList& keys, const char* one, const char* several) {
        if (!keys.isEmpty())
            words.append(
                QLatin1String(keys.size() == 1 ? one : several).arg(QString::number(keys.size())));
    };
    add(missing, "%1 value was missing and is the factory's",
        "%1 values were missing and are the factory's");
    add(unknown, "%1 unknown entry was left out", "%1 unknown entries were left out");
    add(changed, "%1 value was brought into its range", "%1 values were brought into their range");
    return words;
}

AlignedMap aligned(const QVariantMap& parameters, Parameter::Store store)
{
    const bool isPreset = store == Parameter::Store::Preset;
    AlignedMap map;
    for (const Parameter& parameter :
         isPreset ? parametertable::preset() : parametertable::globals()) {
        const auto number = numberIn(parameters.value(parameter.key));
        const int value = parameter.bounded(cutToInt(number.value_or(parameter.factoryValue)));
        map.values.insert(parameter.key, parameter.stored(value));
        if (!number)
            map.missing.append(parameter.key);
        else if (*number != value)
            map.changed.append(parameter.key);
    }
    for (auto given = parameters.keyBegin(); given != parameters.keyEnd(); ++given) {
        if (!map.values.contains(*given))
            map.unknown.append(*given);
    }
    log(map, isPreset);
    return map;
}
