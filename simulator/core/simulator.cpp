#include "simulator.h"

#include "messageprinter.h"
#include "pieces.h"

#include <utility>

namespace
{

constexpr int saveDelayMs = 1000;
// Some sixty dumps; who asks for more than that at a time gets no more.
constexpr size_t mostQueued = 20000;

const QString mixerKey = QStringLiteral("mixer");
const QString formatKey = QStringLiteral("format");

} // namespace

Simulator::Simulator(std::unique_ptr<MixerPorts> ports, StateFile file, QObject* parent)
    : QObject(parent)
    , m_ports(std::move(ports))
    , m_file(std::move(file))
    , m_mixer({[this](MixerPort port, const QByteArray& message) { send(port, message); },
               [this] { restart(); }, [this](const QString& text) { tell(text); }})
{
    m_clock.start();
    m_ports->setEvents(
        {[this](MixerPort port, const QByteArray& message) { received(port, message); },
         [this](const QString& text) { tell(text); }});
    for (QTimer* timer : {&m_arrivalTimer, &m_secondTimer, &m_sendTimer, &m_saveTimer})
        timer->setSingleShot(true);
    m_sendTimer.setTimerType(Qt::PreciseTimer);
    // A coarse timer may come early, and the absence must not be shorter than told.
    m_arrivalTimer.setTimerType(Qt::PreciseTimer);
    connect(&m_arrivalTimer, SIGNAL(timeout()), this, SLOT(slotArrive()));
    connect(&m_secondTimer, SIGNAL(timeout()), this, SLOT(slotShowBoth()));
    connect(&m_sendTimer, SIGNAL(timeout()), this, SLOT(slotSendQueued()));
    connect(&m_saveTimer, SIGNAL(timeout()), this, SLOT(slotSave()));
}

Simulator::~Simulator() { save(); }

void Simulator::start(bool plugged)
{
    load();
    save();
    tell(QStringLiteral("firmware %1, memory in %2").arg(m_mixer.firmware().text(), m_file.path()));
    if (plugged)
        plug();
    else
        tell(QStringLiteral("unplugged"));
}

void Simulator::load()
{
    const auto reading = m_file.read();
    QStringList complaints;
    if (reading.content == StateFile::Content::Good) {
        const QJsonValue section = reading.document.value(mixerKey);
        if (!section.isUndefined() && !section.isObject())
            complaints.append(QStringLiteral("mixer is no object"));
        complaints += m_mixer.fromJson(section.toObject());
        m_lastFirmware = FirmwareState::of(reading.document);
    } else if (reading.content != StateFile::Content::Missing) {
        complaints.append(reading.error);
    }
    m_mixer.setFirmware(m_lastFirmware.version);
    if (complaints.isEmpty())
        return;
    constexpr int mostTold = 5;
    for (const QString& complaint : complaints.first(qMin(complaints.size(), mostTold)))
        tell(complaint);
    if (complaints.size() > mostTold)
        tell(QStringLiteral("and %1 more").arg(complaints.size() - mostTold));
    if (reading.content == StateFile::Content::Unreadable)
        return;
    const QString aside = m_file.setAside();
    tell(aside.isEmpty()
             ? QStringLiteral("it could not be set aside")
             : QStringLiteral("set aside as %1; what is usable of it is used").arg(aside));
    if (reading.content == StateFile::Content::Good && !aside.isEmpty()) {
        // The other program's sections were all right.
        m_file.update([&reading](QJsonObject& document) {
            document = reading.document;
            document.remove(mixerKey);
        });
    }
}

void Simulator::touch()
{
    if (!m_saveTimer.isActive())
        m_saveTimer.start(saveDelayMs);
    emit signalChanged();
}

void Simulator::slotSave() { save(); }

void Simulator::save()
{
    m_saveTimer.stop();
    const auto putIn = [this](QJsonObject& document) {
        document.insert(formatKey, 1);
        document.insert(mixerKey, m_mixer.toJson());
        // The file may have been deleted meanwhile.
        if (!FirmwareState::isIn(document))
            m_lastFirmware.putInto(document);
        m_lastFirmware = FirmwareState::of(document);
    };
    QString error = m_file.update(putIn);
    if (!error.isEmpty() && m_file.read().content == StateFile::Content::Broken) {
        const QString aside = m_file.setAside();
        if (!aside.isEmpty()) {
            tell(QStringLiteral("%1; set aside as %2").arg(error, aside));
            error = m_file.update(putIn);
        }
    }
    if (!error.isEmpty() && error != m_lastSaveError)
        tell(QStringLiteral("not saved: ") + error);
    m_lastSaveError = error;
}

QString Simulator::storeFirmware(const FirmwareVersion& version)
{
    return storeFirmwareState([&version](FirmwareState& state) { state.version = version; });
}

