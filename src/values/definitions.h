#pragma once

#include <QObject>

// Turns the integers that the mixer and the preset files use into the numbers on a spin box, and
// back. It has no state; every view, strip and tab that links a control to a spin box holds one and
// calls it directly.
//
// Linear level: (dB + 100) * 100. Fader position: 3000 to 10600 on a cube law. Hundredths: the
// value times 100. A real number that becomes an integer is truncated towards zero, with no
// rounding term unless told; what 32 bits can't hold gives the nearest end of their range,
// not-a-number gives 0.
class Definitions : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;

public slots:
    // Linear range mapping. Equal oldMin and oldMax give an infinity or not-a-number.
    double slotScaleDoubleValue(double value, double oldMin, double oldMax, double newMin,
                                double newMax) const;
    // The same in 32-bit integers, which wrap around; the division truncates. oldMin and oldMax
    // must differ (if they don't, the result is newMin).
    int slotScaleIntValue(int value, int oldMin, int oldMax, int newMin, int newMax) const;

    // Fader position to dB, unrounded. The range is the spin box's (-70 and 6). A position below
    // the fader's range gives not-a-number.
    double slotFadertoSpinboxVolumeMath(int oldValue, int rangeMin, int rangeMax) const;
    // dB to fader position, the one that rounds to nearest. The range is the slider's (3000 and
    // 10600), unlike above.
    int slotSpinboxtoFaderVolumeMath(double oldValue, int rangeMin, int rangeMax) const;

    // Linear level to dB, and back.
    double slotDialtoSpinboxVolumeMath(int oldValue) const;
    int slotSpinboxtoDialVolumeMath(double oldValue) const;

    // Hundredths to the displayed value, and back.
    double slotValuetoSpinboxMath(int oldValue) const;
    int slotSpinboxtoValueMath(double oldValue) const;
};
