#pragma once

#include <string>

// The number pad's registers and key rules, without any UI. The value is the digits typed so far
// as a whole number (12.34 typed with two decimals is 1234); decimals typed is -1 until the
// separator is typed and then counts the digits after it. "+" adds the scaled value to an
// accumulator, "=" adds it up and remembers the operand so that a repeated "=" adds it again.
// Every number stays within +-2147483647: a digit whose result would not fit is disabled and sums
// are clamped.
class CNumberPadState
{
public:
    // The keys of the pad.
    enum class Key
    {
        Digit0,
        Digit1,
        Digit2,
        Digit3,
        Digit4,
        Digit5,
        Digit6,
        Digit7,
        Digit8,
        Digit9,
        Sign,      // "+/-"
        Separator, // the decimal separator
        Back,      // "<--"
        Clear,     // "C"
        Plus,      // "+"
        Equals,    // "="
        Count
    };

    // Opens with a value scaled to maxDecimals (1234 with two decimals is 12.34); the separators
    // are UTF-8 texts from the user's locale.
    CNumberPadState(int scaledValue, int maxDecimals, bool allowNegative, std::string decimalSeparator,
                    std::string thousandsSeparator);

    // The digit key for 0 to 9.
    static Key Digit(int digit);

    // Whether the key does something now.
    bool IsEnabled(Key key) const;
    // Applies the key; a disabled key is ignored.
    void Press(Key key);

    // The display line: thousands grouped, the separator once typed, "-" in front when negative.
    std::string Display() const;
    // The value multiplied by 10 for every decimal not typed (12 with two decimals gives 1200).
    int ScaledValue() const;

    // The registers, for tests and callers that show them.
    int Value() const { return m_value; }
    int DecimalsTyped() const { return m_decimalsTyped; }
    int MaxDecimals() const { return m_maxDecimals; }
    int Accumulator() const { return m_accumulator; }
    int LastOperand() const { return m_lastOperand; }
    // Value 0 with decimals typed at max decimals: the next digit starts a new entry.
    bool IsFresh() const { return m_value == 0 && m_decimalsTyped == m_maxDecimals; }
    // True while the pad still shows the value it was opened with: the first digit (or the
    // separator) replaces it, as on a calculator.
    bool IsOpening() const { return m_opening; }

private:
    // The scaled value of a whole number with the given decimals typed, unclamped.
    long long Scaled(long long value, int decimalsTyped) const;
    // The digit's result as (value, decimals typed); false when the key does nothing.
    bool DigitResult(int digit, long long& value, int& decimalsTyped) const;
    // The next digit or separator begins a new number.
    bool StartsNewEntry() const { return m_opening || IsFresh(); }
    // Whole digits with the thousands separator every three digits from the right.
    std::string Grouped(long long number) const;

    int m_value;
    int m_decimalsTyped;
    int m_maxDecimals;
    bool m_allowNegative;
    int m_accumulator = 0;
    int m_lastOperand = 0;
    bool m_opening = true;
    std::string m_decimalSeparator;
    std::string m_thousandsSeparator;
};
