#include "editing/CJumpEdit.h"
#include "CheckText.h"

#include "document/CLogbookDoc.h"
#include "document/IClock.h"
#include "model/CGpsSample.h"
#include "units/CMemorySettingsStore.h"
#include "units/CUnitSettings.h"

#include <gtest/gtest.h>

#include <cmath>
#include <functional>

#include <memory>
#include <tuple>

namespace {

const CDateTime kNow(2024, 6, 10, 9, 30, 0);
const std::vector<CJumpSignature::Stroke> kStrokes = {{{1, 1}}};

// A logbook of jumps 10 and 11 with rigs numbered 5 and 2 (positions 0 and 1), rig 5 inactive.
class JumpEditTest : public ::testing::Test
{
protected:
    JumpEditTest()
    {
        CLogbookSettings settings;
        CEquipmentList& rigs = settings.GetEquipmentList();
        for (int number : {5, 2}) {
            auto rig = std::make_unique<CEquipment>(number);
            rig->SetHarness(number == 5 ? "Mirage" : "Javelin");
            rig->SetMainCanopy("Sabre");
            rig->SetActive(number == 2);
            rigs.Add(std::move(rig));
        }
        doc.ReplaceSettings(settings);
        AddJump(10, 3000, 1000, "Utti");
        last = AddJump(11, 4000, 1200, "Kemi");
        doc.SetModified(false);
    }

    const CJump* AddJump(int number, int exit, int open, const std::string& place)
    {
        auto jump = std::make_unique<CJump>(number, CZonedDateTime{CDateTime(2024, 5, number, 14, 5, 0), 120},
                                            CDateTime(2024, 5, number));
        jump->SetFallrate(FallrateKind::Standard, exit, open, 0, 0, 0);
        jump->SetPlace(place);
        jump->SetLanding("Soft");
        return doc.AddJump(std::move(jump));
    }

    // Changes the last jump through the document, as the program does, and leaves the logbook
    // unmodified as if it had been loaded so.
    void ChangeLast(const std::function<void(CJump&)>& change)
    {
        doc.ChangeJump(static_cast<std::size_t>(doc.IndexOf(last)), [&](CJump& jump) {
            change(jump);
            return true;
        });
        doc.SetModified(false);
    }

    std::unique_ptr<CJumpEdit> Edit(const CJump* jump, bool metric = true)
    {
        units = CUnitSettings(metric ? CUnitSettings::Metric : CUnitSettings::Imperial, 0, 0);
        return std::make_unique<CJumpEdit>(doc, units, &store, clock, jump);
    }

