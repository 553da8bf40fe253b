#pragma once

#include "roompatience.h"

#include <QByteArray>
#include <QObject>
#include <QString>
#include <QTimer>

#include <deque>
#include <functional>

// Messages on their way to whoever reads from a port: in the order of arrival, and no faster than
// the slowest reader takes them. Owned by who has the port.
class Relay : public QObject
{
    Q_OBJECT

public:
    // Some seconds of what a program can send.
    static constexpr std::size_t mostWaiting = 20000;

    struct Callbacks {
        std::function<bool(qsizetype size)> hasRoom;
        std::function<void(const QByteArray&)> send;
        std::function<void(const QString&)> tell;
    };
    explicit Relay(Callbacks callbacks, QObject* parent = nullptr);

    // A message of any length. One that finds the queue full is dropped; of a row of them the first
    // is told.
    void add(const QByteArray& message);

private slots:
    void slotSend();

private:
    Callbacks m_callbacks;
    std::deque<QByteArray> m_waiting; // no longer than a piece each
    RoomPatience m_patience;
    QTimer m_timer;
    bool m_isDropping = false;
};
