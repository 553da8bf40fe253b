#include "definitions.h"

#include "cuttoint.h"

#include <cmath>
#include <cstdint>

// The order of the operations decides the last bit, and so what a truncation gives: files and
// mixers hold numbers made in just this order.

namespace
{

double levelToDb(int level) { return level / 100.0 - 100.0; }
double dbToLevel(double db) { return (db + 100.0) * 100.0; }

// Subtracted as real numbers: the difference of two integers may need 33 bits.
double span(double rangeMin, double rangeMax) { return rangeMax - rangeMin; }

} // namespace

double Definitions::slotScaleDoubleValue(double value, double oldMin, double oldMax, double newMin,
                                         double newMax) const
{
    return (value - oldMin) * (newMax - newMin) / (oldMax - oldMin) + newMin;
}

int Definitions::slotScaleIntValue(int value, int oldMin, int oldMax, int newMin, int newMax) const
{
    // Unsigned, since signed overflow is undefined.
    const auto bits = [](int number) { return static_cast<std::uint32_t>(number); };
    const auto product =
        static_cast<int>((bits(newMax) - bits(newMin)) * (bits(value) - bits(oldMin)));
    const auto divisor = static_cast<int>(bits(oldMax) - bits(oldMin));
    if (divisor == 0)
        return newMin;
    // The lowest integer divided by -1 has no place in 32 bits.
    const auto quotient = divisor == -1 ? 0U - bits(product) : bits(product / divisor);
    return static_cast<int>(quotient + bits(newMin));
}

double Definitions::slotFadertoSpinboxVolumeMath(int oldValue, int rangeMin, int rangeMax) const
{
    const double range = span(rangeMin, rangeMax);
    const double position = (levelToDb(oldValue) - rangeMin) / range;
    // Not std::cbrt: it differs in the last bit.
    return std::pow(position, 0.3333333333333333) * range + rangeMin;
}

int Definitions::slotSpinboxtoFaderVolumeMath(double oldValue, int rangeMin, int rangeMax) const
{
    const double range = span(rangeMin, rangeMax);
    const double position = (dbToLevel(oldValue) - rangeMin) / range;
    return cutToInt(std::pow(position, 3.0) * range + rangeMin + 0.5);
}

double Definitions::slotDialtoSpinboxVolumeMath(int oldValue) const { return levelToDb(oldValue); }

int Definitions::slotSpinboxtoDialVolumeMath(double oldValue) const
{
    // Not rounded on purpose: -69.98 dB is 3001.
    return cutToInt(dbToLevel(oldValue));
}

double Definitions::slotValuetoSpinboxMath(int oldValue) const { return oldValue / 100.0; }

int Definitions::slotSpinboxtoValueMath(double oldValue) const
{
    // Not rounded on purpose: 0.29 is 28.
    return cutToInt(oldValue * 100.0);
}
