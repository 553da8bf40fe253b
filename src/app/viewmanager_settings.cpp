// The shell's side of the settings dialog: the global parameters, phantom power on two buttons
// each, the USB audio driver, and HUI.
#include "viewmanager.h"

#include "firmwareupdatemanager.h"
#include "fullpowerview.h"
#include "globalpresetinterface.h"
#include "huiports.h"
#include "selectallspinbox.h"
#include "settingspage.h"
#include "storedvalue.h"
#include "sysexmanager.h"
#include "usbaudio.h"

#include <QDebug>
#include <QDir>
#include <QFileInfo>
#include <QMessageBox>
#include <QProcess>
#include <QPushButton>
#include <QSettings>
#include <QToolButton>

void ViewManager::setupSettings()
{
    settingsPage = new SettingsPage(settingsDialog, globalPresetInterface);
    SettingsForm& settings = settingsPage->settingsForm();
    innerDialogs.closeBy(settings.close_button);
    connect(settingsPage, SIGNAL(signalStoreGlobal(QString, QVariant)),
            SIGNAL(signalStoreGlobal(QString, QVariant)));
    connect(settingsPage, SIGNAL(signalSendParameter(QString, int)),
            SIGNAL(signalSendGlobalParameter(QString, int)));
    connect(settingsPage, SIGNAL(signalPhantomChanged(QString, int)),
            SLOT(slotShowPhantomOnStrips(QString, int)));
    connect(settingsPage, SIGNAL(signalSetUsb(QString, QString)),
            SLOT(slotSetUsb(QString, QString)));
}

void ViewManager::slotShowSettings()
{
    slot_GetUSBDriverSettings();
    innerDialogs.open(settingsDialog, settingsPage->settingsForm().close_button);
}

// The two wires

void ViewManager::slotConnectGlobal() { settingsPage->slotConnectElements(); }
void ViewManager::slotDisconnectGlobal() { settingsPage->slotDisconnectElements(); }
void ViewManager::slotGlobalChanged() { settingsPage->slotValueChanged(); }
void ViewManager::slotSendSysexGlobalParameter() { settingsPage->slotSendSysexParameter(); }
void ViewManager::slotRecallGlobal(QVariantMap map) { settingsPage->slotRecallGlobal(map); }
void ViewManager::slotReceiveGlobalParams(QString jsonName, int value)
{
    settingsPage->slotReceiveGlobalParams(jsonName, value);
}

// What is touched before the mixer's state is here would be heard by nobody.
void ViewManager::slotConnectToSysexGlobalSending()
{
    settingsPage->slotConnectToSysexSending();
    settingsPage->setMixerEnabled(true);
    if (globalsWaitForSync)
        sendGlobals();
}

void ViewManager::slotDisconnectToSysexGlobalSending()
{
    settingsPage->slotDisconnectToSysexSending();
    settingsPage->setMixerEnabled(false);
}

void ViewManager::slotInitSpinboxTextColor(int brightness)
{
    for (SelectAllSpinbox* box : settingsDialog->findChildren<SelectAllSpinbox*>())
        box->slotSetTextColorBrightness(brightness);
}

// Phantom power

// A press in the dialog; the strips follow without a message of their own.
void ViewManager::slotShowPhantomOnStrips(QString name, int value)
{
    if (name.endsWith(QLatin1String("_phantom")))
        qDebug() << "viewmanager slotsendsysexglobalparam: qtoolbutton sender: " << name;
    fullPowerView->showPhantom(name, value);
}

// A press on a strip, which stores and sends by itself.
void ViewManager::slotSetPhantom(int channel, int state)
{
    qDebug() << "viewmanager slotsetPhantom ch: " << channel << " state: " << state;
    slotSetButtonPhantom(channel, state);
}

void ViewManager::slotSetButtonPhantom(int channel, int state)
{
    qDebug() << "slotsetButtonPhantom";
    settingsPage->showPhantom(channel, state != 0);
}

// The change of all globals

// View and panel are not linked meanwhile. After it file, editor and mixer agree.
void ViewManager::changeGlobals(const std::function<void()>& change)
{
    const bool linked = settingsPage->settingsForm().view_linking_enable->isChecked()
        && !fullPowerContainer->isHidden() && fullPowerEntry != Entry::None;
    const int entry = entryNumber;
    if (linked)
        fullPowerView->slotEnableViewChanging(false);
    change();
    if (entry != entryNumber)
        return;
    if (linked)
        fullPowerView->slotEnableViewChanging(true);
    globalsWaitForSync = !demoModeEnabled;
    if (demoModeEnabled || settingsPage->isSending())
        sendGlobals();
}

