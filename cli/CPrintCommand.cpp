#include "cli/CPrintCommand.h"

#include "bridge/CorePaths.h"
#include "cli/CConsole.h"
#include "cli/CJumpQuery.h"
#include "cli/CLogbookOpener.h"
#include "cli/CUnitsOption.h"
#include "controls/CRecordingPrint.h"
#include "document/CLogbookDoc.h"
#include "model/CJump.h"
#include "qtformats/CLogbookPageRenderer.h"
#include "qtformats/CLogbookPdf.h"
#include "query/CQuery.h"

#include <QLocale>

#include <climits>

namespace {

const QString kOutput = QStringLiteral("o");
const QString kFrom = QStringLiteral("from");
const QString kTo = QStringLiteral("to");
const QString kPaper = QStringLiteral("paper");
const QString kRecordings = QStringLiteral("recordings");

// The number of option name; false when it is given and not a whole number.
bool NumberOption(const QCommandLineParser& parser, const QString& name, int& value)
{
    if (!parser.isSet(name))
        return true;
    bool ok = false;
    value = parser.value(name).trimmed().toInt(&ok);
    return ok;
}

} // namespace

QString CPrintCommand::Summary() const
{
    return QStringLiteral("Prints logbook pages into a PDF file: rows, signatures, carried totals.");
}

void CPrintCommand::Configure(QCommandLineParser& parser)
{
    parser.addPositionalArgument(QStringLiteral("LOGBOOK"), QStringLiteral("The logbook (.tvz or .tvl)."));
    CJumpQuery::AddTo(parser);
    parser.addOption({{kOutput, QStringLiteral("output")},
                      QStringLiteral("The PDF file to write (required)."),
                      QStringLiteral("FILE.pdf")});
    parser.addOption({kFrom, QStringLiteral("Only jumps numbered N or higher."), QStringLiteral("N")});
    parser.addOption({kTo, QStringLiteral("Only jumps numbered N or lower."), QStringLiteral("N")});
    parser.addOption({kPaper,
                      QStringLiteral("Paper size, landscape: a4 or letter (default: letter in the US and Canada, "
                                     "a4 elsewhere, by the locale)."),
                      QStringLiteral("a4|letter")});
    parser.addOption({kRecordings, QStringLiteral("Add a page with the recording's plot and values after the page of "
                                                  "each jump that has a recording.")});
    CUnitsOption::AddTo(parser);
}

QString CPrintCommand::Details() const
{
    return CJumpQuery::HelpText() +
           QStringLiteral("\n"
                          "Each page holds a header (owner, member number, licences, \"page x of y\"), one row a jump\n"
                          "(number, date, place, aircraft, equipment, exit and opening height in the units of\n"
                          "--units, freefall time, fall rate, type, landing, the note's first line, the witness's\n"
                          "signature and name) and at the foot the totals of the page, brought forward and carried\n"
                          "forward; the first page brings forward the jumps and freefall time before the logbook\n"
                          "and those of the jumps before the first one printed. The file is written beside FILE and\n"
                          "renamed over it at the end. The number of pages is printed at the end.\n"
                          "\n"
                          "Examples:\n"
                          "  tervola print Jumps.tvz -o Jumps.pdf\n"
                          "  tervola print Jumps.tvz -o 2024.pdf year:2024 --paper letter\n"
                          "  tervola print Jumps.tvz -o licence.pdf --from 1 --to 200 --recordings\n"
                          "\n"
                          "Exit codes: 0 written, 1 the logbook does not load, the query cannot be read, no jump\n"
                          "is selected or the file cannot be written, 2 wrong command line.\n");
}

int CPrintCommand::Execute(const QCommandLineParser& parser)
{
    if (!parser.isSet(kOutput) || parser.value(kOutput).isEmpty())
        return Usage(QStringLiteral("-o FILE.pdf is needed"));
    int from = INT_MIN, to = INT_MAX;
    if (!NumberOption(parser, kFrom, from))
        return Usage(QStringLiteral("--from needs a jump number"));
    if (!NumberOption(parser, kTo, to))
        return Usage(QStringLiteral("--to needs a jump number"));
    QPageSize::PageSizeId paper = CLogbookPageRenderer::DefaultPaper(QLocale::system());
    if (parser.isSet(kPaper)) {
        const QString name = parser.value(kPaper).trimmed().toLower();
        if (name == QLatin1String("a4"))
            paper = QPageSize::A4;
        else if (name == QLatin1String("letter"))
            paper = QPageSize::Letter;
        else
            return Usage(QStringLiteral("unknown paper \"%1\" (use a4 or letter)").arg(parser.value(kPaper)));
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

    std::vector<std::size_t> rows;
    for (const std::size_t i : CJumpQuery::Find(doc, query)) {
        const int number = doc.GetJump(i).GetNumber();
        if (number >= from && number <= to)
            rows.push_back(i);
    }
    if (rows.empty()) {
        CConsole::ErrLine(std::string_view("No jump is selected; nothing was printed."));
        return Failure;
    }

    CLogbookPageRenderer renderer(doc, std::move(rows), units);
    if (parser.isSet(kRecordings)) {
        renderer.SetDetailPages(true, [&units](QPainter& painter, const QRectF& area, const CJump& jump) {
            // Painted as on a screen of 96 dpi, whose text sizes suit a page.
            CRecordingPrint::Paint(painter, area, jump, units, 96.0 / 720.0);
        });
    }
    const QString output = parser.value(kOutput);
    if (!CLogbookPdf::Write(renderer, output, paper, {}, error)) {
        CConsole::ErrLine(QStringLiteral("%1: could not be written (%2).").arg(output, error));
        return Failure;
    }
    CConsole::OutLine(QStringLiteral("%1 pages written to %2").arg(renderer.PageCount()).arg(output).toStdString());
    return Success;
}
