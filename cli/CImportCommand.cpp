#include "cli/CImportCommand.h"

#include "bridge/CorePaths.h"
#include "cli/CConsole.h"
#include "cli/CLogbookOpener.h"
#include "document/CLogbookDoc.h"
#include "document/CLogbookLock.h"
#include "document/IClock.h"
#include "editing/CCardImportEdit.h"
#include "editing/CJumpEdit.h"
#include "formats/CTrackCardScan.h"
#include "formats/CTrackFileImport.h"
#include "resources/StringTable.h"
#include "translations/MessageText.h"
#include "units/CUnitSettings.h"

#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <filesystem>

namespace {

const QString kJump = QStringLiteral("jump");
const QString kRate = QStringLiteral("rate");
const QString kBaro = QStringLiteral("baro");
const QString kForce = QStringLiteral("force");

// "2024-04-20 06:20:13 +03:00".
std::string ZonedText(const CZonedDateTime& when)
{
    const CDateTime& t = when.dateTime;
    const int offset = std::abs(when.offsetMinutes);
    char text[64];
    std::snprintf(text, sizeof text, "%04d-%02d-%02d %02d:%02d:%02d %c%02d:%02d", t.Year(), t.Month(), t.Day(),
                  t.Hour(), t.Minute(), t.Second(), when.offsetMinutes < 0 ? '-' : '+', offset / 60, offset % 60);
    return text;
}

std::string OneDecimal(double value)
{
    char text[32];
    std::snprintf(text, sizeof text, "%.1f", value);
    return text;
}

// A track as a new jump, filled as the window's editor fills it; false with the message printed.
bool LogNewJump(CLogbookDoc& doc, const CTrackFileImport& imported, int& number)
{
    const CSystemClock clock;
    const CUnitSettings units;
    CJumpEdit edit(doc, units, nullptr, clock, nullptr);
    edit.TakeImport(imported.jump.recording, imported.jump.fallrate, imported.jump.exitTime);
    const CCheckResult check = edit.ValidateAll();
    if (!check.Passed()) {
        CConsole::ErrLine(MessageText::Utf8(check.Message()));
        return false;
    }
    const CJumpEdit::ApplyResult applied = edit.Apply();
    if (!applied.ok || !applied.jump) {
        CConsole::ErrLine(applied.error);
        return false;
    }
    number = applied.jump->GetNumber();
    return true;
}

} // namespace

QString CImportCommand::Summary() const
{
    return QStringLiteral("Logs a jump from a FlySight track and saves the logbook.");
}

void CImportCommand::Configure(QCommandLineParser& parser)
{
    parser.addPositionalArgument(QStringLiteral("LOGBOOK"), QStringLiteral("The logbook (.tvz or .tvl)."));
    parser.addPositionalArgument(QStringLiteral("TRACK"),
                                 QStringLiteral("A FlySight 1 CSV file or a FlySight 2 TRACK.CSV, or a folder (a "
                                                "FlySight card or a copy of it) to import every new jump of."));
    parser.addOption({kJump,
                      QStringLiteral("Give the track to jump N (which has no recording yet) instead of "
                                     "logging a new jump."),
                      QStringLiteral("N")});
    parser.addOption(
        {kRate, QStringLiteral("Keep at most HZ samples a second (default: every fix)."), QStringLiteral("HZ")});
    parser.addOption({kBaro, QStringLiteral("Keep the barometer of a FlySight 2 session (SENSOR.CSV) as a "
                                            "barometric recording instead of the GPS track.")});
    parser.addOption({kForce, QStringLiteral("Write the logbook even while a running program has it open.")});
}

