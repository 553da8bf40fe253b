#pragma once

#include "presetpage.h"

// The page of the reverb: what each channel sends to it, its level and its sound. Its controls bear
// their whole keys as object names. The full-power view owns it.
class ReverbTabForm : public PresetPage
{
    Q_OBJECT

public:
    explicit ReverbTabForm(QWidget* parent = nullptr);

public slots:
    // Other pages' names are passed over.
    void slotReceiveReverbParams(QString jsonName, int value);
    // From the mains' page, which shows the level too: moves the control here, and so stores and
    // sends. Is not passed back.
    void slot_reverb_level(int value);

signals:
    void signal_reverb_level(int value);

private:
    Wire levelWire();
};
