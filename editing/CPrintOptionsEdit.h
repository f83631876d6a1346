#pragma once

#include "editing/CCheckResult.h"

#include <cstddef>
#include <vector>

class CLogbookDoc;

// The working values of the print options (for the printer and for a PDF file): which jumps,
// the paper and whether recordings get pages of their own. The jumps are the whole logbook, the
// jumps numbered from..to, or the jumps the window shows (a list of positions its caller gives).
class CPrintOptionsEdit
{
public:
    // The fields a failed check points at.
    enum Field
    {
        From = 0,
        To = 1
    };
    enum Scope
    {
        All = 0,
        Range = 1,
        Shown = 2
    };
    enum Paper
    {
        A4 = 0,
        Letter = 1
    };

    // The highest jump number the range takes.
    static constexpr int kMaxNumber = 999999;

    // The range from the lowest to the highest number of doc; shown (positions in doc's list) is
    // what Shown prints (empty: Shown is not offered). The paper is the caller's default.
    void Load(const CLogbookDoc& doc, std::vector<std::size_t> shown, Paper defaultPaper);
    bool CanPrintShown() const { return !m_shown.empty(); }

    // For a range: its numbers 0 to kMaxNumber (4009, on the field), from not above to (4009 on
    // To), and at least one jump in it (4301 on From).
    CCheckResult Check(const CLogbookDoc& doc) const;
    // The positions in doc's list of the jumps to print, in list order.
    std::vector<std::size_t> Selection(const CLogbookDoc& doc) const;

    int scope = All;
    int from = 0;
    int to = 0;
    int paper = A4;
    bool recordings = false;

private:
    std::vector<std::size_t> m_shown;
};
