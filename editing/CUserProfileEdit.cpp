#include "editing/CUserProfileEdit.h"

#include "editing/TrimBlanks.h"

#include "model/CLogbookSettings.h"
#include "resources/StringTable.h"

namespace {

constexpr int kListMessages[3] = {StringTable::IDS_MAX_LICENSES, StringTable::IDS_MAX_RATINGS,
                                  StringTable::IDS_MAX_AWARDS};
constexpr int kListFields[3] = {CUserProfileEdit::Licenses, CUserProfileEdit::Ratings, CUserProfileEdit::Awards};

} // namespace

std::string CUserProfileEdit::JoinList(const std::vector<std::string>& entries)
{
    std::string text;
    for (const std::string& entry : entries) {
        text += entry;
        text += "\r\n";
    }
    return text;
}

std::vector<std::string> CUserProfileEdit::SplitList(std::string_view text)
{
    // A lone "\n" counts as a line break too: edits on other systems hand back bare newlines.
    const std::string whole = TrimBlanks(text);
    std::vector<std::string> entries;
    std::size_t start = 0;
    while (start <= whole.size()) {
        std::size_t end = whole.find('\n', start);
        if (end == std::string::npos)
            end = whole.size();
        std::string piece = TrimBlanks(std::string_view(whole).substr(start, end - start));
        if (!piece.empty())
            entries.push_back(std::move(piece));
        start = end + 1;
    }
    return entries;
}

void CUserProfileEdit::Load(const CLogbookSettings& settings)
{
    const CMembership& membership = settings.GetMembership();
    ownerName = settings.GetOwnerName();
    memberNumber = membership.GetMemberNumber();
    m_expires = membership.HasExpirationDate();
    expiryDate = m_expires ? membership.GetExpirationDate() : CDateTime();
    m_alarm = membership.HasAlarm();
    daysPrior = m_alarm ? membership.GetAlarmDays() : 0;
    m_loadedDaysPrior = daysPrior;
    lists[LicenseList] = JoinList(settings.GetLicenses());
    lists[RatingList] = JoinList(settings.GetRatings());
    lists[AwardList] = JoinList(settings.GetAwards());
}

void CUserProfileEdit::SetExpires(bool expires)
{
    m_expires = expires;
    if (!expires)
        m_alarm = false;
}

CCheckResult CUserProfileEdit::ValidateMembership() const
{
    return CheckChangedRange(daysPrior, m_loadedDaysPrior, 0, kMaxDaysPrior, DaysPrior);
}

CCheckResult CUserProfileEdit::ValidateList(List list) const
{
    if (SplitList(lists[list]).size() > static_cast<std::size_t>(kMaxEntries))
        return CCheckResult::Fail(kListMessages[list], kListFields[list]);
    return CCheckResult::Pass();
}

bool CUserProfileEdit::Apply(CLogbookSettings& settings) const
{
    bool changed = settings.SetProfile(m_expires, expiryDate, m_alarm, daysPrior, SplitList(lists[LicenseList]),
                                       SplitList(lists[RatingList]), SplitList(lists[AwardList]));
    const std::string name = TrimBlanks(ownerName);
    if (name != settings.GetOwnerName()) {
        settings.SetOwnerName(name);
        changed = true;
    }
    const std::string number = TrimBlanks(memberNumber);
    if (number != settings.GetMembership().GetMemberNumber()) {
        settings.GetMembership().SetMemberNumber(number);
        changed = true;
    }
    return changed;
}
