#include "editing/CJumpEdit.h"

#include "document/CLogbookDoc.h"
#include "document/IClock.h"
#include "model/CGpsSample.h"
#include "units/CMemorySettingsStore.h"
#include "units/CUnitSettings.h"

#include <gtest/gtest.h>

#include <functional>
#include <memory>

namespace {

const CDateTime kNow(2024, 6, 10, 9, 30, 0);

// A logbook of jumps 10 and 11 with rigs numbered 5 and 2 (positions 0 and 1), rig 5 inactive.
struct CEditLogbook
{
    CEditLogbook()
    {
        CEquipmentList& rigs = doc.GetSettings().GetEquipmentList();
        for (int number : {5, 2}) {
            auto rig = std::make_unique<CEquipment>(number);
            rig->SetHarness(number == 5 ? "Mirage" : "Javelin");
            rig->SetMainCanopy("Sabre");
            rig->SetActive(number == 2);
            rigs.Add(std::move(rig));
        }
        AddJump(10, 3000, 1000, "Utti");
        last = AddJump(11, 4000, 1200, "Kemi");
        doc.SetModified(false);
    }

    CJump* AddJump(int number, int exit, int open, const std::string& place)
    {
        auto jump = std::make_unique<CJump>(number, CZonedDateTime{CDateTime(2024, 5, number, 14, 5, 0), 120},
                                            CDateTime(2024, 5, number));
        jump->SetFallrate(Standard, exit, open, 0, 0, 0);
        jump->SetPlace(place);
        jump->SetLanding("Soft");
        return doc.AddJump(std::move(jump));
    }

    std::unique_ptr<CJumpEdit> Edit(CJump* jump, bool metric = true)
    {
        units = CUnitSettings(metric ? CUnitSettings::Metric : CUnitSettings::Imperial, 0, 0);
        return std::make_unique<CJumpEdit>(doc, units, &store, clock, jump);
    }

