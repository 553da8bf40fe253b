#pragma once

#include <QByteArray>
#include <QHash>
#include <QString>

#include <array>
#include <optional>
#include <vector>

// What the mixer knows of its parameters: key, wire address, factory value. Written apart from the
// editor's tables, row by row with the numbers of the wire, so that each checks the other. Constant
// data, owned by nobody.

struct Parameter {
    QString name;
    // Positions 6 to 10 of a message: view, channel, second channel, parameter; the fifth counts
    // with MIDI mappings only, where the five are view, control, its number, bank, message type.
    std::array<quint8, 5> address;
    int factory;
    // What the panel can reach. The wire may bring more, and it is kept as it came.
    int minimum;
    int maximum;
    // What a mapping's value is more than its byte on the wire: 1 for the MIDI channels.
    int wireOffset = 0;

    bool isMapping() const { return address[0] == 5; }
    // The message that tells this value; type 0x02 for preset parameters, 0x03 for globals.
    QByteArray message(int value) const;
};

class ParameterTable
{
public:
    struct Setting {
        int index;
        int value;
    };

    explicit ParameterTable(std::vector<Parameter> rows);

    int size() const { return static_cast<int>(m_rows.size()); }
    const Parameter& operator[](int index) const { return m_rows[static_cast<size_t>(index)]; }
    const std::vector<Parameter>& rows() const { return m_rows; }
    std::vector<int> factoryValues() const;

    // -1 where there is no such key.
    int find(const QString& name) const { return m_byName.value(name, -1); }
    // What a 13-byte parameter message sets; nothing where its address is none of this table.
    std::optional<Setting> read(const QByteArray& message) const;

private:
    static quint64 key(const std::array<quint8, 5>& address);

    std::vector<Parameter> m_rows;
    QHash<QString, int> m_byName;
    QHash<quint64, int> m_byAddress;
};

// The 329 parameters of the live memory and of each slot.
const ParameterTable& presetTable();
// The 208 parameters that no slot holds, 155 of them MIDI mappings.
const ParameterTable& globalTable();
