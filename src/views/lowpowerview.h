#pragma once

#include "wires.h"

#include <QList>
#include <QWidget>

class GlobalPresetInterface;
class LowPowerAudioTab;
class MidiTab;
class QStackedWidget;
class SysexManager;

// The low-power face: the channels' levels and the MIDI mapping. ViewManager owns it, parks it at
// the start, and enters and leaves its mode. Parked it is joined to nothing; entered it shows what
// the mixer holds and sends what is touched. It knows no presets and stores nothing of them.
class LowPowerView : public QWidget
{
    Q_OBJECT

public:
    static constexpr int widthInPixels = 800;
    static constexpr int heightInPixels = 410;

    // All must outlive the view; the settings dialog's form may be laid later.
    LowPowerView(SysexManager* sysexManager, GlobalPresetInterface* globalPresetInterface,
                 QWidget* settingsDialog, QWidget* parent);

public slots:
    // Asks for the mixer's live state. Until that is there nothing can be touched. A further entry
    // begins anew.
    void slotInitializeLowPowerMode();
    // Also of a mode that was not entered.
    void slotDeInitializeLowPowerMode();

signals:
    // To the settings dialog's controls.
    void signalConnectGlobalSysex();
    void signalDisconnectGlobalSysex();

private slots:
    // The mixer's live state has arrived.
    void slotSyncComplete();

private:
    // At the first entry: it would take as long as half of all else at the program's start.
    void makeFace();
    void layTabs();
    void setSending(bool connected);

    SysexManager* const sysexManager;
    GlobalPresetInterface* const globalPresetInterface;
    QWidget* const settingsDialog;
    // Null until the first entry.
    QStackedWidget* pages = nullptr;
    LowPowerAudioTab* audioTab = nullptr;
    MidiTab* midiTab = nullptr;
    // Those of one stay; empty while parked.
    QList<Wire> wires;
};
