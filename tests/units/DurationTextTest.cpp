#include "units/DurationText.h"

#include <gtest/gtest.h>

#include <string>

namespace {

TEST(DurationToText, FormatsHoursMinutesSeconds)
{
    struct Case
    {
        int seconds;
        bool force;
        const char* text;
    };
    const Case cases[] = {
        {3725, false, "1:02:05"},     {0, false, ""}, {0, true, "0:00:00"}, {59, false, "0:00:59"},
        {360000, false, "100:00:00"}, // hours are not limited
        {-75, false, "0:-1:-15"},     // negative counts follow the integer arithmetic as is
    };
    for (const Case& c : cases)
        EXPECT_EQ(DurationToText(c.seconds, c.force), c.text) << c.seconds;
}

TEST(DurationFromText, AcceptsTheThreeForms)
{
    struct Case
    {
        const char* text;
        bool ok;
        int seconds;
    };
    const Case cases[] = {
        {"", true, 0},
        {"59", true, 59},
        {"75", false, 0}, // seconds alone must be below 60
        {"1:15", true, 75},
        {"1:60", false, 0},
        {"60:00", false, 0}, // minutes must be below 60
        {"2:03:04", true, 7384},
        {"123:59:59", true, 123 * 3600 + 59 * 60 + 59},
        {"1:2:3:4", false, 0},
        {"::", true, 0}, // empty parts count as 0
        {"1::5", true, 3605},
        {"1:2a", false, 0},
        {" 1:00", false, 0},
        {"-1", false, 0},
        {"999999999:00:00", false, 0}, // beyond a 32-bit count of seconds
    };
    for (const Case& c : cases) {
        int seconds = -7;
        EXPECT_EQ(DurationFromText(c.text, seconds), c.ok) << c.text;
        EXPECT_EQ(seconds, c.ok ? c.seconds : -7) << c.text << ": a failed read must keep the target";
    }
}

TEST(DurationText, RoundTripsEveryMinuteOfTwoHours)
{
    for (int s = 0; s < 7200; s += 7) {
        int back = -1;
        ASSERT_TRUE(DurationFromText(DurationToText(s, true), back)) << s;
        EXPECT_EQ(back, s);
    }
}

} // namespace
