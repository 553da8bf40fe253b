#pragma once

#include <QList>

#include <concepts>
#include <type_traits>

struct TableMatch {
    int index;  // -1: the table is empty
    bool exact; // the entry there equals the value
};

// The entry for a typed or received value: the first one equal to it, else the nearest, of two
// equally near ones the lower index. Shared by the strips and the full-power view.
template <typename Number>
requires std::same_as<Number, double> || std::same_as<Number, int>
    TableMatch findInTable(const QList<Number>& table, std::type_identity_t<Number> value)
{
    if (table.isEmpty())
        return {-1, false};
    if (const auto found = table.indexOf(value); found >= 0)
        return {static_cast<int>(found), true};

    // Two integers may lie further apart than an integer can tell.
    using Distance = std::conditional_t<std::integral<Number>, qint64, double>;
    const auto distanceTo = [value](Number entry) {
        const auto difference = static_cast<Distance>(entry) - static_cast<Distance>(value);
        return difference < 0 ? -difference : difference;
    };
    int best = 0;
    auto bestDistance = distanceTo(table.first());
    for (int index = 1; index < static_cast<int>(table.size()); ++index) {
        const auto distance = distanceTo(table.at(index));
        if (distance < bestDistance) {
            best = index;
            bestDistance = distance;
        }
    }
    return {best, false};
}
