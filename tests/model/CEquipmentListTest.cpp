#include "model/CEquipmentList.h"
#include "tests/model/ModelXml.h"

#include <gtest/gtest.h>

#include <tuple>

namespace {

std::unique_ptr<CEquipment> MakeRig(int number)
{
    auto rig = std::make_unique<CEquipment>(number);
    rig->SetHarness("Javelin");
    rig->SetMainCanopy("Sabre2");
    rig->SetMainSize(170);
    rig->SetReserveCanopy("PD");
    rig->SetInspectionDate(CDateTime(2008, 11, 15, 10, 30, 0));
    return rig;
}

} // namespace

// Without the alarm only the rigs are written; a rig writes its three numbers even when they are
// 0. The golden round trip pins the rest.
TEST(CEquipmentListWrite, WithoutAlarmOnlyTheRigs)
{
    CEquipmentList list;
    list.Add(std::make_unique<CEquipment>(0));
    EXPECT_EQ(WriteXml([&](CXmlWriter& w) { list.Write(w); }),
              R"(<equipments><equipment n="0" active="true"><previousJumps>0</previousJumps><mainSize>0</mainSize>)"
              R"(<reserveSize>0</reserveSize></equipment></equipments>)");
}

TEST(CEquipmentListEdit, SetAlarm)
{
    struct Step
    {
        bool on;
        int days;
        int cycle;
        bool changed;
        int alarmDays;
        int inspectionCycle;
    };
    const Step steps[] = {
        {false, 5, 100, false, -1, 180}, // already off
        {true, 0, 180, true, 0, 180},    // 0 days is on
        {true, 0, 180, false, 0, 180},   {true, 0, 365, true, 0, 365},
        {true, 7, 365, true, 7, 365},    {false, 7, 365, true, -1, 365}, // off keeps the cycle
        {true, 7, 365, true, 7, 365},                                    // on again although the values are the same
    };
    CEquipmentList list;
    for (const Step& s : steps) {
        EXPECT_EQ(list.SetAlarm(s.on, s.days, s.cycle), s.changed);
        EXPECT_EQ(list.GetAlarmDays(), s.alarmDays);
        EXPECT_EQ(list.GetInspectionCycle(), s.inspectionCycle);
        EXPECT_EQ(list.IsAlarmOn(), s.alarmDays >= 0);
    }
}

TEST(CEquipmentListEdit, AddRemoveReplaceAndNumbers)
{
    CEquipmentList list;
    EXPECT_EQ(list.NextNumber(), 1);
    list.Add(MakeRig(1));
    list.Add(MakeRig(4));
    list.Add(MakeRig(2));
    EXPECT_EQ(list.NextNumber(), 5);
    EXPECT_EQ(list.FindNumber(2), 2);
    list.Remove(1);
    EXPECT_EQ(list.FindNumber(4), -1);
    EXPECT_EQ(list.Get(1).GetNumber(), 2); // numbers are kept, not reassigned
    list.Replace(0, std::make_unique<CEquipment>(9));
    EXPECT_EQ(list.Get(0).GetNumber(), 9);

    CEquipmentList copy = list; // deep copy: editing it leaves the original alone
    copy.Get(0).SetHarness("Other");
    EXPECT_EQ(list.Get(0).GetHarness(), "");
}

TEST(CEquipmentCompare, InspectionDateByDayOnly)
{
    CEquipment a = *MakeRig(1);
    CEquipment b = a;
    b.SetInspectionDate(CDateTime(2008, 11, 15, 23, 59, 59));
    EXPECT_TRUE(a == b);
    b.SetInspectionDate(CDateTime(2008, 11, 16));
    EXPECT_FALSE(a == b);
    b = a;
    b.SetMainSerial("x");
    EXPECT_FALSE(a == b);
    b = a;
    b.SetInspectionDate(CDateTime());
    EXPECT_FALSE(a == b);
    a.SetInspectionDate(CDateTime());
    EXPECT_TRUE(a == b);
}

TEST(CEquipmentDisplay, NumberInBracketsThenNames)
{
    using Row = std::tuple<const char*, const char*, const char*, const char*>; // harness, main, reserve, text
    for (const auto& [harness, main, reserve, text] :
         {Row{"Javelin", "Sabre2", "PD", "[2] Javelin / Sabre2 / PD"}, Row{"Javelin", "", "PD", "[2] Javelin / PD"},
          Row{"", "", "", "[2]"}}) {
        CEquipment rig(2);
        rig.SetHarness(harness);
        rig.SetMainCanopy(main);
        rig.SetReserveCanopy(reserve);
        EXPECT_EQ(rig.GetDisplayText(), text);
    }
}
