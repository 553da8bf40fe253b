#pragma once

#include "presetpage.h"

// The page of the phones: which channel they hear. ChannelStripTab owns it.
class PhonesStrip : public PresetPage
{
    Q_OBJECT

public:
    // page: its object name begins the page's key.
    explicit PhonesStrip(QWidget* page);

public slots:
    // Other pages' names are passed over.
    void slotReceiveChannelStripParams(QString jsonName, int value) { receive(jsonName, value); }
};
