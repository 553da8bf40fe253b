#pragma once

#include <QObject>
#include <QSocketNotifier>

#include <deque>
#include <optional>

// The lines of standard input, and the way back. Owned by whoever takes commands.
class LineInput : public QObject
{
    Q_OBJECT

public:
    explicit LineInput(QObject* parent = nullptr);

    std::optional<QString> next();
    bool hasEnded() const { return m_ended; }
    // Drops what waits and reads no more.
    void stop();

    // To standard output; what is only queued waits for the next that is not.
    static void queue(const QString& line);
    static void print(const QString& line);

signals:
    // There may be lines, or the input has ended.
    void signalReady();

private slots:
    void slotRead();

private:
    void takeLines();

    QSocketNotifier m_notifier;
    QByteArray m_input;
    std::deque<QString> m_lines;
    bool m_tooLong = false; // the line that is coming in is dropped
    bool m_ended = false;
};
