#include "editing/CUserProfileEdit.h"
#include "CheckText.h"
#include "model/CLogbookSettings.h"

#include <gtest/gtest.h>

namespace {

using Strings = std::vector<std::string>;

TEST(UserProfileEdit, SplitsListsIntoTrimmedNonEmptyEntries)
{
    const std::pair<const char*, Strings> cases[] = {
        {"", {}},
        {"  \r\n \t\r\n", {}},
        {"A\r\nB", {"A", "B"}},
        {"  A-License \r\n\r\n   B  \r\n", {"A-License", "B"}},
        {"\r\n\r\nC 12345\r\n", {"C 12345"}},
        {"one\ntwo\r\n", {"one", "two"}},
    };
    for (const auto& [text, entries] : cases)
        EXPECT_EQ(CUserProfileEdit::SplitList(text), entries) << text;
}

// Each page allows four entries and refuses a fifth with its own message as it stands.
TEST(UserProfileEdit, ListLimitsUseEachPagesMessage)
{
    // Blank lines are no entries.
    const std::pair<const char*, bool> texts[] = {{"1\r\n2\r\n3\r\n4\r\n5", false}, {"1\r\n2\r\n\r\n3\r\n4\r\n", true}};
    const struct
    {
        CUserProfileEdit::List list;
        int field;
        const char* message;
    } pages[] = {
        {CUserProfileEdit::LicenseList, CUserProfileEdit::Licenses, "Max. 4 licenses are allowed."},
        {CUserProfileEdit::RatingList, CUserProfileEdit::Ratings, "Max. ratings are allowed."},
        {CUserProfileEdit::AwardList, CUserProfileEdit::Awards, "Max. 10 awards are allowed."},
    };
    for (const auto& page : pages)
        for (const auto& [text, passes] : texts) {
            CUserProfileEdit edit;
            edit.lists[page.list] = text;
            const CCheckResult result = edit.ValidateList(page.list);
            EXPECT_EQ(result.Passed(), passes) << page.message << " / " << text;
            if (!passes) {
                EXPECT_EQ(CheckText(result), page.message);
                EXPECT_EQ(result.field, page.field);
            }
        }
}

// Days prior lie between 0 and 365; the alarm is only on while the membership expires.
TEST(UserProfileEdit, MembershipDaysPriorAndAlarm)
{
    const int refused = CUserProfileEdit::DaysPrior;
    const std::pair<int, int> cases[] = {{-1, refused}, {0, -1}, {365, -1}, {366, refused}};
    for (const auto& [days, field] : cases) {
        CUserProfileEdit edit;
        edit.SetExpires(true);
        edit.SetAlarm(true);
        edit.daysPrior = days;
        EXPECT_EQ(edit.ValidateMembership().field, field) << days;
    }
    CUserProfileEdit edit;
    edit.SetExpires(true);
    edit.SetAlarm(true);
    edit.SetExpires(false);
    EXPECT_FALSE(edit.GetAlarm());
    edit.SetAlarm(true);
    EXPECT_FALSE(edit.GetAlarm());
}

TEST(UserProfileEdit, LoadsAndAppliesTheWholeProfileReportingChanges)
{
    CLogbookSettings settings;
    settings.SetOwnerName("Aino");
    settings.GetMembership().SetMemberNumber("SIL 1");
    settings.GetMembership().SetExpirationDate(CDateTime(2025, 3, 31));
    settings.GetMembership().SetAlarmDays(14);
    settings.SetLicenses({"A", "B"});

    CUserProfileEdit edit;
    edit.Load(settings);
    EXPECT_TRUE(edit.GetExpires());
    EXPECT_TRUE(edit.GetAlarm());
    EXPECT_EQ(edit.daysPrior, 14);
    EXPECT_EQ(edit.lists[CUserProfileEdit::LicenseList], "A\r\nB\r\n");
    EXPECT_EQ(edit.lists[CUserProfileEdit::RatingList], "");

    CLogbookSettings copy = settings;
    EXPECT_FALSE(edit.Apply(copy));
    EXPECT_TRUE(copy == settings);

    // Blanks around lines and blank lines go; name and number are taken trimmed.
    edit.lists[CUserProfileEdit::AwardList] = "  Gold \r\n\r\n";
    edit.ownerName = " Aino Mäkelä ";
    edit.memberNumber = "SIL 2";
    edit.SetExpires(false);
    EXPECT_TRUE(edit.Apply(copy));
    EXPECT_EQ(copy.GetAwards(), Strings{"Gold"});
    EXPECT_EQ(copy.GetOwnerName(), "Aino Mäkelä");
    EXPECT_EQ(copy.GetMembership().GetMemberNumber(), "SIL 2");
    EXPECT_FALSE(copy.GetMembership().HasExpirationDate());
    EXPECT_EQ(copy.GetMembership().GetAlarmDays(), -1);
}

} // namespace
