#include "tests/cli/CScratchDir.h"
#include "tests/cli/CToolRunner.h"
#include "tests/cli/TestLogbooks.h"

#include "model/CJump.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdio>
#include <ostream>
#include <string>
#include <vector>

namespace {

// The freefall seconds of the reference logbook: 61 typed for the Manual jump, the Standard
// jump at the fixed 52.5 m/s over 2000 m, the Custom jump at the file's 30.5 m/s over 800 m,
// and the 600 s of previous freefall.
int ReferenceFreefallSeconds()
{
    const auto computed = [](double distance, double speed) {
        return static_cast<int>(std::floor(CJump::ComputeFreefallTime(distance, speed) + 1e-8 + 0.5));
    };
    return 61 + computed(2000, 52.5) + computed(800, 30.5) + 600;
}

std::string Clock(int seconds)
{
    char text[32];
    std::snprintf(text, sizeof text, "%d:%02d:%02d", seconds / 3600, seconds / 60 % 60, seconds % 60);
    return text;
}

struct UnitsCase
{
    const char* name;
    int storedUnits;    // -1: nothing stored
    const char* option; // null: no --units
    bool metric;
};

void PrintTo(const UnitsCase& value, std::ostream* os)
{
    *os << value.name;
} // names the case in listings

class InfoCommand : public ::testing::TestWithParam<UnitsCase>
{
protected:
    CScratchDir m_dir;
    CToolRunner m_tool{m_dir.ConfigHome()};
};

// The reference logbook's last jump is number 500 and it holds three jumps, so the sums of
// 5800 m freefall and 3200 m opening heights are scaled by 500/3: 966,667 m and 533,333 m,
// that is 967 km / 601 mi and 533 km / 331 mi.
TEST_P(InfoCommand, ShowsTheHomeScreenSummaryInTheChosenUnits)
{
    const UnitsCase& c = GetParam();
    if (c.storedUnits >= 0)
        m_dir.StoreUnitsPreference(c.storedUnits);
    QStringList arguments{QStringLiteral("info"), m_dir.WriteGzip(QStringLiteral("r.tvz"), TestLogbooks::Reference())};
    if (c.option)
        arguments << QStringLiteral("--units") << QString::fromLatin1(c.option);

    const CToolResult result = m_tool.Run(arguments);
    ASSERT_EQ(result.exitCode, 0) << result.err;
    const std::vector<std::string> expected = {
        "Number of Jumps: 500",
        "Freefall Time: " + Clock(ReferenceFreefallSeconds()),
        c.metric ? "Freefall Dist. [km]: 967" : "Freefall Dist. [mi]: 601",
        c.metric ? "Canopy Dist. [km]: 533" : "Canopy Dist. [mi]: 331",
        "Last Jump: 2024-06-02",
    };
    EXPECT_EQ(result.OutLines(), expected);
    EXPECT_TRUE(result.err.empty()) << result.err;
}

INSTANTIATE_TEST_SUITE_P(Units, InfoCommand,
                         ::testing::Values(UnitsCase{"NothingStoredIsImperial", -1, nullptr, false},
                                           UnitsCase{"StoredMetric", 1, nullptr, true},
                                           UnitsCase{"AnyNonZeroIsMetric", 7, nullptr, true},
                                           UnitsCase{"StoredImperial", 0, nullptr, false},
                                           UnitsCase{"OptionOverridesImperial", 0, "metric", true},
                                           UnitsCase{"OptionOverridesMetric", 1, "imperial", false},
                                           UnitsCase{"OptionIgnoresCase", -1, "METRIC", true}),
                         [](const ::testing::TestParamInfo<UnitsCase>& param) {
                             return std::string(param.param.name);
                         });

TEST(InfoCommandEdges, EmptyLogbookShowsZerosAndThePreviousDelay)
{
    CScratchDir dir;
    const CToolRunner tool(dir.ConfigHome());
    const std::string body = "<settings><previousJumps>40</previousJumps><previousDelay>3725</previousDelay>"
                             "</settings><log size=\"0\"></log>";
    const CToolResult result =
        tool.Run({QStringLiteral("info"), dir.WritePlain(QStringLiteral("e.tvl"), TestLogbooks::File(body)),
                  QStringLiteral("--units"), QStringLiteral("metric")});
    ASSERT_EQ(result.exitCode, 0) << result.err;
    EXPECT_EQ(result.OutLines(),
              (std::vector<std::string>{"Number of Jumps: 0", "Freefall Time: 1:02:05", "Freefall Dist. [km]: 0",
                                        "Canopy Dist. [km]: 0", "Last Jump: "}));
}

TEST(InfoCommandEdges, NumberOfJumpsIsTheLastNumberNotTheCount)
{
    // Two jumps of 1000 m freefall with the last numbered 500: 500 x 2000 / 2 = 500 km.
    CScratchDir dir;
    const CToolRunner tool(dir.ConfigHome());
    const std::string jumps = TestLogbooks::Jump(500, "2023-08-01T12:00:00+03", "<exit>2000</exit><open>1000</open>") +
                              TestLogbooks::Jump(3, "2020-08-01T12:00:00+03", "<exit>1800</exit><open>800</open>");
    const CToolResult result = tool.Run(
        {QStringLiteral("info"), dir.WriteGzip(QStringLiteral("x.tvz"), TestLogbooks::File("<log>" + jumps + "</log>")),
         QStringLiteral("--units"), QStringLiteral("metric")});
    ASSERT_EQ(result.exitCode, 0) << result.err;
    const std::vector<std::string> lines = result.OutLines();
    ASSERT_EQ(lines.size(), 5u);
    EXPECT_EQ(lines[0], "Number of Jumps: 500");
    EXPECT_EQ(lines[2], "Freefall Dist. [km]: 500");
    EXPECT_EQ(lines[3], "Canopy Dist. [km]: 450");
    EXPECT_EQ(lines[4], "Last Jump: 2023-08-01");
}

} // namespace
