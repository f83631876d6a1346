#include "formats/CLogbookPagePlan.h"

#include "document/CLogbookDoc.h"
#include "model/CJump.h"

#include <algorithm>
#include <cmath>

int CLogbookPagePlan::RowsPerPage(double bodyHeight, double rowHeight)
{
    if (!(rowHeight > 0.0) || !(bodyHeight > 0.0))
        return 1;
    // A hair of tolerance so that rows that fit exactly are not lost to rounding.
    const double rows = std::floor(bodyHeight / rowHeight + 1e-9);
    return std::max(1, static_cast<int>(std::min(rows, 1e6)));
}

int CLogbookPagePlan::RowPageCount(std::size_t rowCount, int rowsPerPage)
{
    const std::size_t perPage = static_cast<std::size_t>(std::max(1, rowsPerPage));
    return std::max(1, static_cast<int>((rowCount + perPage - 1) / perPage));
}

std::vector<CPrintedPage> CLogbookPagePlan::Plan(const std::vector<Row>& rows, int rowsPerPage, CPageTotals before)
{
    const std::size_t perPage = static_cast<std::size_t>(std::max(1, rowsPerPage));
    std::vector<CPrintedPage> pages;
    CPageTotals carried = before;
    std::size_t first = 0;
    do {
        CPrintedPage page;
        page.first = first;
        page.count = std::min(perPage, rows.size() - first);
        page.broughtForward = carried;
        for (std::size_t row = first; row < first + page.count; ++row)
            page.page += CPageTotals{1, rows[row].freefallSeconds};
        carried += page.page;
        page.carriedForward = carried;
        pages.push_back(page);
        for (std::size_t row = first; row < first + page.count; ++row) {
            if (rows[row].detail) {
                CPrintedPage detail;
                detail.kind = CPrintedPage::Detail;
                detail.first = row;
                detail.count = 1;
                pages.push_back(detail);
            }
        }
        first += page.count;
    } while (first < rows.size());
    return pages;
}

std::vector<std::size_t> CLogbookPagePlan::SelectNumbers(const CLogbookDoc& doc, int from, int to)
{
    std::vector<std::size_t> selection;
    for (std::size_t i = 0; i < doc.GetJumpCount(); ++i) {
        const int number = doc.GetJump(i).GetNumber();
        if (number >= from && number <= to)
            selection.push_back(i);
    }
    return selection;
}

CPageTotals CLogbookPagePlan::BroughtForward(const CLogbookDoc& doc, const std::vector<std::size_t>& selection)
{
    const CLogbookSettings& settings = doc.GetSettings();
    CPageTotals totals{settings.GetPreviousJumps(), settings.GetPreviousDelay()};
    const std::size_t end = selection.empty() ? 0 : std::min(selection.front(), doc.GetJumpCount());
    for (std::size_t i = 0; i < end; ++i)
        totals += CPageTotals{1, doc.GetJump(i).FreefallTime(settings)};
    return totals;
}

std::vector<CPoint> CLogbookPagePlan::SimplifyStroke(const std::vector<CPoint>& stroke, double minDistance)
{
    if (stroke.size() <= 2)
        return stroke;
    std::vector<CPoint> kept;
    kept.push_back(stroke.front());
    const double limit = minDistance * minDistance;
    for (std::size_t i = 1; i + 1 < stroke.size(); ++i) {
        const double dx = stroke[i].x - kept.back().x;
        const double dy = stroke[i].y - kept.back().y;
        if (dx * dx + dy * dy >= limit)
            kept.push_back(stroke[i]);
    }
    kept.push_back(stroke.back());
    return kept;
}
