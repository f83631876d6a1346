#include "formats/CCsvReader.h"
#include "resources/StringTable.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

using Cells = std::vector<std::string>;

TEST(CsvReader, SplitsEverySpreadsheetDialect)
{
    const struct
    {
        const char* name;
        std::string bytes;
        char separator;
        const char* encoding;
        Cells header;
        std::vector<Cells> rows;
        std::vector<int> lines;
    } cases[] = {
        {"comma, CRLF",
         "Nr,Ort\r\n1,Utti\r\n2,Eloy\r\n",
         ',',
         "UTF-8",
         {"Nr", "Ort"},
         {{"1", "Utti"}, {"2", "Eloy"}},
         {2, 3}},
        {"semicolon, LF, no last line end", "Nr;Ort\n1;Utti", ';', "UTF-8", {"Nr", "Ort"}, {{"1", "Utti"}}, {2}},
        {"tab with commas in cells", "Nr\tNote\n1\ta, b\n", '\t', "UTF-8", {"Nr", "Note"}, {{"1", "a, b"}}, {2}},
        {"quotes: separator, doubled quote, line break",
         "Nr,Note\r\n1,\"a,\"\"b\"\"\r\nc\"\r\n2,x\r\n",
         ',',
         "UTF-8",
         {"Nr", "Note"},
         {{"1", "a,\"b\"\nc"}, {"2", "x"}},
         {2, 4}},
        {"BOM, blank and empty rows skipped",
         "\xEF\xBB\xBFNr,Ort\r\n\r\n,\r\n1,\xC3\x96lbronn\r\n",
         ',',
         "UTF-8",
         {"Nr", "Ort"},
         {{"1", "\xC3\x96lbronn"}},
         {4}},
        {"Windows-1252",
         "Nr;Bemerkung\r\n1;\xD6lbronn \x80 \x93ok\x94\r\n",
         ';',
         "Windows-1252",
         {"Nr", "Bemerkung"},
         {{"1", "\xC3\x96lbronn \xE2\x82\xAC \xE2\x80\x9Cok\xE2\x80\x9D"}},
         {2}},
        {"too few and too many cells kept as they are",
         "a,b,c\n1,2\n1,2,3,4\n",
         ',',
         "UTF-8",
         {"a", "b", "c"},
         {{"1", "2"}, {"1", "2", "3", "4"}},
         {2, 3}},
        {"header only", "Date,Place\r\n", ',', "UTF-8", {"Date", "Place"}, {}, {}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        const CCsvReadResult read = CCsvReader::Read(c.bytes);
        ASSERT_TRUE(read.ok) << read.messageId;
        EXPECT_EQ(read.table.separator, c.separator);
        EXPECT_EQ(read.table.encoding, c.encoding);
        EXPECT_EQ(read.table.header, c.header);
        ASSERT_EQ(read.table.rows.size(), c.rows.size());
        for (std::size_t i = 0; i < c.rows.size(); ++i) {
            EXPECT_EQ(read.table.rows[i].cells, c.rows[i]) << i;
            EXPECT_EQ(read.table.rows[i].line, c.lines[i]) << i;
            EXPECT_EQ(read.table.rows[i].problemId, 0) << i;
        }
    }
}

TEST(CsvReader, RefusesWhatIsNoTableAndMarksBrokenRows)
{
    const struct
    {
        const char* name;
        std::string bytes;
        int fileProblem;
        int rowProblem;
    } cases[] = {
        {"empty", "", StringTable::IDS_CSV_EMPTY, 0},
        {"only blanks and BOM", "\xEF\xBB\xBF \r\n\r\n", StringTable::IDS_CSV_EMPTY, 0},
        {"binary", std::string("\x89PNG\r\n\x1a\n\0\0\0\rIHDR", 16), StringTable::IDS_CSV_BINARY, 0},
        {"quote never closed", "Nr,Note\n1,\"open\n2,x\n", 0, StringTable::IDS_CSV_OPEN_QUOTE},
        {"huge cell", "Nr,Note\n1," + std::string(CCsvReader::kLongestCell + 10, 'x') + "\n", 0,
         StringTable::IDS_CSV_LONG_CELL},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        const CCsvReadResult read = CCsvReader::Read(c.bytes);
        EXPECT_EQ(read.ok, c.fileProblem == 0);
        EXPECT_EQ(read.messageId, c.fileProblem);
        if (c.rowProblem != 0) {
            ASSERT_EQ(read.table.rows.size(), 1u);
            EXPECT_EQ(read.table.rows[0].problemId, c.rowProblem);
            EXPECT_LE(read.table.rows[0].cells[1].size(), CCsvReader::kLongestCell);
        }
    }
}

} // namespace
