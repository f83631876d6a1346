#include "editing/CCheckResult.h"
#include "CheckText.h"

#include <gtest/gtest.h>

#include <climits>

TEST(CheckRange, BoundsAreInclusiveAndNamedAsWholeNumbers)
{
    const struct
    {
        long long value;
        int lower, upper;
        bool passes;
    } cases[] = {{1, 1, 99999, true},  {99999, 1, 99999, true}, {100000, 1, 99999, false},
                 {0, 1, 99999, false}, {-1, 0, 365, false},     {LLONG_MAX, -5, 5, false}};
    for (const auto& c : cases) {
        const CCheckResult result = CheckRange(c.value, c.lower, c.upper, 3);
        const std::string range = std::to_string(c.lower) + " and " + std::to_string(c.upper) + ".";
        EXPECT_EQ(CheckText(result), c.passes ? "" : "Please enter a value between " + range) << c.value;
        EXPECT_EQ(result.Passed(), c.passes) << c.value;
        EXPECT_EQ(result.field, result.Passed() ? -1 : 3);
        EXPECT_EQ(result.messageId, result.Passed() ? 0 : 4009);
    }
}
