#include "xml/XmlValues.h"

#include "xml/XmlFixedDecimal.h"

#include <charconv>
#include <climits>
#include <cmath>
#include <cstdint>
#include <cstdio>

namespace {

bool IsDigit(char c)
{
    return c >= '0' && c <= '9';
}

char LowerAscii(char c)
{
    return (c >= 'A' && c <= 'Z') ? static_cast<char>(c - 'A' + 'a') : c;
}

bool EqualsNoCase(std::string_view a, std::string_view b)
{
    if (a.size() != b.size())
        return false;
    for (std::size_t i = 0; i < a.size(); ++i)
        if (LowerAscii(a[i]) != LowerAscii(b[i]))
            return false;
    return true;
}

// The leading integer of text: an optional '-', then digits up to the first other character.
// A value that does not fit an int is clamped to INT_MIN or INT_MAX rather than wrapping, so a
// hostile file cannot turn a huge count into a negative one.
int LeadingInt(std::string_view text)
{
    std::size_t i = 0;
    bool negative = false;
    if (i < text.size() && text[i] == '-') {
        negative = true;
        ++i;
    }
    long long value = 0;
    for (; i < text.size() && IsDigit(text[i]); ++i) {
        value = value * 10 + (text[i] - '0');
        if (value > static_cast<long long>(INT_MAX) + 1)
            break;
    }
    if (negative)
        value = -value;
    if (value > INT_MAX)
        return INT_MAX;
    if (value < INT_MIN)
        return INT_MIN;
    return static_cast<int>(value);
}

// The leading decimal number of text (optional '-', digits, optional '.' and digits), read
// without regard to the user's locale. Text with no number in front reads as 0.0.
double LeadingDouble(std::string_view text)
{
    double value = 0.0;
    const char* first = text.data();
    const char* last = first + text.size();
    const auto result = std::from_chars(first, last, value, std::chars_format::fixed);
    if (result.ec == std::errc::result_out_of_range) {
        // Only digits and '.' can appear, so this is either overflow or a tiny underflow.
        bool negative = first != last && *first == '-';
        bool nonZeroIntegerPart = false;
        for (const char* p = negative ? first + 1 : first; p != last && IsDigit(*p); ++p)
            nonZeroIntegerPart = nonZeroIntegerPart || *p != '0';
        value = nonZeroIntegerPart ? HUGE_VAL : 0.0;
        return negative ? -value : value;
    }
    if (result.ec != std::errc())
        return 0.0;
    return value;
}

// The check shared by the 8-bit integer and double readers: digits, '.' (when dots allow it,
// at most once) and '-' only with allowMinus, once, as first or last character.
bool CheckBytes(std::string_view raw, bool allowMinus, bool allowDot)
{
    bool sawMinus = false;
    bool sawDot = false;
    for (std::size_t i = 0; i < raw.size(); ++i) {
        const char c = raw[i];
        if (IsDigit(c))
            continue;
        if (c == '-' && allowMinus && !sawMinus && (i == 0 || i + 1 == raw.size())) {
            sawMinus = true;
            continue;
        }
        if (c == '.' && allowDot && !sawDot) {
            sawDot = true;
            continue;
        }
        return false;
    }
    return true;
}

// The wide readers' check: non-empty, digits, one '-' anywhere with allowMinus, dots as allowed.
bool CheckText(std::string_view text, bool allowMinus, bool allowDot)
{
    if (text.empty())
        return false;
    bool sawMinus = false;
    bool sawDot = false;
    for (const char c : text) {
        if (IsDigit(c))
            continue;
        if (c == '-' && allowMinus && !sawMinus) {
            sawMinus = true;
            continue;
        }
        if (c == '.' && allowDot && !sawDot) {
            sawDot = true;
            continue;
        }
        return false;
    }
    return true;
}

// Value of count digits at text[pos]; the caller has checked they are digits.
int Digits(std::string_view text, std::size_t pos, std::size_t count)
{
    int value = 0;
    for (std::size_t i = 0; i < count; ++i)
        value = value * 10 + (text[pos + i] - '0');
    return value;
}

bool AllDigits(std::string_view text, std::size_t pos, std::size_t count)
{
    for (std::size_t i = 0; i < count; ++i)
        if (!IsDigit(text[pos + i]))
            return false;
    return true;
}

// Checks and reads "YYYY-MM-DDxHH:MM:SS" (x is checked by the caller) into fields; applies the
// range checks shared by the plain and the zoned reader.
bool ReadDateTimeFields(std::string_view t, int f[6])
{
    if (!AllDigits(t, 0, 4) || t[4] != '-' || !AllDigits(t, 5, 2) || t[7] != '-' || !AllDigits(t, 8, 2) ||
        !AllDigits(t, 11, 2) || t[13] != ':' || !AllDigits(t, 14, 2) || t[16] != ':' || !AllDigits(t, 17, 2))
        return false;
    f[0] = Digits(t, 0, 4);
    f[1] = Digits(t, 5, 2);
    f[2] = Digits(t, 8, 2);
    f[3] = Digits(t, 11, 2);
    f[4] = Digits(t, 14, 2);
    f[5] = Digits(t, 17, 2);
    return f[0] >= 100 && f[0] <= 9999 && f[1] >= 1 && f[1] <= 12 && f[2] >= 1 && f[2] <= 31 && f[3] < 24 &&
           f[4] < 60 && f[5] < 60;
}

void AppendDateTimeFields(std::string& out, const CDateTime& v)
{
    char buffer[64];
    int n = 0;
    if (v.Millisecond() != 0)
        n = std::snprintf(buffer, sizeof buffer, "%04d-%02d-%02dT%02d:%02d:%02d.%03d", v.Year(), v.Month(), v.Day(),
                          v.Hour(), v.Minute(), v.Second(), v.Millisecond());
    else
        n = std::snprintf(buffer, sizeof buffer, "%04d-%02d-%02dT%02d:%02d:%02d", v.Year(), v.Month(), v.Day(),
                          v.Hour(), v.Minute(), v.Second());
    out.append(buffer, static_cast<std::size_t>(n));
}

} // namespace

