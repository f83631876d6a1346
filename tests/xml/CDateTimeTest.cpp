#include "xml/CDateTime.h"

#include <gtest/gtest.h>

namespace {

TEST(CDateTime, ValidityFollowsTheCalendar)
{
    struct Case
    {
        int y, mo, d, h, mi, s, ms;
        bool valid;
    };
    const Case cases[] = {
        {2008, 2, 29, 0, 0, 0, 0, true},    {2007, 2, 29, 0, 0, 0, 0, false}, {1900, 2, 29, 0, 0, 0, 0, false},
        {2000, 2, 29, 0, 0, 0, 0, true},    {2008, 4, 31, 0, 0, 0, 0, false}, {2008, 12, 31, 23, 59, 59, 999, true},
        {100, 1, 1, 0, 0, 0, 0, true},      {99, 12, 31, 0, 0, 0, 0, false},  {9999, 12, 31, 0, 0, 0, 0, true},
        {10000, 1, 1, 0, 0, 0, 0, false},   {2008, 0, 1, 0, 0, 0, 0, false},  {2008, 1, 0, 0, 0, 0, 0, false},
        {2008, 1, 1, 24, 0, 0, 0, false},   {2008, 1, 1, 0, 60, 0, 0, false}, {2008, 1, 1, 0, 0, -1, 0, false},
        {2008, 1, 1, 0, 0, 0, 1000, false},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(std::to_string(c.y) + "-" + std::to_string(c.mo) + "-" + std::to_string(c.d));
        const CDateTime value(c.y, c.mo, c.d, c.h, c.mi, c.s, c.ms);
        EXPECT_EQ(value.IsValid(), c.valid);
        EXPECT_EQ(value.GetStatus(), c.valid ? CDateTime::Valid : CDateTime::Invalid);
        if (!c.valid) {
            EXPECT_EQ(value.Year(), 0);
        }
    }
    EXPECT_TRUE(CDateTime().IsNull());
}

TEST(CDateTime, DayNumbersAreContinuous)
{
    EXPECT_EQ(CDateTime(1970, 1, 1).DayNumber(), 0);
    EXPECT_EQ(CDateTime(2000, 3, 1).DayNumber(), 11017);
    EXPECT_EQ(CDateTime(1969, 12, 31).DayNumber(), -1);
    // Every day from year 100 to 9999 follows the previous one and converts back.
    CDateTime day(100, 1, 1);
    const int64_t first = day.DayNumber();
    int64_t count = 0;
    while (day.IsValid()) {
        ASSERT_EQ(day.DayNumber(), first + count);
        ASSERT_EQ(CDateTime::FromDayNumber(first + count), day);
        day = day.AddDays(1);
        ++count;
    }
    EXPECT_EQ(count, CDateTime(9999, 12, 31).DayNumber() - first + 1);
    EXPECT_FALSE(CDateTime::FromDayNumber(first - 1).IsValid());
}

TEST(CDateTime, AddDaysKeepsTheTimeOfDay)
{
    const CDateTime t(2008, 2, 28, 13, 45, 10, 5);
    EXPECT_EQ(t.AddDays(1), CDateTime(2008, 2, 29, 13, 45, 10, 5));
    EXPECT_EQ(t.AddDays(2), CDateTime(2008, 3, 1, 13, 45, 10, 5));
    EXPECT_EQ(t.AddDays(-59), CDateTime(2007, 12, 31, 13, 45, 10, 5));
    EXPECT_EQ(t.AddDays(366), CDateTime(2009, 2, 28, 13, 45, 10, 5));
    EXPECT_FALSE(CDateTime(9999, 12, 31).AddDays(1).IsValid());
    EXPECT_FALSE(t.AddDays(INT64_MAX).IsValid());
    EXPECT_TRUE(CDateTime().AddDays(1).IsNull());
    EXPECT_TRUE(t.SameDay(CDateTime(2008, 2, 28)));
    EXPECT_FALSE(t.SameDay(CDateTime(2008, 2, 29)));
    EXPECT_EQ(t.DateOnly(), CDateTime(2008, 2, 28));
    EXPECT_FALSE(t.IsMidnight());
    EXPECT_TRUE(t.DateOnly().IsMidnight());
}

TEST(CDateTime, OrdersByStatusThenTime)
{
    CDateTime invalid;
    invalid.SetInvalid();
    const CDateTime ordered[] = {CDateTime(2008, 5, 17),
                                 CDateTime(2008, 5, 17, 0, 0, 0, 1),
                                 CDateTime(2008, 5, 17, 0, 0, 1),
                                 CDateTime(2008, 5, 17, 0, 1),
                                 CDateTime(2008, 5, 17, 1),
                                 CDateTime(2008, 5, 18),
                                 CDateTime(2008, 6, 1),
                                 CDateTime(2009, 1, 1),
                                 invalid,
                                 CDateTime()};
    for (std::size_t i = 0; i < std::size(ordered); ++i)
        for (std::size_t j = 0; j < std::size(ordered); ++j)
            EXPECT_EQ(ordered[i] <=> ordered[j], i <=> j) << i << " vs " << j;
}

} // namespace
