#include "cli/CCommand.h"

#include "cli/CConsole.h"

void CCommand::Prepare(QCommandLineParser& parser)
{
    parser.setApplicationDescription(Summary());
    parser.setSingleDashWordOptionMode(QCommandLineParser::ParseAsLongOptions);
    parser.addOption({{QStringLiteral("h"), QStringLiteral("help")}, QStringLiteral("Shows this help.")});
    Configure(parser);
}

QString CCommand::HelpText()
{
    QCommandLineParser parser;
    Prepare(parser);
    QString text = parser.helpText();
    // The generated usage line names the program by its path; name the tool and the command.
    const QString usage = QStringLiteral("Usage: ");
    const qsizetype options = text.indexOf(QStringLiteral(" [options]"));
    if (text.startsWith(usage) && options > 0)
        text.replace(0, options, usage + QStringLiteral("tervola ") + Name());
    if (!text.endsWith(QLatin1Char('\n')))
        text += QLatin1Char('\n');
    return text + QLatin1Char('\n') + Details();
}

int CCommand::Run(const QStringList& arguments)
{
    QCommandLineParser parser;
    Prepare(parser);
    // QCommandLineParser expects the program name first.
    QStringList withProgram = arguments;
    withProgram.prepend(QStringLiteral("tervola"));
    if (!parser.parse(withProgram))
        return Usage(parser.errorText());
    if (parser.isSet(QStringLiteral("help"))) {
        CConsole::Out(HelpText());
        return Success;
    }
    const qsizetype given = parser.positionalArguments().size();
    if (given < RequiredArguments())
        return Usage(QStringLiteral("missing argument"));
    if (given > MaxArguments())
        return Usage(QStringLiteral("unexpected argument \"%1\"").arg(parser.positionalArguments().constLast()));
    return Execute(parser);
}

int CCommand::Usage(const QString& text) const
{
    CConsole::ErrLine(QStringLiteral("tervola %1: %2").arg(Name(), text));
    CConsole::ErrLine(QStringLiteral("Try \"tervola %1 --help\".").arg(Name()));
    return UsageError;
}
