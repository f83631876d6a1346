#pragma once

#include <compare>
#include <cstdint>

// A calendar date-time with millisecond resolution and a status: a value is Valid, Invalid
// (an impossible date such as 31 February was asked for) or Null (no value at all).
// Years 100 to 9999 are representable; anything outside is Invalid.
class CDateTime
{
public:
    enum Status
    {
        Valid = 0,
        Invalid = 1,
        Null = 2
    };

    // A Null date-time.
    CDateTime() = default;
    // A date-time from its fields; Invalid when the fields do not name a real moment.
    CDateTime(int year, int month, int day, int hour = 0, int minute = 0, int second = 0, int millisecond = 0);

    // Sets every field at once; returns whether the result is Valid (else the status is Invalid).
    bool SetDateTime(int year, int month, int day, int hour, int minute, int second, int millisecond = 0);
    // Makes this value Null.
    void SetNull();
    // Makes this value Invalid (fields zeroed).
    void SetInvalid();

    Status GetStatus() const { return m_status; }
    bool IsValid() const { return m_status == Valid; }
    bool IsNull() const { return m_status == Null; }

    int Year() const { return m_year; }
    int Month() const { return m_month; }
    int Day() const { return m_day; }
    int Hour() const { return m_hour; }
    int Minute() const { return m_minute; }
    int Second() const { return m_second; }
    int Millisecond() const { return m_millisecond; }

    // True when hour, minute, second and millisecond are all zero.
    bool IsMidnight() const;
    // The same day at 00:00:00.000 (status kept).
    CDateTime DateOnly() const;
    // Days since 1970-01-01 of the date part (valid values only).
    int64_t DayNumber() const;
    // The valid date-time at midnight of the given day number.
    static CDateTime FromDayNumber(int64_t days);
    // This value moved by whole days, time of day kept; Invalid when it leaves the range.
    CDateTime AddDays(int64_t days) const;
    // True when both are valid and fall on the same calendar day.
    bool SameDay(const CDateTime& other) const;
    // Whether the fields form a real calendar date within years 100..9999.
    static bool IsValidDate(int year, int month, int day);
    static int DaysInMonth(int year, int month);

    // Status first, then chronological order.
    friend bool operator==(const CDateTime&, const CDateTime&) = default;
    friend std::strong_ordering operator<=>(const CDateTime& a, const CDateTime& b);

private:
    Status m_status = Null;
    int m_year = 0, m_month = 0, m_day = 0;
    int m_hour = 0, m_minute = 0, m_second = 0, m_millisecond = 0;
};

// A local date-time together with its signed offset from UTC in minutes.
struct CZonedDateTime
{
    CDateTime dateTime;
    int offsetMinutes = 0;

    friend bool operator==(const CZonedDateTime&, const CZonedDateTime&) = default;
};
