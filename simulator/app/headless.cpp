#include "headless.h"

#include <QCoreApplication>

#include <cerrno>
#include <cstdio>
#include <unistd.h>

namespace
{

constexpr qsizetype longestLine = 16 * 1024 * 1024;

void print(const QString& line)
{
    const QByteArray bytes = line.toUtf8() + '\n';
    std::fwrite(bytes.constData(), 1, static_cast<size_t>(bytes.size()), stdout);
}

} // namespace

Headless::Headless(Simulator& simulator, bool stay, QObject* parent)
    : QObject(parent)
    , m_simulator(simulator)
    , m_commands(simulator)
    , m_notifier(STDIN_FILENO, QSocketNotifier::Read)
    , m_stay(stay)
{
    connect(&m_notifier, SIGNAL(activated(QSocketDescriptor, QSocketNotifier::Type)), this,
            SLOT(slotReadInput()));
    connect(&simulator, SIGNAL(signalLine(QString)), this, SLOT(slotPrint(QString)));
    connect(&simulator, SIGNAL(signalPlugged(bool)), this, SLOT(slotPlugged()));
}

void Headless::slotPrint(const QString& line)
{
    print(line);
    std::fflush(stdout);
}

void Headless::slotReadInput()
{
    char buffer[65536];
    const ssize_t size = ::read(STDIN_FILENO, buffer, sizeof buffer);
    if (size < 0 && (errno == EAGAIN || errno == EINTR))
        return;
    if (size > 0) {
        m_input.append(buffer, size);
    } else {
        m_notifier.setEnabled(false);
        m_inputEnded = true;
        if (!m_input.isEmpty())
            m_input.append('\n');
    }
    takeLines();
    runCommands();
}

void Headless::takeLines()
{
    qsizetype begin = 0;
    for (auto end = m_input.indexOf('\n'); end >= 0; end = m_input.indexOf('\n', begin)) {
        if (!m_tooLong)
            m_lines.push_back(QString::fromUtf8(m_input.mid(begin, end - begin)));
        m_tooLong = false;
        begin = end + 1;
    }
    m_input.remove(0, begin);
    if (m_input.size() > longestLine) {
        slotPrint(QStringLiteral("error: the line is too long"));
        m_input.clear();
        m_tooLong = true;
    }
}

void Headless::runCommands()
{
    while (m_heldAnswer.isEmpty() && !m_lines.empty()) {
        const QString line = m_lines.front();
        m_lines.pop_front();
        const Commands::Reply reply = m_commands.run(line);
        for (const QString& text : reply.lines)
            print(text);
        if (reply.waitsForPlug) {
            m_heldAnswer = reply.answer;
            return;
        }
        if (!reply.answer.isEmpty())
            slotPrint(reply.answer);
        if (reply.quits) {
            m_lines.clear();
            end();
            return;
        }
    }
    if (m_inputEnded && m_heldAnswer.isEmpty() && !m_stay)
        end();
}

void Headless::slotPlugged()
{
    if (m_heldAnswer.isEmpty() || m_simulator.isComing())
        return;
    slotPrint(m_simulator.isPlugged() ? m_heldAnswer
                                      : QStringLiteral("error: the ports could not be opened"));
    m_heldAnswer.clear();
    runCommands();
}

void Headless::end()
{
    m_notifier.setEnabled(false);
    QCoreApplication::quit();
}
