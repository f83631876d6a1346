#pragma once

#include <string>

// A text placed on a flight recording at an altitude and a time.
struct CJumpAnnotation
{
    double altitude = 0.0;
    double time = 0.0;
    std::string text;

    friend bool operator==(const CJumpAnnotation&, const CJumpAnnotation&) = default;
};
