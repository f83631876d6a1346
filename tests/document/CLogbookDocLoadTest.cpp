#include "document/CLogbookDoc.h"
#include "document/CSummaryRows.h"
#include "document/IClock.h"
#include "resources/StringTable.h"
#include "tests/document/DocTestFiles.h"
#include "units/CMemorySettingsStore.h"
#include "units/CUnitSettings.h"

#include <gtest/gtest.h>

#include <climits>
#include <regex>

namespace {

const std::string kGolden = std::string(TERVOLA_TEST_DATA) + "/golden.tvl";

// The root's "creator" and "mod" differ by design between the file read and the file written.
std::string WithoutRootStamps(std::string xml)
{
    static const std::regex stamps(R"(^(<\?xml[^>]*\?><tvl version="1\.2") creator="[^"]*" mod="[^"]*">)");
    return std::regex_replace(xml, stamps, "$1>", std::regex_constants::format_first_only);
}

std::string Logbook(const std::string& body, const std::string& version = "1.2")
{
    return R"(<?xml version="1.0" encoding="UTF-8" ?><tvl version=")" + version + R"(">)" + body + "</tvl>";
}

const std::string kStamps = R"( ts="2008-05-17T14:03:00Z" mod="2008-05-17T14:03:00Z")";

std::string JumpXml(int number, const std::string& place, int exit, int open)
{
    return "<jump n=\"" + std::to_string(number) + "\"" + kStamps + "><dz>" + place +
           R"(</dz><fallrate name="Standard"/><exit>)" + std::to_string(exit) + "</exit><open>" + std::to_string(open) +
           "</open></jump>";
}

void ExpectEmpty(const CLogbookDoc& doc)
{
    EXPECT_EQ(doc.GetJumpCount(), 0u);
    EXPECT_FALSE(doc.HasPath());
    EXPECT_FALSE(doc.IsModified());
    EXPECT_TRUE(doc.GetSettings() == CLogbookSettings());
    EXPECT_EQ(doc.GetTotalFreefallTime(), 0);
    EXPECT_EQ(doc.GetSummary().numberOfJumps, 0);
}

} // namespace

TEST(CLogbookDocGolden, LoadSaveKeepsEveryByteInBothContainers)
{
    const std::string golden = ReadBytes(kGolden);
    ASSERT_GT(golden.size(), 2048u) << "the golden logbook must cross a read chunk";
    const std::string creator = std::string("creator=\"Tervola Pocket ") + std::string(StringTable::kProductVersion) +
                                " - " + std::string(StringTable::kWebAddress) + "\"";

    for (const std::string extension : {".tvl", ".tvz", ".TVL", ".Tvz"}) {
        CScratchFolder folder("golden" + extension.substr(1));
        const bool gzip = extension == ".tvz" || extension == ".Tvz";
        const std::string source = folder / ("source" + extension);
        const std::string target = folder / ("saved" + extension);
        ASSERT_TRUE(gzip ? WriteGzip(source, golden) : WriteBytes(source, golden));

        CMemorySettingsStore store;
        CLogbookDoc doc(&store, &kClock);
        const CLoadResult loaded = doc.Load(source);
        ASSERT_TRUE(loaded.ok) << extension << ": " << loaded.message.arg1;
        ASSERT_TRUE(doc.Save(target)) << extension;

        const std::string raw = ReadBytes(target);
        ASSERT_GE(raw.size(), 2u);
        EXPECT_EQ(raw[0] == '\x1f' && raw[1] == '\x8b', gzip) << extension << ": wrong container written";
        const std::string written = gzip ? ReadGzip(target) : raw;
        EXPECT_EQ(WithoutRootStamps(written), WithoutRootStamps(golden)) << extension;
        EXPECT_NE(written.find(creator + R"( mod="2010-01-02T03:04:05Z">)"), std::string::npos)
            << written.substr(0, 160);
    }
}

