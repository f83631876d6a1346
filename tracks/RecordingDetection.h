#pragma once

#include "tracks/CJumpDetector.h"

class CRecordingSeries;

// Finds exit and deployment in a recording that came without them (one written by another
// program, or a barometric one): the recording's samples are read as fixes whose vertical speed
// is the series' derived one and whose horizontal speed comes from the ground track (zero for
// a barometric recording), and the track detection runs on them. Times in the result are the
// recording's own seconds.
CJumpDetection DetectJumpInSeries(const CRecordingSeries& series);

// Marks the series' exit and deployment: for an imported fall rate the recording counts its
// seconds from the exit, so exit is 0 and deployment the freefall time; otherwise they are
// detected, and left unset when no jump is found.
void MarkJump(CRecordingSeries& series, bool imported, int freefallTime);
