#include "stats/CLogbookStats.h"

#include "document/CLogbookDoc.h"
#include "model/CJump.h"
#include "model/FallrateKind.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <string_view>
#include <unordered_map>

void CStatsFigures::Add(int freefall, int canopy, int exitHeight, int openHeight, double maxSpeed, bool cutaway,
                        bool isSigned)
{
    ++jumps;
    freefallSeconds += freefall;
    if (canopy > 0) {
        canopySeconds += canopy;
        ++canopyTimeJumps;
    }
    freefallMetres += exitHeight - openHeight;
    canopyMetres += openHeight;
    highestExitMetres = std::max(highestExitMetres, exitHeight);
    longestFreefallSeconds = std::max(longestFreefallSeconds, freefall);
    fastestSpeed = std::max(fastestSpeed, maxSpeed);
    cutaways += cutaway ? 1 : 0;
    (isSigned ? signedJumps : unsignedJumps) += 1;
}

namespace {

// A group's first and last day as day numbers while counting; dates only at the end.
struct CSpan
{
    int64_t first = INT64_MAX;
    int64_t last = INT64_MIN;
};

void Count(CStatsGroup& group, CSpan& span, int freefall, bool dated, int64_t day)
{
    ++group.jumps;
    group.freefallSeconds += freefall;
    if (dated) {
        span.first = std::min(span.first, day);
        span.last = std::max(span.last, day);
    }
}

void SetDates(std::vector<CStatsGroup>& groups, const std::vector<CSpan>& spans)
{
    for (std::size_t i = 0; i < groups.size(); ++i) {
        if (spans[i].first == INT64_MAX)
            continue;
        groups[i].first = CDateTime::FromDayNumber(spans[i].first);
        groups[i].last = CDateTime::FromDayNumber(spans[i].last);
    }
}

// Groups jumps by a text. Jumps in a row often share their text, so the last group is tried
// before the table; the texts are views into the document, which outlives the counting.
class CGroupCounter
{
public:
    explicit CGroupCounter(std::vector<CStatsGroup>& groups) : m_groups(groups) {}

    // Counts a jump into the group of its text.
    void Count(std::string_view name, int freefall, bool dated, int64_t day)
    {
        if (m_last < 0 || m_lastName != name) {
            auto [it, added] = m_index.try_emplace(name, static_cast<int>(m_groups.size()));
            if (added) {
                m_groups.emplace_back();
                m_groups.back().name = std::string(name);
                m_spans.emplace_back();
            }
            m_last = it->second;
            m_lastName = name;
        }
        const auto index = static_cast<std::size_t>(m_last);
        ::Count(m_groups[index], m_spans[index], freefall, dated, day);
    }
    // Turns the first and last days into dates.
    void Finish() { SetDates(m_groups, m_spans); }

private:
    std::vector<CStatsGroup>& m_groups;
    std::vector<CSpan> m_spans;
    std::unordered_map<std::string_view, int> m_index;
    int m_last = -1;
    std::string_view m_lastName;
};

// How many jumps ahead the loop asks for the fields it will read (a measured best).
constexpr std::size_t kPrefetchAhead = 4;

void PrefetchFields(const CJump& jump)
{
    __builtin_prefetch(&jump.GetTimestamp());
    __builtin_prefetch(&jump.GetFallrate());
    __builtin_prefetch(&jump.GetEquipmentRef());
    __builtin_prefetch(&jump.GetMalfunction());
    __builtin_prefetch(&jump.GetSignature());
}

// The freefall time of a jump. Computing it from the heights simulates a fall, and jumps repeat
// the same heights again and again, so each distinct pair of kind and distance is done once.
class CFreefallMemo
{
public:
    explicit CFreefallMemo(const CLogbookSettings& settings) : m_settings(settings) {}

