#pragma once

#include "commands.h"
#include "lineinput.h"

#include <QObject>

// Line commands from standard input, answers and every message on standard output. Owned by main.
class Headless : public QObject
{
    Q_OBJECT

public:
    // stay: the end of the input does not end the program.
    Headless(Simulator& simulator, bool stay, QObject* parent = nullptr);

private slots:
    void slotRunCommands();
    void slotPrint(const QString& line);
    void slotPlugged();

private:
    void end();

    Simulator& m_simulator;
    Commands m_commands;
    LineInput m_input;
    QString m_heldAnswer; // of a plug that has not happened yet
    bool m_stay;
};
