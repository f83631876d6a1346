#include "units/CMemorySettingsStore.h"
#include "units/CUnitSettings.h"
#include "units/RoundValue.h"

#include <gtest/gtest.h>

namespace {

TEST(UnitSettings, DefaultsToImperialPerSecondWhenNothingIsStored)
{
    CMemorySettingsStore store;
    CUnitSettings units(1, 1, 1);
    units.Load(store);
    EXPECT_FALSE(units.IsMetric());
    EXPECT_FALSE(units.IsPerHour());
    EXPECT_EQ(units.HeightLabel(), "ft");
    EXPECT_EQ(units.SpeedLabel(), "ft/s");
    EXPECT_EQ(units.WindLabel(), "mph");
    EXPECT_EQ(units.DistanceLabel(), " [mi]");
}

TEST(UnitSettings, SavesAllThreeValuesAndReadsThemBack)
{
    CMemorySettingsStore store;
    CUnitSettings(1, 1, 1).Save(store);
    EXPECT_EQ(store.GetInt("Preferences", "Units", -1), 1);
    EXPECT_EQ(store.GetInt("Preferences", "DisplaySpeedAs", -1), 1);
    EXPECT_EQ(store.GetInt("Preferences", "DisplayGlideAs", -1), 1);
    CUnitSettings units;
    units.Load(store);
    EXPECT_EQ(units.GetGlideDisplay(), 1);
    EXPECT_EQ(units.SpeedLabel(), "km/h");
}

TEST(UnitSettings, AnyNonZeroUnitValueIsMetric)
{
    CMemorySettingsStore store;
    store.SetInt("Preferences", "Units", 7);
    store.SetInt("Preferences", "DisplaySpeedAs", -2);
    CUnitSettings units;
    units.Load(store);
    EXPECT_TRUE(units.IsMetric());
    EXPECT_TRUE(units.IsPerHour());
    EXPECT_EQ(units.GetUnits(), 7); // kept as stored, written back unchanged
    EXPECT_EQ(units.HeightLabel(), "m");
    EXPECT_EQ(units.WindLabel(), "kn");
}

// Each conversion is one multiplication by the program's constant: compare to the bit.
TEST(UnitSettings, ConversionsUseTheExactFactors)
{
    struct Case
    {
        int units, speed;
        double toHeight, fromHeight, toSpeed, fromSpeed, toWind, fromWind, distance;
    };
    const Case cases[] = {
        {0, 0, 3.280839895013123, 0.3048, 3.280839895013123, 0.3048, 1.9438339965766924, 0.5144472222222222,
         0.0006213711922000001},
        {0, 1, 3.280839895013123, 0.3048, 2.2369362920275586, 0.44704000000536454, 1.9438339965766924,
         0.5144472222222222, 0.0006213711922000001},
        {1, 0, 1.0, 1.0, 1.0, 1.0, 2.236936292054402, 0.44704, 0.001},
        {1, 1, 1.0, 1.0, 3.6, 0.2777777777777778, 2.236936292054402, 0.44704, 0.001},
    };
    for (const Case& c : cases) {
        const CUnitSettings u(c.units, c.speed, 0);
        const double x = 123.456;
        EXPECT_EQ(u.HeightToDisplay(x), x * c.toHeight);
        EXPECT_EQ(u.HeightFromDisplay(x), x * c.fromHeight);
        EXPECT_EQ(u.SpeedToDisplay(x), x * c.toSpeed);
        EXPECT_EQ(u.SpeedFromDisplay(x), x * c.fromSpeed);
        EXPECT_EQ(u.WindToDisplay(x), x * c.toWind);
        EXPECT_EQ(u.WindFromDisplay(x), x * c.fromWind);
        EXPECT_EQ(u.DistanceToDisplay(x), x * c.distance);
    }
}

TEST(UnitSettings, WorkedExamples)
{
    const CUnitSettings imperial(0, 0, 0), metricPerHour(1, 1, 0), metric(1, 0, 0);
    EXPECT_DOUBLE_EQ(imperial.HeightToDisplay(4000), 13123.359580052493);
    EXPECT_DOUBLE_EQ(imperial.HeightFromDisplay(13120), 3998.976);
    EXPECT_DOUBLE_EQ(metricPerHour.SpeedToDisplay(50), 180.0);
    EXPECT_DOUBLE_EQ(metricPerHour.SpeedFromDisplay(180), 50.0);
    EXPECT_DOUBLE_EQ(metric.WindToDisplay(5), 11.18468146027201);
    EXPECT_DOUBLE_EQ(imperial.WindToDisplay(5), 9.719169982883463);
}

// A wind stored in m/s, shown rounded and typed back unchanged, lands within display precision:
// within one unit system the wind pair is a true inverse.
TEST(UnitSettings, WindSurvivesTheDisplayRoundTrip)
{
    for (int system = 0; system < 2; ++system) {
        const CUnitSettings u(system, 0, 0);
        for (double mps = 0.5; mps < 40; mps += 0.37)
            EXPECT_NEAR(u.WindFromDisplay(u.WindToDisplay(mps)), mps, 1e-12);
    }
}

} // namespace
