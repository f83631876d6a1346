#include "xml/CDateTime.h"

namespace {

constexpr int kMinYear = 100;
constexpr int kMaxYear = 9999;

bool IsLeapYear(int year)
{
    return (year % 4 == 0 && year % 100 != 0) || year % 400 == 0;
}

// Days from 1970-01-01 to the given proleptic Gregorian date (H. Hinnant's days_from_civil).
int64_t DaysFromCivil(int64_t y, int m, int d)
{
    y -= m <= 2 ? 1 : 0;
    const int64_t era = (y >= 0 ? y : y - 399) / 400;
    const int64_t yoe = y - era * 400;
    const int64_t doy = (153 * (m + (m > 2 ? -3 : 9)) + 2) / 5 + d - 1;
    const int64_t doe = yoe * 365 + yoe / 4 - yoe / 100 + doy;
    return era * 146097 + doe - 719468;
}

// The inverse of DaysFromCivil.
void CivilFromDays(int64_t z, int64_t& y, int& m, int& d)
{
    z += 719468;
    const int64_t era = (z >= 0 ? z : z - 146096) / 146097;
    const int64_t doe = z - era * 146097;
    const int64_t yoe = (doe - doe / 1460 + doe / 36524 - doe / 146096) / 365;
    const int64_t doy = doe - (365 * yoe + yoe / 4 - yoe / 100);
    const int64_t mp = (5 * doy + 2) / 153;
    d = static_cast<int>(doy - (153 * mp + 2) / 5 + 1);
    m = static_cast<int>(mp < 10 ? mp + 3 : mp - 9);
    y = yoe + era * 400 + (m <= 2 ? 1 : 0);
}

} // namespace

CDateTime::CDateTime(int year, int month, int day, int hour, int minute, int second, int millisecond)
{
    SetDateTime(year, month, day, hour, minute, second, millisecond);
}

bool CDateTime::SetDateTime(int year, int month, int day, int hour, int minute, int second, int millisecond)
{
    const bool ok = IsValidDate(year, month, day) && hour >= 0 && hour < 24 && minute >= 0 && minute < 60 &&
                    second >= 0 && second < 60 && millisecond >= 0 && millisecond <= 999;
    if (!ok) {
        SetInvalid();
        return false;
    }
    m_status = Valid;
    m_year = year;
    m_month = month;
    m_day = day;
    m_hour = hour;
    m_minute = minute;
    m_second = second;
    m_millisecond = millisecond;
    return true;
}

void CDateTime::SetNull()
{
    *this = CDateTime();
}

void CDateTime::SetInvalid()
{
    *this = CDateTime();
    m_status = Invalid;
}

bool CDateTime::IsMidnight() const
{
    return m_hour == 0 && m_minute == 0 && m_second == 0 && m_millisecond == 0;
}

CDateTime CDateTime::DateOnly() const
{
    CDateTime result = *this;
    result.m_hour = result.m_minute = result.m_second = result.m_millisecond = 0;
    return result;
}

int64_t CDateTime::DayNumber() const
{
    return DaysFromCivil(m_year, m_month, m_day);
}

CDateTime CDateTime::FromDayNumber(int64_t days)
{
    int64_t year = 0;
    int month = 0, day = 0;
    CivilFromDays(days, year, month, day);
    CDateTime result;
    if (year < kMinYear || year > kMaxYear)
        result.SetInvalid();
    else
        result.SetDateTime(static_cast<int>(year), month, day, 0, 0, 0, 0);
    return result;
}

CDateTime CDateTime::AddDays(int64_t days) const
{
    if (!IsValid())
        return *this;
    // Keep far-out requests from overflowing the day arithmetic; they leave the range anyway.
    constexpr int64_t kSpan = 4000000;
    if (days > kSpan || days < -kSpan) {
        CDateTime invalid;
        invalid.SetInvalid();
        return invalid;
    }
    CDateTime result = FromDayNumber(DayNumber() + days);
    if (result.IsValid())
        result.SetDateTime(result.m_year, result.m_month, result.m_day, m_hour, m_minute, m_second, m_millisecond);
    return result;
}

bool CDateTime::SameDay(const CDateTime& other) const
{
    return IsValid() && other.IsValid() && m_year == other.m_year && m_month == other.m_month && m_day == other.m_day;
}

bool CDateTime::IsValidDate(int year, int month, int day)
{
    return year >= kMinYear && year <= kMaxYear && month >= 1 && month <= 12 && day >= 1 &&
           day <= DaysInMonth(year, month);
}

int CDateTime::DaysInMonth(int year, int month)
{
    static constexpr int kDays[12] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    if (month < 1 || month > 12)
        return 0;
    if (month == 2 && IsLeapYear(year))
        return 29;
    return kDays[month - 1];
}

std::strong_ordering operator<=>(const CDateTime& a, const CDateTime& b)
{
    if (auto c = a.m_status <=> b.m_status; c != 0)
        return c;
    if (auto c = a.m_year <=> b.m_year; c != 0)
        return c;
    if (auto c = a.m_month <=> b.m_month; c != 0)
        return c;
    if (auto c = a.m_day <=> b.m_day; c != 0)
        return c;
    if (auto c = a.m_hour <=> b.m_hour; c != 0)
        return c;
    if (auto c = a.m_minute <=> b.m_minute; c != 0)
        return c;
    if (auto c = a.m_second <=> b.m_second; c != 0)
        return c;
    return a.m_millisecond <=> b.m_millisecond;
}
