#include "FuzzTargets.h"
#include "xml/CDateTime.h"
#include "xml/XmlValues.h"

#include <climits>
#include <cmath>
#include <cstdlib>
#include <type_traits>

namespace {

// Readers must leave the target alone when they fail: each is run twice with different
// starting values, and a failure must leave both untouched.
template <typename T, typename Reader>
bool ReadBoth(Reader read, T first, T second, T& value, std::string& problem, const char* what)
{
    T a = first, b = second;
    const bool okA = read(a);
    const bool okB = read(b);
    if (okA != okB || (okA && !(a == b)))
        problem = std::string(what) + " depends on the target's old value";
    else if (!okA && (!(a == first) || !(b == second)))
        problem = std::string(what) + " changed the target although it failed";
    value = a;
    return okA;
}

std::string CheckBool(std::string_view text)
{
    std::string problem;
    bool wide = false, bytes = false;
    const bool wideOk =
        ReadBoth([&](bool& v) { return XmlBoolFromString(text, v); }, true, false, wide, problem, "XmlBoolFromString");
    const bool bytesOk =
        ReadBoth([&](bool& v) { return XmlBoolFromBytes(text, v); }, true, false, bytes, problem, "XmlBoolFromBytes");
    // The exact 8-bit spellings are a subset of the wide reader's, the empty text aside.
    if (problem.empty() && bytesOk && !text.empty() && (!wideOk || wide != bytes))
        problem = "the 8-bit boolean reader accepts a text the wide one reads differently";
    return problem;
}

// The wide and the 8-bit readers of a number: both agree on a text with no '-' but in front (the
// 8-bit readers also allow one at the end, the wide ones anywhere), and without allowMinus
// nothing reads as negative.
template <typename T>
std::string CheckNumber(std::string_view text, bool (*wideReader)(std::string_view, T&, bool),
                        bool (*bytesReader)(std::string_view, T&, bool), T first, T second, const std::string& kind)
{
    const bool minusOnlyInFront = !text.empty() && text.find('-', 1) == std::string_view::npos;
    std::string problem;
    for (const bool allowMinus : {false, true}) {
        T wide{}, bytes{};
        const bool wideOk = ReadBoth([&](T& v) { return wideReader(text, v, allowMinus); }, first, second, wide,
                                     problem, "the wide reader");
        const bool bytesOk = ReadBoth([&](T& v) { return bytesReader(text, v, allowMinus); }, first, second, bytes,
                                      problem, "the 8-bit reader");
        if (!problem.empty())
            return kind + ": " + problem;
        if (minusOnlyInFront && (wideOk != bytesOk || (wideOk && wide != bytes)))
            return "the wide and the 8-bit " + kind + " readers disagree";
        if (bytesOk && !allowMinus && bytes < 0)
            return "a negative " + kind + " was read without allowMinus";
        if constexpr (std::is_same_v<T, double>) {
            if (bytesOk && std::isnan(bytes))
                return "a double read as NaN";
        } else {
            // A value inside the int range writes back to a text that reads as the same value.
            int again = 0;
            if (bytesOk && bytes != INT_MAX && bytes != INT_MIN &&
                (!XmlIntFromBytes(XmlIntToString(bytes, true), again, true) || again != bytes))
                return "an integer read does not survive writing and reading";
        }
    }
    return {};
}

std::string CheckDateTimes(std::string_view text)
{
    std::string problem;
    const CDateTime one(2001, 2, 3, 4, 5, 6, 7), two(2002, 3, 4, 5, 6, 7, 8);
    CDateTime plain;
    const bool plainOk = ReadBoth([&](CDateTime& v) { return XmlDateTimeFromString(text, v); }, one, two, plain,
                                  problem, "XmlDateTimeFromString");
    CZonedDateTime zoned;
    const bool zonedOk =
        ReadBoth([&](CZonedDateTime& v) { return XmlZonedDateTimeFromString(text, v); }, CZonedDateTime{one, 60},
                 CZonedDateTime{two, -90}, zoned, problem, "XmlZonedDateTimeFromString");
    if (!problem.empty())
        return problem;
    if (plainOk) {
        CDateTime again;
        if (!plain.IsValid() || !XmlDateTimeFromString(XmlDateTimeToString(plain), again) || !(again == plain))
            return "a date-time read does not survive writing and reading";
        // The upper-case plain form is also a zoned one at offset 0.
        CZonedDateTime asZoned;
        if (text[10] == 'T' && text.back() == 'Z' &&
            (!XmlZonedDateTimeFromString(text, asZoned) || !(asZoned == CZonedDateTime{plain, 0})))
            return "a plain date-time in upper case does not read as a zoned one at offset 0";
    }
    if (zonedOk) {
        CZonedDateTime again;
        // Offsets of a hundred hours or more have no two-digit form; they cannot be written back.
        if (!zoned.dateTime.IsValid() ||
            (std::abs(zoned.offsetMinutes) < 6000 &&
             (!XmlZonedDateTimeFromString(XmlZonedDateTimeToString(zoned), again) || !(again == zoned))))
            return "a zoned date-time read does not survive writing and reading";
    }

    CDateTime time;
    const CDateTime leapDay(2008, 2, 29, 13, 14, 15, 16);
    if (ReadBoth([&](CDateTime& v) { return XmlTimeOfDayFromString(text, leapDay, v); }, one, two, time, problem,
                 "XmlTimeOfDayFromString") &&
        (!time.IsValid() || !time.SameDay(leapDay) || time.Second() != 0 || time.Millisecond() != 0))
        return "a time of day left its date or kept seconds";
    if (!problem.empty())
        return problem;

    int seconds = 0;
    if (ReadBoth([&](int& v) { return XmlMinutesFromString(text, v); }, 17, -19, seconds, problem,
                 "XmlMinutesFromString") &&
        seconds < 0)
        return "a duration read as negative";
    return problem;
}

} // namespace

std::string FuzzXmlValues(const std::uint8_t* data, std::size_t size)
{
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    for (const std::string& problem :
         {CheckBool(text), CheckNumber<int>(text, XmlIntFromString, XmlIntFromBytes, 11, -13, "integer"),
          CheckNumber<double>(text, XmlDoubleFromString, XmlDoubleFromBytes, 1.5, -2.5, "double"),
          CheckDateTimes(text)})
        if (!problem.empty())
            return problem;
    return {};
}
