#include "huihost.h"

#include "huimessages.h"
#include "messageprinter.h"

namespace
{

constexpr int meterIntervalMs = 20;

QString line(const char* who, const QString& words, const QByteArray& bytes)
{
    return QStringLiteral("%1 | %2 | %3")
        .arg(QLatin1String(who), words, messageprinter::bytes(bytes));
}

} // namespace

HuiHost::HuiHost(std::function<bool(const QByteArray&)> send, QObject* parent)
    : QObject(parent)
    , m_send(std::move(send))
{
    connect(&m_pingTimer, SIGNAL(timeout()), this, SLOT(slotPing()));
    connect(&m_meterTimer, SIGNAL(timeout()), this, SLOT(slotMeter()));
    setPings(true);
}

void HuiHost::receive(const QByteArray& message) { report(m_reader.read(message)); }

void HuiHost::report(const QList<SurfaceReader::Reading>& readings)
{
    for (const auto& reading : readings) {
        m_isClean = m_isClean && reading.isExpected;
        emit signalLine(line(reading.isExpected ? "from surface" : "unexpected  ", reading.words,
                             reading.bytes));
        if (m_echo && reading.fader) {
            send(QStringLiteral("echo of fader %1").arg(reading.fader->number + 1),
                 huimessages::fader(reading.fader->number, reading.fader->position));
        }
    }
}

bool HuiHost::send(const QString& words, const QByteArray& messages)
{
    const bool sent = m_send(messages);
    emit signalLine(line("to surface  ", words, messages)
                    + (sent ? QString() : QStringLiteral(" | not sent")));
    return sent;
}

void HuiHost::setPings(bool pings)
{
    if (pings)
        m_pingTimer.start(pingIntervalMs);
    else
        m_pingTimer.stop();
}

void HuiHost::slotPing() { send(QStringLiteral("ping"), huimessages::ping()); }

void HuiHost::setMeters(int rate)
{
    m_metersAtOnce = (rate * meterIntervalMs + 999) / 1000;
    if (rate > 0)
        m_meterTimer.start(m_metersAtOnce * 1000 / rate);
    else
        m_meterTimer.stop();
}

void HuiHost::slotMeter()
{
    constexpr int levels = 13;
    for (int i = 0; i < m_metersAtOnce; ++i, ++m_meters)
        m_send(huimessages::meter(m_meters % huimessages::faders, m_meters / 8 % 2,
                                  m_meters % levels));
}

bool HuiHost::end()
{
    report(m_reader.end());
    return m_isClean;
}
