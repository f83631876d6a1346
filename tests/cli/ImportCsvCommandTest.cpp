#include "tests/cli/TestLogbooks.h"
#include "tests/cli/ToolTest.h"

#include <filesystem>
#include <string>

namespace {

class ImportCsvCommand : public CToolTest
{
protected:
    CToolResult Import(const std::string& csv, const std::vector<std::string>& options = {})
    {
        std::vector<std::string> arguments{"import-csv", m_logbook, csv};
        arguments.insert(arguments.end(), options.begin(), options.end());
        return Run(arguments);
    }

    const std::string m_logbook = Write("Jumps.tvz", TestLogbooks::Reference(), true);
};

// A German spreadsheet in Latin-1 with ambiguous dates: the tool asks for the date form, then
// imports, skipping jump 500 that the logbook has and naming the unreadable row.
TEST_F(ImportCsvCommand, ImportsTheReadableRowsAndNamesTheOthers)
{
    const std::string csv = Write("alt.csv", "Nr;Datum;Ort;Absprungh\xF6he (ft);Freifall;Bemerkung\r\n"
                                             "500;01.02.2024;Utti;13000;60;\r\n"
                                             "501;03.02.2024;\xD6lbronn;13000;1:05;\"mit; Semikolon\"\r\n"
                                             "502;30.02.2024;Utti;13000;60;\r\n"
                                             "503;04.02.2024;Utti;12500;55;\r\n");
    const std::string before = ReadBytes(m_logbook);
    const struct
    {
        const char* name;
        std::vector<std::string> options;
        int exitCode;
        const char* says;
        bool saved;
    } cases[] = {
        {"dates unclear", {}, 1, "day-first or month-first", false},
        {"bad --dates", {"--dates", "ymd"}, 2, "--dates", false},
        {"no such column", {"--dates", "dmy", "--map", "place=Colour"}, 1, "no column \"Colour\"", false},
        {"dry run", {"--dates", "dmy", "--dry-run"}, 0, "4 read, 2 added, 0 replaced, 2 skipped (dry run", false},
        {"import", {"--dates", "dmy"}, 0, "Line 4: the date \"30.02.2024\" cannot be read.", true},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        const CToolResult result = Import(csv, c.options);
        EXPECT_EQ(result.exitCode, c.exitCode) << result.err;
        EXPECT_NE((result.out + result.err).find(c.says), std::string::npos) << result.out << result.err;
        EXPECT_EQ(ReadBytes(m_logbook) != before, c.saved);
    }
    const CToolResult list = Run({"list", m_logbook, "n:501..", "--format", "csv", "--units", "metric"});
    EXPECT_NE(list.out.find("501,2024-02-03,,\xC3\x96lbronn"), std::string::npos) << list.out;
    EXPECT_NE(list.out.find("3962"), std::string::npos) << list.out;
    EXPECT_NE(list.out.find("503,2024-02-04"), std::string::npos) << list.out;
    EXPECT_TRUE(std::filesystem::exists(m_dir / "Jumps.bak"));
}

TEST_F(ImportCsvCommand, RefusesAFileItCannotRead)
{
    const std::string before = ReadBytes(m_logbook);
    const struct
    {
        std::string csv;
        const char* says;
    } cases[] = {
        {Write("picture.csv", std::string("\x89PNG\r\n\x1a\n\0\0\0\rIHDR", 16)), "binary data"},
        {Write("empty.csv", ""), "The file is empty."},
        {m_dir / "missing.csv", "missing.csv"},
        {Write("nodate.csv", "Place,Exit\nUtti,4000\n"), "No column of the file holds the jumps' dates."},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.says);
        const CToolResult result = Import(c.csv);
        EXPECT_EQ(result.exitCode, 1);
        EXPECT_NE(result.err.find(c.says), std::string::npos) << result.err;
    }
    EXPECT_EQ(ReadBytes(m_logbook), before);
}

} // namespace
