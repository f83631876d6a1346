#include "cli/CInfoCommand.h"

#include "bridge/CorePaths.h"
#include "cli/CConsole.h"
#include "cli/CLogbookOpener.h"
#include "cli/CUnitsOption.h"
#include "document/CLogbookDoc.h"
#include "document/CSummaryRows.h"
#include "translations/MessageText.h"

QString CInfoCommand::Summary() const
{
    return QStringLiteral("Prints the summary of a logbook's home screen.");
}

void CInfoCommand::Configure(QCommandLineParser& parser)
{
    parser.addPositionalArgument(QStringLiteral("FILE"), QStringLiteral("The logbook (.tvz or .tvl)."));
    CUnitsOption::AddTo(parser);
}

QString CInfoCommand::Details() const
{
    return QStringLiteral("Prints five lines \"label: value\" with the values of the home screen:\n"
                          "  Number of Jumps          the number of the last jump (not the count of logged jumps)\n"
                          "  Freefall Time            H:MM:SS, the previous freefall delay of the profile included\n"
                          "  Freefall Dist. [km|mi]   the average per logged jump times the last jump number\n"
                          "  Canopy Dist. [km|mi]     the same for the opening heights\n"
                          "  Last Jump                the date of the last jump as YYYY-MM-DD (empty without jumps)\n"
                          "Distances are whole kilometres or miles.\n"
                          "\n"
                          "A logbook that does not load prints the program's messages as \"check\" does.\n"
                          "Exit codes: 0 printed, 1 the file does not load, 2 wrong command line.\n");
}

int CInfoCommand::Execute(const QCommandLineParser& parser)
{
    CUnitSettings units;
    QString error;
    if (!CUnitsOption::Resolve(parser, units, error))
        return Usage(error);
    CLogbookDoc doc;
    if (!CLogbookOpener::OpenOrReport(doc, CorePaths::LocalPath(parser.positionalArguments().at(0))))
        return Failure;
    for (const CSummaryRow& row : CSummaryRows::Build(doc, units))
        CConsole::OutLine(MessageText::Utf8({row.labelId}) + row.unit + ": " + row.value);
    return Success;
}
