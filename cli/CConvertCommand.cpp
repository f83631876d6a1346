#include "cli/CConvertCommand.h"

#include "bridge/CorePaths.h"
#include "cli/CConsole.h"
#include "cli/CLogbookOpener.h"
#include "document/CLogbookDoc.h"
#include "document/CLogbookLock.h"
#include "resources/StringTable.h"

QString CConvertCommand::Summary() const
{
    return QStringLiteral("Loads a logbook and saves it again, plain or compressed by the new name.");
}

void CConvertCommand::Configure(QCommandLineParser& parser)
{
    parser.addPositionalArgument(QStringLiteral("IN"), QStringLiteral("The logbook to read (.tvz or .tvl)."));
    parser.addPositionalArgument(QStringLiteral("OUT"),
                                 QStringLiteral("The file to write: plain XML when it ends in .tvl, gzip otherwise."));
    parser.addOption({QStringLiteral("force"), QStringLiteral("Write OUT even while a running program has it open.")});
}

QString CConvertCommand::Details() const
{
    return QStringLiteral("Saves exactly as the window program's Save does: an existing OUT is first copied to the\n"
                          "name with its last three characters replaced by \"bak\" (Jumps.tvz to Jumps.bak), the new\n"
                          "file is written beside OUT and only renamed over it once it is complete, so a failed save\n"
                          "leaves the old file as it was. The file's \"mod\" becomes the time of the save.\n"
                          "\n"
                          "When OUT is IN and another program changes the file while it is converted, it is not\n"
                          "overwritten: the tool prints \"The file was changed by another program after it was opened\n"
                          "here. It was not overwritten.\" and fails.\n"
                          "An OUT that the window program (or another tool) has open, as its lock file beside it\n"
                          "tells, is refused with a message naming that process; --force writes it all the same.\n"
                          "Errors while reading IN are printed as \"check\" prints them; a failed save prints\n"
                          "\"The file could not be saved.\". Nothing is printed on success.\n"
                          "Exit codes: 0 saved, 1 IN does not load or OUT cannot be saved, 2 wrong command line.\n");
}

int CConvertCommand::Execute(const QCommandLineParser& parser)
{
    const QStringList arguments = parser.positionalArguments();
    const std::string out = CorePaths::LocalPath(arguments.at(1));
    CLogbookLock lock;
    if (!CLogbookOpener::LockOrReport(lock, out, parser.isSet(QStringLiteral("force"))))
        return Failure;
    CLogbookDoc doc;
    if (!CLogbookOpener::OpenOrReport(doc, CorePaths::LocalPath(arguments.at(0))))
        return Failure;
    // Saving over IN itself is refused when another program changed IN after it was read.
    const CSaveResult saved = doc.Save(out);
    if (!saved) {
        CConsole::ErrLine(StringTable::Text(saved.messageId != 0 ? saved.messageId : StringTable::IDS_SAVE_FAILED));
        return Failure;
    }
    return Success;
}
