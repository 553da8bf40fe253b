#pragma once

#include "channelselection.h"
#include "presetpage.h"

#include <QToolButton>

// The page of one input channel: trim, phantom power, high-pass filter, EQ, compressor, gate, pan
// and the three aux sends. ChannelStripTab owns it. Channels 1 and 2, 3 and 4, 5 and 6, 7 and 8 can
// be stereo pairs.
class ChannelStrip : public PresetPage
{
    Q_OBJECT

public:
    // The displayed number for each place of a dial. Only the trim's is read.
    struct Tables {
        QList<double> highPass{};
        QList<double> lowEq{};
        QList<double> midEq{};
        QList<double> highEq{};
        QList<double> trim{};
    };

    // page: its object name, as "channelstrip_ch3", begins the strip's keys. index: of the channel,
    // from 0 to 7. selection must outlive the strip.
    ChannelStrip(QWidget* page, int index, const ChannelSelection& selection, const Tables& tables);

    int partnerNumber() const { return partner; }
    // Shows what the mixer or the globals hold. Nobody else hears of it.
    void showPhantom(int state);
    // Before the mixer's live state is there a press would reach nobody.
    void setPhantomEnabled(bool enabled);

public slots:
    // Other channels' names are passed over. Goes on to the channels selected after this one.
    void slotReceiveChannelStripParams(QString jsonName, int value);
    // Shows a value that a channel selected together with this one received. Sends, and does not
    // store.
    void slotLetOneChannelEffectAnother(QString jsonName, int value);

    void slotConnectAuxParams();
    void slotPassValuestoAuxStrip();
    // objName: as "ch3_pan"; auxNum: from 0.
    void slotReceiveValuesfromAuxStrip(QString objName, int auxNum, int value);
    // The surround pages use the aux buses: covers and disables the sends, or frees them.
    void slotSetAuxTabLocking(bool locked);

    // From the partner.
    void slotGetStereoStateUpdate(bool enabled);

    // The mixer's state: 0 off, anything else on. Tells the mixer, as a press does.
    void slotSetPhantom(int state);
    void slotUpdatePhantomButton();
    // true: 48 V.
    void setPhantomVoltButton(bool voltage);

signals:
    void signalLetOneChannelEffectAnother(QString jsonName, int value);
    void signalSendGlobalParameter(QString name, int value);
    void signalPassValuestoAuxStrip(QString objName, int chNum, int value);
    void signalPassStereoStateUpdate(bool enabled);
    void signalDeselectChannel(int chNum);
    void signalDeselectAll();
    // Nothing raises it.
    void signalSetPhantom(int channel, int state);

protected:
    bool changedByUser(const Control& control) override;
    bool isSent(const Control& control) const override;
    std::optional<int> recalled(const Control& control, const QVariantMap& preset) const override;

private:
    int channel() const { return channelIndex + 1; }
    Wire auxWire(const Control& control);
    void forwardToSelection(const QString& jsonName, int value);
    void receiveStereo(const Control& control, bool paired);
    // A linked pair is not selected twice: the channel that was selected last stays.
    void deselectForPairing();
    void deselectForUnpairing();

    const int channelIndex;
    const ChannelSelection& selection;
    const Tables tables;
    const int partner; // from 1
    const bool firstOfPair;
    bool ignoreNextPhantom = false;
    QWidget* auxDisableWidget = nullptr;
    QWidget* routing = nullptr;
    QToolButton* phantom = nullptr;
};
