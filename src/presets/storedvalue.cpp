#include "storedvalue.h"

#include <QDebug>

#include <algorithm>
#include <limits>

namespace
{

constexpr int lowest = std::numeric_limits<int>::min();
constexpr int highest = std::numeric_limits<int>::max();

template <typename Number> int saturated(Number value)
{
    return QVariant::fromValue(
               std::clamp(value, static_cast<Number>(lowest), static_cast<Number>(highest)))
        .toInt();
}

} // namespace

std::optional<int> storedNumber(const QVariant& value)
{
    switch (value.typeId()) {
    case QMetaType::Bool:
    case QMetaType::Int:
        return value.toInt();
    case QMetaType::UInt:
    case QMetaType::LongLong:
        return saturated(value.toLongLong());
    case QMetaType::ULongLong:
        return static_cast<int>(std::min<qulonglong>(value.toULongLong(), highest));
    case QMetaType::Float:
    case QMetaType::Double:
        return saturated(value.toDouble());
    default:
        return std::nullopt;
    }
}

int storedInt(const QVariant& value, const QString& name)
{
    const std::optional<int> number = storedNumber(value);
    if (!number)
        qDebug().noquote() << QStringLiteral("no number under %1, it counts as 0").arg(name);
    return number.value_or(0);
}
