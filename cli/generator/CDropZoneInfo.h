#pragma once

#include <span>
#include <string_view>

// A drop zone the generator sends jumps to: its name, the aircraft flying there, the local
// offset from UTC in minutes during the season, and the landing area's position.
struct CDropZoneInfo
{
    std::string_view name;
    std::span<const std::string_view> aircraft;
    int offsetMinutes = 0;
    double latitude = 0.0;
    double longitude = 0.0;
    // Relative share of the jumps made here.
    int weight = 1;
};
