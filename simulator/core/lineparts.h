#pragma once

#include <QByteArray>
#include <QStringList>

#include <algorithm>
#include <limits>
#include <optional>
#include <vector>

// Line commands: what the words of a typed line mean, and what is answered, for every program that
// takes them. Free functions, no state.
namespace lineparts
{

// Decimal, or hexadecimal behind 0x, within the range.
std::optional<int> number(const QString& word, int smallest, int largest);

// "on" and "off".
std::optional<bool> onOff(const QString& word);

constexpr qsizetype longestBytes = 4 * 1024 * 1024;
// "f0 00f7", and "41*1000" for as many bytes. Nothing where a word is none of these, or too much.
std::optional<QByteArray> bytes(const QStringList& words);

struct Reply {
    QStringList lines; // printed before the answer
    QString answer; // begins with "ok" or "error: "; of an empty line it is empty, and not printed
    bool quits = false;
    // The answer holds once the mixer is plugged in, and no command may run before.
    bool waitsForPlug = false;
};
Reply ok(const QString& text = QStringLiteral("ok"));
Reply error(const QString& text);

template <typename Owner> struct Command {
    const char* name;
    const char* usage;
    Reply (Owner::*handler)(const QStringList&);
    int fewest; // words behind the name
    int most;
};
constexpr int anyNumber = std::numeric_limits<int>::max();

// Does what the line says to the owner; "help" lists the usages.
template <typename Owner>
Reply run(Owner& owner, const std::vector<Command<Owner>>& commands, const QString& line)
{
    QStringList words = line.simplified().split(u' ', Qt::SkipEmptyParts);
    if (words.isEmpty())
        return {};
    const QString name = words.takeFirst();
    if (name == QLatin1String("help") && words.isEmpty()) {
        Reply reply = ok();
        for (const auto& command : commands)
            reply.lines.append(QLatin1String(command.usage));
        return reply;
    }
    const auto command = std::find_if(commands.begin(), commands.end(), [&name](const auto& one) {
        return name == QLatin1String(one.name);
    });
    if (command == commands.end())
        return error(QStringLiteral("no command \"%1\"; try help").arg(name.left(40)));
    if (words.size() < command->fewest || words.size() > command->most)
        return error(QStringLiteral("usage: ") + QLatin1String(command->usage));
    return (owner.*command->handler)(words);
}

} // namespace lineparts
