#pragma once

// The program's conversion factors shared by the unit settings and the editors. Some pairs are
// deliberately not exact inverses in the last digits; values must convert exactly as they always
// have, so every user of a factor takes it from here.
namespace UnitFactors {

constexpr double kMetresToFeet = 3.280839895013123;
constexpr double kFeetToMetres = 0.3048;
constexpr double kMpsToKmh = 3.6;
constexpr double kKmhToMps = 0.2777777777777778;

} // namespace UnitFactors
