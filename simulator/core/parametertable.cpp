#include "parametertable.h"

#include "frames.h"

QByteArray Parameter::message(int value) const
{
    const auto& a = address;
    if (isMapping())
        return frames::build(frames::GlobalParameter,
                             {a[0], a[1], a[2], a[3], a[4], value - wireOffset});
    const int type = a[0] <= 3 ? frames::PresetParameter : frames::GlobalParameter;
    return frames::build(type, {a[0], a[1], a[2], a[3], value >> 7, value & 0x7F});
}

ParameterTable::ParameterTable(std::vector<Parameter> rows)
    : m_rows(std::move(rows))
{
    for (int i = 0; i < size(); ++i) {
        m_byName.insert((*this)[i].name, i);
        m_byAddress.insert(key((*this)[i].address), i);
    }
}

std::vector<int> ParameterTable::factoryValues() const
{
    std::vector<int> values;
    values.reserve(m_rows.size());
    for (const auto& row : m_rows)
        values.push_back(row.factory);
    return values;
}

quint64 ParameterTable::key(const std::array<quint8, 5>& address)
{
    quint64 number = 0;
    for (const quint8 byte : address)
        number = number << 8 | byte;
    return number;
}

std::optional<ParameterTable::Setting> ParameterTable::read(const QByteArray& message) const
{
    if (message.size() != frames::hostLength)
        return {};
    std::array<quint8, 5> address{};
    for (int i = 0; i < 5; ++i)
        address[static_cast<size_t>(i)] = static_cast<quint8>(frames::byteAt(message, 6 + i));
    const bool mapping = address[0] == 5;
    if (!mapping)
        address[4] = 0;
    const auto found = m_byAddress.constFind(key(address));
    if (found == m_byAddress.constEnd())
        return {};
    const int low = frames::byteAt(message, 11);
    if (mapping)
        return Setting{*found, low + (*this)[*found].wireOffset};
    return Setting{*found, frames::byteAt(message, 10) << 7 | low};
}
