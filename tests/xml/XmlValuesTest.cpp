#include "xml/XmlValues.h"

#include <gtest/gtest.h>

#include <cfloat>
#include <charconv>
#include <climits>
#include <cmath>
#include <cstdio>
#include <cstring>
#include <optional>
#include <random>
#include <string>
#include <utility>
#include <vector>

namespace {

// no: the reader fails and leaves the target alone.
constexpr std::nullopt_t no = std::nullopt;

template <typename T>
struct ReadCase
{
    std::string text;
    std::optional<T> expected;
};

template <typename T, typename Reader>
void CheckReads(const std::vector<ReadCase<T>>& cases, Reader read, T untouched)
{
    for (const auto& c : cases) {
        T value = untouched;
        EXPECT_EQ(read(c.text, value), c.expected.has_value()) << "'" << c.text << "'";
        EXPECT_EQ(value, c.expected.value_or(untouched)) << "'" << c.text << "'";
    }
}

// The value writes as the text, and the text reads as the value.
template <typename T, typename Writer, typename Reader>
void CheckBothWays(const std::vector<std::pair<T, std::string>>& cases, Writer write, Reader read)
{
    for (const auto& [value, text] : cases) {
        EXPECT_EQ(write(value), text);
        T back{};
        EXPECT_TRUE(read(text, back) && back == value) << text;
    }
}

// The 8-bit readers agree with the wide ones on a text with no '-' but in front: FuzzXmlValues
// checks that on every input, so their tables hold only the texts where they differ.

TEST(XmlValues, Booleans)
{
    const std::vector<ReadCase<bool>> wide = {{"true", true},   {"TRUE", true},   {"Wahr", true},    {"1", true},
                                              {"false", false}, {"FaLsE", false}, {"FALSCH", false}, {"0", false},
                                              {"", no},         {"yes", no},      {" true", no},     {"01", no}};
    const std::vector<ReadCase<bool>> bytes = {{"true", true},    {"wahr", true}, {"1", true}, {"false", false},
                                               {"falsch", false}, {"0", false},   {"", false}, {"TRUE", no},
                                               {"Wahr", no},      {"no", no}};
    CheckReads(wide, XmlBoolFromString, true);
    CheckReads(bytes, XmlBoolFromBytes, true);
}

TEST(XmlValues, Integers)
{
    EXPECT_EQ(XmlIntToString(0, false), "");
    EXPECT_EQ(XmlIntToString(0, true), "0");
    EXPECT_EQ(XmlIntToString(-17, false), "-17");
    EXPECT_EQ(XmlIntToString(INT_MAX, false), "2147483647");
    EXPECT_EQ(XmlIntToString(INT_MIN, true), "-2147483648");

    auto wide = [](bool m) { return [m](std::string_view t, int& v) { return XmlIntFromString(t, v, m); }; };
    auto bytes = [](bool m) { return [m](std::string_view t, int& v) { return XmlIntFromBytes(t, v, m); }; };
    // Overflow clamps instead of wrapping.
    CheckReads<int>({{"42", 42}, {"007", 7}, {"", no}, {"-5", no}, {"1.5", no}, {" 1", no}, {"99999999999", INT_MAX}},
                    wide(false), -1);
    CheckReads<int>({{"-5", -5}, {"5-", 5}, {"1-2", 1}, {"-", 0}, {"--5", no}, {"+5", no}}, wide(true), -1);
    CheckReads<int>({{"-2147483648", INT_MIN}, {"-99999999999", INT_MIN}}, wide(true), -1);
    CheckReads<int>({{"", 0}}, bytes(false), -1);
    CheckReads<int>({{"12-", 12}, {"1-2", no}, {"-5-", no}}, bytes(true), -1);
}

TEST(XmlValues, DoublesRead)
{
    auto wide = [](bool m) { return [m](std::string_view t, double& v) { return XmlDoubleFromString(t, v, m); }; };
    auto bytes = [](bool m) { return [m](std::string_view t, double& v) { return XmlDoubleFromBytes(t, v, m); }; };
    const std::vector<ReadCase<double>> plain = {{"2.5", 2.5},  {"7", 7.0}, {".5", 0.5}, {"5.", 5.0}, {"", no},
                                                 {"1.2.3", no}, {"-1", no}, {"1e5", no}, {"1,5", no}};
    CheckReads(plain, wide(false), -9.0);
    CheckReads<double>({{"-2.5", -2.5}, {"2-", 2}, {"1-2", 1}, {"-", 0}, {".", 0}, {"--1", no}}, wide(true), -9.0);
    CheckReads<double>({{"", 0.0}}, bytes(false), -9.0);
    const std::string huge = "1" + std::string(400, '0');
    CheckReads<double>({{"3.5-", 3.5}, {"3-5", no}, {huge, HUGE_VAL}, {"-" + huge, -HUGE_VAL}}, bytes(true), -9.0);
}

// Doubles are written (and appended) as printf's "%0.14f" with the zeros trimmed, byte for byte,
// and the 8-bit reader gives exactly the double of the library's correctly rounded conversion,
// bit for bit: for any value, for the texts the writer produces, and for digit strings of any
// length.
TEST(XmlValues, DoublesMatchPrintfAndTheLibrary)
{
    auto viaPrintf = [](double v, bool force) -> std::string {
        if (!(std::fabs(v) > 1e-08) && !force)
            return {};
        std::vector<char> buffer(512);
        const int n = std::snprintf(buffer.data(), buffer.size(), "%0.14f", v);
        std::string s(buffer.data(), static_cast<std::size_t>(n));
        const auto dot = s.find('.');
        if (dot != std::string::npos)
            while (s.size() > dot + 2 && s.back() == '0')
                s.pop_back();
        return s;
    };
    std::mt19937_64 random(20240611);
    std::vector<double> values = {0.5e-14,         0.5e-14 * 3,      1.5e-14, 2.5e-14, 1e-8,
                                  1.0000000001e-8, 9.99999999999995, 0.125,   123.456, -0.0,
                                  1e15 + 0.5,      4.9e-324,         DBL_MAX, -DBL_MAX};
    // Besides plain cases: texts exactly halfway between two doubles, which must round to even,
    // and texts a hair beside such a halfway point, where rounding twice would go wrong.
    std::vector<std::string> texts = {
        "9007199254740992",      "9007199254740993",     "3899.59999999999991",  "1.0000000000000000000001",
        "123456789012345678.9",  "18014398509481986",    "4503599627370496.5",   "-4503599627370497.5",
        "2251799813685248.25",   "2251799813685248.75",  "1125899906842624.125", "9999999999999999999",
        "0.9999999999999999999", "1.992828565558163123", "9.241925569273832686", "18.07999670642412049",
        "75.64934468536583978",  "300.4158526653332899", "2618.370964110950581"};
    std::uniform_real_distribution<double> unit(-1.0, 1.0);
    std::uniform_int_distribution<int> exponent(-30, 30);
    std::uniform_int_distribution<int> digitCount(1, 21);
    std::uniform_int_distribution<int> digit(0, 9);
    for (int i = 0; i < 20000; ++i) {
        values.push_back(unit(random) * std::pow(10.0, exponent(random)));
        std::uint64_t bits = random();
        double any;
        std::memcpy(&any, &bits, sizeof any);
        if (std::isfinite(any))
            values.push_back(any);
        values.push_back(std::round(unit(random) * 1e6) / 1e4); // typical stored values
        // The magnitudes recordings hold, whose texts have mostly 16 to 19 digits.
        values.push_back(unit(random) * std::pow(10.0, i % 9 - 3));

        std::string text = i % 2 ? "-" : "";
        const int whole = digitCount(random);
        for (int k = 0; k < whole; ++k)
            text += static_cast<char>('0' + digit(random));
        if (i % 5 != 0) {
            text += '.';
            const int decimals = digitCount(random) + (i % 7 == 0 ? 5 : 0);
            for (int k = 0; k < decimals; ++k)
                text += static_cast<char>('0' + digit(random));
        }
        texts.push_back(text);
    }
    // Where integer formatting changes its way of working: the rounding of tiny values, 64-bit
    // against 128-bit scaled values (about 184467.44), integer parts beyond 19 digits, and the
    // largest magnitudes it handles (about 1.2e24) with the library's path just above them.
    const std::pair<double, double> regions[] = {{1e-16, 1e-13},   {184467.0, 184468.0}, {9.9e18, 1.1e19}, {1e19, 1e23},
                                                 {1.1e24, 1.3e24}, {0.0, 1e-300},        {4000.0, 4000.1}};
    std::uniform_real_distribution<double> share(0.0, 1.0);
    for (const auto& [low, high] : regions)
        for (int i = 0; i < 2000; ++i)
            values.push_back((share(random) < 0.5 ? -1 : 1) * (low + (high - low) * share(random)));
    // Exact ties at the 14th decimal (odd multiples of 2^-15) must round to even as printf does.
    for (int odd = 1; odd < 4000; odd += 2)
        for (double whole : {0.0, 1.0, 3899.0, -61.0})
            values.push_back(whole + std::ldexp(odd, -15));

    int mismatches = 0;
    for (double v : values) {
        for (bool force : {false, true}) {
            std::string appended = "x";
            XmlAppendDouble(appended, v, force);
            const std::string text = XmlDoubleToString(v, force);
            if ((text != viaPrintf(v, force) || appended != "x" + text) && ++mismatches < 5)
                ADD_FAILURE() << "value " << v << ": " << text << " / " << appended << " vs " << viaPrintf(v, force);
        }
        if (std::fabs(v) < 1e30)
            texts.push_back(XmlDoubleToString(v, true));
    }
    for (const std::string& text : texts) {
        double expected = 0.0;
        std::from_chars(text.data(), text.data() + text.size(), expected, std::chars_format::fixed);
        double read = -1.0;
        const bool ok = XmlDoubleFromBytes(text, read, true);
        if ((!ok || std::memcmp(&read, &expected, sizeof read) != 0) && ++mismatches < 5)
            ADD_FAILURE() << text << " read as " << read << " instead of " << expected;
    }
    EXPECT_EQ(mismatches, 0);
}

TEST(XmlValues, DateTimes)
{
    CheckBothWays<CDateTime>({{CDateTime(2008, 5, 17, 14, 3, 0), "2008-05-17T14:03:00Z"},
                              {CDateTime(998, 1, 2, 3, 4, 5, 7), "0998-01-02T03:04:05.007Z"},
                              {CDateTime(2008, 2, 29), "2008-02-29T00:00:00Z"},
                              {CDateTime(100, 1, 1), "0100-01-01T00:00:00Z"},
                              {CDateTime(9999, 12, 31, 23, 59, 59, 999), "9999-12-31T23:59:59.999Z"}},
                             XmlDateTimeToString, XmlDateTimeFromString);
    EXPECT_EQ(XmlDateTimeToString(CDateTime(2008, 2, 30)), "");
    EXPECT_EQ(XmlDateTimeToString(CDateTime()), "");

    const CDateTime old(2000, 1, 1);
    CheckReads<CDateTime>({{"2008-05-17t14:03:00.250z", CDateTime(2008, 5, 17, 14, 3, 0, 250)}}, XmlDateTimeFromString,
                          old);
    const std::vector<ReadCase<CDateTime>> fails = {{"2008-05-17T14:03:00", no},     {"2008-05-17 14:03:00Z", no},
                                                    {"2007-02-29T00:00:00Z", no},    {"2008-05-17T24:00:00Z", no},
                                                    {"2008-05-17T14:03:00.25Z", no}, {"2008-05-17T14:03:00,250Z", no},
                                                    {"2008/05/17T14:03:00Z", no},    {"2008-05-17T14-03:00Z", no},
                                                    {"2008-05-1xT14:03:00Z", no},    {"2008-05-17T14:03:00+02", no}};
    CheckReads(fails, XmlDateTimeFromString, old);
}

TEST(XmlValues, ZonedDateTimes)
{
    const CDateTime t(2008, 5, 17, 14, 3, 0);
    const CDateTime ms(2008, 5, 17, 14, 3, 0, 500);
    using Z = CZonedDateTime;
    CheckBothWays<Z>({{{t, 0}, "2008-05-17T14:03:00Z"},
                      {{t, 120}, "2008-05-17T14:03:00+02"},
                      {{ms, -330}, "2008-05-17T14:03:00.500-05:30"},
                      {{ms, 0}, "2008-05-17T14:03:00.500Z"},
                      {{t, 45}, "2008-05-17T14:03:00+00:45"},
                      {{t, -15}, "2008-05-17T14:03:00-00:15"},
                      {{t, -60}, "2008-05-17T14:03:00-01"},
                      {{ms, 60}, "2008-05-17T14:03:00.500+01"}},
                     XmlZonedDateTimeToString, XmlZonedDateTimeFromString);
    EXPECT_EQ(XmlZonedDateTimeToString({CDateTime(2008, 2, 30), 60}), "");

    const std::vector<ReadCase<Z>> fails = {{"2008-05-17t14:03:00Z", no},   {"2008-05-17T14:03:00z", no},
                                            {"2008-05-17T14:03:00", no},    {"2008-05-17T14:03:00+2", no},
                                            {"2008-05-17T14:03:00*02", no}, {"2008-05-17T14:03:00+02-30", no},
                                            {"2008-02-30T14:03:00+02", no}, {"2008-05-17T14:03:00.5+02:30", no}};
    CheckReads(fails, XmlZonedDateTimeFromString, Z{CDateTime(2000, 1, 1), 7});
}

TEST(XmlValues, TimeOfDayAndMinutes)
{
    const CDateTime day(2008, 5, 17, 9, 30, 15, 100);
    auto timeOfDay = [&day](std::string_view t, CDateTime& v) { return XmlTimeOfDayFromString(t, day, v); };
    CheckReads<CDateTime>({{"14:03", CDateTime(2008, 5, 17, 14, 3, 0)},
                           {"00:00", CDateTime(2008, 5, 17)},
                           {"23:59", CDateTime(2008, 5, 17, 23, 59, 0)}},
                          timeOfDay, CDateTime());
    CheckReads<CDateTime>({{"24:00", no}, {"12:60", no}, {"1:030", no}, {"12.30", no}, {"12:3", no}}, timeOfDay,
                          CDateTime());
    CDateTime value;
    EXPECT_FALSE(XmlTimeOfDayFromString("12:00", CDateTime(), value));

    const std::vector<ReadCase<int>> minutes = {
        {"", 0},      {"3:20", 200}, {"0:59", 59}, {"1.5", 90}, {"12.0", 720}, {"2,5", 150},  {"3:60", no},
        {"3.10", no}, {"12", no},    {":30", no},  {"3:", no},  {"1:2:3", no}, {"-1:00", no}, {"99999999999:00", no}};
    CheckReads(minutes, XmlMinutesFromString, -1);
}

} // namespace
