#pragma once

#include "tracks/CJumpDetector.h"

class CRecordingSeries;

// Finds exit and deployment in a recording that came without them (one written by another
// program, or a barometric one): the recording's samples are read as fixes whose vertical speed
// is the series' derived one and whose horizontal speed comes from the ground track (zero for
// a barometric recording), and the track detection runs on them. Times in the result are the
// recording's own seconds.
CJumpDetection DetectJumpInSeries(const CRecordingSeries& series);
