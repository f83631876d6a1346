#include "editing/CCheckResult.h"

#include <gtest/gtest.h>

#include <climits>

TEST(CheckRange, BoundsAreInclusiveAndNamedAsWholeNumbers)
{
    struct Case
    {
        long long value;
        int lower, upper;
        const char* message;
    };
    const Case cases[] = {
        {1, 1, 99999, ""},
        {99999, 1, 99999, ""},
        {100000, 1, 99999, "Please enter a value between 1 and 99999."},
        {0, 1, 99999, "Please enter a value between 1 and 99999."},
        {-1, 0, 365, "Please enter a value between 0 and 365."},
        {LLONG_MAX, -5, 5, "Please enter a value between -5 and 5."},
    };
    for (const Case& c : cases) {
        const CCheckResult result = CheckRange(c.value, c.lower, c.upper, 3);
        EXPECT_EQ(result.message, c.message) << c.value;
        EXPECT_EQ(result.Passed(), *c.message == 0) << c.value;
        EXPECT_EQ(result.field, result.Passed() ? -1 : 3);
        EXPECT_EQ(result.messageId, result.Passed() ? 0 : 4009);
    }
}
