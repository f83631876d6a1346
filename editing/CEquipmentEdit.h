#pragma once

#include "editing/CCheckResult.h"
#include "xml/CDateTime.h"

#include <string>

class CEquipment;

// The working values of the rig editor, copied from one rig and written back into it on OK.
// The texts are taken as typed; the check trims them and refuses a rig without harness or main.
class CEquipmentEdit
{
public:
    // The fields a failed check points at, in the order of the checks.
    enum Field
    {
        PreviousJumps = 0,
        Harness = 1,
        MainCanopy = 2,
        MainSize = 3,
        ReserveSize = 4
    };

    // The previous-jumps bound of the check (the spinner itself stops at kSpinnerMaxJumps).
    static constexpr int kMaxPreviousJumps = 99999;
    static constexpr int kSpinnerMaxJumps = 32767;
    // Canopy sizes in square feet.
    static constexpr int kMaxCanopySize = 999;

    // Copies every field of the rig.
    void Load(const CEquipment& rig);
    // Trims every text, then checks previous jumps, harness (4007), main canopy (4008), main size
    // and reserve size, in this order; the first failure names its message and field. A number
    // still as the rig held it passes, whatever its range.
    CCheckResult Validate();
    // Writes every value into the rig in one go (its number is kept).
    void Store(CEquipment& rig) const;

    std::string harness;
    std::string harnessSerial;
    std::string mainCanopy;
    long long mainSize = 0;
    std::string mainSerial;
    std::string reserveCanopy;
    long long reserveSize = 0;
    std::string reserveSerial;
    std::string aad;
    std::string aadSerial;
    CDateTime inspectionDate;
    long long previousJumps = 0;
    bool active = true;

private:
    // The numbers as loaded (a new rig: 0).
    struct Loaded
    {
        long long previousJumps = 0, mainSize = 0, reserveSize = 0;
    } m_loaded;
};
