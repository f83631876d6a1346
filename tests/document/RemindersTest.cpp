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

using Fill = std::function<void(CLogbookSettings&)>;

Fill Membership(const CDateTime& expires, int alarmDays)
{
    return [=](CLogbookSettings& s) {
        s.GetMembership().SetExpirationDate(expires);
        s.GetMembership().SetAlarmDays(alarmDays);
    };
}

struct Rig
{
    int number;
    bool active;
    CDateTime inspected;
};

// The rig alarm and the rigs, with the membership setup first when there is one.
Fill Rigs(bool alarm, int alarmDays, int cycle, const std::vector<Rig>& rigs, const Fill& membership = nullptr)
{
    return [=](CLogbookSettings& s) {
        if (membership)
            membership(s);
        s.GetEquipmentList().SetAlarm(alarm, alarmDays, cycle);
        for (const Rig& rig : rigs) {
            auto equipment = std::make_unique<CEquipment>(rig.number);
            equipment->SetActive(rig.active);
            equipment->SetInspectionDate(rig.inspected);
            s.GetEquipmentList().Add(std::move(equipment));
        }
    };
}

CReminders::Item MembershipDue(const CDateTime& date)
{
    return {StringTable::IDS_MEMBERSHIP_EXPIRES, 0, date};
}

CReminders::Item MembershipExpired(const CDateTime& date)
{
    return {StringTable::IDS_MEMBERSHIP_EXPIRED, 0, date};
}

CReminders::Item RigDue(int number, const CDateTime& date)
{
    return {StringTable::IDS_INSPECTION_DUE, number, date};
}

TEST(Reminders, DueFromTheAlarmDayOnMembershipFirstThenRigsInListOrder)
{
    constexpr int kMax = std::numeric_limits<int>::max();
    struct Case
    {
        const char* name;
        Fill setup;
        std::vector<CReminders::Item> due;
        CDateTime today = kToday;
    };
    const Fill lateTimes = Rigs(true, 10, 180, {{1, true, CDateTime(2023, 12, 23, 18, 45, 0)}},
                                Membership(CDateTime(2024, 6, 20, 0, 0, 1), 10));
    const Fill leapCycle = Rigs(true, 0, 30, {{1, true, CDateTime(2024, 2, 10)}});
    const CDateTime due(2024, 6, 20); // whatever the times of day
    const CDateTime lateToday(2024, 6, 10, 23, 59, 59);
    const Case cases[] = {
        {"membership far ahead", Membership(Day(30), 10), {}},
        {"membership a day before its window", Membership(Day(11), 10), {}},
        {"membership on the boundary day", Membership(Day(10), 10), {MembershipDue(Day(10))}},
        {"membership inside its window", Membership(Day(5), 10), {MembershipDue(Day(5))}},
        {"expires today without warning days", Membership(Day(0), 0), {MembershipDue(Day(0))}},
        {"expires tomorrow without warning days", Membership(Day(1), 0), {}},
        {"membership already expired", Membership(Day(-40), 10), {MembershipExpired(Day(-40))}},
        {"membership expired yesterday", Membership(Day(-1), 0), {MembershipExpired(Day(-1))}},
        {"membership alarm off", Membership(Day(5), -1), {}},
        {"membership without a date", Membership(CDateTime(), 10), {}},
        {"membership with an invalid date", Membership(CDateTime(2023, 2, 31), 10), {}},
        {"invalid today", Membership(Day(1), 10), {}, CDateTime()},
        {"rig due from inspection + cycle - alarm days",
         Rigs(true, 10, 180, {{4, true, Day(-170)}, {5, true, Day(-169)}}),
         {RigDue(4, Day(10))}},
        {"membership first, then the active, inspected rigs in list order",
         Rigs(true, 0, 180, {{7, true, Day(-200)}, {2, false, Day(-200)}, {3, true, CDateTime()}, {1, true, Day(-180)}},
              Membership(Day(3), 10)),
         {MembershipDue(Day(3)), RigDue(7, Day(-20)), RigDue(1, Day(0))}},
        {"rig alarm off", Rigs(false, 10, 180, {{1, true, Day(-400)}}), {}},
        {"late on the boundary day", lateTimes, {MembershipDue(due), RigDue(1, due)}, lateToday},
        {"late on the day before", lateTimes, {}, lateToday.AddDays(-1)},
        {"cycle across the leap day", leapCycle, {RigDue(1, CDateTime(2024, 3, 11))}, CDateTime(2024, 3, 11)},
        {"cycle across the leap day, the day before", leapCycle, {}, CDateTime(2024, 3, 10)},
        {"extreme numbers from a file do not overflow; a due date beyond the calendar is none",
         Rigs(true, kMax, kMax, {{1, true, CDateTime(2024, 1, 1)}}, Membership(CDateTime(9999, 12, 31), kMax)),
         {MembershipDue(CDateTime(9999, 12, 31))}}};
    for (const Case& c : cases) {
        CLogbookSettings settings;
        c.setup(settings);
        EXPECT_EQ(CReminders::Due(settings, c.today), c.due) << c.name;
    }
}

} // namespace
