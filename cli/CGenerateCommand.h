#pragma once

#include "cli/CCommand.h"

// "tervola generate OUT --jumps N ...": writes a realistic synthetic logbook with the program's
// own save, for demonstrations, tests and benchmarks.
class CGenerateCommand final : public CCommand
{
public:
    QString Name() const override { return QStringLiteral("generate"); }
    QString Summary() const override;

protected:
    void Configure(QCommandLineParser& parser) override;
    QString Details() const override;
    int Execute(const QCommandLineParser& parser) override;
    int RequiredArguments() const override { return 1; }
};
