#include "usbtab.h"

#include "forms/usbform.h"

UsbTab::UsbTab(QWidget* parent, GlobalPresetInterface* globals)
    : GlobalTab(parent, QStringLiteral("USB"), globals)
{
    setObjectName(QStringLiteral("usbTabView"));
    const UsbForm form(hostWidget(), spokenName());
    addGlobalSendButton(hostWidget());
    adoptTab({}, UsbForm::buttonRows(), {}, {});
}

void UsbTab::slotReceiveUSBParams(QString jsonName, int value) { receive(jsonName, value); }
