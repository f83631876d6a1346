#pragma once

#include "xml/CDateTime.h"

#include <vector>

class CLogbookSettings;

// The reminders that are due on a given day: the membership about to expire and the rigs whose
// reserve inspection is coming up. Shown at start-up and after every successful open.
class CReminders
{
public:
    // One due reminder: the message to compose (5005, or 5009 for an expiry date already passed,
    // or 5006), the rig's number (rigs only)
    // and the date to put into the text (expiry or inspection due date).
    struct Item
    {
        int messageId = 0;
        int rigNumber = 0;
        CDateTime date;
        friend bool operator==(const Item&, const Item&) = default;
    };

    // A reminder is due from the day on which today plus the alarm days reaches the date,
    // that day included: with 10 alarm days an expiry on the 20th is reported from the 10th on.
    // Order: the membership first, then each due rig in list order. today's time of day is ignored.
    static std::vector<Item> Due(const CLogbookSettings& settings, const CDateTime& today);

    // True when the date is reached within the alarm days counted from today (both days valid).
    static bool IsDue(const CDateTime& today, int alarmDays, const CDateTime& date);
};
