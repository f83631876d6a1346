#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <vector>

class CJump;
class CLogbookDoc;
class CLogbookSettings;
struct JumpFieldInfo;
class CUnitSettings;

// The jumps as a spreadsheet table: a header row, then one row a jump in list order, a column for
// each of the spreadsheet's fields (model/JumpFields.h). RFC 4180: fields separated by commas,
// rows ended by CR LF, a field holding a comma, a quote, a CR or an LF put in quotes with its
// quotes doubled; UTF-8 text. Heights appear in the display units,
// rounded to whole metres or feet; wind speeds in metres per second as stored.
class CCsvExporter
{
public:
    // Heights are shown in these units (kept by reference).
    explicit CCsvExporter(const CUnitSettings& units) : m_units(units) {}

    // The whole table.
    std::string Export(const CLogbookDoc& doc) const;
    // The header row and the rows of the jumps at these document positions, in the order given.
    std::string Export(const CLogbookDoc& doc, std::span<const std::size_t> jumps) const;
    // The header row's fields.
    std::vector<std::string> Header() const;
    // The fields of one jump's row.
    std::vector<std::string> Row(const CJump& jump, const CLogbookDoc& doc) const;

    // Appends one row (fields quoted as needed, CR LF at the end) to out.
    static void AppendRow(const std::vector<std::string>& fields, std::string& out);
    // Appends one field, quoted when it holds a comma, a quote, CR or LF.
    static void AppendField(std::string_view field, std::string& out);

private:
    // One field's cell, written as its type says.
    std::string Cell(const CJump& jump, const JumpFieldInfo& info, const CLogbookSettings& settings) const;

    const CUnitSettings& m_units;
};
