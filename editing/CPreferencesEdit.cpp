#include "editing/CPreferencesEdit.h"

#include "document/CLogbookDoc.h"
#include "document/SealTouch.h"
#include "model/CLogbookSettings.h"
#include "units/CUnitSettings.h"
#include "units/RoundValue.h"
#include "units/UnitFactors.h"

namespace {

// The editor's own factors for converting the value on screen when a unit switch happens. They
// are not the exact inverses of each other; a value switched back and forth lands where the
// program has always put it.
constexpr double kMpsToFps = UnitFactors::kMetresToFeet;
constexpr double kKmhToMph = 0.6213711922;
constexpr double kFpsToMps = UnitFactors::kFeetToMetres;
constexpr double kMphToKmh = 1.6093440000966945;
constexpr double kKmhToMps = UnitFactors::kKmhToMps;
constexpr double kMphToFps = 1.4666666666842667;
constexpr double kMpsToKmh = UnitFactors::kMpsToKmh;
constexpr double kFpsToMph = 0.6818180084533654;

long long RoundTenths(double tenths)
{
    return static_cast<long long>(RoundValue(tenths, RoundHalfUp, 0));
}

} // namespace

void CPreferencesEdit::Load(const CUnitSettings& units, const CLogbookSettings& settings)
{
    m_units = units.IsMetric() ? CUnitSettings::Metric : CUnitSettings::Imperial;
    m_speedDisplay = units.IsPerHour() ? CUnitSettings::PerHour : CUnitSettings::PerSecond;
    glideDisplay = units.GetGlideDisplay();
    customTenths = TenthsOf(settings.FallrateSpeed(FallrateKind::Custom));
    previousJumps = settings.GetPreviousJumps();
    previousDelay = settings.GetPreviousDelay();
    m_loadedPreviousJumps = previousJumps;
}

long long CPreferencesEdit::TenthsOf(double metresPerSecond) const
{
    const CUnitSettings shown(m_units, m_speedDisplay, glideDisplay);
    return RoundTenths(shown.SpeedToDisplay(metresPerSecond) * 10.0);
}

void CPreferencesEdit::SetUnits(int units)
{
    const int to = units != 0 ? CUnitSettings::Metric : CUnitSettings::Imperial;
    if (to == m_units)
        return;
    const bool perHour = m_speedDisplay != 0;
    double factor = 0;
    if (to == CUnitSettings::Imperial)
        factor = perHour ? kKmhToMph : kMpsToFps;
    else
        factor = perHour ? kMphToKmh : kFpsToMps;
    customTenths = RoundTenths(static_cast<double>(customTenths) * factor);
    m_units = to;
}

void CPreferencesEdit::SetSpeedDisplay(int speedDisplay)
{
    const int to = speedDisplay != 0 ? CUnitSettings::PerHour : CUnitSettings::PerSecond;
    if (to == m_speedDisplay)
        return;
    const bool metric = m_units != 0;
    double factor = 0;
    if (to == CUnitSettings::PerSecond)
        factor = metric ? kKmhToMps : kMphToFps;
    else
        factor = metric ? kMpsToKmh : kFpsToMph;
    customTenths = RoundTenths(static_cast<double>(customTenths) * factor);
    m_speedDisplay = to;
}

std::string_view CPreferencesEdit::FallrateUnit() const
{
    return CUnitSettings(m_units, m_speedDisplay, glideDisplay).SpeedLabel();
}

CCheckResult CPreferencesEdit::Validate() const
{
    return CheckChangedRange(previousJumps, m_loadedPreviousJumps, 0, kMaxPreviousJumps, PreviousJumps);
}

bool CPreferencesEdit::Apply(CUnitSettings& units, ISettingsStore* store, CLogbookDoc& doc) const
{
    units.Set(m_units, m_speedDisplay, glideDisplay);
    if (store)
        units.Save(*store);

    // The document counts the totals again: custom jumps take their freefall time from the
    // custom speed.
    return doc.ReplaceSettings(NextSettings(units, doc.GetSettings()));
}

CLogbookSettings CPreferencesEdit::NextSettings(const CUnitSettings& units, const CLogbookSettings& current) const
{
    CLogbookSettings settings = current;
    if (customTenths != TenthsOf(settings.FallrateSpeed(FallrateKind::Custom)))
        settings.SetCustomFallrateSpeed(units.SpeedFromDisplay(static_cast<double>(customTenths) * 0.1));
    if (previousJumps != settings.GetPreviousJumps())
        settings.SetPreviousJumps(static_cast<int>(previousJumps));
    if (previousDelay != settings.GetPreviousDelay())
        settings.SetPreviousDelay(previousDelay);
    return settings;
}

std::size_t CPreferencesEdit::SignedJumpsTouched(const CLogbookDoc& doc) const
{
    const CUnitSettings units(m_units, m_speedDisplay, glideDisplay);
    return CountSignedJumpsTouched(doc, NextSettings(units, doc.GetSettings()));
}
