#include "tests/cli/TestLogbooks.h"
#include "tests/cli/ToolTest.h"

#include <filesystem>
#include <string>
#include <vector>

namespace {

using InfoCommand = CToolTest;

// The reference logbook's last jump is number 500 and it holds three jumps, so the sums of
// 5800 m freefall and 3200 m opening heights are scaled by 500/3: 967 km / 601 mi and 533 km /
// 331 mi. Freefall: 61 s typed, 2000 m at 52.5 m/s (42 s) and 800 m at the file's 30.5 m/s (28 s),
// and 600 s before the logbook.
TEST_F(InfoCommand, ShowsTheHomeScreenSummaryInTheChosenUnits)
{
    const std::string logbook = Write("r.tvz", TestLogbooks::Reference(), true);
    const struct
    {
        const char* name;
        int storedUnits;    // -1: nothing stored
        const char* option; // null: no --units
        bool metric;
    } cases[] = {{"nothing stored is imperial", -1, nullptr, false},
                 {"stored metric", 1, nullptr, true},
                 {"stored imperial", 0, nullptr, false},
                 {"option overrides imperial", 0, "metric", true},
                 {"option overrides metric", 1, "imperial", false},
                 {"option ignores case", -1, "METRIC", true}};
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        std::filesystem::remove_all(m_dir / "config");
        if (c.storedUnits >= 0)
            StoreUnitsPreference(c.storedUnits);
        std::vector<std::string> arguments{"info", logbook};
        if (c.option)
            arguments.insert(arguments.end(), {"--units", c.option});
        const CToolResult result = Run(arguments);
        ASSERT_EQ(result.exitCode, 0) << result.err;
        const std::vector<std::string> expected = {"Number of Jumps: 500", "Freefall Time: 0:12:11",
                                                   c.metric ? "Freefall Dist. [km]: 967" : "Freefall Dist. [mi]: 601",
                                                   c.metric ? "Canopy Dist. [km]: 533" : "Canopy Dist. [mi]: 331",
                                                   "Last Jump: 2024-06-02"};
        EXPECT_EQ(result.OutLines(), expected);
        EXPECT_TRUE(result.err.empty()) << result.err;
    }

    // An empty logbook: zeros, no date, and the freefall time from before the logbook.
    const std::string empty =
        Write("e.tvl", TestLogbooks::File("<settings><previousDelay>3725</previousDelay></settings>"));
    const CToolResult result = Run({"info", empty, "--units", "metric"});
    ASSERT_EQ(result.exitCode, 0) << result.err;
    EXPECT_EQ(result.OutLines(),
              (std::vector<std::string>{"Number of Jumps: 0", "Freefall Time: 1:02:05", "Freefall Dist. [km]: 0",
                                        "Canopy Dist. [km]: 0", "Last Jump: "}));
}

} // namespace
