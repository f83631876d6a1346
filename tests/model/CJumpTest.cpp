#include "model/CJump.h"
#include "model/CBaroSample.h"
#include "model/CGpsSample.h"
#include "model/CLogbookSettings.h"
#include "tests/model/ModelXml.h"

#include <gtest/gtest.h>

#include <cmath>
#include <functional>

namespace {

CJump MakeJump(int number = 7)
{
    return CJump(number, CZonedDateTime{CDateTime(2008, 5, 17, 14, 3, 0), 120}, CDateTime(2008, 5, 18, 9, 0, 0));
}

const std::string kOpen = R"(<jump n="7" ts="2008-05-17T14:03:00+02" mod="2008-05-18T09:00:00Z">)";

std::string Children(const CJump& jump)
{
    std::string xml = WriteXml([&](CXmlWriter& w) { jump.Write(w); });
    if (xml.rfind(kOpen, 0) != 0 || xml.size() < kOpen.size() + 7)
        return "<unexpected>" + xml;
    return xml.substr(kOpen.size(), xml.size() - kOpen.size() - 7); // without "</jump>"
}

struct WriteCase
{
    const char* name;
    std::function<void(CJump&)> setup;
    std::string expected; // the children of "jump"
};

} // namespace

TEST(CJumpWrite, ChildrenFollowTheWriterRules)
{
    const std::string standard = R"(<fallrate name="Standard"/>)";
    // The golden round trip pins the texts, Import's children, rigs, images and notes; these rows
    // are what a logbook read from a file cannot show.
    const auto fallrate = [](CJumpFallrate f) { return [=](CJump& j) { j.SetFallrateValues(f); }; };
    const std::vector<CJumpSignature::Stroke> dotAndEmpty{{{0, 0}}, {}};
    const WriteCase cases[] = {
        {"fresh jump: only the fall-rate kind", [](CJump&) {}, standard},
        {"Standard writes heights but no stored times or speeds",
         fallrate({FallrateKind::Standard, 4000, 1000, 55, 120, 62.5, 50.0}),
         standard + "<exit>4000</exit><open>1000</open>"},
        {"Vertical and zero heights", fallrate({FallrateKind::Vertical, 0, 0, 55, 0, 62.5, 0}),
         R"(<fallrate name="Vertical"/>)"},
        {"Manual writes delay and speeds, not canopy time",
         fallrate({FallrateKind::Manual, 3500, 800, 55, 120, 61.5, 0.0}),
         R"(<fallrate name="Manual"/><exit>3500</exit><open>800</open><ffTime>55</ffTime><vMax>61.5</vMax>)"},
        {"wind with zero direction is written", [](CJump& j) { j.SetWind(0, 5.5); },
         standard + R"(<wind direction="0" speed="5.5"/>)"},
        {"wind speed 0 is no wind", [](CJump& j) { j.SetWind(270, 0.0); }, standard},
        {"wind speed at the threshold is no wind", [](CJump& j) { j.SetWind(270, 1e-9); }, standard},
        {"empty description is no rig", [](CJump& j) { j.SetEquipmentByIndex(3), j.SetEquipmentByDescription(""); },
         standard},
        {"recording of kind none is not written",
         [](CJump& j) {
             j.Recording().AddWind(CRecordingWind{1, 2.0, 3}), j.Recording().SetQne(1000);
         },
         standard},
        {"recording kind set but empty: type and qne only",
         [](CJump& j) { j.Recording().SetKind(CJumpRecording::Barometric), j.Recording().SetQne(1013.25); },
         standard + R"(<profile type="baro"><qne>1013.25</qne></profile>)"},
        {"signature with strokes but no signer", [=](CJump& j) { j.Signature().SetStrokes(dotAndEmpty); },
         standard + R"(<signature name=""><lines size="2"><line size="1"><p x="0" y="0"/></line>)"
                    R"(<line size="0"></line></lines></signature>)"}};
    for (const WriteCase& c : cases) {
        CJump jump = MakeJump();
        c.setup(jump);
        EXPECT_EQ(Children(jump), c.expected) << c.name;
    }
}

