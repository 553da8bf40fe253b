#pragma once

#include "channelselection.h"
#include "presetpage.h"

// The faders of all channels, with mute and solo and the numbers beside them: a page whose object
// names are whole keys. Its recall lets no events pass. The full-power view owns it, tells it of
// Shift, and keeps the select buttons that stand on it.
class FaderFrame : public PresetPage
{
    Q_OBJECT

public:
    // Fills its parent. selection must outlive it.
    FaderFrame(QWidget* parent, const ChannelSelection& selection);

    // Whether the solo that is pressed now ends every other one.
    void setSoloAlone(bool alone) { soloAlone = alone; }
    void setPressedSolo(const QObject* solo) { pressedSolo = solo; }
    // To 0 dB, if its number can be typed too.
    void setToZero(const QObject* fader);

public slots:
    // key: one that no control has leaves a debug line.
    void slotReceiveFaderParams(QString key, int value) { receive(key, value); }

protected:
    bool letsEventsPass() const override { return false; }
    // The faders of channels that are selected together follow one that the mixer moves, and the
    // mixer hears of them.
    bool receivesWhole() const override { return false; }
    bool changedByUser(const Control& control) override;
    void showOwnState(const Control& control) override;

private slots:
    void slotSoloReleased() { pressedSolo = nullptr; }

private:
    void endOtherSolos(const QObject* solo);

    const ChannelSelection& selection;
    bool soloAlone = false;
    const QObject* pressedSolo = nullptr;
};
