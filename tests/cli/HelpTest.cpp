#include "tests/cli/ToolTest.h"

#include <string>
#include <vector>

namespace {

using CommandLine = CToolTest;

TEST_F(CommandLine, EachCommandShowsItsUsageAndDetails)
{
    const struct
    {
        const char* command;
        std::vector<std::string> mentions; // some of what the help must explain
    } cases[] = {{"check", {"FILE"}},
                 {"info", {"--units <metric|imperial>", "YYYY-MM-DD"}},
                 {"export", {"--format <json|csv|gpx>", "RFC 4180", "GPX", "[QUERY...]"}},
                 {"list", {"[QUERY...]", "--sort <COLUMN>", "date:2024-05", "Examples"}},
                 {"import", {"LOGBOOK", "TRACK", "SENSOR.CSV"}},
                 {"import-csv", {"--map <FIELD=COLUMN>", "--dates <dmy|mdy|iso>", "--dry-run", "Bemerkung"}},
                 {"convert", {"IN", "OUT", "bak"}},
                 {"generate", {"--jumps <N>", "--seed <K>"}},
                 {"stats", {"--as-of <YYYY-MM-DD>", "--format <text|json>", "perMonth"}},
                 {"print", {"-o, --output <FILE.pdf>", "--paper <a4|letter>", "[QUERY...]", "carried"}}};
    for (const auto& c : cases) {
        for (const std::vector<std::string>& arguments :
             {std::vector<std::string>{c.command, "--help"}, std::vector<std::string>{"help", c.command}}) {
            SCOPED_TRACE(arguments[0] + " " + arguments[1]);
            const CToolResult result = Run(arguments);
            EXPECT_EQ(result.exitCode, 0);
            EXPECT_EQ(result.out.rfind("Usage: tervola " + std::string(c.command) + " [options]", 0), 0u) << result.out;
            for (const std::string& mention : c.mentions)
                EXPECT_NE(result.out.find(mention), std::string::npos) << "help lacks " << mention;
            EXPECT_NE(result.out.find("Exit codes"), std::string::npos);
        }
    }
}

TEST_F(CommandLine, AnswersAsDocumented)
{
    const struct
    {
        const char* name;
        std::vector<std::string> arguments;
        int exitCode;
        std::string outContains;
        std::string errContains;
    } cases[] = {
        {"ToolHelpListsCommands", {"--help"}, 0, "check", ""},
        {"ToolHelpListsGenerate", {"-h"}, 0, "generate", ""},
        {"Version", {"--version"}, 0, "tervola ", ""},
        {"NoArguments", {}, 2, "", "Usage: tervola COMMAND"},
        {"UnknownCommand", {"frobnicate"}, 2, "", "unknown command \"frobnicate\""},
        {"MissingFile", {"check"}, 2, "", "missing argument"},
        {"TooManyFiles", {"check", "a.tvz", "b.tvz"}, 2, "", "unexpected argument \"b.tvz\""},
        {"UnknownOption", {"info", "a.tvz", "--colour"}, 2, "", "colour"},
        // Option values are checked before any file is read.
        {"UnknownUnits", {"info", "a.tvz", "--units", "furlongs"}, 2, "", "furlongs"},
        {"ExportWithoutFormat", {"export", "a.tvz"}, 2, "", "--format"},
        {"UnknownFormat", {"export", "a.tvz", "--format", "xml"}, 2, "", "\"xml\""},
        {"StatsBadDay", {"stats", "a.tvz", "--as-of", "2025-02-30"}, 2, "", "\"2025-02-30\""},
        {"StatsUnknownFormat", {"stats", "a.tvz", "--format", "csv"}, 2, "", "\"csv\""},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        const CToolResult result = Run(c.arguments);
        EXPECT_FALSE(result.crashed);
        EXPECT_EQ(result.exitCode, c.exitCode);
        EXPECT_NE(result.out.find(c.outContains), std::string::npos) << result.out;
        EXPECT_NE(result.err.find(c.errContains), std::string::npos) << result.err;
    }
}

} // namespace
