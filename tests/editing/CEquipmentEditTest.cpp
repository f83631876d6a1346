#include "editing/CEquipmentEdit.h"
#include "CheckText.h"
#include "document/CLogbookDoc.h"
#include "editing/CEquipmentsEdit.h"
#include "model/CEquipment.h"

#include <gtest/gtest.h>

#include <memory>

namespace {

// The checks run in a fixed order; each case breaks one value of a valid rig, and some a later
// one as well.
TEST(EquipmentEdit, ChecksInOrderAndNamesTheField)
{
    using E = CEquipmentEdit;
    const struct
    {
        const char* name;
        void (*spoil)(CEquipmentEdit&);
        int field;
        const char* says;
        CheckSeverity severity; // a missing value is an error, one out of range a warning
    } cases[] = {
        {"previous jumps below", [](auto& e) { e.previousJumps = -1; }, E::PreviousJumps, "0 and 99999.",
         CheckSeverity::Warning},
        {"previous jumps above", [](auto& e) { e.previousJumps = 100000, e.harness = ""; }, E::PreviousJumps, "99999.",
         CheckSeverity::Warning},
        {"blank harness", [](auto& e) { e.harness = "   ", e.mainCanopy = ""; }, E::Harness, "a harness.",
         CheckSeverity::Error},
        {"blank main", [](auto& e) { e.mainCanopy = " \t ", e.mainSize = 5000; }, E::MainCanopy, "a main canopy.",
         CheckSeverity::Error},
        {"main size 1000", [](auto& e) { e.mainSize = 1000, e.reserveSize = -1; }, E::MainSize, "0 and 999.",
         CheckSeverity::Warning},
        {"reserve size -1", [](auto& e) { e.reserveSize = -1; }, E::ReserveSize, "0 and 999.", CheckSeverity::Warning},
    };
    for (const auto& c : cases) {
        CEquipmentEdit edit;
        edit.harness = "Javelin";
        edit.mainCanopy = "Sabre2";
        c.spoil(edit);
        const CCheckResult result = edit.Validate();
        EXPECT_EQ(result.field, c.field) << c.name;
        EXPECT_EQ(result.severity, c.severity) << c.name;
        EXPECT_NE(CheckText(result).find(c.says), std::string::npos) << c.name << ": " << CheckText(result);
    }
}

TEST(EquipmentEdit, AcceptsTheBoundsAndTrimsEveryText)
{
    CEquipmentEdit edit;
    edit.harness = "  Javelin ";
    edit.mainCanopy = "Sabre2";
    edit.aadSerial = " 123 ";
    edit.reserveSize = 999;
    edit.previousJumps = 99999;
    EXPECT_TRUE(edit.Validate().Passed());
    EXPECT_EQ(edit.harness, "Javelin");
    EXPECT_EQ(edit.aadSerial, "123");

    CEquipment rig(7);
    edit.active = false;
    edit.Store(rig);
    CEquipmentEdit back;
    back.Load(rig);
    EXPECT_EQ(rig.GetNumber(), 7);
    EXPECT_FALSE(back.active);
    EXPECT_EQ(back.harness, "Javelin");
    EXPECT_EQ(back.reserveSize, 999);
    EXPECT_EQ(back.previousJumps, 99999);
}

TEST(EquipmentsEdit, AlarmRangesNameTheirField)
{
    const int kDays = CEquipmentsEdit::AlarmDays, kCycle = CEquipmentsEdit::InspectionCycle;
    const struct
    {
        long long days, cycle;
        int field;
    } cases[] = {{0, 0, -1}, {365, 730, -1}, {366, 180, kDays}, {-1, 180, kDays}, {30, 731, kCycle}, {30, -1, kCycle}};
    for (const auto& c : cases) {
        CEquipmentsEdit edit;
        edit.alarmDays = c.days;
        edit.inspectionCycle = c.cycle;
        EXPECT_EQ(edit.ValidateAlarm().field, c.field) << c.days << " " << c.cycle;
    }
}

// Rigs numbered 1, 5 and 3; jumps on each position, on a described rig and on a position that
// does not exist.
TEST(EquipmentsEdit, ApplyKeepsWhatEveryJumpNamesAndMergesTheAlarm)
{
    CLogbookDoc doc;
    CLogbookSettings settings;
    for (int number : {1, 5, 3}) {
        auto rig = std::make_unique<CEquipment>(number);
        rig->SetHarness("H" + std::to_string(number));
        rig->SetMainCanopy("Main");
        settings.GetEquipmentList().Add(std::move(rig));
    }
    doc.ReplaceSettings(settings);
    const CEquipmentList& list = doc.GetSettings().GetEquipmentList();
    for (int i = 0; i < 5; ++i) {
        auto jump = std::make_unique<CJump>(i + 1, CZonedDateTime{CDateTime(2024, 1, 1), 0}, CDateTime());
        if (i == 3)
            jump->SetEquipmentByDescription("borrowed");
        else
            jump->SetEquipmentByIndex(i == 4 ? 9 : i);
        doc.AddJump(std::move(jump));
    }
    const auto jumps = doc.GetJumps();
    const auto texts = [&] {
        std::vector<std::string> all;
        for (const auto& jump : jumps)
            all.push_back(jump->GetEquipmentText(list));
        return all;
    };
    const std::vector<std::string> before = texts();

    CEquipmentsEdit edit;
    edit.Load(list);
    EXPECT_FALSE(edit.alarmOn);
    EXPECT_EQ(edit.alarmDays, CEquipmentsEdit::kDefaultAlarmDays);
    EXPECT_EQ(edit.inspectionCycle, 180);
    EXPECT_FALSE(edit.Apply(doc));

    auto added = edit.MakeNewRig();
    EXPECT_EQ(added->GetNumber(), 6);
    EXPECT_TRUE(added->IsActive());
    edit.AddRig(std::move(added));
    edit.RemoveRig(1);
    edit.RemoveRig(0);
    ASSERT_TRUE(edit.Apply(doc));
    EXPECT_EQ(texts(), before);
    EXPECT_EQ(jumps[0]->GetEquipmentRef(), (CJumpEquipmentRef{CJumpEquipmentRef::ByDescription, 0, "[1] H1 / Main"}));
    EXPECT_EQ(jumps[2]->GetEquipmentRef(), (CJumpEquipmentRef{CJumpEquipmentRef::ByIndex, 0, {}}));
    EXPECT_EQ(jumps[4]->GetEquipmentRef().index, 9);
    EXPECT_EQ(list.GetCount(), 2u);

    // The alarm's values are kept while it is off.
    edit.Load(list);
    edit.alarmOn = true;
    edit.alarmDays = 10;
    edit.inspectionCycle = 730;
    EXPECT_TRUE(edit.Apply(doc));
    EXPECT_EQ(list.GetAlarmDays(), 10);
    edit.Load(list);
    EXPECT_EQ(edit.alarmDays, 10);
    edit.alarmOn = false;
    EXPECT_TRUE(edit.Apply(doc));
    EXPECT_FALSE(list.IsAlarmOn());
    EXPECT_EQ(list.GetInspectionCycle(), 730);
}

} // namespace
