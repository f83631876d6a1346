#include "cli/CListCommand.h"

#include "bridge/CorePaths.h"
#include "cli/CConsole.h"
#include "cli/CJumpQuery.h"
#include "cli/CLogbookOpener.h"
#include "cli/CUnitsOption.h"
#include "document/CLogbookDoc.h"
#include "formats/CCsvExporter.h"
#include "qtformats/CJsonExporter.h"
#include "query/CQuery.h"
#include "query/FoldText.h"

#include <QJsonArray>
#include <QJsonDocument>

#include <algorithm>

namespace {

const QString kFormat = QStringLiteral("format");
const QString kColumns = QStringLiteral("columns");
const QString kSort = QStringLiteral("sort");

// A column of the list: its name, the short name of its search term, and its field in the CSV
// exporter's row.
struct Column
{
    const char* name;
    const char* alias;
    std::size_t field;
};
constexpr Column kColumnTable[] = {
    {"number", "n", 0},  {"date", "", 1},       {"time", "", 2},         {"place", "dz", 3},    {"aircraft", "ac", 4},
    {"type", "", 5},     {"exit", "", 6},       {"open", "", 7},         {"freefall", "ff", 8}, {"kind", "", 9},
    {"winddir", "", 10}, {"windspeed", "", 11}, {"rig", "", 12},         {"landing", "", 13},   {"team", "", 14},
    {"size", "", 15},    {"points", "", 16},    {"malfunction", "", 17}, {"signer", "", 18},    {"note", "", 19},
};
const char* const kTableColumns = "number,date,place,aircraft,type,exit,freefall";

const Column* FindColumn(const QString& name)
{
    const QString lower = name.trimmed().toLower();
    for (const Column& column : kColumnTable) {
        if (lower == QLatin1String(column.name) || (*column.alias && lower == QLatin1String(column.alias)))
            return &column;
    }
    return nullptr;
}

// The column names separated by blanks; with wrap, ten to a line.
QString ColumnNames(bool wrap = false)
{
    QString names;
    int count = 0;
    for (const Column& column : kColumnTable) {
        if (count > 0)
            names += wrap && count % 10 == 0 ? QStringLiteral("\n  ") : QStringLiteral(" ");
        names += QString::fromLatin1(column.name);
        ++count;
    }
    return names;
}

// Orders texts as a reader does: case and accents ignored, runs of digits by their value (so
// "9" before "10", and dates, times and durations in time order).
bool NaturalLess(const std::string& a, const std::string& b)
{
    std::size_t i = 0, j = 0;
    const auto digit = [](char c) { return c >= '0' && c <= '9'; };
    while (i < a.size() && j < b.size()) {
        if (digit(a[i]) && digit(b[j])) {
            std::size_t ei = i, ej = j;
            while (ei < a.size() && digit(a[ei]))
                ++ei;
            while (ej < b.size() && digit(b[ej]))
                ++ej;
            const std::string_view da = std::string_view(a).substr(i, ei - i);
            const std::string_view db = std::string_view(b).substr(j, ej - j);
            const std::string_view ta = da.substr(std::min(da.find_first_not_of('0'), da.size()));
            const std::string_view tb = db.substr(std::min(db.find_first_not_of('0'), db.size()));
            if (ta.size() != tb.size())
                return ta.size() < tb.size();
            if (ta != tb)
                return ta < tb;
            i = ei;
            j = ej;
            continue;
        }
        if (a[i] != b[j])
            return static_cast<unsigned char>(a[i]) < static_cast<unsigned char>(b[j]);
        ++i;
        ++j;
    }
    return a.size() - i < b.size() - j;
}

// Characters on screen of UTF-8 text (continuation bytes do not count).
std::size_t Width(const std::string& text)
{
    return static_cast<std::size_t>(
        std::count_if(text.begin(), text.end(), [](char c) { return (static_cast<unsigned char>(c) & 0xC0) != 0x80; }));
}

// A cell on one line: line breaks become " / ".
std::string OneLine(const std::string& text)
{
    std::string out;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == '\r' && i + 1 < text.size() && text[i + 1] == '\n')
            continue;
        if (text[i] == '\n' || text[i] == '\r')
            out += " / ";
        else
            out += text[i];
    }
    return out;
}

