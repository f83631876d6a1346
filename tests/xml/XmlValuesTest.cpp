#include "xml/XmlValues.h"

#include <gtest/gtest.h>

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

template <typename T>
struct ReadCase
{
    std::string text;
    std::optional<T> expected; // nullopt: the reader fails and leaves the target alone
};

template <typename T, typename Reader>
void CheckReads(const std::vector<ReadCase<T>>& cases, Reader read, T untouched)
{
    for (const auto& c : cases) {
        SCOPED_TRACE("'" + c.text + "'");
        T value = untouched;
        const bool ok = read(c.text, value);
        EXPECT_EQ(ok, c.expected.has_value());
        EXPECT_EQ(value, c.expected.value_or(untouched));
    }
}

TEST(XmlValues, Booleans)
{
    CheckReads<bool>({{"true", true},
                      {"TRUE", true},
                      {"Wahr", true},
                      {"1", true},
                      {"false", false},
                      {"FaLsE", false},
                      {"FALSCH", false},
                      {"0", false},
                      {"", std::nullopt},
                      {"yes", std::nullopt},
                      {" true", std::nullopt},
                      {"01", std::nullopt}},
                     XmlBoolFromString, true);
    CheckReads<bool>({{"true", true},
                      {"wahr", true},
                      {"1", true},
                      {"false", false},
                      {"falsch", false},
                      {"0", false},
                      {"", false},
                      {"TRUE", std::nullopt},
                      {"Wahr", std::nullopt},
                      {"no", std::nullopt}},
                     XmlBoolFromBytes, true);
}

TEST(XmlValues, IntegersWritten)
{
    EXPECT_EQ(XmlIntToString(0, false), "");
    EXPECT_EQ(XmlIntToString(0, true), "0");
    EXPECT_EQ(XmlIntToString(-17, false), "-17");
    EXPECT_EQ(XmlIntToString(INT_MAX, false), "2147483647");
    EXPECT_EQ(XmlIntToString(INT_MIN, true), "-2147483648");
}

TEST(XmlValues, IntegersRead)
{
    auto wide = [](bool minus) {
        return [minus](std::string_view t, int& v) { return XmlIntFromString(t, v, minus); };
    };
    auto bytes = [](bool minus) {
        return [minus](std::string_view t, int& v) { return XmlIntFromBytes(t, v, minus); };
    };
    // Overflow clamps instead of wrapping.
    CheckReads<int>({{"42", 42},
                     {"007", 7},
                     {"", std::nullopt},
                     {"-5", std::nullopt},
                     {"1.5", std::nullopt},
                     {" 1", std::nullopt},
                     {"99999999999", INT_MAX}},
                    wide(false), -1);
    CheckReads<int>({{"-5", -5},
                     {"5-", 5},
                     {"1-2", 1},
                     {"-", 0},
                     {"--5", std::nullopt},
                     {"-2147483648", INT_MIN},
                     {"-99999999999", INT_MIN},
                     {"+5", std::nullopt}},
                    wide(true), -1);
    CheckReads<int>({{"", 0}, {"42", 42}, {"-5", std::nullopt}, {"x", std::nullopt}}, bytes(false), -1);
    CheckReads<int>({{"-5", -5},
                     {"12-", 12},
                     {"-", 0},
                     {"1-2", std::nullopt},
                     {"-5-", std::nullopt},
                     {"2147483648", INT_MAX},
                     {"4.0", std::nullopt}},
                    bytes(true), -1);
}

TEST(XmlValues, DoublesWritten)
{
    struct Case
    {
        double value;
        bool force;
        const char* text;
    };
    // A few worked texts; DoublesMatchPrintfAndTheLibrary checks the rest against the C library.
    const Case cases[] = {
        {100, false, "100.0"},
        {-3.25, false, "-3.25"},
        {-1e-8, false, ""},
        {2e-8, false, "0.00000002"},
        {0.0, true, "0.0"},
        {-1e-15, true, "-0.0"},
        {1.0 / 3, false, "0.33333333333333"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.text);
        EXPECT_EQ(XmlDoubleToString(c.value, c.force), c.text);
        std::string appended = "x";
        XmlAppendDouble(appended, c.value, c.force);
        EXPECT_EQ(appended, std::string("x") + c.text);
    }
}

