#include "document/CLogbookDoc.h"
#include "stats/CLicenceRules.h"
#include "stats/CLogbookStats.h"
#include "tests/common/CScratchFolder.h"
#include "tests/stats/StatsLogbook.h"

#include <gtest/gtest.h>

#include <string>

namespace {

std::string Groups(const std::vector<CStatsGroup>& groups)
{
    std::string text;
    for (const CStatsGroup& g : groups)
        text += (text.empty() ? "" : "; ") + g.name + "=" + std::to_string(g.jumps) + "/" +
                std::to_string(g.freefallSeconds) + " " + IsoDate(g.first) + ".." + IsoDate(g.last);
    return text;
}

// The months with jumps, "YYYY-MM:n", and the window's first and last month.
std::string Months(const std::vector<CStatsPeriod>& months)
{
    std::string text = std::to_string(months.size()) + " " + std::to_string(months.front().year) + "-" +
                       std::to_string(months.front().month) + ".." + std::to_string(months.back().year) + "-" +
                       std::to_string(months.back().month);
    for (const CStatsPeriod& m : months)
        if (m.figures.jumps > 0)
            text +=
                " " + std::to_string(m.year) + "-" + std::to_string(m.month) + ":" + std::to_string(m.figures.jumps);
    return text;
}

std::string Years(const std::vector<CStatsPeriod>& years)
{
    std::string text;
    for (const CStatsPeriod& y : years)
        text += (text.empty() ? "" : " ") + std::to_string(y.year) + ":" + std::to_string(y.figures.jumps) + "/" +
                std::to_string(y.figures.freefallSeconds);
    return text;
}

class LogbookStats : public ::testing::Test
{
protected:
    void SetUp() override
    {
        const std::string path = m_dir / "stats.tvl";
        ASSERT_TRUE(WriteBytes(path, StatsLogbook::Xml()));
        ASSERT_TRUE(m_doc.Load(path).ok);
    }

