#include "document/CLogbookDoc.h"
#include "formats/CLogbookPagePlan.h"
#include "model/CJump.h"

#include <gtest/gtest.h>

namespace {

TEST(LogbookPagePlan, RowsPerPageAndPageCount)
{
    struct Case
    {
        double body, row;
        int rows;
        std::size_t rowCount;
        int pages;
    } const cases[] = {
        {400.0, 30.0, 13, 0, 1}, {400.0, 30.0, 13, 13, 1}, {400.0, 30.0, 13, 14, 2},      {390.0, 30.0, 13, 27, 3},
        {20.0, 30.0, 1, 3, 3},   {400.0, 0.0, 1, 2, 2},    {1000.0, 10.0, 100, 1000, 10},
    };
    for (const Case& c : cases) {
        const int rows = CLogbookPagePlan::RowsPerPage(c.body, c.row);
        EXPECT_EQ(rows, c.rows) << c.body << "/" << c.row;
        EXPECT_EQ(CLogbookPagePlan::RowPageCount(c.rowCount, rows), c.pages) << c.rowCount << " rows";
    }
}

TEST(LogbookPagePlan, PagesCarryTheirTotalsForward)
{
    // Five rows, two a page, details after rows 1 and 4, 10 jumps and 100 s brought in.
    const std::vector<CLogbookPagePlan::Row> rows = {{40, false}, {50, true}, {60, false}, {0, false}, {45, true}};
    const auto pages = CLogbookPagePlan::Plan(rows, 2, {10, 100});
    struct Expected
    {
        CPrintedPage::Kind kind;
        std::size_t first, count;
        CPageTotals page, brought, carried;
    } const expected[] = {
        {CPrintedPage::Rows, 0, 2, {2, 90}, {10, 100}, {12, 190}},
        {CPrintedPage::Detail, 1, 1, {}, {}, {}},
        {CPrintedPage::Rows, 2, 2, {2, 60}, {12, 190}, {14, 250}},
        {CPrintedPage::Rows, 4, 1, {1, 45}, {14, 250}, {15, 295}},
        {CPrintedPage::Detail, 4, 1, {}, {}, {}},
    };
    ASSERT_EQ(pages.size(), std::size(expected));
    for (std::size_t i = 0; i < pages.size(); ++i) {
        const CPrintedPage& p = pages[i];
        const Expected& e = expected[i];
        EXPECT_EQ(p.kind, e.kind) << "page " << i;
        EXPECT_EQ(p.first, e.first) << "page " << i;
        EXPECT_EQ(p.count, e.count) << "page " << i;
        EXPECT_EQ(p.page, e.page) << "page " << i;
        EXPECT_EQ(p.broughtForward, e.brought) << "page " << i;
        EXPECT_EQ(p.carriedForward, e.carried) << "page " << i;
    }
    // No rows: one page that brings and carries the same totals.
    const auto empty = CLogbookPagePlan::Plan({}, 5, {3, 30});
    ASSERT_EQ(empty.size(), 1u);
    EXPECT_EQ(empty[0].count, 0u);
    EXPECT_EQ(empty[0].carriedForward, (CPageTotals{3, 30}));
}

TEST(LogbookPagePlan, RangeSelectionBringsEarlierJumpsForward)
{
    CLogbookDoc doc;
    CLogbookSettings settings = doc.GetSettings();
    settings.SetPreviousJumps(100);
    settings.SetPreviousDelay(3600);
    doc.ReplaceSettings(settings);
    const CZonedDateTime when{CDateTime(2024, 5, 1, 10, 0, 0), 0};
    for (int number : {101, 102, 104, 103, 105}) {
        auto jump = std::make_unique<CJump>(number, when, when.dateTime);
        jump->SetFallrate(FallrateKind::Manual, 4000, 1000, number - 90, 0.0, 0.0);
        doc.AddJump(std::move(jump));
    }
    struct Case
    {
        int from, to;
        std::vector<std::size_t> selection;
        CPageTotals brought;
    } const cases[] = {
        {0, 1000, {0, 1, 2, 3, 4}, {100, 3600}},
        {103, 104, {2, 3}, {102, 3600 + 11 + 12}},
        {105, 105, {4}, {104, 3600 + 11 + 12 + 14 + 13}},
        {200, 300, {}, {100, 3600}},
    };
    for (const Case& c : cases) {
        const auto selection = CLogbookPagePlan::SelectNumbers(doc, c.from, c.to);
        EXPECT_EQ(selection, c.selection) << c.from << ".." << c.to;
        EXPECT_EQ(CLogbookPagePlan::BroughtForward(doc, selection), c.brought) << c.from << ".." << c.to;
    }
}

TEST(LogbookPagePlan, SimplifyStrokeKeepsEndsAndSpacedPoints)
{
    struct Case
    {
        std::vector<CPoint> stroke;
        double distance;
        std::vector<CPoint> kept;
    } const cases[] = {
        {{{0, 0}, {1, 0}, {2, 0}, {3, 0}, {10, 0}}, 2.5, {{0, 0}, {3, 0}, {10, 0}}},
        {{{0, 0}, {0, 1}, {0, 1}}, 5.0, {{0, 0}, {0, 1}}},
        {{{0, 0}, {1, 1}, {2, 2}}, 0.0, {{0, 0}, {1, 1}, {2, 2}}},
        {{{5, 5}}, 10.0, {{5, 5}}},
    };
    for (const Case& c : cases)
        EXPECT_EQ(CLogbookPagePlan::SimplifyStroke(c.stroke, c.distance), c.kept) << c.stroke.size() << " points";
}

} // namespace