bool XmlBoolFromString(std::string_view text, bool& value)
{
    if (EqualsNoCase(text, "true") || text == "1" || EqualsNoCase(text, "wahr")) {
        value = true;
        return true;
    }
    if (EqualsNoCase(text, "false") || text == "0" || EqualsNoCase(text, "falsch")) {
        value = false;
        return true;
    }
    return false;
}

bool XmlBoolFromBytes(std::string_view raw, bool& value)
{
    if (raw == "true" || raw == "1" || raw == "wahr") {
        value = true;
        return true;
    }
    if (raw.empty() || raw == "false" || raw == "0" || raw == "falsch") {
        value = false;
        return true;
    }
    return false;
}

std::string XmlIntToString(int value, bool force)
{
    if (value == 0 && !force)
        return {};
    char buffer[16];
    const auto result = std::to_chars(buffer, buffer + sizeof buffer, value);
    return std::string(buffer, result.ptr);
}

bool XmlIntFromString(std::string_view text, int& value, bool allowMinus)
{
    if (!CheckText(text, allowMinus, false))
        return false;
    value = LeadingInt(text);
    return true;
}

bool XmlIntFromCheckedBytes(std::string_view raw, int& value, bool allowMinus)
{
    if (!CheckBytes(raw, allowMinus, false))
        return false;
    value = LeadingInt(raw);
    return true;
}

std::string_view XmlFormatDouble(double value, bool force, char (&buffer)[kXmlDoubleChars])
{
    if (!(std::fabs(value) > 1e-08) && !force)
        return {};
    // Fixed notation with 14 decimals, the same bytes as printf's "%0.14f": integer arithmetic
    // for the usual magnitudes, the library's correctly rounded conversion beyond them.
    char* end = XmlFormatDecimal14(value, buffer);
    if (end != nullptr)
        return {buffer, static_cast<std::size_t>(end - buffer)};
    end = std::to_chars(buffer, buffer + kXmlDoubleChars, value, std::chars_format::fixed, 14).ptr;
    const char* dot = nullptr;
    for (const char* p = buffer; p != end; ++p)
        if (*p == '.') {
            dot = p;
            break;
        }
    if (dot != nullptr) {
        // Trim trailing zeros but keep one digit after the point.
        while (end - dot > 2 && end[-1] == '0')
            --end;
    }
    return {buffer, static_cast<std::size_t>(end - buffer)};
}

void XmlAppendDouble(std::string& out, double value, bool force)
{
    char buffer[kXmlDoubleChars];
    out += XmlFormatDouble(value, force, buffer);
}

std::string XmlDoubleToString(double value, bool force)
{
    std::string out;
    XmlAppendDouble(out, value, force);
    return out;
}

bool XmlDoubleFromString(std::string_view text, double& value, bool allowMinus)
{
    if (!CheckText(text, allowMinus, true))
        return false;
    value = LeadingDouble(text);
    return true;
}

bool XmlDoubleFromBytes(std::string_view raw, double& value, bool allowMinus)
{
    double quick = 0.0;
    if (XmlReadShortDecimal(raw, allowMinus, quick)) {
        value = quick;
        return true;
    }
    if (!CheckBytes(raw, allowMinus, true))
        return false;
    value = raw.empty() ? 0.0 : LeadingDouble(raw);
    return true;
}

std::string XmlDateTimeToString(const CDateTime& value)
{
    std::string out;
    if (!value.IsValid())
        return out;
    AppendDateTimeFields(out, value);
    out += 'Z';
    return out;
}

