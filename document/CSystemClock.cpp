#include "document/IClock.h"

#include <chrono>
#include <ctime>

CDateTime CSystemClock::Now() const
{
    using namespace std::chrono;
    const auto now = system_clock::now();
    const std::time_t seconds = system_clock::to_time_t(now);
    const int millisecond = static_cast<int>(duration_cast<milliseconds>(now.time_since_epoch()).count() % 1000);
    std::tm local{};
#if defined(_WIN32)
    localtime_s(&local, &seconds);
#else
    localtime_r(&seconds, &local);
#endif
    return CDateTime(local.tm_year + 1900, local.tm_mon + 1, local.tm_mday, local.tm_hour, local.tm_min,
                     local.tm_sec > 59 ? 59 : local.tm_sec, millisecond);
}

int CSystemClock::UtcOffsetMinutes() const
{
    const std::time_t seconds = std::time(nullptr);
    std::tm local{};
    std::tm utc{};
#if defined(_WIN32)
    localtime_s(&local, &seconds);
    gmtime_s(&utc, &seconds);
#else
    localtime_r(&seconds, &local);
    gmtime_r(&seconds, &utc);
#endif
    // The difference of the two broken-down times, with the day change across midnight.
    int minutes = (local.tm_hour - utc.tm_hour) * 60 + (local.tm_min - utc.tm_min);
    const int dayShift = local.tm_yday - utc.tm_yday;
    if (dayShift == 1 || dayShift < -1)
        minutes += 24 * 60;
    else if (dayShift == -1 || dayShift > 1)
        minutes -= 24 * 60;
    return minutes;
}
