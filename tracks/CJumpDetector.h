#pragma once

#include "tracks/CTrack.h"
#include "tracks/TrackText.h"

#include <cstddef>
#include <string>
#include <vector>

// Where a skydive lies in a track: exit, deployment and landing, and the fall-rate values a
// logbook keeps. Heights are metres above the landing point, times UTC seconds since 1970.
struct CJumpDetection
{
    bool ok = false;
    // Why nothing was found; empty when ok.
    CTrackMessage reason;
    // Indices into the fixes: the fix nearest the exit, the sharpest slowing of the opening, the
    // landing (the last fix when the track ends in the air).
    std::size_t exitIndex = 0, deployIndex = 0, landingIndex = 0;
    // False: the track ends in the air.
    bool landed = false;
    // The exit is placed back from the 10 m/s crossing to where the fall began; deployment and
    // landing are the times of their fixes.
    double exitTime = 0, deployTime = 0, landingTime = 0;
    // hMSL of the landing point (or of the last fix when not landed).
    double groundAltitude = 0;
    // Metres above the landing point, rounded.
    int exitHeight = 0, openHeight = 0;
    // Whole seconds, rounded.
    int freefallTime = 0, canopyTime = 0;
    // Vertical freefall speed in m/s: the highest (of the one-second average) and the average,
    // freefall distance over freefall time.
    double vMax = 0, vAvg = 0;
};

// Finds exit, deployment and landing in a track's fixes (time order).
CJumpDetection DetectJump(const std::vector<CTrackFix>& fixes);
