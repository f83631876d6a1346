#pragma once

#include "tracks/CJumpDetector.h"
#include "tracks/CTrackImport.h"

#include <filesystem>
#include <string>

// A logger's file made into what a jump takes from it: the file is read, the jump found in its
// fixes and the recording and fall rate built, with the exit dated in the machine's local time.
// The window's "Import track..." and the tool's "import" share it, so both refuse the same
// files with the same words.
class CTrackFileImport
{
public:
    // Reads and works out path. On failure ok is false and reason says why (with the line when a
    // line is at fault); nothing else is meaningful then.
    static CTrackFileImport Run(const std::filesystem::path& path, const CTrackImportOptions& options);

    bool ok = false;
    // The file's name, which goes before the reason followed by ": " ("notes.csv: Line 3: ...").
    std::string fileName;
    CTrackMessage reason;
    // "FlySight 1" or "FlySight 2".
    std::string format;
    // How many fixes the file held.
    std::size_t fixCount = 0;
    // Damaged lines the reader skipped (0: none), and the note saying how many and where
    // ("Damaged lines skipped: 2 (line 57, 1203).").
    int skippedLines = 0;
    CTrackMessage skipped;
    CJumpDetection detection;
    CImportedJump jump;
};
