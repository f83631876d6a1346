// Which reminders are due on a day: membership expiry and rig inspections, their order and the
// boundary day on which today plus the alarm days equals the date.

#include "document/CReminders.h"
#include "model/CLogbookSettings.h"
#include "resources/StringTable.h"

#include <gtest/gtest.h>

#include <limits>
#include <memory>

namespace {

const CDateTime kToday(2024, 6, 10);

CDateTime Day(int offset)
{
    return kToday.AddDays(offset);
}

void SetMembership(CLogbookSettings& settings, const CDateTime& expires, int alarmDays)
{
    settings.GetMembership().SetExpirationDate(expires);
    settings.GetMembership().SetAlarmDays(alarmDays);
}

void AddRig(CLogbookSettings& settings, int number, bool active, const CDateTime& inspected)
{
    auto rig = std::make_unique<CEquipment>(number);
    rig->SetActive(active);
    rig->SetInspectionDate(inspected);
    settings.GetEquipmentList().Add(std::move(rig));
}

struct MembershipCase
{
    const char* name;
    int expiryOffset;
    int alarmDays;
    bool due;
};

class MembershipReminder : public testing::TestWithParam<MembershipCase>
{
};

TEST_P(MembershipReminder, IsDueFromTheAlarmDayOn)
{
    const MembershipCase& c = GetParam();
    CLogbookSettings settings;
    SetMembership(settings, Day(c.expiryOffset), c.alarmDays);
    const auto due = CReminders::Due(settings, kToday);
    if (!c.due) {
        EXPECT_TRUE(due.empty());
        return;
    }
    ASSERT_EQ(due.size(), 1u);
    EXPECT_EQ(due[0], (CReminders::Item{StringTable::IDS_MEMBERSHIP_EXPIRES, 0, Day(c.expiryOffset)}));
}

INSTANTIATE_TEST_SUITE_P(
    Days, MembershipReminder,
    testing::Values(MembershipCase{"far_ahead", 30, 10, false}, MembershipCase{"day_before_window", 11, 10, false},
                    MembershipCase{"boundary_day", 10, 10, true}, MembershipCase{"inside_window", 5, 10, true},
                    MembershipCase{"expires_today_without_warning_days", 0, 0, true},
                    MembershipCase{"tomorrow_without_warning_days", 1, 0, false},
                    MembershipCase{"already_expired", -40, 10, true}, MembershipCase{"alarm_off", 5, -1, false}),
    [](const testing::TestParamInfo<MembershipCase>& param) { return std::string(param.param.name); });

TEST(Reminders, MembershipWithoutValidDateIsSilent)
{
    CLogbookSettings settings;
    SetMembership(settings, CDateTime(), 10);
    EXPECT_TRUE(CReminders::Due(settings, kToday).empty());
    SetMembership(settings, CDateTime(2023, 2, 31), 10); // invalid
    EXPECT_TRUE(CReminders::Due(settings, kToday).empty());
}

TEST(Reminders, RigIsDueAtInspectionPlusCycle)
{
    CLogbookSettings settings;
    settings.GetEquipmentList().SetAlarm(true, 10, 180);
    AddRig(settings, 4, true, Day(-170)); // due in 10 days: the boundary day
    AddRig(settings, 5, true, Day(-169)); // due in 11 days
    const auto due = CReminders::Due(settings, kToday);
    ASSERT_EQ(due.size(), 1u);
    EXPECT_EQ(due[0], (CReminders::Item{StringTable::IDS_INSPECTION_DUE, 4, Day(10)}));
}

TEST(Reminders, MembershipFirstThenRigsInListOrder)
{
    CLogbookSettings settings;
    SetMembership(settings, Day(3), 10);
    settings.GetEquipmentList().SetAlarm(true, 0, 180);
    AddRig(settings, 7, true, Day(-200));
    AddRig(settings, 2, false, Day(-200));  // not tracked
    AddRig(settings, 3, true, CDateTime()); // never inspected
    AddRig(settings, 1, true, Day(-180));   // due today
    const auto due = CReminders::Due(settings, kToday);
    ASSERT_EQ(due.size(), 3u);
    EXPECT_EQ(due[0].messageId, StringTable::IDS_MEMBERSHIP_EXPIRES);
    EXPECT_EQ(due[1], (CReminders::Item{StringTable::IDS_INSPECTION_DUE, 7, Day(-20)}));
    EXPECT_EQ(due[2], (CReminders::Item{StringTable::IDS_INSPECTION_DUE, 1, Day(0)}));
}

TEST(Reminders, RigAlarmOffIsSilent)
{
    CLogbookSettings settings;
    settings.GetEquipmentList().SetAlarm(false, 10, 180);
    AddRig(settings, 1, true, Day(-400));
    EXPECT_TRUE(CReminders::Due(settings, kToday).empty());
}

TEST(Reminders, TimesOfDayDoNotMoveTheBoundary)
{
    CLogbookSettings settings;
    SetMembership(settings, CDateTime(2024, 6, 20, 0, 0, 1), 10);
    settings.GetEquipmentList().SetAlarm(true, 10, 180);
    AddRig(settings, 1, true, CDateTime(2023, 12, 23, 18, 45, 0)); // due 20 June
    const CDateTime lateToday(2024, 6, 10, 23, 59, 59);
    const auto due = CReminders::Due(settings, lateToday);
    ASSERT_EQ(due.size(), 2u);
    EXPECT_EQ(due[0].date, CDateTime(2024, 6, 20));
    // One day earlier nothing is due yet, however late in the day.
    EXPECT_TRUE(CReminders::Due(settings, CDateTime(2024, 6, 9, 23, 59, 59)).empty());
}

TEST(Reminders, CycleAcrossLeapDay)
{
    CLogbookSettings settings;
    settings.GetEquipmentList().SetAlarm(true, 0, 30);
    AddRig(settings, 1, true, CDateTime(2024, 2, 10));
    const auto due = CReminders::Due(settings, CDateTime(2024, 3, 11));
    ASSERT_EQ(due.size(), 1u);
    EXPECT_EQ(due[0].date, CDateTime(2024, 3, 11));
    EXPECT_TRUE(CReminders::Due(settings, CDateTime(2024, 3, 10)).empty());
}

TEST(Reminders, ExtremeNumbersFromAFileDoNotOverflow)
{
    CLogbookSettings settings;
    SetMembership(settings, CDateTime(9999, 12, 31), std::numeric_limits<int>::max());
    settings.GetEquipmentList().SetAlarm(true, std::numeric_limits<int>::max(), std::numeric_limits<int>::max());
    AddRig(settings, 1, true, CDateTime(2024, 1, 1)); // due date beyond the calendar: no reminder
    const auto due = CReminders::Due(settings, kToday);
    ASSERT_EQ(due.size(), 1u);
    EXPECT_EQ(due[0].messageId, StringTable::IDS_MEMBERSHIP_EXPIRES);
}

TEST(Reminders, InvalidTodayGivesNothing)
{
    CLogbookSettings settings;
    SetMembership(settings, Day(1), 10);
    EXPECT_TRUE(CReminders::Due(settings, CDateTime()).empty());
}

} // namespace