// Rows as columns padded to their widest cell, two blanks apart.
std::string Table(const std::vector<std::vector<std::string>>& rows)
{
    std::vector<std::size_t> widths;
    for (const auto& row : rows) {
        widths.resize(std::max(widths.size(), row.size()));
        for (std::size_t c = 0; c < row.size(); ++c)
            widths[c] = std::max(widths[c], Width(row[c]));
    }
    std::string out;
    for (const auto& row : rows) {
        std::string line;
        for (std::size_t c = 0; c < row.size(); ++c) {
            line += row[c];
            if (c + 1 < row.size())
                line.append(widths[c] - Width(row[c]) + 2, ' ');
        }
        // An empty last cell leaves no padding behind.
        line.erase(line.find_last_not_of(' ') + 1);
        out += line + '\n';
    }
    return out;
}

} // namespace

QString CListCommand::Summary() const
{
    return QStringLiteral("Lists the jumps a search finds, as a table, CSV or JSON.");
}

void CListCommand::Configure(QCommandLineParser& parser)
{
    parser.addPositionalArgument(QStringLiteral("FILE"), QStringLiteral("The logbook (.tvz or .tvl)."));
    CJumpQuery::AddTo(parser);
    parser.addOption(
        {kFormat, QStringLiteral("Output: table (the default), csv or json."), QStringLiteral("table|csv|json")});
    parser.addOption({kColumns, QStringLiteral("The columns of table and csv, separated by commas (see below)."),
                      QStringLiteral("LIST")});
    parser.addOption({kSort,
                      QStringLiteral("Sort by this column instead of jump number; \"-COLUMN\" or "
                                     "\"COLUMN:desc\" sorts the other way."),
                      QStringLiteral("COLUMN")});
    CUnitsOption::AddTo(parser);
}

QString CListCommand::Details() const
{
    return CJumpQuery::HelpText() +
           QStringLiteral("\n"
                          "Columns:\n  %1\n"
                          "(n, dz, ac and ff name number, place, aircraft and freefall too). The table shows\n"
                          "%2 unless --columns says otherwise, a header\n"
                          "line and at the end \"N of M jumps\"; csv writes the export's CSV rows (all columns by\n"
                          "default); json writes an array of the matching jumps as \"tervola export --format json\"\n"
                          "writes each jump. Heights are in the units of --units.\n"
                          "\n"
                          "Examples:\n"
                          "  tervola list Jumps.tvz dz:Eloy year:2023\n"
                          "  tervola list Jumps.tvz 'type:\"head down\"' ff:50.. --sort -date\n"
                          "  tervola list Jumps.tvz signed:no --columns n,date,place,signer\n"
                          "  tervola list Jumps.tvz has:malfunction --format csv -- -kind:Import\n"
                          "\n"
                          "Exit codes: 0 listed (also when nothing matches), 1 the file does not load or the query\n"
                          "cannot be read, 2 wrong command line.\n")
               .arg(ColumnNames(true), QString::fromLatin1(kTableColumns).replace(QLatin1Char(','), QLatin1Char(' ')));
}

