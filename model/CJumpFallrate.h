#pragma once

#include "model/FallrateKind.h"

// The fall-rate block of a jump. Heights in metres, times in whole seconds, speeds in m/s.
struct CJumpFallrate
{
    FallrateKind kind = FallrateKind::Standard;
    int exitHeight = 0;
    int openHeight = 0;
    int freefallTime = 0;
    int canopyTime = 0;
    double maxSpeed = 0.0;
    double avgSpeed = 0.0;

    friend bool operator==(const CJumpFallrate&, const CJumpFallrate&) = default;
};
