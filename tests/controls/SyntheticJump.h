#pragma once

// A made-up jump as a logger would record it, for the plot's tests and pictures: a climb to the
// exit at 4000 m at t = 0, freefall that levels off at about 55 m/s, deployment at 1000 m, a
// canopy ride at 5 m/s while turning, and the landing at 0 m. Times count from the exit,
// altitudes are above the landing point, as an imported recording has them.

#include "model/CBaroSample.h"
#include "model/CGpsSample.h"
#include "model/CJumpRecording.h"

#include <algorithm>
#include <cmath>
#include <memory>
#include <numbers>

namespace SyntheticJump {

constexpr double kExitAltitude = 4000.0, kOpenAltitude = 1000.0;
constexpr double kTerminal = 55.0, kCanopy = 5.0, kClimb = 7.0, kGravity = 9.81;

// The freefall time down to the opening altitude, with drag reaching terminal speed.
inline double FreefallTime()
{
    const double drop = kExitAltitude - kOpenAltitude;
    return kTerminal / kGravity * std::acosh(std::exp(drop * kGravity / (kTerminal * kTerminal)));
}

inline double Altitude(double t)
{
    if (t < 0)
        return kExitAltitude + kClimb * t;
    if (t < FreefallTime())
        return kExitAltitude - kTerminal * kTerminal / kGravity * std::log(std::cosh(kGravity * t / kTerminal));
    return std::max(0.0, kOpenAltitude - kCanopy * (t - FreefallTime()));
}

// The vertical speed at t, downwards positive.
inline double VerticalSpeed(double t)
{
    if (t < 0)
        return -kClimb;
    if (t < FreefallTime())
        return kTerminal * std::tanh(kGravity * t / kTerminal);
    return Altitude(t) > 0 ? kCanopy : 0.0;
}

// A recording of the jump from 100 s before the exit to ten seconds on the ground: satellite
// samples twice a second, or barometric ones every second in the climb and the freefall and
// every three seconds under canopy. The aircraft flies north-east at 40 m/s, freefall drifts
// east at 8 m/s, the canopy flies at 8 m/s while turning once a minute and drifting with a
// 3 m/s wind. Five wind layers from the ground up to 4000 m.
inline CJumpRecording Recording(int kind)
{
    CJumpRecording recording;
    recording.SetKind(kind);
    const bool gps = kind == CJumpRecording::Satellite;
    const double open = FreefallTime(), end = open + kOpenAltitude / kCanopy + 10.0;
    const double metresPerDegree = 111195.0, eastPerDegree = metresPerDegree * std::cos(61.78 * std::numbers::pi / 180);
    double east = 0.0, north = 0.0;
    for (double t = -100.0, step = 0.0; t <= end; t += step) {
        step = gps ? 0.5 : (t < open ? 1.0 : 3.0);
        if (gps)
            recording.AddSample(std::make_unique<CGpsSample>(Altitude(t), t, 61.78 + north / metresPerDegree,
                                                             22.72 + east / eastPerDegree));
        else
            recording.AddSample(std::make_unique<CBaroSample>(Altitude(t), t));
        const double heading = (t - open) * 2 * std::numbers::pi / 60.0;
        if (t < 0)
            east += 28.0 * step, north += 28.0 * step;
        else if (t < open)
            east += 8.0 * step;
        else if (Altitude(t) > 0)
            east += (8.0 * std::sin(heading) - 3.0) * step, north += 8.0 * std::cos(heading) * step;
    }
    recording.AddAnnotation({kExitAltitude - 100, -14.0, "Door open"});
    recording.AddAnnotation({Altitude(open - 2), open - 2, "Wave off"});
    for (int layer = 0; layer < 5; ++layer)
        recording.AddWind({210 + 10 * layer, 2.5 * (layer + 1), 1000 * layer});
    return recording;
}

} // namespace SyntheticJump
