#include "cli/CCommandLineTool.h"

#include "cli/CCheckCommand.h"
#include "cli/CConsole.h"
#include "cli/CConvertCommand.h"
#include "cli/CExportCommand.h"
#include "cli/CGenerateCommand.h"
#include "cli/CImportCommand.h"
#include "cli/CImportCsvCommand.h"
#include "cli/CInfoCommand.h"
#include "cli/CListCommand.h"
#include "cli/CPrintCommand.h"
#include "cli/CStatsCommand.h"
#include "resources/StringTable.h"

CCommandLineTool::CCommandLineTool()
{
    m_commands.push_back(std::make_unique<CCheckCommand>());
    m_commands.push_back(std::make_unique<CInfoCommand>());
    m_commands.push_back(std::make_unique<CListCommand>());
    m_commands.push_back(std::make_unique<CStatsCommand>());
    m_commands.push_back(std::make_unique<CExportCommand>());
    m_commands.push_back(std::make_unique<CPrintCommand>());
    m_commands.push_back(std::make_unique<CConvertCommand>());
    m_commands.push_back(std::make_unique<CImportCommand>());
    m_commands.push_back(std::make_unique<CImportCsvCommand>());
    m_commands.push_back(std::make_unique<CGenerateCommand>());
}

CCommand* CCommandLineTool::Find(const QString& name) const
{
    for (const auto& command : m_commands) {
        if (command->Name() == name)
            return command.get();
    }
    return nullptr;
}

QString CCommandLineTool::HelpText() const
{
    QString text =
        QStringLiteral("Usage: tervola COMMAND [options] ARGUMENTS\n"
                       "The command-line companion of Tervola Pocket, the skydiver's logbook. It reads and writes\n"
                       "logbooks with the window program's own code: gzip-compressed (.tvz) or plain XML (.tvl).\n"
                       "\n"
                       "Commands:\n");
    for (const auto& command : m_commands)
        text += QStringLiteral("  %1  %2\n").arg(command->Name().leftJustified(9), command->Summary());
    text +=
        QStringLiteral("\n"
                       "Options:\n"
                       "  -h, --help   This help; \"tervola COMMAND --help\" explains a command and its options.\n"
                       "  --version    The program's version.\n"
                       "\n"
                       "Messages go to standard error, results to standard output.\n"
                       "Exit codes: 0 success, 1 a file could not be read or written or a query could not be read,\n"
                       "2 wrong command line.\n");
    return text;
}

int CCommandLineTool::Run(const QStringList& arguments)
{
    if (arguments.isEmpty()) {
        CConsole::Err(HelpText());
        return CCommand::UsageError;
    }
    const QString& first = arguments.first();
    if (first == QLatin1String("-h") || first == QLatin1String("--help") || first == QLatin1String("help")) {
        // "tervola help COMMAND" is the same as "tervola COMMAND --help".
        if (arguments.size() > 1) {
            if (CCommand* command = Find(arguments.at(1))) {
                CConsole::Out(command->HelpText());
                return CCommand::Success;
            }
        }
        CConsole::Out(HelpText());
        return CCommand::Success;
    }
    if (first == QLatin1String("--version") || first == QLatin1String("-v")) {
        CConsole::OutLine("tervola " + std::string(StringTable::kProductVersion));
        return CCommand::Success;
    }
    CCommand* command = Find(first);
    if (!command) {
        CConsole::ErrLine(QStringLiteral("tervola: unknown command \"%1\"").arg(first));
        CConsole::ErrLine(std::string_view("Try \"tervola --help\"."));
        return CCommand::UsageError;
    }
    return command->Run(arguments.mid(1));
}
