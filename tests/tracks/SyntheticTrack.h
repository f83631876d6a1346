#pragma once

#include "tracks/CTrack.h"

#include <cstdint>
#include <string>
#include <vector>

// A skydive made up for the tests: ground, climb at 5 m/s, a level run-in, exit, freefall
// towards 55 m/s, the canopy taking the load (1 s after the pull), canopy descent at 5 m/s,
// flare, landing and a walk, sampled at rateHz with deterministic noise of the GPS.
struct CSyntheticJump
{
    double ground = 100.0;      // hMSL of the drop zone
    double exitHeight = 4000.0; // above the ground
    double pullHeight = 1050.0; // above the ground; ignored when pullAfter > 0
    double pullAfter = 0.0;     // seconds of freefall before the pull (hop-and-pop)
    double rateHz = 5.0;
    double noise = 1.0;         // 0: exact values
    double endAfterLoad = -1.0; // >= 0: the track stops this long after the canopy took the load
    std::uint32_t seed = 1;
};

// What really happened, for comparing the detection with.
struct CSyntheticTruth
{
    double exitTime = 0, loadTime = 0, landingTime = 0;
    double exitHeight = 0, openHeight = 0; // above the ground
};

// The track of a jump, FlySight 1 format name, no barometer.
CTrack MakeJumpTrack(const CSyntheticJump& jump, CSyntheticTruth& truth);
// Twenty minutes by car over hills and a walk: no jump in it.
CTrack MakeCarRide(std::uint32_t seed);

// FlySight 1 text with these column names in this order ("heading", "cAcc" and unknown names
// are filled with made-up values; gpsFix is 2 for a fix with fewer than 4 satellites) and the
// given line end.
std::string WriteFlySight1(const CTrack& track, const std::vector<std::string>& columns, const char* lineEnd);
// The column names of current FlySight 1 firmware.
std::vector<std::string> FlySight1Columns();
// FlySight 2 TRACK.CSV text.
std::string WriteFlySight2(const CTrack& track);
// FlySight 2 SENSOR.CSV text whose barometer follows the fixes' heights at 10 Hz, on a device
// clock that started 37.25 s before the first fix and runs 20 ppm fast; expected gets the
// readings as they should be read back.
std::string WriteSensor(const CTrack& track, std::vector<CBaroReading>& expected);
