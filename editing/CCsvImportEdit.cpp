#include "editing/CCsvImportEdit.h"

#include "resources/StringTable.h"

int CCsvImportEdit::Load(std::string_view bytes)
{
    CCsvReadResult read = CCsvReader::Read(bytes);
    if (!read.ok)
        return read.messageId;
    m_table = std::move(read.table);
    const CCsvProposal proposal = CCsvJumpImport::Propose(m_table);
    m_mapping = proposal.mapping;
    m_datesQuestion = proposal.datesQuestion;
    m_planned = false;
    return 0;
}

void CCsvImportEdit::SetColumn(JumpField field, int column)
{
    if (column >= 0) {
        for (int& other : m_mapping.column)
            if (other == column)
                other = -1;
    }
    m_mapping[field] = column;
    m_planned = false;
}

void CCsvImportEdit::SetDates(CsvDateOrder dates)
{
    m_mapping.dates = dates;
    m_planned = false;
}

void CCsvImportEdit::SetUnits(CsvHeightUnit units)
{
    m_mapping.units = units;
    m_planned = false;
}

void CCsvImportEdit::SetReplaceUnsigned(bool replace)
{
    m_mapping.replaceUnsigned = replace;
    m_planned = false;
}

const CCsvImportPlan& CCsvImportEdit::Preview()
{
    if (!m_planned) {
        m_plan = CCsvJumpImport::Plan(m_table, m_mapping, m_doc, m_modified, m_offset);
        m_planned = true;
    }
    return m_plan;
}

CCheckResult CCsvImportEdit::Check()
{
    if (m_mapping.dates == CsvDateOrder::Unknown)
        return CCheckResult::Fail(m_datesQuestion != 0 ? m_datesQuestion : StringTable::IDS_CSV_DATES_UNCLEAR, Dates);
    if (Preview().messageId != 0)
        return CCheckResult::Fail(m_plan.messageId, Columns);
    return CCheckResult::Pass();
}

std::size_t CCsvImportEdit::Apply(CLogbookDoc& doc)
{
    if (!Check())
        return 0;
    const std::size_t done = CCsvJumpImport::Apply(m_plan, doc);
    m_planned = false;
    return done;
}
