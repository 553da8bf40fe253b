#include "hostcommands.h"

#include "huimessages.h"

using lineparts::error;
using lineparts::number;
using lineparts::ok;

namespace
{

constexpr int mostMeters = 10000;

} // namespace

const std::vector<lineparts::Command<HostCommands>>& HostCommands::all()
{
    constexpr int any = lineparts::anyNumber;
    static const std::vector<lineparts::Command<HostCommands>> commands{
        {"open", "open", &HostCommands::open, 0, 0},
        {"fader", "fader N POSITION", &HostCommands::fader, 2, 2},
        {"light", "light ZONE PORT on|off", &HostCommands::light, 3, 3},
        {"ping", "ping", &HostCommands::ping, 0, 0},
        {"meter", "meter CHANNEL left|right LEVEL", &HostCommands::meter, 3, 3},
        {"display", "display PLACE TEXT...", &HostCommands::display, 2, any},
        {"ring", "ring DIAL VALUE", &HostCommands::ring, 2, 2},
        {"reset", "reset", &HostCommands::reset, 0, 0},
        {"raw", "raw HEX[*COUNT]...", &HostCommands::raw, 1, any},
        {"allow", "allow HEX...", &HostCommands::allow, 1, any},
        {"echo", "echo on|off", &HostCommands::echo, 1, 1},
        {"pings", "pings on|off", &HostCommands::pings, 1, 1},
        {"meters", "meters RATE", &HostCommands::meters, 1, 1},
        {"quit", "quit", &HostCommands::quit, 0, 0},
    };
    return commands;
}

HostCommands::Reply HostCommands::run(const QString& line)
{
    return lineparts::run(*this, all(), line);
}

HostCommands::Reply HostCommands::send(const QString& words, const QByteArray& messages)
{
    return m_host.send(words, messages) ? ok()
                                        : error(QStringLiteral("it could not be sent; try open"));
}

HostCommands::Reply HostCommands::open(const Words&)
{
    const QString wrong = m_open();
    return wrong.isEmpty() ? ok() : error(wrong);
}

HostCommands::Reply HostCommands::fader(const Words& words)
{
    const auto fader = number(words[0], 1, huimessages::faders);
    const auto position = number(words[1], 0, huimessages::highestPosition);
    if (!fader || !position)
        return error(QStringLiteral("faders 1 to 8, positions 0 to 16383"));
    return send(QStringLiteral("fader %1 at %2").arg(*fader).arg(*position),
                huimessages::fader(*fader - 1, *position));
}

HostCommands::Reply HostCommands::light(const Words& words)
{
    const auto zone = huimessages::zoneOf(words[0]);
    const auto port = zone ? huimessages::portOf(*zone, words[1]) : std::nullopt;
    const auto on = lineparts::onOff(words[2]);
    if (!port || !on)
        return error(QStringLiteral("no such zone or port, or neither on nor off"));
    const QString name = huimessages::portName(*zone, *port);
    return send(QStringLiteral("light %1 %2 %3")
                    .arg(huimessages::zoneName(*zone),
                         name.isEmpty() ? QString::number(*port) : name, words[2]),
                huimessages::light(*zone, *port, *on));
}

HostCommands::Reply HostCommands::ping(const Words&)
{
    return send(QStringLiteral("ping"), huimessages::ping());
}

HostCommands::Reply HostCommands::meter(const Words& words)
{
    const auto channel = number(words[0], 1, huimessages::faders);
    const bool right = words[1] == QLatin1String("right");
    const auto level = number(words[2], 0, 12);
    if (!channel || !level || (!right && words[1] != QLatin1String("left")))
        return error(QStringLiteral("channels 1 to 8, left or right, levels 0 to 12"));
    return send(QStringLiteral("meter %1 %2 %3").arg(*channel).arg(words[1]).arg(*level),
                huimessages::meter(*channel - 1, right, *level));
}

HostCommands::Reply HostCommands::display(const Words& words)
{
    const auto place = number(words[0], 1, 9);
    if (!place)
        return error(QStringLiteral("places 1 to 9"));
    const QString text = words.mid(1).join(u' ');
    return send(QStringLiteral("display %1 \"%2\"").arg(*place).arg(text.left(4)),
                huimessages::display(*place - 1, text));
}

HostCommands::Reply HostCommands::ring(const Words& words)
{
    const auto dial = number(words[0], 1, 12);
    const auto value = number(words[1], 0, 127);
    if (!dial || !value)
        return error(QStringLiteral("dials 1 to 12, values 0 to 127"));
    return send(QStringLiteral("ring %1 %2").arg(*dial).arg(*value),
                huimessages::ring(*dial - 1, *value));
}

HostCommands::Reply HostCommands::reset(const Words&)
{
    return send(QStringLiteral("system reset"), huimessages::systemReset());
}

HostCommands::Reply HostCommands::raw(const Words& words)
{
    const auto bytes = lineparts::bytes(words);
    if (!bytes)
        return error(QStringLiteral("bytes as pairs of hexadecimal digits"));
    return send(QStringLiteral("raw"), *bytes);
}

HostCommands::Reply HostCommands::allow(const Words& words)
{
    const auto bytes = lineparts::bytes(words);
    if (!bytes)
        return error(QStringLiteral("bytes as pairs of hexadecimal digits"));
    m_host.allow(*bytes);
    return ok();
}

HostCommands::Reply HostCommands::echo(const Words& words)
{
    const auto on = lineparts::onOff(words[0]);
    if (!on)
        return error(QStringLiteral("usage: echo on|off"));
    m_host.setEcho(*on);
    return ok();
}

HostCommands::Reply HostCommands::pings(const Words& words)
{
    const auto on = lineparts::onOff(words[0]);
    if (!on)
        return error(QStringLiteral("usage: pings on|off"));
    m_host.setPings(*on);
    return ok();
}

HostCommands::Reply HostCommands::meters(const Words& words)
{
    const auto rate = number(words[0], 0, mostMeters);
    if (!rate)
        return error(QStringLiteral("0 to %1 a second").arg(mostMeters));
    m_host.setMeters(*rate);
    return ok();
}

HostCommands::Reply HostCommands::quit(const Words&)
{
    Reply reply = ok();
    reply.quits = true;
    return reply;
}
