#include "cli/CJumpQuery.h"

#include "bridge/CoreText.h"
#include "cli/CConsole.h"
#include "document/CLogbookDoc.h"
#include "query/CJumpIndex.h"
#include "query/CQueryParser.h"

void CJumpQuery::AddTo(QCommandLineParser& parser)
{
    parser.addPositionalArgument(QStringLiteral("QUERY"),
                                 QStringLiteral("Search terms, all of which must hold (see below); none: every jump."),
                                 QStringLiteral("[QUERY...]"));
}

std::string CJumpQuery::Text(const QCommandLineParser& parser)
{
    return CoreText::FromQt(parser.positionalArguments().mid(1).join(QLatin1Char(' ')));
}

bool CJumpQuery::ParseOrReport(const std::string& text, const CUnitSettings& units, CQuery& query)
{
    CQueryParseResult parsed = CQueryParser::Parse(text, units);
    if (!parsed) {
        CConsole::ErrLine(parsed.error.Message());
        return false;
    }
    query = std::move(parsed.query);
    return true;
}

std::vector<std::size_t> CJumpQuery::Find(const CLogbookDoc& doc, const CQuery& query)
{
    if (query.IsEmpty()) {
        std::vector<std::size_t> all(doc.GetJumpCount());
        for (std::size_t i = 0; i < all.size(); ++i)
            all[i] = i;
        return all;
    }
    return CJumpIndex(doc).Find(query);
}

QString CJumpQuery::HelpText()
{
    QString text = QStringLiteral(
        "Query: the arguments after FILE joined by blanks; every term must hold, \"-\" in front of a term\n"
        "turns it around, and \"quoted words\" must follow each other. A word alone finds jumps with a\n"
        "word starting with it in place, aircraft, type, team, landing, malfunction, rig, signer or\n"
        "note (case and accents ignored: \"jami\" finds Jämijärvi). Typed terms:\n");
    for (const CQueryParser::TermHelp& term : CQueryParser::Terms()) {
        text += QStringLiteral("  %1 %2\n")
                    .arg(CoreText::ToQt(term.example).leftJustified(20), CoreText::ToQt(term.description));
    }
    text += QStringLiteral(
        "Ranges are FROM..TO with either end left out; dates are 2024, 2024-05 or 2024-05-17; heights\n"
        "are in the units of --units. After \"--\" an argument starting with \"-\" is a negated term, not\n"
        "an option. A term that cannot be read is reported (\"date:2024-13: no such month\") with exit\n"
        "code 1.\n");
    return text;
}
