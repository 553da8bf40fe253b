#pragma once

#include "forms/viewdialogs.h"
#include "modeentry.h"

#include <QChar>
#include <QObject>

class ChannelSelector;
class InnerDialogs;
class PageWires;
class PresetDrawer;
class PresetInterface;
class ProgressBox;
class QSettings;
class Setlist;
class SysexManager;
struct FullPowerForm;

// Presets to and from the mixer's slots, and the mixer's own changes of preset. The flows wait for
// the mixer while events pass: anything may happen meanwhile, down to the end of the mode that they
// began in. One whose mode is over touches nothing any more. The full-power view owns it.
class SlotTransfer : public QObject
{
    Q_OBJECT

public:
    struct Rooms {
        const ViewMode& mode;
        const FullPowerForm& form;
        InnerDialogs& innerDialogs;
        PageWires& pageWires;
        PresetDrawer& drawer;
        ChannelSelector& selector;
    };

    // view: parent of the progress box. All must outlive this.
    SlotTransfer(QWidget* view, const Rooms& rooms, SysexManager* sysexManager,
                 PresetInterface* presetInterface, Setlist* setlist, QSettings* settingsStore);

    ProgressBox* progress() const { return progressBox; }
    const ReceivePresetDialogForm& receiveForm() const { return receivePresetForm; }
    QPushButton* receiveAsButton() const { return receiveAsForm.receive; }
    QPushButton* receiveAllButton() const { return receiveAllForm.receive; }

    // Nothing runs, at the begin and the end of a mode.
    void rest();
    // A send that was broken off left the mixer holding still.
    void endPause();
    void showAvailability();
    void updateSendsAndReceives(bool enabled, QChar letter);

    // From the slot's button.
    void sendSlotOf(const QObject* button);
    void sendAll();
    // setlistNumber: 0 to 11. presetName: of the library, "[DEFAULT]", or "[OFF]" for nothing.
    void sendPreset(int setlistNumber, const QString& presetName, bool recallCurrent);

    // Asks what to do, or does what was chosen to be remembered.
    void assessReceiveDecision(const QObject* button);
    // From the slot's button, or that of a dialog.
    void receiveSlotOf(const QObject* button);
    void receiveAllFromDialog();
    // The mixer's end marker. slotNum: 0 is the live memory.
    void completeSlot(int slotNum, bool save);
    void presetIsReady() { state.presetReadyToReceive = true; }

    // The mixer changed preset by itself: the list follows, the controls don't.
    void recallSilently(int row);
    void silentRecallIsDone();

public slots:
    void slotOpenReceiveAll();

signals:
    void signalSaveAs(QString presetName, bool isForReceivingPresets, bool isForReceivingAll);

private:
    struct ReceiveRequest {
        QChar letter;
        bool isNew = false;
        QString typedName{};
    };
    // Of one mode.
    struct State {
        bool presetReadyToReceive = false;
        bool waitingForSilentRecall = false;
        bool receivingAllPresets = false;
        int receivedSlotNumber = 0;
        // Slot ends that nobody asked for, recalled just now.
        int freshSlotEnds = 0;
        // The slot whose end marker may ask for a save.
        int requestedSlot = -1;
    };

    void setupDialogs();
    QString presetInSlot(QChar letter) const;
    int rowOfSlot(QChar letter) const;
    void setSending(bool connected);
    void pauseMixer(bool paused);
    bool pauseAfterSlot(const Flow& flow);
    void sendSlot(QChar letter);
    void sendCurrent();

    bool canReceiveNew() const;
    void openReceiveAs(QChar letter);
    void openReceiveChoice(QChar letter);
    void requestSlot(int slotNum, bool save);
    void receiveSlot(const ReceiveRequest& request);
    // False if the flow ends here.
    bool makePreset(const Flow& flow, QChar letter, const QString& name);
    void receiveNew(const Flow& flow, QChar letter, const QString& name);
    void receiveInto(const Flow& flow, QChar letter);
    void receiveAll(const QString& prefix);
    bool receiveSlotAsNew(const Flow& flow, int slot, const QString& prefix);
    void giveUpReceiving();
    void takeSlotEnd(int slotNum, bool save);
    void noteUnaskedEnd(const Flow& flow);

    const Rooms with;
    SysexManager* const sysexManager;
    PresetInterface* const presetInterface;
    Setlist* const setlist;
    QSettings* const settingsStore;
    ProgressBox* const progressBox;

    QWidget* receivePresetDialog = nullptr;
    QWidget* receiveAsDialog = nullptr;
    QWidget* receiveAllDialog = nullptr;
    ReceivePresetDialogForm receivePresetForm;
    ReceiveAsDialogForm receiveAsForm;
    ReceiveAllDialogForm receiveAllForm;

    State state;
    // Beyond the mode: it holds still until it is told to go on.
    bool mixerPaused = false;
};
