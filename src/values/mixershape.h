#pragma once

#include <array>

// The mixer's channels by number: 1 to 8 inputs, 9 mains, 10 to 12 aux 1 to 3 and 13 phones.
namespace channels
{

inline constexpr int lastInput = 8;
inline constexpr int mains = 9;
inline constexpr int firstAux = 10;
inline constexpr int lastAux = 12;
inline constexpr int phones = 13;
inline constexpr int auxes = lastAux - firstAux + 1;

// As they stand in the keys of parameters, channel 1 first.
inline constexpr std::array words{"ch1", "ch2",   "ch3",  "ch4",  "ch5",  "ch6",   "ch7",
                                  "ch8", "mains", "aux1", "aux2", "aux3", "phones"};
static_assert(words.size() == phones);

constexpr bool isInput(int channel) { return channel >= 1 && channel <= lastInput; }

// The first inputs are for microphones and have phantom power; the others have a pad, and a switch
// between line and phono.
inline constexpr int lastWithPhantom = 2;
constexpr bool hasPhantom(int channel) { return channel >= 1 && channel <= lastWithPhantom; }
constexpr bool hasPad(int channel) { return channel > lastWithPhantom && channel <= lastInput; }

} // namespace channels

// The mixer's panel, as its MIDI mapping counts it; each bank maps all of it anew.
namespace panel
{

inline constexpr int banks = 3;
inline constexpr int faders = 9;
inline constexpr int rotaries = 4;
inline constexpr int buttons = 15;

} // namespace panel
