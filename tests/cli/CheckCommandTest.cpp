#include "tests/cli/CScratchDir.h"
#include "tests/cli/CToolRunner.h"
#include "tests/cli/TestLogbooks.h"

#include <gtest/gtest.h>

#include <ostream>
#include <string>
#include <vector>

namespace {

using TestLogbooks::File;
using TestLogbooks::Jump;

const std::string kOpenFailed = "The file could not be opened.";
const std::string kNotTervola = "The file is no valid tervola file.";

std::string VersionRefusal(const std::string& version)
{
    return "The file version (" + version +
           ") can not be processed. Please install an actual version of Tervola or contact "
           "support@tervola.example.org";
}

const std::string kOneJump = "<log>" + Jump(7, "2024-05-01T10:00:00Z", "<dz>Utti</dz>") + "</log>";

// How a test file is stored.
enum class Container
{
    Plain,
    Gzip
};
constexpr Container kPlain = Container::Plain, kGzip = Container::Gzip;

struct LoadCase
{
    const char* name;
    std::string fileName;
    Container container;
    std::string content;
    int exitCode;
    std::string out;
    std::vector<std::string> err; // the message-box texts, in order
};

void PrintTo(const LoadCase& value, std::ostream* os)
{
    *os << value.name;
} // names the case in listings

class CheckCommand : public ::testing::TestWithParam<LoadCase>
{
protected:
    CScratchDir m_dir;
    CToolRunner m_tool{m_dir.ConfigHome()};
};

TEST_P(CheckCommand, PrintsCountsOrTheProgramsMessages)
{
    const LoadCase& c = GetParam();
    QString path = m_dir.Path(QString::fromStdString(c.fileName));
    if (c.container == Container::Plain && !c.content.empty())
        path = m_dir.WritePlain(QString::fromStdString(c.fileName), c.content);
    else if (c.container == Container::Gzip)
        path = m_dir.WriteGzip(QString::fromStdString(c.fileName), c.content);

    const CToolResult result = m_tool.Run({QStringLiteral("check"), path});
    EXPECT_FALSE(result.crashed);
    EXPECT_EQ(result.exitCode, c.exitCode);
    EXPECT_EQ(result.OutLines(), c.out.empty() ? std::vector<std::string>{} : std::vector<std::string>{c.out});
    EXPECT_EQ(result.ErrLines(), c.err);
}

const std::string kSeven = "1 jump, last jump number 7";
const std::string kEmpty = File("<settings></settings><log size=\"0\"></log>");
const std::string kUnknownTop = File("<settings></settings><bar></bar>");
const std::string kUnknownRoot = "<?xml version=\"1.0\" ?><logbook version=\"1.2\"/>";
const std::string kTruncated = "<?xml version=\"1.0\" ?><tvl version=\"1.2\"><log>";

INSTANTIATE_TEST_SUITE_P(
    Files, CheckCommand,
    ::testing::Values(
        LoadCase{"GzipLogbook", "a.tvz", kGzip, File(kOneJump), 0, kSeven, {}},
        LoadCase{"PlainLogbook", "a.tvl", kPlain, TestLogbooks::Reference(), 0, "3 jumps, last jump number 500", {}},
        LoadCase{"UpperCaseTvlIsPlain", "A.TVL", kPlain, File(kOneJump), 0, kSeven, {}},
        // Any other name is read as gzip, which passes plain bytes through unchanged.
        LoadCase{"PlainBytesUnderTvz", "a.tvz", kPlain, File(kOneJump), 0, kSeven, {}},
        LoadCase{"EmptyLogbook", "e.tvz", kGzip, kEmpty, 0, "0 jumps, last jump number 0", {}},
        // Versions compare as text: "1.10" sorts before "1.2".
        LoadCase{"Version110Passes", "v.tvl", kPlain, File(kOneJump, "1.10"), 0, kSeven, {}},
        LoadCase{"MissingFile", "missing.tvz", kPlain, "", 1, "", {kOpenFailed}},
        LoadCase{"Version13", "v.tvl", kPlain, File(kOneJump, "1.3"), 1, "", {VersionRefusal("1.3"), kOpenFailed}},
        LoadCase{"Version20Gzip", "v.tvz", kGzip, File(kOneJump, "2.0"), 1, "", {VersionRefusal("2.0"), kOpenFailed}},
        LoadCase{"VersionMissing", "v.tvl", kPlain, File(kOneJump, nullptr), 1, "", {VersionRefusal(""), kOpenFailed}},
        LoadCase{"UnknownTopElement", "u.tvl", kPlain, kUnknownTop, 1, "", {kNotTervola, kOpenFailed}},
        LoadCase{"UnknownRoot", "u.tvz", kGzip, kUnknownRoot, 1, "", {kNotTervola, kOpenFailed}},
        // A file that simply ends early has no text of its own.
        LoadCase{"Truncated", "t.tvl", kPlain, kTruncated, 1, "", {kOpenFailed}}),
    [](const ::testing::TestParamInfo<LoadCase>& param) { return std::string(param.param.name); });

// Refusals whose first text the parser composes: "Parser error: " and the refused tag.
struct ParserErrorCase
{
    const char* name;
    std::string body;
    std::string tag; // how the message names the element
};

void PrintTo(const ParserErrorCase& value, std::ostream* os)
{
    *os << value.name;
} // names the case in listings

class CheckParserError : public ::testing::TestWithParam<ParserErrorCase>
{
protected:
    CScratchDir m_dir;
    CToolRunner m_tool{m_dir.ConfigHome()};
};

TEST_P(CheckParserError, PrintsParserErrorThenOpenFailed)
{
    const QString path = m_dir.WriteGzip(QStringLiteral("p.tvz"), File(GetParam().body));
    const CToolResult result = m_tool.Run({QStringLiteral("check"), path});
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_TRUE(result.out.empty());
    const std::vector<std::string> lines = result.ErrLines();
    ASSERT_EQ(lines.size(), 2u) << result.err;
    EXPECT_EQ(lines[0].rfind("Parser error: " + GetParam().tag, 0), 0u) << lines[0];
    EXPECT_EQ(lines[1], kOpenFailed);
}

INSTANTIATE_TEST_SUITE_P(
    Refusals, CheckParserError,
    ::testing::Values(
        ParserErrorCase{"NegativeJumpNumber",
                        "<log><jump n=\"-5\" ts=\"2024-05-01T10:00:00Z\" mod=\"2024-05-01T10:00:00Z\"></jump></log>",
                        "Open Tag: jump"},
        ParserErrorCase{"JumpWithoutTimestamp", "<log><jump n=\"5\" mod=\"2024-05-01T10:00:00Z\"></jump></log>",
                        "Open Tag: jump"},
        ParserErrorCase{"WindWithoutSpeed",
                        "<log>" + Jump(5, "2024-05-01T10:00:00Z", "<wind direction=\"90\"/>") + "</log>",
                        "Open Tag: wind"},
        ParserErrorCase{"SignatureWithoutSigner",
                        "<log>" + Jump(5, "2024-05-01T10:00:00Z", "<signature id=\"1\"></signature>") + "</log>",
                        "Open Tag: signature"}),
    [](const ::testing::TestParamInfo<ParserErrorCase>& param) { return std::string(param.param.name); });

// Every command that reads a logbook reports a refused file the same way.
TEST(LoadingCommands, ReportTheSameMessagesAsCheck)
{
    CScratchDir dir;
    const CToolRunner tool(dir.ConfigHome());
    const QString path = dir.WritePlain(QStringLiteral("new.tvl"), File(kOneJump, "1.3"));
    const QString out = dir.Path(QStringLiteral("out.tvz"));
    const std::vector<QStringList> runs = {
        {QStringLiteral("info"), path},
        {QStringLiteral("export"), path, QStringLiteral("--format"), QStringLiteral("json")},
        {QStringLiteral("export"), path, QStringLiteral("--format"), QStringLiteral("csv")},
        {QStringLiteral("convert"), path, out},
    };
    for (const QStringList& arguments : runs) {
        const CToolResult result = tool.Run(arguments);
        EXPECT_EQ(result.exitCode, 1) << arguments.join(' ').toStdString();
        EXPECT_TRUE(result.out.empty()) << result.out;
        EXPECT_EQ(result.ErrLines(), (std::vector<std::string>{VersionRefusal("1.3"), kOpenFailed}));
    }
    EXPECT_FALSE(CScratchDir::Exists(out));
}

} // namespace
