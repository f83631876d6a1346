#pragma once

#include "cli/CCommand.h"

#include <string>

class CLogbookDoc;
struct CTrackImportOptions;

// "tervola import LOGBOOK TRACK.CSV [--jump N] [--rate HZ]": a logger's track becomes a jump of
// the logbook, a new one or a chosen jump without a recording, and the logbook is saved safely;
// "tervola import LOGBOOK FOLDER" does it for every new jump of a card.
class CImportCommand final : public CCommand
{
public:
    QString Name() const override { return QStringLiteral("import"); }
    QString Summary() const override;

protected:
    void Configure(QCommandLineParser& parser) override;
    QString Details() const override;
    int Execute(const QCommandLineParser& parser) override;
    int RequiredArguments() const override { return 2; }

private:
    // Every new jump of a card's folder, in the order of the exits, saved once.
    int ImportFolder(CLogbookDoc& doc, const std::string& logbook, const std::string& folder,
                     const CTrackImportOptions& options);
};
