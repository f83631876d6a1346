#include "document/CLogbookDoc.h"
#include "document/ILogbookObserver.h"
#include "tests/document/DocTestFiles.h"

#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <stdexcept>
#include <thread>

namespace {

// Writes down what the document announces, one word per call.
class CEventLog : public ILogbookObserver
{
public:
    void JumpsInserted(std::size_t first, std::size_t count) override { Add("ins", first, count); }
    void JumpsChanged(std::size_t first, std::size_t count) override { Add("chg", first, count); }
    void JumpsRemoved(std::size_t first, std::size_t count) override { Add("rem", first, count); }
    void JumpMoved(std::size_t from, std::size_t to) override { Add("mov", from, to); }
    void SettingsChanged() override { events += "set;"; }
    void LogbookReset() override { events += "reset;"; }

    std::string events;

private:
    void Add(const char* what, std::size_t a, std::size_t b)
    {
        events += std::string(what) + " " + std::to_string(a) + " " + std::to_string(b) + ";";
    }
};

// Jumps 1, 2, 3 and 5; jump n falls from 3000 + 100 n to 1000 with the custom fall rate and
// names rig n - 1 of rigs [1], [2], [3] by position.
void Fill(CLogbookDoc& doc)
{
    CLogbookSettings settings;
    for (int n = 1; n <= 3; ++n)
        settings.GetEquipmentList().Add(std::make_unique<CEquipment>(n));
    doc.ReplaceSettings(settings);
    for (int n : {5, 1, 3, 2}) {
        auto jump = MakeJump(n, "Zone " + std::to_string(n));
        jump->SetFallrateValues({FallrateKind::Custom, 3000 + 100 * n, 1000, 0, 0, 0, 0});
        jump->SetEquipmentByIndex(n - 1);
        doc.AddJump(std::move(jump));
    }
    doc.SetModified(false);
}

std::string Numbers(const CLogbookDoc& doc)
{
    std::string text;
    for (const CJump* jump : doc.GetJumps())
        text += std::to_string(jump->GetNumber()) + " ";
    return text;
}

// The totals counted from the jumps as they stand.
void ExpectTotalsMatchJumps(const CLogbookDoc& doc, const std::string& row)
{
    int64_t metres = 0, seconds = 0;
    for (const CJump* jump : doc.GetJumps()) {
        metres += jump->GetFreefallDistance();
        seconds += jump->FreefallTime(doc.GetSettings());
    }
    EXPECT_EQ(doc.GetTotalFreefallDistance(), metres) << row;
    EXPECT_EQ(doc.GetTotalFreefallTime(), seconds) << row;
}

} // namespace

TEST(CLogbookDocChange, EachChangeKeepsTotalsOrderAndTellsObservers)
{
    using Change = std::function<void(CLogbookDoc&)>;
    const auto setPlace = [](std::size_t index, std::string place) {
        return [=](CLogbookDoc& doc) { doc.ChangeJump(index, [&](CJump& j) { return j.SetPlace(place); }); };
    };
    struct Row
    {
        const char* name;
        Change change;
        const char* events;
        const char* numbers;
        bool modified;
    };
    const Row rows[] = {
        {"add between", [](CLogbookDoc& d) { d.AddJump(MakeJump(4, "x")); }, "ins 3 1;", "1 2 3 4 5 ", true},
        {"add equal number after its twin", [](CLogbookDoc& d) { d.AddJump(MakeJump(2, "x")); }, "ins 2 1;",
         "1 2 2 3 5 ", true},
        {"change in place", setPlace(1, "Utti"), "chg 1 1;", "1 2 3 5 ", true},
        {"change that changes nothing", setPlace(1, "Zone 2"), "", "1 2 3 5 ", false},
        {"renumber past the end",
         [](CLogbookDoc& d) {
             d.ChangeJump(0, [](CJump& j) {
                 j.SetFallrateValues({FallrateKind::Manual, 4000, 1000, 60, 0, 0, 0});
                 return j.SetNumber(9);
             });
         },
         "mov 0 3;chg 3 1;", "2 3 5 9 ", true},
        {"renumber to the front", [](CLogbookDoc& d) { d.ChangeJump(3, [](CJump& j) { return j.SetNumber(0); }); },
         "mov 3 0;chg 0 1;", "0 1 2 3 ", true},
        {"remove one", [](CLogbookDoc& d) { d.RemoveJump(2); }, "rem 2 1;", "1 2 5 ", true},
        {"remove several, last run first",
         [](CLogbookDoc& d) {
             d.RemoveJumps({3, 0, 2, 3, 17});
         },
         "rem 2 2;rem 0 1;", "2 ", true},
        {"remove none", [](CLogbookDoc& d) { d.RemoveJumps({4}); }, "", "1 2 3 5 ", false},
        {"custom fall rate recounts freefall time",
         [](CLogbookDoc& d) {
             CLogbookSettings s = d.GetSettings();
             s.SetCustomFallrateSpeed(80.0);
             d.ReplaceSettings(s);
         },
         "set;", "1 2 3 5 ", true},
        {"same settings", [](CLogbookDoc& d) { d.ReplaceSettings(CLogbookSettings(d.GetSettings())); }, "", "1 2 3 5 ",
         false},
        {"rigs: [1] removed, [3] moves to the front",
         [](CLogbookDoc& d) {
             CEquipmentList rigs;
             rigs.Add(std::make_unique<CEquipment>(3));
             rigs.Add(std::make_unique<CEquipment>(2));
             d.ReplaceEquipment(rigs, {-1, 1, 0});
         },
         "chg 0 1;chg 2 1;set;", "1 2 3 5 ", true},
        {"clear", [](CLogbookDoc& d) { d.Clear(); }, "reset;", "", false},
    };
    for (const Row& row : rows) {
        CLogbookDoc doc;
        Fill(doc);
        CEventLog log;
        doc.AddObserver(&log);
        const std::uint64_t before = doc.GetChangeCount();
        row.change(doc);
        EXPECT_EQ(log.events, row.events) << row.name;
        EXPECT_EQ(Numbers(doc), row.numbers) << row.name;
        EXPECT_EQ(doc.IsModified(), row.modified) << row.name;
        EXPECT_EQ(doc.GetChangeCount() > before, row.modified || std::string(row.events) == "reset;") << row.name;
        ExpectTotalsMatchJumps(doc, row.name);
        doc.RemoveObserver(&log);
    }
}

