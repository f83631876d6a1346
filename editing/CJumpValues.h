#pragma once

#include "model/CJumpSignature.h"
#include "model/FallrateKind.h"
#include "xml/CDateTime.h"

#include <string>
#include <vector>

// The jump editor's working values: what its pages show, in display units (heights in m or ft,
// speeds in the display speed unit, wind in the display wind unit, times in whole seconds).
struct CJumpValues
{
    int number = 1;
    // The jump's calendar day (midnight).
    CDateTime date;
    // True when the jump has no time of day ("None").
    bool noTime = false;
    // The time of day as typed: "H:MM" or "H:MM:SS"; read only while noTime is false.
    std::string timeText;
    int exitHeight = 0;
    int openHeight = 0;
    // A rig's display text or free text.
    std::string equipment;
    std::string malfunction;
    FallrateKind kind = FallrateKind::Standard;
    // Freefall time in seconds, and the speeds; typed for Manual, computed or imported otherwise.
    int delay = 0;
    int vMax = 0;
    int vAvg = 0;
    // True when the jump has no wind ("None").
    bool noWind = true;
    int windSpeed = 0;
    int windDirection = 0;
    std::string place;
    std::string aircraft;
    std::string type;
    std::string landing;
    int size = 0;
    int points = 0;
    std::string team;
    // The note as plain text with "\r\n" line breaks, or the stored markup when it has format.
    std::string note;
    bool noteHasFormat = false;
    std::string signer;
    // The signer's licence or rating number.
    std::string signerLicence;
    std::vector<CJumpSignature::Stroke> strokes;
};
