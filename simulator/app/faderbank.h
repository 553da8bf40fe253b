#pragma once

#include "simulator.h"

#include <QWidget>

#include <vector>

class QSlider;
class QToolButton;

// The thirteen faders and mutes of the live memory; part of the PanelWindow. Moving one is a change
// on the panel.
class FaderBank : public QWidget
{
    Q_OBJECT

public:
    explicit FaderBank(Simulator& simulator, QWidget* parent = nullptr);

    // Shows what the live memory holds.
    void refresh();

private slots:
    void slotFaderMoved(int value);
    void slotMuteToggled(bool on);

private:
    struct Column {
        QSlider* fader;
        QToolButton* mute;
        int faderIndex;
        int muteIndex;
    };
    void turn(int index, int value);

    Simulator& m_simulator;
    std::vector<Column> m_columns;
};
