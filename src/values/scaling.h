#pragma once

// Turns the integers that the mixer and the preset files use into the numbers on a spin box, and
// back. Pure functions; Definitions has them as slots.
//
// Linear level: (dB + 100) * 100. Fader position: 3000 to 10600 on a cube law. Hundredths: the
// value times 100. A real number that becomes an integer is truncated towards zero, with no
// rounding term unless told; what 32 bits can't hold gives the nearest end of their range,
// not-a-number gives 0.
namespace scaling
{

// Linear range mapping. Equal oldMin and oldMax give an infinity or not-a-number.
double scaled(double value, double oldMin, double oldMax, double newMin, double newMax);
// The same in 32-bit integers, which wrap around; the division truncates. oldMin and oldMax must
// differ (if they don't, the result is newMin).
int scaledInt(int value, int oldMin, int oldMax, int newMin, int newMax);

// Fader position to dB, unrounded. The range is the spin box's (-70 and 6). A position below the
// fader's range gives not-a-number.
double faderToDb(int position, int rangeMin, int rangeMax);
// dB to fader position, the one that rounds to nearest. The range is the slider's (3000 and
// 10600), unlike above.
int dbToFader(double db, int rangeMin, int rangeMax);

double levelToDb(int level);
int dbToLevel(double db);

double fromHundredths(int hundredths);
int toHundredths(double value);

} // namespace scaling
