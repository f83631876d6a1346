#include "tests/cli/ToolTest.h"

#include <ostream>
#include <string>
#include <vector>

namespace {

struct CommandHelp
{
    const char* command;
    std::vector<std::string> mentions; // some of what the help must explain
};

void PrintTo(const CommandHelp& value, std::ostream* os)
{
    *os << value.command;
}

class CommandHelpTest : public CToolTest, public ::testing::WithParamInterface<CommandHelp>
{
};

TEST_P(CommandHelpTest, ShowsUsageAndDetails)
{
    const CommandHelp& c = GetParam();
    for (const std::vector<std::string>& arguments :
         {std::vector<std::string>{c.command, "--help"}, std::vector<std::string>{"help", c.command}}) {
        const CToolResult result = Run(arguments);
        EXPECT_EQ(result.exitCode, 0);
        EXPECT_EQ(result.out.rfind("Usage: tervola " + std::string(c.command) + " [options]", 0), 0u) << result.out;
        for (const std::string& mention : c.mentions)
            EXPECT_NE(result.out.find(mention), std::string::npos) << c.command << " help lacks " << mention;
        EXPECT_NE(result.out.find("Exit codes"), std::string::npos);
    }
}

INSTANTIATE_TEST_SUITE_P(Commands, CommandHelpTest,
                         ::testing::Values(CommandHelp{"check", {"FILE"}},
                                           CommandHelp{"info", {"--units <metric|imperial>", "YYYY-MM-DD"}},
                                           CommandHelp{"export", {"--format <json|csv|gpx>", "RFC 4180", "GPX"}},
                                           CommandHelp{"import", {"LOGBOOK", "TRACK", "SENSOR.CSV"}},
                                           CommandHelp{"convert", {"IN", "OUT", "bak"}},
                                           CommandHelp{"generate", {"--jumps <N>", "--seed <K>"}}),
                         [](const ::testing::TestParamInfo<CommandHelp>& param) {
                             return std::string(param.param.command);
                         });

struct ToolCall
{
    const char* name;
    std::vector<std::string> arguments;
    int exitCode;
    std::string outContains;
    std::string errContains;
};

void PrintTo(const ToolCall& value, std::ostream* os)
{
    *os << value.name;
}

class ToolCallTest : public CToolTest, public ::testing::WithParamInterface<ToolCall>
{
};

TEST_P(ToolCallTest, AnswersAsDocumented)
{
    const ToolCall& c = GetParam();
    const CToolResult result = Run(c.arguments);
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
