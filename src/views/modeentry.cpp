#include "modeentry.h"

#include "presetinterface.h"

#include <utility>

ModeEntry::ModeEntry(const PresetInterface* presets)
    : presetInterface(presets)
{
}

bool ModeEntry::isRecalling() const { return isLaying || presetInterface->isRecalling(); }

void ModeEntry::runLater(Waiting kind, const std::function<void()>& action)
{
    waitingActions.removeIf([kind](const WaitingAction& waiting) { return waiting.kind == kind; });
    waitingActions.append({kind, action});
}

void ModeEntry::runWaiting()
{
    if (isRecalling())
        return;
    const Flow flow(this);
    // Those that must wait on line up again.
    const auto actions = std::exchange(waitingActions, {});
    for (const WaitingAction& waiting : actions)
        if (flow.isAlive())
            waiting.action();
}

void ModeEntry::runWaitingSoon()
{
    if (!waitingActions.isEmpty())
        QMetaObject::invokeMethod(this, &ModeEntry::runWaiting, Qt::QueuedConnection);
}

bool ViewMode::putOff(ModeEntry::Waiting kind, const std::function<void()>& action) const
{
    if (current == nullptr)
        return presetInterface->isRecalling();
    if (current->isRecalling())
        current->runLater(kind, action);
    return current->isRecalling();
}

void ViewMode::runWaitingSoon() const
{
    if (current != nullptr)
        current->runWaitingSoon();
}