    int Of(const CJump& jump)
    {
        const FallrateKind kind = jump.GetFallrateKind();
        if (!FallrateKindIsComputed(kind))
            return jump.FreefallTime(m_settings);
        const uint64_t key = (static_cast<uint64_t>(kind) << 32) | static_cast<uint32_t>(jump.GetFreefallDistance());
        auto [it, added] = m_known.try_emplace(key, 0);
        if (added)
            it->second = jump.FreefallTime(m_settings);
        return it->second;
    }

private:
    const CLogbookSettings& m_settings;
    std::unordered_map<uint64_t, int> m_known;
};

void SortByJumps(std::vector<CStatsGroup>& groups)
{
    std::stable_sort(groups.begin(), groups.end(), [](const CStatsGroup& a, const CStatsGroup& b) {
        return a.jumps != b.jumps ? a.jumps > b.jumps : a.name < b.name;
    });
}

int MonthIndex(const CDateTime& date)
{
    return date.Year() * 12 + date.Month() - 1;
}

// Jumping days, streaks and gaps from the sorted day numbers of the dated jumps.
CStatsRhythm Rhythm(std::vector<int64_t>& days, int64_t asOfDay)
{
    CStatsRhythm rhythm;
    if (days.empty())
        return rhythm;
    if (!std::is_sorted(days.begin(), days.end()))
        std::sort(days.begin(), days.end());
    int streak = 0;
    int64_t streakStart = 0;
    std::size_t i = 0;
    int64_t previous = 0;
    while (i < days.size()) {
        const int64_t day = days[i];
        std::size_t j = i;
        while (j < days.size() && days[j] == day)
            ++j;
        const int onDay = static_cast<int>(j - i);
        if (onDay > rhythm.mostJumpsInADay) {
            rhythm.mostJumpsInADay = onDay;
            rhythm.busiestDay = CDateTime::FromDayNumber(day);
        }
        if (rhythm.jumpingDays > 0) {
            const int gap = static_cast<int>(day - previous);
            if (gap > rhythm.longestGapDays) {
                rhythm.longestGapDays = gap;
                rhythm.longestGapFrom = CDateTime::FromDayNumber(previous);
                rhythm.longestGapTo = CDateTime::FromDayNumber(day);
            }
        }
        if (rhythm.jumpingDays > 0 && day == previous + 1) {
            ++streak;
        } else {
            streak = 1;
            streakStart = day;
        }
        if (streak > rhythm.longestStreakDays) {
            rhythm.longestStreakDays = streak;
            rhythm.longestStreakStart = CDateTime::FromDayNumber(streakStart);
        }
        ++rhythm.jumpingDays;
        previous = day;
        i = j;
    }
    rhythm.jumpsPerJumpingDay = static_cast<double>(days.size()) / rhythm.jumpingDays;
    rhythm.lastJump = CDateTime::FromDayNumber(previous);
    rhythm.daysSinceLastJump = static_cast<int>(asOfDay - previous);
    return rhythm;
}

} // namespace

CDateTime CLogbookStats::TwelveMonthsFrom(const CDateTime& asOf)
{
    // The same date a year earlier (29 February becomes the 28th), then the day after.
    const int year = asOf.Year() - 1;
    const int day = std::min(asOf.Day(), CDateTime::DaysInMonth(year, asOf.Month()));
    return CDateTime(year, asOf.Month(), day).AddDays(1);
}

