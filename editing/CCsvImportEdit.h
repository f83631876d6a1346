#pragma once

#include "editing/CCheckResult.h"
#include "formats/CCsvJumpImport.h"

#include <string_view>

class CLogbookDoc;

// The working values of the spreadsheet import: the table read from the file, the column of each
// jump field, the date form, the height unit and whether unsigned jumps of the same number are
// replaced; and the preview, the rows as they will be imported with the reason of each row that
// cannot be. OK applies the import to the logbook in one go.
class CCsvImportEdit
{
public:
    // The fields a failed check points at.
    enum Field
    {
        Dates = 0,
        Columns = 1,
    };

    // modified: the new jumps' time of change; offsetMinutes: the UTC offset their dates are in.
    CCsvImportEdit(const CLogbookDoc& doc, const CDateTime& modified, int offsetMinutes)
        : m_doc(doc), m_modified(modified), m_offset(offsetMinutes)
    {
    }

    // Reads the file's bytes and proposes columns, date form and units. Returns 0, or the string
    // table's message why the file is no table (the edit is unusable then).
    int Load(std::string_view bytes);

    const CCsvTable& Table() const { return m_table; }
    const CCsvMapping& Mapping() const { return m_mapping; }
    // The question the file's dates leave open (IDS_CSV_DATES_UNCLEAR or _MIXED), or 0.
    int DatesQuestion() const { return m_datesQuestion; }

    // A column (-1: none) for a field; a column another field had is taken from it.
    void SetColumn(JumpField field, int column);
    void SetDates(CsvDateOrder dates);
    void SetUnits(CsvHeightUnit units);
    void SetReplaceUnsigned(bool replace);

    // The rows with the working values, planned against the logbook; worked out again after a
    // change.
    const CCsvImportPlan& Preview();

    // The date form must be chosen (IDS_CSV_DATES_UNCLEAR, focus Dates), a column must hold the
    // dates (IDS_CSV_NO_DATE_COLUMN, focus Columns).
    CCheckResult Check();
    // Adds and replaces the jumps of the readable rows through the document's change calls; the
    // other rows are skipped. Returns how many jumps joined or changed.
    std::size_t Apply(CLogbookDoc& doc);

private:
    const CLogbookDoc& m_doc;
    CDateTime m_modified;
    int m_offset;
    CCsvTable m_table;
    CCsvMapping m_mapping;
    int m_datesQuestion = 0;
    CCsvImportPlan m_plan;
    bool m_planned = false;
};
