#include "FuzzTargets.h"
#include "document/CLogbookDoc.h"
#include "formats/CCsvJumpImport.h"
#include "model/CJump.h"

#include <algorithm>
#include <string_view>

std::string FuzzCsvJumps(const std::uint8_t* data, std::size_t size)
{
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    const CCsvReadResult read = CCsvReader::Read(bytes);
    if (!read.ok)
        return read.messageId != 0 ? std::string() : "a refused file has no message";
    const std::size_t lines = static_cast<std::size_t>(std::count(bytes.begin(), bytes.end(), '\n') +
                                                       std::count(bytes.begin(), bytes.end(), '\r')) +
                              1;
    int previous = 0;
    for (const CCsvTable::Row& row : read.table.rows) {
        if (row.line <= previous || static_cast<std::size_t>(row.line) > lines)
            return "rows are not numbered by their rising lines";
        previous = row.line;
        for (const std::string& cell : row.cells)
            if (cell.size() > CCsvReader::kLongestCell)
                return "a cell is longer than the reader allows";
    }
    CCsvProposal proposal = CCsvJumpImport::Propose(read.table);
    if ((proposal.datesQuestion != 0) != (proposal.mapping.dates == CsvDateOrder::Unknown))
        return "the date form is unknown without a question, or asked about while known";
    for (CsvDateOrder order : {CsvDateOrder::DayFirst, CsvDateOrder::MonthFirst}) {
        CCsvMapping mapping = proposal.mapping;
        if (mapping.dates == CsvDateOrder::Unknown)
            mapping.dates = order;
        if (mapping[JumpField::Date] < 0)
            mapping[JumpField::Date] = 0;
        CLogbookDoc doc;
        CCsvImportPlan plan = CCsvJumpImport::Plan(read.table, mapping, doc, CDateTime(2026, 1, 1), 0);
        if (plan.messageId != 0)
            return "a mapping with a date column was refused";
        if (plan.rows.size() != read.table.rows.size() || plan.added + plan.skipped != plan.rows.size() ||
            plan.replaced != 0)
            return "the plan's counts do not add up to its rows";
        for (const CCsvPlannedRow& row : plan.rows) {
            if (row.Taken() == (row.problem.id != 0))
                return "a row is both taken and refused, or neither";
            if (row.Taken() && (row.jump->GetNumber() < 1 || !row.jump->GetTimestamp().dateTime.IsValid()))
                return "a taken row has no number or no valid date";
        }
        if (CCsvJumpImport::Apply(plan, doc) != plan.added || doc.GetJumpCount() != plan.added)
            return "the logbook did not take every planned jump";
    }
    return {};
}
