#pragma once

#include "model/CPoint.h"

#include <cstddef>
#include <cstdint>
#include <vector>

class CLogbookDoc;

// Jumps and freefall seconds added up over some rows of the printed logbook.
struct CPageTotals
{
    int jumps = 0;
    std::int64_t freefallSeconds = 0;

    CPageTotals& operator+=(const CPageTotals& other)
    {
        jumps += other.jumps;
        freefallSeconds += other.freefallSeconds;
        return *this;
    }
    friend bool operator==(const CPageTotals&, const CPageTotals&) = default;
};

// One printed page: a page of rows (the rows first .. first + count - 1 of the selection, with
// the page's totals, those brought forward from the pages before and those carried forward), or
// the detail page of one row's recording, which follows the page holding that row.
struct CPrintedPage
{
    enum Kind
    {
        Rows,
        Detail
    };
    Kind kind = Rows;
    // Rows: the first row and the number of rows. Detail: first is the row, count 1.
    std::size_t first = 0;
    std::size_t count = 0;
    CPageTotals page;
    CPageTotals broughtForward;
    CPageTotals carriedForward;
};

// The arithmetic of the printed logbook: how many rows fit a page, which rows go on which page,
// and the totals at the foot of each page. Rows never split, so a page takes whole rows only.
class CLogbookPagePlan
{
public:
    // One selected jump as the plan sees it.
    struct Row
    {
        int freefallSeconds = 0;
        // A detail page follows the row's page.
        bool detail = false;
    };

    // Whole rows of rowHeight that fit in bodyHeight; at least 1 so that a page always advances.
    static int RowsPerPage(double bodyHeight, double rowHeight);
    // Pages of rows for rowCount rows (0 rows still print one page, holding the totals).
    static int RowPageCount(std::size_t rowCount, int rowsPerPage);

    // The pages for rows: rowsPerPage rows a page, each row's detail page after its row's page in
    // row order. before is what the first page brings forward (the jumps and freefall time made
    // before the logbook and those of the logbook's jumps before the first printed one); each
    // page carries forward what it brought plus its own totals, and the next page brings that.
    static std::vector<CPrintedPage> Plan(const std::vector<Row>& rows, int rowsPerPage, CPageTotals before);

    // The positions in list order of the jumps numbered from..to (both included).
    static std::vector<std::size_t> SelectNumbers(const CLogbookDoc& doc, int from, int to);
    // What the first page brings forward when printing selection (positions in list order): the
    // preferences' jumps and freefall time before the logbook plus the logbook's jumps before the
    // first selected one.
    static CPageTotals BroughtForward(const CLogbookDoc& doc, const std::vector<std::size_t>& selection);

    // A stroke with the points dropped that lie closer than minDistance to the last point kept
    // (the last point always stays, so a stroke keeps its ends).
    static std::vector<CPoint> SimplifyStroke(const std::vector<CPoint>& stroke, double minDistance);
};
