#pragma once

#include "presetpage.h"

// The page of the mains: equaliser, compressor, gate, and the reverb's level, which belongs to the
// reverb page and is mirrored here. ChannelStripTab owns it.
class MainsStrip : public PresetPage
{
    Q_OBJECT

public:
    // The displayed number for each place of a dial; nothing reads them yet.
    struct Tables {
        QList<double> lowEq{};
        QList<double> midEq{};
        QList<double> highEq{};
    };

    // page: its object name begins the page's keys.
    MainsStrip(QWidget* page, const Tables& tables);

public slots:
    // Other pages' names are passed over.
    void slotReceiveChannelStripParams(QString jsonName, int value) { receive(jsonName, value); }
    // From the reverb page. Is not passed back.
    void slot_reverb_level(int value);

signals:
    void signal_reverb_level(int value);

protected:
    bool isParameter(const Control& control) const override;

private:
    Wire reverbWire();

    const Tables tables;
};
