#include "document/CReminders.h"

#include "model/CEquipmentList.h"
#include "model/CLogbookSettings.h"
#include "model/CMembership.h"
#include "resources/StringTable.h"

#include <cstdint>

bool CReminders::IsDue(const CDateTime& today, int alarmDays, const CDateTime& date)
{
    if (!today.IsValid() || !date.IsValid())
        return false;
    // Day numbers in 64 bits: alarm days and cycles may be anything an old file holds.
    return today.DayNumber() + static_cast<int64_t>(alarmDays) >= date.DayNumber();
}

std::vector<CReminders::Item> CReminders::Due(const CLogbookSettings& settings, const CDateTime& today)
{
    std::vector<Item> due;
    if (!today.IsValid())
        return due;
    const CDateTime day = today.DateOnly();

    const CMembership& membership = settings.GetMembership();
    if (membership.HasExpirationDate() && membership.HasAlarm() && membership.GetExpirationDate().IsValid()) {
        const CDateTime expires = membership.GetExpirationDate().DateOnly();
        // A date already passed is told as such, not as one still to come.
        if (expires.DayNumber() < day.DayNumber())
            due.push_back({StringTable::IDS_MEMBERSHIP_EXPIRED, 0, expires});
        else if (IsDue(day, membership.GetAlarmDays(), expires))
            due.push_back({StringTable::IDS_MEMBERSHIP_EXPIRES, 0, expires});
    }

    const CEquipmentList& rigs = settings.GetEquipmentList();
    if (!rigs.IsAlarmOn())
        return due;
    for (std::size_t i = 0; i < rigs.GetCount(); ++i) {
        const CEquipment& rig = rigs.Get(i);
        if (!rig.IsActive() || !rig.GetInspectionDate().IsValid())
            continue;
        // A due date outside the calendar's range cannot be shown or reached: no reminder.
        const CDateTime dueDate = rig.GetInspectionDate().DateOnly().AddDays(rigs.GetInspectionCycle());
        if (dueDate.IsValid() && IsDue(day, rigs.GetAlarmDays(), dueDate))
            due.push_back({StringTable::IDS_INSPECTION_DUE, rig.GetNumber(), dueDate});
    }
    return due;
}
