#include "fullpowerview.h"

#include <QDebug>
#include <QLabel>

FullPowerView::FullPowerView(QWidget* shellSettingsDialog, QWidget* parent)
    : QWidget(parent)
    , settingsDialog(shellSettingsDialog)
    , caption(new QLabel(this))
{
    setObjectName(QStringLiteral("fullPowerView"));
    setGeometry(0, 0, widthWithPresets, heightInPixels);
    caption->setObjectName(QStringLiteral("caption"));
    caption->setAlignment(Qt::AlignCenter);
    caption->setGeometry(0, 20, widthWithoutPresets, heightInPixels - 20);
}

void FullPowerView::slotInitializeFullPowerMode()
{
    caption->setText(demoModeEnabled ? QStringLiteral("Demo mode")
                                     : QStringLiteral("J-Sum connected"));
    emit signalFindAudioDeviceNames();
}

void FullPowerView::slotDeInitializeFullPowerMode() { caption->clear(); }

void FullPowerView::slotSetDemoModeEnabled(bool enabled)
{
    qDebug() << "demo mode enabled?" << enabled;
    demoModeEnabled = enabled;
}

void FullPowerView::slotShowPresets(bool show)
{
    const int width = show ? widthWithPresets : widthWithoutPresets;
    setFixedSize(width, heightInPixels);
    emit signalChangeWindowSize(width, heightInPixels);
    settingsDialog->setGeometry(show ? 175 : 42, 178, 850, 336);
}
