#include "presetdefaults.h"

#include "parametertable.h"
#include "presetnames.h"

namespace
{

QVariantMap factoryValues(std::span<const Parameter> parameters)
{
    QVariantMap map;
    for (const Parameter& parameter : parameters)
        map.insert(parameter.key, parameter.stored(parameter.factoryValue));
    return map;
}

QVariantMap makePreset()
{
    QVariantMap map = factoryValues(parametertable::preset());
    map.insert(presetNameKey(), QStringLiteral("DefaultPreset"));
    return map;
}

} // namespace

const QVariantMap& presetdefaults::preset()
{
    static const QVariantMap map = makePreset();
    return map;
}

const QVariantMap& presetdefaults::globals()
{
    static const QVariantMap map = factoryValues(parametertable::globals());
    return map;
}

bool presetdefaults::isPresetParameter(const QString& key)
{
    const Parameter* const parameter = parametertable::find(key);
    return parameter != nullptr && parameter->store == Parameter::Store::Preset;
}

int presetdefaults::bounded(const QString& key, int value)
{
    const Parameter* const parameter = parametertable::find(key);
    return parameter != nullptr ? parameter->bounded(value) : value;
}
