#pragma once

#include "jsonstore.h"
#include "librarytext.h"
#include "parametersender.h"
#include "presetlibrary.h"
#include "reorderablelistwidget.h"
#include "savedelay.h"

#include <QObject>
#include <QTimer>
#include <QVariantMap>

#include <functional>

// Owns the preset library: its file, its presets with their edits, and what recalls or sends them.
// ViewManager owns it.
//
// A preset number is an index into the library; -1 means the current preset. A number that the
// library doesn't have stands for an empty preset, and what would change it does nothing but a
// debug line. Preset 0, "[CONNECTION SYNC]", follows the mixer's live memory. In demo mode nothing
// is written.
class PresetInterface : public QObject, public JsonStore
{
    Q_OBJECT

public:
    explicit PresetInterface(QObject* parent = nullptr);

    static constexpr int maxPresets = PresetLibrary::maxPresets;

    // The full-power view starts the timer with 1 ms at a report on preset 0 if it isn't active,
    // and sets the count of its ticks to 0.
    QTimer* const liveMemoryTimer;
    int liveMemoryTicks = 0;

    int currentPresetNumber() const { return currentPreset; } // -1: none
    int presetCount() const { return library.count(); }
    // With its edits.
    QVariantMap workingPreset(int presetNum) const { return library.workingPreset(presetNum); }
    // To be asked before a new preset is made: slotSavePresetAs then refuses, and nothing gets
    // ready to receive.
    bool isFull() const { return library.isFull(); }
    // While a recall lets events pass.
    bool isRecalling() const { return recalling; }

    // What differs from the saved state that slotSendPreset sends: after both the mixer holds the
    // preset with its edits.
    void sendUnsavedEdits(int presetNum);
    // The live preset goes on from another's values, edits included, and keeps its name: the mixer
    // went over to its own memory with that preset in it.
    void goOnLiveFrom(int presetNum);

    // Whether the current preset can be pasted into, or a new one selected: it is there, what
    // changes can be shown and sent, and no recall is under way, whose parameters would go out
    // after the pasted ones.
    bool isReadyToPaste() const;
    // Both lay the values over the edits of the current preset, show them and send them, as a
    // recall does; what is no parameter of the mixer is passed over, so the name stays. When not
    // ready they do nothing but a debug line.
    void pastePreset(const QVariantMap& values);
    // Sends only these, with the mixer's stereo pairs in force: the partner follows, as when
    // controls are moved by hand.
    void pasteParameters(const QVariantMap& values);
    // The state that a cleared preset goes to, without a name: the blank template, with factory
    // values for what it lacks. A file that can't be read lacks everything.
    QVariantMap blankPreset() const;
    // In their order.
    QStringList presetNames() const { return library.names(); }
    // As saved; of the preset that follows the mixer the live state.
    QVariantMap presetToExport(int presetNum) const;
    // How many presets can be added. None to an empty library: the first preset is the mixer's.
    int roomForPresets() const { return presetCount() == 0 ? 0 : maxPresets - presetCount(); }
    // A name for each new preset. One that is free, also of those before it in the list, and not
    // reserved stays; any other is given a copy number, behind its first 24 characters.
    QStringList namesForNew(const QStringList& wanted) const { return library.freeNames(wanted); }
    // Saves new presets as the last ones, as many as there is room for, with one write, and returns
    // how many; the current preset stays current. Their names have to be free.
    int appendPresets(const QList<QVariantMap>& presets);
    // One, and returns its number; -1 without room.
    int appendPreset(const QVariantMap& preset);

public slots:
    void slotUpdateJSONPath();
    // Also puts right what a crash left of the file, and makes its daily copy.
    void slotReadJSON();
    // Writes the map, a whole library.
    void slotWriteJSON(QVariantMap jsonMap);
    // Counts stray keys that hold the word "Preset" too: presetCount() doesn't.
    int slotGetNumPresetsInJson() const;
    // Empty for a number that has no key.
    QString slotGetPresetStringFromInt(int presetNum) const;
    // The first preset of that saved name; a null string without one.
    QString slotGetPresetStringFromName(QString presetName);
    void slotPopulatePresetLists();
    void slotPopulatePresetMenu(ReorderableListWidget* presetList);
    // Gives the library the order and the length of the two lists.
    void slotOrderPresetsInJson();
    void slotConstructDefaultMap();

