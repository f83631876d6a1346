#pragma once

#include <cmath>
#include <string>

// The video of a jump: file name relative to the logbook's folder and a start offset.
struct CJumpVideo
{
    std::string name;
    double offset = 0.0;

    // A video is written when it has a name or an offset.
    bool IsSet() const { return !name.empty() || std::fabs(offset) > 1e-8; }

    friend bool operator==(const CJumpVideo&, const CJumpVideo&) = default;
};
