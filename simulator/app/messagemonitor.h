#pragma once

#include <QStringList>
#include <QTimer>
#include <QWidget>

class QPlainTextEdit;

// The running list of messages, bounded; part of the PanelWindow.
class MessageMonitor : public QWidget
{
    Q_OBJECT

public:
    static constexpr int mostLines = 4000;

    explicit MessageMonitor(QWidget* parent = nullptr);

public slots:
    void slotAdd(const QString& line);

private slots:
    void slotShowWaiting();
    void slotClear();

private:
    QPlainTextEdit* m_text;
    // A dump comes faster than it is worth drawing.
    QStringList m_waiting;
    QTimer m_drawTimer;
};