bool XmlDateTimeFromString(std::string_view text, CDateTime& value)
{
    const std::size_t n = text.size();
    if (n != 20 && n != 24)
        return false;
    int f[6];
    if (text[10] != 'T' && text[10] != 't')
        return false;
    if (!ReadDateTimeFields(text, f))
        return false;
    int millisecond = 0;
    if (n == 20) {
        if (text[19] != 'Z' && text[19] != 'z')
            return false;
    } else {
        if (text[19] != '.' || !AllDigits(text, 20, 3) || (text[23] != 'Z' && text[23] != 'z'))
            return false;
        millisecond = Digits(text, 20, 3);
    }
    CDateTime result;
    if (!result.SetDateTime(f[0], f[1], f[2], f[3], f[4], f[5], millisecond))
        return false;
    value = result;
    return true;
}

std::string XmlZonedDateTimeToString(const CZonedDateTime& value)
{
    std::string out;
    if (!value.dateTime.IsValid())
        return out;
    AppendDateTimeFields(out, value.dateTime);
    if (value.offsetMinutes == 0) {
        out += 'Z';
        return out;
    }
    const long long offset = value.offsetMinutes;
    const long long magnitude = offset < 0 ? -offset : offset;
    char buffer[48];
    int n = 0;
    if (magnitude % 60 != 0)
        n = std::snprintf(buffer, sizeof buffer, "%s%02lld:%02lld", offset > 0 ? "+" : "-", magnitude / 60,
                          magnitude % 60);
    else
        n = std::snprintf(buffer, sizeof buffer, "%s%02lld", offset > 0 ? "+" : "-", magnitude / 60);
    out.append(buffer, static_cast<std::size_t>(n));
    return out;
}

bool XmlZonedDateTimeFromString(std::string_view text, CZonedDateTime& value)
{
    const std::size_t n = text.size();
    std::size_t zone = 0;
    if (n == 20 || n == 22 || n == 25)
        zone = 19;
    else if (n == 24 || n == 26 || n == 29)
        zone = 23;
    else
        return false;
    int f[6];
    if (text[10] != 'T' || !ReadDateTimeFields(text, f))
        return false;
    int millisecond = 0;
    if (zone == 23) {
        if (text[19] != '.' || !AllDigits(text, 20, 3))
            return false;
        millisecond = Digits(text, 20, 3);
    }
    const std::size_t zoneLength = n - zone;
    int offset = 0;
    if (zoneLength == 1) {
        if (text[zone] != 'Z')
            return false;
    } else {
        const char sign = text[zone];
        if ((sign != '+' && sign != '-') || !AllDigits(text, zone + 1, 2))
            return false;
        int minutes = 0;
        if (zoneLength == 6) {
            if (text[zone + 3] != ':' || !AllDigits(text, zone + 4, 2))
                return false;
            minutes = Digits(text, zone + 4, 2);
        }
        offset = Digits(text, zone + 1, 2) * 60 + minutes;
        if (sign == '-')
            offset = -offset;
    }
    CDateTime result;
    if (!result.SetDateTime(f[0], f[1], f[2], f[3], f[4], f[5], millisecond))
        return false;
    value.dateTime = result;
    value.offsetMinutes = offset;
    return true;
}

bool XmlTimeOfDayFromString(std::string_view raw, const CDateTime& date, CDateTime& value)
{
    if (raw.size() != 5 || !AllDigits(raw, 0, 2) || raw[2] != ':' || !AllDigits(raw, 3, 2))
        return false;
    const int hour = Digits(raw, 0, 2);
    const int minute = Digits(raw, 3, 2);
    if (hour > 23 || minute > 59)
        return false;
    CDateTime result;
    if (!result.SetDateTime(date.Year(), date.Month(), date.Day(), hour, minute, 0, 0))
        return false;
    value = result;
    return true;
}

bool XmlMinutesFromString(std::string_view raw, int& seconds)
{
    if (raw.empty()) {
        seconds = 0;
        return true;
    }
    std::size_t separator = std::string_view::npos;
    for (std::size_t i = 0; i < raw.size(); ++i) {
        if (IsDigit(raw[i]))
            continue;
        if (separator != std::string_view::npos)
            return false;
        separator = i;
    }
    if (separator == std::string_view::npos || separator == 0 || separator + 1 == raw.size())
        return false;
    // Durations beyond what an int of seconds holds are refused rather than wrapped.
    long long whole = 0;
    for (std::size_t i = 0; i < separator; ++i) {
        whole = whole * 10 + (raw[i] - '0');
        if (whole > INT_MAX)
            return false;
    }
    long long part = 0;
    for (std::size_t i = separator + 1; i < raw.size(); ++i) {
        part = part * 10 + (raw[i] - '0');
        if (part > INT_MAX)
            return false;
    }
    long long result = 0;
    if (raw[separator] == ':') {
        if (part > 59)
            return false;
        result = whole * 60 + part;
    } else {
        if (part > 9)
            return false;
        result = (whole * 10 + part) * 6;
    }
    if (result > INT_MAX)
        return false;
    seconds = static_cast<int>(result);
    return true;
}
