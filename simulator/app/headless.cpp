#include "headless.h"

#include <QCoreApplication>

Headless::Headless(Simulator& simulator, bool stay, QObject* parent)
    : QObject(parent)
    , m_simulator(simulator)
    , m_commands(simulator)
    , m_stay(stay)
{
    connect(&m_input, SIGNAL(signalReady()), this, SLOT(slotRunCommands()));
    connect(&simulator, SIGNAL(signalLine(QString)), this, SLOT(slotPrint(QString)));
    connect(&simulator, SIGNAL(signalPlugged(bool)), this, SLOT(slotPlugged()));
}

void Headless::slotPrint(const QString& line) { LineInput::print(line); }

void Headless::slotRunCommands()
{
    while (m_heldAnswer.isEmpty()) {
        const auto line = m_input.next();
        if (!line)
            break;
        const Commands::Reply reply = m_commands.run(*line);
        for (const QString& text : reply.lines)
            LineInput::queue(text);
        if (reply.waitsForPlug) {
            m_heldAnswer = reply.answer;
            return;
        }
        if (!reply.answer.isEmpty())
            slotPrint(reply.answer);
        if (reply.quits) {
            end();
            return;
        }
    }
    if (m_input.hasEnded() && m_heldAnswer.isEmpty() && !m_stay)
        end();
}

void Headless::slotPlugged()
{
    if (m_heldAnswer.isEmpty() || m_simulator.isComing())
        return;
    slotPrint(m_simulator.isPlugged() ? m_heldAnswer
                                      : QStringLiteral("error: the ports could not be opened"));
    m_heldAnswer.clear();
    slotRunCommands();
}

void Headless::end()
{
    m_input.stop();
    QCoreApplication::quit();
}
