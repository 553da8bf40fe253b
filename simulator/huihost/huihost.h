#pragma once

#include "surfacereader.h"

#include <QObject>
#include <QTimer>

#include <functional>

// A recording program as a surface sees it, without ports: bytes in, bytes out through a callback,
// a line for every message. Owned by main.
class HuiHost : public QObject
{
    Q_OBJECT

public:
    static constexpr int pingIntervalMs = 1000;

    // send: false where nothing could be sent.
    explicit HuiHost(std::function<bool(const QByteArray&)> send, QObject* parent = nullptr);

    // From the surface.
    void receive(const QByteArray& message);
    // One or several whole messages; words: what they say. False where they could not be sent.
    bool send(const QString& words, const QByteArray& messages);

    void allow(const QByteArray& beginning) { m_reader.allow(beginning); }
    // As programs do for motors: each position that a fader tells is sent back to it.
    void setEcho(bool echo) { m_echo = echo; }
    void setPings(bool pings);
    // Meter messages a second, all channels in turn, with no line for each; 0 for none.
    void setMeters(int rate);
    // To be called before the program ends. Whether the surface sent nothing but HUI.
    bool end();

signals:
    void signalLine(const QString& line);

private slots:
    void slotPing();
    void slotMeter();

private:
    void report(const QList<SurfaceReader::Reading>& readings);

    std::function<bool(const QByteArray&)> m_send;
    SurfaceReader m_reader;
    QTimer m_pingTimer;
    QTimer m_meterTimer;
    int m_metersAtOnce = 0;
    int m_meters = 0;
    bool m_echo = false;
    bool m_isClean = true;
};
