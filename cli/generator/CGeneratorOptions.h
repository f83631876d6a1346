#pragma once

#include <cstdint>

// What the synthetic logbook generator makes: how many jumps, how many of them carry a GPS
// recording with how many waypoints, how many carry a barometric one, and the random seed.
struct CGeneratorOptions
{
    int jumps = 300;
    int recordings = 0;
    int samples = 0;
    // Barometric recordings besides the GPS ones; -1 picks one per hundred jumps.
    int barometric = -1;
    uint32_t seed = 1;
};
