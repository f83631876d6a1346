#include "units/RoundValue.h"

#include <gtest/gtest.h>

namespace {

TEST(RoundValue, MatchesTheProgramsRounding)
{
    struct Case
    {
        double value;
        int mode;
        int decimals;
        double expected;
    };
    const Case cases[] = {
        // Half up works on the magnitude, so negative halves go away from zero.
        {2.5, RoundHalfUp, 0, 3.0},
        {-2.5, RoundHalfUp, 0, -3.0},
        {2.4999999, RoundHalfUp, 0, 2.0},
        {2.499999995, RoundHalfUp, 0, 3.0}, // the 1e-8 margin lifts values a hair below the boundary
        {1.005, RoundHalfUp, 2, 1.01},      // 1.005 is 1.00499999... in binary
        {13123.359580052493 / 10, RoundHalfUp, 0, 1312.0},
        // Up ignores excess below the margin.
        {2.0000000001, RoundUp, 0, 2.0},
        {2.01, RoundUp, 0, 3.0},
        {-2.01, RoundUp, 0, -3.0},
        // Down keeps values a hair below a whole number on that number.
        {2.999999999, RoundDown, 0, 3.0},
        {2.99, RoundDown, 0, 2.0},
        // Tiny values are zero whatever the decimals.
        {0.000000005, RoundHalfUp, 2, 0.0},
        {-0.000000005, RoundUp, 0, 0.0},
        {1.2345, 7, 2, 1.2345}, // an unknown mode only scales back and forth
    };
    for (const Case& c : cases)
        EXPECT_DOUBLE_EQ(RoundValue(c.value, c.mode, c.decimals), c.expected)
            << "value " << c.value << " mode " << c.mode << " decimals " << c.decimals;
}

} // namespace
