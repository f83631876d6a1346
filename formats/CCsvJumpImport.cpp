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

constexpr std::string_view kFieldNames[kCsvFieldCount] = {
    "number",  "date",      "time",      "place",   "aircraft", "type", "exit",   "open",        "freefall", "fallrate",
    "winddir", "windspeed", "equipment", "landing", "team",     "size", "points", "malfunction", "signedby", "note"};

// Header names per field after Normalise (lower case, units and punctuation dropped). The
// export's own names come first.
struct Alias
{
    CsvField field;
    std::string_view name;
};
constexpr Alias kAliases[] = {
    {CsvField::Number, "number"},
    {CsvField::Number, "jump"},
    {CsvField::Number, "jump no"},
    {CsvField::Number, "jump number"},
    {CsvField::Number, "no"},
    {CsvField::Number, "nr"},
    {CsvField::Number, "nummer"},
    {CsvField::Number, "sprung"},
    {CsvField::Number, "sprung nr"},
    {CsvField::Number, "sprungnummer"},
    {CsvField::Date, "date"},
    {CsvField::Date, "datum"},
    {CsvField::Date, "day"},
    {CsvField::Date, "tag"},
    {CsvField::Time, "time"},
    {CsvField::Time, "uhrzeit"},
    {CsvField::Time, "zeit"},
    {CsvField::Place, "place"},
    {CsvField::Place, "dz"},
    {CsvField::Place, "dropzone"},
    {CsvField::Place, "drop zone"},
    {CsvField::Place, "location"},
    {CsvField::Place, "ort"},
    {CsvField::Place, "sprungplatz"},
    {CsvField::Aircraft, "aircraft"},
    {CsvField::Aircraft, "plane"},
    {CsvField::Aircraft, "airplane"},
    {CsvField::Aircraft, "flugzeug"},
    {CsvField::Aircraft, "maschine"},
    {CsvField::Type, "type"},
    {CsvField::Type, "jump type"},
    {CsvField::Type, "sprungart"},
    {CsvField::Type, "art"},
    {CsvField::Type, "typ"},
    {CsvField::Exit, "exit"},
    {CsvField::Exit, "altitude"},
    {CsvField::Exit, "exit altitude"},
    {CsvField::Exit, "exit height"},
    {CsvField::Exit, "height"},
    {CsvField::Exit, "absprunghöhe"},
    {CsvField::Exit, "höhe"},
    {CsvField::Open, "open"},
    {CsvField::Open, "deploy"},
    {CsvField::Open, "deployment"},
    {CsvField::Open, "opening"},
    {CsvField::Open, "pull"},
    {CsvField::Open, "pull altitude"},
    {CsvField::Open, "opening altitude"},
    {CsvField::Open, "öffnung"},
    {CsvField::Open, "öffnungshöhe"},
    {CsvField::Freefall, "freefall"},
    {CsvField::Freefall, "freefall time"},
    {CsvField::Freefall, "delay"},
    {CsvField::Freefall, "freifall"},
    {CsvField::Freefall, "freifallzeit"},
    {CsvField::Fallrate, "fall rate"},
    {CsvField::Fallrate, "fallrate"},
    {CsvField::WindDirection, "wind direction"},
    {CsvField::WindDirection, "windrichtung"},
    {CsvField::WindSpeed, "wind speed"},
    {CsvField::WindSpeed, "windgeschwindigkeit"},
    {CsvField::Equipment, "equipment"},
    {CsvField::Equipment, "canopy"},
    {CsvField::Equipment, "rig"},
    {CsvField::Equipment, "gear"},
    {CsvField::Equipment, "schirm"},
    {CsvField::Equipment, "ausrüstung"},
    {CsvField::Landing, "landing"},
    {CsvField::Landing, "landung"},
    {CsvField::Team, "team"},
    {CsvField::Size, "size"},
    {CsvField::Size, "group size"},
    {CsvField::Size, "größe"},
    {CsvField::Points, "points"},
    {CsvField::Points, "punkte"},
    {CsvField::Malfunction, "malfunction"},
    {CsvField::Malfunction, "störung"},
    {CsvField::SignedBy, "signed by"},
    {CsvField::SignedBy, "witness"},
    {CsvField::SignedBy, "signature"},
    {CsvField::SignedBy, "zeuge"},
    {CsvField::SignedBy, "unterschrift"},
    {CsvField::Note, "note"},
    {CsvField::Note, "notes"},
    {CsvField::Note, "comment"},
    {CsvField::Note, "comments"},
    {CsvField::Note, "remarks"},
    {CsvField::Note, "bemerkung"},
    {CsvField::Note, "bemerkungen"},
    {CsvField::Note, "notiz"},
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
    const auto cell = [&](CsvField field) { return Cell(row, map[field]); };

    if (map[CsvField::Number] >= 0 && !WholeNumber(cell(CsvField::Number), 1, 99999999, edits.number))
        return fail(StringTable::IDS_CSV_BAD_NUMBER, Quote(cell(CsvField::Number)));
    const std::string_view dateCell = cell(CsvField::Date);
    if (dateCell.empty())
        return fail(StringTable::IDS_CSV_NO_DATE);
    CDateTime date;
    if (!CCsvJumpImport::ParseDate(dateCell, map.dates, date))
        return fail(StringTable::IDS_CSV_BAD_DATE, Quote(dateCell));
    int hour = 0, minute = 0, second = 0;
    DateParts parts;
    SplitDate(dateCell, parts);
    std::string_view timeCell = map[CsvField::Time] >= 0 ? cell(CsvField::Time) : parts.rest;
    if (!timeCell.empty() && !ParseTime(timeCell, hour, minute, second))
        return fail(StringTable::IDS_CSV_BAD_TIME, Quote(timeCell));
    edits.timestamp.dateTime = CDateTime(date.Year(), date.Month(), date.Day(), hour, minute, second);

    if (!ParseHeight(cell(CsvField::Exit), map.units == CsvHeightUnit::Feet, edits.exitHeight))
        return fail(StringTable::IDS_CSV_BAD_HEIGHT, Quote(cell(CsvField::Exit)));
    if (!ParseHeight(cell(CsvField::Open), map.units == CsvHeightUnit::Feet, edits.openHeight))
        return fail(StringTable::IDS_CSV_BAD_HEIGHT, Quote(cell(CsvField::Open)));
    const std::string_view freefallCell = cell(CsvField::Freefall);
    if (!freefallCell.empty() && !ParseFreefall(freefallCell, edits.freefallTime))
        return fail(StringTable::IDS_CSV_BAD_FREEFALL, Quote(freefallCell));
    const std::string_view kindCell = cell(CsvField::Fallrate);
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

    const auto number = [&](CsvField field, auto& target, bool whole) {
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
    if (!number(CsvField::WindDirection, edits.windDirection, true) ||
        !number(CsvField::WindSpeed, edits.windSpeed, false) || !number(CsvField::Size, edits.size, true) ||
        !number(CsvField::Points, edits.points, true))
        return false;
    edits.place = cell(CsvField::Place);
    edits.aircraft = cell(CsvField::Aircraft);
    edits.type = cell(CsvField::Type);
    edits.equipment = cell(CsvField::Equipment);
    edits.landing = cell(CsvField::Landing);
    edits.team = cell(CsvField::Team);
    edits.malfunction = cell(CsvField::Malfunction);
    edits.signer = cell(CsvField::SignedBy);
    edits.noteText = NoteText(cell(CsvField::Note));
    return true;
}

} // namespace

