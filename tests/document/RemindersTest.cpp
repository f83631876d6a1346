// Which reminders are due on a day: membership expiry and rig inspections, their order and the
// boundary day on which today plus the alarm days equals the date.

#include "document/CReminders.h"
#include "model/CLogbookSettings.h"
#include "resources/StringTable.h"

#include <gtest/gtest.h>

#include <functional>
#include <limits>
#include <memory>
#include <vector>

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

using Item = CReminders::Item;

Item Membership(const CDateTime& date)
{
    return {StringTable::IDS_MEMBERSHIP_EXPIRES, 0, date};
}

Item Rig(int number, const CDateTime& date)
{
    return {StringTable::IDS_INSPECTION_DUE, number, date};
}

TEST(Reminders, DueFromTheAlarmDayOnMembershipFirstThenRigsInListOrder)
{
    constexpr int kMax = std::numeric_limits<int>::max();
    struct Case
    {
        const char* name;
        std::function<void(CLogbookSettings&)> setup;
        CDateTime today;
        std::vector<Item> due;
    };
    const auto membership = [](int expiryOffset, int alarmDays) {
        return [=](CLogbookSettings& s) { SetMembership(s, Day(expiryOffset), alarmDays); };
    };
    const auto lateTimes = [](CLogbookSettings& s) {
        SetMembership(s, CDateTime(2024, 6, 20, 0, 0, 1), 10);
        s.GetEquipmentList().SetAlarm(true, 10, 180);
        AddRig(s, 1, true, CDateTime(2023, 12, 23, 18, 45, 0));
    };
    const auto leapCycle = [](CLogbookSettings& s) {
        s.GetEquipmentList().SetAlarm(true, 0, 30);
        AddRig(s, 1, true, CDateTime(2024, 2, 10));
    };
    const Case cases[] = {
        {"membership far ahead", membership(30, 10), kToday, {}},
        {"membership a day before its window", membership(11, 10), kToday, {}},
        {"membership on the boundary day", membership(10, 10), kToday, {Membership(Day(10))}},
        {"membership inside its window", membership(5, 10), kToday, {Membership(Day(5))}},
        {"expires today without warning days", membership(0, 0), kToday, {Membership(Day(0))}},
        {"expires tomorrow without warning days", membership(1, 0), kToday, {}},
        {"membership already expired", membership(-40, 10), kToday, {Membership(Day(-40))}},
        {"membership alarm off", membership(5, -1), kToday, {}},
        {"membership without a date", [](CLogbookSettings& s) { SetMembership(s, CDateTime(), 10); }, kToday, {}},
        {"membership with an invalid date",
         [](CLogbookSettings& s) { SetMembership(s, CDateTime(2023, 2, 31), 10); },
         kToday,
         {}},
        {"invalid today", membership(1, 10), CDateTime(), {}},
        {"rig due at inspection plus cycle, from the boundary day on",
         [](CLogbookSettings& s) {
             s.GetEquipmentList().SetAlarm(true, 10, 180);
             AddRig(s, 4, true, Day(-170));
             AddRig(s, 5, true, Day(-169));
         },
         kToday,
         {Rig(4, Day(10))}},
        {"membership first, then rigs in list order",
         [](CLogbookSettings& s) {
             SetMembership(s, Day(3), 10);
             s.GetEquipmentList().SetAlarm(true, 0, 180);
             AddRig(s, 7, true, Day(-200));
             AddRig(s, 2, false, Day(-200));  // not tracked
             AddRig(s, 3, true, CDateTime()); // never inspected
             AddRig(s, 1, true, Day(-180));
         },
         kToday,
         {Membership(Day(3)), Rig(7, Day(-20)), Rig(1, Day(0))}},
        {"rig alarm off",
         [](CLogbookSettings& s) {
             s.GetEquipmentList().SetAlarm(false, 10, 180);
             AddRig(s, 1, true, Day(-400));
         },
         kToday,
         {}},
        {"times of day do not move the boundary",
         lateTimes,
         CDateTime(2024, 6, 10, 23, 59, 59),
         {Membership(CDateTime(2024, 6, 20)), Rig(1, CDateTime(2024, 6, 20))}},
        {"a day earlier, however late", lateTimes, CDateTime(2024, 6, 9, 23, 59, 59), {}},
        {"cycle across the leap day", leapCycle, CDateTime(2024, 3, 11), {Rig(1, CDateTime(2024, 3, 11))}},
        {"cycle across the leap day, the day before", leapCycle, CDateTime(2024, 3, 10), {}},
        {"extreme numbers from a file do not overflow; a due date beyond the calendar is none",
         [](CLogbookSettings& s) {
             SetMembership(s, CDateTime(9999, 12, 31), kMax);
             s.GetEquipmentList().SetAlarm(true, kMax, kMax);
             AddRig(s, 1, true, CDateTime(2024, 1, 1));
         },
         kToday,
         {Membership(CDateTime(9999, 12, 31))}},
    };
    for (const Case& c : cases) {
        CLogbookSettings settings;
        c.setup(settings);
        EXPECT_EQ(CReminders::Due(settings, c.today), c.due) << c.name;
    }
}

} // namespace
