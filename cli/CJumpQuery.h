#pragma once

#include <QCommandLineParser>
#include <QString>
#include <QStringList>

#include <string>
#include <vector>

class CLogbookDoc;
class CUnitSettings;
struct CQuery;

// The search query of "list" and "export": the positional arguments after the logbook joined by
// blanks, read by the search language of the window's search field.
class CJumpQuery
{
public:
    // Declares the QUERY arguments after FILE.
    static void AddTo(QCommandLineParser& parser);
    // The query text: the positional arguments after the first, joined by blanks.
    static std::string Text(const QCommandLineParser& parser);
    // Parses text (heights in units); on a bad query prints the search's message to standard
    // error and returns false.
    static bool ParseOrReport(const std::string& text, const CUnitSettings& units, CQuery& query);
    // The jumps of doc that match, in list order.
    static std::vector<std::size_t> Find(const CLogbookDoc& doc, const CQuery& query);
    // The language in short with examples, for the commands' help.
    static QString HelpText();
};
