#include "editing/CPreferencesEdit.h"
#include "CheckText.h"
#include "document/CLogbookDoc.h"
#include "units/CMemorySettingsStore.h"
#include "units/CUnitSettings.h"

#include <gtest/gtest.h>

#include <memory>

namespace {

CPreferencesEdit Loaded(int units, int speed, double customSpeed)
{
    CLogbookSettings settings;
    settings.SetCustomFallrateSpeed(customSpeed);
    CPreferencesEdit edit;
    edit.Load(CUnitSettings(units, speed, 0), settings);
    return edit;
}

TEST(PreferencesEdit, LoadsTheCustomSpeedAsTenthsOfTheShownUnit)
{
    const struct
    {
        int units, speed;
        double mps;
        long long tenths;
        const char* unit;
    } cases[] = {
        {1, 0, 22.3, 223, "m/s"}, {1, 1, 5.0, 180, "km/h"}, {0, 0, 5.0, 164, "ft/s"},
        {0, 1, 5.0, 112, "mph"},  {7, 3, 5.0, 180, "km/h"},
    };
    for (const auto& c : cases) {
        const CPreferencesEdit edit = Loaded(c.units, c.speed, c.mps);
        EXPECT_EQ(edit.customTenths, c.tenths) << c.unit;
        EXPECT_EQ(edit.FallrateUnit(), c.unit);
    }
}

// Each switch converts the tenths with its own factor and rounds to whole tenths.
TEST(PreferencesEdit, UnitAndSpeedSwitchesConvertTheTenths)
{
    const struct
    {
        int units, speed;
        long long tenths;
        bool switchUnits; // else the speed display
        int to;
        long long expected;
    } cases[] = {
        {1, 0, 50, true, 0, 164},   // m/s to ft/s
        {0, 0, 164, true, 1, 50},   // ft/s to m/s
        {1, 1, 180, true, 0, 112},  // km/h to mph
        {0, 1, 112, true, 1, 180},  // mph to km/h
        {1, 1, 180, false, 0, 50},  // km/h to m/s
        {1, 0, 50, false, 1, 180},  // m/s to km/h
        {0, 1, 112, false, 0, 164}, // mph to ft/s
        {0, 0, 164, false, 1, 112}, // ft/s to mph
        {1, 0, 50, true, 1, 50},    // no switch, no conversion
    };
    for (const auto& c : cases) {
        CPreferencesEdit edit = Loaded(c.units, c.speed, 0);
        edit.customTenths = c.tenths;
        if (c.switchUnits)
            edit.SetUnits(c.to);
        else
            edit.SetSpeedDisplay(c.to);
        EXPECT_EQ(edit.customTenths, c.expected) << c.units << c.speed << " " << c.tenths;
    }
}

TEST(PreferencesEdit, OkStoresUnitsTogetherAndTheLogbookValues)
{
    CLogbookDoc doc;
    auto jump = std::make_unique<CJump>(1, CZonedDateTime{CDateTime(2024, 1, 1), 0}, CDateTime());
    jump->SetFallrate(FallrateKind::Custom, 1000, 0, 0, 0, 0);
    doc.AddJump(std::move(jump));

    CMemorySettingsStore store;
    CUnitSettings units;
    CPreferencesEdit edit;
    edit.Load(units, doc.GetSettings());
    edit.glideDisplay = 1;
    // Imperial shows 22.3 m/s as 73.2 ft/s; OK without touching it keeps 22.3 exactly.
    EXPECT_FALSE(edit.Apply(units, &store, doc));
    EXPECT_EQ(doc.GetSettings().FallrateSpeed(FallrateKind::Custom), 22.3);
    EXPECT_EQ(store.GetInt("Preferences", "DisplayGlideAs", -1), 1);
    EXPECT_EQ(store.GetInt("Preferences", "Units", -1), 0);
    EXPECT_EQ(store.GetInt("Preferences", "DisplaySpeedAs", -1), 0);

    edit.SetUnits(1);
    edit.SetSpeedDisplay(1);
    edit.customTenths = 1800;
    edit.previousJumps = 120;
    edit.previousDelay = 3600;
    EXPECT_TRUE(edit.Apply(units, &store, doc));
    EXPECT_TRUE(units.IsMetric());
    EXPECT_TRUE(units.IsPerHour());
    EXPECT_EQ(store.GetInt("Preferences", "Units", -1), 1);
    EXPECT_DOUBLE_EQ(doc.GetSettings().FallrateSpeed(FallrateKind::Custom), 50.0);
    EXPECT_EQ(doc.GetSettings().GetPreviousJumps(), 120);
    EXPECT_EQ(doc.GetSettings().GetPreviousDelay(), 3600);
    // The custom jump's freefall time follows the new speed into the totals.
    EXPECT_EQ(doc.GetTotalFreefallTime(), doc.GetJumps()[0]->FreefallTime(doc.GetSettings()));
}

TEST(PreferencesEdit, PreviousJumpsStopAt32767)
{
    CPreferencesEdit edit;
    edit.previousJumps = 32767;
    EXPECT_TRUE(edit.Validate().Passed());
    edit.previousJumps = 32768;
    EXPECT_EQ(CheckText(edit.Validate()), "Please enter a value between 0 and 32767.");
}

} // namespace
