#pragma once

#include "cli/CCommand.h"

// "tervola stats LOGBOOK": totals, periods, breakdowns, streaks, licence progress and currency.
class CStatsCommand final : public CCommand
{
public:
    QString Name() const override { return QStringLiteral("stats"); }
    QString Summary() const override;

protected:
    void Configure(QCommandLineParser& parser) override;
    QString Details() const override;
    int Execute(const QCommandLineParser& parser) override;
    int RequiredArguments() const override { return 1; }
};
