#include "cli/CImportCsvCommand.h"

#include "bridge/CorePaths.h"
#include "cli/CConsole.h"
#include "cli/CLogbookOpener.h"
#include "document/CLogbookDoc.h"
#include "document/CLogbookLock.h"
#include "document/IClock.h"
#include "formats/CCsvJumpImport.h"
#include "resources/StringTable.h"
#include "translations/MessageText.h"

#include <filesystem>
#include <fstream>
#include <system_error>

namespace {

const QString kMap = QStringLiteral("map");
const QString kDates = QStringLiteral("dates");
const QString kUnits = QStringLiteral("units");
const QString kReplace = QStringLiteral("replace");
const QString kDryRun = QStringLiteral("dry-run");
const QString kForce = QStringLiteral("force");

// The file's bytes; false when it cannot be read or is too large for a table.
bool ReadBytes(const std::string& path, std::string& bytes, int& messageId)
{
    std::error_code error;
    const std::uintmax_t size = std::filesystem::file_size(path, error);
    if (error) {
        messageId = StringTable::IDS_TRACK_UNREADABLE;
        return false;
    }
    if (size > CCsvReader::kLargestFile) {
        messageId = StringTable::IDS_CSV_TOO_LARGE;
        return false;
    }
    std::ifstream in(path, std::ios::binary);
    bytes.resize(static_cast<std::size_t>(size));
    if (!in || !in.read(bytes.data(), static_cast<std::streamsize>(size))) {
        messageId = StringTable::IDS_TRACK_UNREADABLE;
        return false;
    }
    return true;
}

std::string DatesName(CsvDateOrder order)
{
    switch (order) {
    case CsvDateOrder::Iso:
        return "ISO (year-month-day)";
    case CsvDateOrder::DayFirst:
        return "day-first";
    case CsvDateOrder::MonthFirst:
        return "month-first";
    default:
        return "unknown";
    }
}

} // namespace

QString CImportCsvCommand::Summary() const
{
    return QStringLiteral("Adds the jumps of a spreadsheet (CSV) to a logbook and saves it.");
}

void CImportCsvCommand::Configure(QCommandLineParser& parser)
{
    parser.addPositionalArgument(QStringLiteral("LOGBOOK"), QStringLiteral("The logbook (.tvz or .tvl)."));
    parser.addPositionalArgument(QStringLiteral("FILE.csv"),
                                 QStringLiteral("A table of jumps, one a row, under a header row."));
    parser.addOption({kMap,
                      QStringLiteral("Fill FIELD from COLUMN (a header cell or a column number from 1); may be "
                                     "given for several fields. An empty COLUMN leaves the field empty."),
                      QStringLiteral("FIELD=COLUMN")});
    parser.addOption({kDates,
                      QStringLiteral("Read the dates day-first (dmy), month-first (mdy) or as year-month-day "
                                     "(iso) instead of telling from the file."),
                      QStringLiteral("dmy|mdy|iso")});
    parser.addOption({kUnits,
                      QStringLiteral("Heights are in feet (ft) or metres (m) instead of what the header or "
                                     "the values suggest."),
                      QStringLiteral("ft|m")});
    parser.addOption({kReplace, QStringLiteral("A row whose jump number is already in the logbook replaces that "
                                               "jump when it is not signed (otherwise the row is skipped).")});
    parser.addOption({kDryRun, QStringLiteral("Print what would be imported; change nothing.")});
    parser.addOption({kForce, QStringLiteral("Write the logbook even while a running program has it open.")});
}

QString CImportCsvCommand::Details() const
{
    return QStringLiteral(
        "The file may be separated by commas, semicolons or tabs, with or without quotes (a quoted\n"
        "cell may hold separators and line breaks), in UTF-8 (with or without a byte order mark) or\n"
        "Latin-1/Windows-1252, with CR LF or LF line ends. The columns are found by their header in\n"
        "English or German (\"Jump #\", \"Nr\", \"Date\", \"Datum\", \"DZ\", \"Ort\", \"Exit\",\n"
        "\"Absprunghöhe\", \"Freefall\", \"Delay\", \"Notes\", \"Bemerkung\", ...); a file this tool or\n"
        "the window program exported reads back as it was written.\n"
        "\n"
        "FIELD is one of: number, date, time, place, aircraft, type, exit, open, freefall, fallrate,\n"
        "winddir, windspeed, equipment, landing, team, size, points, malfunction, signedby, note.\n"
        "Without a number column the jumps are numbered on from the logbook's last jump.\n"
        "\n"
        "Dates: ISO (2024-05-17), day-first (17.05.2024, 17/05/24) or month-first (5/17/2024); the\n"
        "whole file is read one way, told by a date that only one way can read. A file whose dates\n"
        "read both ways needs --dates. Heights: feet or metres, from the header (\"Exit [ft]\") or\n"
        "else from the exits' range. Freefall: seconds or m:ss.\n"
        "\n"
        "A row whose jump number is in the logbook is skipped (--replace: it replaces an unsigned\n"
        "jump). The logbook is saved as the window program's Save does (a .bak copy first). Printed:\n"
        "  Rows         rows read, added, replaced and skipped\n"
        "  Line N: ...  each skipped row with its reason\n"
        "\n"
        "A logbook that the window program (or another tool) has open is refused with a message\n"
        "naming that process; --force writes it all the same.\n"
        "Exit codes: 0 imported (or, with --dry-run, read), 1 a file could not be read, used or\n"
        "saved, 2 wrong command line.\n");
}

