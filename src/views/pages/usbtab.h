#pragma once

#include "globaltab.h"

// The page of the USB routing: where each channel is taken for the computer, and where it gets the
// computer's sound. The full-power view owns it.
class UsbTab : public GlobalTab
{
    Q_OBJECT

public:
    // globals must outlive it.
    UsbTab(QWidget* parent, GlobalPresetInterface* globals);

public slots:
    void slotReceiveUSBParams(QString jsonName, int value);
};