// Taken over as a whole by an edited logbook that tries it.
TEST(CLogbookDocGolden, LoadedValues)
{
    CMemorySettingsStore store;
    CLogbookDoc doc(&store);
    doc.AddJump(MakeJump(7, "A"));
    ASSERT_TRUE(doc.TryLoad(kGolden).ok);
    EXPECT_EQ(store.GetString("General", "LastFile", ""), kGolden);
    EXPECT_EQ(doc.GetPath(), kGolden);
    EXPECT_FALSE(doc.IsModified());

    const CLogbookSettings& settings = doc.GetSettings();
    EXPECT_EQ(settings.FallrateSpeed(FallrateKind::Custom), 48.25);

    ASSERT_EQ(doc.GetJumpCount(), 5u);
    const auto& jumps = doc.GetJumps();
    for (int i = 0; i < 5; ++i)
        EXPECT_EQ(jumps[static_cast<std::size_t>(i)]->GetFallrateKind(), static_cast<FallrateKind>(i))
            << "jump " << i + 1;
    EXPECT_EQ(jumps[0]->GetMalfunction(), "Line twist, 50\xE2\x82\xAC repair");
    EXPECT_EQ(jumps[0]->GetEquipmentText(settings.GetEquipmentList()), "[1] Javelin Odyssey / Sabre2 / PD Reserve");
    EXPECT_EQ(jumps[0]->GetPictureName(), "pics\\jump1.jpg");
    EXPECT_EQ(jumps[1]->GetTimestamp().offsetMinutes, -330);
    EXPECT_EQ(jumps[2]->GetAircraft(), " ");

    // Freefall: 61 + 41 + 47 (computed at 52.5, 76 and 48.25 m/s) + 55 + 48 (stored) + 3600 before.
    const CLogbookSummary summary = doc.GetSummary();
    EXPECT_EQ(summary.numberOfJumps, 5);
    EXPECT_EQ(summary.freefallSeconds, 3852);
    EXPECT_DOUBLE_EQ(summary.freefallMetres, 13500.0);
    EXPECT_DOUBLE_EQ(summary.canopyMetres, 5300.0);
    EXPECT_EQ(summary.lastJump, CDateTime(2008, 6, 3));
}

