#pragma once

#include "commands.h"

#include <QObject>
#include <QSocketNotifier>

#include <deque>

// Line commands from standard input, answers and every message on standard output. Owned by main.
class Headless : public QObject
{
    Q_OBJECT

public:
    // stay: the end of the input does not end the program.
    Headless(Simulator& simulator, bool stay, QObject* parent = nullptr);

private slots:
    void slotReadInput();
    void slotPrint(const QString& line);
    void slotPlugged();

private:
    void takeLines();
    void runCommands();
    void end();

    Simulator& m_simulator;
    Commands m_commands;
    QSocketNotifier m_notifier;
    QByteArray m_input;
    bool m_tooLong = false; // the line that is coming in is dropped
    std::deque<QString> m_lines;
    QString m_heldAnswer; // of a plug that has not happened yet
    bool m_inputEnded = false;
    bool m_stay;
};
