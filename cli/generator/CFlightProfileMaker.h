#pragma once

#include "cli/generator/CDropZoneInfo.h"

class CGeneratorRandom;
class CJumpRecording;

// Makes the flight recording of a synthetic jump: a freefall with air drag down to the opening
// height, then a steady canopy descent to the landing area, sampled at even time steps. GPS
// recordings add the track from the exit point to the landing area, annotations and wind layers.
class CFlightProfileMaker
{
public:
    // What the recording says about the jump, for the jump's imported fall-rate values.
    struct Figures
    {
        int freefallTime = 0;  // whole seconds
        int canopyTime = 0;    // whole seconds
        double maxSpeed = 0.0; // m/s
        double avgSpeed = 0.0; // m/s
    };

    // Draws its random choices from random.
    explicit CFlightProfileMaker(CGeneratorRandom& random) : m_random(random) {}

    // Fills recording (cleared first) as a satellite recording of samples waypoints.
    Figures MakeGps(CJumpRecording& recording, const CDropZoneInfo& zone, int exitHeight, int openHeight,
                    double terminalSpeed, int samples);
    // Fills recording (cleared first) as a barometric recording of samples waypoints.
    Figures MakeBarometric(CJumpRecording& recording, int exitHeight, int openHeight, double terminalSpeed,
                           int samples);

    // Distance fallen after t seconds from rest with terminal speed vt (quadratic drag).
    static double FallenDistance(double t, double vt);
    // Seconds to fall distance metres from rest with terminal speed vt.
    static double TimeToFall(double distance, double vt);

private:
    // The flight's timing and speeds; also picks the canopy's descent rate.
    Figures Plan(int exitHeight, int openHeight, double terminalSpeed);
    // Altitude above the landing area t seconds after exit.
    double AltitudeAt(double t, int exitHeight, int openHeight, double terminalSpeed) const;

    CGeneratorRandom& m_random;
    double m_freefallSeconds = 0.0;
    double m_descentRate = 5.5;
};
