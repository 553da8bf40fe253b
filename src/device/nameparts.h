#pragma once

#include "sysextables.h"

#include <QLatin1StringView>
#include <QStringView>
#include <QVarLengthArray>

#include <cstdint>
#include <initializer_list>
#include <optional>

// How the codecs take a parameter's name apart and find its parts again; for their own sources. No
// name is too short, too long or too strange for it.
namespace sysex
{

// Stands on the wire for a part that its table does not hold: -1, cut to a byte.
inline constexpr std::uint8_t notInTable = 0xFF;

// Room for every known name.
inline constexpr qsizetype usualNameSize = 48;

constexpr QLatin1StringView latin1(std::string_view text)
{
    return QLatin1StringView(text.data(), static_cast<qsizetype>(text.size()));
}

constexpr bool isChannelId(std::uint8_t id) { return id < channelIdTable.size(); }
constexpr bool isParameterId(std::uint8_t id) { return id < parameterIdTable.size(); }

// What identifiers stand for in a name. Channel 0 is not written.
constexpr QLatin1StringView channelPart(std::uint8_t id)
{
    return id == 0 ? QLatin1StringView() : latin1(channelIdTable[id]);
}
constexpr QLatin1StringView parameterPart(std::uint8_t id) { return latin1(parameterIdTable[id]); }

// A name of which part after part is removed. Usual names need no heap.
class NameRest
{
public:
    explicit NameRest(QStringView name)
        : text(name.begin(), name.end())
    {
    }

    QStringView view() const { return QStringView(text.data(), text.size()); }
    bool holds(QStringView part) const { return view().contains(part); }
    // Removes every occurrence of the pieces joined together, in one pass from the left. The pieces
    // may be views of this rest.
    void removeAll(std::initializer_list<QStringView> pieces);

private:
    QVarLengthArray<QChar, usualNameSize> text;
};

// The channel part that the rest begins with, "none" when there is none: removes every occurrence
// of it and returns its identifier.
std::uint8_t takeChannel(NameRest& rest);
// The channel part of a routing's target, which is never "_phones": as above, but without one
// nothing is removed and the identifier is 0.
std::uint8_t takeSecondaryChannel(NameRest& rest);

// Exact and case-sensitive; the first of equal rows.
std::uint8_t channelIdOf(QStringView part);
std::uint8_t parameterIdOf(QStringView part);

// The number that follows the word: digits are looked for where a word at the start would end,
// wherever it really stands. Removes every occurrence of the word with them and "_". Nothing, and
// nothing removed, if so many ASCII digits do not stand there.
std::optional<std::uint8_t> takeNumber(NameRest& rest, QStringView word, qsizetype digitCount);

} // namespace sysex