TEST(CJumpWrite, NumberZeroAndInvalidDatesAreStillAttributes)
{
    CJump jump(0, CZonedDateTime{}, CDateTime());
    EXPECT_EQ(WriteXml([&](CXmlWriter& w) { jump.Write(w); }),
              R"(<jump n="0" ts="" mod=""><fallrate name="Standard"/></jump>)");
}

TEST(CJumpRead, EveryChildInAnyOrder)
{
    CJump jump = MakeJump();
    ASSERT_TRUE(ReadXml(jump, R"(<jump n="7"><points>3</points><note>&lt;b&gt;</note><exit>4000</exit>)"
                              R"(<dz>Jämijärvi</dz><fallrate name="Manual"/><open>1000</open><ffTime>50</ffTime>)"
                              R"(<cpTime>200</cpTime><vMax>60.5</vMax><vAvg>-50.0</vAvg><a&#x63;>Otter</a&#x63;>)"
                              R"(<type>RW</type><landing>OK</landing><team>X</team><malfunction>M</malfunction>)"
                              R"(<size>4</size><wind direction="-90" speed="3.5"/><unknown a="1"><dz>Y</dz></unknown>)"
                              R"(<image name="" thumbnail="t.jpg"/><image name="" thumbnail=""/>)"
                              R"(<video name="v.avi"/></jump>)"));
    // Children of an unknown element still reach the jump; the later "dz" wins. A name may hold
    // character references like any text.
    EXPECT_EQ(jump.GetPlace(), "Y");
    EXPECT_EQ(jump.GetAircraft(), "Otter");
    EXPECT_EQ(jump.GetType(), "RW");
    EXPECT_EQ(jump.GetNote(), "<b>");
    EXPECT_EQ(jump.GetFallrate(), (CJumpFallrate{FallrateKind::Manual, 4000, 1000, 50, 200, 60.5, -50.0}));
    EXPECT_EQ(jump.GetWind(), (CJumpWind{-90, 3.5}));
    EXPECT_EQ(jump.GetSize(), 4);
    EXPECT_EQ(jump.GetPoints(), 3);
    ASSERT_EQ(jump.GetImages().size(), 1u); // the picture without any name is dropped
    EXPECT_EQ(jump.GetImages()[0].thumbnail, "t.jpg");
    EXPECT_EQ(jump.GetPictureName(), "");
    EXPECT_EQ(jump.GetVideo(), (CJumpVideo{"v.avi", 0.0}));
}

TEST(CJumpRead, FallrateAndEquipmentAttributes)
{
    struct Case
    {
        std::string xml;
        FallrateKind kind;
        CJumpEquipmentRef rig;
    };
    const Case cases[] = {
        {R"(<fallrate name="Import"/>)", FallrateKind::Import, {}},
        {R"(<fallrate name="Custom"/><fallrate name="custom"/>)", FallrateKind::Custom, {}}, // case matters
        {R"(<fallrate name="Freefly"/>)", FallrateKind::Standard, {}},
        {R"(<equipment n="2" description="Mine"/>)", FallrateKind::Standard, {CJumpEquipmentRef::ByIndex, 2, {}}},
        {R"(<equipment description="Mine"/>)", FallrateKind::Standard, {CJumpEquipmentRef::ByDescription, 0, "Mine"}},
        {R"(<equipment description=""/>)", FallrateKind::Standard, {}},
    };
    for (const Case& c : cases) {
        CJump jump = MakeJump();
        ASSERT_TRUE(ReadXml(jump, "<jump>" + c.xml + "</jump>")) << c.xml;
        EXPECT_EQ(jump.GetFallrateKind(), c.kind) << c.xml;
        EXPECT_EQ(jump.GetEquipmentRef(), c.rig) << c.xml;
    }
}