std::string_view CCsvJumpImport::FieldName(CsvField field)
{
    return kFieldNames[static_cast<std::size_t>(field)];
}

bool CCsvJumpImport::FieldFromName(std::string_view name, CsvField& field)
{
    for (std::size_t i = 0; i < kCsvFieldCount; ++i) {
        if (EqualNoCase(name, kFieldNames[i])) {
            field = static_cast<CsvField>(i);
            return true;
        }
    }
    return false;
}

bool CCsvJumpImport::FieldOfHeader(std::string_view header, CsvField& field)
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
        CsvField field;
        if (!FieldOfHeader(table.header[i], field) || map[field] >= 0)
            continue;
        map[field] = static_cast<int>(i);
        if (field == CsvField::Exit || field == CsvField::Open)
            unitFromHeader = unitFromHeader || UnitOfHeader(table.header[i], map.units);
    }

    // The date form of the whole file: one date only valid day-first (or month-first) decides.
    bool dayFirst = false, monthFirst = false, either = false;
    for (const CCsvTable::Row& row : table.rows) {
        DateParts parts;
        if (!SplitDate(Cell(row, map[CsvField::Date]), parts) || parts.iso)
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
    if (!unitFromHeader && map[CsvField::Exit] >= 0) {
        std::vector<double> exits;
        for (const CCsvTable::Row& row : table.rows) {
            double value = 0;
            if (Decimal(Cell(row, map[CsvField::Exit]), value) && value > 0)
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
    if (mapping[CsvField::Date] < 0) {
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
        if (mapping[CsvField::Number] < 0)
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
