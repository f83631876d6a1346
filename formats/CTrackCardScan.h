#pragma once

#include "formats/CTrackFileImport.h"

#include <cstddef>
#include <filesystem>
#include <functional>
#include <string>
#include <vector>

// A jump the logbook already holds, by the UTC time of its exit (its date and time of day).
struct CKnownExit
{
    double utcSeconds = 0;
    int number = 0;
};

// One track file of a card and what became of it.
struct CCardTrack
{
    enum class Skip
    {
        // Offered for import.
        None,
        // The file cannot be read as a track (import.reason says why).
        Unreadable,
        // A track without a jump: no freefall, or it ends in freefall (import.reason says why).
        NoJump,
        // The logbook holds a jump with an exit within a minute of the track's (sameAs).
        InLogbook,
        // Another file of the card holds the same jump (sameAsFile).
        Twice,
    };

    std::filesystem::path path;
    CTrackFileImport import;
    Skip skip = Skip::None;
    int sameAs = 0;
    std::filesystem::path sameAsFile;

    // The exit in UTC seconds (meaningful when the import succeeded).
    double ExitUtc() const { return import.detection.exitTime; }
    // Why it is not offered ("No freefall found in the track."); empty when offered.
    CMessage SkipReason() const;
};

struct CCardScan
{
    // The tracks offered for import, in the order of their exits.
    std::vector<CCardTrack> found;
    // The tracks not offered, with the reason, in the order of their paths.
    std::vector<CCardTrack> skipped;
    // True when the progress callback asked to stop; found and skipped hold what was done.
    bool cancelled = false;
};

// Looks through a FlySight card (or a copy of it) for jumps: every FlySight 1 CSV file and the
// TRACK.CSV of every FlySight 2 session (a folder holding a TRACK.CSV, whose other files are
// the session's own), read and searched for a jump as a single import does it, several files at
// a time. Tracks without a jump, files that are no track and jumps the logbook or another file
// of the card already holds (exits within a minute) are set aside with their reason.
class CTrackCardScan
{
public:
    // The exits within this many seconds are one jump.
    static constexpr double kSameExitSeconds = 60.0;

    // The track files below folder (of any depth), sorted by path.
    static std::vector<std::filesystem::path> FindTracks(const std::filesystem::path& folder);

    // progress(done, total) is called from the calling thread after each file (and once before
    // the first); false stops the scan. threads 0: as many as the machine has, at most four.
    static CCardScan Scan(const std::filesystem::path& folder, const std::vector<CKnownExit>& logbook,
                          const CTrackImportOptions& options,
                          const std::function<bool(std::size_t done, std::size_t total)>& progress = {},
                          unsigned threads = 0);
};
