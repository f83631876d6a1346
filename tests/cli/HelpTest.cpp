#include "tests/cli/CScratchDir.h"
#include "tests/cli/CToolRunner.h"

#include <gtest/gtest.h>

#include <ostream>
#include <string>
#include <vector>

namespace {

struct CommandHelp
{
    const char* command;
    std::vector<std::string> mentions; // options and arguments the help must explain
};

void PrintTo(const CommandHelp& value, std::ostream* os)
{
    *os << value.command;
} // names the case in listings

class CommandHelpTest : public ::testing::TestWithParam<CommandHelp>
{
protected:
    CScratchDir m_dir;
    CToolRunner m_tool{m_dir.ConfigHome()};
};

TEST_P(CommandHelpTest, ExplainsEveryOption)
{
    const CommandHelp& c = GetParam();
    for (const QStringList& arguments : {QStringList{QString::fromLatin1(c.command), QStringLiteral("--help")},
                                         QStringList{QStringLiteral("help"), QString::fromLatin1(c.command)}}) {
        const CToolResult result = m_tool.Run(arguments);
        EXPECT_EQ(result.exitCode, 0);
        EXPECT_EQ(result.out.rfind("Usage: tervola " + std::string(c.command) + " [options]", 0), 0u) << result.out;
        for (const std::string& mention : c.mentions)
            EXPECT_NE(result.out.find(mention), std::string::npos) << c.command << " help lacks " << mention;
        EXPECT_NE(result.out.find("Exit codes"), std::string::npos);
    }
}

INSTANTIATE_TEST_SUITE_P(
    Commands, CommandHelpTest,
    ::testing::Values(CommandHelp{"check", {"FILE", "--help"}},
                      CommandHelp{"info", {"FILE", "--units <metric|imperial>", "YYYY-MM-DD"}},
                      CommandHelp{"export",
                                  {"FILE", "--format <json|csv|gpx>", "--jump <N>", "--output <OUT>", "-o", "--units",
                                   "--compact", "RFC 4180", "GPX"}},
                      CommandHelp{"import", {"LOGBOOK", "TRACK", "--jump <N>", "--rate <HZ>", "--baro", "SENSOR.CSV"}},
                      CommandHelp{"convert", {"IN", "OUT", "bak"}},
                      CommandHelp{
                          "generate",
                          {"OUT", "--jumps <N>", "--recordings <R>", "--samples <S>", "--baro <B>", "--seed <K>"}}),
    [](const ::testing::TestParamInfo<CommandHelp>& param) { return std::string(param.param.command); });

struct ToolCall
{
    const char* name;
    QStringList arguments;
    int exitCode;
    std::string outContains;
    std::string errContains;
};

void PrintTo(const ToolCall& value, std::ostream* os)
{
    *os << value.name;
} // names the case in listings

class ToolCallTest : public ::testing::TestWithParam<ToolCall>
{
protected:
    CScratchDir m_dir;
    CToolRunner m_tool{m_dir.ConfigHome()};
};

TEST_P(ToolCallTest, AnswersAsDocumented)
{
    const ToolCall& c = GetParam();
    const CToolResult result = m_tool.Run(c.arguments);
    EXPECT_FALSE(result.crashed);
    EXPECT_EQ(result.exitCode, c.exitCode);
    EXPECT_NE(result.out.find(c.outContains), std::string::npos) << result.out;
    EXPECT_NE(result.err.find(c.errContains), std::string::npos) << result.err;
}

INSTANTIATE_TEST_SUITE_P(
    Calls, ToolCallTest,
    ::testing::Values(ToolCall{"ToolHelpListsCommands", {"--help"}, 0, "check", ""},
                      ToolCall{"ToolHelpListsGenerate", {"-h"}, 0, "generate", ""},
                      ToolCall{"Version", {"--version"}, 0, "tervola ", ""},
                      ToolCall{"NoArguments", {}, 2, "", "Usage: tervola COMMAND"},
                      ToolCall{"UnknownCommand", {"frobnicate"}, 2, "", "unknown command \"frobnicate\""},
                      ToolCall{"MissingFile", {"check"}, 2, "", "missing argument"},
                      ToolCall{"TooManyFiles", {"check", "a.tvz", "b.tvz"}, 2, "", "unexpected argument \"b.tvz\""},
                      ToolCall{"UnknownOption", {"info", "a.tvz", "--colour"}, 2, "", "colour"},
                      // Option values are checked before any file is read.
                      ToolCall{"UnknownUnits", {"info", "a.tvz", "--units", "furlongs"}, 2, "", "furlongs"},
                      ToolCall{"ExportWithoutFormat", {"export", "a.tvz"}, 2, "", "--format"},
                      ToolCall{"UnknownFormat", {"export", "a.tvz", "--format", "xml"}, 2, "", "\"xml\""}),
    [](const ::testing::TestParamInfo<ToolCall>& param) { return std::string(param.param.name); });

} // namespace
