#pragma once

#include <string>
#include <vector>

// One position fix of a GPS logger, in the logger's own units: degrees, metres above mean sea
// level, metres per second. velD is positive downwards. An accuracy the file does not give is
// NaN.
struct CTrackFix
{
    // Seconds since 1970-01-01T00:00:00Z, with the fraction the file gives.
    double time = 0.0;
    double lat = 0.0;
    double lon = 0.0;
    double hMSL = 0.0;
    double velN = 0.0;
    double velE = 0.0;
    double velD = 0.0;
    double hAcc = 0.0;
    double vAcc = 0.0;
    double sAcc = 0.0;
    // Satellites used; -1 when the file has no such column.
    int numSV = -1;
};

// One barometer reading of a logger, tied to UTC through the logger's own time marks.
struct CBaroReading
{
    // Seconds since 1970-01-01T00:00:00Z.
    double time = 0.0;
    // Pascal.
    double pressure = 0.0;
    // Pressure altitude of the standard atmosphere, metres.
    double altitude = 0.0;
};

// What a logger's files held: the fixes in time order and, when the logger has a barometer and
// its readings could be placed in time, the barometer readings.
struct CTrack
{
    // "FlySight 1" or "FlySight 2".
    std::string format;
    std::vector<CTrackFix> fixes;
    std::vector<CBaroReading> baro;
};
