#pragma once

#include <string>

// The time-of-day pad's fields and key rules, without any UI. Hour keys set the hour ("24" is
// midnight, hour 0), the quarter keys set the minutes, and the minute steps wrap round the clock.
// No key is ever disabled.
class CTimePadState
{
public:
    // The keys of the pad.
    enum class Key
    {
        Hour1,
        Hour2,
        Hour3,
        Hour4,
        Hour5,
        Hour6,
        Hour7,
        Hour8,
        Hour9,
        Hour10,
        Hour11,
        Hour12,
        Hour13,
        Hour14,
        Hour15,
        Hour16,
        Hour17,
        Hour18,
        Hour19,
        Hour20,
        Hour21,
        Hour22,
        Hour23,
        Hour24,
        Minute00,
        Minute15,
        Minute30,
        Minute45,
        Plus1,
        Plus5,
        Plus10,
        Plus15,
        Minus1,
        Minus5,
        Minus10,
        Minus15,
        Count
    };

    // Opens with the caller's hour (0 to 23) and minute (0 to 59).
    CTimePadState(int hour, int minute);

    // The hour key for 1 to 24.
    static Key Hour(int hour);
    // The key's label as the pad shows it ("24", ":15", "-10").
    static std::string Label(Key key);

    // Whether the key does something now: every key always does.
    bool IsEnabled(Key key) const { return key < Key::Count; }
    // Applies the key.
    void Press(Key key);

    // "HH:MM".
    std::string Display() const;

    int Hour() const { return m_hour; }
    int Minute() const { return m_minute; }

private:
    int m_hour;
    int m_minute;
};
