#pragma once

#include "cli/CCommand.h"

// "tervola export FILE [QUERY...] --format json|csv [-o OUT]": the logbook, or the jumps a search
// finds, as JSON or as a spreadsheet table; or one jump's track as GPX.
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
    int MaxArguments() const override { return 1 << 20; }
};
