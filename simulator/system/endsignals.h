#pragma once

#include <QObject>
#include <QSocketNotifier>

// Turns SIGINT, SIGTERM and SIGHUP into the application's ordinary end, so that everything is
// saved. One per process, owned by main.
class EndSignals : public QObject
{
    Q_OBJECT

public:
    explicit EndSignals(QObject* parent = nullptr);

private slots:
    void slotEnd();

private:
    QSocketNotifier m_notifier;
};
