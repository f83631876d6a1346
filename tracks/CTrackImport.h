#pragma once

#include "model/CJumpFallrate.h"
#include "model/CJumpRecording.h"
#include "tracks/CJumpDetector.h"
#include "tracks/CTrack.h"
#include "xml/CDateTime.h"

#include <string>

// How a track becomes a jump's recording.
struct CTrackImportOptions
{
    // 0: keep every fix; else thin to at most this many samples per second (one per 1/rateHz
    // counted from the exit), always keeping the exit, deployment and landing fixes.
    double rateHz = 0.0;
    // A barometric recording from the logger's barometer instead of the satellite one.
    bool barometric = false;
};

// What an import gives a jump.
struct CImportedJump
{
    // Satellite (or barometric) samples: "a" metres above the landing point, "t" seconds from
    // the exit (negative before it).
    CJumpRecording recording;
    // Kind Import with exit, open, ffTime, cpTime, vMax, vAvg.
    CJumpFallrate fallrate;
    // Local wall time of the exit with its UTC offset in minutes.
    CZonedDateTime exitTime;
};

// Seconds of the climb kept before the exit: the run-in and the exit itself, not the whole
// climb, so that a recording stays the size of the jump.
inline constexpr double kImportLeadTime = 30.0;

// The recording of a detected jump, from kImportLeadTime before the exit to the landing (or
// the last fix), its fall rate and the exit's local time at utcOffsetMinutes. False with the
// reason when the detection found no jump or does not belong to the track, or when a
// barometric recording is asked for and the track has no barometer readings around the jump.
bool BuildImportedJump(const CTrack& track, const CJumpDetection& detection, const CTrackImportOptions& options,
                       int utcOffsetMinutes, CImportedJump& out, CTrackMessage& reason);

// The machine's UTC offset (minutes east) of local time at that UTC instant.
int LocalUtcOffsetMinutes(double utcSeconds);
