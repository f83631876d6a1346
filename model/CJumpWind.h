#pragma once

#include <cmath>

// The wind of a jump: direction in degrees and speed in metres per second.
struct CJumpWind
{
    int direction = 0;
    double speed = 0.0;

    // A wind counts (and is written) only when its speed is above 1e-8 in magnitude.
    bool IsSet() const { return std::fabs(speed) > 1e-8; }

    friend bool operator==(const CJumpWind&, const CJumpWind&) = default;
};