int CListCommand::Execute(const QCommandLineParser& parser)
{
    const QString format = parser.isSet(kFormat) ? parser.value(kFormat).trimmed().toLower() : QStringLiteral("table");
    if (format != QLatin1String("table") && format != QLatin1String("csv") && format != QLatin1String("json"))
        return Usage(QStringLiteral("unknown format \"%1\" (use table, csv or json)").arg(parser.value(kFormat)));
    const bool json = format == QLatin1String("json");
    if (json && parser.isSet(kColumns))
        return Usage(QStringLiteral("--columns applies to table and csv"));

    std::vector<const Column*> columns;
    const QString columnList = parser.isSet(kColumns)             ? parser.value(kColumns)
                               : format == QLatin1String("table") ? QString::fromLatin1(kTableColumns)
                                                                  : QString();
    for (const QString& name : columnList.split(QLatin1Char(','), Qt::SkipEmptyParts)) {
        const Column* column = FindColumn(name);
        if (!column)
            return Usage(QStringLiteral("unknown column \"%1\" (columns: %2)").arg(name.trimmed(), ColumnNames()));
        columns.push_back(column);
    }
    if (columns.empty()) {
        for (const Column& column : kColumnTable)
            columns.push_back(&column);
    }

    const Column* sortColumn = nullptr;
    bool descending = false;
    if (parser.isSet(kSort)) {
        QString name = parser.value(kSort).trimmed();
        if (name.startsWith(QLatin1Char('-'))) {
            descending = true;
            name.remove(0, 1);
        } else if (name.endsWith(QLatin1String(":desc"), Qt::CaseInsensitive)) {
            descending = true;
            name.chop(5);
        }
        sortColumn = FindColumn(name);
        if (!sortColumn)
            return Usage(QStringLiteral("unknown column \"%1\" (columns: %2)").arg(name, ColumnNames()));
    }

    CUnitSettings units;
    QString error;
    if (!CUnitsOption::Resolve(parser, units, error))
        return Usage(error);
    CQuery query;
    if (!CJumpQuery::ParseOrReport(CJumpQuery::Text(parser), units, query))
        return Failure;
    CLogbookDoc doc;
    if (!CLogbookOpener::OpenOrReport(doc, CorePaths::LocalPath(parser.positionalArguments().at(0))))
        return Failure;

    const CCsvExporter csv(units);
    std::vector<std::size_t> found = CJumpQuery::Find(doc, query);
    std::vector<std::vector<std::string>> rows; // full CSV rows, in the order of found
    rows.reserve(found.size());
    for (const std::size_t i : found)
        rows.push_back(csv.Row(*doc.GetJumps()[i], doc));
    if (sortColumn) {
        std::vector<std::size_t> order(found.size());
        std::vector<std::string> keys(found.size());
        for (std::size_t k = 0; k < order.size(); ++k) {
            order[k] = k;
            const auto& row = rows[k];
            // Dates sort with their time of day; texts without case and accents.
            keys[k] = sortColumn->field == 1 ? row[1] + " " + row[2] : FoldText(row[sortColumn->field]);
        }
        std::stable_sort(order.begin(), order.end(), [&](std::size_t a, std::size_t b) {
            return descending ? NaturalLess(keys[b], keys[a]) : NaturalLess(keys[a], keys[b]);
        });
        std::vector<std::size_t> sortedFound;
        std::vector<std::vector<std::string>> sortedRows;
        for (const std::size_t k : order) {
            sortedFound.push_back(found[k]);
            sortedRows.push_back(std::move(rows[k]));
        }
        found = std::move(sortedFound);
        rows = std::move(sortedRows);
    }

    std::string out;
    if (json) {
        QJsonArray jumps;
        for (const std::size_t i : found)
            jumps.append(CJsonExporter::Jump(*doc.GetJumps()[i], doc.GetSettings()));
        out = QJsonDocument(jumps).toJson(QJsonDocument::Indented).toStdString();
    } else {
        const std::vector<std::string> header = csv.Header();
        std::vector<std::vector<std::string>> cells;
        const auto pick = [&](const std::vector<std::string>& row) {
            std::vector<std::string> picked;
            for (const Column* column : columns)
                picked.push_back(format == QLatin1String("csv") ? row[column->field] : OneLine(row[column->field]));
            return picked;
        };
        cells.push_back(pick(header));
        for (const auto& row : rows)
            cells.push_back(pick(row));
        if (format == QLatin1String("csv")) {
            for (const auto& row : cells)
                CCsvExporter::AppendRow(row, out);
        } else {
            out =
                Table(cells) + std::to_string(found.size()) + " of " + std::to_string(doc.GetJumpCount()) + " jumps\n";
        }
    }
    CConsole::Out(out);
    return CConsole::FlushOut() ? Success : Failure;
}
