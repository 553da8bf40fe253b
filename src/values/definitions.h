#pragma once

#include "scaling.h"

#include <QObject>

// The value scaling as slots, one for each function of scaling.h, which tells units and ranges. It
// has no state; ViewManager owns one.
class Definitions : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;

public slots:
    double slotScaleDoubleValue(double value, double oldMin, double oldMax, double newMin,
                                double newMax) const
    {
        return scaling::scaled(value, oldMin, oldMax, newMin, newMax);
    }
    int slotScaleIntValue(int value, int oldMin, int oldMax, int newMin, int newMax) const
    {
        return scaling::scaledInt(value, oldMin, oldMax, newMin, newMax);
    }
    double slotFadertoSpinboxVolumeMath(int oldValue, int rangeMin, int rangeMax) const
    {
        return scaling::faderToDb(oldValue, rangeMin, rangeMax);
    }
    int slotSpinboxtoFaderVolumeMath(double oldValue, int rangeMin, int rangeMax) const
    {
        return scaling::dbToFader(oldValue, rangeMin, rangeMax);
    }
    double slotDialtoSpinboxVolumeMath(int oldValue) const { return scaling::levelToDb(oldValue); }
    int slotSpinboxtoDialVolumeMath(double oldValue) const { return scaling::dbToLevel(oldValue); }
    double slotValuetoSpinboxMath(int oldValue) const { return scaling::fromHundredths(oldValue); }
    int slotSpinboxtoValueMath(double oldValue) const { return scaling::toHundredths(oldValue); }
};
