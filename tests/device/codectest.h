#pragma once

#include "codecresult.h"

#include <QByteArray>
#include <QStringList>

#include <algorithm>

// The codecs' tests write payloads as hex text and debug lines as qDebug() prints them.

inline QByteArray hexOf(const std::optional<sysex::Payload>& payload)
{
    if (!payload)
        return "nothing";
    return QByteArray(reinterpret_cast<const char*>(payload->data()), 6).toHex(' ');
}

inline sysex::Payload payloadOf(const QByteArray& hex)
{
    const QByteArray bytes = QByteArray::fromHex(hex);
    sysex::Payload payload{};
    if (bytes.size() != 6)
        qFatal("a payload has six bytes: %s", hex.constData());
    std::copy(bytes.begin(), bytes.end(), payload.begin());
    return payload;
}

inline QStringList printed(const sysex::LogLines& lines)
{
    QStringList texts;
    for (const auto& line : lines) {
        QString text;
        QDebug(&text) << line;
        texts.append(text.trimmed());
    }
    return texts;
}

// "view name value" of what was decoded, and its lines.
inline QStringList told(const sysex::Decoded& decoded)
{
    QStringList texts = printed(decoded.lines);
    if (decoded.view != sysex::View::None) {
        texts.prepend(QStringLiteral("%1 %2 %3")
                          .arg(static_cast<int>(decoded.view))
                          .arg(decoded.name)
                          .arg(decoded.value));
    }
    return texts;
}

// How many of the 256 values at each place of the payload give something to emit.
template <typename Decode> QList<int> acceptedAtEachPlace(const QByteArray& hex, Decode decode)
{
    QList<int> counts;
    for (std::size_t place = 0; place < 6; ++place) {
        auto payload = payloadOf(hex);
        int count = 0;
        for (int byte = 0; byte <= 0xFF; ++byte) {
            payload[place] = static_cast<std::uint8_t>(byte);
            const auto decoded = decode(payload);
            if (decoded.view == sysex::View::None && decoded.lines.isEmpty())
                qFatal("dropped without a line: %s", hexOf(payload).constData());
            count += decoded.view != sysex::View::None;
        }
        counts.append(count);
    }
    return counts;
}
