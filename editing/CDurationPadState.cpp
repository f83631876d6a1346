#include "editing/CDurationPadState.h"

#include <algorithm>
#include <cmath>
#include <cstdio>

namespace {

// The steps of each step key, in the order of the enumeration from HourPlus1 on.
constexpr int kSteps[] = {1, 5, 10, 50, 100, 500, -1, -5, -10, -50, -100, -500,
                          1, 5, 10, -1, -5,  -10, 1,  5,  10,  -1,  -5,   -10};

using Key = CDurationPadState::Key;

bool IsHourStep(Key key)
{
    return key >= Key::HourPlus1 && key <= Key::HourMinus500;
}

bool IsMinuteStep(Key key)
{
    return key >= Key::MinutePlus1 && key <= Key::MinuteMinus10;
}

} // namespace

CDurationPadState::CDurationPadState(int hours, int minutes, int seconds, int maxHours)
    : m_hours(hours), m_minutes(minutes), m_seconds(seconds), m_maxHours(maxHours)
{
}

CDurationPadState::Key CDurationPadState::Hour(int hours)
{
    return static_cast<Key>(static_cast<int>(Key::Hour0) + std::clamp(hours, 0, 11));
}

int CDurationPadState::Step(Key key)
{
    return kSteps[static_cast<int>(key) - static_cast<int>(Key::HourPlus1)];
}

std::string CDurationPadState::Label(Key key)
{
    if (key < Key::HourPlus1)
        return std::to_string(static_cast<int>(key) - static_cast<int>(Key::Hour0));
    if (key >= Key::Count)
        return {};
    const int step = Step(key);
    return (step > 0 ? "+" : "") + std::to_string(step);
}

bool CDurationPadState::IsEnabled(Key key) const
{
    if (key >= Key::Count)
        return false;
    if (key < Key::HourPlus1)
        return true;
    const int step = Step(key);
    const bool hoursCanRise = m_hours < m_maxHours;
    const bool hoursCanFall = m_hours >= 1;
    if (IsHourStep(key))
        return step > 0 ? m_hours + step <= m_maxHours : m_hours + step >= 0;
    if (IsMinuteStep(key))
        return step > 0 ? hoursCanRise || m_minutes < 60 - step : hoursCanFall || m_minutes >= -step;
    return step > 0 ? hoursCanRise || m_minutes < 59 || m_seconds < 60 - step
                    : hoursCanFall || m_minutes != 0 || m_seconds >= -step;
}

void CDurationPadState::AddMinutes(int step)
{
    m_minutes += step;
    if (m_minutes >= 60) {
        // At max hours the minutes still wrap but the hour is not raised.
        m_minutes -= 60;
        if (m_hours < m_maxHours)
            ++m_hours;
    } else if (m_minutes < 0) {
        m_minutes += 60;
        if (m_hours >= 1)
            --m_hours;
    }
}

void CDurationPadState::AddSeconds(int step)
{
    m_seconds += step;
    if (m_seconds >= 60) {
        m_seconds -= 60;
        AddMinutes(1);
    } else if (m_seconds < 0) {
        m_seconds += 60;
        AddMinutes(-1);
    }
}

void CDurationPadState::Press(Key key)
{
    if (!IsEnabled(key))
        return;
    if (key < Key::HourPlus1)
        m_hours = static_cast<int>(key) - static_cast<int>(Key::Hour0);
    else if (IsHourStep(key))
        m_hours += Step(key);
    else if (IsMinuteStep(key))
        AddMinutes(Step(key));
    else
        AddSeconds(Step(key));
}

std::string CDurationPadState::Display() const
{
    char text[64];
    if (m_maxHours > 99) {
        const int width = static_cast<int>(std::floor(std::log10(static_cast<double>(m_maxHours)))) + 1;
        std::snprintf(text, sizeof text, "%0*d:%02d:%02d", width, m_hours, m_minutes, m_seconds);
    } else {
        // The seconds were never shown here: the format lacks its percent sign.
        std::snprintf(text, sizeof text, "%02d:%02d:02d", m_hours, m_minutes);
    }
    return text;
}
