#include "cli/CExportCommand.h"

#include "bridge/CorePaths.h"
#include "cli/CConsole.h"
#include "cli/CJumpQuery.h"
#include "cli/CLogbookOpener.h"
#include "cli/CUnitsOption.h"
#include "document/CLogbookDoc.h"
#include "formats/CCsvExporter.h"
#include "formats/CGpxWriter.h"
#include "qtformats/CJsonExporter.h"
#include "query/CQuery.h"
#include "resources/StringTable.h"

#include <QJsonDocument>
#include <QSaveFile>

namespace {

const QString kFormat = QStringLiteral("format");
const QString kOutput = QStringLiteral("output");
const QString kCompact = QStringLiteral("compact");
const QString kJump = QStringLiteral("jump");

} // namespace

QString CExportCommand::Summary() const
{
    return QStringLiteral("Writes a logbook as JSON or as a CSV table, or a jump's track as GPX.");
}

void CExportCommand::Configure(QCommandLineParser& parser)
{
    parser.addPositionalArgument(QStringLiteral("FILE"), QStringLiteral("The logbook (.tvz or .tvl)."));
    CJumpQuery::AddTo(parser);
    parser.addOption({kFormat, QStringLiteral("Output format: json, csv or gpx."), QStringLiteral("json|csv|gpx")});
    parser.addOption({kJump, QStringLiteral("The jump whose track --format gpx writes."), QStringLiteral("N")});
    parser.addOption({{QStringLiteral("o"), kOutput},
                      QStringLiteral("Write to OUT instead of standard output."),
                      QStringLiteral("OUT")});
    parser.addOption({kCompact, QStringLiteral("JSON on one line instead of indented.")});
    CUnitsOption::AddTo(parser);
}

QString CExportCommand::Details() const
{
    return QStringLiteral("JSON: one object with\n"
                          "  \"version\"   the root's version text\n"
                          "  \"settings\"  owner, membership {name, expirationDate, alarmDays}, licenses, ratings,\n"
                          "              awards, equipments {inspectionCycle, alarmDays, equipment [...]},\n"
                          "              fallrates [{name, speed}], keywords, previousJumps, previousDelay\n"
                          "  \"jumps\"     the jumps in list order: n, ts, mod, dz, ac, type, fallrate (the kind's\n"
                          "              name), exit, open, ffTime, cpTime, vMax, vAvg, wind {direction, speed},\n"
                          "              landing, equipment {n (the rig's position, null when not by number),\n"
                          "              description}, size, points, team, malfunction, image [{name, thumbnail}],\n"
                          "              video {name, offset}, note (the stored markup), profile {type, qne,\n"
                          "              waypoints [{a, t, lat, lon}], annotations [{a, t, txt}], winds {apply,\n"
                          "              wind [...]}}, signature {name, id, lines [[{x, y}]]}, and the computed\n"
                          "              freefallTime (seconds) and noteText (the note as plain text)\n"
                          "  \"summary\"   numberOfJumps, freefallTime (seconds, previous delay included),\n"
                          "              freefallDistance and canopyDistance (metres, extrapolated to the last\n"
                          "              jump number as the home screen does), lastJump (YYYY-MM-DD)\n"
                          "Keys are the file format's names, numbers are in stored units (metres, seconds, m/s),\n"
                          "date-times are the file's text for them (\"\" when not set), missing elements appear\n"
                          "with their default value.\n"
                          "\n"
                          "CSV (RFC 4180, UTF-8, CR LF line ends): a header row, then one row a jump with Number,\n"
                          "Date (YYYY-MM-DD), Time (HH:MM, empty without a time of day), Place, Aircraft, Type,\n"
                          "Exit and Open (whole metres or feet by --units), Freefall time (H:MM:SS), Fall rate,\n"
                          "Wind direction (degrees), Wind speed (m/s), Equipment, Landing, Team, Size, Points,\n"
                          "Malfunction, Signed by and Note (plain text; several lines stay in one quoted field).\n"
                          "\n"
                          "GPX (1.1, UTF-8) of the GPS recording of jump N (--jump N is needed): one track segment,\n"
                          "a point per sample with latitude, longitude, the height above the landing point as\n"
                          "<ele> and the time (the jump's time stamp plus the sample's seconds from exit, in UTC).\n"
                          "A jump without a GPS recording or without a time stamp is refused.\n"
                          "\n"
                          "With a query, JSON and CSV hold only the jumps it finds (the JSON's settings and\n"
                          "summary stay those of the whole logbook), for example\n"
                          "  tervola export Jumps.tvz --format csv -o 2023.csv year:2023 -- -type:Tandem\n"
                          "\n"
                          "Exit codes: 0 written, 1 the file does not load, the query cannot be read or OUT cannot\n"
                          "be written, 2 wrong command line.\n\n") +
           CJumpQuery::HelpText();
}

