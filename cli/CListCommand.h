#pragma once

#include "cli/CCommand.h"

// "tervola list LOGBOOK [QUERY...] [--format table|csv|json] [--columns ...] [--sort COLUMN]": the
// jumps a search finds, as an aligned table, CSV rows or JSON objects.
class CListCommand final : public CCommand
{
public:
    // The word "list".
    QString Name() const override { return QStringLiteral("list"); }
    // The line for the tool's own help.
    QString Summary() const override;

protected:
    void Configure(QCommandLineParser& parser) override;
    QString Details() const override;
    int Execute(const QCommandLineParser& parser) override;
    int RequiredArguments() const override { return 1; }
    int MaxArguments() const override { return 1 << 20; }
};
