#include "QueryTestLogbook.h"

#include "query/CJumpIndex.h"
#include "query/CQueryParser.h"
#include "units/CUnitSettings.h"

#include <functional>
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

// The document is changed as the window changes it, and the index, one of its observers, follows.
TEST(JumpIndex, FollowsAddChangeMoveRemoveSettingsAndReload)
{
    CLogbookDoc doc;
    QueryTestLogbook::Fill(doc);
    CJumpIndex index(doc);
    doc.AddObserver(&index);
    ExpectCurrent(index, doc, "built");
    const auto change = [&doc](std::size_t position, const std::function<void(CJump&)>& edit) {
        doc.ChangeJump(position, [&](CJump& jump) {
            edit(jump);
            return true;
        });
    };

    const CJump* added = doc.AddJump(QueryTestLogbook::Jump(50, CDateTime(2024, 3, 1), "Utti", "Belly"));
    EXPECT_EQ(Numbers(doc, index.Find(Parse("utti"))), std::vector<int>{50});
    ExpectCurrent(index, doc, "added");

    change(static_cast<std::size_t>(doc.IndexOf(added)), [](CJump& jump) {
        jump.SetPlace("Skydive Spa");
        jump.SetSignature("Zoë Laurent", {});
    });
    EXPECT_EQ(Numbers(doc, index.Find(Parse("dz:spa signed:yes"))), std::vector<int>{50});
    ExpectCurrent(index, doc, "changed");

    change(0, [](CJump& jump) { jump.SetNumber(450); });
    EXPECT_EQ(Numbers(doc, index.Find(Parse("n:401.."))), std::vector<int>{450});
    ExpectCurrent(index, doc, "moved down");

    change(doc.GetJumpCount() - 1, [](CJump& jump) { jump.SetNumber(0); });
    ExpectCurrent(index, doc, "moved up");

    doc.RemoveJumps({2, 3});
    ExpectCurrent(index, doc, "removed");

    CLogbookSettings settings = doc.GetSettings();
    settings.GetEquipmentList().Get(1).SetHarness("Javelin Odyssey");
    doc.ReplaceSettings(settings);
    EXPECT_EQ(Numbers(doc, index.Find(Parse("rig:odyssey"))), std::vector<int>{2});
    ExpectCurrent(index, doc, "settings");

    doc.Clear();
    doc.AddJump(QueryTestLogbook::Jump(7, CDateTime(2020, 1, 1), "Utti", "Belly"));
    EXPECT_EQ(Numbers(doc, index.Find(Parse("utti"))), std::vector<int>{7});
    ExpectCurrent(index, doc, "reloaded");
    doc.RemoveObserver(&index);
}

} // namespace
