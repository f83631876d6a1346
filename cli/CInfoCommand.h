#pragma once

#include "cli/CCommand.h"

// "tervola info FILE": the home screen's summary of a logbook as text.
class CInfoCommand final : public CCommand
{
public:
    // The word "info".
    QString Name() const override { return QStringLiteral("info"); }
    // The line for the tool's own help.
    QString Summary() const override;

protected:
    void Configure(QCommandLineParser& parser) override;
    QString Details() const override;
    int Execute(const QCommandLineParser& parser) override;
    int RequiredArguments() const override { return 1; }
};
