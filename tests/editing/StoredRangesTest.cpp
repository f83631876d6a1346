// The settings editors on values at and beyond the ends of their fields' ranges, as a logbook
// file holds them: OK without a change passes, keeps every value and leaves the logbook
// unmodified; a value typed outside is refused with the check's own bounds.

#include "CheckText.h"
#include "document/CLogbookDoc.h"
#include "editing/CEquipmentEdit.h"
#include "editing/CEquipmentsEdit.h"
#include "editing/CPreferencesEdit.h"
#include "editing/CUserProfileEdit.h"
#include "model/CEquipment.h"
#include "tests/common/CScratchFolder.h"
#include "units/CUnitSettings.h"

#include <gtest/gtest.h>

#include <memory>

namespace {

struct Values
{
    int previousJumps, daysPrior, rigAlarmDays, inspectionCycle, rigJumps, mainSize;
};

// A logbook holding the values, saved and read back as Open reads it.
std::unique_ptr<CLogbookDoc> LoadedLogbook(const Values& v, const CScratchFolder& folder)
{
    CLogbookDoc written;
    CLogbookSettings settings;
    settings.SetPreviousJumps(v.previousJumps);
    settings.GetMembership().Set(true, CDateTime(2030, 1, 31), true, v.daysPrior);
    auto rig = std::make_unique<CEquipment>(1);
    rig->SetHarness("Javelin");
    rig->SetMainCanopy("Sabre");
    rig->SetMainSize(v.mainSize);
    rig->SetPreviousJumps(v.rigJumps);
    settings.GetEquipmentList().Add(std::move(rig));
    settings.GetEquipmentList().SetAlarm(true, v.rigAlarmDays, v.inspectionCycle);
    written.ReplaceSettings(settings);
    const std::string path = folder / "ranges.tvz";
    EXPECT_TRUE(written.Save(path));
    auto doc = std::make_unique<CLogbookDoc>();
    EXPECT_TRUE(doc->Load(path).ok);
    return doc;
}

TEST(StoredRanges, UntouchedValuesPassAndTypedOnesAreChecked)
{
    const CScratchFolder folder("ranges");
    const struct
    {
        const char* name;
        Values values;
    } cases[] = {
        {"at the spinners' ends", {32767, 365, 365, 730, 32767, 999}},
        {"at the checks' ends", {32767, 365, 365, 730, 99999, 999}},
        {"beyond every end", {40000, 400, 500, 1000, 123456, 1200}},
        {"below every end", {-1, -1, -1, -1, -1, -1}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        const Values& v = c.values;
        auto doc = LoadedLogbook(v, folder);
        const CLogbookSettings& settings = doc->GetSettings();
        ASSERT_EQ(settings.GetEquipmentList().Get(0).GetPreviousJumps(), v.rigJumps);
        const CLogbookSettings before = settings;

        CUnitSettings units;
        CPreferencesEdit preferences;
        preferences.Load(units, settings);
        EXPECT_TRUE(preferences.Validate().Passed());
        EXPECT_FALSE(preferences.Apply(units, nullptr, *doc));
        preferences.previousJumps = v.previousJumps + 1;
        EXPECT_EQ(preferences.Validate().Passed(), v.previousJumps + 1 <= 32767 && v.previousJumps + 1 >= 0);

        CUserProfileEdit profile;
        profile.Load(settings);
        EXPECT_TRUE(profile.ValidateMembership().Passed());
        CLogbookSettings profileCopy = settings;
        EXPECT_FALSE(profile.Apply(profileCopy));
        profile.daysPrior = v.daysPrior + 1;
        if (v.daysPrior >= 365) {
            EXPECT_EQ(CheckText(profile.ValidateMembership()), "Please enter a value between 0 and 365.");
        }

        CEquipmentsEdit equipments;
        equipments.Load(settings.GetEquipmentList());
        EXPECT_TRUE(equipments.ValidateAlarm().Passed());
        CEquipmentEdit rig;
        rig.Load(equipments.Rig(0));
        EXPECT_TRUE(rig.Validate().Passed());
        auto stored = std::make_unique<CEquipment>(equipments.Rig(0));
        rig.Store(*stored);
        EXPECT_EQ(*stored, equipments.Rig(0));
        equipments.ReplaceRig(0, std::move(stored));
        EXPECT_FALSE(equipments.Apply(*doc));
        EXPECT_FALSE(doc->IsModified());
        EXPECT_TRUE(settings == before);

        equipments.inspectionCycle = v.inspectionCycle + 1;
        if (v.inspectionCycle >= 730) {
            EXPECT_EQ(CheckText(equipments.ValidateAlarm()), "Please enter a value between 0 and 730.");
        }
        rig.previousJumps = v.rigJumps + 1;
        if (v.rigJumps >= 99999) {
            EXPECT_EQ(CheckText(rig.Validate()), "Please enter a value between 0 and 99999.");
        }
    }
}

} // namespace
