#include "formats/CsvCells.h"

#include "units/DurationText.h"
#include "xml/CDateTime.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <string>

namespace {

constexpr double kMetresPerFoot = 0.3048;
constexpr double kHighestMetres = 15000.0;

} // namespace

namespace CsvCells {

char Lower(char c)
{
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

bool EqualNoCase(std::string_view a, std::string_view b)
{
    if (a.size() != b.size())
        return false;
    for (std::size_t i = 0; i < a.size(); ++i)
        if (Lower(a[i]) != Lower(b[i]))
            return false;
    return true;
}

std::string_view Trim(std::string_view text)
{
    const std::size_t first = text.find_first_not_of(" \t\r\n");
    if (first == std::string_view::npos)
        return {};
    const std::size_t last = text.find_last_not_of(" \t\r\n");
    return text.substr(first, last - first + 1);
}

bool IsDigit(char c)
{
    return c >= '0' && c <= '9';
}

// Digits as a number; false for none or more than 9 of them.
bool Digits(std::string_view text, int& value)
{
    if (text.empty() || text.size() > 9)
        return false;
    value = 0;
    for (char c : text) {
        if (!IsDigit(c))
            return false;
        value = value * 10 + (c - '0');
    }
    return true;
}

bool WholeNumber(std::string_view cell, long long low, long long high, int& value)
{
    cell = Trim(cell);
    bool negative = false;
    if (!cell.empty() && (cell.front() == '-' || cell.front() == '+')) {
        negative = cell.front() == '-';
        cell.remove_prefix(1);
    }
    int magnitude = 0;
    if (!Digits(cell, magnitude))
        return false;
    const long long signedValue = negative ? -static_cast<long long>(magnitude) : magnitude;
    if (signedValue < low || signedValue > high)
        return false;
    value = static_cast<int>(signedValue);
    return true;
}

// A decimal with "." or "," as its point; "4.000" and "4,000" (three digits after one
// separator) are thousands, which no height or speed writes as decimals.
bool Decimal(std::string_view cell, double& value)
{
    cell = Trim(cell);
    std::string text;
    for (char c : cell)
        if (c != ' ' && c != '\'')
            text += c;
    const std::size_t separator = text.find_first_of(".,");
    if (separator != std::string::npos && text.find_first_of(".,", separator + 1) == std::string::npos &&
        text.size() - separator == 4 && separator > 0 && separator <= 2)
        text.erase(separator, 1);
    std::replace(text.begin(), text.end(), ',', '.');
    if (text.empty())
        return false;
    std::size_t digits = 0;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char c = text[i];
        if (IsDigit(c))
            ++digits;
        else if (!(c == '.' || ((c == '-' || c == '+') && i == 0)))
            return false;
    }
    if (digits == 0 || digits > 15 || std::count(text.begin(), text.end(), '.') > 1)
        return false;
    value = std::strtod(text.c_str(), nullptr);
    return std::isfinite(value);
}

bool SplitDate(std::string_view cell, DateParts& parts)
{
    cell = Trim(cell);
    const std::size_t end = cell.find_first_of(" T");
    if (end != std::string_view::npos) {
        parts.rest = Trim(cell.substr(end + 1));
        cell = cell.substr(0, end);
    }
    std::string_view pieces[3];
    std::size_t count = 0, start = 0;
    char separator = 0;
    for (std::size_t i = 0; i <= cell.size(); ++i) {
        if (i == cell.size() || cell[i] == '.' || cell[i] == '/' || cell[i] == '-') {
            if (count == 3)
                return false;
            if (i < cell.size()) {
                if (separator != 0 && cell[i] != separator)
                    return false;
                separator = cell[i];
            }
            pieces[count++] = cell.substr(start, i - start);
            start = i + 1;
        }
    }
    // "17.05.2024." ends with a dot in some German files.
    if (count == 3 && pieces[2].empty())
        return false;
    if (count != 3)
        return false;
    int values[3];
    for (int i = 0; i < 3; ++i)
        if (!Digits(pieces[i], values[i]))
            return false;
    if (pieces[0].size() == 4 && pieces[1].size() <= 2 && pieces[2].size() <= 2) {
        parts.iso = true;
        parts.year = values[0];
        parts.a = values[1];
        parts.b = values[2];
        return true;
    }
    if (pieces[0].size() > 2 || pieces[1].size() > 2 || (pieces[2].size() != 2 && pieces[2].size() != 4))
        return false;
    parts.a = values[0];
    parts.b = values[1];
    parts.year = pieces[2].size() == 2 ? (values[2] < 70 ? 2000 + values[2] : 1900 + values[2]) : values[2];
    return true;
}

bool ValidDate(int year, int month, int day)
{
    return month >= 1 && month <= 12 && day >= 1 && day <= 31 && CDateTime(year, month, day).IsValid();
}

// "HH:MM" or "HH:MM:SS", hours of one or two digits, with an optional "AM"/"PM".
bool ParseTime(std::string_view cell, int& hour, int& minute, int& second)
{
    cell = Trim(cell);
    int add = 0;
    bool twelve = false;
    if (cell.size() > 2) {
        const std::string_view suffix = cell.substr(cell.size() - 2);
        if (EqualNoCase(suffix, "am") || EqualNoCase(suffix, "pm")) {
            twelve = true;
            add = EqualNoCase(suffix, "pm") ? 12 : 0;
            cell = Trim(cell.substr(0, cell.size() - 2));
        }
    }
    const std::size_t colon = cell.find(':');
    if (colon == std::string_view::npos)
        return false;
    const std::size_t colon2 = cell.find(':', colon + 1);
    const std::string_view h = cell.substr(0, colon);
    const std::string_view m =
        cell.substr(colon + 1, colon2 == std::string_view::npos ? std::string_view::npos : colon2 - colon - 1);
    second = 0;
    if (h.size() > 2 || m.size() != 2 || !Digits(h, hour) || !Digits(m, minute))
        return false;
    if (colon2 != std::string_view::npos) {
        const std::string_view s = cell.substr(colon2 + 1);
        if (s.size() != 2 || !Digits(s, second) || second > 59)
            return false;
    }
    if (twelve) {
        if (hour < 1 || hour > 12)
            return false;
        hour = hour % 12 + add;
    }
    return hour <= 23 && minute <= 59;
}

// Freefall seconds: "45", "45 s", "0:45", "1:05", "0:00:45".
bool ParseFreefall(std::string_view cell, int& seconds)
{
    cell = Trim(cell);
    if (!cell.empty() && (cell.back() == 's' || cell.back() == 'S'))
        cell = Trim(cell.substr(0, cell.size() - 1));
    if (cell.find(':') != std::string_view::npos)
        return DurationFromText(cell, seconds) && seconds >= 0;
    double value = 0;
    if (!Decimal(cell, value) || value < 0 || value > 24 * 3600)
        return false;
    seconds = static_cast<int>(std::lround(value));
    return true;
}

bool ParseHeight(std::string_view cell, bool feet, int& metres)
{
    cell = Trim(cell);
    if (cell.empty()) {
        metres = 0;
        return true;
    }
    // A unit written into the cell itself.
    for (std::string_view suffix : {"ft", "m"}) {
        if (cell.size() > suffix.size() && EqualNoCase(cell.substr(cell.size() - suffix.size()), suffix)) {
            cell = cell.substr(0, cell.size() - suffix.size());
            break;
        }
    }
    double value = 0;
    if (!Decimal(cell, value))
        return false;
    const double inMetres = feet ? value * kMetresPerFoot : value;
    if (inMetres < 0 || inMetres > kHighestMetres)
        return false;
    metres = static_cast<int>(std::lround(inMetres));
    return true;
}

} // namespace CsvCells
