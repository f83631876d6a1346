#include "tests/cli/ToolTest.h"
#include "tests/stats/StatsLogbook.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <string>
#include <vector>

namespace {

using StatsCommand = CToolTest;

QJsonValue At(const QJsonObject& root, const std::string& path)
{
    QJsonValue value = root;
    std::size_t start = 0;
    while (start <= path.size()) {
        const std::size_t dot = std::min(path.find('.', start), path.size());
        const QString key = QString::fromStdString(path.substr(start, dot - start));
        bool isIndex = false;
        const int index = key.toInt(&isIndex);
        value = isIndex ? value.toArray().at(index) : value.toObject().value(key);
        start = dot + 1;
    }
    return value;
}

// The figures the core's tests work out by hand for the same logbook on the same day, as the
// JSON keys give them.
TEST_F(StatsCommand, JsonHoldsTheCoreFigures)
{
    const std::string logbook = Write("s.tvl", StatsLogbook::Xml());
    const CToolResult result = Run({"stats", logbook, "--as-of", "2025-12-31", "--format", "json"});
    ASSERT_EQ(result.exitCode, 0) << result.err;
    const QJsonObject root = QJsonDocument::fromJson(QByteArray::fromStdString(result.out)).object();
    const struct
    {
        const char* path;
        QJsonValue expected;
    } rows[] = {
        {"asOf", "2025-12-31"},
        {"totals.jumps", 46},
        {"totals.loggedJumps", 6},
        {"totals.previousJumps", 40},
        {"totals.freefallSeconds", 1474},
        {"totals.canopySeconds", 200},
        {"totals.freefallDistanceMetres", 13900},
        {"totals.highestExitMetres", 4000},
        {"totals.fastestSpeedMetresPerSecond", 70.5},
        {"totals.cutaways", 1},
        {"totals.signedJumps", 1},
        {"perYear.1.year", 2024},
        {"perYear.1.freefallSeconds", 153},
        {"perMonth.0.month", "2024-01"},
        {"perMonth.1.jumps", 2},
        {"perMonth.23.month", "2025-12"},
        {"last12Months.from", "2025-01-01"},
        {"last12Months.jumps", 2},
        {"perDropZone.0.name", "Utti"},
        {"perDropZone.0.first", "2023-12-31"},
        {"perAircraft.1.name", "Skyvan"},
        {"perType.0.name", ""},
        {"perRig.0.number", 1},
        {"perRig.0.jumpsSinceInspection", 2},
        {"perRig.1.jumpsSinceInspection", QJsonValue()},
        {"perFallrateKind.0.name", "Manual"},
        {"streaks.longestGapDays", 366},
        {"streaks.daysSinceLastJump", 304},
        {"licence.level", "A"},
        {"licence.next", "B"},
        {"licence.text", "B: 46 of 50 jumps, 24:34 of 30:00 freefall"},
        {"currency.state", "lapsed"},
        {"currency.lapsedSince", "2025-05-02"},
    };
    for (const auto& row : rows)
        EXPECT_EQ(At(root, row.path), row.expected) << row.path;
    EXPECT_EQ(At(root, "perMonth").toArray().size(), 24);
    EXPECT_EQ(At(root, "perYear").toArray().size(), 3);
}

// Text in the display units; the day leaves the later jumps out.
TEST_F(StatsCommand, TextUsesDisplayUnits)
{
    const std::string logbook = Write("s.tvl", StatsLogbook::Xml());
    for (const bool metric : {true, false}) {
        SCOPED_TRACE(metric);
        const CToolResult result =
            Run({"stats", logbook, "--as-of", "2024-02-29", "--units", metric ? "metric" : "imperial"});
        ASSERT_EQ(result.exitCode, 0) << result.err;
        const std::vector<std::string> lines = result.OutLines();
        for (const std::string& expected :
             {std::string("Jumps: 44 (4 logged, 40 before this logbook)"),
              std::string(metric ? "Highest exit [m]: 4000" : "Highest exit [ft]: 13123"),
              std::string(metric ? "Freefall distance [km]: 10.9" : "Freefall distance [mi]: 6.8"),
              std::string("Currency: Current: 0 days since the last jump (limit 60 days)")})
            EXPECT_NE(std::find(lines.begin(), lines.end(), expected), lines.end()) << expected << "\n" << result.out;
    }
}

} // namespace