QString CImportCommand::Details() const
{
    return QStringLiteral("The track's exit, deployment and landing are found in its fixes. The jump gets the track\n"
                          "as its GPS recording (heights above the landing point, seconds from exit), the fall rate\n"
                          "\"Import\" with the exit and opening heights, freefall and canopy times and the maximum\n"
                          "and average vertical speeds, and the exit's date and time in local time. A new jump takes\n"
                          "the next number and, like a jump logged in the window, the place, aircraft, rig and the\n"
                          "other details of the last jump. A FlySight 2 SENSOR.CSV beside TRACK.CSV is read too.\n"
                          "\n"
                          "The logbook is saved as the window program's Save does (a .bak copy first, the new file\n"
                          "renamed over the old one only once complete). Then the result is printed:\n"
                          "  Jump         the jump's number\n"
                          "  Exit         date, time and UTC offset, and the exit height in metres\n"
                          "  Opening      the opening height in metres\n"
                          "  Freefall     seconds, and Canopy seconds\n"
                          "  Speed        maximum and average vertical freefall speed in m/s\n"
                          "\n"
                          "A damaged line in the middle of a track (a flipped byte on the card) is skipped; how many\n"
                          "and which are printed. A track whose header cannot be used, that holds no jump or where\n"
                          "more than one line in a hundred is damaged prints why (with the line at fault) and the\n"
                          "logbook is left as it was.\n"
                          "\n"
                          "A folder is searched for every FlySight 1 file and FlySight 2 session. Tracks without a\n"
                          "jump, files that are no track and jumps the logbook already holds (an exit within a\n"
                          "minute) are skipped, each printed with its reason; the rest become new jumps in the\n"
                          "order of their exits, and the logbook is saved once. Printed: a line per imported jump\n"
                          "(Jump N: the file and the exit) and per skipped file, then the counts.\n"
                          "\n"
                          "A logbook that the window program (or another tool) has open, as its lock file beside it\n"
                          "tells, is refused with a message naming that process; --force writes it all the same.\n"
                          "Exit codes: 0 imported and saved, 1 a file could not be read, used or saved, 2 wrong\n"
                          "command line.\n");
}

