#pragma once

#include "xml/CDateTime.h"

#include <cstddef>
#include <string>
#include <string_view>

// Text encodings of typed values, both directions. "Text" functions take decoded Unicode text
// (UTF-8); "Bytes" functions take the undecoded 8-bit text exactly as read from the file.
// Every reader returns a success flag and writes its result only on success.

// Wide booleans: "true"/"1"/"wahr" and "false"/"0"/"falsch", any case; anything else fails.
bool XmlBoolFromString(std::string_view text, bool& value);
// 8-bit booleans: exact spellings only; the empty text is false and succeeds.
bool XmlBoolFromBytes(std::string_view raw, bool& value);

// "%d"; a zero becomes the empty text unless force is set.
std::string XmlIntToString(int value, bool force);
// Wide integers: non-empty, digits, one '-' when allowMinus.
bool XmlIntFromString(std::string_view text, int& value, bool allowMinus);
// XmlIntFromBytes for anything but one to nine plain digits.
bool XmlIntFromCheckedBytes(std::string_view raw, int& value, bool allowMinus);

// 8-bit integers: empty is 0; digits and one '-' (first or last) when allowMinus; leading integer.
// Most values are a few plain digits, read here in one pass without a call; up to nine fit.
inline bool XmlIntFromBytes(std::string_view raw, int& value, bool allowMinus)
{
    if (!raw.empty() && raw.size() <= 9) {
        unsigned digits = 0;
        for (const char c : raw) {
            const unsigned digit = static_cast<unsigned char>(c) - unsigned{'0'};
            if (digit > 9)
                return XmlIntFromCheckedBytes(raw, value, allowMinus);
            digits = digits * 10 + digit;
        }
        value = static_cast<int>(digits);
        return true;
    }
    return XmlIntFromCheckedBytes(raw, value, allowMinus);
}

// "%0.14f" with trailing zeros trimmed (one decimal kept); |value| <= 1e-8 is empty unless forced.
std::string XmlDoubleToString(double value, bool force);
// Room XmlFormatDouble needs: the largest double has 309 integer digits.
inline constexpr std::size_t kXmlDoubleChars = 400;
// Writes the same text as XmlDoubleToString into buffer and returns a view of it (no heap).
std::string_view XmlFormatDouble(double value, bool force, char (&buffer)[kXmlDoubleChars]);
// Appends the same text as XmlDoubleToString to out (no temporary string).
void XmlAppendDouble(std::string& out, double value, bool force);
// Wide doubles: non-empty, digits, at most one '.', one '-' when allowMinus.
bool XmlDoubleFromString(std::string_view text, double& value, bool allowMinus);
// 8-bit doubles: empty is 0.0; digits, at most one '.', '-' as for 8-bit integers.
bool XmlDoubleFromBytes(std::string_view raw, double& value, bool allowMinus);

// "YYYY-MM-DDTHH:MM:SS[.mmm]Z" of a valid value; empty for any other.
std::string XmlDateTimeToString(const CDateTime& value);
// Reads the 20- or 24-character form; 't' and 'z' may be lower case.
bool XmlDateTimeFromString(std::string_view text, CDateTime& value);

// "YYYY-MM-DDTHH:MM:SS[.mmm]" and "Z", "+HH", "-HH:MM" ...; empty when invalid.
std::string XmlZonedDateTimeToString(const CZonedDateTime& value);
// Reads lengths 20, 22, 25 (no milliseconds) or 24, 26, 29; upper-case 'T' and 'Z' only.
bool XmlZonedDateTimeFromString(std::string_view text, CZonedDateTime& value);

// "HH:MM" on the date of the given date-time, seconds 0.
bool XmlTimeOfDayFromString(std::string_view raw, const CDateTime& date, CDateTime& value);
// Flight durations: "M:SS" (minutes and seconds) or "M.T" (minutes and tenths); empty is 0.
bool XmlMinutesFromString(std::string_view raw, int& seconds);