    CLogbookDoc doc;
    CUnitSettings units;
    CMemorySettingsStore store;
    CFixedClock clock{kNow};
    const CJump* last = nullptr;
};

// A new jump takes over the last jump's values, except what only an imported jump has.
TEST_F(JumpEditTest, NewJumpDefaults)
{
    CLogbookDoc empty;
    const CJumpValues first = CJumpEdit(empty, units, &store, clock, nullptr).Values();
    EXPECT_EQ(std::tie(first.number, first.exitHeight, first.kind, first.landing),
              std::make_tuple(1, 0, FallrateKind::Standard, "OK"));
    EXPECT_EQ(first.date, kNow.DateOnly());
    EXPECT_FALSE(first.noTime);
    EXPECT_TRUE(first.noWind); // nothing to take over

    ChangeLast([](CJump& jump) {
        jump.SetFallrateValues(CJumpFallrate{FallrateKind::Import, 3900, 900, 61, 0, 55.5, 48.0});
    });
    ChangeLast([](CJump& jump) { jump.SetNoteText("From the logger"); });
    CJumpValues v = Edit(nullptr)->Values();
    EXPECT_EQ(std::tie(v.number, v.kind, v.note), std::make_tuple(12, FallrateKind::Standard, ""));
    EXPECT_EQ(std::tie(v.place, v.landing), std::make_tuple("Kemi", "OK"));

    ChangeLast([](CJump& jump) { jump.SetFallrate(FallrateKind::Manual, 4000, 1000, 47, 60.4, 50.6); });
    ChangeLast([](CJump& jump) { jump.SetWind(270, 5.0); });
    ChangeLast([](CJump& jump) { jump.SetNoteText("Line 1\r\nLine 2"); });
    v = Edit(nullptr)->Values();
    EXPECT_EQ(v.kind, FallrateKind::Manual);
    EXPECT_EQ(std::tie(v.delay, v.vMax, v.vAvg), std::make_tuple(47, 60, 51));
    // 5 m/s in knots, the metric display wind unit.
    EXPECT_EQ(std::tie(v.windSpeed, v.windDirection), std::make_tuple(10, 270));
    EXPECT_EQ(v.note, "Line 1\r\nLine 2");

    // No time and no wind remembered from the last new jump.
    store.SetInt("Jump", "HasTime", 0);
    store.SetInt("Jump", "HasWind", 2);
    v = Edit(nullptr)->Values();
    EXPECT_EQ(std::tie(v.noTime, v.noWind, v.windSpeed), std::make_tuple(true, true, 0));
}

// Each case breaks one value of a new jump that passes every page; a failure names its message,
// the bounds of a range and the field, which lies on the page that failed.
TEST_F(JumpEditTest, ChecksNameTheirMessageBoundsAndField)
{
    using E = CJumpEdit;
    const struct
    {
        const char* name;
        void (*change)(CJumpValues&);
        int messageId, field;
        const char* bounds;
    } cases[] = {
        {"number above the spinner", [](auto& v) { v.number = 32768; }, 0, -1, ""},
        {"highest number", [](auto& v) { v.number = 99999; }, 0, -1, ""},
        {"number too high", [](auto& v) { v.number = 100000; }, 4009, E::FieldNumber, "1 and 99999."},
        {"number taken", [](auto& v) { v.number = 10; }, 4019, E::FieldNumber, ""},
        {"empty time", [](auto& v) { v.timeText = "  "; }, 4012, E::FieldTime, ""},
        {"impossible time", [](auto& v) { v.timeText = "24:00"; }, 4006, E::FieldTime, ""},
        {"one-digit minutes", [](auto& v) { v.timeText = "9:5"; }, 4006, E::FieldTime, ""},
        {"no time needs none", [](auto& v) { v.noTime = true, v.timeText = "x"; }, 0, -1, ""},
        {"exit too high", [](auto& v) { v.exitHeight = 20010; }, 4009, E::FieldExit, "0 and 20000."},
        {"equal heights", [](auto& v) { v.openHeight = v.exitHeight; }, 0, -1, ""},
        {"open above exit", [](auto& v) { v.openHeight = v.exitHeight + 10; }, 4010, E::FieldOpen, ""},
        {"rig by its number", [](auto& v) { v.equipment = " [2] Javelin / Sabre "; }, 0, -1, ""},
        {"no rig 7", [](auto& v) { v.equipment = "[7] Javelin / Sabre"; }, 4013, E::FieldEquipment, ""},
        {"rig number, other text", [](auto& v) { v.equipment = "[2] Javelin"; }, 4013, E::FieldEquipment, ""},
        {"unclosed bracket is free text", [](auto& v) { v.equipment = "[2 Javelin"; }, 0, -1, ""},
        {"manual delay", [](auto& v) { v.kind = FallrateKind::Manual, v.delay = 201; }, 4009, E::FieldDelay,
         "0 and 200."},
        {"manual speed", [](auto& v) { v.kind = FallrateKind::Manual, v.vAvg = 1001; }, 4009, E::FieldVAvg,
         "0 and 1000."},
        {"computed kinds ignore the speeds", [](auto& v) { v.delay = 999, v.vMax = -1; }, 0, -1, ""},
        {"wind of zero", [](auto& v) { v.noWind = false, v.windSpeed = 0; }, 4009, E::FieldWind, "1 and 99."},
        {"direction", [](auto& v) { v.noWind = false, v.windSpeed = 5, v.windDirection = 360; }, 4009,
         E::FieldDirection, "0 and 359."},
        {"size", [](auto& v) { v.size = 1000; }, 4009, E::FieldSize, "0 and 999."},
        {"points", [](auto& v) { v.points = 100; }, 4009, E::FieldPoints, "0 and 99."},
        {"strokes without signer", [](auto& v) { v.strokes = kStrokes; }, 4017, E::FieldSigner, ""},
        {"name after a comma", [](auto& v) { v.signer = " ,Anna", v.strokes = kStrokes; }, 4017, E::FieldSigner, ""},
        {"signer without strokes", [](auto& v) { v.signer = "Anna"; }, 4018, E::FieldSignature, ""},
        {"signed", [](auto& v) { v.signer = "Anna, D-123", v.strokes = kStrokes; }, 0, -1, ""},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        auto edit = Edit(nullptr);
        c.change(edit->Values());
        CJumpEdit::Page page = CJumpEdit::PageCount;
        const CCheckResult result = edit->ValidateAll(&page);
        EXPECT_EQ(result.messageId, c.messageId);
        EXPECT_EQ(result.field, c.field);
        EXPECT_NE(CheckText(result).find(c.bounds), std::string::npos) << CheckText(result);
        EXPECT_EQ(page, result.Passed() ? CJumpEdit::PageCount : CJumpEdit::PageOf(result.field));
    }
}

// OK on an untouched new jump passes every check and saves the next number, whatever the
// remembered choices and the last jump give.
TEST_F(JumpEditTest, UntouchedNewJumpPassesItsOwnChecks)
{
    const struct
    {
        const char* name;
        bool emptyLogbook;
        int hasTime, hasWind;
        void (*lastJump)(CJump&);
        bool metric;
        bool noWind;
    } cases[] = {
        {"first jump, nothing remembered", true, -1, -1, nullptr, true, true},
        {"first jump, wind remembered", true, 1, 1, nullptr, false, true},
        {"first jump, no time", true, 0, 0, nullptr, true, true},
        {"last jump without wind", false, 1, 1, nullptr, true, true},
        {"last jump with wind", false, 1, 1, [](CJump& j) { j.SetWind(90, 4.0); }, false, false},
        {"wind there but None remembered", false, 1, 0, [](CJump& j) { j.SetWind(90, 4.0); }, true, true},
        {"a breeze that rounds to 0", false, 1, 1, [](CJump& j) { j.SetWind(90, 0.2); }, true, false},
        {"last jump manual", false, 1, 1,
         [](CJump& j) { j.SetFallrate(FallrateKind::Manual, 4000, 1000, 50, 60.5, 50.2); }, true, true},
        {"last jump imported", false, 1, 1,
         [](CJump& j) {
             j.SetFallrateValues(CJumpFallrate{FallrateKind::Import, 3900, 900, 61, 0, 55.5, 48.0});
         },
         false, true},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        CLogbookDoc empty;
        CLogbookDoc& logbook = c.emptyLogbook ? empty : doc;
        store = CMemorySettingsStore();
        if (c.hasTime >= 0) {
            store.SetInt("Jump", "HasTime", c.hasTime);
            store.SetInt("Jump", "HasWind", c.hasWind);
        }
        ChangeLast([&](CJump& jump) {
            jump.SetWind(0, 0.0);
            jump.SetFallrate(FallrateKind::Standard, 4000, 1200, 0, 0, 0);
            if (c.lastJump)
                c.lastJump(jump);
        });
        units = CUnitSettings(c.metric ? CUnitSettings::Metric : CUnitSettings::Imperial, 0, 0);
        CJumpEdit edit(logbook, units, &store, clock, nullptr);
        EXPECT_EQ(edit.Values().noWind, c.noWind);
        const int number = logbook.GetLastJump() ? logbook.GetLastJump()->GetNumber() + 1 : 1;
        ASSERT_TRUE(edit.ValidateAll().Passed()) << CheckText(edit.ValidateAll());
        const CJumpEdit::ApplyResult result = edit.Apply();
        ASSERT_TRUE(result.ok && result.jump);
        EXPECT_EQ(result.jump->GetNumber(), number);
        // Values taken over untouched keep the last jump's precision.
        if (!c.emptyLogbook) {
            EXPECT_EQ(result.jump->GetExitHeight(), last->GetExitHeight());
            EXPECT_EQ(result.jump->GetWind(), c.noWind ? CJumpWind{} : last->GetWind());
        }
        if (!c.emptyLogbook)
            doc.RemoveJump(doc.GetJumpCount() - 1);
    }
}

// A wind is typed in the unit its label names: knots in metric, miles per hour in imperial.
TEST_F(JumpEditTest, WindIsTypedInTheUnitItsLabelNames)
{
    const struct
    {
        bool metric;
        const char* label;
        double metresPerSecond; // what 10 of the label's unit is
    } cases[] = {{true, "kn", 10 * 1852.0 / 3600.0}, {false, "mph", 10 * 1609.344 / 3600.0}};
    for (const auto& c : cases) {
        SCOPED_TRACE(c.label);
        auto edit = Edit(last, c.metric);
        EXPECT_EQ(units.WindLabel(), c.label);
        edit->Values().noWind = false;
        edit->Values().windSpeed = 10;
        edit->Values().windDirection = 200;
        ASSERT_TRUE(edit->ValidateAll().Passed());
        edit->Apply();
        EXPECT_NEAR(last->GetWind().speed, c.metresPerSecond, 1e-3);
        EXPECT_EQ(Edit(last, c.metric)->Values().windSpeed, 10);
    }
}

// Leaving Details works out the computed fall rate from the heights just read back.
TEST_F(JumpEditTest, DetailsCheckRecomputesTheFallRate)
{
    auto edit = Edit(last);
    const int before = edit->Values().delay;
    edit->Values().exitHeight = 3000;
    ASSERT_TRUE(edit->Validate(CJumpEdit::PageDetails).Passed());
    const double speed = doc.GetSettings().FallrateSpeed(FallrateKind::Standard);
    EXPECT_EQ(edit->Values().delay, static_cast<int>(std::lround(CJump::ComputeFreefallTime(1800, speed))));
    EXPECT_LT(edit->Values().delay, before);
}

// A stored value beyond a range is kept untouched; typed, it is refused with the real bounds.
// A jump without a valid date is refused until it gets one.
TEST_F(JumpEditTest, StoredValuesOutsideTheRangesPassUntouched)
{
    ChangeLast([](CJump& jump) {
        jump.SetNumber(123456);
        jump.SetSize(1500);
        jump.SetFallrate(FallrateKind::Manual, 4000, 1000, 250, 60, 50);
        jump.SetWind(500, 80.0);
    });
    auto edit = Edit(last);
    EXPECT_EQ(edit->Values().number, 123456);
    EXPECT_TRUE(edit->ValidateAll().Passed()) << CheckText(edit->ValidateAll());
    EXPECT_FALSE(edit->Apply().changed);
    EXPECT_FALSE(doc.IsModified());

    edit = Edit(last);
    edit->Values().number = 123457;
    EXPECT_EQ(CheckText(edit->ValidateAll()), "Please enter a value between 1 and 99999.");

    ChangeLast([](CJump& jump) { jump.SetTimestamp({CDateTime(), 0}); });
    edit = Edit(last);
    EXPECT_FALSE(edit->Values().date.IsValid());
    const CCheckResult noDate = edit->ValidateAll();
    EXPECT_EQ(std::tie(noDate.messageId, noDate.field), std::make_tuple(4006, int(CJumpEdit::FieldDate)));
}

TEST_F(JumpEditTest, UntouchedValuesKeepTheirStoredPrecision)
{
    ChangeLast([](CJump& jump) { jump.SetFallrate(FallrateKind::Manual, 1234, 777, 40, 55.55, 44.44); });
    ChangeLast([](CJump& jump) { jump.SetWind(180, 3.33); });
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
}

TEST_F(JumpEditTest, PickingAKindWorksOutOrRestoresDelayAndSpeeds)
{
    auto edit = Edit(last, false);
    CJumpValues& v = edit->Values();
    v.exitHeight = 13000;
    v.openHeight = 3000;
    edit->PickKind(FallrateKind::Vertical);
    EXPECT_EQ(v.vMax, 249); // 76 m/s = 249.34 ft/s
    EXPECT_EQ(v.vAvg, 249);
    EXPECT_GT(v.delay, 40); // 3048 m at 76 m/s: 40 s at full speed, more from rest
    EXPECT_LT(v.delay, 50);

    // Manual keeps what was typed; exit below open recomputes nothing.
    v.delay = 33;
    edit->PickKind(FallrateKind::Manual);
    EXPECT_EQ(v.delay, 33);
    v.openHeight = 14000;
    edit->PickKind(FallrateKind::Standard);
    EXPECT_EQ(v.delay, 33);

    // An imported jump offers Import, which brings back the recording's values.
    ChangeLast([](CJump& jump) {
        jump.SetFallrateValues(CJumpFallrate{FallrateKind::Import, 3900, 900, 61, 0, 55.5, 48.0});
    });
    auto imported = Edit(last);
    ASSERT_TRUE(imported->OffersImport());
    EXPECT_TRUE(imported->IsLocked());
    imported->PickKind(FallrateKind::Manual);
    EXPECT_FALSE(imported->IsLocked());
    imported->Values().exitHeight = 1500;
    imported->Values().delay = 5;
    imported->PickKind(FallrateKind::Import);
    EXPECT_EQ(imported->Values().exitHeight, 3900);
    EXPECT_EQ(imported->Values().delay, 61);
    EXPECT_EQ(imported->Values().vMax, 56);
}

TEST_F(JumpEditTest, TakenImportWritesRecordingAndExactValues)
{
    CJumpRecording track;
    track.SetKind(CJumpRecording::Satellite);
    track.AddSample(std::make_unique<CGpsSample>(3987.4, 0.0, 61.5, 23.1));
    const CJumpFallrate fallrate{FallrateKind::Import, 3987, 1012, 58, 212, 54.6, 51.2};
    const CZonedDateTime exit{CDateTime(2024, 6, 8, 16, 42, 7), 180};
    // A new jump, an existing jump left at Import, and one switched to Manual before OK: the
    // track goes with all three, the exact values only while the kind stays Import.
    for (const int pick : {-1, static_cast<int>(FallrateKind::Import), static_cast<int>(FallrateKind::Manual)}) {
        SCOPED_TRACE(pick);
        auto edit = Edit(pick == -1 ? nullptr : last);
        edit->TakeImport(track, fallrate, exit);
        EXPECT_TRUE(edit->IsLocked());
        EXPECT_EQ(edit->Values().timeText, "16:42:07");
        EXPECT_EQ(edit->Values().exitHeight, 3990);
        // The last jump had no wind: a new imported one has none rather than a refused 0.
        EXPECT_TRUE(edit->Values().noWind);
        if (pick == static_cast<int>(FallrateKind::Manual))
            edit->PickKind(FallrateKind::Manual);
        ASSERT_TRUE(edit->ValidateAll().Passed());
        const CJumpEdit::ApplyResult result = edit->Apply();
        ASSERT_TRUE(result.ok && result.changed && result.jump);
        EXPECT_EQ(result.jump->GetRecording(), track);
        EXPECT_EQ(result.jump->GetTimestamp(), exit);
        if (pick == static_cast<int>(FallrateKind::Manual))
            EXPECT_EQ(result.jump->GetFallrateKind(), FallrateKind::Manual);
        else
            EXPECT_EQ(result.jump->GetFallrate(), fallrate);
    }
}

// A new jump is added, dated and stamped, keeps its rig by position and remembers for the next
// new jump whether it had a time and a wind.
TEST_F(JumpEditTest, NewJumpIsAddedAndRemembersTimeAndWind)
{
    auto edit = Edit(nullptr);
    edit->Values().noTime = true;
    edit->Values().noWind = false;
    edit->Values().windSpeed = 10;
    edit->Values().equipment = "[2] Javelin / Sabre";
    const auto result = edit->Apply();
    ASSERT_TRUE(result.changed);
    EXPECT_EQ(doc.GetLastJump(), result.jump);
    EXPECT_TRUE(doc.IsModified());
    EXPECT_FALSE(result.jump->HasTimeOfDay());
    EXPECT_TRUE(result.jump->GetTimestamp().dateTime.IsValid());
    EXPECT_EQ(result.jump->GetModified(), kNow);
    EXPECT_EQ(result.jump->GetEquipmentRef(), (CJumpEquipmentRef{CJumpEquipmentRef::ByIndex, 1, {}}));
    EXPECT_EQ(store.GetInt("Jump", "HasTime", -1), 0);
    EXPECT_EQ(store.GetInt("Jump", "HasWind", -1), 1);
}

TEST_F(JumpEditTest, PickListsOfferActiveRigsAndTheLogbooksEntries)
{
    ChangeLast([](CJump& jump) { jump.SetEquipmentByIndex(0); }); // the inactive rig 5, listed only for its own jump
    const auto lists = Edit(last)->BuildPickLists();
    EXPECT_EQ(lists.equipment, (std::vector<std::string>{"[5] Mirage / Sabre", "[2] Javelin / Sabre"}));
    EXPECT_EQ(Edit(nullptr)->BuildPickLists().landing, (std::vector<std::string>{"OK", "Soft"}));
    EXPECT_EQ(Edit(nullptr)->BuildPickLists().place, (std::vector<std::string>{"Utti", "Kemi"}));
}

TEST_F(JumpEditTest, SignedJumpIsOnlyViewed)
{
    ChangeLast([](CJump& jump) { jump.SetSignature("Anna", {{{3, 4}, {5, 6}}}); });
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