TEST(CLogbookDocChange, RigRepointingFollowsEachRigOrKeepsItsText)
{
    CLogbookDoc doc;
    Fill(doc);
    const std::string firstRig = doc.GetSettings().GetEquipmentList().Get(0).GetDisplayText();
    CEquipmentList rigs;
    rigs.Add(std::make_unique<CEquipment>(3));
    rigs.Add(std::make_unique<CEquipment>(2));
    ASSERT_TRUE(doc.ReplaceEquipment(rigs, {-1, 1, 0}));
    // Jump 1 named rig [1], now gone: its text stays. Jump 2 follows [2] to position 1, jump 3
    // follows [3] to position 0; jump 5 named no rig in range and stays as it was.
    EXPECT_EQ(doc.GetJump(0).GetEquipmentRef().mode, CJumpEquipmentRef::ByDescription);
    EXPECT_EQ(doc.GetJump(0).GetEquipmentText(rigs), firstRig);
    EXPECT_EQ(doc.GetJump(1).GetEquipmentRef().index, 1);
    EXPECT_EQ(doc.GetJump(2).GetEquipmentRef().index, 0);
    EXPECT_EQ(doc.GetJump(3).GetEquipmentRef().index, 4);
    EXPECT_TRUE(doc.GetSettings().GetEquipmentList() == rigs);
    EXPECT_FALSE(doc.ReplaceEquipment(rigs, {0, 1}));
}

TEST(CLogbookDocChange, AThrowingChangeStillLeavesTotalsRightAndIsAnnounced)
{
    CLogbookDoc doc;
    Fill(doc);
    CEventLog log;
    doc.AddObserver(&log);
    EXPECT_THROW(doc.ChangeJump(1,
                                [](CJump& j) -> bool {
                                    j.SetFallrateValues({FallrateKind::Manual, 9000, 1000, 100, 0, 0, 0});
                                    throw std::runtime_error("disk full");
                                }),
                 std::runtime_error);
    EXPECT_EQ(log.events, "chg 1 1;");
    EXPECT_TRUE(doc.IsModified());
    ExpectTotalsMatchJumps(doc, "throwing change");
    doc.RemoveObserver(&log);
}

// A running save copies the jumps on its own thread; until it has, every change of a jump waits,
// so that the save writes the logbook as it was when the save began.
TEST(CLogbookDocChange, ChangesOfJumpsWaitForARunningSavesCopy)
{
    const std::pair<const char*, std::function<void(CLogbookDoc&)>> rows[] = {
        {"change", [](CLogbookDoc& d) { d.ChangeJump(0, [](CJump& j) { return j.SetPlace("Later"); }); }},
        {"add", [](CLogbookDoc& d) { d.AddJump(MakeJump(0, "Later")); }},
        {"remove", [](CLogbookDoc& d) { d.RemoveJumps({0}); }},
        {"rig re-pointing", [](CLogbookDoc& d) { d.ReplaceEquipment(CEquipmentList(), {}); }},
    };
    for (const auto& [name, change] : rows) {
        CLogbookDoc doc;
        Fill(doc);
        std::unique_ptr<CLogbookDoc> snapshot = doc.Snapshot();
        std::atomic<bool> done = false;
        std::thread editor([&, change = change] {
            change(doc);
            done = true;
        });
        std::this_thread::sleep_for(std::chrono::milliseconds(50));
        EXPECT_FALSE(done) << name;
        snapshot->CopyJumps();
        editor.join();
        EXPECT_TRUE(done) << name;
        EXPECT_EQ(snapshot->GetJumpCount(), 4u) << name;
        EXPECT_EQ(snapshot->GetJump(0).GetPlace(), "Zone 1") << name;
        EXPECT_EQ(snapshot->GetJump(0).GetEquipmentRef().mode, CJumpEquipmentRef::ByIndex) << name;
    }
}
