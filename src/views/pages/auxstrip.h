#pragma once

#include "controlpage.h"

// The page of one aux bus: for each input channel its send level, pan and pre/post switch. It has
// neither store nor send wire: it mirrors the aux controls of the channel strips, and they do both.
// ChannelStripTab owns it.
class AuxStrip : public ControlPage
{
    Q_OBJECT

public:
    // index: of the bus, from 0 to 2.
    AuxStrip(QWidget* page, int index);

public slots:
    void slotLinkFadertoSpinbox(int value) { slotLinkDialToSpinbox(value); }
    void slotLinkSpinboxtoFader(double value) { slotLinkDoubleSpinboxtoDial(value); }
    void slotPassValuestoChannelStrip();
    // objName: as "aux1_routing_pan", other buses are passed over; chNum: from 0.
    void slotReceiveValuesfromChannelStrip(QString objName, int chNum, int value);

signals:
    // objName: as "ch3_pan"; auxNum: from 0.
    void signalPassValuestoChannelStrip(QString objName, int auxNum, int value);

protected:
    const char* slotToBox(const Control& /*control*/) const override
    {
        return SLOT(slotLinkFadertoSpinbox(int));
    }
    const char* slotFromBox(const Control& /*control*/) const override
    {
        return SLOT(slotLinkSpinboxtoFader(double));
    }

private:
    Wire mirrorWire(const Control& control);

    const int auxIndex;
};