TEST(CLogbookDocLoad, RefusalsGiveTheirMessageAndAnEmptyDocument)
{
    const std::string jump = JumpXml(1, "A", 4000, 1000);
    const CMessage notTervola(StringTable::IDS_NOT_TERVOLA);
    const auto badVersion = [](const char* v) { return CMessage(StringTable::IDS_BAD_VERSION, v); };
    const auto parserError = [](std::string detail) { return CMessage(StringTable::IDS_PARSER_ERROR, detail); };
    struct Case
    {
        std::string name;
        std::string xml;
        CMessage message;
    };
    std::vector<Case> cases = {
        {"version 1.3", Logbook(jump, "1.3"), badVersion("1.3")},
        {"version 2.0", Logbook(jump, "2.0"), badVersion("2.0")},
        {"no version", R"(<tvl creator="x"></tvl>)", badVersion("")},
        {"unknown top-level element", Logbook(R"(<settings></settings><journal size="1"></journal>)"), notTervola},
        {"unknown root", R"(<logbook version="1.2"></logbook>)", notTervola},
        {"unknown element inside log", Logbook(R"(<log size="1"><entry n="1"></entry></log>)"), notTervola},
        {"jump child refused", Logbook("<log>" + jump + "<jump n=\"2\"" + kStamps + "><exit>4k</exit></jump></log>"),
         parserError("Close Tag: exit, 4k")},
        {"unclosed logbook", R"(<tvl version="1.2"><log>)" + jump, {}},
        {"empty file", "", notTervola},
        {"no element at all", "Jumps 1-5\r\n", notTervola}};
    // Refused jump attributes (a negative number, no "ts", a lower-case zone, an empty "mod"): the
    // message names the tag and its attributes in this order.
    for (const std::string attributes :
         {R"(mod="2008-05-17T14:03:00Z" n="-1" ts="2008-05-17T14:03:00Z")", R"(mod="2008-05-17T14:03:00Z" n="1")",
          R"(mod="2008-05-17T14:03:00Z" n="1" ts="2008-05-17T14:03:00z")", R"(mod="" n="1" ts="2008-05-17T14:03:00Z")"})
        cases.push_back({attributes, Logbook("<log><jump " + attributes + "></jump></log>"),
                         parserError("Open Tag: jump, " + attributes)});
    for (const Case& c : cases) {
        CScratchFolder folder("refusal");
        const std::string path = folder / "bad.tvl";
        WriteBytes(path, c.xml);
        CMemorySettingsStore store;
        CLogbookDoc doc(&store);
        ASSERT_TRUE(doc.Load(kGolden)); // a refused load also forgets what was open before
        store.SetString("General", "LastFile", "previous");
        const CLoadResult result = doc.Load(path);
        EXPECT_FALSE(result.ok) << c.name;
        EXPECT_EQ(result.message, c.message) << c.name;
        ExpectEmpty(doc);
        EXPECT_EQ(store.GetString("General", "LastFile", ""), "previous") << c.name;

        // Trying the same file on an open, edited logbook leaves that logbook untouched.
        CLogbookDoc kept(&store);
        ASSERT_TRUE(kept.Load(kGolden));
        store.SetString("General", "LastFile", "previous");
        kept.SetModified();
        const CLoadResult tried = kept.TryLoad(path);
        EXPECT_FALSE(tried.ok) << c.name;
        EXPECT_EQ(tried.message, c.message) << c.name;
        EXPECT_EQ(kept.GetJumpCount(), 5u) << c.name;
        EXPECT_EQ(kept.GetTotalFreefallDistance(), 13500) << c.name;
        EXPECT_EQ(kept.GetPath(), kGolden) << c.name;
        EXPECT_TRUE(kept.IsModified()) << c.name;
        EXPECT_EQ(store.GetString("General", "LastFile", ""), "previous") << c.name;
    }
}

TEST(CLogbookDocLoad, ContainersAndVersions)
{
    CScratchFolder folder("containers");
    const std::string xml = Logbook(JumpXml(1, "A", 4000, 1000), "1.10");
    struct Case
    {
        const char* file;
        bool gzip;
        bool loads;
    };
    const Case cases[] = {
        {"plain.tvl", false, true},    {"plain.TVL", false, true},
        {"plain.tvz", false, true}, // zlib reads an uncompressed file as it is
        {"plain.xml", false, true},    {"packed.tvz", true, true},
        {"packed.TVL", true, false}, // ".tvl" is always read as plain XML: no tag in there
        {"missing.tvz", false, false},
    };
    CLogbookDoc doc; // no settings store at all; each load replaces what the one before read
    for (const Case& c : cases) {
        const std::string path = folder / c.file;
        if (std::string(c.file).rfind("missing", 0) != 0) {
            ASSERT_TRUE(c.gzip ? WriteGzip(path, xml) : WriteBytes(path, xml));
        }
        const CLoadResult result = doc.Load(path);
        EXPECT_EQ(result.ok, c.loads) << c.file;
        EXPECT_EQ(doc.GetJumpCount(), c.loads ? 1u : 0u) << c.file;
    }

    for (const std::string version : {"1.0", "1.1", "1.10", "1.2", "1.19999"}) {
        const std::string path = folder / "version.tvl";
        WriteBytes(path, Logbook("", version));
        EXPECT_TRUE(doc.Load(path).ok) << version;
    }
}

TEST(CLogbookDocLoad, JumpsSortedByNumberEqualNumbersInFileOrder)
{
    CScratchFolder folder("order");
    const std::string path = folder / "order.tvl";
    WriteBytes(path, Logbook("<log>" + JumpXml(5, "E", 0, 0) + JumpXml(3, "first 3", 0, 0) + JumpXml(4, "D", 0, 0) +
                             JumpXml(3, "second 3", 0, 0) + JumpXml(1, "A", 0, 0) + "</log>"));
    CLogbookDoc doc;
    ASSERT_TRUE(doc.Load(path).ok);
    std::vector<std::string> places;
    for (const auto& jump : doc.GetJumps())
        places.push_back(std::to_string(jump->GetNumber()) + " " + jump->GetPlace());
    EXPECT_EQ(places, (std::vector<std::string>{"1 A", "3 first 3", "3 second 3", "4 D", "5 E"}));
}

