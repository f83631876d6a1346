#pragma once

#include "cli/CCommand.h"

// "tervola check FILE": opens the logbook as the window program's Open does and reports the
// number of jumps and the last jump number, or the texts of the program's error messages.
class CCheckCommand final : public CCommand
{
public:
    // The word "check".
    QString Name() const override { return QStringLiteral("check"); }
    // The line for the tool's own help.
    QString Summary() const override;

protected:
    void Configure(QCommandLineParser& parser) override;
    QString Details() const override;
    int Execute(const QCommandLineParser& parser) override;
    int RequiredArguments() const override { return 1; }
};