// The voltage first: no input gets power at the voltage that was. The mixer's panel stays at what
// it shows, also where the values of another mode pass.
void ViewManager::sendGlobals()
{
    globalsWaitForSync = false;
    const QVariantMap globals =
        globalPresetInterface->document().value(QStringLiteral("Global")).toMap();
    const QString voltage = QStringLiteral("phantom_voltage");
    QStringList keys = globals.keys();
    keys.removeAll(voltage);
    keys.prepend(voltage);
    globalSender.setDemoMode(demoModeEnabled);
    const bool followed = sysexManager->isViewChangingEnabled();
    sysexManager->setViewChangingEnabled(false);
    globalSender.sendThese(globals, keys);
    sysexManager->setViewChangingEnabled(followed);
}

void ViewManager::slotClearGlobalPreset()
{
    bool cleared = false;
    changeGlobals([this, &cleared] { cleared = globalPresetInterface->slotClearGlobalPreset(); });
    globalImportExportHandler->reportClear(cleared);
}

// USB audio

void ViewManager::setupUsbAudio()
{
    usbAudio = new UsbAudio(dfuToolPath, this);
    usbAudio->isToolBusy = [this] { return sysexManager->firmware()->isBusy(); };
    QProcess* usbSettingsProcess = usbAudio->process();
    connect(usbSettingsProcess, SIGNAL(finished(int)), SLOT(slot_LoadUSBFinished(int)));
    connect(usbSettingsProcess, SIGNAL(readyReadStandardError()),
            SLOT(slot_ReadErrOutputFromLoadUSBProcess()));
    connect(usbSettingsProcess, SIGNAL(readyReadStandardOutput()),
            SLOT(slot_ReadStdOutputFromLoadUSBProcess()));
    connect(usbAudio, SIGNAL(signalTold(QString, QString)),
            SLOT(slotShowUsbSetting(QString, QString)));
    connect(usbAudio, SIGNAL(signalFailed(QString)), SLOT(slotUsbFailed(QString)));
    slot_GetUSBDriverSettings();
}

void ViewManager::slot_GetUSBDriverSettings() { usbAudio->ask(); }

void ViewManager::slot_LoadUSBFinished(int exitCode)
{
    qDebug() << "LoadUSB Finished: " << exitCode;
    usbAudio->slotFinished(exitCode);
}

void ViewManager::slot_ReadErrOutputFromLoadUSBProcess()
{
    qDebug() << "LoadUSB Err";
    usbAudio->process()->readAllStandardError();
}

void ViewManager::slot_ReadStdOutputFromLoadUSBProcess()
{
    qDebug() << "LoadUSB";
    usbAudio->slotReadOutput();
}

void ViewManager::slotSetUsb(QString menu, QString text) { usbAudio->set(menu, text); }

void ViewManager::slotShowUsbSetting(QString menu, QString text)
{
    settingsPage->showUsbSetting(menu, text);
}

void ViewManager::slotUsbFailed(QString why) { tell(QStringLiteral("USB Audio"), why); }

void ViewManager::slotOpenAudioMidiSetup()
{
    qDebug() << "sample rate button was clicked!";
    const QString panel =
        QStringLiteral("./resources/controlpanel/J-Sum_USBAudio_ControlPanel.exe");
    if (!QProcess::startDetached(panel, {}))
        tell(QStringLiteral("Control Panel"),
             QFileInfo::exists(panel) ? QStringLiteral("The control panel cannot be started:")
                                      : QStringLiteral("The control panel is missing:"),
             QFileInfo(panel).absoluteFilePath());
}

// HUI

// The ports have come or failed: not a press of the user's.
void ViewManager::slotHUIPortButton(bool checked)
{
    QCoreApplication::processEvents();
    QToolButton* hui = settingsPage->settingsForm().hui;
    fullPowerView->slotDisconnectHuiButton(hui);
    hui->setChecked(checked);
    fullPowerView->slotConnectHuiButton(hui);
    hui->setText(checked ? QStringLiteral("ON") : QStringLiteral("OFF"));
    if (!checked)
        settingsStore->setValue(QStringLiteral("hui"), false);
}

void ViewManager::slotShowHUIHelp()
{
    const QString text = QStringLiteral(
        "The HUI feature requires %1, a free virtual MIDI port maker.<br><br>After installing "
        "loopMIDI, use it to create 2 MIDI ports using the default names.<br><br>Enable the HUI "
        "ports here to use 'loopMIDI Port' as your HUI Input, and 'loopMIDI Port 1' as your HUI "
        "Output.%2");
    auto* box = new QMessageBox(QMessageBox::Information, QStringLiteral("HUI Info"),
                                text.arg(huiports::makerLink(), huiports::otherMaker()),
                                QMessageBox::Ok, this);
    box->setTextFormat(Qt::RichText);
    box->setAttribute(Qt::WA_DeleteOnClose);
    box->open();
}

// A box of plain text that blocks nothing.
void ViewManager::tell(const QString& title, const QString& text, const QString& detail)
{
    auto* box = new QMessageBox(QMessageBox::Information, title, text, QMessageBox::Ok, this);
    box->setTextFormat(Qt::PlainText);
    box->setInformativeText(detail);
    box->setAttribute(Qt::WA_DeleteOnClose);
    box->open();
}