    // Names that end in "_phantom" are passed over: phantom power is a global parameter.
    void slotStoreValue(QString name, QVariant value, int presetNum);
    void slotCheckSaveState(int presetNum);
    // Recalls edits too. Outside demo mode and before the mixer is in sync, only makes the preset
    // current.
    void slotRecallPreset(int i);
    void slotRecallPresetActions();
    // Without a recall: for a preset that is the current one already and whose number changed.
    void slotSetCurrentPreset(int presetNum);
    void slotSavePreset(int presetToSave);
    // presetName: free, as slotAppendSuffixToNewPresetName makes it.
    void slotSavePresetAs(QString presetName, bool isForReceivingPreset, bool isForReceivingAll);
    // Edits of the preset survive unsaved.
    void slotRenamePreset(QString presetName);
    // The order of the list's rows; a preset without a row goes to the end.
    void slotReorderPresets(ReorderableListWidget* presetList);
    void slotRevertPreset();
    void slotDeletePreset();
    // Sends the saved state to the mixer without touching the controls. Here -1 means the factory
    // preset.
    void slotSendPreset(int presetLibraryNum);
    // A name that no preset has yet, made from the one given.
    QString slotAppendSuffixToNewPresetName(QString name);
    void slotSaveLiveMemoryTimeout();
    void slotSetSyncStatus(bool complete);
    // What waits to be saved is, before demo mode begins. Leaving it drops what was changed in it.
    void slotSetDemoModeEnabled(bool enabled);

signals:
    void signalRecallPreset(QVariantMap preset);
    void signalPresetMenu(int goToPresetNum);
    void signalPresetDirty(int presetNum, bool dirty);
    void signalAddOrRemovePreset();
    void signalPopulateSetlistMenus(ReorderableListWidget* presetList);
    void signalPopulateSetlistMenusAfterDelete();
    void signalSendPresetParameter(QString jsonName, int value);
    void signalDisconnectFromSysexSending();
    void signalConnectToSysexSending();
    void signalPresetListEnabled(bool enabled);
    void signalStereoUpdatingStatus(bool enabled);
    void signalStopLiveMemoryTimer();
    void signalPresetIsReadyToReceive();
    void signalPresetDoneRecalling();
    // Nothing raises it.
    void signalAddTextToFwLogFile(QString text);

private:
    // Whether the sync is still the one that it was when this was made. What lets events pass may
    // end it; the mixer for which the rest was meant is gone then.
    class SyncGuard
    {
    public:
        explicit SyncGuard(const PresetInterface* presetInterface)
            : store(presetInterface)
            , number(store->syncNumber)
        {
        }
        bool holds() const { return number == store->syncNumber; }

    private:
        const PresetInterface* const store;
        const int number;
    };

    void saveLiveMemory();
    int resolved(int presetNum) const { return presetNum == -1 ? currentPreset : presetNum; }
    bool layOverCurrent(const QVariantMap& values);

    // Shows the current preset, then gives it to send, which sends what is wanted of it.
    void showAndSend(const std::function<void(const QVariantMap& preset)>& send);
    bool show(const SyncGuard& sync);

    PresetLibrary library;
    PresetLibrary libraryBeforeDemo;
    LibraryText libraryText;
    QVariantMap defaultMap;
    SaveDelay saveDelay;
    ParameterSender sender;
    int currentPreset = -1;
    bool syncComplete = false;
    bool recalling = false;
    // Counts the ends of the sync.
    int syncNumber = 0;
    // Counts the recalls: one during which a newer one ran sends nothing.
    int recallNumber = 0;
};