TEST(CLogbookDocSummary, TotalsFollowLoadAddRemoveAndChange)
{
    CScratchFolder folder("summary");
    const std::string path = folder / "summary.tvl";
    // Two logged jumps of 1000 m freefall each, the last numbered 500.
    WriteBytes(path, Logbook("<settings><previousDelay>100</previousDelay></settings><log>" +
                             JumpXml(500, "B", 2000, 1000) + JumpXml(12, "A", 2000, 1000) + "</log>"));
    CLogbookDoc doc;
    ASSERT_TRUE(doc.Load(path).ok);
    CLogbookSummary summary = doc.GetSummary();
    EXPECT_EQ(summary.numberOfJumps, 500);
    EXPECT_DOUBLE_EQ(summary.freefallMetres, 500000.0); // 500 × 2000 ÷ 2
    EXPECT_DOUBLE_EQ(summary.canopyMetres, 500000.0);
    EXPECT_EQ(summary.freefallSeconds, 2 * 23 + 100); // 1000 m at 52.5 m/s take 22.7 s
    EXPECT_EQ(summary.lastJump, CDateTime(2008, 5, 17));

    // Adding a jump below the last number: counted, but "Number of Jumps" stays the last number.
    auto added = std::make_unique<CJump>(20, CZonedDateTime{CDateTime(2009, 1, 1, 12, 0, 0), 0}, CDateTime(2009, 1, 1));
    added->SetFallrateValues({FallrateKind::Manual, 1500, 900, 30, 0, 0, 0});
    const CJump* jump20 = doc.AddJump(std::move(added));
    EXPECT_TRUE(doc.IsModified());
    EXPECT_EQ(doc.IndexOf(jump20), 1);
    summary = doc.GetSummary();
    EXPECT_EQ(summary.numberOfJumps, 500);
    EXPECT_EQ(summary.freefallSeconds, 2 * 23 + 30 + 100);
    EXPECT_DOUBLE_EQ(summary.freefallMetres, 2600.0 * 500 / 3);
    EXPECT_DOUBLE_EQ(summary.canopyMetres, 2900.0 * 500 / 3);
    EXPECT_EQ(summary.lastJump, CDateTime(2008, 5, 17)); // the last in number order, not in time

    // Renumbering jump 20 past 500 moves it to the end and makes it the last jump.
    doc.ChangeJump(1, [](CJump& jump) {
        jump.SetFallrateValues({FallrateKind::Manual, 1000, 1000, 0, 0, 0, 0});
        return jump.SetNumber(600);
    });
    EXPECT_EQ(doc.IndexOf(jump20), 2);
    EXPECT_EQ(doc.GetTotalFreefallDistance(), 2000);
    EXPECT_EQ(doc.GetTotalFreefallTime(), 46);
    summary = doc.GetSummary();
    EXPECT_EQ(summary.numberOfJumps, 600);
    EXPECT_EQ(summary.lastJump, CDateTime(2009, 1, 1));

    // Counting again from nothing (new settings) gives what the changes added up to.
    CLogbookSettings settings = doc.GetSettings();
    settings.SetPreviousJumps(settings.GetPreviousJumps() + 1);
    ASSERT_TRUE(doc.ReplaceSettings(settings));
    EXPECT_EQ(doc.GetTotalFreefallTime(), 46);
    EXPECT_EQ(doc.GetTotalFreefallDistance(), 2000);
    EXPECT_EQ(doc.GetTotalCanopyDistance(), 3000);

    // Exit below opening counts negatively in the distance.
    auto low = std::make_unique<CJump>(7, CZonedDateTime{CDateTime(2009, 1, 2), 0}, CDateTime(2009, 1, 2));
    low->SetFallrateValues({FallrateKind::Standard, 800, 1000, 0, 0, 0, 0});
    doc.AddJump(std::move(low));
    EXPECT_EQ(doc.GetTotalFreefallDistance(), 1800);
    EXPECT_EQ(doc.GetTotalFreefallTime(), 46);

    while (doc.GetJumpCount() > 0)
        ASSERT_NE(doc.RemoveJump(0), nullptr);
    EXPECT_EQ(doc.RemoveJump(0), nullptr);
    summary = doc.GetSummary();
    EXPECT_EQ(summary.numberOfJumps, 0);
    EXPECT_EQ(summary.freefallSeconds, 100);
    EXPECT_TRUE(summary.lastJump.IsNull());
    EXPECT_EQ(doc.GetTotalFreefallDistance(), 0);
    EXPECT_EQ(doc.GetTotalCanopyDistance(), 0);
}

