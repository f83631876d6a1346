#include "editing/CPrintOptionsEdit.h"
#include "document/CLogbookDoc.h"
#include "model/CJump.h"
#include "resources/StringTable.h"

#include <gtest/gtest.h>

namespace {

TEST(PrintOptionsEdit, ChecksTheRangeAndSelectsInListOrder)
{
    // The logbook keeps its jumps in number order: 10, 11, 12, 20.
    CLogbookDoc doc;
    const CZonedDateTime when{CDateTime(2024, 5, 1, 10, 0, 0), 0};
    for (int number : {12, 10, 11, 20})
        doc.AddJump(std::make_unique<CJump>(number, when, when.dateTime));
    CPrintOptionsEdit edit;
    edit.Load(doc, {3, 0}, CPrintOptionsEdit::Letter);
    EXPECT_EQ(edit.from, 10);
    EXPECT_EQ(edit.to, 20);
    EXPECT_EQ(edit.paper, CPrintOptionsEdit::Letter);
    EXPECT_TRUE(edit.CanPrintShown());

    struct Case
    {
        int scope, from, to;
        int messageId, field;
        std::vector<std::size_t> selection;
    } const cases[] = {
        {CPrintOptionsEdit::All, 50, 40, 0, -1, {0, 1, 2, 3}},
        {CPrintOptionsEdit::Range, 11, 12, 0, -1, {1, 2}},
        {CPrintOptionsEdit::Range, 13, 19, StringTable::IDS_PRINT_NO_JUMPS, CPrintOptionsEdit::From, {}},
        {CPrintOptionsEdit::Range, 12, 11, StringTable::IDS_VALUE_RANGE, CPrintOptionsEdit::To, {}},
        {CPrintOptionsEdit::Range, -1, 11, StringTable::IDS_VALUE_RANGE, CPrintOptionsEdit::From, {0, 1}},
        {CPrintOptionsEdit::Shown, 0, 0, 0, -1, {3, 0}},
    };
    for (const Case& c : cases) {
        edit.scope = c.scope;
        edit.from = c.from;
        edit.to = c.to;
        const CCheckResult result = edit.Check(doc);
        EXPECT_EQ(result.messageId, c.messageId) << c.scope << " " << c.from << ".." << c.to;
        EXPECT_EQ(result.field, c.field) << c.scope << " " << c.from << ".." << c.to;
        EXPECT_EQ(edit.Selection(doc), c.selection) << c.scope << " " << c.from << ".." << c.to;
    }
}

} // namespace
