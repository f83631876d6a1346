#pragma once

#include <string>

class CJump;

// Writes a jump's satellite recording as GPX 1.1, for map programs and other logbooks.
class CGpxWriter
{
public:
    // GPX 1.1 of a jump's satellite recording: one trk/trkseg, a trkpt per sample with lat/lon
    // attributes, <ele> (the sample's altitude above the landing point) and <time> (the jump's
    // "ts" converted to UTC plus the sample's t, ISO 8601 with milliseconds, Z). The track is
    // named "Jump <n>" and described by the drop zone. Returns false and a message when the
    // jump has no satellite recording or no valid ts.
    static bool Write(const CJump& jump, std::string& gpx, std::string& message);
};