// Doubles are written as printf's "%0.14f" with the zeros trimmed, byte for byte, and the 8-bit
// reader gives exactly the double of the library's correctly rounded conversion, bit for bit:
// for any value, for the texts the writer produces, and for digit strings of any length.
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
    std::vector<double> values = {0.5e-14,
                                  0.5e-14 * 3,
                                  1e-8,
                                  1.0000000001e-8,
                                  9.99999999999995,
                                  0.125,
                                  1.5e-14,
                                  2.5e-14,
                                  1.7976931348623157e308,
                                  -1.7976931348623157e308,
                                  4.9e-324,
                                  -0.0,
                                  1e15 + 0.5,
                                  123.456};
    // Besides plain cases: texts exactly halfway between two doubles, which must round to even,
    // and texts a hair beside such a halfway point, where rounding twice would go wrong.
    std::vector<std::string> texts = {"0",
                                      "-0",
                                      "0.0",
                                      "9007199254740992",
                                      "9007199254740993",
                                      "0.1",
                                      "3899.59999999999991",
                                      "1.0000000000000000000001",
                                      "123456789012345678.9",
                                      "18014398509481986",
                                      "4503599627370496.5",
                                      "-4503599627370497.5",
                                      "2251799813685248.25",
                                      "2251799813685248.75",
                                      "1125899906842624.125",
                                      "9999999999999999999",
                                      "0.9999999999999999999",
                                      "1.992828565558163123",
                                      "9.241925569273832686",
                                      "18.07999670642412049",
                                      "75.64934468536583978",
                                      "300.4158526653332899",
                                      "2618.370964110950581"};
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
        for (bool force : {false, true})
            if (XmlDoubleToString(v, force) != viaPrintf(v, force) && ++mismatches < 5)
                ADD_FAILURE() << "value " << v << ": " << XmlDoubleToString(v, force) << " vs " << viaPrintf(v, force);
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

TEST(XmlValues, DoublesRead)
{
    auto wide = [](bool m) { return [m](std::string_view t, double& v) { return XmlDoubleFromString(t, v, m); }; };
    auto bytes = [](bool m) { return [m](std::string_view t, double& v) { return XmlDoubleFromBytes(t, v, m); }; };
    CheckReads<double>({{"2.5", 2.5},
                        {"7", 7.0},
                        {".5", 0.5},
                        {"5.", 5.0},
                        {"", std::nullopt},
                        {"1.2.3", std::nullopt},
                        {"-1", std::nullopt},
                        {"1e5", std::nullopt},
                        {"1,5", std::nullopt}},
                       wide(false), -9.0);
    CheckReads<double>({{"-2.5", -2.5}, {"2-", 2.0}, {"1-2", 1.0}, {"-", 0.0}, {".", 0.0}, {"--1", std::nullopt}},
                       wide(true), -9.0);
    CheckReads<double>({{"", 0.0}, {"3.75", 3.75}, {"-3", std::nullopt}, {"a", std::nullopt}}, bytes(false), -9.0);
    CheckReads<double>({{"-3.5", -3.5},
                        {"3.5-", 3.5},
                        {"3-5", std::nullopt},
                        {"0.1", 0.1},
                        {"1" + std::string(400, '0'), HUGE_VAL},
                        {"-1" + std::string(400, '0'), -HUGE_VAL}},
                       bytes(true), -9.0);
}

TEST(XmlValues, DateTimes)
{
    EXPECT_EQ(XmlDateTimeToString(CDateTime(2008, 5, 17, 14, 3, 0)), "2008-05-17T14:03:00Z");
    EXPECT_EQ(XmlDateTimeToString(CDateTime(998, 1, 2, 3, 4, 5, 7)), "0998-01-02T03:04:05.007Z");
    EXPECT_EQ(XmlDateTimeToString(CDateTime(2008, 2, 30)), "");
    EXPECT_EQ(XmlDateTimeToString(CDateTime()), "");

    const CDateTime untouched(2000, 1, 1);
    CheckReads<CDateTime>({{"2008-05-17T14:03:00Z", CDateTime(2008, 5, 17, 14, 3, 0)},
                           {"2008-05-17t14:03:00.250z", CDateTime(2008, 5, 17, 14, 3, 0, 250)},
                           {"2008-02-29T00:00:00Z", CDateTime(2008, 2, 29)},
                           {"0100-01-01T00:00:00Z", CDateTime(100, 1, 1)},
                           {"9999-12-31T23:59:59.999Z", CDateTime(9999, 12, 31, 23, 59, 59, 999)},
                           {"2008-05-17T14:03:00", std::nullopt},
                           {"2008-05-17 14:03:00Z", std::nullopt},
                           {"2007-02-29T00:00:00Z", std::nullopt},
                           {"2008-05-17T24:00:00Z", std::nullopt},
                           {"2008-05-17T14:03:00.25Z", std::nullopt},
                           {"2008-05-17T14:03:00,250Z", std::nullopt},
                           {"2008/05/17T14:03:00Z", std::nullopt},
                           {"2008-05-17T14-03:00Z", std::nullopt},
                           {"2008-05-1xT14:03:00Z", std::nullopt},
                           {"2008-05-17T14:03:00+02", std::nullopt}},
                          XmlDateTimeFromString, untouched);
}

