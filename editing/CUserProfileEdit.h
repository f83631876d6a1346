#pragma once

#include "editing/CCheckResult.h"
#include "xml/CDateTime.h"

#include <string>
#include <string_view>
#include <vector>

class CLogbookSettings;

// The working values of the user profile editor: the owner's name and member number, the
// membership's expiry with its reminder, and the licences, ratings and awards as the multi-line
// texts the editor shows. Loaded from the logbook's settings and written back in one call.
class CUserProfileEdit
{
public:
    // The fields a failed check points at.
    enum Field
    {
        DaysPrior = 0,
        Licenses = 1,
        Ratings = 2,
        Awards = 3
    };
    // The three lists, in page order.
    enum List
    {
        LicenseList = 0,
        RatingList = 1,
        AwardList = 2
    };

    // Every list holds at most this many entries.
    static constexpr int kMaxEntries = 4;
    // The days-prior spinner's range.
    static constexpr int kMaxDaysPrior = 365;

    // Takes the profile from the settings: expiry, alarm and the lists joined for the edits.
    void Load(const CLogbookSettings& settings);

    // The entries joined by "\r\n", with a final "\r\n" when there is any entry, so the caret
    // starts a new line at once.
    static std::string JoinList(const std::vector<std::string>& entries);
    // The entries of an edit's text: blanks trimmed off the whole text, cut at every line break,
    // each piece trimmed, empty pieces dropped.
    static std::vector<std::string> SplitList(std::string_view text);

    // Clearing "Expires" clears the alarm as well.
    void SetExpires(bool expires);
    bool GetExpires() const { return m_expires; }
    // The alarm can only be ticked while the membership expires.
    void SetAlarm(bool alarm) { m_alarm = alarm && m_expires; }
    bool GetAlarm() const { return m_alarm; }

    // The membership page's check: days prior 0 to 365 (4009); the loaded value passes as it is.
    CCheckResult ValidateMembership() const;
    // A list page's check: more than four entries fail with the page's own message.
    CCheckResult ValidateList(List list) const;

    // Hands the profile to the settings in one call and the owner's name and member number
    // after it; returns whether anything changed.
    bool Apply(CLogbookSettings& settings) const;

    // The values the pages show and read back.
    std::string ownerName;
    std::string memberNumber;
    CDateTime expiryDate;
    int daysPrior = 0;
    std::string lists[3];

private:
    bool m_expires = false;
    bool m_alarm = false;
    int m_loadedDaysPrior = 0;
};
