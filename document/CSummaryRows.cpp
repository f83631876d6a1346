#include "document/CSummaryRows.h"

#include "document/CLogbookDoc.h"
#include "document/CLogbookTotals.h"
#include "resources/StringTable.h"
#include "units/CUnitSettings.h"
#include "units/DurationText.h"
#include "units/RoundValue.h"

#include <algorithm>
#include <climits>
#include <cstdio>

namespace {

CSummaryRow LabelledRow(int labelId, std::string_view unit, CSummaryRow::Kind kind)
{
    CSummaryRow row;
    row.labelId = labelId;
    row.unit = unit;
    row.kind = kind;
    return row;
}

CSummaryRow NumberRow(int labelId, std::string_view unit, double whole)
{
    CSummaryRow row = LabelledRow(labelId, unit, CSummaryRow::Kind::Number);
    // "+ 0.0" turns a negative zero into a plain 0.
    row.number = whole + 0.0;
    char text[64];
    std::snprintf(text, sizeof text, "%.0f", row.number);
    row.value = text;
    return row;
}

CSummaryRow DistanceRow(int labelId, double metres, const CUnitSettings& units)
{
    return NumberRow(labelId, units.DistanceLabel(), RoundValue(units.DistanceToDisplay(metres), RoundHalfUp, 0));
}

} // namespace

CSummaryRows::Rows CSummaryRows::BuildOf(const CLogbookDoc& doc, const CUnitSettings& units,
                                         std::span<const std::size_t> jumps)
{
    CLogbookTotals totals;
    std::size_t last = 0;
    std::size_t counted = 0;
    for (const std::size_t position : jumps) {
        if (position >= doc.GetJumpCount())
            continue;
        totals.Add(doc.GetJump(position), doc.GetSettings());
        last = counted++ == 0 ? position : std::max(last, position);
    }
    CLogbookSummary summary;
    summary.numberOfJumps = static_cast<int>(counted);
    summary.freefallSeconds = totals.FreefallSeconds();
    summary.freefallMetres = static_cast<double>(totals.FreefallMetres());
    summary.canopyMetres = static_cast<double>(totals.CanopyMetres());
    if (counted > 0)
        summary.lastJump = doc.GetJump(last).GetTimestamp().dateTime.DateOnly();
    return FromSummary(summary, units);
}

CSummaryRows::Rows CSummaryRows::Build(const CLogbookDoc& doc, const CUnitSettings& units)
{
    return FromSummary(doc.GetSummary(), units);
}

CSummaryRows::Rows CSummaryRows::FromSummary(const CLogbookSummary& summary, const CUnitSettings& units)
{
    using namespace StringTable;

    CSummaryRow time = LabelledRow(IDS_FREEFALL_TIME, {}, CSummaryRow::Kind::Duration);
    // The duration text counts signed 32-bit seconds; an absurd file's total stays within them.
    time.value = DurationToText(static_cast<int>(std::clamp<int64_t>(summary.freefallSeconds, INT_MIN, INT_MAX)), true);

    CSummaryRow last = LabelledRow(IDS_LAST_JUMP, {}, CSummaryRow::Kind::Date);
    last.date = summary.lastJump;
    if (last.date.IsValid()) {
        char text[32];
        std::snprintf(text, sizeof text, "%04d-%02d-%02d", last.date.Year(), last.date.Month(), last.date.Day());
        last.value = text;
    }

    return {NumberRow(IDS_NUMBER_OF_JUMPS, {}, summary.numberOfJumps), time,
            DistanceRow(IDS_FREEFALL_DIST, summary.freefallMetres, units),
            DistanceRow(IDS_CANOPY_DIST, summary.canopyMetres, units), last};
}
