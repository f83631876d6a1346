#pragma once

// One wind layer of a flight recording: direction in degrees, speed, and the layer's altitude.
struct CRecordingWind
{
    int direction = 0;
    double speed = 0.0;
    int altitude = 0;

    friend bool operator==(const CRecordingWind&, const CRecordingWind&) = default;
};
