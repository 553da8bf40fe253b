#pragma once

#include "simulator.h"

#include <QWidget>

#include <vector>

class QAbstractButton;
class QBoxLayout;
class QComboBox;
class QGridLayout;
class QSlider;
class QToolButton;

// The mixer's controls as a surface for other programs; part of the PanelWindow. A fader is touched
// for as long as the mouse holds it.
class SurfacePanel : public QWidget
{
    Q_OBJECT

public:
    explicit SurfacePanel(Simulator& simulator, QWidget* parent = nullptr);

    // Shows positions and lights as they are.
    void refresh();

private slots:
    void slotMoved(int position);
    void slotTouched();
    void slotReleased();
    void slotMute();
    void slotSolo();
    void slotDown();
    void slotUp();
    void slotMapBank(int row);

private:
    struct Strip {
        QSlider* fader;
        QToolButton* record;
        QToolButton* solo;
        QToolButton* mute;
    };
    void addStrip(QBoxLayout* layout, int number);
    QToolButton* addNoteButton(QGridLayout* layout, int row, int column, const QString& text,
                               int button);
    QToolButton* makeButton(const QString& text, const char* role, int number);
    ControlSurface& controls() { return m_simulator.mixer().controls(); }

    Simulator& m_simulator;
    std::vector<Strip> m_strips;
    QToolButton* m_banks[2]{};
    QComboBox* m_mapBank;
};
