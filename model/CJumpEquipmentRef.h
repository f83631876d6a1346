#pragma once

#include <string>

// The rig a jump was made with: none, a position in the equipment list, or free text.
struct CJumpEquipmentRef
{
    enum Mode
    {
        None = 0,
        ByIndex = 1,
        ByDescription = 2
    };

    int mode = None;
    int index = 0;
    std::string description;

    friend bool operator==(const CJumpEquipmentRef&, const CJumpEquipmentRef&) = default;
};
