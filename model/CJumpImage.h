#pragma once

#include <string>

// A picture of a jump: file names relative to the logbook's folder.
struct CJumpImage
{
    std::string name;
    std::string thumbnail;

    friend bool operator==(const CJumpImage&, const CJumpImage&) = default;
};
