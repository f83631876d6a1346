#pragma once

#include "cli/CCommand.h"

// "tervola print LOGBOOK -o FILE.pdf [QUERY...] [--from N] [--to N] [--paper a4|letter]
// [--recordings]": the logbook's printed pages as a PDF file, the same pages the window prints.
class CPrintCommand final : public CCommand
{
public:
    // The word "print".
    QString Name() const override { return QStringLiteral("print"); }
    // The line for the tool's own help.
    QString Summary() const override;

protected:
    void Configure(QCommandLineParser& parser) override;
    QString Details() const override;
    int Execute(const QCommandLineParser& parser) override;
    int RequiredArguments() const override { return 1; }
    int MaxArguments() const override { return 1 << 20; }
};
