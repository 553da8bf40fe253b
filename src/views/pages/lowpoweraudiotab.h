#pragma once

#include "presetpage.h"

// The low-power face's page of levels: fader and mute of every channel, and the gains of each
// input's equaliser. Its object names are whole keys. What it shows comes from the mixer alone: no
// preset stands behind it, so its store wire stays cut. LowPowerView owns it.
class LowPowerAudioTab : public PresetPage
{
    Q_OBJECT

public:
    // size: in pixels; the form fills it.
    LowPowerAudioTab(QWidget* parent, const QSize& size);

public slots:
    void slotLinkFaderToSpinbox(int value) { slotLinkDialToSpinbox(value); }
    // value: in dB.
    void slotLinkSpinboxToFader(double value) { slotLinkDoubleSpinboxtoDial(value); }
    void slotLinkDoubleSpinboxToDial(double value) { slotLinkDoubleSpinboxtoDial(value); }
    // key: of a parameter that stands on other pages alone, nothing happens; one that is no
    // parameter leaves a debug line.
    void slotReceiveParams(QString key, int value);

protected:
    const char* slotToBox(const Control& control) const override;
    const char* slotFromBox(const Control& control) const override;
};
