#pragma once

#include "cli/CCommand.h"

// "tervola import-csv LOGBOOK FILE.csv": the jumps of a spreadsheet join the logbook, which is
// saved safely; rows that cannot be taken are named with their line and reason.
class CImportCsvCommand final : public CCommand
{
public:
    QString Name() const override { return QStringLiteral("import-csv"); }
    QString Summary() const override;

protected:
    void Configure(QCommandLineParser& parser) override;
    QString Details() const override;
    int Execute(const QCommandLineParser& parser) override;
    int RequiredArguments() const override { return 2; }
};
