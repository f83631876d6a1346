#include "tests/cli/TestLogbooks.h"
#include "tests/cli/ToolTest.h"

#include "document/CLogbookDoc.h"
#include "model/CJumpSeal.h"

#include <filesystem>
#include <memory>
#include <string>
#include <vector>

namespace {

using TestLogbooks::File;
using TestLogbooks::Jump;

const std::string kOpenFailed = "The file could not be opened.";
const std::string kRefused13 = "The file version (1.3) can not be processed. Please install an actual version of "
                               "Tervola or contact support@tervola.example.org";
const std::string kNoJumps = "<settings></settings><log size=\"0\"></log>";
const std::string kOneJump = "<log>" + Jump(7, "2024-05-01T10:00:00Z", "<dz>Utti</dz>") + "</log>";

using CheckCommand = CToolTest;

// Which logbook a file holds and what the tool makes of it is the document's business; these
// cases check how "check" reports it.
TEST_F(CheckCommand, PrintsCountsOrTheProgramsMessages)
{
    const struct
    {
        const char* name;
        std::string content; // empty: no file
        bool gzip;
        int exitCode;
        std::vector<std::string> out;
        std::vector<std::string> err; // the message-box texts, in order
    } cases[] = {{"one jump", File(kOneJump), true, 0, {"1 jump, last jump number 7"}, {}},
                 {"three jumps", TestLogbooks::Reference(), false, 0, {"3 jumps, last jump number 500"}, {}},
                 {"no jumps", File(kNoJumps), true, 0, {"0 jumps, last jump number 0"}, {}},
                 {"missing file", "", false, 1, {}, {kOpenFailed}},
                 {"newer version", File(kOneJump, "1.3"), true, 1, {}, {kRefused13, kOpenFailed}},
                 // A file that simply ends early has no text of its own.
                 {"truncated", "<?xml version=\"1.0\" ?><tvl version=\"1.2\"><log>", false, 1, {}, {kOpenFailed}}};
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        const std::string path = c.content.empty() ? m_dir / "missing.tvz" : Write("a.tvz", c.content, c.gzip);
        const CToolResult result = Run({"check", path});
        EXPECT_FALSE(result.crashed);
        EXPECT_EQ(result.exitCode, c.exitCode);
        EXPECT_EQ(result.OutLines(), c.out);
        EXPECT_EQ(result.ErrLines(), c.err);
    }

    // Every other command that reads a logbook reports a refused file the same way.
    const std::string path = Write("new.tvl", File(kOneJump, "1.3"));
    const std::string out = m_dir / "out.tvz";
    const std::vector<std::vector<std::string>> runs = {
        {"info", path},         {"export", path, "--format", "json"},  {"export", path, "--format", "csv"},
        {"convert", path, out}, {"import", path, m_dir / "track.csv"},
    };
    for (const std::vector<std::string>& arguments : runs) {
        SCOPED_TRACE(arguments[0] + " " + arguments.back());
        const CToolResult result = Run(arguments);
        EXPECT_EQ(result.exitCode, 1);
        EXPECT_TRUE(result.out.empty()) << result.out;
        EXPECT_EQ(result.ErrLines(), (std::vector<std::string>{kRefused13, kOpenFailed}));
    }
    EXPECT_FALSE(std::filesystem::exists(out));
}

// A logbook whose jump 8 was changed after it was sealed: "check" names it and fails; the
// sealed jump 7 and the unsealed jump 9 pass without a word.
TEST_F(CheckCommand, NamesTheJumpsWhoseSealIsBroken)
{
    CLogbookDoc doc;
    for (const int number : {7, 8, 9}) {
        auto jump = std::make_unique<CJump>(number, CZonedDateTime{CDateTime(2024, 5, number, 10, 0, 0), 0},
                                            CDateTime(2024, 5, number));
        jump->SetPlace("Utti");
        jump->SetSignature(number == 8 ? "Sanna Hämäläinen" : "Matti", {{{1, 2}, {3, 4}}});
        if (number != 9)
            jump->Signature().SetId(JumpSeal::Compute(*jump, doc.GetSettings()));
        doc.AddJump(std::move(jump));
    }
    doc.ChangeJump(1, [](CJump& jump) { return jump.SetPlace("Kemi"); });
    const std::string path = m_dir / "sealed.tvl";
    ASSERT_TRUE(doc.Save(path));

    const CToolResult result = Run({"check", path});
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_EQ(result.OutLines(),
              (std::vector<std::string>{"3 jumps, last jump number 9",
                                        "Jump 8: changed after signing (signed by Sanna Hämäläinen)"}));
    EXPECT_TRUE(result.err.empty()) << result.err;
}

} // namespace