int CImportCommand::Execute(const QCommandLineParser& parser)
{
    const QStringList arguments = parser.positionalArguments();
    CTrackImportOptions options;
    if (parser.isSet(kRate)) {
        bool ok = false;
        options.rateHz = parser.value(kRate).toDouble(&ok);
        if (!ok || !(options.rateHz > 0.0) || !std::isfinite(options.rateHz))
            return Usage(QStringLiteral("--rate needs a number of samples a second above 0"));
    }
    options.barometric = parser.isSet(kBaro);
    int number = 0;
    if (parser.isSet(kJump)) {
        bool ok = false;
        number = parser.value(kJump).toInt(&ok);
        if (!ok)
            return Usage(QStringLiteral("--jump needs a jump number"));
    }

    const std::string logbook = CorePaths::LocalPath(arguments.at(0));
    CLogbookLock lock;
    if (!CLogbookOpener::LockOrReport(lock, logbook, parser.isSet(kForce)))
        return Failure;
    CLogbookDoc doc;
    if (!CLogbookOpener::OpenOrReport(doc, logbook))
        return Failure;
    const CJump* target = nullptr;
    if (parser.isSet(kJump)) {
        target = CLogbookOpener::FindJumpOrReport(doc, number);
        if (!target)
            return Failure;
        const char* refusal = target->GetRecording().IsPresent() ? " already has a recording."
                              : target->IsSigned()               ? " is signed and cannot be changed."
                                                                 : nullptr;
        if (refusal) {
            CConsole::ErrLine("Jump " + std::to_string(number) + refusal);
            return Failure;
        }
    }

    const std::string trackPath = CorePaths::LocalPath(arguments.at(1));
    std::error_code folderError;
    if (std::filesystem::is_directory(trackPath, folderError)) {
        if (target) {
            CConsole::ErrLine(std::string("--jump takes a single track, not a folder."));
            return Failure;
        }
        return ImportFolder(doc, logbook, trackPath, options);
    }
    const CTrackFileImport imported = CTrackFileImport::Run(trackPath, options);
    if (!imported.ok) {
        CConsole::ErrLine(imported.fileName + ": " + MessageText::Utf8(imported.reason));
        return Failure;
    }

    // The jump is filled exactly as the window's editor fills it, then written by the editor's
    // own OK, so a jump imported here and one imported in the window are the same.
    const CSystemClock clock;
    const CUnitSettings units;
    CJumpEdit edit(doc, units, nullptr, clock, target);
    edit.TakeImport(imported.jump.recording, imported.jump.fallrate, imported.jump.exitTime);
    const CCheckResult check = edit.ValidateAll();
    if (!check.Passed()) {
        CConsole::ErrLine(MessageText::Utf8(check.Message()));
        return Failure;
    }
    const CJumpEdit::ApplyResult applied = edit.Apply();
    if (!applied.ok || !applied.jump) {
        CConsole::ErrLine(applied.error);
        return Failure;
    }
    if (!doc.Save(logbook)) {
        CConsole::ErrLine(StringTable::Text(StringTable::IDS_SAVE_FAILED));
        return Failure;
    }

    const CJumpFallrate& f = imported.jump.fallrate;
    const CJumpDetection& d = imported.detection;
    CConsole::OutLine("Jump: " + std::to_string(applied.jump->GetNumber()));
    CConsole::OutLine("Track: " + imported.format + ", " + std::to_string(imported.fixCount) + " fixes, " +
                      std::to_string(imported.jump.recording.GetSamples().size()) + " kept" +
                      (d.landed ? "" : ", ends in the air"));
    if (imported.skippedLines > 0)
        CConsole::OutLine(MessageText::Utf8(imported.skipped));
    CConsole::OutLine("Exit: " + ZonedText(imported.jump.exitTime) + ", " + std::to_string(f.exitHeight) + " m");
    CConsole::OutLine("Opening: " + std::to_string(f.openHeight) + " m");
    CConsole::OutLine("Freefall: " + std::to_string(f.freefallTime) + " s");
    CConsole::OutLine("Canopy: " + std::to_string(f.canopyTime) + " s");
    CConsole::OutLine("Speed: max " + OneDecimal(f.maxSpeed) + " m/s, average " + OneDecimal(f.avgSpeed) + " m/s");
    return Success;
}

int CImportCommand::ImportFolder(CLogbookDoc& doc, const std::string& logbook, const std::string& folder,
                                 const CTrackImportOptions& options)
{
    const CCardScan scan = CTrackCardScan::Scan(folder, CCardImportEdit::KnownExits(doc), options);
    std::size_t imported = 0;
    for (const CCardTrack& track : scan.found) {
        int number = 0;
        if (!LogNewJump(doc, track.import, number))
            return Failure;
        ++imported;
        const std::string relative = std::filesystem::relative(track.path, folder).generic_string();
        CConsole::OutLine("Jump " + std::to_string(number) + ": " + relative + ", exit " +
                          ZonedText(track.import.jump.exitTime) + ", " +
                          std::to_string(track.import.jump.fallrate.exitHeight) + " m, freefall " +
                          std::to_string(track.import.jump.fallrate.freefallTime) + " s");
        if (track.import.skippedLines > 0)
            CConsole::OutLine("  " + MessageText::Utf8(track.import.skipped));
    }
    for (const CCardTrack& track : scan.skipped)
        CConsole::OutLine("Skipped " + std::filesystem::relative(track.path, folder).generic_string() + ": " +
                          MessageText::Utf8(track.SkipReason()));
    CConsole::OutLine("Tracks: " + std::to_string(scan.found.size() + scan.skipped.size()) + " found, " +
                      std::to_string(imported) + " imported, " + std::to_string(scan.skipped.size()) + " skipped");
    if (imported > 0 && !doc.Save(logbook)) {
        CConsole::ErrLine(StringTable::Text(StringTable::IDS_SAVE_FAILED));
        return Failure;
    }
    return Success;
}
