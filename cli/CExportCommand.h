#pragma once

#include "cli/CCommand.h"

// "tervola export FILE --format json|csv [-o OUT]": the whole logbook as JSON or as a
// spreadsheet table.
class CExportCommand final : public CCommand
{
public:
    // The word "export".
    QString Name() const override { return QStringLiteral("export"); }
    // The line for the tool's own help.
    QString Summary() const override;

protected:
    void Configure(QCommandLineParser& parser) override;
    QString Details() const override;
    int Execute(const QCommandLineParser& parser) override;
    int RequiredArguments() const override { return 1; }
};
