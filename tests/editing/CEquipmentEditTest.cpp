#include "editing/CEquipmentEdit.h"
#include "document/CLogbookDoc.h"
#include "editing/CEquipmentsEdit.h"
#include "model/CEquipment.h"

#include <gtest/gtest.h>

#include <memory>

namespace {

CEquipmentEdit ValidRig()
{
    CEquipmentEdit edit;
    edit.harness = "Javelin";
    edit.mainCanopy = "Sabre2";
    return edit;
}

// The checks run in a fixed order; each case breaks one value of a valid rig.
TEST(EquipmentEdit, ChecksInOrderAndNamesTheField)
{
    struct Case
    {
        const char* name;
        void (*spoil)(CEquipmentEdit&);
        int field;
        const char* message;
    };
    const Case cases[] = {
        {"previous jumps below", [](CEquipmentEdit& e) { e.previousJumps = -1; }, CEquipmentEdit::PreviousJumps,
         "Please enter a value between 0 and 99999."},
        {"previous jumps above", [](CEquipmentEdit& e) { e.previousJumps = 100000, e.harness = ""; },
         CEquipmentEdit::PreviousJumps, "Please enter a value between 0 and 99999."},
        {"blank harness", [](CEquipmentEdit& e) { e.harness = "   ", e.mainCanopy = ""; }, CEquipmentEdit::Harness,
         "Please enter a harness."},
        {"blank main", [](CEquipmentEdit& e) { e.mainCanopy = " \t ", e.mainSize = 5000; }, CEquipmentEdit::MainCanopy,
         "Please enter a main canopy."},
        {"main size 1000", [](CEquipmentEdit& e) { e.mainSize = 1000, e.reserveSize = -1; }, CEquipmentEdit::MainSize,
         "Please enter a value between 0 and 999."},
        {"reserve size -1", [](CEquipmentEdit& e) { e.reserveSize = -1; }, CEquipmentEdit::ReserveSize,
         "Please enter a value between 0 and 999."},
    };
    for (const Case& c : cases) {
        CEquipmentEdit edit = ValidRig();
        c.spoil(edit);
        const CCheckResult result = edit.Validate();
        EXPECT_EQ(result.field, c.field) << c.name;
        EXPECT_EQ(result.message, c.message) << c.name;
    }
}

TEST(EquipmentEdit, AcceptsTheBoundsAndTrimsEveryText)
{
    CEquipmentEdit edit = ValidRig();
    edit.harness = "  Javelin ";
    edit.aadSerial = " 123 ";
    edit.mainSize = 0;
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
    const struct
    {
        long long days, cycle;
        int field;
    } cases[] = {
        {0, 0, -1},
        {365, 730, -1},
        {366, 180, CEquipmentsEdit::AlarmDays},
        {-1, 180, CEquipmentsEdit::AlarmDays},
        {30, 731, CEquipmentsEdit::InspectionCycle},
        {30, -1, CEquipmentsEdit::InspectionCycle},
    };
    for (const auto& c : cases) {
        CEquipmentsEdit edit;
        edit.alarmDays = c.days;
        edit.inspectionCycle = c.cycle;
        EXPECT_EQ(edit.ValidateAlarm().field, c.field) << c.days << " " << c.cycle;
    }
}

std::unique_ptr<CEquipment> Rig(int number, const char* harness)
{
    auto rig = std::make_unique<CEquipment>(number);
    rig->SetHarness(harness);
    rig->SetMainCanopy("Main");
    return rig;
}

class EquipmentsApply : public ::testing::Test
{
protected:
    void SetUp() override
    {
        CEquipmentList& list = doc.GetSettings().GetEquipmentList();
        list.Add(Rig(1, "H1"));
        list.Add(Rig(5, "H5"));
        list.Add(Rig(3, "H3"));
        for (int i = 0; i < 5; ++i)
            doc.AddJump(std::make_unique<CJump>(i + 1, CZonedDateTime{CDateTime(2024, 1, 1), 0}, CDateTime()));
        const auto& jumps = doc.GetJumps();
        jumps[0]->SetEquipmentByIndex(0);
        jumps[1]->SetEquipmentByIndex(1);
        jumps[2]->SetEquipmentByIndex(2);
        jumps[3]->SetEquipmentByDescription("borrowed");
        jumps[4]->SetEquipmentByIndex(9);
        doc.SetModified(false);
    }

    std::vector<std::string> Texts() const
    {
        std::vector<std::string> texts;
        for (const auto& jump : doc.GetJumps())
            texts.push_back(jump->GetEquipmentText(doc.GetSettings().GetEquipmentList()));
        return texts;
    }

    CLogbookDoc doc;
};

TEST_F(EquipmentsApply, NothingChangedReportsNoChange)
{
    CEquipmentsEdit edit;
    edit.Load(doc.GetSettings().GetEquipmentList());
    EXPECT_FALSE(edit.alarmOn);
    EXPECT_EQ(edit.alarmDays, CEquipmentsEdit::kDefaultAlarmDays);
    EXPECT_EQ(edit.inspectionCycle, 180);
    EXPECT_FALSE(edit.Apply(doc));
}

TEST_F(EquipmentsApply, RemovingRigsKeepsWhatEveryJumpNames)
{
    const std::vector<std::string> before = Texts();
    CEquipmentsEdit edit;
    edit.Load(doc.GetSettings().GetEquipmentList());
    auto added = edit.MakeNewRig();
    EXPECT_EQ(added->GetNumber(), 6);
    EXPECT_TRUE(added->IsActive());
    edit.AddRig(std::move(added));
    edit.RemoveRig(1);
    edit.RemoveRig(0);
    ASSERT_TRUE(edit.Apply(doc));

    EXPECT_EQ(Texts(), before);
    const auto& jumps = doc.GetJumps();
    EXPECT_EQ(jumps[0]->GetEquipmentRef().mode, CJumpEquipmentRef::ByDescription);
    EXPECT_EQ(jumps[0]->GetEquipmentRef().description, "[1] H1 / Main");
    EXPECT_EQ(jumps[2]->GetEquipmentRef(), (CJumpEquipmentRef{CJumpEquipmentRef::ByIndex, 0, {}}));
    EXPECT_EQ(jumps[4]->GetEquipmentRef().index, 9);
    EXPECT_EQ(doc.GetSettings().GetEquipmentList().GetCount(), 2u);
}

TEST_F(EquipmentsApply, AlarmIsMergedAndItsValuesKeptWhileOff)
{
    CEquipmentsEdit edit;
    edit.Load(doc.GetSettings().GetEquipmentList());
    edit.alarmOn = true;
    edit.alarmDays = 10;
    edit.inspectionCycle = 730;
    EXPECT_TRUE(edit.Apply(doc));
    const CEquipmentList& list = doc.GetSettings().GetEquipmentList();
    EXPECT_EQ(list.GetAlarmDays(), 10);
    EXPECT_EQ(list.GetInspectionCycle(), 730);

    edit.Load(list);
    EXPECT_EQ(edit.alarmDays, 10);
    edit.alarmOn = false;
    EXPECT_TRUE(edit.Apply(doc));
    EXPECT_FALSE(list.IsAlarmOn());
    EXPECT_EQ(list.GetInspectionCycle(), 730);
    EXPECT_EQ(edit.alarmDays, 10);
}

} // namespace
