#pragma once

#include "xml/CDateTime.h"

#include <array>
#include <cstddef>
#include <span>
#include <string>

class CLogbookDoc;
class CUnitSettings;
struct CLogbookSummary;

// One line of the home screen's summary: its label and its value as text, with the value's
// number or date kept as well, for a screen that writes them in the user's notation.
struct CSummaryRow
{
    // How the value reads: a whole number, a duration "H:MM:SS" or a date.
    enum class Kind
    {
        Number,
        Duration,
        Date
    };

    int labelId = 0;  // StringTable message of the label
    std::string unit; // " [km]" or " [mi]" after a distance's label; empty otherwise
    Kind kind = Kind::Number;
    std::string value; // "500", "1:01:30", "2024-03-14" (empty without a date)
    double number = 0; // Number: the whole number the value shows
    CDateTime date;    // Date: the date the value shows (Null without jumps)
};

// The five lines of the summary, built once for the window and the tool: number of jumps (the
// number of the last jump), freefall time (a duration within a signed 32-bit count of seconds),
// freefall and canopy distance (whole kilometres or miles, rounded half up) and the date of the
// last jump.
class CSummaryRows
{
public:
    enum Row
    {
        NumberOfJumps = 0,
        FreefallTime,
        FreefallDistance,
        CanopyDistance,
        LastJump,
        RowCount
    };
    using Rows = std::array<CSummaryRow, RowCount>;

    static Rows Build(const CLogbookDoc& doc, const CUnitSettings& units);
    // The same for some of the jumps (document positions): their count, the sum of their
    // freefall times (without the time before the logbook), the sums of their freefall and
    // canopy distances as logged, and the date of the last of them in list order.
    static Rows BuildOf(const CLogbookDoc& doc, const CUnitSettings& units, std::span<const std::size_t> jumps);

private:
    static Rows FromSummary(const CLogbookSummary& summary, const CUnitSettings& units);
};
