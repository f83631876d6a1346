#include "editing/CNumberPadState.h"

#include <algorithm>
#include <climits>
#include <cstdlib>

namespace {

// The pad's range is symmetric so that "+/-" never overflows.
constexpr long long kLimit = INT_MAX;

int Clamp(long long value)
{
    return static_cast<int>(std::clamp(value, -kLimit, kLimit));
}

long long Power10(int exponent)
{
    long long result = 1;
    for (int i = 0; i < exponent && result <= kLimit; ++i)
        result *= 10;
    return result;
}

} // namespace

CNumberPadState::CNumberPadState(int scaledValue, int maxDecimals, bool allowNegative, std::string decimalSeparator,
                                 std::string thousandsSeparator)
    : m_value(Clamp(scaledValue)), m_decimalsTyped(std::clamp(maxDecimals, 0, 9)),
      m_maxDecimals(std::clamp(maxDecimals, 0, 9)), m_allowNegative(allowNegative),
      m_decimalSeparator(std::move(decimalSeparator)), m_thousandsSeparator(std::move(thousandsSeparator))
{
}

CNumberPadState::Key CNumberPadState::Digit(int digit)
{
    return static_cast<Key>(static_cast<int>(Key::Digit0) + std::clamp(digit, 0, 9));
}

long long CNumberPadState::Scaled(long long value, int decimalsTyped) const
{
    return value * Power10(m_maxDecimals - std::max(decimalsTyped, 0));
}

int CNumberPadState::ScaledValue() const
{
    return Clamp(Scaled(m_value, m_decimalsTyped));
}

bool CNumberPadState::DigitResult(int digit, long long& value, int& decimalsTyped) const
{
    value = m_value;
    decimalsTyped = m_decimalsTyped;
    // A fresh pad, or one still showing the value it opened with, starts a new whole number.
    if (StartsNewEntry()) {
        value = 0;
        decimalsTyped = -1;
    }
    if (decimalsTyped >= 0) {
        if (decimalsTyped >= m_maxDecimals)
            return false;
        ++decimalsTyped;
    }
    // As the pad has always done, the digit is added even to a negative value (-12 then 3 is -117).
    value = value * 10 + digit;
    return std::llabs(value) <= kLimit && std::llabs(Scaled(value, decimalsTyped)) <= kLimit;
}

bool CNumberPadState::IsEnabled(Key key) const
{
    switch (key) {
    case Key::Sign:
        return m_allowNegative;
    case Key::Separator:
        return StartsNewEntry() || m_decimalsTyped < 0;
    case Key::Back:
    case Key::Clear:
        return true;
    case Key::Plus:
        return ScaledValue() != 0;
    case Key::Equals:
        return m_lastOperand != 0 || (m_accumulator != 0 && ScaledValue() != 0);
    case Key::Count:
        return false;
    default: {
        long long value = 0;
        int decimals = 0;
        return DigitResult(static_cast<int>(key) - static_cast<int>(Key::Digit0), value, decimals);
    }
    }
}

void CNumberPadState::Press(Key key)
{
    if (!IsEnabled(key))
        return;
    // The value the pad opened with is replaced by the first digit or separator typed; "+/-"
    // turns it round and leaves it ready to be replaced.
    const bool opening = m_opening;
    switch (key) {
    case Key::Sign:
        m_value = -m_value;
        m_lastOperand = 0;
        break;
    case Key::Separator:
        if (opening)
            m_value = 0;
        m_decimalsTyped = 0;
        m_lastOperand = 0;
        break;
    case Key::Back:
        // Backspacing over the separator itself only returns to whole-number entry.
        if (m_decimalsTyped != 0)
            m_value /= 10;
        if (m_decimalsTyped >= 0)
            --m_decimalsTyped;
        m_lastOperand = 0;
        break;
    case Key::Clear:
        m_value = 0;
        m_accumulator = 0;
        m_lastOperand = 0;
        m_decimalsTyped = m_maxDecimals;
        break;
    case Key::Plus:
        m_lastOperand = 0;
        m_accumulator = Clamp(static_cast<long long>(m_accumulator) + ScaledValue());
        m_value = 0;
        m_decimalsTyped = m_maxDecimals;
        break;
    case Key::Equals:
        if (m_lastOperand != 0) {
            m_value = Clamp(static_cast<long long>(m_lastOperand) + ScaledValue());
        } else {
            m_lastOperand = ScaledValue();
            m_value = Clamp(static_cast<long long>(m_accumulator) + m_lastOperand);
            m_accumulator = 0;
        }
        m_decimalsTyped = m_maxDecimals;
        break;
    case Key::Count:
        break;
    default: {
        long long value = 0;
        int decimals = 0;
        DigitResult(static_cast<int>(key) - static_cast<int>(Key::Digit0), value, decimals);
        m_value = static_cast<int>(value);
        m_decimalsTyped = decimals;
        break;
    }
    }
    if (key != Key::Sign)
        m_opening = false;
}

std::string CNumberPadState::Grouped(long long number) const
{
    const std::string digits = std::to_string(number);
    std::string text;
    for (std::size_t i = 0; i < digits.size(); ++i) {
        if (i > 0 && (digits.size() - i) % 3 == 0)
            text += m_thousandsSeparator;
        text += digits[i];
    }
    return text;
}

std::string CNumberPadState::Display() const
{
    const long long magnitude = std::llabs(static_cast<long long>(m_value));
    std::string text = m_value < 0 ? "-" : "";
    if (m_maxDecimals != 0 && m_decimalsTyped >= 0) {
        const long long unit = Power10(m_decimalsTyped);
        text += Grouped(magnitude / unit);
        text += m_decimalSeparator;
        if (m_decimalsTyped >= 1) {
            // The fraction zero-padded to the decimals typed, as "%0<n>d" gives it.
            const std::string fraction = std::to_string(magnitude % unit);
            text.append(static_cast<std::size_t>(m_decimalsTyped) -
                            std::min(fraction.size(), static_cast<std::size_t>(m_decimalsTyped)),
                        '0');
            text += fraction;
        }
    } else {
        text += Grouped(magnitude);
    }
    return text;
}
