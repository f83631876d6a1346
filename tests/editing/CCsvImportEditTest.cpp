#include "editing/CCsvImportEdit.h"
#include "document/CLogbookDoc.h"
#include "resources/StringTable.h"

#include <gtest/gtest.h>

namespace {

TEST(CsvImportEdit, ChecksTheDateFormAndColumnBeforeApplying)
{
    const struct
    {
        const char* name;
        const char* csv;
        // -1: leave as proposed
        int dateColumn;
        CsvDateOrder dates;
        int messageId;
        int field;
        std::size_t applied;
    } cases[] = {
        {"dates read both ways", "Date,DZ\n01/02/2024,A\n", -1, CsvDateOrder::Unknown,
         StringTable::IDS_CSV_DATES_UNCLEAR, CCsvImportEdit::Dates, 0},
        {"chosen", "Date,DZ\n01/02/2024,A\n", -1, CsvDateOrder::MonthFirst, 0, -1, 1},
        {"no date column", "When,DZ\n2024-01-02,A\n", -1, CsvDateOrder::Iso, StringTable::IDS_CSV_NO_DATE_COLUMN,
         CCsvImportEdit::Columns, 0},
        {"date column given", "When,DZ\n2024-01-02,A\n", 0, CsvDateOrder::Iso, 0, -1, 1},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        CLogbookDoc doc;
        CCsvImportEdit edit(doc, CDateTime(2024, 7, 1), 0);
        ASSERT_EQ(edit.Load(c.csv), 0);
        if (c.dateColumn >= 0)
            edit.SetColumn(JumpField::Date, c.dateColumn);
        if (c.dates != CsvDateOrder::Unknown)
            edit.SetDates(c.dates);
        const CCheckResult check = edit.Check();
        EXPECT_EQ(check.messageId, c.messageId);
        EXPECT_EQ(check.field, c.field);
        EXPECT_EQ(edit.Apply(doc), c.applied);
        EXPECT_EQ(doc.GetJumpCount(), c.applied);
    }
}

} // namespace
