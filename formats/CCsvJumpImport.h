#pragma once

#include "formats/CCsvReader.h"
#include "model/CJump.h"
#include "model/JumpFields.h"
#include "resources/CMessage.h"
#include "xml/CDateTime.h"

#include <array>
#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

class CLogbookDoc;

enum class CsvDateOrder
{
    // Not known: the file's dates allow both readings; the user has to choose.
    Unknown,
    Iso,
    DayFirst,
    MonthFirst,
};

enum class CsvHeightUnit
{
    Metres,
    Feet,
};

// How the table's columns become jumps.
struct CCsvMapping
{
    CCsvMapping() { column.fill(-1); }

    // Per field the 0-based column of the table, or -1 when no column fills it.
    std::array<int, kSpreadsheetFieldCount> column;
    // How the day-first and month-first forms are read; ISO dates are read as ISO in any case.
    CsvDateOrder dates = CsvDateOrder::Unknown;
    CsvHeightUnit units = CsvHeightUnit::Metres;
    // A row whose number is already in the logbook replaces that jump when it is unsigned;
    // otherwise such rows are skipped.
    bool replaceUnsigned = false;

    int& operator[](JumpField field) { return column[static_cast<std::size_t>(field)]; }
    int operator[](JumpField field) const { return column[static_cast<std::size_t>(field)]; }
};

// What the table itself suggests: the columns recognised by their header, the date form the
// whole file uses and the height unit of the header or the values' range.
struct CCsvProposal
{
    CCsvMapping mapping;
    // 0 when the dates tell their form; otherwise the question to put to the user
    // (IDS_CSV_DATES_UNCLEAR or IDS_CSV_DATES_MIXED), and mapping.dates is Unknown.
    int datesQuestion = 0;
};

// A row that is not taken, or not taken as it stands, and why: the string table's message with
// what goes into its "%1" and "%2", about the row's line ("Line 12: the date "31.02.2020" cannot
// be read.").
using CCsvRowProblem = CMessage;

// One row of the table as it will be imported: a new jump, a jump replacing the one of the
// same number, or the problem that keeps it out.
struct CCsvPlannedRow
{
    int line = 0;
    std::unique_ptr<CJump> jump;
    // The index in the logbook of the jump it replaces; -1 for a new jump.
    int replaces = -1;
    CCsvRowProblem problem;

    bool Taken() const { return jump != nullptr; }
};

struct CCsvImportPlan
{
    // 0 when the rows could be planned; otherwise why not at all (no date column, a date form
    // that needs choosing).
    int messageId = 0;
    std::vector<CCsvPlannedRow> rows;
    std::size_t added = 0;
    std::size_t replaced = 0;
    std::size_t skipped = 0;
};

// Turns a spreadsheet's table of jumps into jumps of a logbook: proposes the columns' meaning
// from their header names (English and German), reads each row with the chosen date form and
// height unit into a jump, and merges the jumps into the logbook through its change calls, so
// that its observers follow and the file changes only at the next save.
class CCsvJumpImport
{
public:
    // The spreadsheet field of a command-line name (case ignored); false when there is none.
    static bool FieldFromName(std::string_view name, JumpField& field);
    // The field a header cell names ("Jump #", "Datum", "Exit [ft]", ...); false when none.
    static bool FieldOfHeader(std::string_view header, JumpField& field);
    // The column a command line names: a header cell (case ignored) or a 1-based column
    // number; -1 when the table has no such column.
    static int ColumnOf(const CCsvTable& table, std::string_view name);

    static CCsvProposal Propose(const CCsvTable& table);

    // Reads every row. New jumps are numbered as the rows say, or after the logbook's last jump in
    // the order of the rows when no column holds the number. modified: the jumps' time of
    // change; offsetMinutes: the UTC offset their dates are given in.
    static CCsvImportPlan Plan(const CCsvTable& table, const CCsvMapping& mapping, const CLogbookDoc& doc,
                               const CDateTime& modified, int offsetMinutes);
    // Merges the taken rows into the logbook (each through AddJump or ChangeJump); the plan's
    // jumps are moved out. Returns how many jumps joined or changed.
    static std::size_t Apply(CCsvImportPlan& plan, CLogbookDoc& doc);

    // A date cell in the given order ("2024-05-17", "17.05.2024", "5/17/24"); false when it is
    // none or impossible.
    static bool ParseDate(std::string_view cell, CsvDateOrder order, CDateTime& date);
};
