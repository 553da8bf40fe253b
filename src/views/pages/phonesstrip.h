#pragma once

#include "parameterpage.h"

// The page of the phones: which channel they hear. ChannelStripTab owns it.
class PhonesStrip : public ParameterPage
{
    Q_OBJECT

public:
    // page: its object name begins the page's key.
    explicit PhonesStrip(QWidget* page);

public slots:
    // Other pages' names are passed over.
    void slotReceiveChannelStripParams(QString jsonName, int value) { receive(jsonName, value); }
};
