#pragma once

#include <string>

// The duration pad's fields and key rules, without any UI. Hours are set directly by the hour
// keys (never disabled, even above max hours) or moved by steps that must stay within 0..max hours;
// minute and second steps carry into the next larger field. A step that would leave
// 0:00:00..max hours:59:59 is disabled.
class CDurationPadState
{
public:
    // The keys of the pad.
    enum class Key
    {
        Hour0,
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
        HourPlus1,
        HourPlus5,
        HourPlus10,
        HourPlus50,
        HourPlus100,
        HourPlus500,
        HourMinus1,
        HourMinus5,
        HourMinus10,
        HourMinus50,
        HourMinus100,
        HourMinus500,
        MinutePlus1,
        MinutePlus5,
        MinutePlus10,
        MinuteMinus1,
        MinuteMinus5,
        MinuteMinus10,
        SecondPlus1,
        SecondPlus5,
        SecondPlus10,
        SecondMinus1,
        SecondMinus5,
        SecondMinus10,
        Count
    };

    // Opens with the caller's duration and the largest number of hours allowed.
    CDurationPadState(int hours, int minutes, int seconds, int maxHours);

    // The hour key for 0 to 11.
    static Key Hour(int hours);
    // The key's label as the pad shows it ("7", "+50", "-10").
    static std::string Label(Key key);

    // Whether the key does something now.
    bool IsEnabled(Key key) const;
    // Applies the key; a disabled key is ignored.
    void Press(Key key);

    // "HHH:MM:SS" with the hours padded to the digits of max hours when max hours is above 99;
    // otherwise the hours and minutes followed by the literal ":02d", as the pad always showed it.
    std::string Display() const;

    int Hours() const { return m_hours; }
    int Minutes() const { return m_minutes; }
    int Seconds() const { return m_seconds; }
    int MaxHours() const { return m_maxHours; }

private:
    // The signed step of a step key in its own field.
    static int Step(Key key);
    void AddMinutes(int step);
    void AddSeconds(int step);

    int m_hours;
    int m_minutes;
    int m_seconds;
    int m_maxHours;
};
