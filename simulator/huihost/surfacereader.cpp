#include "surfacereader.h"

#include "huimessages.h"

#include <algorithm>
#include <utility>

namespace
{

constexpr int firstChannelController = 0xB0;

QString faderWords(int number) { return QStringLiteral("fader %1").arg(number + 1); }

} // namespace

bool SurfaceReader::isAllowed(const QByteArray& message) const
{
    return std::any_of(m_allowed.begin(), m_allowed.end(), [&message](const QByteArray& beginning) {
        return message.startsWith(beginning);
    });
}

QList<SurfaceReader::Reading> SurfaceReader::end()
{
    const auto half = std::exchange(m_half, {});
    if (!half)
        return {};
    return {{false, QStringLiteral("half a pair"), half->message, {}}};
}

QList<SurfaceReader::Reading> SurfaceReader::read(const QByteArray& message)
{
    if (isAllowed(message))
        return {{true, QStringLiteral("allowed"), message, {}}};
    const auto byte = [&message](int at) { return static_cast<quint8>(message[at]); };
    const bool isController = message.size() == 3 && byte(0) == firstChannelController;
    QList<Reading> readings;
    if (m_half && (!isController || byte(1) != m_half->next))
        readings = end();
    if (isController)
        readings.append(readController(byte(1), byte(2), message));
    else
        readings.append({false, QStringLiteral("nothing that a surface sends"), message, {}});
    return readings;
}

SurfaceReader::Reading SurfaceReader::readController(int number, int value,
                                                     const QByteArray& message)
{
    using namespace huimessages;
    const auto first = std::exchange(m_half, {});
    if (first && number == portFromSurface) {
        const int port = value & ~onFlag;
        const QString name = portName(first->value, port);
        if (name.isEmpty())
            return {false, QStringLiteral("no port of this zone"), message, {}};
        return {true,
                QStringLiteral("%1 %2 %3")
                    .arg(zoneName(first->value), name,
                         value & onFlag ? QStringLiteral("on") : QStringLiteral("off")),
                message,
                {}};
    }
    if (first) {
        const Fader fader{first->number, first->value << 7 | value};
        return {true, QStringLiteral("%1 at %2").arg(faderWords(fader.number)).arg(fader.position),
                message, fader};
    }
    if (number == zoneFromSurface && !zoneName(value).isEmpty()) {
        m_half = {message, number, value, portFromSurface};
        return {true, QStringLiteral("zone ") + zoneName(value), message, {}};
    }
    if (number < faders) {
        m_half = {message, number, value, number + lowByte};
        return {true, faderWords(number) + QStringLiteral(" high byte"), message, {}};
    }
    return {false, QStringLiteral("no controller of a surface, or no first half"), message, {}};
}
