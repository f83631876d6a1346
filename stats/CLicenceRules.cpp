#include "stats/CLicenceRules.h"

#include "document/CLogbookDoc.h"
#include "stats/CLogbookStats.h"

#include <algorithm>
#include <climits>
#include <cstdio>

CLicenceRules CLicenceRules::Default()
{
    CLicenceRules rules;
    rules.studentCurrencyDays = 30;
    rules.levels = {{"A", 25, 0, 60}, {"B", 50, 30 * 60, 90}, {"C", 200, 60 * 60, 180}, {"D", 500, 3 * 3600, 180}};
    return rules;
}

namespace {

bool IsLetter(char c)
{
    return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || static_cast<unsigned char>(c) >= 0x80;
}

char Upper(char c)
{
    return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
}

bool StartsWithLevel(std::string_view entry, std::string_view name)
{
    while (!entry.empty() && (entry.front() == ' ' || entry.front() == '\t'))
        entry.remove_prefix(1);
    if (name.empty() || entry.size() < name.size())
        return false;
    for (std::size_t i = 0; i < name.size(); ++i)
        if (Upper(entry[i]) != Upper(name[i]))
            return false;
    return entry.size() == name.size() || !IsLetter(entry[name.size()]);
}

std::string Format(const char* format, auto... values)
{
    char buffer[160];
    std::snprintf(buffer, sizeof buffer, format, values...);
    return buffer;
}

} // namespace

int CLicenceRules::LevelNamedBy(const std::vector<std::string>& licences) const
{
    int best = -1;
    for (const std::string& entry : licences)
        for (std::size_t i = 0; i < levels.size(); ++i)
            if (StartsWithLevel(entry, levels[i].name))
                best = std::max(best, static_cast<int>(i));
    return best;
}

int CLicenceRules::LevelReachedBy(int jumps, int64_t freefallSeconds) const
{
    int best = -1;
    for (std::size_t i = 0; i < levels.size(); ++i)
        if (jumps >= levels[i].minJumps && freefallSeconds >= levels[i].minFreefallSeconds)
            best = static_cast<int>(i);
    return best;
}

std::string FreefallText(int64_t seconds)
{
    const int64_t h = seconds / 3600;
    const int64_t m = seconds / 60 % 60;
    const int64_t s = seconds % 60;
    if (h == 0)
        return Format("%d:%02d", static_cast<int>(m), static_cast<int>(s));
    return Format("%lld:%02d:%02d", static_cast<long long>(h), static_cast<int>(m), static_cast<int>(s));
}

std::string IsoDate(const CDateTime& date)
{
    if (!date.IsValid())
        return {};
    return Format("%04d-%02d-%02d", date.Year(), date.Month(), date.Day());
}

std::string CLicenceProgress::Text() const
{
    if (!hasNext)
        return levelName + " reached";
    std::string text = Format("%s: %d of %d jumps", nextName.c_str(), jumps, nextJumps);
    if (nextFreefallSeconds > 0)
        text += ", " + FreefallText(freefallSeconds) + " of " + FreefallText(nextFreefallSeconds) + " freefall";
    return text;
}

std::string_view CCurrency::StateName() const
{
    switch (state) {
    case State::Current:
        return "current";
    case State::Due:
        return "due";
    case State::Lapsed:
        return "lapsed";
    case State::NoJumps:
        break;
    }
    return "none";
}

std::string CCurrency::Text() const
{
    switch (state) {
    case State::Current:
        return Format("Current: %d days since the last jump (limit %d days)", daysSinceLastJump, limitDays);
    case State::Due:
        return Format("Due: a recurrency jump by %s (%d of %d days)", IsoDate(currentUntil).c_str(), daysSinceLastJump,
                      limitDays);
    case State::Lapsed:
        return Format("Lapsed since %s (%d days since the last jump, limit %d days)", IsoDate(lapsedSince).c_str(),
                      daysSinceLastJump, limitDays);
    case State::NoJumps:
        break;
    }
    return "No jump logged";
}

CLicenceStatus CLicenceStatus::Compute(const CLogbookStats& stats, const std::vector<std::string>& licences,
                                       const CLicenceRules& rules)
{
    CLicenceStatus status;
    CLicenceProgress& progress = status.progress;
    progress.jumps = stats.totalJumps;
    progress.freefallSeconds = stats.totalFreefallSeconds;
    progress.level = rules.LevelNamedBy(licences);
    progress.levelFromProfile = progress.level >= 0;
    if (progress.level < 0)
        progress.level = rules.LevelReachedBy(progress.jumps, progress.freefallSeconds);
    if (progress.level >= 0)
        progress.levelName = rules.levels[static_cast<std::size_t>(progress.level)].name;
    const std::size_t next = static_cast<std::size_t>(progress.level + 1);
    progress.hasNext = next < rules.levels.size();
    if (progress.hasNext) {
        progress.nextName = rules.levels[next].name;
        progress.nextJumps = rules.levels[next].minJumps;
        progress.nextFreefallSeconds = rules.levels[next].minFreefallSeconds;
    }

    CCurrency& currency = status.currency;
    currency.limitDays = progress.level >= 0 ? rules.levels[static_cast<std::size_t>(progress.level)].currencyDays
                                             : rules.studentCurrencyDays;
    currency.daysSinceLastJump = stats.rhythm.daysSinceLastJump;
    currency.lastJump = stats.rhythm.lastJump;
    if (!currency.lastJump.IsValid())
        return status;
    currency.currentUntil = currency.lastJump.AddDays(currency.limitDays);
    currency.lapsedSince = currency.currentUntil.AddDays(1);
    const int left = currency.DaysLeft();
    currency.state = left < 0                            ? CCurrency::State::Lapsed
                     : left <= CCurrency::kDueWithinDays ? CCurrency::State::Due
                                                         : CCurrency::State::Current;
    return status;
}

CLicenceStatus CLicenceStatus::OfDocument(const CLogbookDoc& doc, const CDateTime& day, const CLicenceRules& rules)
{
    const CLogbookSettings& settings = doc.GetSettings();
    const int64_t today = day.DayNumber();
    int later = 0;
    int64_t laterFreefall = 0;
    int64_t last = INT64_MIN;
    const auto& jumps = doc.GetJumps();
    for (std::size_t index = 0; index < jumps.size(); ++index) {
        // Only the time stamps are read, one cache line of jumps that lie apart: ask early.
        if (index + 4 < jumps.size())
            __builtin_prefetch(&jumps[index + 4]->GetTimestamp());
        const CJump* jump = jumps[index];
        const CDateTime& stamp = jump->GetTimestamp().dateTime;
        if (!stamp.IsValid())
            continue;
        const int64_t number = stamp.DayNumber();
        if (number > today) {
            ++later;
            laterFreefall += jump->FreefallTime(settings);
        } else {
            last = std::max(last, number);
        }
    }
    CLogbookStats stats;
    stats.totalJumps = settings.GetPreviousJumps() + static_cast<int>(doc.GetJumpCount()) - later;
    stats.totalFreefallSeconds = settings.GetPreviousDelay() + doc.GetTotalFreefallTime() - laterFreefall;
    if (last != INT64_MIN) {
        stats.rhythm.lastJump = CDateTime::FromDayNumber(last);
        stats.rhythm.daysSinceLastJump = static_cast<int>(today - last);
    }
    return Compute(stats, settings.GetLicenses(), rules);
}