TEST(CJumpRead, RefusedChildrenStopTheLoad)
{
    const char* refused[] = {
        "<exit>12a</exit>",
        "<open>1.5</open>",
        "<ffTime>x</ffTime>",
        "<cpTime>1 0</cpTime>",
        "<size>1e3</size>",
        "<points>--1</points>",
        "<vMax>1.2.3</vMax>",
        "<vAvg>abc</vAvg>",
        R"(<wind direction="90"/>)",
        R"(<wind speed="3.0"/>)",
        R"(<wind direction="x" speed="3.0"/>)",
        R"(<video offset="1.0"/>)",
        "<profile><qne>1.0</qne></profile>",
        R"(<signature><id>x</id></signature>)",
        R"(<profile type="altimeter"><wpt a="1.0" t="0.0"/></profile>)",
        R"(<profile type="baro"><wpt a="1.0"/></profile>)",
        R"(<profile type="gps"><wpt a="1.0" t="z"/></profile>)",
        R"(<profile type="baro"><annotation a="1.0" t="2.0"/></profile>)",
        R"(<profile type="baro"><winds apply="true"><wind direction="1" speed="2.0"/></winds></profile>)",
        R"(<profile type="baro"><wind direction="1.5" speed="2.0" altitude="3"/></profile>)",
        R"(<signature name="A"><line><p x="1"/></line></signature>)",
        R"(<signature name="A"><line><p x="1" y="b"/></line></signature>)",
    };
    for (const char* child : refused) {
        CJump jump = MakeJump();
        EXPECT_FALSE(ReadXml(jump, std::string("<jump>") + child + "</jump>")) << child;
    }
}

TEST(CJumpFreefall, ComputedAgainstWorkedValues)
{
    // Two steps by hand: v1 = 0.981, s1 = 0.0981; v2 = 0.981 + (1 - 0.981²/52.5²) * 0.981
    // = 1.96166, s2 = 0.29427. So 0.05 m take one step, 0.2 m two.
    EXPECT_DOUBLE_EQ(CJump::ComputeFreefallTime(0.05, 52.5), 0.1);
    EXPECT_DOUBLE_EQ(CJump::ComputeFreefallTime(0.2, 52.5), 0.2);
    EXPECT_DOUBLE_EQ(CJump::ComputeFreefallTime(0.0981, 52.5), 0.1); // reaching the distance ends the fall
    EXPECT_EQ(CJump::ComputeFreefallTime(0.0, 52.5), 0.0);
    EXPECT_EQ(CJump::ComputeFreefallTime(-100.0, 52.5), 0.0);
    EXPECT_EQ(CJump::ComputeFreefallTime(3000.0, 0.0), 0.0);
    EXPECT_EQ(CJump::ComputeFreefallTime(3000.0, 5e-9), 0.0);

    // Long falls: the steps approach t = vt/g * acosh(exp(d g / vt²)) from below by well under
    // a step; the exact step counts are 608, 448 and 464.
    struct Case
    {
        double distance, speed, steps;
    };
    for (const Case& c : {Case{3000, 52.5, 608}, Case{3000, 76.0, 448}, Case{1000, 22.3, 464}}) {
        const double t = CJump::ComputeFreefallTime(c.distance, c.speed);
        const double exact = c.speed / 9.81 * std::acosh(std::exp(c.distance * 9.81 / (c.speed * c.speed)));
        EXPECT_NEAR(t, c.steps / 10.0, 1e-6) << c.distance << " at " << c.speed;
        EXPECT_NEAR(t, exact, 0.1) << c.distance << " at " << c.speed;
    }
    // A negative speed falls like its magnitude; a tiny unstable speed ends instead of looping.
    EXPECT_DOUBLE_EQ(CJump::ComputeFreefallTime(3000, -52.5), CJump::ComputeFreefallTime(3000, 52.5));
    EXPECT_GE(CJump::ComputeFreefallTime(3000, 0.3), 0.0);
}

