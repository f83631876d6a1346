#pragma once

#include "cli/CCommand.h"

// "tervola convert IN OUT": loads a logbook and saves it with the program's own save, in the
// container OUT's name asks for.
class CConvertCommand final : public CCommand
{
public:
    // The word "convert".
    QString Name() const override { return QStringLiteral("convert"); }
    // The line for the tool's own help.
    QString Summary() const override;

protected:
    void Configure(QCommandLineParser& parser) override;
    QString Details() const override;
    int Execute(const QCommandLineParser& parser) override;
    int RequiredArguments() const override { return 2; }
};
