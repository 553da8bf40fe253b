#pragma once

#include "fullpowerview.h"

#include <QCoreApplication>
#include <QPointer>

// Belongs to the mode entry that it began in.
class FullPowerView::Flow
{
public:
    explicit Flow(FullPowerView* owner)
        : view(owner)
        , entry(owner->modeEntry)
    {
    }

    bool isAlive() const { return !view.isNull() && view->isCurrent(entry); }

    // Lets events pass until done; false if the flow's time is over first.
    template <typename Condition> bool waitUntil(Condition done) const
    {
        while (isAlive() && !done())
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        return isAlive();
    }
    bool letEventsPass() const
    {
        QCoreApplication::processEvents();
        return isAlive();
    }

private:
    const QPointer<FullPowerView> view;
    const int entry;
};
