#include "savedelay.h"

namespace
{

constexpr int quietTicks = 500;

} // namespace

SaveDelay::SaveDelay(QTimer* tickTimer, int& tickCount, QObject* store, const char* slot)
    : timer(tickTimer)
    , ticks(tickCount)
    , receiver(store)
    , slotOfTick(slot)
{
    QObject::connect(timer, SIGNAL(timeout()), receiver, slotOfTick);
}

bool SaveDelay::tick() { return ++ticks > quietTicks; }

void SaveDelay::setDemoMode(bool enabled)
{
    if (enabled) {
        timer->stop();
        QObject::disconnect(timer, SIGNAL(timeout()), receiver, slotOfTick);
        QObject::connect(timer, SIGNAL(timeout()), timer, SLOT(stop()), Qt::UniqueConnection);
        return;
    }
    if (QObject::disconnect(timer, SIGNAL(timeout()), timer, SLOT(stop()))) {
        timer->stop();
        ticks = 0;
    }
    // Not unique on purpose: without demo mode before it, the ticks count twice from here on.
    QObject::connect(timer, SIGNAL(timeout()), receiver, slotOfTick);
}