CLogbookStats CLogbookStats::Compute(const CLogbookDoc& doc, const CDateTime& asOf)
{
    const CLogbookSettings& settings = doc.GetSettings();
    const CEquipmentList& rigs = settings.GetEquipmentList();
    CLogbookStats stats;
    stats.asOf = asOf.DateOnly();
    stats.previousJumps = settings.GetPreviousJumps();
    stats.previousFreefallSeconds = settings.GetPreviousDelay();
    const int64_t asOfDay = stats.asOf.DayNumber();
    stats.last12MonthsFrom = TwelveMonthsFrom(stats.asOf);
    const int64_t from12 = stats.last12MonthsFrom.DayNumber();

    const int lastMonth = MonthIndex(stats.asOf);
    const int firstMonth = lastMonth - 23;
    stats.perMonth.resize(24);
    for (int m = 0; m < 24; ++m) {
        stats.perMonth[static_cast<std::size_t>(m)].year = (firstMonth + m) / 12;
        stats.perMonth[static_cast<std::size_t>(m)].month = (firstMonth + m) % 12 + 1;
    }

    // Every rig of the list has its row, in list order until the sort.
    for (std::size_t r = 0; r < rigs.GetCount(); ++r) {
        const CEquipment& rig = rigs.Get(r);
        CStatsGroup group;
        group.name = rig.GetDisplayText();
        group.rigNumber = rig.GetNumber();
        group.previousJumps = rig.GetPreviousJumps();
        if (rig.GetInspectionDate().IsValid()) {
            group.inspectionDate = rig.GetInspectionDate().DateOnly();
            group.sinceInspection = 0;
        }
        stats.perRig.push_back(std::move(group));
    }
    std::vector<int64_t> inspectionDays(stats.perRig.size(), INT64_MAX);
    for (std::size_t r = 0; r < stats.perRig.size(); ++r)
        if (stats.perRig[r].inspectionDate.IsValid())
            inspectionDays[r] = stats.perRig[r].inspectionDate.DayNumber();
    std::vector<CStatsGroup> textRigs;
    // A rig named by text may name a rig of the list by its display text.
    std::unordered_map<std::string_view, int> rigOfText;

    // Fall-rate kinds by their number; the last row collects numbers outside the enumeration.
    std::vector<CStatsGroup> kinds(6);
    std::vector<CSpan> kindSpans(6);
    for (int k = 0; k < kFallrateKindCount; ++k)
        kinds[static_cast<std::size_t>(k)].name = std::string(FallrateKindName(static_cast<FallrateKind>(k)));
    std::vector<CSpan> rigSpans(stats.perRig.size());
    CFreefallMemo freefallOf(settings);

    CGroupCounter dropZones(stats.perDropZone);
    CGroupCounter aircraft(stats.perAircraft);
    CGroupCounter types(stats.perType);
    CGroupCounter textRigCounter(textRigs);
    std::vector<int64_t> days;
    days.reserve(doc.GetJumpCount());
    int yearIndex = -1;

    const auto& jumps = doc.GetJumps();
    for (std::size_t index = 0; index < jumps.size(); ++index) {
        // The jumps lie apart on the heap and the fields read here span several cache lines of
        // each, so the loop mostly waits on memory: ask for the next few jumps' lines early.
        if (index + kPrefetchAhead < jumps.size())
            PrefetchFields(*jumps[index + kPrefetchAhead]);
        const CJump& jump = *jumps[index];
        const CDateTime& stamp = jump.GetTimestamp().dateTime;
        const bool dated = stamp.IsValid();
        const int64_t day = dated ? stamp.DayNumber() : 0;
        if (dated && day > asOfDay)
            continue;
        const int freefall = freefallOf.Of(jump);
        const int canopy = jump.GetFallrateKind() == FallrateKind::Import ? jump.GetCanopyTime() : 0;
        const int exitHeight = jump.GetExitHeight();
        const int openHeight = jump.GetOpenHeight();
        const double maxSpeed =
            jump.GetFallrateKind() == FallrateKind::Manual || jump.GetFallrateKind() == FallrateKind::Import
                ? std::abs(jump.GetMaxSpeed())
                : 0.0;
        const bool cutaway = !jump.GetMalfunction().empty();
        const bool isSigned = jump.IsSigned();
        auto add = [&](CStatsFigures& figures) {
            figures.Add(freefall, canopy, exitHeight, openHeight, maxSpeed, cutaway, isSigned);
        };
        add(stats.logged);
        if (dated) {
            days.push_back(day);
            if (yearIndex < 0 || stats.perYear[static_cast<std::size_t>(yearIndex)].year != stamp.Year()) {
                auto it = std::find_if(stats.perYear.begin(), stats.perYear.end(),
                                       [&](const CStatsPeriod& p) { return p.year == stamp.Year(); });
                if (it == stats.perYear.end()) {
                    stats.perYear.push_back(CStatsPeriod{stamp.Year(), 0, {}});
                    it = stats.perYear.end() - 1;
                }
                yearIndex = static_cast<int>(it - stats.perYear.begin());
            }
            add(stats.perYear[static_cast<std::size_t>(yearIndex)].figures);
            const int month = MonthIndex(stamp);
            if (month >= firstMonth)
                add(stats.perMonth[static_cast<std::size_t>(month - firstMonth)].figures);
            if (day >= from12)
                add(stats.last12Months);
        }
        dropZones.Count(jump.GetPlace(), freefall, dated, day);
        aircraft.Count(jump.GetAircraft(), freefall, dated, day);
        types.Count(jump.GetType(), freefall, dated, day);
        const int kind = static_cast<int>(jump.GetFallrateKind());
        const auto kindRow =
            static_cast<std::size_t>(kind >= 0 && kind < kFallrateKindCount ? kind : kFallrateKindCount);
        Count(kinds[kindRow], kindSpans[kindRow], freefall, dated, day);

        // The rig: a position in the list, or a text that may still name a listed rig in full.
        const CJumpEquipmentRef& ref = jump.GetEquipmentRef();
        int rig = -1;
        if (ref.mode == CJumpEquipmentRef::ByIndex && ref.index >= 0 &&
            static_cast<std::size_t>(ref.index) < stats.perRig.size()) {
            rig = ref.index;
        } else if (ref.mode == CJumpEquipmentRef::ByDescription) {
            auto [it, added] = rigOfText.try_emplace(ref.description, -1);
            if (added)
                it->second = rigs.FindByDisplayText(ref.description);
            rig = it->second;
        }
        if (rig >= 0) {
            CStatsGroup& group = stats.perRig[static_cast<std::size_t>(rig)];
            Count(group, rigSpans[static_cast<std::size_t>(rig)], freefall, dated, day);
            if (dated && day >= inspectionDays[static_cast<std::size_t>(rig)])
                ++group.sinceInspection;
        } else {
            const bool byText = ref.mode == CJumpEquipmentRef::ByDescription;
            textRigCounter.Count(byText ? std::string_view(ref.description) : std::string_view(), freefall, dated, day);
        }
    }

    std::sort(stats.perYear.begin(), stats.perYear.end(),
              [](const CStatsPeriod& a, const CStatsPeriod& b) { return a.year < b.year; });
    stats.totalJumps = stats.previousJumps + stats.logged.jumps;
    stats.totalFreefallSeconds = stats.previousFreefallSeconds + stats.logged.freefallSeconds;
    dropZones.Finish();
    aircraft.Finish();
    types.Finish();
    textRigCounter.Finish();
    SetDates(stats.perRig, rigSpans);
    SetDates(kinds, kindSpans);
    for (CStatsGroup& kind : kinds)
        if (kind.jumps > 0)
            stats.perFallrateKind.push_back(std::move(kind));
    SortByJumps(stats.perDropZone);
    SortByJumps(stats.perAircraft);
    SortByJumps(stats.perType);
    SortByJumps(stats.perFallrateKind);
    SortByJumps(stats.perRig);
    SortByJumps(textRigs);
    for (CStatsGroup& group : textRigs)
        stats.perRig.push_back(std::move(group));
    stats.rhythm = Rhythm(days, asOfDay);
    return stats;
}
