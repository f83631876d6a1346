#include "editing/CTimePadState.h"

#include <algorithm>
#include <cstdio>

namespace {

using Key = CTimePadState::Key;

// The minutes of the quarter keys and the steps, in the order of the enumeration.
constexpr int kQuarters[] = {0, 15, 30, 45};
constexpr int kSteps[] = {1, 5, 10, 15, -1, -5, -10, -15};

int Offset(Key key, Key first)
{
    return static_cast<int>(key) - static_cast<int>(first);
}

} // namespace

CTimePadState::CTimePadState(int hour, int minute) : m_hour(hour), m_minute(minute)
{
}

CTimePadState::Key CTimePadState::Hour(int hour)
{
    return static_cast<Key>(static_cast<int>(Key::Hour1) + std::clamp(hour, 1, 24) - 1);
}

std::string CTimePadState::Label(Key key)
{
    if (key <= Key::Hour24)
        return std::to_string(Offset(key, Key::Hour1) + 1);
    char text[8];
    if (key <= Key::Minute45)
        std::snprintf(text, sizeof text, ":%02d", kQuarters[Offset(key, Key::Minute00)]);
    else if (key < Key::Count)
        std::snprintf(text, sizeof text, "%+d", kSteps[Offset(key, Key::Plus1)]);
    else
        text[0] = '\0';
    return text;
}

void CTimePadState::Press(Key key)
{
    if (key <= Key::Hour24) {
        // "24" is midnight.
        m_hour = (Offset(key, Key::Hour1) + 1) % 24;
    } else if (key <= Key::Minute45) {
        m_minute = kQuarters[Offset(key, Key::Minute00)];
    } else if (key < Key::Count) {
        m_minute += kSteps[Offset(key, Key::Plus1)];
        if (m_minute >= 60) {
            m_minute -= 60;
            m_hour = m_hour + 1 == 24 ? 0 : m_hour + 1;
        } else if (m_minute < 0) {
            m_minute += 60;
            m_hour = m_hour - 1 == -1 ? 23 : m_hour - 1;
        }
    }
}

std::string CTimePadState::Display() const
{
    char text[32];
    std::snprintf(text, sizeof text, "%02i:%02i", m_hour, m_minute);
    return text;
}
