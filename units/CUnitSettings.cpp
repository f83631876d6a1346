#include "units/CUnitSettings.h"

#include "units/ISettingsStore.h"
#include "units/UnitFactors.h"

namespace {

using UnitFactors::kFeetToMetres;
using UnitFactors::kKmhToMps;
using UnitFactors::kMetresToFeet;
using UnitFactors::kMpsToKmh;
// The speed and wind pairs of the program are not exact inverses in the last digits either.
constexpr double kMpsToMph = 2.2369362920275586;
constexpr double kMphToMps = 0.44704000000536454;
// Wind: knots in metric, miles per hour in imperial, each number converted with the factor of the
// unit its label names. Each pair round-trips, so stored winds survive editing.
constexpr double kMpsToKnots = 1.9438339965766924;
constexpr double kKnotsToMps = 0.5144472222222222;
constexpr double kWindMpsToMph = 2.236936292054402;
constexpr double kWindMphToMps = 0.44704;
constexpr double kMetresToKilometres = 0.001;
constexpr double kMetresToMiles = 0.0006213711922000001;
constexpr double kMetresPerKilometre = 1000.0;
constexpr double kFeetPerMile = 5280.0;

} // namespace

CUnitSettings::CUnitSettings(int units, int speedDisplay, int glideDisplay)
    : m_units(units), m_speedDisplay(speedDisplay), m_glideDisplay(glideDisplay)
{
}

void CUnitSettings::Set(int units, int speedDisplay, int glideDisplay)
{
    m_units = units;
    m_speedDisplay = speedDisplay;
    m_glideDisplay = glideDisplay;
}

void CUnitSettings::Load(const ISettingsStore& store, int defaultUnits)
{
    m_units = store.GetInt(kSection, kUnits, defaultUnits);
    m_speedDisplay = store.GetInt(kSection, kSpeed, 0);
    m_glideDisplay = store.GetInt(kSection, kGlide, 0);
}

void CUnitSettings::Save(ISettingsStore& store) const
{
    store.SetInt(kSection, kUnits, m_units);
    store.SetInt(kSection, kSpeed, m_speedDisplay);
    store.SetInt(kSection, kGlide, m_glideDisplay);
}

double CUnitSettings::HeightToDisplay(double metres) const
{
    return IsMetric() ? metres : metres * kMetresToFeet;
}

double CUnitSettings::HeightFromDisplay(double value) const
{
    return IsMetric() ? value : value * kFeetToMetres;
}

double CUnitSettings::SpeedToDisplay(double mps) const
{
    if (IsMetric())
        return IsPerHour() ? mps * kMpsToKmh : mps;
    return IsPerHour() ? mps * kMpsToMph : mps * kMetresToFeet;
}

double CUnitSettings::SpeedFromDisplay(double value) const
{
    if (IsMetric())
        return IsPerHour() ? value * kKmhToMps : value;
    return IsPerHour() ? value * kMphToMps : value * kFeetToMetres;
}

double CUnitSettings::WindToDisplay(double mps) const
{
    return mps * (IsMetric() ? kMpsToKnots : kWindMpsToMph);
}

double CUnitSettings::WindFromDisplay(double value) const
{
    return value * (IsMetric() ? kKnotsToMps : kWindMphToMps);
}

double CUnitSettings::DistanceToDisplay(double metres) const
{
    return metres * (IsMetric() ? kMetresToKilometres : kMetresToMiles);
}

std::string_view CUnitSettings::HeightLabel() const
{
    return IsMetric() ? "m" : "ft";
}

std::string_view CUnitSettings::SpeedLabel() const
{
    if (IsMetric())
        return IsPerHour() ? "km/h" : "m/s";
    return IsPerHour() ? "mph" : "ft/s";
}

std::string_view CUnitSettings::WindLabel() const
{
    return IsMetric() ? "kn" : "mph";
}

std::string_view CUnitSettings::DistanceLabel() const
{
    return IsMetric() ? " [km]" : " [mi]";
}

std::string_view CUnitSettings::LongDistanceLabel() const
{
    return IsMetric() ? "km" : "mi";
}

double CUnitSettings::HeightUnitsPerLongDistance() const
{
    return IsMetric() ? kMetresPerKilometre : kFeetPerMile;
}
