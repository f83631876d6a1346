#include "formats/CCsvJumpImport.h"

#include "formats/CsvCells.h"

#include "document/CLogbookDoc.h"
#include "model/CJump.h"
#include "model/CJumpEdits.h"
#include "resources/StringTable.h"
#include "units/DurationText.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <set>

namespace {

using namespace CsvCells;

// Header names per field after Normalise (lower case, units and punctuation dropped). The
// export's own names come first.
struct Alias
{
    JumpField field;
    std::string_view name;
};
constexpr Alias kAliases[] = {
    {JumpField::Number, "number"},
    {JumpField::Number, "jump"},
    {JumpField::Number, "jump no"},
    {JumpField::Number, "jump number"},
    {JumpField::Number, "no"},
    {JumpField::Number, "nr"},
    {JumpField::Number, "nummer"},
    {JumpField::Number, "sprung"},
    {JumpField::Number, "sprung nr"},
    {JumpField::Number, "sprungnummer"},
    {JumpField::Date, "date"},
    {JumpField::Date, "datum"},
    {JumpField::Date, "day"},
    {JumpField::Date, "tag"},
    {JumpField::Time, "time"},
    {JumpField::Time, "uhrzeit"},
    {JumpField::Time, "zeit"},
    {JumpField::Place, "place"},
    {JumpField::Place, "dz"},
    {JumpField::Place, "dropzone"},
    {JumpField::Place, "drop zone"},
    {JumpField::Place, "location"},
    {JumpField::Place, "ort"},
    {JumpField::Place, "sprungplatz"},
    {JumpField::Aircraft, "aircraft"},
    {JumpField::Aircraft, "plane"},
    {JumpField::Aircraft, "airplane"},
    {JumpField::Aircraft, "flugzeug"},
    {JumpField::Aircraft, "maschine"},
    {JumpField::Type, "type"},
    {JumpField::Type, "jump type"},
    {JumpField::Type, "sprungart"},
    {JumpField::Type, "art"},
    {JumpField::Type, "typ"},
    {JumpField::Exit, "exit"},
    {JumpField::Exit, "altitude"},
    {JumpField::Exit, "exit altitude"},
    {JumpField::Exit, "exit height"},
    {JumpField::Exit, "height"},
    {JumpField::Exit, "absprunghöhe"},
    {JumpField::Exit, "höhe"},
    {JumpField::Open, "open"},
    {JumpField::Open, "deploy"},
    {JumpField::Open, "deployment"},
    {JumpField::Open, "opening"},
    {JumpField::Open, "pull"},
    {JumpField::Open, "pull altitude"},
    {JumpField::Open, "opening altitude"},
    {JumpField::Open, "öffnung"},
    {JumpField::Open, "öffnungshöhe"},
    {JumpField::Freefall, "freefall"},
    {JumpField::Freefall, "freefall time"},
    {JumpField::Freefall, "delay"},
    {JumpField::Freefall, "freifall"},
    {JumpField::Freefall, "freifallzeit"},
    {JumpField::Fallrate, "fall rate"},
    {JumpField::Fallrate, "fallrate"},
    {JumpField::WindDirection, "wind direction"},
    {JumpField::WindDirection, "windrichtung"},
    {JumpField::WindSpeed, "wind speed"},
    {JumpField::WindSpeed, "windgeschwindigkeit"},
    {JumpField::Equipment, "equipment"},
    {JumpField::Equipment, "canopy"},
    {JumpField::Equipment, "rig"},
    {JumpField::Equipment, "gear"},
    {JumpField::Equipment, "schirm"},
    {JumpField::Equipment, "ausrüstung"},
    {JumpField::Landing, "landing"},
    {JumpField::Landing, "landung"},
    {JumpField::Team, "team"},
    {JumpField::Size, "size"},
    {JumpField::Size, "group size"},
    {JumpField::Size, "größe"},
    {JumpField::Points, "points"},
    {JumpField::Points, "punkte"},
    {JumpField::Malfunction, "malfunction"},
    {JumpField::Malfunction, "störung"},
    {JumpField::Signer, "signed by"},
    {JumpField::Signer, "witness"},
    {JumpField::Signer, "signature"},
    {JumpField::Signer, "zeuge"},
    {JumpField::Signer, "unterschrift"},
    {JumpField::Note, "note"},
    {JumpField::Note, "notes"},
    {JumpField::Note, "comment"},
    {JumpField::Note, "comments"},
    {JumpField::Note, "remarks"},
    {JumpField::Note, "bemerkung"},
    {JumpField::Note, "bemerkungen"},
    {JumpField::Note, "notiz"},
};

// A typical exit above this many is given in feet.
constexpr double kFeetAbove = 6000.0;

// A header cell in lower case (ASCII and the German capitals), without what stands in brackets
// (units), without "#", ".", ":", "_", "-" and with single spaces: "Jump #" -> "jump",
// "Exit [ft]" -> "exit", "ABSPRUNGHÖHE (m)" -> "absprunghöhe".
std::string Normalise(std::string_view header)
{
    std::string out;
    int depth = 0;
    for (std::size_t i = 0; i < header.size(); ++i) {
        const char c = header[i];
        if (c == '[' || c == '(') {
            ++depth;
            continue;
        }
        if (c == ']' || c == ')') {
            depth = depth > 0 ? depth - 1 : 0;
            continue;
        }
        if (depth > 0)
            continue;
        // The German capitals Ä Ö Ü are C3 84, C3 96, C3 9C; their small letters 0x20 higher.
        if (c == '\xC3' && i + 1 < header.size() &&
            (header[i + 1] == '\x84' || header[i + 1] == '\x96' || header[i + 1] == '\x9C')) {
            out += c;
            out += static_cast<char>(header[i + 1] + 0x20);
            ++i;
            continue;
        }
        if (c == '#' || c == '.' || c == ':' || c == '_' || c == '-' || c == ' ' || c == '\t') {
            if (!out.empty() && out.back() != ' ')
                out += ' ';
            continue;
        }
        out += Lower(c);
    }
    while (!out.empty() && out.back() == ' ')
        out.pop_back();
    return out;
}

// The unit a header cell names for heights; false when it names none.
bool UnitOfHeader(std::string_view header, CsvHeightUnit& unit)
{
    std::string text;
    for (char c : header)
        text += Lower(c);
    for (std::string_view feet : {"[ft]", "(ft)", " ft", "feet", "fuß", "fuss"}) {
        if (text.find(feet) != std::string::npos) {
            unit = CsvHeightUnit::Feet;
            return true;
        }
    }
    for (std::string_view metres : {"[m]", "(m)", " m", "meter", "metre"}) {
        if (text.find(metres) != std::string::npos) {
            unit = CsvHeightUnit::Metres;
            return true;
        }
    }
    return false;
}

std::string_view Cell(const CCsvTable::Row& row, int column)
{
    if (column < 0 || static_cast<std::size_t>(column) >= row.cells.size())
        return {};
    return Trim(row.cells[static_cast<std::size_t>(column)]);
}

// A note's line breaks as the jump keeps them: CR LF.
std::string NoteText(std::string_view cell)
{
    std::string out;
    for (std::size_t i = 0; i < cell.size(); ++i) {
        if (cell[i] == '\r') {
            out += "\r\n";
            if (i + 1 < cell.size() && cell[i + 1] == '\n')
                ++i;
        } else if (cell[i] == '\n') {
            out += "\r\n";
        } else {
            out += cell[i];
        }
    }
    return out;
}

std::string Quote(std::string_view cell)
{
    constexpr std::size_t kLongest = 40;
    std::string text = "\"" + std::string(cell.substr(0, kLongest));
    if (cell.size() > kLongest)
        text += "...";
    return text + "\"";
}

// One row into the edits of a jump; false with the problem when a cell cannot be read.
bool ReadRow(const CCsvTable& table, const CCsvTable::Row& row, const CCsvMapping& map, CJumpEdits& edits,
             CJumpFallrate& fallrate, CCsvRowProblem& problem)
{
    const auto fail = [&](int id, std::string arg1 = {}, std::string arg2 = {}) {
        problem = {id, std::move(arg1), std::move(arg2), row.line};
        return false;
    };
    if (row.problemId != 0)
        return fail(row.problemId);
    if (row.cells.size() != table.header.size())
        return fail(StringTable::IDS_CSV_CELL_COUNT, std::to_string(row.cells.size()),
                    std::to_string(table.header.size()));
    const auto cell = [&](JumpField field) { return Cell(row, map[field]); };

    if (map[JumpField::Number] >= 0 && !WholeNumber(cell(JumpField::Number), 1, 99999999, edits.number))
        return fail(StringTable::IDS_CSV_BAD_NUMBER, Quote(cell(JumpField::Number)));
    const std::string_view dateCell = cell(JumpField::Date);
    if (dateCell.empty())
        return fail(StringTable::IDS_CSV_NO_DATE);
    CDateTime date;
    if (!CCsvJumpImport::ParseDate(dateCell, map.dates, date))
        return fail(StringTable::IDS_CSV_BAD_DATE, Quote(dateCell));
    int hour = 0, minute = 0, second = 0;
    DateParts parts;
    SplitDate(dateCell, parts);
    std::string_view timeCell = map[JumpField::Time] >= 0 ? cell(JumpField::Time) : parts.rest;
    if (!timeCell.empty() && !ParseTime(timeCell, hour, minute, second))
        return fail(StringTable::IDS_CSV_BAD_TIME, Quote(timeCell));
    edits.timestamp.dateTime = CDateTime(date.Year(), date.Month(), date.Day(), hour, minute, second);

    if (!ParseHeight(cell(JumpField::Exit), map.units == CsvHeightUnit::Feet, edits.exitHeight))
        return fail(StringTable::IDS_CSV_BAD_HEIGHT, Quote(cell(JumpField::Exit)));
    if (!ParseHeight(cell(JumpField::Open), map.units == CsvHeightUnit::Feet, edits.openHeight))
        return fail(StringTable::IDS_CSV_BAD_HEIGHT, Quote(cell(JumpField::Open)));
    const std::string_view freefallCell = cell(JumpField::Freefall);
    if (!freefallCell.empty() && !ParseFreefall(freefallCell, edits.freefallTime))
        return fail(StringTable::IDS_CSV_BAD_FREEFALL, Quote(freefallCell));
    const std::string_view kindCell = cell(JumpField::Fallrate);
    edits.fallrateKind = freefallCell.empty() ? FallrateKind::Standard : FallrateKind::Manual;
    if (!kindCell.empty()) {
        int kind = -1;
        for (int k = 0; k < kFallrateKindCount; ++k)
            if (EqualNoCase(kindCell, FallrateKindName(static_cast<FallrateKind>(k))))
                kind = k;
        if (kind < 0)
            return fail(StringTable::IDS_CSV_BAD_FALLRATE, Quote(kindCell));
        edits.fallrateKind = static_cast<FallrateKind>(kind);
    }
    fallrate = {edits.fallrateKind, edits.exitHeight, edits.openHeight, edits.freefallTime, 0, 0.0, 0.0};

    const auto number = [&](JumpField field, auto& target, bool whole) {
        const std::string_view text = cell(field);
        if (text.empty())
            return true;
        double value = 0;
        if (!Decimal(text, value) || value < 0 || value > 1e6 || (whole && value != std::floor(value))) {
            const int column = map[field];
            problem = {StringTable::IDS_CSV_BAD_VALUE, table.header[static_cast<std::size_t>(column)], Quote(text),
                       row.line};
            return false;
        }
        target = static_cast<std::remove_reference_t<decltype(target)>>(value);
        return true;
    };
    if (!number(JumpField::WindDirection, edits.windDirection, true) ||
        !number(JumpField::WindSpeed, edits.windSpeed, false) || !number(JumpField::Size, edits.size, true) ||
        !number(JumpField::Points, edits.points, true))
        return false;
    edits.place = cell(JumpField::Place);
    edits.aircraft = cell(JumpField::Aircraft);
    edits.type = cell(JumpField::Type);
    edits.equipment = cell(JumpField::Equipment);
    edits.landing = cell(JumpField::Landing);
    edits.team = cell(JumpField::Team);
    edits.malfunction = cell(JumpField::Malfunction);
    edits.signer = cell(JumpField::Signer);
    edits.noteText = NoteText(cell(JumpField::Note));
    return true;
}

} // namespace

