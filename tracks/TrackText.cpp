#include "tracks/TrackText.h"

#include "resources/StringTable.h"
#include "xml/CDateTime.h"

#include <charconv>
#include <cmath>
#include <system_error>

namespace {

bool IsBlank(char c)
{
    return c == ' ' || c == '\t';
}

bool IsDigit(char c)
{
    return c >= '0' && c <= '9';
}

// The value of count digits at text[pos]; false when any of them is not a digit.
bool Digits(std::string_view text, std::size_t pos, std::size_t count, int& value)
{
    value = 0;
    for (std::size_t i = pos; i < pos + count; ++i) {
        if (!IsDigit(text[i]))
            return false;
        value = value * 10 + (text[i] - '0');
    }
    return true;
}

} // namespace

bool CTextLines::Next(CTextLine& line)
{
    if (m_pos >= m_text.size())
        return false;
    const std::size_t end = m_text.find('\n', m_pos);
    std::string_view text;
    if (end == std::string_view::npos) {
        text = m_text.substr(m_pos);
        m_pos = m_text.size();
        line.terminated = false;
    } else {
        text = m_text.substr(m_pos, end - m_pos);
        m_pos = end + 1;
        line.terminated = true;
    }
    if (!text.empty() && text.back() == '\r')
        text.remove_suffix(1);
    line.text = text;
    line.number = ++m_number;
    return true;
}

std::string_view TrimField(std::string_view text)
{
    while (!text.empty() && IsBlank(text.front()))
        text.remove_prefix(1);
    while (!text.empty() && IsBlank(text.back()))
        text.remove_suffix(1);
    return text;
}

bool EqualNoCase(std::string_view a, std::string_view b)
{
    if (a.size() != b.size())
        return false;
    for (std::size_t i = 0; i < a.size(); ++i) {
        char x = a[i], y = b[i];
        if (x >= 'A' && x <= 'Z')
            x = static_cast<char>(x - 'A' + 'a');
        if (y >= 'A' && y <= 'Z')
            y = static_cast<char>(y - 'A' + 'a');
        if (x != y)
            return false;
    }
    return true;
}

bool IsBlankLine(std::string_view line)
{
    return TrimField(line).empty();
}

std::string_view StripTextPadding(std::string_view text)
{
    if (text.substr(0, 3) == "\xEF\xBB\xBF")
        text.remove_prefix(3);
    while (!text.empty() && text.back() == '\0')
        text.remove_suffix(1);
    return text;
}

bool HasBinaryByte(std::string_view text, std::size_t limit, int& line)
{
    line = 1;
    const std::size_t size = text.size() < limit ? text.size() : limit;
    for (std::size_t i = 0; i < size; ++i) {
        const auto c = static_cast<unsigned char>(text[i]);
        if (c == '\n')
            ++line;
        else if ((c < 0x20 && c != '\t' && c != '\r') || c == 0x7F)
            return true;
    }
    return false;
}

bool ParseNumber(std::string_view field, double& value)
{
    field = TrimField(field);
    if (!field.empty() && field.front() == '+')
        field.remove_prefix(1);
    if (field.empty())
        return false;
    double parsed = 0.0;
    const char* end = field.data() + field.size();
    const auto [ptr, ec] = std::from_chars(field.data(), end, parsed);
    if (ec != std::errc() || ptr != end || !std::isfinite(parsed))
        return false;
    value = parsed;
    return true;
}

bool ParseInteger(std::string_view field, long long& value)
{
    field = TrimField(field);
    if (field.empty())
        return false;
    long long parsed = 0;
    const char* end = field.data() + field.size();
    const auto [ptr, ec] = std::from_chars(field.data(), end, parsed);
    if (ec != std::errc() || ptr != end)
        return false;
    value = parsed;
    return true;
}

bool ParseUtcTime(std::string_view field, double& seconds)
{
    field = TrimField(field);
    if (!field.empty() && (field.back() == 'Z' || field.back() == 'z'))
        field.remove_suffix(1);
    // 2021-04-20T04:20:00
    // 0123456789012345678
    if (field.size() < 19 || field[4] != '-' || field[7] != '-' || (field[10] != 'T' && field[10] != 't') ||
        field[13] != ':' || field[16] != ':')
        return false;
    int year = 0, month = 0, day = 0, hour = 0, minute = 0, second = 0;
    if (!Digits(field, 0, 4, year) || !Digits(field, 5, 2, month) || !Digits(field, 8, 2, day) ||
        !Digits(field, 11, 2, hour) || !Digits(field, 14, 2, minute) || !Digits(field, 17, 2, second))
        return false;
    // A receiver may stamp the inserted leap second as :60.
    if (hour > 23 || minute > 59 || second > 60)
        return false;
    double fraction = 0.0;
    if (field.size() > 19) {
        if (field[19] != '.' || field.size() == 20)
            return false;
        double scale = 0.1;
        for (std::size_t i = 20; i < field.size(); ++i) {
            if (!IsDigit(field[i]))
                return false;
            fraction += (field[i] - '0') * scale;
            scale *= 0.1;
        }
    }
    const CDateTime date(year, month, day);
    if (!date.IsValid())
        return false;
    const long long whole = static_cast<long long>(date.DayNumber()) * 86400 + hour * 3600 + minute * 60 + second;
    seconds = static_cast<double>(whole) + fraction;
    return true;
}

std::string LineMessage(int line, std::string_view reason)
{
    if (line > 0)
        return StringTable::Format(StringTable::IDS_TRACK_LINE, std::to_string(line), reason);
    std::string text(reason);
    if (!text.empty() && text[0] >= 'a' && text[0] <= 'z')
        text[0] = static_cast<char>(text[0] - 'a' + 'A');
    return text;
}

std::string QuoteField(std::string_view field)
{
    constexpr std::size_t kLongest = 24;
    std::string text = "\"";
    for (std::size_t i = 0; i < field.size() && i < kLongest; ++i) {
        const auto c = static_cast<unsigned char>(field[i]);
        text += c >= 0x20 && c < 0x7F ? static_cast<char>(c) : '?';
    }
    if (field.size() > kLongest)
        text += "...";
    text += '"';
    return text;
}
