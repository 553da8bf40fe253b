#pragma once

#include <QByteArray>
#include <QStringList>

#include <algorithm>
#include <optional>
#include <vector>

// What the words of a typed line mean, for every program that takes line commands. Free functions,
// no state.
namespace lineparts
{

// Decimal, or hexadecimal behind 0x, within the range.
std::optional<int> number(const QString& word, int smallest, int largest);

// "on" and "off".
std::optional<bool> onOff(const QString& word);

constexpr qsizetype longestBytes = 4 * 1024 * 1024;
// "f0 00f7", and "41*1000" for as many bytes. Nothing where a word is none of these, or too much.
std::optional<QByteArray> bytes(const QStringList& words);

// The row whose name is the first word, which is taken off; the rest fits its number of words.
// Null, and what is wrong, where there is none. A row has name, usage, fewest and most.
template <typename Row>
const Row* pick(const std::vector<Row>& rows, QStringList& words, QString& wrong)
{
    const QString name = words.takeFirst();
    const auto row = std::find_if(rows.begin(), rows.end(), [&name](const Row& one) {
        return name == QLatin1String(one.name);
    });
    if (row == rows.end()) {
        wrong = QStringLiteral("no command \"%1\"; try help").arg(name.left(40));
        return nullptr;
    }
    if (words.size() < row->fewest || words.size() > row->most) {
        wrong = QStringLiteral("usage: ") + QLatin1String(row->usage);
        return nullptr;
    }
    return &*row;
}

} // namespace lineparts
