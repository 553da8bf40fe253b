#include "endsignals.h"
#include "lineinput.h"
#include "loopports.h"

#include <QCommandLineParser>
#include <QCoreApplication>

#include <csignal>
#include <cstdio>

int main(int argc, char** argv)
{
    QCoreApplication app(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("jsum-loopports"));
    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral(
        "The virtual ports \"loopMIDI Port\" and \"loopMIDI Port 1\" between the J-Sum Editor and "
        "a recording program, for as long as this runs."));
    parser.addHelpOption();
    parser.process(app);
    // Whoever read our lines may go; the ports stay.
    std::signal(SIGPIPE, SIG_IGN);
    const EndSignals endSignals;

    LoopPorts ports([](const QString& text) { LineInput::print(QStringLiteral("-- ") + text); });
    QString error;
    if (const int status = ports.open(error); status != 0) {
        std::fprintf(stderr, "jsum-loopports: %s\n", qPrintable(error));
        return status;
    }
    LineInput::print(QStringLiteral("the ports are there"));
    return QCoreApplication::exec();
}
