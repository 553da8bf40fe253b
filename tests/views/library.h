#pragma once

#include <QStringList>
#include <QVariantMap>

inline const QString syncName = QStringLiteral("[CONNECTION SYNC]");
inline const QStringList fewNames{syncName, "One", "Two", "Three"};
inline const QString ch1 = QStringLiteral("faderframe_ch1_fader");
inline const QString ch2 = QStringLiteral("faderframe_ch2_fader");
inline const QString gain = QStringLiteral("channelstrip_ch1_eq_hi_gain");

// Of few parameters, so that a recall is short; what a preset lacks counts as 0.
inline QVariantMap smallPreset(const QString& name, int number)
{
    return {{"preset_name", name},
            {ch1, 5000 + 100 * number},
            {ch2, 6000 + 100 * number},
            {gain, 10000 + 100 * number}};
}
inline QVariantMap libraryOf(const QStringList& names)
{
    QVariantMap library;
    for (int i = 0; i < names.size(); ++i)
        library.insert(QString("Preset_%1").arg(i, 3, 10, QChar('0')), smallPreset(names[i], i));
    return library;
}

// What its recall sends.
inline QString recallOf(int number)
{
    QStringList words;
    for (const QString& key : {gain, ch1, ch2})
        words << QString("%1=%2").arg(key).arg(smallPreset({}, number)[key].toInt());
    return words.join(' ');
}
