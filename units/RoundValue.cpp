#include "units/RoundValue.h"

#include <cmath>

double RoundValue(double value, int mode, int decimals)
{
    constexpr double kMargin = 1e-08;
    if (std::fabs(value) < kMargin)
        return 0.0;
    const bool negative = value < 0;
    const double f = std::pow(10.0, decimals);
    double x = std::fabs(value) * f;
    switch (mode) {
    case RoundHalfUp:
        x = std::floor(x + kMargin + 0.5);
        break;
    case RoundUp:
        x = std::ceil(x - kMargin);
        break;
    case RoundDown:
        x = std::floor(x + kMargin);
        break;
    default:
        break;
    }
    const double result = x / f;
    return negative ? -result : result;
}
