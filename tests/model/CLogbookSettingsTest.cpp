#include "model/CLogbookSettings.h"
#include "tests/model/ModelXml.h"

#include <gtest/gtest.h>

#include <functional>

namespace {

const std::string kFallrates =
    R"(<fallrates><fallrate name="Standard" speed="52.5"/>)"
    R"(<fallrate name="Vertical" speed="76.0"/><fallrate name="Custom" speed="22.3"/></fallrates>)";
const std::string kKeywords = "<keywords><videoJump>Video</videoJump><nightJump>Night</nightJump>"
                              "<coachJump>Coach</coachJump><reserveActivated>Reserve</reserveActivated></keywords>";

std::string Write(const CLogbookSettings& settings)
{
    return WriteXml([&](CXmlWriter& w) { settings.Write(w); });
}

} // namespace

// The order of the elements is the golden round trip's; here what is left out.
TEST(CLogbookSettingsWrite, EmptyOnesLeftOut)
{
    using Settings = CLogbookSettings;
    struct Case
    {
        const char* name;
        std::function<void(Settings&)> setup;
        std::string written; // before the fall rates and keywords
    };
    const CDateTime expiry(2009, 12, 31);
    const std::string date = "<expirationDate>2009-12-31T00:00:00Z</expirationDate>";
    const Case cases[] = {
        {"defaults", [](Settings&) {}, ""},
        {"number and alarm days without a date",
         [](Settings& s) { s.GetMembership().SetMemberNumber("F-1"), s.GetMembership().SetAlarmDays(10); },
         R"(<membership name="F-1"></membership>)"},
        {"date without alarm", [&](Settings& s) { s.GetMembership().Set(true, expiry, false, 30); },
         R"(<membership name="">)" + date + "</membership>"},
        {"alarm of 0 days", [&](Settings& s) { s.GetMembership().Set(true, expiry, true, 0); },
         R"(<membership name="">)" + date + "<alarmDays>0</alarmDays></membership>"},
        {"alarm days alone", [](Settings& s) { s.GetMembership().SetAlarmDays(10); }, ""},
        {"rig alarm without rigs", [](Settings& s) { s.GetEquipmentList().SetAlarm(true, 0, 0); },
         "<equipments><inspectionCycle>0</inspectionCycle><alarmDays>0</alarmDays></equipments>"}};
    for (const Case& c : cases) {
        CLogbookSettings settings;
        c.setup(settings);
        EXPECT_EQ(Write(settings), "<settings>" + c.written + kFallrates + kKeywords + "</settings>") << c.name;
    }
}

// The golden round trip pins the values that are read back as they are written.
TEST(CLogbookSettingsRead, FixedSpeedsEmptyListItemsAndDefaults)
{
    CLogbookSettings settings;
    ASSERT_TRUE(ReadXml(settings,
                        R"(<settings><licenses><license>C</license><license></license></licenses>)"
                        R"(<awards><award/></awards><fallrates><fallrate name="Standard" speed="50.0"/>)"
                        R"(<fallrate name="Vertical" speed="70.0"/></fallrates><extra>1</extra></settings>)"));
    EXPECT_EQ(settings.GetLicenses(), std::vector<std::string>{"C"});
    EXPECT_TRUE(settings.GetAwards().empty());
    EXPECT_EQ(settings.FallrateSpeed(FallrateKind::Standard), 52.5);
    EXPECT_EQ(settings.FallrateSpeed(FallrateKind::Vertical), 76.0);
    EXPECT_EQ(settings.FallrateSpeed(FallrateKind::Manual), 0.0);
    EXPECT_EQ(settings.GetKeyword(CLogbookSettings::VideoJump), "Video");
    EXPECT_EQ(settings.GetKeyword(4), "");
}

TEST(CLogbookSettingsRead, RefusedValues)
{
    const char* refused[] = {
        "<previousJumps>1x</previousJumps>",
        "<previousDelay>1.5</previousDelay>",
        R"(<membership name="1"><alarmDays>x</alarmDays></membership>)",
        R"(<membership name="1"><expirationDate>2009-02-31T00:00:00Z</expirationDate></membership>)",
        R"(<membership name="1"><expirationDate>2009-12-31 00:00:00Z</expirationDate></membership>)",
        R"(<fallrates><fallrate name="Custom" speed="fast"/></fallrates>)",
        R"(<equipments><equipment active="true"></equipment></equipments>)",
        R"(<equipments><equipment n="1"></equipment></equipments>)",
        R"(<equipments><equipment n="1" active="yes"></equipment></equipments>)",
        R"(<equipments><equipment n="x" active="true"></equipment></equipments>)",
        R"(<equipments><equipment n="1" active="true"><mainSize>1 70</mainSize></equipment></equipments>)",
        R"(<equipments><equipment n="1" active="true"><inspectionDate>2008</inspectionDate></equipment></equipments>)",
    };
    for (const char* child : refused) {
        CLogbookSettings settings;
        EXPECT_FALSE(ReadXml(settings, std::string("<settings>") + child + "</settings>")) << child;
    }
    // A bad Standard speed is never even read.
    CLogbookSettings settings;
    EXPECT_TRUE(
        ReadXml(settings, R"(<settings><fallrates><fallrate name="Standard" speed="x"/></fallrates></settings>)"));
}

TEST(CMembershipEdit, SetReportsChangesAndDropsWhatDoesNotApply)
{
    CMembership membership;
    const CDateTime expiry(2009, 12, 31);
    EXPECT_FALSE(membership.Set(false, expiry, true, 10)); // no date: nothing to remember
    EXPECT_FALSE(membership.HasExpirationDate());
    EXPECT_TRUE(membership.Set(true, expiry, false, 10));
    EXPECT_EQ(membership.GetAlarmDays(), -1);
    EXPECT_FALSE(membership.HasAlarm());
    EXPECT_TRUE(membership.Set(true, expiry, true, 0));
    EXPECT_TRUE(membership.HasAlarm());
    EXPECT_FALSE(membership.Set(true, expiry, true, 0));
    EXPECT_TRUE(membership.Set(false, expiry, true, 0)); // removing the date removes the alarm
    EXPECT_FALSE(membership.HasAlarm());
    EXPECT_EQ(membership.GetAlarmDays(), -1);

    CLogbookSettings settings;
    EXPECT_FALSE(settings.SetProfile(false, {}, false, 0, {}, {}, {}));
    EXPECT_TRUE(settings.SetProfile(false, {}, false, 0, {"C"}, {}, {}));
    EXPECT_FALSE(settings.SetProfile(false, {}, false, 0, {"C"}, {}, {}));
    EXPECT_TRUE(settings.SetProfile(false, {}, false, 0, {"C"}, {}, {"Gold"}));
}
