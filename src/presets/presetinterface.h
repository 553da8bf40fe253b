#pragma once

#include "jsonfile.h"
#include "librarytext.h"
#include "reorderablelistwidget.h"

#include <QHash>
#include <QList>
#include <QObject>
#include <QTimer>
#include <QVariantMap>

// Owns the preset library: one file, of which two states are kept, the saved one and the one with
// the edits that are not saved yet; and all that changes, recalls or sends a preset. ViewManager
// owns it.
//
// A preset number is an index into the library; -1 means the current preset. A number that the
// library doesn't have stands for an empty preset, and what would change it does nothing but a
// debug line. Preset 0, "[CONNECTION SYNC]", follows the mixer's live memory. In demo mode nothing
// is written.
class PresetInterface : public QObject
{
    Q_OBJECT

public:
    explicit PresetInterface(QObject* parent = nullptr);

    // The format's limit: a key has three digits. Entries beyond stay in the file, and nothing is
    // added.
    static constexpr int maxPresets = 1000;

    // Written by ViewManager before the path is computed: whether the file is in resourcesFolder,
    // which ends in a slash, and not in the working directory.
    QString resourcesFolder;
    bool useResourcesFolder = false;
    // Likewise: whether the folder is this editor's; in another's, nothing is touched.
    JsonFile::Access access = JsonFile::Access::Full;

    // The full-power view starts the timer with 1 ms at a report on preset 0 if it isn't active,
    // and sets the count of its ticks to 0.
    QTimer* const liveMemoryTimer;
    int liveMemoryTicks = 0;

    int currentPresetNumber() const { return currentPreset; } // -1: none
    // How many presets there are, numbered from 0 without a gap. What else stands in the file,
    // stray keys and entries beyond the limit, is none.
    int presetCount() const;
    // With its edits.
    QVariantMap workingPreset(int presetNum) const;
    // To be asked before a new preset is made: slotSavePresetAs then refuses, and nothing gets
    // ready to receive.
    bool isFull() const { return presetCount() >= maxPresets; }
    bool isDemoMode() const { return demoMode; }
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
    // Saves a new preset as the last one and returns its number; the current preset stays current.
    // -1, and nothing done, for a library that is full, or empty: the first preset is the mixer's.
    // preset: its name has to be free.
    int appendPreset(const QVariantMap& preset);

public slots:
    void slotUpdateJSONPath();
    // Also puts right what a crash left of the file, and makes its daily copy. Presets are numbered
    // without a gap, behind the one that follows the mixer: without it, the first of them would be
    // written over. A file without any preset stays so.
    void slotReadJSON();
    // Writes the map, a whole library.
    void slotWriteJSON(QVariantMap jsonMap);
    // A stray key that holds the word "Preset" is counted too; entries beyond the limit are not.
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
    QString pathOf(const QString& fileName) const;
    void putSyncPresetFirst(QVariantList& presets) const;
    void saveLiveMemory();
    int resolved(int presetNum) const { return presetNum == -1 ? currentPreset : presetNum; }
    bool contains(int presetNum) const;
    QVariantMap savedPreset(int presetNum) const;
    // The preset's own map, to be changed in place; null when the library doesn't have it.
    QVariantMap* presetIn(QVariantMap& library, int presetNum);
    void copyToSaved(int presetNum);
    // To the working and the saved state, with nothing written.
    void append(const QVariantMap& preset);
    bool layOverCurrent(const QVariantMap& values);
    void leaveDemoMode();

    // Shows the whole current preset and sends these of its parameters; without any, all.
    void showAndSend(const QStringList& keys);
    bool show(int sync);
    void sendParameters(const QVariantMap& preset);
    void sendParameter(const QString& jsonName, const QVariant& value);
    void waitForMixer();

    // The library as it stands on disk, and with the edits that are not saved yet.
    QVariantMap savedMap;
    QVariantMap workingMap;
    // Both in numeric order; made anew before each change of the order.
    QList<QVariantMap> savedList;
    QList<QVariantMap> workingList;
    QVariantMap defaultMap;
    JsonFile file;
    int currentPreset = -1;
    bool demoMode = false;
    bool syncComplete = false;
    bool recalling = false;
    // Counts the ends of the sync: a recall whose mixer is gone stops.
    int syncNumber = 0;
    // Counts the recalls: one during which a newer one ran sends nothing.
    int recallNumber = 0;
    QVariantMap savedMapBeforeDemo;
    QVariantMap workingMapBeforeDemo;
    LibraryText libraryText;
    // Keys by saved name; empty when it is to be made anew.
    QHash<QString, QString> keysByName;
};
