#pragma once

#include "cli/CCommand.h"

// "tervola generate OUT --jumps N ...": writes a realistic synthetic logbook with the program's
// own save, for demonstrations, tests and benchmarks.
class CGenerateCommand final : public CCommand
{
public:
    // The word "generate".
    QString Name() const override { return QStringLiteral("generate"); }
    // The line for the tool's own help.
    QString Summary() const override;

protected:
    void Configure(QCommandLineParser& parser) override;
    QString Details() const override;
    int Execute(const QCommandLineParser& parser) override;
    int RequiredArguments() const override { return 1; }
};
