#include "formats/CCsvReader.h"

#include "resources/StringTable.h"

#include <algorithm>
#include <array>

namespace {

constexpr std::string_view kBom = "\xEF\xBB\xBF";
// Bytes looked at for binary content and for the separator.
constexpr std::size_t kProbe = 64 * 1024;

// Code points of Windows-1252's bytes 0x80 to 0x9F; 0xFFFD for the five it leaves undefined.
constexpr std::array<char32_t, 32> kHighControls = {0x20AC, 0xFFFD, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
                                                    0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0xFFFD, 0x017D, 0xFFFD,
                                                    0xFFFD, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
                                                    0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0xFFFD, 0x017E, 0x0178};

void AppendUtf8(char32_t c, std::string& out)
{
    if (c < 0x80) {
        out += static_cast<char>(c);
    } else if (c < 0x800) {
        out += static_cast<char>(0xC0 | (c >> 6));
        out += static_cast<char>(0x80 | (c & 0x3F));
    } else {
        out += static_cast<char>(0xE0 | (c >> 12));
        out += static_cast<char>(0x80 | ((c >> 6) & 0x3F));
        out += static_cast<char>(0x80 | (c & 0x3F));
    }
}

bool IsBinary(std::string_view bytes)
{
    const std::string_view probe = bytes.substr(0, kProbe);
    std::size_t controls = 0;
    for (unsigned char c : probe) {
        if (c == 0)
            return true;
        if (c < 0x20 && c != '\t' && c != '\r' && c != '\n')
            ++controls;
    }
    // A stray control byte is a damaged cell; many are not text at all.
    return controls * 100 > probe.size();
}

// The separator found most often outside quotes in the first line; a comma when none is.
char DetectSeparator(std::string_view text)
{
    std::size_t counts[3] = {0, 0, 0};
    constexpr char kSeparators[3] = {',', ';', '\t'};
    bool quoted = false;
    for (std::size_t i = 0; i < text.size() && i < kProbe; ++i) {
        const char c = text[i];
        if (c == '"')
            quoted = !quoted;
        else if (!quoted && (c == '\n' || c == '\r')) {
            // Blank lines before the header do not count as the first line.
            if (counts[0] + counts[1] + counts[2] > 0)
                break;
        } else if (!quoted) {
            for (int s = 0; s < 3; ++s)
                counts[s] += c == kSeparators[s] ? 1 : 0;
        }
    }
    int best = 0;
    for (int s = 1; s < 3; ++s)
        if (counts[s] > counts[best])
            best = s;
    return kSeparators[best];
}

bool IsBlankRow(const std::vector<std::string>& cells)
{
    return std::all_of(cells.begin(), cells.end(),
                       [](const std::string& cell) { return cell.find_first_not_of(" \t") == std::string::npos; });
}

// Splits the text into rows of cells.
class CSplitter
{
public:
    CSplitter(std::string_view text, char separator) : m_text(text), m_separator(separator) {}

    // The next row; false at the end of the text.
    bool Next(CCsvTable::Row& row)
    {
        row.cells.clear();
        row.problemId = 0;
        if (m_pos >= m_text.size())
            return false;
        row.line = m_line;
        std::string cell;
        bool quoted = false;
        const auto add = [&](char c) {
            if (cell.size() < CCsvReader::kLongestCell)
                cell += c;
            else
                row.problemId = StringTable::IDS_CSV_LONG_CELL;
        };
        while (m_pos < m_text.size()) {
            const char c = m_text[m_pos++];
            if (quoted) {
                if (c == '"') {
                    if (m_pos < m_text.size() && m_text[m_pos] == '"') {
                        add('"');
                        ++m_pos;
                    } else {
                        quoted = false;
                    }
                } else if (c == '\r' && m_pos < m_text.size() && m_text[m_pos] == '\n') {
                    // A line break inside a cell is kept as LF.
                } else {
                    if (c == '\n')
                        ++m_line;
                    add(c);
                }
            } else if (c == '"' && cell.find_first_not_of(" \t") == std::string::npos) {
                cell.clear();
                quoted = true;
            } else if (c == m_separator) {
                row.cells.push_back(std::move(cell));
                cell.clear();
            } else if (c == '\n' || c == '\r') {
                if (c == '\r' && m_pos < m_text.size() && m_text[m_pos] == '\n')
                    ++m_pos;
                ++m_line;
                row.cells.push_back(std::move(cell));
                return true;
            } else {
                add(c);
            }
        }
        if (quoted)
            row.problemId = StringTable::IDS_CSV_OPEN_QUOTE;
        row.cells.push_back(std::move(cell));
        return true;
    }

private:
    std::string_view m_text;
    char m_separator;
    std::size_t m_pos = 0;
    int m_line = 1;
};

} // namespace