int CImportCsvCommand::Execute(const QCommandLineParser& parser)
{
    const QStringList arguments = parser.positionalArguments();
    CCsvMapping overrides;
    std::vector<std::pair<JumpField, std::string>> maps;
    for (const QString& map : parser.values(kMap)) {
        const qsizetype equals = map.indexOf(QLatin1Char('='));
        JumpField field;
        if (equals < 0 || !CCsvJumpImport::FieldFromName(map.left(equals).toStdString(), field))
            return Usage(QStringLiteral("--map needs FIELD=COLUMN with a FIELD of the list, not \"%1\"").arg(map));
        maps.emplace_back(field, map.mid(equals + 1).toStdString());
    }
    bool datesGiven = parser.isSet(kDates);
    CsvDateOrder dates = CsvDateOrder::Unknown;
    if (datesGiven) {
        const QString value = parser.value(kDates);
        dates = value == QLatin1String("dmy")   ? CsvDateOrder::DayFirst
                : value == QLatin1String("mdy") ? CsvDateOrder::MonthFirst
                : value == QLatin1String("iso") ? CsvDateOrder::Iso
                                                : CsvDateOrder::Unknown;
        if (dates == CsvDateOrder::Unknown)
            return Usage(QStringLiteral("--dates takes dmy, mdy or iso, not \"%1\"").arg(value));
    }
    CsvHeightUnit units = CsvHeightUnit::Metres;
    if (parser.isSet(kUnits)) {
        const QString value = parser.value(kUnits);
        if (value != QLatin1String("ft") && value != QLatin1String("m"))
            return Usage(QStringLiteral("--units takes ft or m, not \"%1\"").arg(value));
        units = value == QLatin1String("ft") ? CsvHeightUnit::Feet : CsvHeightUnit::Metres;
    }

    // The table first: a file that cannot be read leaves the logbook untouched and unlocked.
    const std::string csvPath = CorePaths::LocalPath(arguments.at(1));
    const std::string csvName = std::filesystem::path(csvPath).filename().string();
    std::string bytes;
    int messageId = 0;
    if (!ReadBytes(csvPath, bytes, messageId)) {
        CConsole::ErrLine(csvName + ": " + StringTable::Format(messageId, "\"" + csvPath + "\""));
        return Failure;
    }
    const CCsvReadResult read = CCsvReader::Read(bytes);
    if (!read.ok) {
        CConsole::ErrLine(csvName + ": " + std::string(StringTable::Text(read.messageId)));
        return Failure;
    }
    CCsvProposal proposal = CCsvJumpImport::Propose(read.table);
    CCsvMapping& mapping = proposal.mapping;
    for (const auto& [field, column] : maps) {
        const int index = column.empty() ? -1 : CCsvJumpImport::ColumnOf(read.table, column);
        if (!column.empty() && index < 0) {
            CConsole::ErrLine(csvName + ": no column \"" + column + "\" for " +
                              std::string(JumpFieldInfoOf(field).name) + ".");
            return Failure;
        }
        mapping[field] = index;
    }
    if (datesGiven)
        mapping.dates = dates;
    else if (proposal.datesQuestion != 0) {
        CConsole::ErrLine(csvName + ": " + std::string(StringTable::Text(proposal.datesQuestion)) +
                          " (--dates dmy or --dates mdy)");
        return Failure;
    }
    if (parser.isSet(kUnits))
        mapping.units = units;
    mapping.replaceUnsigned = parser.isSet(kReplace);

    const std::string logbook = CorePaths::LocalPath(arguments.at(0));
    const bool dryRun = parser.isSet(kDryRun);
    CLogbookLock lock;
    if (!dryRun && !CLogbookOpener::LockOrReport(lock, logbook, parser.isSet(kForce)))
        return Failure;
    CLogbookDoc doc;
    if (!CLogbookOpener::OpenOrReport(doc, logbook))
        return Failure;

    const CSystemClock clock;
    CCsvImportPlan plan = CCsvJumpImport::Plan(read.table, mapping, doc, clock.Now(), clock.UtcOffsetMinutes());
    if (plan.messageId != 0) {
        CConsole::ErrLine(csvName + ": " + std::string(StringTable::Text(plan.messageId)) + " (--map date=COLUMN)");
        return Failure;
    }
    std::string columns;
    for (std::size_t i = 0; i < kSpreadsheetFieldCount; ++i) {
        const int column = mapping.column[i];
        if (column >= 0)
            columns += (columns.empty() ? "" : ", ") + std::string(JumpFieldInfoOf(static_cast<JumpField>(i)).name) +
                       "=" + read.table.header[static_cast<std::size_t>(column)];
    }
    CConsole::OutLine(
        "File: " + read.table.encoding + ", separated by " +
        (read.table.separator == '\t' ? std::string("tabs") : "\"" + std::string(1, read.table.separator) + "\""));
    CConsole::OutLine("Columns: " + columns);
    CConsole::OutLine("Dates: " + DatesName(mapping.dates) +
                      "; heights: " + (mapping.units == CsvHeightUnit::Feet ? "ft" : "m"));
    CConsole::OutLine("Rows: " + std::to_string(plan.rows.size()) + " read, " + std::to_string(plan.added) +
                      " added, " + std::to_string(plan.replaced) + " replaced, " + std::to_string(plan.skipped) +
                      " skipped" + (dryRun ? " (dry run: nothing saved)" : ""));
    for (const CCsvPlannedRow& row : plan.rows)
        if (!row.Taken())
            CConsole::OutLine(MessageText::Utf8(row.problem));
    if (dryRun || plan.added + plan.replaced == 0)
        return Success;

    CCsvJumpImport::Apply(plan, doc);
    if (!doc.Save(logbook)) {
        CConsole::ErrLine(StringTable::Text(StringTable::IDS_SAVE_FAILED));
        return Failure;
    }
    return Success;
}
