#include "document/CLogbookDoc.h"
#include "document/IClock.h"
#include "editing/CEquipmentsEdit.h"
#include "editing/CJumpEdit.h"
#include "editing/CPreferencesEdit.h"
#include "model/CJumpSeal.h"
#include "tests/common/CScratchFolder.h"
#include "units/CUnitSettings.h"

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <ostream>
#include <string>

// Failures name the states.
void PrintTo(SealState state, std::ostream* out)
{
    *out << (state == SealState::Intact     ? "Intact"
             : state == SealState::Changed  ? "Changed"
             : state == SealState::Unsealed ? "Unsealed"
                                            : "NotSigned");
}

namespace {

const CDateTime kNow(2024, 6, 10, 9, 30, 0);
const CUnitSettings kMetric(CUnitSettings::Metric, CUnitSettings::PerSecond, 0);

// A logbook saved as plain XML and loaded again, with
//   7  Custom 4000 -> 1000 m on rig [1], signed here by Matti Virtanen (licence SIL-D-1042),
//   8  Manual 3000 -> 900 m, 55 s, on rig [2], signed here by Sanna (licence DFV-123),
//   9  not signed,
//  10  signed by another program, whose id is not a seal.
// Jumps 7 and 8 are signed in the jump editor, as the user does.
class JumpSealTest : public ::testing::Test
{
protected:
    JumpSealTest()
    {
        CLogbookSettings settings;
        for (const auto& [number, harness, main] :
             {std::tuple{1, "Javelin", "Sabre2"}, std::tuple{2, "Vector", "PD"}}) {
            auto rig = std::make_unique<CEquipment>(number);
            rig->SetHarness(harness);
            rig->SetMainCanopy(main);
            settings.GetEquipmentList().Add(std::move(rig));
        }
        doc.ReplaceSettings(settings);
        Add(7, [](CJump& jump) {
            jump.SetPlace("Utti");
            jump.SetAircraft("Skyvan");
            jump.SetType("Belly");
            jump.SetFallrate(FallrateKind::Custom, 4000, 1000, 0, 0, 0);
            jump.SetLanding("Stand-up");
            jump.SetEquipmentByIndex(0);
            jump.SetNoteText("Good jump");
            jump.SetTeam("Team A");
            jump.SetMalfunction("Line twists");
            jump.SetSize(4);
            jump.SetPoints(12);
            jump.SetWind(270, 4.5);
        });
        Add(8, [](CJump& jump) {
            jump.SetPlace("Kemi");
            jump.SetFallrate(FallrateKind::Manual, 3000, 900, 55, 0, 0);
            jump.SetEquipmentByIndex(1);
        });
        Add(9, [](CJump& jump) { jump.SetPlace("Oulu"); });
        Add(10, [](CJump& jump) {
            jump.SetPlace("Jämijärvi");
            jump.SetSignature("Old Signer", {{{9, 9}}});
            jump.Signature().SetId("SIL-D-3315");
        });
        Sign(0, "Matti Virtanen", "SIL-D-1042", {{{1, 2}, {3, 4}}, {{5, 6}}});
        Sign(1, "Sanna", "DFV-123", {{{7, 8}}});
        Reload(Save());
    }

    void Add(int number, const std::function<void(CJump&)>& fill)
    {
        auto jump = std::make_unique<CJump>(number, CZonedDateTime{CDateTime(2024, 5, 17, 14, 3, 0), 120},
                                            CDateTime(2024, 5, 17));
        fill(*jump);
        doc.AddJump(std::move(jump));
    }

    // Signs the jump at index in the editor and applies it.
    CJumpEdit::ApplyResult Sign(std::size_t index, const std::string& signer, const std::string& licence,
                                std::vector<CJumpSignature::Stroke> strokes)
    {
        CJumpEdit edit(doc, kMetric, nullptr, clock, &doc.GetJump(index));
        edit.Values().signer = signer;
        edit.Values().signerLicence = licence;
        edit.Values().strokes = std::move(strokes);
        EXPECT_TRUE(edit.ValidateAll());
        return edit.Apply();
    }

    std::string Save(const std::string& name = "a.tvl")
    {
        const std::string path = dir / name;
        EXPECT_EQ(doc.Save(path, SaveCheck::Overwrite).status, SaveStatus::Saved);
        return ReadBytes(path);
    }