bool CCsvReader::IsUtf8(std::string_view bytes)
{
    std::size_t i = 0;
    while (i < bytes.size()) {
        const auto c = static_cast<unsigned char>(bytes[i]);
        if (c < 0x80) {
            ++i;
            continue;
        }
        int length = 0;
        char32_t code = 0;
        if (c >= 0xC2 && c <= 0xDF) {
            length = 2;
            code = c & 0x1F;
        } else if (c >= 0xE0 && c <= 0xEF) {
            length = 3;
            code = c & 0x0F;
        } else if (c >= 0xF0 && c <= 0xF4) {
            length = 4;
            code = c & 0x07;
        } else {
            return false;
        }
        if (i + length > bytes.size())
            return false;
        for (int k = 1; k < length; ++k) {
            const auto next = static_cast<unsigned char>(bytes[i + k]);
            if ((next & 0xC0) != 0x80)
                return false;
            code = (code << 6) | (next & 0x3F);
        }
        if ((length == 3 && (code < 0x800 || (code >= 0xD800 && code <= 0xDFFF))) ||
            (length == 4 && (code < 0x10000 || code > 0x10FFFF)))
            return false;
        i += length;
    }
    return true;
}

std::string CCsvReader::FromWindows1252(std::string_view bytes)
{
    std::string out;
    out.reserve(bytes.size() + bytes.size() / 8);
    for (char byte : bytes) {
        const auto c = static_cast<unsigned char>(byte);
        if (c < 0x80)
            out += byte;
        else if (c < 0xA0)
            AppendUtf8(kHighControls[c - 0x80], out);
        else
            AppendUtf8(c, out);
    }
    return out;
}

CCsvReadResult CCsvReader::Read(std::string_view bytes)
{
    CCsvReadResult result;
    if (bytes.size() > kLargestFile) {
        result.messageId = StringTable::IDS_CSV_TOO_LARGE;
        return result;
    }
    if (bytes.substr(0, kBom.size()) == kBom)
        bytes.remove_prefix(kBom.size());
    if (bytes.find_first_not_of(" \t\r\n") == std::string_view::npos) {
        result.messageId = StringTable::IDS_CSV_EMPTY;
        return result;
    }
    if (IsBinary(bytes)) {
        result.messageId = StringTable::IDS_CSV_BINARY;
        return result;
    }
    std::string converted;
    std::string_view text = bytes;
    if (IsUtf8(bytes)) {
        result.table.encoding = "UTF-8";
    } else {
        result.table.encoding = "Windows-1252";
        converted = FromWindows1252(bytes);
        text = converted;
    }
    CCsvTable& table = result.table;
    table.separator = DetectSeparator(text);
    // Rows are about a hundred bytes; reserving spares the copies of growing.
    table.rows.reserve(std::min<std::size_t>(text.size() / 64 + 1, 1u << 20));
    CSplitter splitter(text, table.separator);
    CCsvTable::Row row;
    bool haveHeader = false;
    while (splitter.Next(row)) {
        if (IsBlankRow(row.cells) && row.problemId == 0)
            continue;
        if (!haveHeader) {
            haveHeader = true;
            table.header = std::move(row.cells);
            continue;
        }
        table.rows.push_back(std::move(row));
        row = {};
    }
    result.ok = true;
    return result;
}
