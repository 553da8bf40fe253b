#pragma once

#include "sysexframe.h"

#include <QStringView>

#include <optional>
#include <string_view>

// The modes of the mixer's panel: which page of the editor goes with each, and in which of them a
// parameter can be seen. Pure tables and functions.
namespace sysex
{

// clang-format off
enum class Mode : int {
    FaderFrame, Pan, Eq, Compressor, Gate, Reverb, Surround,
    Aux1 = firstAuxChannel, Aux2, Aux3, Phones, Trim,
};
// clang-format on

// Numbered as the view's tabs are.
enum class Page : int { Surround, ChannelStrip, Reverb };

struct ModeRow {
    std::string_view name;
    std::optional<Page> page;
};

// A row's position is its mode on the wire; "none" holds a reserved number.
inline constexpr std::array<ModeRow, 15> modeTable{{
    {"faderframe", Page::ChannelStrip},
    {"pan", Page::ChannelStrip},
    {"eq", Page::ChannelStrip},
    {"compressor", Page::ChannelStrip},
    {"gate", Page::ChannelStrip},
    {"reverb", Page::Reverb},
    {"surround", Page::Surround},
    {"none", {}},
    {"none", {}},
    {"none", {}},
    {"aux1", Page::ChannelStrip},
    {"aux2", Page::ChannelStrip},
    {"aux3", Page::ChannelStrip},
    {"phones", Page::ChannelStrip},
    {"trim", Page::ChannelStrip},
}};

constexpr std::string_view nameOf(Mode mode)
{
    return modeTable[static_cast<std::size_t>(mode)].name;
}
static_assert(nameOf(Mode::Surround) == "surround" && nameOf(Mode::Aux1) == "aux1");
static_assert(nameOf(Mode::Phones) == "phones" && nameOf(Mode::Trim) == "trim");

// Nothing for a reserved number or one beyond the table.
constexpr std::optional<Page> pageOf(int mode)
{
    if (mode < 0 || mode >= static_cast<int>(modeTable.size()))
        return {};
    return modeTable[static_cast<std::size_t>(mode)].page;
}

// An aux bus and the phones are a mode and a channel of the same number.
constexpr bool isBus(int number) { return number >= firstAuxChannel && number <= phonesChannel; }

// A parameter whose name holds both texts can be seen in this mode.
struct ModeRule {
    QStringView text;
    QStringView andText;
    Mode mode;
};

// The first that fits counts: an aux's pan is shown by the pans. Of the auxes the name tells which.
inline constexpr std::array<ModeRule, 9> modeRules{{
    {u"_trim", u"", Mode::Trim},
    {u"_pan", u"", Mode::Pan},
    {u"_eq_", u"", Mode::Eq},
    {u"_compressor_", u"", Mode::Compressor},
    {u"_gate_", u"", Mode::Gate},
    {u"_aux", u"", Mode::Aux1},
    {u"_phones_", u"", Mode::Phones},
    {u"reverbtab_", u"", Mode::Reverb},
    {u"surroundtab", u"enable", Mode::Surround},
}};

// The mode in which the parameter can be seen; current if that is as good, or no rule fits. current
// is any number.
int modeForParameter(QStringView jsonName, int current);

} // namespace sysex