QString Simulator::storeFailure(const QString& failure)
{
    return storeFirmwareState([&failure](FirmwareState& state) { state.failure = failure; });
}

QString Simulator::storeFirmwareState(const std::function<void(FirmwareState&)>& change)
{
    QString error = m_file.update([this, &change](QJsonObject& document) {
        m_lastFirmware = FirmwareState::of(document);
        change(m_lastFirmware);
        m_lastFirmware.putInto(document);
    });
    emit signalChanged();
    return error;
}

void Simulator::plug(Arrival arrival, int betweenMs)
{
    if (isPlugged())
        return;
    m_arrival = arrival;
    m_betweenMs = betweenMs;
    if (m_arrivalTimer.isActive())
        return;
    const qint64 away = m_absence.isValid() ? m_absence.elapsed() : shortestAbsenceMs;
    if (away >= shortestAbsenceMs)
        slotArrive();
    else
        m_arrivalTimer.start(static_cast<int>(shortestAbsenceMs - away));
}

void Simulator::slotArrive()
{
    // Only now does the mixer run what the firmware tool has put into it.
    const FirmwareVersion version = storedFirmware().version;
    if (version != m_mixer.firmware())
        tell(QStringLiteral("firmware is now ") + version.text());
    m_mixer.setFirmware(version);
    const Arrival arrival = m_betweenMs > 0 ? m_arrival : Arrival::Together;
    show(arrival != Arrival::OutputsFirst, arrival != Arrival::InputsFirst);
    if (arrival != Arrival::Together && isPlugged())
        m_secondTimer.start(m_betweenMs);
    emit signalPlugged(isPlugged());
    emit signalChanged();
}

void Simulator::slotShowBoth() { show(true, true); }

void Simulator::show(bool readable, bool writable)
{
    const QString error = m_ports->show(readable, writable);
    if (!error.isEmpty()) {
        tell(error);
        readable = writable = false;
        m_ports->show(false, false);
    }
    m_readable = readable;
    m_writable = writable;
    if (readable && writable)
        tell(QStringLiteral("plugged in"));
    else if (readable)
        tell(QStringLiteral("plugged in, only the host's inputs yet"));
    else if (writable)
        tell(QStringLiteral("plugged in, only the host's outputs yet"));
    else
        tell(QStringLiteral("unplugged"));
}

void Simulator::unplug()
{
    m_arrivalTimer.stop();
    m_secondTimer.stop();
    m_sendTimer.stop();
    m_queue.clear();
    m_patience.forget();
    if (!isPlugged())
        return;
    show(false, false);
    m_absence.start();
    emit signalPlugged(false);
    emit signalChanged();
}

void Simulator::restart()
{
    tell(QStringLiteral("restarting"));
    const bool returns = isPlugged() || isComing();
    unplug();
    m_mixer.powerUp();
    m_arrival = Arrival::Together;
    if (returns)
        m_arrivalTimer.start(restartMs);
    touch();
}

void Simulator::tell(const QString& text) { emit signalLine(QStringLiteral("-- ") + text); }

void Simulator::received(MixerPort port, const QByteArray& message)
{
    emit signalLine(messageprinter::line(messageprinter::Direction::FromHost, port, message));
    m_mixer.receive(port, message);
    touch();
}

void Simulator::send(MixerPort port, const QByteArray& message)
{
    if (!isPlugged())
        return;
    QString line = messageprinter::line(messageprinter::Direction::ToHost, port, message);
    for (const QByteArray& piece : piecesOf(message)) {
        if (m_queue.size() >= mostQueued) {
            tell(QStringLiteral("the queue to the host is full, a message is dropped"));
            return;
        }
        m_queue.push_back({port, piece, std::exchange(line, {})});
    }
    if (!m_sendTimer.isActive())
        slotSendQueued();
}

void Simulator::slotSendQueued()
{
    while (!m_queue.empty()) {
        const qint64 now = m_clock.nsecsElapsed() / 1000;
        if (const qint64 wait = m_pacer.wait(now); wait > 0) {
            m_sendTimer.start(static_cast<int>((wait + 999) / 1000));
            return;
        }
        const Outgoing& first = m_queue.front();
        if (m_patience.mustWait(m_ports->hasRoom(first.port, first.bytes.size()))) {
            m_sendTimer.start(RoomPatience::retryMs);
            return;
        }
        const Outgoing next = std::move(m_queue.front());
        m_queue.pop_front();
        const bool sent = m_ports->send(next.port, next.bytes);
        m_pacer.left(now);
        if (!sent || !next.line.isEmpty())
            emit signalLine(next.line + (sent ? QString() : QStringLiteral(" | not delivered")));
    }
}
