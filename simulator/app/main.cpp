#include "alsaports.h"
#include "endsignals.h"
#include "headless.h"
#include "panelwindow.h"
#include "simulator.h"

#include <QApplication>
#include <QCommandLineParser>

#include <algorithm>
#include <csignal>
#include <cstdio>
#include <cstring>
#include <memory>

namespace
{

constexpr int noSequencer = 2;

struct Options {
    QString state;
    bool headless;
    bool unplugged;
    bool stay;
};

// Ends the program on --help and on options that do not exist.
Options parse(const QCoreApplication& app)
{
    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral("A J-Sum mixer made of software."));
    const auto help = parser.addHelpOption();
    parser.addOptions({
        {QStringLiteral("state"),
         QStringLiteral("Keep the mixer's memory in FILE (else $JSUM_SIMULATOR_STATE, else "
                        "jsum-simulator-state.json beside the program)."),
         QStringLiteral("FILE")},
        {QStringLiteral("headless"),
         QStringLiteral("No window: commands from standard input, messages on standard output.")},
        {QStringLiteral("unplugged"), QStringLiteral("Begin without ports.")},
        {QStringLiteral("stay"),
         QStringLiteral("With --headless: go on when the input has ended.")},
    });
    parser.process(app);
    Options options{parser.value(QStringLiteral("state")), parser.isSet(QStringLiteral("headless")),
                    parser.isSet(QStringLiteral("unplugged")),
                    parser.isSet(QStringLiteral("stay"))};
    if (options.state.isEmpty())
        options.state = StateFile::defaultPath(QCoreApplication::applicationDirPath());
    return options;
}

bool wantsWindow(int argc, char** argv)
{
    return std::none_of(argv, argv + argc, [](const char* argument) {
        return std::strcmp(argument, "--headless") == 0 || std::strcmp(argument, "--help") == 0
            || std::strcmp(argument, "-h") == 0;
    });
}

bool hasDisplay()
{
    return !qEnvironmentVariableIsEmpty("DISPLAY")
        || !qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY")
        || !qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM");
}

} // namespace

int main(int argc, char** argv)
{
    const bool window = wantsWindow(argc, argv);
    if (window && !hasDisplay()) {
        std::fputs("jsum-simulator: there is no display; try --headless\n", stderr);
        return EXIT_FAILURE;
    }
    std::unique_ptr<QCoreApplication> app;
    if (window)
        app = std::make_unique<QApplication>(argc, argv);
    else
        app = std::make_unique<QCoreApplication>(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("jsum-simulator"));
    const Options options = parse(*app);
    // Whoever read our output may go; the mixer's memory is still to be saved.
    std::signal(SIGPIPE, SIG_IGN);
    const EndSignals endSignals;

    auto ports = std::make_unique<AlsaPorts>();
    if (const QString error = ports->open(); !error.isEmpty()) {
        std::fprintf(stderr, "jsum-simulator: %s\n", qPrintable(error));
        return noSequencer;
    }
    Simulator simulator(std::move(ports), StateFile(options.state));
    std::unique_ptr<QObject> headless;
    std::unique_ptr<QWidget> panel;
    if (options.headless) {
        headless = std::make_unique<Headless>(simulator, options.stay);
    } else {
        panel = std::make_unique<PanelWindow>(simulator);
        panel->show();
    }
    simulator.start(!options.unplugged);
    const int status = QCoreApplication::exec();
    simulator.save();
    return status;
}