    void Reload(const std::string& bytes)
    {
        const std::string path = dir / "edited.tvl";
        ASSERT_TRUE(WriteBytes(path, bytes));
        ASSERT_TRUE(doc.Load(path)) << bytes;
    }

    SealState State(std::size_t index) const { return doc.GetJump(index).GetSealState(); }

    // The states of the four jumps, for one comparison.
    std::vector<SealState> States() const
    {
        std::vector<SealState> states;
        for (std::size_t i = 0; i < doc.GetJumpCount(); ++i)
            states.push_back(State(i));
        return states;
    }

    CScratchFolder dir{"seal"};
    CFixedClock clock{kNow};
    CLogbookDoc doc{nullptr, &clock};
};

using S = SealState;
const std::vector<SealState> kAsSigned = {S::Intact, S::Intact, S::NotSigned, S::Unsealed};

// Each row changes the saved file by hand, as another program or a text editor could, and names
// the jump (by position) whose seal that breaks; every other jump keeps its state.
TEST_F(JumpSealTest, AChangeByHandBreaksTheSealOfWhatTheWitnessSaw)
{
    ASSERT_EQ(States(), kAsSigned);
    const std::string saved = Save();
    const struct
    {
        const char* what;
        const char* find;
        const char* replace;
        int broken; // position of the jump whose state changes, -1 none
        SealState state = S::Changed;
    } rows[] = {
        {"number", R"(<jump n="7")", R"(<jump n="6")", 0},
        {"date", R"(ts="2024-05-17T14:03:00+02" mod="2024-06-10T09:30:00Z"><dz>Utti)",
         R"(ts="2024-05-18T14:03:00+02" mod="2024-06-10T09:30:00Z"><dz>Utti)", 0},
        {"time", R"(ts="2024-05-17T14:03:00+02" mod="2024-06-10T09:30:00Z"><dz>Kemi)",
         R"(ts="2024-05-17T14:04:00+02" mod="2024-06-10T09:30:00Z"><dz>Kemi)", 1},
        {"place", "<dz>Utti</dz>", "<dz>Utti East</dz>", 0},
        {"aircraft", "<ac>Skyvan</ac>", "<ac>Cessna</ac>", 0},
        {"type", "<type>Belly</type>", "<type>Freefly</type>", 0},
        {"exit height", "<exit>4000</exit>", "<exit>4010</exit>", 0},
        {"opening height", "<open>900</open>", "<open>800</open>", 1},
        {"fall-rate kind", R"(<fallrate name="Custom"/>)", R"(<fallrate name="Vertical"/>)", 0},
        {"typed freefall time", "<ffTime>55</ffTime>", "<ffTime>56</ffTime>", 1},
        {"custom fall rate, which computes jump 7's freefall time", R"(name="Custom" speed="22.3")",
         R"(name="Custom" speed="30")", 0},
        {"landing", "<landing>Stand-up</landing>", "<landing>Off field</landing>", 0},
        {"rig reference", R"(<equipment n="0"/>)", R"(<equipment n="1"/>)", 0},
        {"rig renamed", "<harness>Javelin</harness>", "<harness>Mirage</harness>", 0},
        {"note", "Good jump", "Good jump!", 0},
        {"signer", R"(<signature name="Sanna">)", R"(<signature name="Sanne">)", 1},
        {"licence", "<licence>SIL-D-1042</licence>", "<licence>SIL-D-1043</licence>", 0},
        {"licence removed", "<licence>DFV-123</licence>", "", 1},
        {"a point", R"(<p x="3" y="4"/>)", R"(<p x="3" y="5"/>)", 0},
        {"point order", R"(<p x="1" y="2"/><p x="3" y="4"/>)", R"(<p x="3" y="4"/><p x="1" y="2"/>)", 0},
        {"stroke order",
         R"(<line size="2"><p x="1" y="2"/><p x="3" y="4"/></line><line size="1"><p x="5" y="6"/></line>)",
         R"(<line size="1"><p x="5" y="6"/></line><line size="2"><p x="1" y="2"/><p x="3" y="4"/></line>)", 0},
        {"a point moved to the next stroke", R"(<p x="3" y="4"/></line><line size="1">)",
         R"(</line><line size="1"><p x="3" y="4"/>)", 0},
        {"a point added", R"(<p x="7" y="8"/>)", R"(<p x="7" y="8"/><p x="7" y="9"/>)", 1},
        {"seal's hex", R"(name="Matti Virtanen"><id>s1:)", R"(name="Matti Virtanen"><id>s1:0)", 0},
        // Not in the seal: the witness does not vouch for them.
        {"team", "<team>Team A</team>", "<team>Team B</team>", -1},
        {"malfunction", "<malfunction>Line twists</malfunction>", "<malfunction></malfunction>", -1},
        {"wind", R"(speed="4.5")", R"(speed="6")", -1},
        {"size", "<size>4</size>", "<size>5</size>", -1},
        {"points", "<points>12</points>", "<points>20</points>", -1},
        {"modification stamp", R"(mod="2024-06-10T09:30:00Z"><dz>Utti)", R"(mod="2024-06-11T09:30:00Z"><dz>Utti)", -1},
        {"an unsigned jump", "<dz>Oulu</dz>", "<dz>Oulunsalo</dz>", -1},
        {"a signer remembered", R"(<signer name="Sanna" licence="DFV-123"/>)", "", -1},
        // A seal of a version this program does not know reads as no seal.
        {"unknown seal version", R"(name="Sanna"><id>s1:)", R"(name="Sanna"><id>s2:)", 1, S::Unsealed},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.what);
        std::string edited = saved;
        const std::size_t at = edited.find(row.find);
        ASSERT_NE(at, std::string::npos) << row.find;
        ASSERT_EQ(edited.find(row.find, at + 1), std::string::npos) << row.find << " is not unique";
        edited.replace(at, std::string(row.find).size(), row.replace);
        Reload(edited);
        std::vector<SealState> expected = kAsSigned;
        if (row.broken >= 0)
            expected[static_cast<std::size_t>(row.broken)] = row.state;
        EXPECT_EQ(States(), expected);
    }
}