TEST(CSummaryRows, FreefallTimeIsASigned32BitDuration)
{
    // With a jump of 30 s.
    for (const auto& [previousDelay, shown] : {std::pair{-100, "0:-1:-10"}, std::pair{INT_MAX, "596523:14:07"}}) {
        CLogbookDoc doc;
        CLogbookSettings settings;
        settings.SetPreviousDelay(previousDelay);
        doc.ReplaceSettings(settings);
        auto jump = std::make_unique<CJump>(1, CZonedDateTime{CDateTime(2009, 1, 1), 0}, CDateTime(2009, 1, 1));
        jump->SetFallrateValues({FallrateKind::Manual, 1500, 900, 30, 0, 0, 0});
        doc.AddJump(std::move(jump));
        EXPECT_EQ(CSummaryRows::Build(doc, CUnitSettings(1, 0, 0))[CSummaryRows::FreefallTime].value, shown);
    }
}

TEST(CLogbookDocMedia, StoredNamesResolveAgainstTheLogbookFolder)
{
    CLogbookDoc doc;
    EXPECT_EQ(doc.ResolveMediaPath("pics\\a.jpg"), "pics\\a.jpg"); // no logbook path
    const char sep = std::filesystem::path::preferred_separator;
    const std::string folder = std::string("logs") + sep + "2008";
    doc.SetPath(folder + sep + "Jumps.tvz");
    const std::pair<const char*, std::string> cases[] = {
        {"a.jpg", folder + sep + "a.jpg"},
        {"pics\\a.jpg", folder + sep + "pics" + sep + "a.jpg"},
        {"pics/sub/a.jpg", folder + sep + "pics" + sep + "sub" + sep + "a.jpg"},
        {"", ""}};
    for (const auto& [stored, resolved] : cases)
        EXPECT_EQ(doc.ResolveMediaPath(stored), resolved) << stored;
    doc.SetPath("Jumps.tvz"); // no folder part
    EXPECT_EQ(doc.ResolveMediaPath("pics\\a.jpg"), "pics\\a.jpg");
}

TEST(CLogbookDocLoad, FileWithMoreJumpsThanTheBoundIsRefused)
{
    CScratchFolder folder("jumplimit");
    std::string jumps;
    for (int n = 1; n <= 6; ++n)
        jumps += JumpXml(n, "A", 4000, 1000);
    const std::string path = folder / "many.tvl";
    WriteBytes(path, Logbook("<log>" + jumps + "</log>"));

    CLogbookDoc doc;
    doc.SetJumpLimit(6);
    ASSERT_TRUE(doc.Load(path).ok); // exactly at the bound
    EXPECT_EQ(doc.GetJumpCount(), 6u);

    doc.SetJumpLimit(5);
    const CLoadResult result = doc.Load(path);
    EXPECT_FALSE(result.ok);
    EXPECT_EQ(result.message, CMessage(StringTable::IDS_PARSER_ERROR, "more than 5 jumps"));
    EXPECT_EQ(doc.GetJumpCount(), 0u);
    EXPECT_FALSE(doc.HasPath());
}
