#pragma once

#include "xml/CDateTime.h"

#include <cstddef>
#include <string_view>

// Conversions between UTC seconds since 1970-01-01T00:00:00Z and the calendar date-times of the
// logbook, done by day arithmetic, independent of the machine's locale and time zone.

// The local wall time of a UTC instant at the given offset (minutes east of UTC), to the
// millisecond; the date-time is Invalid outside the years 100 to 9999.
CZonedDateTime ZonedFromUtc(double utcSeconds, int offsetMinutes);
// The UTC instant of a local date-time with its offset; false when the date-time is not valid.
bool UtcFromZoned(const CZonedDateTime& zoned, double& utcSeconds);

// Room for FormatUtcIso8601: "YYYY-MM-DDTHH:MM:SS.mmmZ" and a terminating NUL.
inline constexpr std::size_t kIso8601Chars = 32;
// "2024-04-20T04:20:00.000Z" of a UTC instant, written into buffer (no heap).
std::string_view FormatUtcIso8601(double utcSeconds, char (&buffer)[kIso8601Chars]);
