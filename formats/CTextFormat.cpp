#include "formats/CTextFormat.h"

#include "units/RoundValue.h"

#include <charconv>
#include <cstdio>

std::string CTextFormat::IsoDate(const CDateTime& value)
{
    if (!value.IsValid())
        return {};
    char buffer[16];
    std::snprintf(buffer, sizeof buffer, "%04d-%02d-%02d", value.Year(), value.Month(), value.Day());
    return buffer;
}

std::string CTextFormat::TimeOfDay(const CDateTime& value)
{
    if (!value.IsValid())
        return {};
    char buffer[8];
    std::snprintf(buffer, sizeof buffer, "%02d:%02d", value.Hour(), value.Minute());
    return buffer;
}

std::string CTextFormat::WholeNumber(double value)
{
    const double rounded = RoundValue(value, RoundHalfUp, 0);
    char buffer[64];
    // Rounding may leave -0.0; print it as 0.
    std::snprintf(buffer, sizeof buffer, "%.0f", rounded == 0.0 ? 0.0 : rounded);
    return buffer;
}

std::string CTextFormat::CountOrEmpty(int value)
{
    return value == 0 ? std::string() : std::to_string(value);
}

std::string CTextFormat::Decimal(double value)
{
    char buffer[32];
    const auto result = std::to_chars(buffer, buffer + sizeof buffer, value);
    return std::string(buffer, result.ptr);
}
