// The line commands of the control surface.
#include "commands.h"

#include <map>

using lineparts::number;

namespace
{

const char usage[] = "usage: surface fader N POSITION | touch N on|off | mute N | solo N | "
                     "record N [on|off] | bank left|right [on|off] | "
                     "transport left|up|right|down [on|off] | map BANK";

// The button that the words name, such as "record 3" or "bank left"; nothing for none.
std::optional<int> buttonOf(const QString& kind, const QString& which)
{
    static const std::map<QString, int> names{
        {QStringLiteral("bank left"), ControlSurface::BankLeft},
        {QStringLiteral("bank right"), ControlSurface::BankRight},
        {QStringLiteral("transport left"), ControlSurface::Left},
        {QStringLiteral("transport up"), ControlSurface::Up},
        {QStringLiteral("transport right"), ControlSurface::Right},
        {QStringLiteral("transport down"), ControlSurface::Down},
    };
    if (kind == QLatin1String("record")) {
        const auto strip = number(which, 1, ControlSurface::strips);
        return strip ? std::optional(*strip - 1) : std::nullopt;
    }
    const auto named = names.find(kind + u' ' + which);
    return named == names.end() ? std::nullopt : std::optional(named->second);
}

// Without a word behind the button it is pressed and let go.
bool press(ControlSurface& controls, const QStringList& words)
{
    const auto button = buttonOf(words[0], words[1]);
    const auto on = lineparts::onOff(words.value(2));
    if (!button || (words.size() > 2 && !on))
        return false;
    if (on) {
        controls.press(*button, *on);
    } else {
        controls.press(*button, true);
        controls.press(*button, false);
    }
    return true;
}

bool useStrip(ControlSurface& controls, const QString& kind, int strip, const QString& value)
{
    const auto position = number(value, 0, 127);
    const auto on = lineparts::onOff(value);
    if (kind == QLatin1String("fader") && position)
        controls.moveFader(strip, *position);
    else if (kind == QLatin1String("touch") && on)
        controls.touch(strip, *on);
    else if (kind == QLatin1String("mute") && value.isEmpty())
        controls.pressMute(strip);
    else if (kind == QLatin1String("solo") && value.isEmpty())
        controls.pressSolo(strip);
    else
        return false;
    return true;
}

} // namespace

Commands::Reply Commands::surface(const Words& words)
{
    ControlSurface& controls = m_simulator.mixer().controls();
    const auto strip = number(words[1], 1, ControlSurface::strips);
    const auto bank = number(words[1], 1, ControlSurface::mapBanks);
    bool done = press(controls, words);
    if (!done && words.size() == 2 && words[0] == QLatin1String("map") && bank) {
        controls.selectMapBank(*bank);
        done = true;
    }
    if (!done && strip)
        done = useStrip(controls, words[0], *strip - 1, words.value(2));
    if (!done)
        return lineparts::error(QLatin1String(usage));
    m_simulator.touch();
    return sent();
}
