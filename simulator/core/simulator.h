#pragma once

#include "mixerports.h"
#include "pacer.h"
#include "roompatience.h"
#include "simulatedmixer.h"
#include "statefile.h"

#include <QElapsedTimer>
#include <QObject>
#include <QTimer>

#include <deque>
#include <memory>

// A mixer on a desk: it is plugged in and out, restarts, keeps its memory in a file, and sends no
// faster than a host can hear. Made by main; the command line and the window use the same one.
class Simulator : public QObject
{
    Q_OBJECT

public:
    // In which order a host sees the two directions come.
    enum class Arrival { Together, InputsFirst, OutputsFirst };

    static constexpr int shortestAbsenceMs = 1200;
    static constexpr int restartMs = 2000;

    Simulator(std::unique_ptr<MixerPorts> ports, StateFile file, QObject* parent = nullptr);
    ~Simulator() override;

    // Reads the state file, or makes one, and shows the ports where `plugged`.
    void start(bool plugged);

    SimulatedMixer& mixer() { return m_mixer; }
    const SimulatedMixer& mixer() const { return m_mixer; }
    const StateFile& file() const { return m_file; }

    // Whether a host can see any of the ports.
    bool isPlugged() const { return m_readable || m_writable; }
    bool isComing() const { return m_arrivalTimer.isActive(); }
    // The ports come at once, or when they have been away for long enough; signalPlugged tells.
    // With an order, the second direction follows the first by `betweenMs`.
    void plug(Arrival arrival = Arrival::Together, int betweenMs = 0);
    void unplug();
    // Vanishes now and returns by itself.
    void restart();

    // Queues a message that the mixer itself would not send, or sends only from its surface.
    void send(MixerPort port, const QByteArray& message);
    qsizetype queued() const { return static_cast<qsizetype>(m_queue.size()); }

    // What the file holds now, which the firmware tool may have changed since the mixer came.
    FirmwareState storedFirmware() const { return FirmwareState::of(m_file.read().document); }
    // Return what went wrong; empty when nothing did.
    QString storeFirmware(const FirmwareVersion& version);
    QString storeFailure(const QString& failure);

    // To be called after changes below the panel; the Simulator's own are noticed.
    void touch();
    void save();

signals:
    // A line for the monitor: a message either way, or a remark that begins with "-- ".
    void signalLine(const QString& text);
    void signalPlugged(bool plugged);
    // Anything that a panel shows may be different now.
    void signalChanged();

private slots:
    void slotArrive();
    void slotShowBoth();
    void slotSendQueued();
    void slotSave();

private:
    struct Outgoing {
        MixerPort port;
        QByteArray bytes;
        QString line; // empty for all but the first piece of a long message
    };

    void load();
    void show(bool readable, bool writable);
    void tell(const QString& text);
    void received(MixerPort port, const QByteArray& message);
    QString storeFirmwareState(const std::function<void(FirmwareState&)>& change);

    std::unique_ptr<MixerPorts> m_ports;
    StateFile m_file;
    SimulatedMixer m_mixer;
    FirmwareState m_lastFirmware;
    QString m_lastSaveError;

    bool m_readable = false;
    bool m_writable = false;
    Arrival m_arrival = Arrival::Together;
    int m_betweenMs = 0;
    QElapsedTimer m_absence;
    QTimer m_arrivalTimer;
    QTimer m_secondTimer;

    std::deque<Outgoing> m_queue;
    Pacer m_pacer;
    QElapsedTimer m_clock;
    RoomPatience m_patience;
    QTimer m_sendTimer;
    QTimer m_saveTimer;
};