    CScratchFolder m_dir{"stats"};
    CLogbookDoc m_doc;
};

// The day decides which jumps count, which months are shown and which twelve months are the
// last ones: ends of years and months, the leap day, a day before every jump.
TEST_F(LogbookStats, CountsUpToTheGivenDay)
{
    const struct
    {
        CDateTime asOf;
        int logged;
        int64_t freefall; // logged
        const char* years;
        const char* months;
        const char* last12From;
        int last12;
        int daysSinceLast;
    } rows[] = {
        {CDateTime(2025, 12, 31), 6, 274, "2023:1/60 2024:3/153 2025:2/61",
         "24 2024-1..2025-12 2024-1:1 2024-2:2 2025-3:2", "2025-01-01", 2, 304},
        {CDateTime(2025, 2, 28), 4, 213, "2023:1/60 2024:3/153", "24 2023-3..2025-2 2023-12:1 2024-1:1 2024-2:2",
         "2024-02-29", 2, 365},
        {CDateTime(2025, 3, 1), 5, 213, "2023:1/60 2024:3/153 2025:1/0",
         "24 2023-4..2025-3 2023-12:1 2024-1:1 2024-2:2 2025-3:1", "2024-03-02", 1, 0},
        {CDateTime(2024, 2, 29), 4, 213, "2023:1/60 2024:3/153", "24 2022-3..2024-2 2023-12:1 2024-1:1 2024-2:2",
         "2023-03-01", 4, 0},
        {CDateTime(2024, 2, 28), 2, 110, "2023:1/60 2024:1/50", "24 2022-3..2024-2 2023-12:1 2024-1:1", "2023-03-01", 2,
         58},
        {CDateTime(2023, 12, 30), 0, 0, "", "24 2022-1..2023-12", "2022-12-31", 0, -1},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(IsoDate(row.asOf));
        const CLogbookStats stats = CLogbookStats::Compute(m_doc, row.asOf);
        EXPECT_EQ(stats.logged.jumps, row.logged);
        EXPECT_EQ(stats.logged.freefallSeconds, row.freefall);
        EXPECT_EQ(stats.totalJumps, 40 + row.logged);
        EXPECT_EQ(stats.totalFreefallSeconds, 1200 + row.freefall);
        EXPECT_EQ(Years(stats.perYear), row.years);
        EXPECT_EQ(Months(stats.perMonth), row.months);
        EXPECT_EQ(IsoDate(stats.last12MonthsFrom), row.last12From);
        EXPECT_EQ(stats.last12Months.jumps, row.last12);
        EXPECT_EQ(stats.rhythm.daysSinceLastJump, row.daysSinceLast);
        // The home page's short way gives what the full statistics give.
        const CLicenceStatus full = CLicenceStatus::Compute(stats, m_doc.GetSettings().GetLicenses());
        const CLicenceStatus quick = CLicenceStatus::OfDocument(m_doc, row.asOf);
        EXPECT_EQ(quick.progress.Text(), full.progress.Text());
        EXPECT_EQ(quick.currency.Text(), full.currency.Text());
    }
}

TEST_F(LogbookStats, TotalsBreakdownsAndRhythm)
{
    const CLogbookStats stats = CLogbookStats::Compute(m_doc, CDateTime(2025, 12, 31, 23, 59));
    const CStatsFigures& t = stats.logged;
    EXPECT_EQ(t.canopySeconds, 200);
    EXPECT_EQ(t.canopyTimeJumps, 1);
    EXPECT_EQ(t.freefallMetres, 13900);
    EXPECT_EQ(t.canopyMetres, 6100);
    EXPECT_EQ(t.highestExitMetres, 4000);
    EXPECT_EQ(t.longestFreefallSeconds, 61);
    EXPECT_DOUBLE_EQ(t.fastestSpeed, 70.5);
    EXPECT_EQ(t.cutaways, 1);
    EXPECT_EQ(t.signedJumps, 1);
    EXPECT_EQ(t.unsignedJumps, 5);

    EXPECT_EQ(Groups(stats.perDropZone), "Utti=4/171 2023-12-31..2025-03-02; Tervola=2/103 2024-02-29..2024-02-29");
    EXPECT_EQ(Groups(stats.perAircraft),
              "Cessna 206=3/121 2023-12-31..2025-03-02; Skyvan=3/153 2024-01-01..2024-02-29");
    EXPECT_EQ(Groups(stats.perType), "=3/119 2024-02-29..2025-03-02; Belly=2/110 2023-12-31..2024-01-01; "
                                     "Freefly=1/45 2024-02-29..2024-02-29");
    EXPECT_EQ(Groups(stats.perFallrateKind), "Manual=4/229 2023-12-31..2025-03-02; Import=1/45 2024-02-29..2024-02-29; "
                                             "Standard=1/0 2025-03-01..2025-03-01");
    // The listed rig first, whether a jump names it by position or by its full text; then texts.
    EXPECT_EQ(Groups(stats.perRig), "[1] Javelin / Sabre2 / PD=3/166 2023-12-31..2025-03-02; "
                                    "=2/58 2024-02-29..2025-03-01; Rental=1/50 2024-01-01..2024-01-01");
    EXPECT_EQ(stats.perRig[0].rigNumber, 1);
    EXPECT_EQ(stats.perRig[0].previousJumps, 5);
    EXPECT_EQ(stats.perRig[0].sinceInspection, 2);
    EXPECT_EQ(stats.perRig[1].sinceInspection, -1);

    const CStatsRhythm& r = stats.rhythm;
    EXPECT_EQ(r.jumpingDays, 5);
    EXPECT_DOUBLE_EQ(r.jumpsPerJumpingDay, 1.2);
    EXPECT_EQ(r.mostJumpsInADay, 2);
    EXPECT_EQ(IsoDate(r.busiestDay), "2024-02-29");
    EXPECT_EQ(r.longestStreakDays, 2);
    EXPECT_EQ(IsoDate(r.longestStreakStart), "2023-12-31");
    EXPECT_EQ(r.longestGapDays, 366);
    EXPECT_EQ(IsoDate(r.longestGapFrom), "2024-02-29");
    EXPECT_EQ(IsoDate(r.longestGapTo), "2025-03-01");

    const CLicenceStatus licence = CLicenceStatus::Compute(stats, m_doc.GetSettings().GetLicenses());
    EXPECT_EQ(licence.progress.levelName, "A");
    EXPECT_FALSE(licence.progress.levelFromProfile);
    EXPECT_EQ(licence.progress.Text(), "B: 46 of 50 jumps, 24:34 of 30:00 freefall");
    EXPECT_EQ(licence.currency.Text(), "Lapsed since 2025-05-02 (304 days since the last jump, limit 60 days)");
}

// The level: named by the profile (the highest entry that names one) or else reached by the
// totals; the next level's requirements as text.
TEST(LicenceProgress, LevelFromProfileOrTotals)
{
    const struct
    {
        std::vector<std::string> licences;
        int jumps;
        int64_t freefall;
        const char* level;
        bool fromProfile;
        const char* text;
    } rows[] = {
        {{}, 0, 0, "", false, "A: 0 of 25 jumps"},
        {{"Drone pilot", "Tandem-I"}, 24, 5000, "", false, "A: 24 of 25 jumps"},
        {{}, 50, 1450, "A", false, "B: 50 of 50 jumps, 24:10 of 30:00 freefall"},
        {{}, 50, 1800, "B", false, "C: 50 of 200 jumps, 30:00 of 1:00:00 freefall"},
        {{}, 900, 20000, "D", false, "D reached"},
        {{"c 889", "Class D", "A-1"}, 10, 0, "C", true, "D: 10 of 500 jumps, 0:00 of 3:00:00 freefall"},
        {{"  D-12345"}, 10, 0, "D", true, "D reached"},
        {{"B12"}, 600, 99999, "B", true, "C: 600 of 200 jumps, 27:46:39 of 1:00:00 freefall"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.text);
        CLogbookStats stats;
        stats.totalJumps = row.jumps;
        stats.totalFreefallSeconds = row.freefall;
        const CLicenceProgress progress = CLicenceStatus::Compute(stats, row.licences).progress;
        EXPECT_EQ(progress.levelName, row.level);
        EXPECT_EQ(progress.levelFromProfile, row.fromProfile);
        EXPECT_EQ(progress.Text(), row.text);
    }
}

// Currency against the level's limit: due from 14 days before its end, lapsed the day after.
TEST(LicenceCurrency, StatesAroundTheLimit)
{
    const struct
    {
        std::vector<std::string> licences; // the level decides the limit
        int daysSince;                     // -1: no jump
        CCurrency::State state;
        const char* text;
    } rows[] = {
        {{}, -1, CCurrency::State::NoJumps, "No jump logged"},
        {{}, 15, CCurrency::State::Current, "Current: 15 days since the last jump (limit 30 days)"},
        {{}, 16, CCurrency::State::Due, "Due: a recurrency jump by 2026-01-31 (16 of 30 days)"},
        {{"B-1"}, 90, CCurrency::State::Due, "Due: a recurrency jump by 2026-04-01 (90 of 90 days)"},
        {{"B-1"}, 91, CCurrency::State::Lapsed, "Lapsed since 2026-04-02 (91 days since the last jump, limit 90 days)"},
        {{"D"}, 165, CCurrency::State::Current, "Current: 165 days since the last jump (limit 180 days)"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.text);
        CLogbookStats stats;
        if (row.daysSince >= 0) {
            stats.rhythm.lastJump = CDateTime(2026, 1, 1);
            stats.rhythm.daysSinceLastJump = row.daysSince;
        }
        const CCurrency currency = CLicenceStatus::Compute(stats, row.licences).currency;
        EXPECT_EQ(currency.state, row.state);
        EXPECT_EQ(currency.Text(), row.text);
    }
}

// An empty logbook: the months are still there, nothing else is, and the previous jumps count.
TEST(LogbookStatsEmpty, HasMonthsAndPreviousJumpsOnly)
{
    CLogbookDoc doc;
    CLogbookSettings settings;
    settings.SetPreviousJumps(30);
    settings.SetPreviousDelay(600);
    doc.ReplaceSettings(settings);
    const CLogbookStats stats = CLogbookStats::Compute(doc, CDateTime(2026, 11, 25));
    EXPECT_EQ(Months(stats.perMonth), "24 2024-12..2026-11");
    EXPECT_TRUE(stats.perYear.empty() && stats.perDropZone.empty() && stats.perRig.empty());
    EXPECT_EQ(stats.totalJumps, 30);
    const CLicenceStatus licence = CLicenceStatus::Compute(stats, {});
    EXPECT_EQ(licence.progress.Text(), "B: 30 of 50 jumps, 10:00 of 30:00 freefall");
    EXPECT_EQ(licence.currency.state, CCurrency::State::NoJumps);
}

} // namespace
