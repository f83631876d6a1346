#pragma once

#include "cli/CCommand.h"

#include <string>
#include <utility>
#include <vector>

class CLogbookDoc;
class CUnitSettings;

// "tervola info FILE": the home screen's summary of a logbook as text.
class CInfoCommand final : public CCommand
{
public:
    // The word "info".
    QString Name() const override { return QStringLiteral("info"); }
    // The line for the tool's own help.
    QString Summary() const override;

    // The summary's labels and values as the home screen shows them.
    static std::vector<std::pair<std::string, std::string>> SummaryLines(const CLogbookDoc& doc,
                                                                         const CUnitSettings& units);

protected:
    void Configure(QCommandLineParser& parser) override;
    QString Details() const override;
    int Execute(const QCommandLineParser& parser) override;
    int RequiredArguments() const override { return 1; }
};
