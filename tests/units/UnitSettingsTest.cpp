#include "units/CMemorySettingsStore.h"
#include "units/CUnitSettings.h"
#include "units/RoundValue.h"

#include <gtest/gtest.h>

#include <map>
#include <string_view>

namespace {

TEST(UnitSettings, LoadsAndSavesTheThreeValues)
{
    CMemorySettingsStore store;
    CUnitSettings units(1, 1, 1);
    units.Load(store, CUnitSettings::Metric); // nothing stored: the system's units, per second
    EXPECT_TRUE(units.IsMetric());
    EXPECT_FALSE(units.IsPerHour());
    units.Load(store); // nothing stored and no system default: imperial
    EXPECT_FALSE(units.IsMetric());
    store.SetInt("Preferences", "Units", 0); // a stored choice wins over the system's
    units.Load(store, CUnitSettings::Metric);
    EXPECT_FALSE(units.IsMetric());
    EXPECT_FALSE(units.IsPerHour());
    EXPECT_EQ(units.HeightLabel(), "ft");
    EXPECT_EQ(units.SpeedLabel(), "ft/s");
    EXPECT_EQ(units.WindLabel(), "mph");
    EXPECT_EQ(units.DistanceLabel(), " [mi]");
    EXPECT_EQ(units.LongDistanceLabel(), "mi");
    EXPECT_EQ(units.HeightUnitsPerLongDistance(), 5280.0); // feet to the mile

    // Any non-zero value is metric, or per hour.
    store.SetInt("Preferences", "Units", 7);
    store.SetInt("Preferences", "DisplaySpeedAs", -2);
    units.Load(store);
    EXPECT_TRUE(units.IsMetric());
    EXPECT_TRUE(units.IsPerHour());
    EXPECT_EQ(units.GetUnits(), 7); // kept as stored, written back unchanged
    EXPECT_EQ(units.HeightLabel(), "m");
    EXPECT_EQ(units.WindLabel(), "kn");
    EXPECT_EQ(units.LongDistanceLabel(), "km");
    EXPECT_EQ(units.HeightUnitsPerLongDistance(), 1000.0);

    CUnitSettings(1, 1, 1).Save(store);
    EXPECT_EQ(store.GetInt("Preferences", "Units", -1), 1);
    EXPECT_EQ(store.GetInt("Preferences", "DisplaySpeedAs", -1), 1);
    EXPECT_EQ(store.GetInt("Preferences", "DisplayGlideAs", -1), 1);
    CUnitSettings back;
    back.Load(store);
    EXPECT_EQ(back.GetGlideDisplay(), 1);
    EXPECT_EQ(back.SpeedLabel(), "km/h");
}

// Every conversion of every unit system on a worked value.
TEST(UnitSettings, WorkedExamples)
{
    using Convert = double (CUnitSettings::*)(double) const;
    struct Case
    {
        int units, perHour;
        Convert convert;
        const char* name;
        double value, shown;
    };
    using U = CUnitSettings;
    const Case cases[] = {
        {0, 0, &U::HeightToDisplay, "ft", 4000, 13123.359580052493},
        {0, 0, &U::HeightFromDisplay, "ft back", 13120, 3998.976},
        {0, 0, &U::SpeedToDisplay, "ft/s", 50, 164.04199475065616},
        {0, 0, &U::SpeedFromDisplay, "ft/s back", 164, 49.9872},
        {0, 1, &U::SpeedToDisplay, "mph", 50, 111.84681460137793},
        {0, 1, &U::SpeedFromDisplay, "mph back", 100, 44.70400000053645},
        // Wind in the unit its label names: mph in imperial, knots in metric.
        {0, 0, &U::WindToDisplay, "imperial wind mph", 5, 11.18468146027201},
        {0, 0, &U::WindFromDisplay, "imperial wind back", 10, 4.4704},
        {0, 0, &U::DistanceToDisplay, "mi", 1e6, 621.3711922000001},
        {1, 0, &U::HeightToDisplay, "m", 4000, 4000},
        {1, 0, &U::HeightFromDisplay, "m back", 4000, 4000},
        {1, 0, &U::SpeedToDisplay, "m/s", 50, 50},
        {1, 1, &U::SpeedToDisplay, "km/h", 50, 180},
        {1, 1, &U::SpeedFromDisplay, "km/h back", 180, 50},
        {1, 0, &U::WindToDisplay, "metric wind kn", 5, 9.719169982883463},
        {1, 0, &U::WindFromDisplay, "metric wind back", 10, 5.1444722222222214},
        {1, 0, &U::DistanceToDisplay, "km", 1e6, 1000},
    };
    for (const Case& c : cases)
        EXPECT_DOUBLE_EQ((CUnitSettings(c.units, c.perHour, 0).*c.convert)(c.value), c.shown) << c.name;
}

// Every label names the unit its number is in: 10 m/s shown under each label is what 10 m/s is
// in that unit by the unit's definition.
TEST(UnitSettings, LabelsNameTheUnitOfTheirNumbers)
{
    const std::map<std::string_view, double> metresPerSecond = {
        {"m/s", 1.0}, {"km/h", 1000.0 / 3600.0}, {"ft/s", 0.3048}, {"mph", 1609.344 / 3600.0}, {"kn", 1852.0 / 3600.0}};
    for (int unitSystem : {0, 1}) {
        for (int perHour : {0, 1}) {
            const CUnitSettings units(unitSystem, perHour, 0);
            const double speed = metresPerSecond.at(units.SpeedLabel());
            const double wind = metresPerSecond.at(units.WindLabel());
            EXPECT_NEAR(units.SpeedToDisplay(10) * speed, 10, 1e-3) << units.SpeedLabel();
            EXPECT_NEAR(units.SpeedFromDisplay(10) / speed, 10, 1e-3) << units.SpeedLabel();
            EXPECT_NEAR(units.WindToDisplay(10) * wind, 10, 1e-3) << units.WindLabel();
            EXPECT_NEAR(units.WindFromDisplay(10) / wind, 10, 1e-3) << units.WindLabel();
        }
    }
}

} // namespace
