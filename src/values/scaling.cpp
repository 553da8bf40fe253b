#include "scaling.h"

#include "cuttoint.h"

#include <cmath>
#include <cstdint>

// The order of the operations decides the last bit, and so what a truncation gives: files and
// mixers hold numbers made in just this order.

namespace
{

double levelOf(double db) { return (db + 100.0) * 100.0; }

// Subtracted as real numbers: the difference of two integers may need 33 bits.
double span(double rangeMin, double rangeMax) { return rangeMax - rangeMin; }

} // namespace

double scaling::scaled(double value, double oldMin, double oldMax, double newMin, double newMax)
{
    return (value - oldMin) * (newMax - newMin) / (oldMax - oldMin) + newMin;
}

int scaling::scaledInt(int value, int oldMin, int oldMax, int newMin, int newMax)
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

double scaling::faderToDb(int position, int rangeMin, int rangeMax)
{
    const double range = span(rangeMin, rangeMax);
    const double place = (levelToDb(position) - rangeMin) / range;
    // Not std::cbrt: it differs in the last bit.
    return std::pow(place, 0.3333333333333333) * range + rangeMin;
}

int scaling::dbToFader(double db, int rangeMin, int rangeMax)
{
    const double range = span(rangeMin, rangeMax);
    const double place = (levelOf(db) - rangeMin) / range;
    return cutToInt(std::pow(place, 3.0) * range + rangeMin + 0.5);
}

double scaling::levelToDb(int level) { return level / 100.0 - 100.0; }

// Not rounded on purpose: -69.98 dB is 3001.
int scaling::dbToLevel(double db) { return cutToInt(levelOf(db)); }

double scaling::fromHundredths(int hundredths) { return hundredths / 100.0; }

// Not rounded on purpose: 0.29 is 28.
int scaling::toHundredths(double value) { return cutToInt(value * 100.0); }
