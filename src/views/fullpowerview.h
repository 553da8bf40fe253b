#pragma once

#include <QWidget>

class QLabel;

// The full-power face: so far the frame that the mixing surface stands in, its size with the preset
// drawer open or closed, and its part in the shell's mode changes. ViewManager owns it.
class FullPowerView : public QWidget
{
    Q_OBJECT

public:
    // settingsDialog: the shell's, moved along with the drawer.
    FullPowerView(QWidget* settingsDialog, QWidget* parent);

    static constexpr int heightInPixels = 728;
    static constexpr int widthWithPresets = 1200;
    static constexpr int widthWithoutPresets = 935;

public slots:
    void slotInitializeFullPowerMode();
    void slotDeInitializeFullPowerMode();
    void slotSetDemoModeEnabled(bool enabled);
    // Opens or closes the preset drawer: the view's width follows, and the shell is told.
    void slotShowPresets(bool show);

signals:
    void signalChangeWindowSize(int width, int height);
    void signalReportMainWindowPos(int x, int y);
    void signalFindAudioDeviceNames();
    void signalAddTextToFwLog(QString text);

private:
    QWidget* settingsDialog;
    QLabel* caption;
    bool demoModeEnabled = false;
};
