#pragma once

#include "model/CJumpSignature.h"
#include "model/FallrateKind.h"
#include "xml/CDateTime.h"

#include <string>
#include <vector>

// Everything the jump editor changes, in stored units (metres, seconds, metres per second),
// handed to a jump in one call (CJump::ApplyEdits).
struct CJumpEdits
{
    int number = 0;
    CZonedDateTime timestamp;
    FallrateKind fallrateKind = FallrateKind::Standard;
    int exitHeight = 0;
    int openHeight = 0;
    int freefallTime = 0;
    double maxSpeed = 0.0;
    double avgSpeed = 0.0;
    int windDirection = 0;
    double windSpeed = 0.0;
    // A rig's display text ("[n] ...", stored as the rig's position) or free text.
    std::string equipment;
    std::string malfunction;
    std::string place;
    std::string aircraft;
    std::string type;
    std::string landing;
    int size = 0;
    int points = 0;
    std::string team;
    // True when the stored note has format and stays as it is; otherwise noteText replaces it.
    bool keepNote = false;
    // The note as plain text, lines separated by "\r\n".
    std::string noteText;
    std::string signer;
    std::string signerLicence;
    std::vector<CJumpSignature::Stroke> strokes;
};