TEST(CJumpFreefall, TimeByKind)
{
    CLogbookSettings settings;
    settings.SetCustomFallrateSpeed(22.3);
    struct Case
    {
        CJumpFallrate fallrate;
        int seconds;
    };
    const Case cases[] = {{{FallrateKind::Standard, 4000, 1000, 99, 0, 0, 0}, 61}, // 60.8 s rounds up
                          {{FallrateKind::Vertical, 4000, 1000, 99, 0, 0, 0}, 45}, // 44.8 s
                          {{FallrateKind::Custom, 2000, 1000, 99, 0, 0, 0}, 46},   // 46.4 s
                          {{FallrateKind::Standard, 1000, 1000, 99, 0, 0, 0}, 0},
                          {{FallrateKind::Standard, 900, 1000, 99, 0, 0, 0}, 0}, // exit below opening
                          {{FallrateKind::Manual, 4000, 1000, 55, 0, 0, 0}, 55},
                          {{FallrateKind::Import, 4000, 1000, 48, 0, 0, 0}, 48},
                          {{static_cast<FallrateKind>(9), 4000, 1000, 48, 0, 0, 0}, 0}};
    for (const Case& c : cases) {
        CJump jump = MakeJump();
        jump.SetFallrateValues(c.fallrate);
        EXPECT_EQ(jump.FreefallTime(settings), c.seconds) << "kind " << static_cast<int>(c.fallrate.kind);
    }
}

TEST(CJumpFallrateEdit, SetFallrateRules)
{
    const CJumpFallrate m{FallrateKind::Manual, 4000, 1000, 55, 120, 61.5, 48};
    const CJumpFallrate imp{FallrateKind::Import, 4000, 1000, 48, 240, 75, 62};
    const CJumpFallrate st{FallrateKind::Standard, 4000, 1000, 0, 0, 0, 0};
    struct Case
    {
        const char* name;
        CJumpFallrate before;
        CJumpFallrate edit; // canopy time unused
        bool changed;
        CJumpFallrate after;
    };
    const Case cases[] = {
        {"to Import: no other change",
         m,
         {FallrateKind::Import, 1, 2, 3, 0, 4, 5},
         true,
         {FallrateKind::Import, 4000, 1000, 55, 120, 61.5, 48}},
        {"Import stays Import", imp, {FallrateKind::Import, 1, 2, 3, 0, 4, 5}, false, imp},
        {"Manual to Standard clears times and speeds",
         m,
         {FallrateKind::Standard, 4000, 1000, 77, 0, 70, 60},
         true,
         st},
        {"Standard unchanged", st, {FallrateKind::Standard, 4000, 1000, 9, 0, 9, 9}, false, st},
        {"Standard heights",
         st,
         {FallrateKind::Standard, 4000, 900, 0, 0, 0, 0},
         true,
         {FallrateKind::Standard, 4000, 900, 0, 0, 0, 0}},
        {"Manual sign change alone is no change", m, {FallrateKind::Manual, 4000, 1000, 55, 0, -61.5, -48}, false, m},
        {"keeps canopy time",
         m,
         {FallrateKind::Manual, 4000, 1000, 56, 0, 62, 48},
         true,
         {FallrateKind::Manual, 4000, 1000, 56, 120, 62, 48}}};
    for (const Case& c : cases) {
        CJump jump = MakeJump();
        jump.SetFallrateValues(c.before);
        EXPECT_EQ(jump.SetFallrate(c.edit.kind, c.edit.exitHeight, c.edit.openHeight, c.edit.freefallTime,
                                   c.edit.maxSpeed, c.edit.avgSpeed),
                  c.changed)
            << c.name;
        EXPECT_EQ(jump.GetFallrate(), c.after) << c.name;
    }
}

TEST(CJumpNote, ParagraphsPerLine)
{
    const std::string p = R"(<p style="margin: 0">)";
    struct Case
    {
        std::string text;
        std::string markup;
        std::string readBack;
    };
    const Case cases[] = {{"one", p + "one</p>", "one"},
                          {"a\r\nb", p + "a</p>" + p + "b</p>", "a\r\nb"},
                          {"a\r\n\r\nb", p + "a</p>" + p + "</p>" + p + "b</p>", "a\r\n\r\nb"},
                          {"a\r\n", p + "a</p>", "a"},
                          {"\r\nb", p + "</p>" + p + "b</p>", "\r\nb"}};
    for (const Case& c : cases) {
        CJump jump = MakeJump();
        EXPECT_TRUE(jump.SetNoteText(c.text)) << c.text;
        EXPECT_EQ(jump.GetNote(), c.markup);
        std::string text = "stale";
        EXPECT_TRUE(jump.GetNoteText(text));
        EXPECT_EQ(text, c.readBack);
        EXPECT_FALSE(jump.NoteIsMarkupBroken());
    }
}