TEST_F(JumpSealTest, SealsAndSignersGoThroughLoadAndSaveByteForByte)
{
    const std::string first = Save("first.tvl");
    Reload(first);
    EXPECT_EQ(States(), kAsSigned);
    EXPECT_EQ(Save("second.tvl"), first);
    EXPECT_EQ(doc.GetSettings().GetSigners(),
              (std::vector<CKnownSigner>{{"Matti Virtanen", "SIL-D-1042"}, {"Sanna", "DFV-123"}}));
    EXPECT_TRUE(doc.GetJump(0).GetSignature().GetId().starts_with(JumpSeal::kPrefix));
    EXPECT_EQ(doc.GetJump(3).GetSignature().GetId(), "SIL-D-3315");
}

// What the program itself does to a sealed logbook never breaks a seal; where a change would alter
// what a signed jump shows, the editors count those jumps so that the program can ask first.
TEST_F(JumpSealTest, TheProgramsOwnOperationsKeepEverySeal)
{
    const struct
    {
        const char* what;
        std::function<std::size_t(CLogbookDoc&)> run; // returns the signed jumps it says it touches
        std::vector<SealState> after = kAsSigned;
    } rows[] = {
        {"units switched to imperial and per hour, then back",
         [](CLogbookDoc& d) {
             CUnitSettings units = kMetric;
             std::size_t touched = 0;
             for (const int system : {CUnitSettings::Imperial, CUnitSettings::Metric}) {
                 CPreferencesEdit edit;
                 edit.Load(units, d.GetSettings());
                 edit.SetUnits(system);
                 edit.SetSpeedDisplay(system == CUnitSettings::Imperial ? CUnitSettings::PerHour
                                                                        : CUnitSettings::PerSecond);
                 touched += edit.SignedJumpsTouched(d);
                 edit.Apply(units, nullptr, d);
             }
             return touched;
         }},
        {"rig [1] removed: jump 7 keeps its text, jump 8 follows rig [2] to the first place",
         [](CLogbookDoc& d) {
             CEquipmentsEdit edit;
             edit.Load(d.GetSettings().GetEquipmentList());
             edit.RemoveRig(0);
             edit.AddRig(edit.MakeNewRig());
             const std::size_t touched = edit.SignedJumpsTouched(d);
             edit.Apply(d);
             EXPECT_EQ(d.GetJump(0).GetEquipmentRef().mode, CJumpEquipmentRef::ByDescription);
             EXPECT_EQ(d.GetJump(1).GetEquipmentRef().index, 0);
             return touched;
         }},
        {"the unsigned jump renumbered to the front",
         [](CLogbookDoc& d) {
             static const CFixedClock fixed(kNow);
             CJumpEdit edit(d, kMetric, nullptr, fixed, &d.GetJump(2));
             edit.Values().number = 5;
             EXPECT_TRUE(edit.Apply().changed);
             return std::size_t{0};
         },
         {S::NotSigned, S::Intact, S::Intact, S::Unsealed}},
        {"profile and previous jumps changed",
         [](CLogbookDoc& d) {
             CLogbookSettings settings = d.GetSettings();
             settings.SetPreviousJumps(100);
             settings.AddLicense("D-4711");
             d.ReplaceSettings(settings);
             return std::size_t{0};
         }},
        // The two changes the program asks about first: both alter jump 7 only.
        {"rig [1] renamed",
         [](CLogbookDoc& d) {
             CEquipmentsEdit edit;
             edit.Load(d.GetSettings().GetEquipmentList());
             auto rig = std::make_unique<CEquipment>(edit.Rig(0));
             rig->SetHarness("Mirage");
             edit.ReplaceRig(0, std::move(rig));
             const std::size_t touched = edit.SignedJumpsTouched(d);
             edit.Apply(d);
             return touched * 100;
         },
         {S::Changed, S::Intact, S::NotSigned, S::Unsealed}},
        {"custom fall rate changed",
         [](CLogbookDoc& d) {
             CUnitSettings units = kMetric;
             CPreferencesEdit edit;
             edit.Load(units, d.GetSettings());
             edit.customTenths = 300;
             const std::size_t touched = edit.SignedJumpsTouched(d);
             edit.Apply(units, nullptr, d);
             return touched * 100;
         },
         {S::Changed, S::Intact, S::NotSigned, S::Unsealed}},
    };
    const std::string saved = Save();
    for (const auto& row : rows) {
        SCOPED_TRACE(row.what);
        Reload(saved);
        const std::size_t touched = row.run(doc);
        // The asking rows report their one touched jump as 100.
        EXPECT_EQ(touched, row.after[0] == S::Changed ? 100u : 0u);
        EXPECT_EQ(States(), row.after);
        Reload(Save("after.tvl"));
        EXPECT_EQ(States(), row.after) << "after saving and loading";
    }
}

