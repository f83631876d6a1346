#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

// A spreadsheet's table as text: the header's cells and the rows after it, each with the line
// of the file it starts on. Every cell is UTF-8, whatever the file's encoding was.
struct CCsvTable
{
    struct Row
    {
        // 1-based line of the file where the row starts (a quoted line break spans lines).
        int line = 0;
        std::vector<std::string> cells;
        // Why the row could not be split (a quote never closed, a cell too long); empty when fine.
        int problemId = 0;
    };

    char separator = ',';
    // "UTF-8" or "Windows-1252".
    std::string encoding;
    std::vector<std::string> header;
    std::vector<Row> rows;
};

// The outcome of reading a table: the table, or the string table's message why the file cannot
// be read as one.
struct CCsvReadResult
{
    bool ok = false;
    int messageId = 0;
    CCsvTable table;
};

// Reads comma-, semicolon- and tab-separated text as spreadsheets write it: the separator is the
// one of the three found most often outside quotes in the first line; a cell in double quotes
// may hold separators, line breaks and doubled quotes; rows end with LF or CR LF. Text that is
// valid UTF-8 (with or without a byte order mark) is taken as UTF-8, any other text as
// Windows-1252 (which covers Latin-1's letters). Blank lines are skipped. Refused: an empty file,
// binary content (NUL or other control bytes), and a file larger than kLargestFile.
class CCsvReader
{
public:
    static constexpr std::size_t kLargestFile = 256u * 1024 * 1024;
    // A cell longer than this makes its row unreadable (a runaway quote or a binary blob).
    static constexpr std::size_t kLongestCell = 64 * 1024;

    static CCsvReadResult Read(std::string_view bytes);

    // True when the bytes are valid UTF-8 (no overlong forms, no surrogates).
    static bool IsUtf8(std::string_view bytes);
    // The Windows-1252 bytes as UTF-8 (the five undefined bytes become U+FFFD).
    static std::string FromWindows1252(std::string_view bytes);
};