bool CCsvJumpImport::FieldFromName(std::string_view name, JumpField& field)
{
    JumpField named = JumpField::Count;
    if (!JumpFieldFromName(name, named) || static_cast<std::size_t>(named) >= kSpreadsheetFieldCount)
        return false;
    field = named;
    return true;
}

bool CCsvJumpImport::FieldOfHeader(std::string_view header, JumpField& field)
{
    const std::string name = Normalise(header);
    for (const Alias& alias : kAliases) {
        if (name == alias.name) {
            field = alias.field;
            return true;
        }
    }
    return false;
}

int CCsvJumpImport::ColumnOf(const CCsvTable& table, std::string_view name)
{
    name = Trim(name);
    for (std::size_t i = 0; i < table.header.size(); ++i)
        if (EqualNoCase(Trim(table.header[i]), name))
            return static_cast<int>(i);
    int number = 0;
    if (Digits(name, number) && number >= 1 && static_cast<std::size_t>(number) <= table.header.size())
        return number - 1;
    return -1;
}

bool CCsvJumpImport::ParseDate(std::string_view cell, CsvDateOrder order, CDateTime& date)
{
    DateParts parts;
    if (!SplitDate(cell, parts))
        return false;
    int day = 0, month = 0;
    if (parts.iso) {
        month = parts.a;
        day = parts.b;
    } else if (order == CsvDateOrder::DayFirst) {
        day = parts.a;
        month = parts.b;
    } else if (order == CsvDateOrder::MonthFirst) {
        month = parts.a;
        day = parts.b;
    } else {
        return false;
    }
    if (!ValidDate(parts.year, month, day))
        return false;
    date = CDateTime(parts.year, month, day);
    return true;
}

