#include "endsignals.h"
#include "hostcommands.h"
#include "lineinput.h"
#include "pieces.h"
#include "relay.h"
#include "sequencerclient.h"

#include <QCommandLineParser>
#include <QCoreApplication>

#include <csignal>
#include <cstdio>
#include <memory>

namespace
{
constexpr int noPorts = 2;
}

// A recording program's MIDI side: it reads from "loopMIDI Port" and writes to "loopMIDI Port 1",
// and takes commands from standard input.
class HostProgram : public QObject
{
    Q_OBJECT

public:
    HostProgram()
        : m_host([this](const QByteArray& messages) { return send(messages); })
        , m_commands(m_host, [this] { return openPorts(); })
        , m_relay({[this](qsizetype size) { return m_client.hasRoom(m_out, size); },
                   [this](const QByteArray& piece) { m_client.send(m_out, piece); }, tell})
    {
        m_client.setEvents({[this](int, const QByteArray& bytes) { m_host.receive(bytes); }, tell});
        connect(&m_host, SIGNAL(signalLine(QString)), this, SLOT(slotPrint(QString)));
        connect(&m_input, SIGNAL(signalReady()), this, SLOT(slotRunCommands()));
    }

    // What went wrong; empty when nothing did.
    QString open()
    {
        const QString wrong = m_client.open("J-Sum HUI Host");
        return wrong.isEmpty() ? openPorts() : wrong;
    }
    bool end() { return m_host.end(); }

private slots:
    void slotPrint(const QString& line) { LineInput::print(line); }
    void slotRunCommands()
    {
        while (const auto line = m_input.next()) {
            const HostCommands::Reply reply = m_commands.run(*line);
            for (const QString& text : reply.lines)
                LineInput::queue(text);
            if (!reply.answer.isEmpty())
                LineInput::print(reply.answer);
            if (reply.quits)
                m_input.stop();
            if (reply.quits)
                QCoreApplication::quit();
        }
        if (m_input.hasEnded())
            QCoreApplication::quit();
    }

private:
    static void tell(const QString& text) { LineInput::print(QStringLiteral("-- ") + text); }

    QString openPorts()
    {
        const QString in = QStringLiteral("loopMIDI Port");
        const QString out = QStringLiteral("loopMIDI Port 1");
        const auto from = m_client.findPort(in);
        const auto to = m_client.findPort(out);
        if (!from || !to)
            return QStringLiteral("there is no \"%1\"").arg(from ? out : in);
        for (const int port : {m_in, m_out}) {
            if (port >= 0)
                m_client.removePort(port);
        }
        m_in = m_client.addPort(QStringLiteral("HUI in"), false, true);
        m_out = m_client.addPort(QStringLiteral("HUI out"), true, false);
        if (m_in < 0 || m_out < 0 || !m_client.readFrom(m_in, *from)
            || !m_client.writeTo(m_out, *to))
            return QStringLiteral("the ports could not be opened");
        return {};
    }
    bool send(const QByteArray& messages)
    {
        for (const QByteArray& message : messagesIn(messages))
            m_relay.add(message);
        return m_out >= 0;
    }

    SequencerClient m_client;
    int m_in = -1;
    int m_out = -1;
    HuiHost m_host;
    HostCommands m_commands;
    Relay m_relay;
    LineInput m_input;
};

int main(int argc, char** argv)
{
    QCoreApplication app(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("jsum-hui-host"));
    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral(
        "A recording program's HUI side: line commands from standard input, every message on "
        "standard output. Ends with 1 where the surface sent what is no HUI."));
    parser.addHelpOption();
    parser.process(app);
    std::signal(SIGPIPE, SIG_IGN);
    const EndSignals endSignals;

    HostProgram program;
    if (const QString wrong = program.open(); !wrong.isEmpty()) {
        std::fprintf(stderr, "jsum-hui-host: %s\n", qPrintable(wrong));
        return noPorts;
    }
    LineInput::print(QStringLiteral("the ports are open"));
    const int status = QCoreApplication::exec();
    return program.end() ? status : EXIT_FAILURE;
}

#include "main.moc"
