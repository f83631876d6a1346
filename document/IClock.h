#pragma once

#include "xml/CDateTime.h"

// The current local date and time. The program reads the system clock; tests fix a day.
class IClock
{
public:
    virtual ~IClock() = default;
    // The current local date-time (milliseconds may be zero).
    virtual CDateTime Now() const = 0;
    // Today at midnight.
    CDateTime Today() const { return Now().DateOnly(); }
    // The local time's offset from UTC in minutes (a new jump's time stamp carries it).
    virtual int UtcOffsetMinutes() const { return 0; }
};

// The system clock in local time.
class CSystemClock final : public IClock
{
public:
    CDateTime Now() const override;
    int UtcOffsetMinutes() const override;
};

// A clock that always answers the same moment.
class CFixedClock final : public IClock
{
public:
    explicit CFixedClock(CDateTime now) : m_now(now) {}
    CDateTime Now() const override { return m_now; }
    void Set(CDateTime now) { m_now = now; }

private:
    CDateTime m_now;
};