    CLogbookDoc doc;
    CUnitSettings units;
    CMemorySettingsStore store;
    CFixedClock clock{kNow};
    CJump* last = nullptr;
};

class JumpEditTest : public ::testing::Test, public CEditLogbook
{
};

TEST_F(JumpEditTest, NewJumpDefaults)
{
    struct Case
    {
        const char* name;
        std::function<void(CEditLogbook&)> arrange;
        std::function<void(const CJumpValues&)> check;
    };
    const Case cases[] = {
        {"empty logbook", [](CEditLogbook& t) { t.doc.Clear(); },
         [](const CJumpValues& v) {
             EXPECT_EQ(v.number, 1);
             EXPECT_EQ(v.exitHeight, 0);
             EXPECT_EQ(v.openHeight, 0);
             EXPECT_EQ(v.kind, Standard);
             EXPECT_EQ(v.landing, "OK");
             EXPECT_EQ(v.date, kNow.DateOnly());
             EXPECT_FALSE(v.noTime);
             EXPECT_TRUE(!v.noWind);
         }},
        {"after an imported jump",
         [](CEditLogbook& t) {
             CJumpFallrate imported{Import, 3900, 900, 61, 0, 55.5, 48.0};
             t.last->SetFallrateValues(imported);
             t.last->SetNoteText("From the logger");
         },
         [](const CJumpValues& v) {
             EXPECT_EQ(v.number, 12);
             EXPECT_EQ(v.kind, Standard);
             EXPECT_EQ(v.note, "");
             EXPECT_EQ(v.place, "Kemi");
             EXPECT_EQ(v.landing, "OK");
         }},
        {"after a manual jump with wind and a note",
         [](CEditLogbook& t) {
             t.last->SetFallrate(Manual, 4000, 1000, 47, 60.4, 50.6);
             t.last->SetWind(270, 5.0);
             t.last->SetNoteText("Line 1\r\nLine 2");
         },
         [](const CJumpValues& v) {
             EXPECT_EQ(v.kind, Manual);
             EXPECT_EQ(v.delay, 47);
             EXPECT_EQ(v.vMax, 60);
             EXPECT_EQ(v.vAvg, 51);
             EXPECT_EQ(v.windSpeed, 11); // 5 m/s in the metric display wind unit
             EXPECT_EQ(v.windDirection, 270);
             EXPECT_EQ(v.note, "Line 1\r\nLine 2");
         }},
        {"no time and no wind remembered",
         [](CEditLogbook& t) {
             t.store.SetInt("Jump", "HasTime", 0);
             t.store.SetInt("Jump", "HasWind", 2);
             t.last->SetWind(90, 4.0);
         },
         [](const CJumpValues& v) {
             EXPECT_TRUE(v.noTime);
             EXPECT_TRUE(v.noWind);
             EXPECT_EQ(v.windSpeed, 0);
         }},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        CEditLogbook fresh;
        c.arrange(fresh);
        c.check(fresh.Edit(nullptr)->Values());
    }
}

TEST_F(JumpEditTest, ChecksNameTheirMessageBoundsAndField)
{
    struct Case
    {
        const char* name;
        std::function<void(CJumpValues&)> change;
        CJumpEdit::Page page;
        int messageId;
        int field;
        const char* message;
    };
    using E = CJumpEdit;
    const Case cases[] = {
        {"number above the spinner", [](CJumpValues& v) { v.number = 32768; }, E::PageDetails, 0, -1, ""},
        {"highest number", [](CJumpValues& v) { v.number = 99999; }, E::PageDetails, 0, -1, ""},
        {"number too high", [](CJumpValues& v) { v.number = 100000; }, E::PageDetails, 4009, E::FieldNumber,
         "Please enter a value between 1 and 99999."},
        {"number taken", [](CJumpValues& v) { v.number = 10; }, E::PageDetails, 4019, E::FieldNumber, nullptr},
        {"empty time", [](CJumpValues& v) { v.timeText = "  "; }, E::PageDetails, 4012, E::FieldTime,
         "Please enter a time."},
        {"impossible time", [](CJumpValues& v) { v.timeText = "24:00"; }, E::PageDetails, 4006, E::FieldTime,
         "Please enter a valid value."},
        {"one-digit minutes", [](CJumpValues& v) { v.timeText = "9:5"; }, E::PageDetails, 4006, E::FieldTime, nullptr},
        {"no time needs none", [](CJumpValues& v) { v.noTime = true, v.timeText = "x"; }, E::PageDetails, 0, -1, ""},
        {"exit too high", [](CJumpValues& v) { v.exitHeight = 20010; }, E::PageDetails, 4009, E::FieldExit,
         "Please enter a value between 0 and 20000."},
        {"equal heights", [](CJumpValues& v) { v.openHeight = v.exitHeight; }, E::PageDetails, 0, -1, ""},
        {"open above exit", [](CJumpValues& v) { v.openHeight = v.exitHeight + 10; }, E::PageDetails, 4010,
         E::FieldOpen, nullptr},
        {"rig by its number", [](CJumpValues& v) { v.equipment = " [2] Javelin / Sabre "; }, E::PageDetails, 0, -1, ""},
        {"no rig 7", [](CJumpValues& v) { v.equipment = "[7] Javelin / Sabre"; }, E::PageDetails, 4013,
         E::FieldEquipment, "Please select an eqipment from the list or enter your equipment without preceeding [n]."},
        {"rig number with another text", [](CJumpValues& v) { v.equipment = "[2] Javelin"; }, E::PageDetails, 4013,
         E::FieldEquipment, nullptr},
        {"unclosed bracket is free text", [](CJumpValues& v) { v.equipment = "[2 Javelin"; }, E::PageDetails, 0, -1,
         ""},
        {"manual delay", [](CJumpValues& v) { v.kind = Manual, v.delay = 201; }, E::PageFallrate, 4009, E::FieldDelay,
         "Please enter a value between 0 and 200."},
        {"manual speed", [](CJumpValues& v) { v.kind = Manual, v.vAvg = 1001; }, E::PageFallrate, 4009, E::FieldVAvg,
         nullptr},
        {"computed kinds ignore the speeds", [](CJumpValues& v) { v.noWind = true, v.delay = 999, v.vMax = -1; },
         E::PageFallrate, 0, -1, ""},
        {"wind of zero", [](CJumpValues& v) { v.noWind = false, v.windSpeed = 0; }, E::PageFallrate, 4009, E::FieldWind,
         "Please enter a value between 1 and 99."},
        {"direction", [](CJumpValues& v) { v.noWind = false, v.windSpeed = 5, v.windDirection = 360; }, E::PageFallrate,
         4009, E::FieldDirection, "Please enter a value between 0 and 359."},
        {"size", [](CJumpValues& v) { v.size = 1000; }, E::PageInfo, 4009, E::FieldSize, nullptr},
        {"points", [](CJumpValues& v) { v.points = 100; }, E::PageInfo, 4009, E::FieldPoints,
         "Please enter a value between 0 and 99."},
        {"strokes without signer",
         [](CJumpValues& v) {
             v.strokes = {{{1, 1}}};
         },
         E::PageSignature, 4017, E::FieldSigner, "Please enter a signer or delete the signature."},
        {"name after a comma",
         [](CJumpValues& v) {
             v.signer = " ,Anna", v.strokes = {{{1, 1}}};
         },
         E::PageSignature, 4017, E::FieldSigner, nullptr},
        {"signer without strokes", [](CJumpValues& v) { v.signer = "Anna"; }, E::PageSignature, 4018, E::FieldSignature,
         "Please sign the jump or delete the signer."},
        {"signed",
         [](CJumpValues& v) {
             v.signer = "Anna, D-123", v.strokes = {{{1, 1}}};
         },
         E::PageSignature, 0, -1, ""},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        auto edit = Edit(nullptr);
        c.change(edit->Values());
        const CCheckResult result = edit->Validate(c.page);
        EXPECT_EQ(result.messageId, c.messageId);
        EXPECT_EQ(result.field, c.field);
        if (c.message) {
            EXPECT_EQ(result.message, c.message);
        }
        if (result.field >= 0) {
            EXPECT_EQ(CJumpEdit::PageOf(result.field), c.page);
        }
    }
}

TEST_F(JumpEditTest, UntouchedValuesKeepTheirStoredPrecision)
{
    last->SetFallrate(Manual, 1234, 777, 40, 55.55, 44.44);
    last->SetWind(180, 3.33);
    auto edit = Edit(last, false);
    EXPECT_EQ(edit->Values().exitHeight, 4050); // 1234 m is 4048.6 ft
    edit->Values().note = "Only the note changes";
    ASSERT_TRUE(edit->Apply().changed);
    EXPECT_EQ(last->GetExitHeight(), 1234);
    EXPECT_EQ(last->GetOpenHeight(), 777);
    EXPECT_DOUBLE_EQ(last->GetMaxSpeed(), 55.55);
    EXPECT_DOUBLE_EQ(last->GetWind().speed, 3.33);
    EXPECT_TRUE(doc.IsModified());
    EXPECT_EQ(last->GetModified(), kNow);

    // A value the user typed is converted from the display unit.
    auto again = Edit(last, false);
    again->Values().exitHeight = 4000;
    again->Apply();
    EXPECT_EQ(last->GetExitHeight(), 1219);
    EXPECT_EQ(last->GetOpenHeight(), 777);
}

TEST_F(JumpEditTest, PickingAKindWorksOutDelayAndSpeeds)
{
    auto edit = Edit(last, false);
    CJumpValues& v = edit->Values();
    v.exitHeight = 13000;
    v.openHeight = 3000;
    edit->PickKind(Vertical);
    EXPECT_EQ(v.vMax, 249); // 76 m/s = 249.34 ft/s
    EXPECT_EQ(v.vAvg, 249);
    EXPECT_GT(v.delay, 40); // 3048 m at 76 m/s: 40 s at full speed, more from rest
    EXPECT_LT(v.delay, 50);

    // Manual keeps what was typed; exit below open recomputes nothing.
    v.delay = 33;
    edit->PickKind(Manual);
    EXPECT_EQ(v.delay, 33);
    v.openHeight = 14000;
    edit->PickKind(Standard);
    EXPECT_EQ(v.delay, 33);
}

TEST_F(JumpEditTest, ImportRestoresTheRecordingsValues)
{
    last->SetFallrateValues(CJumpFallrate{Import, 3900, 900, 61, 0, 55.5, 48.0});
    auto edit = Edit(last);
    ASSERT_TRUE(edit->OffersImport());
    EXPECT_TRUE(edit->IsLocked());
    CJumpValues& v = edit->Values();
    edit->PickKind(Manual);
    EXPECT_FALSE(edit->IsLocked());
    v.exitHeight = 1500;
    v.delay = 5;
    edit->PickKind(Import);
    EXPECT_EQ(v.exitHeight, 3900);
    EXPECT_EQ(v.delay, 61);
    EXPECT_EQ(v.vMax, 56);
}

TEST_F(JumpEditTest, TakenImportWritesRecordingAndExactValues)
{
    CJumpRecording track;
    track.SetKind(CJumpRecording::Satellite);
    track.AddSample(std::make_unique<CGpsSample>(3987.4, 0.0, 61.5, 23.1));
    const CJumpFallrate fallrate{Import, 3987, 1012, 58, 212, 54.6, 51.2};
    const CZonedDateTime exit{CDateTime(2024, 6, 8, 16, 42, 7), 180};
    // A new jump, an existing jump left at Import, and one switched to Manual before OK: the
    // track goes with all three, the exact values only while the kind stays Import.
    for (const int pick : {-1, static_cast<int>(Import), static_cast<int>(Manual)}) {
        SCOPED_TRACE(pick);
        CJump* target = pick == -1 ? nullptr : last;
        auto edit = Edit(target);
        edit->TakeImport(track, fallrate, exit);
        EXPECT_TRUE(edit->IsLocked());
        EXPECT_EQ(edit->Values().timeText, "16:42:07");
        EXPECT_EQ(edit->Values().exitHeight, 3990);
        // The last jump had no wind: a new imported one has none rather than a refused 0.
        EXPECT_TRUE(edit->Values().noWind);
        if (pick == Manual)
            edit->PickKind(Manual);
        ASSERT_TRUE(edit->Validate(CJumpEdit::PageDetails).Passed());
        const CJumpEdit::ApplyResult result = edit->Apply();
        ASSERT_TRUE(result.ok && result.changed && result.jump);
        EXPECT_EQ(result.jump->GetRecording(), track);
        EXPECT_EQ(result.jump->GetTimestamp().offsetMinutes, 180);
        EXPECT_EQ(result.jump->GetTimestamp().dateTime, exit.dateTime);
        if (pick == Manual)
            EXPECT_EQ(result.jump->GetFallrateKind(), Manual);
        else
            EXPECT_EQ(result.jump->GetFallrate(), fallrate);
        EXPECT_TRUE(doc.IsModified());
    }
}

TEST_F(JumpEditTest, RigsAreStoredByPositionAndListed)
{
    auto edit = Edit(nullptr);
    edit->Values().equipment = "[2] Javelin / Sabre";
    const auto result = edit->Apply();
    ASSERT_TRUE(result.ok);
    EXPECT_EQ(result.jump->GetEquipmentRef().mode, CJumpEquipmentRef::ByIndex);
    EXPECT_EQ(result.jump->GetEquipmentRef().index, 1);

    last->SetEquipmentByIndex(0); // the inactive rig 5, listed only for its own jump
    const auto lists = Edit(last)->BuildPickLists();
    EXPECT_EQ(lists.equipment, (std::vector<std::string>{"[5] Mirage / Sabre", "[2] Javelin / Sabre"}));
    EXPECT_EQ(Edit(nullptr)->BuildPickLists().landing, (std::vector<std::string>{"OK", "Soft"}));
    EXPECT_EQ(Edit(nullptr)->BuildPickLists().place, (std::vector<std::string>{"Utti", "Kemi"}));
}

TEST_F(JumpEditTest, NewJumpIsAddedStampedAndRemembersTimeAndWind)
{
    auto edit = Edit(nullptr);
    edit->Values().noTime = true;
    edit->Values().noWind = false;
    edit->Values().windSpeed = 10;
    const auto result = edit->Apply();
    ASSERT_TRUE(result.changed);
    EXPECT_EQ(doc.GetJumpCount(), 3u);
    EXPECT_EQ(doc.GetLastJump(), result.jump);
    EXPECT_TRUE(doc.IsModified());
    EXPECT_FALSE(result.jump->HasTimeOfDay());
    EXPECT_TRUE(result.jump->GetTimestamp().dateTime.IsValid());
    EXPECT_EQ(result.jump->GetModified(), kNow);
    EXPECT_EQ(store.GetInt("Jump", "HasTime", -1), 0);
    EXPECT_EQ(store.GetInt("Jump", "HasWind", -1), 1);
    EXPECT_EQ(doc.GetSummary().numberOfJumps, 12);
}

TEST_F(JumpEditTest, SignedJumpIsOnlyViewed)
{
    last->SetSignature("Anna", {{{3, 4}, {5, 6}}});
    auto edit = Edit(last);
    ASSERT_TRUE(edit->IsViewOnly());
    edit->Values().number = 100000;
    EXPECT_TRUE(edit->ValidateAll().Passed());
    EXPECT_FALSE(edit->Apply().changed);
    EXPECT_FALSE(doc.IsModified());
    EXPECT_EQ(last->GetNumber(), 11);
    EXPECT_FALSE(store.Contains("Jump", "HasTime"));
}

TEST(JumpEditRules, HeightStepsNoteAndTimeText)
{
    const int steps[][3] = {{1230, 1, 1240}, {1234, 1, 1240}, {1230, -1, 1220}, {1234, -1, 1230}, {0, 1, 10}};
    for (const auto& s : steps)
        EXPECT_EQ(CJumpEdit::StepHeight(s[0], s[1]), s[2]) << s[0] << " " << s[1];
    EXPECT_EQ(CJumpEdit::CutHeight(1234), 1230);
    EXPECT_EQ(CJumpEdit::StripTrailingBreaks("a\r\nb\r\n\r\n\r\n"), "a\r\nb");
    int h = 0, m = 0, s = 0;
    EXPECT_TRUE(CJumpEdit::ParseTime("7:05:09", h, m, s));
    EXPECT_EQ(CJumpEdit::TimeText(h, m, s), "07:05:09");
    EXPECT_FALSE(CJumpEdit::ParseTime("12:60", h, m, s));
    EXPECT_FALSE(CJumpEdit::ParseTime("12", h, m, s));
}

} // namespace
