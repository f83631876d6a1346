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
#include <tuple>

namespace SyntheticJump {

constexpr double kExitAltitude = 4000.0;
constexpr double kOpenAltitude = 1000.0;
constexpr double kTerminal = 55.0;
constexpr double kCanopy = 5.0;
constexpr double kClimb = 7.0;
constexpr double kGravity = 9.81;
constexpr double kClimbStart = -100.0;

// Freefall altitude lost after t seconds, with drag reaching terminal speed.
inline double FreefallDrop(double t)
{
    return kTerminal * kTerminal / kGravity * std::log(std::cosh(kGravity * t / kTerminal));
}

// The freefall time down to the opening altitude.
inline double FreefallTime()
{
    double lo = 0.0, hi = 200.0;
    for (int i = 0; i < 60; ++i) {
        const double mid = (lo + hi) / 2;
        (FreefallDrop(mid) < kExitAltitude - kOpenAltitude ? lo : hi) = mid;
    }
    return lo;
}

inline double LandingTime()
{
    return FreefallTime() + kOpenAltitude / kCanopy;
}

// The altitude at t.
inline double Altitude(double t)
{
    if (t < 0)
        return kExitAltitude + kClimb * t;
    if (t < FreefallTime())
        return kExitAltitude - FreefallDrop(t);
    return std::max(0.0, kOpenAltitude - kCanopy * (t - FreefallTime()));
}

// The vertical speed at t, downwards positive.
inline double VerticalSpeed(double t)
{
    if (t < 0)
        return -kClimb;
    if (t < FreefallTime())
        return kTerminal * std::tanh(kGravity * t / kTerminal);
    return t < LandingTime() ? kCanopy : 0.0;
}

// A recording of the jump: satellite samples twice a second with positions, or barometric ones
// every second in the climb and the freefall and every three seconds under canopy. Ten seconds
// on the ground follow the landing.
inline CJumpRecording Recording(int kind)
{
    CJumpRecording recording;
    recording.SetKind(kind);
    const bool gps = kind == CJumpRecording::Satellite;
    // Positions: the aircraft flies north-east at 40 m/s, freefall drifts east at 8 m/s, the
    // canopy flies at 8 m/s while turning once a minute and drifting with a 3 m/s wind.
    double east = 0.0, north = 0.0, t = kClimbStart;
    const double end = LandingTime() + 10.0;
    while (t <= end) {
        const double step = gps ? 0.5 : (t < FreefallTime() ? 1.0 : 3.0);
        if (gps) {
            const double lat = 61.78 + north / 111195.0;
            const double lon = 22.72 + east / (111195.0 * std::cos(61.78 * std::numbers::pi / 180.0));
            recording.AddSample(std::make_unique<CGpsSample>(Altitude(t), t, lat, lon));
        } else
            recording.AddSample(std::make_unique<CBaroSample>(Altitude(t), t));
        if (t < 0)
            east += 28.0 * step, north += 28.0 * step;
        else if (t < FreefallTime())
            east += 8.0 * step;
        else if (t < LandingTime()) {
            const double heading = (t - FreefallTime()) * 2 * std::numbers::pi / 60.0;
            east += (8.0 * std::sin(heading) - 3.0) * step;
            north += 8.0 * std::cos(heading) * step;
        }
        t += step;
    }
    recording.AddAnnotation({kExitAltitude - 100, -14.0, "Door open"});
    recording.AddAnnotation({Altitude(FreefallTime() - 2), FreefallTime() - 2, "Wave off"});
    for (const auto& [direction, speed, altitude] :
         {std::tuple{200, 3.0, 0}, std::tuple{220, 5.0, 1000}, std::tuple{235, 7.5, 2000}, std::tuple{245, 10.0, 3000},
          std::tuple{250, 12.5, 4000}})
        recording.AddWind({direction, speed, altitude});
    return recording;
}

} // namespace SyntheticJump
