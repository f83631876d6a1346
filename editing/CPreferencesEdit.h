#pragma once

#include "editing/CCheckResult.h"

#include <cstddef>
#include <string>
#include <string_view>

class CLogbookDoc;
class CLogbookSettings;
class CUnitSettings;
class ISettingsStore;

// The working values of the preferences editor: the unit choices of the program and the custom
// fall rate and previous counts of the open logbook. The custom fall rate is held as a whole
// number of tenths of the speed unit on screen and follows every switch of the units.
class CPreferencesEdit
{
public:
    // The fields a failed check points at.
    enum Field
    {
        PreviousJumps = 0
    };

    // The previous-jumps spinner's range.
    static constexpr int kMaxPreviousJumps = 32767;

    // Takes the unit choices (any non-zero value as 1) and the logbook's values.
    void Load(const CUnitSettings& units, const CLogbookSettings& settings);

    // Switches the unit system; the custom fall rate is converted and rounded to whole tenths.
    void SetUnits(int units);
    int GetUnits() const { return m_units; }
    // Switches between per second and per hour, converting the custom fall rate in the same way.
    void SetSpeedDisplay(int speedDisplay);
    int GetSpeedDisplay() const { return m_speedDisplay; }

    // The speed unit the custom fall rate is shown in: "m/s", "km/h", "ft/s" or "mph".
    std::string_view FallrateUnit() const;

    // Previous jumps 0 to 32767 (4009); the logbook's own value passes as it is.
    CCheckResult Validate() const;

    // Stores the three unit choices together (and in the store when there is one), then gives the
    // logbook its custom speed, previous jumps and previous freefall time. A custom fall rate
    // whose tenths did not change keeps the stored speed exactly; a changed one recomputes the
    // totals. Returns whether the logbook changed.
    bool Apply(CUnitSettings& units, ISettingsStore* store, CLogbookDoc& doc) const;
    // How many signed jumps would show another freefall time after Apply (a new custom fall
    // rate); switching units alone touches none.
    std::size_t SignedJumpsTouched(const CLogbookDoc& doc) const;

    int glideDisplay = 0;
    // The custom fall rate in tenths of the shown unit (50 is 5.0).
    long long customTenths = 0;
    long long previousJumps = 0;
    // The previous freefall time in seconds.
    int previousDelay = 0;

private:
    // The stored speed in tenths of the unit the editor shows now.
    long long TenthsOf(double metresPerSecond) const;
    // The logbook's settings with the values of this editor, speeds read in units.
    CLogbookSettings NextSettings(const CUnitSettings& units, const CLogbookSettings& settings) const;

    int m_units = 0;
    int m_speedDisplay = 0;
    long long m_loadedPreviousJumps = 0;
};
