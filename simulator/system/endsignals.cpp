#include "endsignals.h"

#include <QCoreApplication>

#include <csignal>
#include <fcntl.h>
#include <unistd.h>

namespace
{

int wakeUp[2] = {-1, -1};

// Only a write is allowed in a signal handler.
void handle(int)
{
    const char byte = 0;
    [[maybe_unused]] const ssize_t written = ::write(wakeUp[1], &byte, 1);
}

int openPipe()
{
    if (::pipe2(wakeUp, O_CLOEXEC | O_NONBLOCK) != 0)
        qFatal("no pipe for signals");
    return wakeUp[0];
}

} // namespace

EndSignals::EndSignals(QObject* parent)
    : QObject(parent)
    , m_notifier(openPipe(), QSocketNotifier::Read)
{
    connect(&m_notifier, SIGNAL(activated(QSocketDescriptor, QSocketNotifier::Type)), this,
            SLOT(slotEnd()));
    struct sigaction action {
    };
    action.sa_handler = handle;
    action.sa_flags = SA_RESTART;
    for (const int number : {SIGINT, SIGTERM, SIGHUP})
        ::sigaction(number, &action, nullptr);
}

void EndSignals::slotEnd()
{
    m_notifier.setEnabled(false);
    QCoreApplication::quit();
}