TEST(XmlValues, ZonedDateTimes)
{
    const CDateTime t(2008, 5, 17, 14, 3, 0);
    const CDateTime ms(2008, 5, 17, 14, 3, 0, 500);
    struct WriteCase
    {
        CZonedDateTime value;
        const char* text;
    };
    for (const WriteCase& c :
         {WriteCase{{t, 0}, "2008-05-17T14:03:00Z"}, WriteCase{{t, 120}, "2008-05-17T14:03:00+02"},
          WriteCase{{ms, -330}, "2008-05-17T14:03:00.500-05:30"}, WriteCase{{t, 45}, "2008-05-17T14:03:00+00:45"},
          WriteCase{{t, -60}, "2008-05-17T14:03:00-01"}, WriteCase{{CDateTime(2008, 2, 30), 60}, ""}})
        EXPECT_EQ(XmlZonedDateTimeToString(c.value), c.text);

    const CZonedDateTime untouched{CDateTime(2000, 1, 1), 7};
    CheckReads<CZonedDateTime>({{"2008-05-17T14:03:00Z", CZonedDateTime{t, 0}},
                                {"2008-05-17T14:03:00+02", CZonedDateTime{t, 120}},
                                {"2008-05-17T14:03:00.500-05:30", CZonedDateTime{ms, -330}},
                                {"2008-05-17T14:03:00.500Z", CZonedDateTime{ms, 0}},
                                {"2008-05-17T14:03:00-00:15", CZonedDateTime{t, -15}},
                                {"2008-05-17T14:03:00.500+01", CZonedDateTime{ms, 60}},
                                {"2008-05-17t14:03:00Z", std::nullopt},
                                {"2008-05-17T14:03:00z", std::nullopt},
                                {"2008-05-17T14:03:00", std::nullopt},
                                {"2008-05-17T14:03:00+2", std::nullopt},
                                {"2008-05-17T14:03:00*02", std::nullopt},
                                {"2008-05-17T14:03:00+02-30", std::nullopt},
                                {"2008-05-17T14:03:00.5+02:30", std::nullopt},
                                {"2008-02-30T14:03:00+02", std::nullopt}},
                               XmlZonedDateTimeFromString, untouched);
}

TEST(XmlValues, TimeOfDayAndMinutes)
{
    const CDateTime day(2008, 5, 17, 9, 30, 15, 100);
    auto timeOfDay = [&day](std::string_view t, CDateTime& v) { return XmlTimeOfDayFromString(t, day, v); };
    CheckReads<CDateTime>({{"14:03", CDateTime(2008, 5, 17, 14, 3, 0)},
                           {"00:00", CDateTime(2008, 5, 17)},
                           {"23:59", CDateTime(2008, 5, 17, 23, 59, 0)},
                           {"24:00", std::nullopt},
                           {"12:60", std::nullopt},
                           {"1:030", std::nullopt},
                           {"12.30", std::nullopt},
                           {"12:3", std::nullopt}},
                          timeOfDay, CDateTime());
    CDateTime value;
    EXPECT_FALSE(XmlTimeOfDayFromString("12:00", CDateTime(), value));

    CheckReads<int>({{"", 0},
                     {"3:20", 200},
                     {"0:59", 59},
                     {"1.5", 90},
                     {"12.0", 720},
                     {"2,5", 150},
                     {"3:60", std::nullopt},
                     {"3.10", std::nullopt},
                     {"12", std::nullopt},
                     {":30", std::nullopt},
                     {"3:", std::nullopt},
                     {"1:2:3", std::nullopt},
                     {"-1:00", std::nullopt},
                     {"99999999999:00", std::nullopt}},
                    XmlMinutesFromString, -1);
}

} // namespace
