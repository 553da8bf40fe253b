#pragma once

#include <QCoreApplication>
#include <QList>
#include <QObject>
#include <QPointer>

#include <functional>
#include <memory>

class PresetInterface;

// One stay of the full-power view in its mode, from the mixer's arrival, or the demo's beginning,
// to its end: how far the sync is, and what waits for the end of a recall. Made at the entry and
// gone at the exit, so nothing of one stay reaches the next. ViewMode owns it.
class ModeEntry : public QObject
{
    Q_OBJECT

public:
    // What can wait for the end of a recall, one of a kind: a newer one takes an older one's place,
    // so that a mixer that talks without end fills no list.
    enum class Waiting { SyncComplete, PresetChange, SlotEnd, AskedSlotEnd, Transfer };

    explicit ModeEntry(const PresetInterface* presets);

    // Whether a whole preset is being laid on the controls. Events that pass inside bring what must
    // wait until it has ended.
    bool isRecalling() const;
    void runLater(Waiting kind, const std::function<void()>& action);
    void runWaiting();
    void runWaitingSoon();

    // While the first preset is laid, before the mixer's live state comes.
    bool isLaying = false;
    // An end marker from before this stay's request tells of an older live state.
    bool liveMemoryAsked = false;
    bool syncComplete = false;
    // The program closes: what runs ends, and nothing begins any more.
    bool isOver = false;

private:
    struct WaitingAction {
        Waiting kind;
        std::function<void()> action;
    };

    const PresetInterface* const presetInterface;
    QList<WaitingAction> waitingActions;
};

// What lets events pass, and goes on only in the stay that it began in.
class Flow
{
public:
    explicit Flow(ModeEntry* begunIn)
        : entry(begunIn)
    {
    }

    bool isAlive() const { return !entry.isNull() && !entry->isOver; }

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
    const QPointer<ModeEntry> entry;
};

// Whether the view is in its mode, for all of its rooms. The view owns it, and alone changes it.
class ViewMode
{
public:
    explicit ViewMode(const PresetInterface* presets)
        : presetInterface(presets)
    {
    }

    void enter() { current = std::make_unique<ModeEntry>(presetInterface); }
    void leave() { current.reset(); }

    // Null outside the mode.
    ModeEntry* entry() const { return current.get(); }
    Flow flow() const { return Flow(current.get()); }
    // The mixer's live state has arrived.
    bool isSynced() const { return current != nullptr && current->syncComplete; }
    // Whether what is touched reaches the mixer, or the demo: not before the sync is complete.
    bool isLive() const { return demoModeEnabled || isSynced(); }
    // Whether a recall runs that what comes now must wait for; then it does, and is dropped with
    // the mode.
    bool putOff(ModeEntry::Waiting kind, const std::function<void()>& action) const;
    void runWaitingSoon() const;

    bool demoModeEnabled = false;

private:
    const PresetInterface* const presetInterface;
    std::unique_ptr<ModeEntry> current;
};
