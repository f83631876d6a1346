#pragma once

#include "xml/CDateTime.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

class CLogbookDoc;
struct CLogbookStats;

// One licence level: what it takes to reach it and how long its holder may go without a jump.
struct CLicenceLevel
{
    std::string name; // "A" ... "D"; a profile's licence entry starting with it names the level
    int minJumps = 0;
    int64_t minFreefallSeconds = 0;
    int currencyDays = 0; // days without a jump before a recurrency jump is due
};

// The licence levels, lowest first, and the currency limit of a student (no level). Data, so
// that another country's table is a different value rather than different code.
struct CLicenceRules
{
    int studentCurrencyDays = 30;
    std::vector<CLicenceLevel> levels;

    // A 25 jumps; B 50 jumps and 30 minutes of freefall; C 200 and 60 minutes; D 500 and 3 hours.
    // Currency: student 30 days, A 60, B 90, C and D 180.
    static CLicenceRules Default();

    // The highest level a profile's licence entries name: an entry names a level when it starts
    // (after blanks, in either case) with the level's name followed by anything but a letter,
    // as "D-12345" or "c 889" do; -1 when none does.
    int LevelNamedBy(const std::vector<std::string>& licences) const;
    // The highest level whose jumps and freefall time the totals reach; -1 for none.
    int LevelReachedBy(int jumps, int64_t freefallSeconds) const;
};

// How far the owner is: the level held and what the next one still asks for.
struct CLicenceProgress
{
    int level = -1;                // index into the rules' levels; -1: student
    bool levelFromProfile = false; // named by the profile rather than reached by the totals
    std::string levelName;         // empty for a student
    bool hasNext = false;          // false at the highest level
    std::string nextName;
    int jumps = 0; // the totals
    int64_t freefallSeconds = 0;
    int nextJumps = 0; // what the next level asks for
    int64_t nextFreefallSeconds = 0;

    bool JumpsMet() const { return jumps >= nextJumps; }
    bool FreefallMet() const { return freefallSeconds >= nextFreefallSeconds; }
    bool Met() const { return JumpsMet() && FreefallMet(); }
    // "B: 50 of 50 jumps, 24:10 of 30:00 freefall" (the freefall part only when the level asks
    // for freefall time); at the highest level "D reached".
    std::string Text() const;
};

// Whether the owner is current: the days since the last jump against the level's limit.
struct CCurrency
{
    enum class State
    {
        NoJumps, // no dated jump up to the day
        Current,
        Due, // the limit ends within the next 14 days (or today)
        Lapsed
    };
    static constexpr int kDueWithinDays = 14;

    State state = State::NoJumps;
    int limitDays = 0;
    int daysSinceLastJump = -1;
    CDateTime lastJump;
    CDateTime currentUntil; // the last day within the limit
    CDateTime lapsedSince;  // the first day past it
    int DaysLeft() const { return limitDays - daysSinceLastJump; }
    // "current", "due", "lapsed" or "none", the tool's words for the state.
    std::string_view StateName() const;
    // One line in English: "Current: 12 days since the last jump (limit 60 days)", "Due: a
    // recurrency jump by 2026-12-01 (50 of 60 days)", "Lapsed since 2026-10-02 (75 days since
    // the last jump, limit 60 days)", "No jump logged".
    std::string Text() const;
};

// Licence progress and currency from the statistics and the profile's licence entries.
struct CLicenceStatus
{
    CLicenceProgress progress;
    CCurrency currency;

    static CLicenceStatus Compute(const CLogbookStats& stats, const std::vector<std::string>& licences,
                                  const CLicenceRules& rules = CLicenceRules::Default());
    // The same for a document as of a day, without the rest of the statistics: the document's
    // running totals, less any jump dated after the day, and the last jump up to it. Cheap
    // enough for a screen that is drawn again after every change.
    static CLicenceStatus OfDocument(const CLogbookDoc& doc, const CDateTime& day,
                                     const CLicenceRules& rules = CLicenceRules::Default());
};

// "H:MM:SS" cut to "M:SS" below an hour, as licence requirements write freefall time.
std::string FreefallText(int64_t seconds);
// "YYYY-MM-DD"; empty for a date that is not valid.
std::string IsoDate(const CDateTime& date);
