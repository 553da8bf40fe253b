#include "lineparts.h"

#include <QRegularExpression>

namespace lineparts
{

Reply ok(const QString& text) { return {{}, text, false, false}; }

Reply error(const QString& text) { return {{}, QStringLiteral("error: ") + text, false, false}; }

std::optional<int> number(const QString& word, int smallest, int largest)
{
    bool good = false;
    const bool hex = word.startsWith(QLatin1String("0x"));
    const int value = hex ? word.mid(2).toInt(&good, 16) : word.toInt(&good, 10);
    if (!good || value < smallest || value > largest)
        return {};
    return value;
}

std::optional<bool> onOff(const QString& word)
{
    if (word == QLatin1String("on"))
        return true;
    if (word == QLatin1String("off"))
        return false;
    return {};
}

std::optional<QByteArray> bytes(const QStringList& words)
{
    static const QRegularExpression form(
        QStringLiteral("^((?:[0-9A-Fa-f]{2})+)(?:\\*([0-9]{1,7}))?$"));
    QByteArray all;
    for (const QString& word : words) {
        const auto match = form.match(word);
        if (!match.hasMatch())
            return {};
        const QByteArray once = QByteArray::fromHex(match.captured(1).toLatin1());
        const int times = match.captured(2).isEmpty() ? 1 : match.captured(2).toInt();
        if (times < 1 || all.size() + once.size() * times > longestBytes)
            return {};
        all += once.repeated(times);
    }
    return all;
}

} // namespace lineparts
