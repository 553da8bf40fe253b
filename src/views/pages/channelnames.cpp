#include "channelnames.h"

namespace channels
{

QString selectName(int channel)
{
    if (isInput(channel))
        return QStringLiteral("faderframe_ch%1_select").arg(channel);
    if (channel == mains)
        return QStringLiteral("faderframe_mains_select");
    if (channel >= firstAux && channel <= lastAux)
        return QStringLiteral("faderframe_aux%1_select").arg(channel - mains);
    return QStringLiteral("faderframe_phones_select");
}

int numberOf(const QString& selectName)
{
    QString word = selectName;
    word.remove(QLatin1String("faderframe_")).remove(QLatin1String("_select"));
    if (word.startsWith(QLatin1String("aux")))
        return word.sliced(3).toInt() + mains;
    if (word == QLatin1String("phones"))
        return phones;
    if (word == QLatin1String("mains"))
        return mains;
    return word.remove(QLatin1String("ch")).toInt();
}

int inputOf(const QString& name)
{
    // Where the digit of an input stands.
    constexpr int digitPlace = 13;
    const int digit = name.size() > digitPlace ? name.at(digitPlace).digitValue() : 0;
    return isInput(digit) && name == selectName(digit) ? digit : 0;
}

} // namespace channels
