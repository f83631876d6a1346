#include "units/DurationText.h"

#include <cstdio>
#include <vector>

std::string DurationToText(int seconds, bool force)
{
    if (seconds == 0 && !force)
        return {};
    const int h = seconds / 3600;
    const int m = (seconds - h * 3600) / 60;
    const int s = seconds - (h * 60 + m) * 60;
    char buf[48];
    std::snprintf(buf, sizeof buf, "%d:%02d:%02d", h, m, s);
    return buf;
}

namespace {

// The leading decimal number of a part; an empty part is 0. Saturates instead of overflowing.
long long LeadingNumber(std::string_view part)
{
    long long value = 0;
    for (char c : part) {
        if (c < '0' || c > '9')
            break;
        if (value < 1000000000000LL)
            value = value * 10 + (c - '0');
    }
    return value;
}

} // namespace

bool DurationFromText(std::string_view text, int& seconds)
{
    if (text.empty()) {
        seconds = 0;
        return true;
    }
    std::vector<std::string_view> parts;
    std::size_t start = 0;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char c = text[i];
        if (c == ':') {
            parts.push_back(text.substr(start, i - start));
            start = i + 1;
        } else if (c < '0' || c > '9') {
            return false;
        }
    }
    parts.push_back(text.substr(start));

    long long result = 0;
    switch (parts.size()) {
    case 1: {
        const long long s = LeadingNumber(parts[0]);
        if (s >= 60)
            return false;
        result = s;
        break;
    }
    case 2: {
        const long long m = LeadingNumber(parts[0]), s = LeadingNumber(parts[1]);
        if (m >= 60 || s > 59)
            return false;
        result = m * 60 + s;
        break;
    }
    case 3: {
        const long long h = LeadingNumber(parts[0]), m = LeadingNumber(parts[1]), s = LeadingNumber(parts[2]);
        if (m >= 60 || s > 59)
            return false;
        result = (h * 60 + m) * 60 + s;
        if (result > 2147483647LL)
            return false; // beyond what a 32-bit count of seconds holds
        break;
    }
    default:
        return false;
    }
    seconds = static_cast<int>(result);
    return true;
}
