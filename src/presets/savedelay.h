#pragma once

#include <QTimer>

// The delay with which a store saves what changes often: a timer of 1 ms, whose ticks are counted
// anew from each change. Works on the timer and the count that the store shows to others, and
// belongs to that store.
class SaveDelay
{
public:
    // slot: of the store, as SLOT() gives it. It runs at each tick.
    SaveDelay(QTimer* tickTimer, int& tickCount, QObject* store, const char* slot);

    // Counts a tick; true from the 501st on: nothing changed for half a second, so save and stop.
    bool tick();
    // Demo mode saves nothing: the timer, which others go on starting, then only stops itself.
    void setDemoMode(bool enabled);

private:
    QTimer* const timer;
    int& ticks;
    QObject* const receiver;
    const char* const slotOfTick;
};
