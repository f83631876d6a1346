#include "QueryTestLogbook.h"

#include "query/CJumpIndex.h"
#include "query/CQueryParser.h"
#include "units/CUnitSettings.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

using QueryTestLogbook::Numbers;

// Queries that between them read every part of an index entry.
const char* const kProbes[] = {"spa",      "utti",        "dz:eloy",     "rig:[2]",  "rig:javelin",
                               "n:2..100", "date:2024",   "exit:3000..", "ff:60..",  "signed:no",
                               "has:note", "kind:manual", "virtanen",    "team:sky", "-type:wingsuit"};

CQuery Parse(const char* text)
{
    return CQueryParser::Parse(text, CUnitSettings(CUnitSettings::Metric, 0, 0)).query;
}

// The index must answer every probe exactly as one built afresh from the document does.
void ExpectCurrent(const CJumpIndex& index, const CLogbookDoc& doc, const std::string& step)
{
    ASSERT_EQ(index.GetSize(), doc.GetJumpCount()) << step;
    const CJumpIndex fresh(doc);
    for (const char* probe : kProbes) {
        EXPECT_EQ(index.Find(Parse(probe)), fresh.Find(Parse(probe))) << step << ": " << probe;
        const std::vector<std::size_t> found = index.Find(Parse(probe));
        for (std::size_t i = 0; i < doc.GetJumpCount(); ++i) {
            const bool listed = std::find(found.begin(), found.end(), i) != found.end();
            EXPECT_EQ(index.Matches(Parse(probe), i), listed) << step << ": " << probe << " at " << i;
        }
    }
}

// The document is changed as the window changes it, and the index told what the document tells
// its observers.
TEST(JumpIndex, FollowsAddChangeMoveRemoveSettingsAndReload)
{
    CLogbookDoc doc;
    QueryTestLogbook::Fill(doc);
    CJumpIndex index(doc);
    ExpectCurrent(index, doc, "built");

    CJump* added = doc.AddJump(QueryTestLogbook::Jump(50, CDateTime(2024, 3, 1), "Utti", "Belly"));
    const auto addedAt = static_cast<std::size_t>(doc.IndexOf(added));
    index.JumpsInserted(addedAt, 1);
    EXPECT_EQ(Numbers(doc, index.Find(Parse("utti"))), std::vector<int>{50});
    ExpectCurrent(index, doc, "added");

    doc.BeginChangeJump(added);
    added->SetPlace("Skydive Spa");
    added->SetSignature("Zoë Laurent", {});
    doc.EndChangeJump(added);
    index.JumpsChanged(addedAt, 1);
    EXPECT_EQ(Numbers(doc, index.Find(Parse("dz:spa signed:yes"))), std::vector<int>{50});
    ExpectCurrent(index, doc, "changed");

    CJump* first = doc.GetJumps().front().get();
    doc.BeginChangeJump(first);
    first->SetNumber(450);
    doc.EndChangeJump(first);
    index.JumpMoved(0, doc.GetJumpCount() - 1);
    EXPECT_EQ(Numbers(doc, index.Find(Parse("n:401.."))), std::vector<int>{450});
    ExpectCurrent(index, doc, "moved down");

    CJump* last = doc.GetJumps().back().get();
    doc.BeginChangeJump(last);
    last->SetNumber(0);
    doc.EndChangeJump(last);
    index.JumpMoved(doc.GetJumpCount() - 1, 0);
    ExpectCurrent(index, doc, "moved up");

    doc.RemoveJump(2);
    doc.RemoveJump(2);
    index.JumpsRemoved(2, 2);
    ExpectCurrent(index, doc, "removed");

    doc.GetSettings().GetEquipmentList().Get(1).SetHarness("Javelin Odyssey");
    index.SettingsChanged();
    EXPECT_EQ(Numbers(doc, index.Find(Parse("rig:odyssey"))), std::vector<int>{2});
    ExpectCurrent(index, doc, "settings");

    doc.Clear();
    doc.AddJump(QueryTestLogbook::Jump(7, CDateTime(2020, 1, 1), "Utti", "Belly"));
    index.LogbookReset();
    EXPECT_EQ(Numbers(doc, index.Find(Parse("utti"))), std::vector<int>{7});
    ExpectCurrent(index, doc, "reloaded");
}

} // namespace
