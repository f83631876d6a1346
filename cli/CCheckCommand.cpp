#include "cli/CCheckCommand.h"

#include "bridge/CorePaths.h"
#include "cli/CConsole.h"
#include "cli/CLogbookOpener.h"
#include "document/CLogbookDoc.h"
#include "translations/MessageText.h"

#include <cctype>

QString CCheckCommand::Summary() const
{
    return QStringLiteral("Opens a logbook exactly as the window program does and reports whether it loads.");
}

void CCheckCommand::Configure(QCommandLineParser& parser)
{
    parser.addPositionalArgument(QStringLiteral("FILE"),
                                 QStringLiteral("The logbook: plain XML when the name ends in .tvl, gzip otherwise."));
}

QString CCheckCommand::Details() const
{
    return QStringLiteral("On success prints one line with the number of jumps in the file and the number of the\n"
                          "last jump, for example \"312 jumps, last jump number 431\", and exits with 0.\n"
                          "\n"
                          "On failure prints to standard error, one per line and in the same order, the texts the\n"
                          "window program shows in its message boxes (for a file of a newer version the version\n"
                          "message, then \"The file could not be opened.\") and exits with 1. A file that does not\n"
                          "exist or cannot be read gives \"The file could not be opened.\" alone.\n"
                          "\n"
                          "\n"
                          "Each signed jump whose seal no longer matches it (something was changed after the\n"
                          "witness signed) adds a line \"Jump 12: changed after signing (signed by NAME)\" after the\n"
                          "counts; the check then exits with 1.\n"
                          "\n"
                          "Exit codes: 0 the file loads and every seal holds, 1 it does not load or a seal is\n"
                          "broken, 2 wrong command line.\n");
}

int CCheckCommand::Execute(const QCommandLineParser& parser)
{
    CLogbookDoc doc;
    if (!CLogbookOpener::OpenOrReport(doc, CorePaths::LocalPath(parser.positionalArguments().at(0))))
        return Failure;
    const std::size_t count = doc.GetJumpCount();
    const CJump* last = doc.GetLastJump();
    const int lastNumber = last ? last->GetNumber() : 0;
    CConsole::OutLine(std::to_string(count) + (count == 1 ? " jump" : " jumps") + ", last jump number " +
                      std::to_string(lastNumber));
    bool broken = false;
    for (const auto& jump : doc.GetJumps()) {
        if (jump->GetSealState() != SealState::Changed)
            continue;
        broken = true;
        std::string line = "Jump " + std::to_string(jump->GetNumber()) + ": ";
        // The state's text starts a sentence; in the line it follows a colon.
        std::string state = MessageText::Utf8({JumpSeal::StateTextId(SealState::Changed)});
        state[0] = static_cast<char>(std::tolower(static_cast<unsigned char>(state[0])));
        CConsole::OutLine(line + state + " (signed by " + jump->GetSignature().GetName() + ")");
    }
    return broken ? Failure : Success;
}
