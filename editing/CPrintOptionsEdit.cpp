#include "editing/CPrintOptionsEdit.h"

#include "document/CLogbookDoc.h"
#include "model/CJump.h"
#include "resources/StringTable.h"

#include <algorithm>
#include <climits>
#include <numeric>

void CPrintOptionsEdit::Load(const CLogbookDoc& doc, std::vector<std::size_t> shown, Paper defaultPaper)
{
    int lowest = INT_MAX, highest = INT_MIN;
    for (std::size_t i = 0; i < doc.GetJumpCount(); ++i) {
        lowest = std::min(lowest, doc.GetJump(i).GetNumber());
        highest = std::max(highest, doc.GetJump(i).GetNumber());
    }
    from = doc.GetJumpCount() ? std::clamp(lowest, 0, kMaxNumber) : 0;
    to = doc.GetJumpCount() ? std::clamp(highest, 0, kMaxNumber) : 0;
    m_shown = std::move(shown);
    scope = All;
    paper = defaultPaper;
    recordings = false;
}

CCheckResult CPrintOptionsEdit::Check(const CLogbookDoc& doc) const
{
    if (scope == Range) {
        if (CCheckResult result = CheckRange(from, 0, kMaxNumber, From); !result)
            return result;
        if (CCheckResult result = CheckRange(to, from, kMaxNumber, To); !result)
            return result;
    }
    if (scope == Range && Selection(doc).empty()) {
        return CCheckResult::Fail(StringTable::IDS_PRINT_NO_JUMPS, From, std::to_string(from), std::to_string(to));
    }
    return CCheckResult::Pass();
}

std::vector<std::size_t> CPrintOptionsEdit::Selection(const CLogbookDoc& doc) const
{
    std::vector<std::size_t> rows;
    if (scope == Range) {
        for (std::size_t i = 0; i < doc.GetJumpCount(); ++i) {
            if (doc.GetJump(i).GetNumber() >= from && doc.GetJump(i).GetNumber() <= to)
                rows.push_back(i);
        }
        return rows;
    }
    if (scope == Shown) {
        rows = m_shown;
        rows.erase(std::remove_if(rows.begin(), rows.end(), [&](std::size_t row) { return row >= doc.GetJumpCount(); }),
                   rows.end());
        return rows;
    }
    rows.resize(doc.GetJumpCount());
    std::iota(rows.begin(), rows.end(), std::size_t{0});
    return rows;
}
