#pragma once

// Rounding modes of RoundValue.
enum RoundMode
{
    RoundHalfUp = 0,
    RoundUp = 1,
    RoundDown = 2
};

// Rounds value to the given number of decimals, working on the magnitude (so -2.5 half-up is -3).
// A margin of 1e-8 makes values a hair below a boundary round as their decimal text suggests;
// |value| < 1e-8 gives 0. An unknown mode only scales and unscales.
double RoundValue(double value, int mode, int decimals);
