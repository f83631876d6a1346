#include "tests/cli/TestLogbooks.h"
#include "tests/cli/ToolTest.h"

#include <filesystem>
#include <string>
#include <vector>

namespace {

using ConvertCommand = CToolTest;

// The container a name gets, the backup and that every value survives a save are the document's
// business (GenerateCommand compares the values across a conversion); the tool saves silently.
TEST_F(ConvertCommand, SavesTheLogbookSilentlyUnderTheNewName)
{
    const std::string out = m_dir / "out.tvz";
    const CToolResult result = Run({"convert", Write("in.tvl", TestLogbooks::Reference()), out});
    ASSERT_EQ(result.exitCode, 0) << result.err;
    EXPECT_TRUE(result.out.empty());
    EXPECT_TRUE(result.err.empty());
    const std::string xml = ReadGzip(out);
    EXPECT_EQ(xml.rfind("<?xml version=\"1.0\" encoding=\"UTF-8\" ?><tvl version=\"1.2\" creator=\"Tervola Pocket ", 0),
              0u)
        << xml.substr(0, 100);
    EXPECT_NE(xml.find("<log size=\"3\">"), std::string::npos);
}

TEST_F(ConvertCommand, UnwritableTargetReportsTheSaveMessage)
{
    const std::string out = m_dir / "no-such-folder/out.tvz";
    const CToolResult result = Run({"convert", Write("in.tvz", TestLogbooks::Reference(), true), out});
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_TRUE(result.out.empty());
    EXPECT_EQ(result.ErrLines(), std::vector<std::string>{"The file could not be saved."});
    EXPECT_FALSE(std::filesystem::exists(out));
}

} // namespace