TEST_F(JumpSealTest, ASignatureRemovedLetsTheJumpBeCorrectedAndSignedAgain)
{
    ASSERT_TRUE(CJumpEdit(doc, kMetric, nullptr, clock, &doc.GetJump(0)).IsViewOnly());
    ASSERT_TRUE(CJumpEdit::RemoveSignature(doc, 0, kNow));
    EXPECT_FALSE(CJumpEdit::RemoveSignature(doc, 2, kNow)) << "an unsigned jump has none to remove";
    EXPECT_EQ(State(0), S::NotSigned);
    EXPECT_EQ(doc.GetJump(0).GetSignature(), CJumpSignature());

    CJumpEdit edit(doc, kMetric, nullptr, clock, &doc.GetJump(0));
    ASSERT_FALSE(edit.IsViewOnly());
    edit.Values().place = "Utti East";
    edit.Values().signer = "Sanna";
    // A known signer brings the licence number the logbook remembers.
    edit.Values().signerLicence = edit.KnownLicence("Sanna");
    EXPECT_EQ(edit.Values().signerLicence, "DFV-123");
    EXPECT_EQ(edit.KnownLicence("Old Signer"), "");
    edit.Values().strokes = {{{4, 4}, {5, 5}}};
    ASSERT_TRUE(edit.ValidateAll());
    ASSERT_TRUE(edit.Apply().changed);

    EXPECT_EQ(States(), kAsSigned);
    EXPECT_EQ(doc.GetJump(0).GetPlace(), "Utti East");
    Reload(Save());
    EXPECT_EQ(States(), kAsSigned);
    EXPECT_EQ(doc.GetJump(0).GetSignature().GetLicence(), "DFV-123");
}

} // namespace
