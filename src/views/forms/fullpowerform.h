#pragma once

#include "reorderablelistwidget.h"

#include <QList>

class PortableSlider;
class QComboBox;
class QFrame;
class QLabel;
class QPushButton;
class QStackedWidget;
class QToolButton;
class QWidget;

// The form of the full-power view, 1200 by 728 pixels: tabs and pages above, the faders below, the
// preset drawer right of all that, from 935 on.
struct FullPowerForm {
    QFrame* frame = nullptr;
    QStackedWidget* mainTabWidget = nullptr;
    // In the order of the pages' indices.
    QWidget* surroundTab = nullptr;
    QWidget* channelStripTab = nullptr;
    QWidget* reverbTab = nullptr;
    QWidget* midiTab = nullptr;
    QWidget* usbTab = nullptr;
    QPushButton* surroundTabButton = nullptr;
    QPushButton* channelStripTabButton = nullptr;
    QPushButton* reverbTabButton = nullptr;
    QPushButton* midiTabButton = nullptr;
    QPushButton* usbTabButton = nullptr;
    QToolButton* showPreset = nullptr;

    QFrame* faderGroupBox = nullptr;

    QFrame* presetFrame = nullptr;
    // Takes the focus while the list is locked.
    QLabel* label = nullptr;
    ReorderableListWidget* presetlist = nullptr;
    QToolButton* liveMemoryHelpButton = nullptr;
    QToolButton* save = nullptr;
    QToolButton* revert = nullptr;
    QToolButton* saveas = nullptr;
    QToolButton* deletepreset = nullptr;
    QToolButton* send_all = nullptr;
    QToolButton* receive_all = nullptr;
    // Slots A to L.
    QList<QComboBox*> setlistMenus{};
    QList<QToolButton*> sendButtons{};
    QList<QToolButton*> receiveButtons{};

    void setupUi(QWidget* form);
    static QString receiveToolTip(QChar letter);

private:
    void layTabs(QWidget* form);
    void layFaders(QWidget* form);
    void layPresets(QWidget* form);
    void laySetlist();
};