CCsvProposal CCsvJumpImport::Propose(const CCsvTable& table)
{
    CCsvProposal proposal;
    CCsvMapping& map = proposal.mapping;
    bool unitFromHeader = false;
    for (std::size_t i = 0; i < table.header.size(); ++i) {
        JumpField field;
        if (!FieldOfHeader(table.header[i], field) || map[field] >= 0)
            continue;
        map[field] = static_cast<int>(i);
        if (field == JumpField::Exit || field == JumpField::Open)
            unitFromHeader = unitFromHeader || UnitOfHeader(table.header[i], map.units);
    }

    // The date form of the whole file: one date only valid day-first (or month-first) decides.
    bool dayFirst = false, monthFirst = false, either = false;
    for (const CCsvTable::Row& row : table.rows) {
        DateParts parts;
        if (!SplitDate(Cell(row, map[JumpField::Date]), parts) || parts.iso)
            continue;
        const bool asDay = ValidDate(parts.year, parts.b, parts.a);
        const bool asMonth = ValidDate(parts.year, parts.a, parts.b);
        dayFirst |= asDay && !asMonth;
        monthFirst |= asMonth && !asDay;
        either |= asDay && asMonth;
    }
    if (dayFirst && monthFirst)
        proposal.datesQuestion = StringTable::IDS_CSV_DATES_MIXED;
    else if (dayFirst)
        map.dates = CsvDateOrder::DayFirst;
    else if (monthFirst)
        map.dates = CsvDateOrder::MonthFirst;
    else if (either)
        proposal.datesQuestion = StringTable::IDS_CSV_DATES_UNCLEAR;
    else
        map.dates = CsvDateOrder::Iso;

    // Heights without a unit in the header: metres unless the exits lie where only feet do.
    if (!unitFromHeader && map[JumpField::Exit] >= 0) {
        std::vector<double> exits;
        for (const CCsvTable::Row& row : table.rows) {
            double value = 0;
            if (Decimal(Cell(row, map[JumpField::Exit]), value) && value > 0)
                exits.push_back(value);
        }
        if (!exits.empty()) {
            std::nth_element(exits.begin(), exits.begin() + exits.size() / 2, exits.end());
            map.units = exits[exits.size() / 2] > kFeetAbove ? CsvHeightUnit::Feet : CsvHeightUnit::Metres;
        }
    }
    return proposal;
}

