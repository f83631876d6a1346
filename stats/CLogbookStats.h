#pragma once

#include "xml/CDateTime.h"

#include <cstdint>
#include <string>
#include <vector>

class CLogbookDoc;

// The figures of a set of logged jumps. Heights and distances in metres, times in seconds,
// speeds in metres per second.
struct CStatsFigures
{
    int jumps = 0;
    int64_t freefallSeconds = 0;
    int64_t canopySeconds = 0; // of the jumps whose canopy time is known (recorded ones)
    int canopyTimeJumps = 0;   // how many jumps have a known canopy time
    int64_t freefallMetres = 0;
    int64_t canopyMetres = 0; // the opening heights
    int highestExitMetres = 0;
    int longestFreefallSeconds = 0;
    double fastestSpeed = 0; // the highest recorded maximum speed
    int cutaways = 0;        // jumps with a malfunction entry
    int signedJumps = 0;
    int unsignedJumps = 0;

    // Counts one jump in.
    void Add(int freefall, int canopy, int exitHeight, int openHeight, double maxSpeed, bool cutaway, bool isSigned);
};

// The figures of one calendar year or month.
struct CStatsPeriod
{
    int year = 0;
    int month = 0; // 1..12; 0 for a whole year
    CStatsFigures figures;
};

// One row of a breakdown: the jumps that share a drop zone, aircraft, type, rig or fall-rate kind.
struct CStatsGroup
{
    std::string name; // as the jumps write it; empty for the jumps that name none
    int jumps = 0;
    int64_t freefallSeconds = 0;
    CDateTime first; // Null when no jump of the group has a date
    CDateTime last;
    // Rigs only.
    int rigNumber = 0;        // the rig's number in the equipment list; 0 for a rig named by text
    int previousJumps = 0;    // jumps on the rig before the logbook
    CDateTime inspectionDate; // the rig's last reserve inspection; Null when never inspected
    int sinceInspection = -1; // jumps on the rig since that day (itself included); -1 without a date
};

// Jumping days, streaks and gaps between jumps.
struct CStatsRhythm
{
    int jumpingDays = 0;           // days with at least one jump
    double jumpsPerJumpingDay = 0; // logged jumps / jumping days
    int mostJumpsInADay = 0;
    CDateTime busiestDay;      // the first day with that many jumps
    int longestStreakDays = 0; // consecutive days with jumps
    CDateTime longestStreakStart;
    int longestGapDays = 0;   // days between two jumping days that follow each other
    CDateTime longestGapFrom; // the jumping days on either side of the gap
    CDateTime longestGapTo;
    int daysSinceLastJump = -1; // -1 without a dated jump
    CDateTime lastJump;         // Null without a dated jump
};

// Everything the statistics show about a logbook as of one day. Jumps dated after that day are
// left out; jumps without a valid date count in the totals and breakdowns only.
struct CLogbookStats
{
    CDateTime asOf;
    int previousJumps = 0; // from the preferences: jumps before this logbook
    int64_t previousFreefallSeconds = 0;
    CStatsFigures logged; // the logged jumps up to asOf
    int totalJumps = 0;   // previous + logged
    int64_t totalFreefallSeconds = 0;
    std::vector<CStatsPeriod> perYear;  // every year with a jump, oldest first
    std::vector<CStatsPeriod> perMonth; // the 24 months up to asOf's month, oldest first, zeros included
    CStatsFigures last12Months;         // from the day after asOf's date a year earlier up to asOf
    CDateTime last12MonthsFrom;         // that first day
    // Breakdowns, most jumps first (then by name).
    std::vector<CStatsGroup> perDropZone;
    std::vector<CStatsGroup> perAircraft;
    std::vector<CStatsGroup> perType;
    std::vector<CStatsGroup> perRig;          // every rig of the list, then the rigs named by text
    std::vector<CStatsGroup> perFallrateKind; // named by the file's kind names ("Standard" ...)
    CStatsRhythm rhythm;

    // Computes the figures; asOf is a valid date (its time of day is ignored).
    static CLogbookStats Compute(const CLogbookDoc& doc, const CDateTime& asOf);
    // The first day of the twelve months that end on asOf.
    static CDateTime TwelveMonthsFrom(const CDateTime& asOf);
};
