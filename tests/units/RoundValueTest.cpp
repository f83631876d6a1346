#include "units/RoundValue.h"

#include <gtest/gtest.h>

namespace {

struct RoundCase
{
    double value;
    int mode;
    int decimals;
    double expected;
};

class RoundValueTest : public ::testing::TestWithParam<RoundCase>
{
};

TEST_P(RoundValueTest, MatchesTheProgramsRounding)
{
    const RoundCase& c = GetParam();
    EXPECT_DOUBLE_EQ(RoundValue(c.value, c.mode, c.decimals), c.expected)
        << "value " << c.value << " mode " << c.mode << " decimals " << c.decimals;
}

INSTANTIATE_TEST_SUITE_P(Cases, RoundValueTest,
                         ::testing::Values(
                             // Half up works on the magnitude, so negative halves go away from zero.
                             RoundCase{2.5, RoundHalfUp, 0, 3.0}, RoundCase{-2.5, RoundHalfUp, 0, -3.0},
                             RoundCase{2.4999999, RoundHalfUp, 0, 2.0},
                             // The 1e-8 margin lifts values a hair below the boundary.
                             RoundCase{2.499999995, RoundHalfUp, 0, 3.0},
                             RoundCase{1.005, RoundHalfUp, 2, 1.01}, // 1.005 is 1.00499999... in binary
                             // Up ignores excess below the margin.
                             RoundCase{2.0000000001, RoundUp, 0, 2.0}, RoundCase{2.01, RoundUp, 0, 3.0},
                             RoundCase{-2.01, RoundUp, 0, -3.0},
                             // Down keeps values a hair below a whole number on that number.
                             RoundCase{2.999999999, RoundDown, 0, 3.0}, RoundCase{2.99, RoundDown, 0, 2.0},
                             RoundCase{13123.359580052493 / 10, RoundHalfUp, 0, 1312.0},
                             // Tiny values are zero whatever the decimals.
                             RoundCase{0.000000005, RoundHalfUp, 2, 0.0}, RoundCase{-0.000000005, RoundUp, 0, 0.0},
                             // An unknown mode only scales back and forth.
                             RoundCase{1.2345, 7, 2, 1.2345}));

} // namespace
