#pragma once

#include <array>
#include <cstddef>
#include <string_view>

// The elements of a jump in the logbook file: "jump" itself and its children, in the order a
// jump writes them. The reader and the writer both take the names from this one table, so a
// name cannot differ between reading and writing.
enum class JumpElement
{
    Jump,
    Place,
    Aircraft,
    Type,
    Fallrate,
    ExitHeight,
    OpenHeight,
    FreefallTime,
    CanopyTime,
    MaxSpeed,
    AvgSpeed,
    Wind,
    Landing,
    Equipment,
    Size,
    Points,
    Team,
    Malfunction,
    Image,
    Video,
    Note,
    Profile,
    Signature,
    Count // no jump element
};

inline constexpr std::array<std::string_view, static_cast<std::size_t>(JumpElement::Count)> kJumpElementNames = {
    "jump",   "dz",          "ac",    "type",  "fallrate", "exit",      "open",     "ffTime",
    "cpTime", "vMax",        "vAvg",  "wind",  "landing",  "equipment", "size",     "points",
    "team",   "malfunction", "image", "video", "note",     "profile",   "signature"};

// The element's name in the file.
constexpr std::string_view JumpElementName(JumpElement element)
{
    return kJumpElementNames[static_cast<std::size_t>(element)];
}

// The element of that name; Count for any other name.
constexpr JumpElement JumpElementFromName(std::string_view name)
{
    for (std::size_t i = 0; i < kJumpElementNames.size(); ++i) {
        if (kJumpElementNames[i] == name)
            return static_cast<JumpElement>(i);
    }
    return JumpElement::Count;
}
