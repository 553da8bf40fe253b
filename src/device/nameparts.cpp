#include "nameparts.h"

#include <algorithm>
#include <span>

namespace sysex
{

namespace
{

struct PartForm {
    QStringView start;
    qsizetype length;
};

constexpr std::array<PartForm, 4> channelForms{
    {{u"_ch", 4}, {u"_aux", 5}, {u"_phones", 7}, {u"_mains", 6}}};
constexpr std::array<PartForm, 3> secondaryForms{{{u"_ch", 4}, {u"_aux", 5}, {u"_mains", 6}}};

// The whole rest where it is shorter than the form says; empty when no form fits.
QStringView partAtStart(QStringView rest, std::span<const PartForm> forms)
{
    for (const auto& form : forms) {
        if (rest.startsWith(form.start))
            return rest.first(std::min(form.length, rest.size()));
    }
    return {};
}

template <std::size_t Size>
std::uint8_t indexIn(const std::array<std::string_view, Size>& table, QStringView part)
{
    for (std::size_t row = 0; row < Size; ++row) {
        if (part == latin1(table[row]))
            return static_cast<std::uint8_t>(row);
    }
    return notInTable;
}

} // namespace

void NameRest::removeAll(std::initializer_list<QStringView> pieces)
{
    QVarLengthArray<QChar, 16> joined;
    for (const auto piece : pieces)
        joined.append(piece.begin(), piece.size());
    const QStringView part(joined.data(), joined.size());

    const QStringView before = view();
    QChar* out = text.data();
    qsizetype from = 0;
    for (qsizetype at = before.indexOf(part); at >= 0; at = before.indexOf(part, from)) {
        out = std::copy(before.begin() + from, before.begin() + at, out);
        from = at + part.size();
    }
    if (from == 0)
        return;
    out = std::copy(before.begin() + from, before.end(), out);
    text.resize(out - text.data());
}

std::uint8_t takeChannel(NameRest& rest)
{
    QStringView part = partAtStart(rest.view(), channelForms);
    // A name that holds the word "none" loses it like a channel.
    if (part.isEmpty())
        part = u"none";
    const auto id = channelIdOf(part);
    rest.removeAll({part});
    return id;
}

std::uint8_t takeSecondaryChannel(NameRest& rest)
{
    const QStringView part = partAtStart(rest.view(), secondaryForms);
    if (part.isEmpty())
        return 0;
    const auto id = channelIdOf(part);
    rest.removeAll({part});
    return id;
}

std::uint8_t channelIdOf(QStringView part) { return indexIn(channelIdTable, part); }

std::uint8_t parameterIdOf(QStringView part) { return indexIn(parameterIdTable, part); }

std::optional<std::uint8_t> takeNumber(NameRest& rest, QStringView word, qsizetype digitCount)
{
    const QStringView digits = rest.view().mid(word.size(), digitCount);
    if (digits.size() != digitCount)
        return {};
    int number = 0;
    for (const QChar digit : digits) {
        if (digit < u'0' || digit > u'9')
            return {};
        number = number * 10 + (digit.unicode() - u'0');
    }
    rest.removeAll({word, digits, u"_"});
    return static_cast<std::uint8_t>(number);
}

} // namespace sysex