TEST(CJumpNote, ChangesAndTheDeliberateQuirks)
{
    CJump jump = MakeJump();
    std::string text = "stale";
    EXPECT_TRUE(jump.GetNoteText(text));
    EXPECT_EQ(text, "");
    EXPECT_FALSE(jump.SetNoteText("")); // empty stays empty

    EXPECT_TRUE(jump.SetNoteText("a\r\nb"));
    EXPECT_FALSE(jump.SetNoteText("a\r\nb"));    // same text as the note gives back
    EXPECT_TRUE(jump.SetNoteText("a\r\nb\r\n")); // differs from the read-back text, rewritten
    EXPECT_TRUE(jump.SetNoteText(""));
    EXPECT_EQ(jump.GetNote(), "");

    // A line holding "<" is put in unescaped and breaks the markup; every change is then refused.
    EXPECT_TRUE(jump.SetNoteText("1 < 2"));
    EXPECT_TRUE(jump.NoteIsMarkupBroken());
    const std::string broken = jump.GetNote();
    text = "stale";
    EXPECT_FALSE(jump.GetNoteText(text));
    EXPECT_EQ(text, "");
    EXPECT_FALSE(jump.SetNoteText("fixed"));
    EXPECT_FALSE(jump.SetNoteText(""));
    EXPECT_EQ(jump.GetNote(), broken);
}

TEST(CJumpRecordingWrite, EachSampleWritesItsOwnType)
{
    CJumpRecording recording;
    recording.SetKind(CJumpRecording::Satellite);
    recording.AddSample(std::make_unique<CGpsSample>(4000.0, 0.0, 61.5, 0.0));
    recording.AddSample(std::make_unique<CBaroSample>(1.0, 2.0));
    EXPECT_EQ(WriteXml([&](CXmlWriter& w) { recording.Write(w); }),
              R"(<profile type="gps"><waypoints size="2"><wpt a="4000.0" t="0.0"><lat>61.5</lat></wpt>)"
              R"(<wpt a="1.0" t="2.0"/></waypoints></profile>)");
}

TEST(CJumpRecordingRead, KindDecidesSamplesAndPositions)
{
    for (const auto& [type, kind] :
         {std::pair{"baro", CJumpRecording::Barometric}, std::pair{"gps", CJumpRecording::Satellite}}) {
        CJump jump = MakeJump();
        ASSERT_TRUE(ReadXml(jump, std::string(R"(<jump><profile type=")") + type +
                                      R"("><wpt a="1.0" t="2.0"><lat>61.5</lat><lon>-22.75</lon></wpt>)"
                                      R"(<winds apply="true"/></profile></jump>)"));
        const CJumpRecording& recording = jump.GetRecording();
        EXPECT_EQ(recording.GetKind(), kind);
        EXPECT_TRUE(recording.GetApply());
        ASSERT_EQ(recording.GetSamples().size(), 1u);
        const auto* gps = dynamic_cast<const CGpsSample*>(recording.GetSamples()[0].get());
        EXPECT_EQ(gps != nullptr, kind == CJumpRecording::Satellite) << type;
        if (gps) {
            EXPECT_EQ(gps->GetLatitude(), 61.5);
        }
        // "apply" lives only on the winds list: without winds it is not written.
        EXPECT_EQ(WriteXml([&](CXmlWriter& w) { recording.Write(w); }).find("apply"), std::string::npos);
    }
}

TEST(CJumpSignatureRead, PointBeforeAnyLineStartsAStroke)
{
    CJump jump = MakeJump();
    ASSERT_TRUE(ReadXml(jump, R"(<jump><signature name="A"><p x="1" y="2"/><line size="1"><p x="3" y="-4"/>)"
                              R"(</line><line size="0"></line></signature></jump>)"));
    const std::vector<CJumpSignature::Stroke> strokes{{{1, 2}}, {{3, -4}}, {}};
    EXPECT_EQ(jump.GetSignature().GetStrokes(), strokes);
    EXPECT_EQ(jump.GetSignature().GetName(), "A");
}