CCsvImportPlan CCsvJumpImport::Plan(const CCsvTable& table, const CCsvMapping& mapping, const CLogbookDoc& doc,
                                    const CDateTime& modified, int offsetMinutes)
{
    CCsvImportPlan plan;
    if (mapping[JumpField::Date] < 0) {
        plan.messageId = StringTable::IDS_CSV_NO_DATE_COLUMN;
        return plan;
    }
    // Numbers of the logbook and where their jump is.
    std::map<int, std::size_t> existing;
    for (std::size_t i = 0; i < doc.GetJumpCount(); ++i)
        existing.emplace(doc.GetJump(i).GetNumber(), i);
    const CJump* last = doc.GetLastJump();
    int nextNumber = last ? last->GetNumber() + 1 : 1;
    std::set<int> seen;
    const CEquipmentList& rigs = doc.GetSettings().GetEquipmentList();

    plan.rows.reserve(table.rows.size());
    for (const CCsvTable::Row& row : table.rows) {
        CCsvPlannedRow& planned = plan.rows.emplace_back();
        planned.line = row.line;
        CJumpEdits edits;
        edits.timestamp.offsetMinutes = offsetMinutes;
        CJumpFallrate fallrate;
        if (!ReadRow(table, row, mapping, edits, fallrate, planned.problem)) {
            ++plan.skipped;
            continue;
        }
        if (mapping[JumpField::Number] < 0)
            edits.number = nextNumber++;
        const std::string number = std::to_string(edits.number);
        if (!seen.insert(edits.number).second) {
            planned.problem = {StringTable::IDS_CSV_NUMBER_TWICE, number, {}, row.line};
            ++plan.skipped;
            continue;
        }
        const auto found = existing.find(edits.number);
        if (found != existing.end()) {
            const CJump& present = doc.GetJump(found->second);
            if (!mapping.replaceUnsigned || present.IsSigned()) {
                planned.problem = {present.IsSigned() && mapping.replaceUnsigned ? StringTable::IDS_CSV_NUMBER_SIGNED
                                                                                 : StringTable::IDS_CSV_NUMBER_TAKEN,
                                   number,
                                   {},
                                   row.line};
                ++plan.skipped;
                continue;
            }
            planned.replaces = static_cast<int>(found->second);
        }
        planned.jump = std::make_unique<CJump>(edits.number, edits.timestamp, modified);
        planned.jump->ApplyEdits(edits, rigs);
        // The times an imported fall rate brings are its own, not the editor's.
        if (fallrate.kind == FallrateKind::Import)
            planned.jump->SetFallrateValues(fallrate);
        ++(planned.replaces >= 0 ? plan.replaced : plan.added);
    }
    return plan;
}

std::size_t CCsvJumpImport::Apply(CCsvImportPlan& plan, CLogbookDoc& doc)
{
    // Replacements first, by the jump they replace (indexes of a list that new jumps would shift).
    std::size_t done = 0;
    std::vector<std::pair<const CJump*, CCsvPlannedRow*>> replacements;
    for (CCsvPlannedRow& row : plan.rows)
        if (row.jump && row.replaces >= 0)
            replacements.emplace_back(&doc.GetJump(static_cast<std::size_t>(row.replaces)), &row);
    for (auto& [present, row] : replacements) {
        const int index = doc.IndexOf(present);
        if (index < 0)
            continue;
        std::unique_ptr<CJump> jump = std::move(row->jump);
        doc.ChangeJump(static_cast<std::size_t>(index), [&jump](CJump& target) {
            target = std::move(*jump);
            return true;
        });
        ++done;
    }
    for (CCsvPlannedRow& row : plan.rows) {
        if (row.jump && row.replaces < 0) {
            doc.AddJump(std::move(row.jump));
            ++done;
        }
    }
    return done;
}
