#include "tracks/TrackTime.h"

#include <cmath>
#include <cstdint>
#include <cstdio>

namespace {

constexpr std::int64_t kMillisecondsPerDay = 86400000;

// Days since 1970 and the milliseconds into that day of an instant in milliseconds.
void SplitMilliseconds(std::int64_t total, std::int64_t& days, std::int64_t& milliseconds)
{
    days = total / kMillisecondsPerDay;
    milliseconds = total % kMillisecondsPerDay;
    if (milliseconds < 0) {
        milliseconds += kMillisecondsPerDay;
        --days;
    }
}

// The date-time of an instant in milliseconds since 1970 (no zone applied).
CDateTime DateTimeFromMilliseconds(std::int64_t total)
{
    std::int64_t days = 0, milliseconds = 0;
    SplitMilliseconds(total, days, milliseconds);
    CDateTime value = CDateTime::FromDayNumber(days);
    if (!value.IsValid())
        return value;
    const int ms = static_cast<int>(milliseconds);
    value.SetDateTime(value.Year(), value.Month(), value.Day(), ms / 3600000, ms / 60000 % 60, ms / 1000 % 60,
                      ms % 1000);
    return value;
}

// Milliseconds since 1970, rounded; limited to a span the date arithmetic handles (years 100
// to 9999 lie well inside).
std::int64_t RoundedMilliseconds(double seconds)
{
    constexpr double kLimit = 1e15;
    const double ms = std::round(seconds * 1000.0);
    if (!(ms > -kLimit))
        return static_cast<std::int64_t>(-kLimit);
    if (!(ms < kLimit))
        return static_cast<std::int64_t>(kLimit);
    return static_cast<std::int64_t>(ms);
}

} // namespace

CZonedDateTime ZonedFromUtc(double utcSeconds, int offsetMinutes)
{
    CZonedDateTime zoned;
    zoned.dateTime = DateTimeFromMilliseconds(RoundedMilliseconds(utcSeconds) + std::int64_t{offsetMinutes} * 60000);
    zoned.offsetMinutes = offsetMinutes;
    return zoned;
}

bool UtcFromZoned(const CZonedDateTime& zoned, double& utcSeconds)
{
    const CDateTime& t = zoned.dateTime;
    if (!t.IsValid())
        return false;
    const std::int64_t local = t.DayNumber() * 86400 + t.Hour() * 3600 + t.Minute() * 60 + t.Second();
    utcSeconds = static_cast<double>(local - std::int64_t{zoned.offsetMinutes} * 60) + t.Millisecond() / 1000.0;
    return true;
}

std::string_view FormatUtcIso8601(double utcSeconds, char (&buffer)[kIso8601Chars])
{
    const CDateTime t = DateTimeFromMilliseconds(RoundedMilliseconds(utcSeconds));
    if (!t.IsValid()) {
        buffer[0] = '\0';
        return {};
    }
    const int n = std::snprintf(buffer, kIso8601Chars, "%04d-%02d-%02dT%02d:%02d:%02d.%03dZ", t.Year(), t.Month(),
                                t.Day(), t.Hour(), t.Minute(), t.Second(), t.Millisecond());
    return std::string_view(buffer, n > 0 ? static_cast<std::size_t>(n) : 0);
}
