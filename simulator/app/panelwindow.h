#pragma once

#include "simulator.h"

#include <QTimer>
#include <QWidget>

class FaderBank;
class MessageMonitor;
class QButtonGroup;
class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QSlider;
class QSpinBox;
class SurfacePanel;

// The mixer's panel as a window: cable, restart, modes, channels, faders, any parameter, firmware,
// the control surface and the running monitor. Owned by main; everything in it acts on the
// Simulator.
class PanelWindow : public QWidget
{
    Q_OBJECT

public:
    explicit PanelWindow(Simulator& simulator, QWidget* parent = nullptr);

private slots:
    void slotRefresh();
    void slotToggleCable();
    void slotRestart();
    void slotMode(int mode);
    void slotChannel(int channel);
    void slotParameterChosen(int row);
    void slotTurn();
    void slotSync();
    void slotSetFirmware();
    void slotSetFailure(const QString& failure);

private:
    QWidget* makeHead();
    QWidget* makeSelection();
    QWidget* makeParameter();
    QWidget* makeFirmware();
    QWidget* makePanel(const QString& title, QWidget* parent, class QBoxLayout*& content);
    void refreshCable();
    void refreshFirmware();

    Simulator& m_simulator;
    FaderBank* m_faders;
    SurfacePanel* m_surface;
    MessageMonitor* m_monitor;
    QLabel* m_status = nullptr;
    QPushButton* m_cable = nullptr;
    QButtonGroup* m_modes = nullptr;
    QButtonGroup* m_channels = nullptr;
    QComboBox* m_parameter = nullptr;
    QSlider* m_slider = nullptr;
    QSpinBox* m_value = nullptr;
    QLineEdit* m_version = nullptr;
    QComboBox* m_failure = nullptr;
    QLabel* m_running = nullptr;
    QTimer m_refreshTimer;
};