int CExportCommand::Execute(const QCommandLineParser& parser)
{
    const QString format = parser.value(kFormat).trimmed().toLower();
    if (format.isEmpty())
        return Usage(QStringLiteral("--format json, csv or gpx is needed"));
    if (format != QLatin1String("json") && format != QLatin1String("csv") && format != QLatin1String("gpx"))
        return Usage(QStringLiteral("unknown format \"%1\" (use json, csv or gpx)").arg(parser.value(kFormat)));
    const bool gpx = format == QLatin1String("gpx");
    int number = 0;
    if (gpx) {
        bool ok = false;
        number = parser.value(kJump).toInt(&ok);
        if (!ok)
            return Usage(QStringLiteral("--format gpx needs --jump N"));
    }
    CUnitSettings units;
    QString error;
    if (!CUnitsOption::Resolve(parser, units, error))
        return Usage(error);
    const std::string queryText = CJumpQuery::Text(parser);
    if (gpx && !queryText.empty())
        return Usage(QStringLiteral("a query selects jumps for json and csv; gpx takes --jump N"));
    CQuery query;
    if (!CJumpQuery::ParseOrReport(queryText, units, query))
        return Failure;

    CLogbookDoc doc;
    if (!CLogbookOpener::OpenOrReport(doc, CorePaths::LocalPath(parser.positionalArguments().at(0))))
        return Failure;

    QByteArray bytes;
    if (gpx) {
        const CJump* jump = CLogbookOpener::FindJumpOrReport(doc, number);
        if (!jump)
            return Failure;
        std::string text, message;
        if (!CGpxWriter::Write(*jump, text, message)) {
            CConsole::ErrLine(message);
            return Failure;
        }
        bytes = QByteArray(text.data(), static_cast<qsizetype>(text.size()));
    } else if (format == QLatin1String("json")) {
        const auto layout = parser.isSet(kCompact) ? QJsonDocument::Compact : QJsonDocument::Indented;
        const QJsonObject root =
            query.IsEmpty() ? CJsonExporter::Export(doc) : CJsonExporter::Export(doc, CJumpQuery::Find(doc, query));
        bytes = QJsonDocument(root).toJson(layout);
    } else {
        const CCsvExporter csv(units);
        const std::string table = query.IsEmpty() ? csv.Export(doc) : csv.Export(doc, CJumpQuery::Find(doc, query));
        bytes = QByteArray(table.data(), static_cast<qsizetype>(table.size()));
    }

    if (!parser.isSet(kOutput)) {
        CConsole::Out(std::string_view(bytes.constData(), static_cast<std::size_t>(bytes.size())));
        return CConsole::FlushOut() ? Success : Failure;
    }
    // Written beside the target and renamed over it, so a failed export leaves no half file.
    QSaveFile file(parser.value(kOutput));
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size() || !file.commit()) {
        CConsole::ErrLine(StringTable::Text(StringTable::IDS_SAVE_FAILED));
        return Failure;
    }
    return Success;
}
