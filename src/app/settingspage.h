#pragma once

#include "forms/settingsform.h"
#include "globalpage.h"

// The page of the settings dialog: the global parameters that belong to no other page. The shell
// owns it, and shows phantom power on its buttons and the strips' alike.
class SettingsPage : public GlobalPage
{
    Q_OBJECT

public:
    // Fills the dialog. globals must outlive it.
    SettingsPage(QWidget* dialog, GlobalPresetInterface* globals);

    SettingsForm& settingsForm() { return form; }

    // channel: 0 or 1. Stores and sends nothing.
    void showPhantom(int channel, bool on);
    // What the driver told, shown and not set again; a text that the menu lacks is added.
    void showUsbSetting(const QString& menu, const QString& text);
    // Of the controls that reach the mixer.
    void setMixerEnabled(bool enabled);

public slots:
    // A key of another page is passed over.
    void slotReceiveGlobalParams(QString key, int value);

signals:
    // The user's choice in one of the driver's two menus.
    void signalSetUsb(QString menu, QString text);
    // The user's, of phantom power or its voltage.
    void signalPhantomChanged(QString key, int value);

protected:
    bool changedByUser(const Control& control) override;
    void showOwnState(const Control& control) override;

private:
    SettingsForm form;
};
