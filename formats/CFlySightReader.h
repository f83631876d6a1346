#pragma once

#include "tracks/CTrack.h"
#include "tracks/TrackText.h"

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

// The outcome of reading a track: the track, or the reason it was refused. A refused read
// carries no partial track.
struct CTrackReadResult
{
    bool ok = false;
    // The 1-based line the message is about; 0 when it is about the file as a whole.
    int line = 0;
    // Why it was refused, e.g. "Line 12: the time goes backwards."; empty when ok.
    CTrackMessage reason;
    CTrack track;
    // Damaged data lines that were skipped (a flipped byte on the card): how many, the first
    // kSkippedLinesKept of their line numbers and why the first was refused.
    static constexpr std::size_t kSkippedLinesKept = 10;
    int skippedLines = 0;
    std::vector<int> skippedAt;
    CTrackMessage firstSkip;
    // The data lines looked at (fixes, rows without a 3D fix and damaged lines).
    int dataLines = 0;
};

// Reads the track files of the FlySight loggers. Columns are found by their names, so extra
// columns and another column order are read as well; blank lines, CRLF or LF line ends and a
// last row cut short by a power loss (dropped) are tolerated. Rows of FlySight 1 without a 3D
// fix are skipped; a repeated time stamp keeps the first row of it. A damaged data line (a value
// that is not a number or out of range, too few fields, a time that goes backwards, a line that
// is no sentence) is skipped and counted; the track is refused when more than one data line in
// a hundred is damaged.
//
// Required columns: time, lat, lon, hMSL (every fix needs them) and velN, velE, velD (exit,
// opening and landing are told by the speeds; every firmware of both loggers writes them).
// hAcc, vAcc, sAcc, numSV and gpsFix are used when present; a missing accuracy is NaN.
class CFlySightReader
{
public:
    // A FlySight 1 CSV or a FlySight 2 TRACK.CSV, told apart by their content.
    static CTrackReadResult ReadText(std::string_view text);
    // The barometer readings of a FlySight 2 SENSOR.CSV, placed in UTC through its $TIME rows.
    // False with a message (baro untouched) when the text holds no usable readings.
    static bool ReadSensorText(std::string_view text, std::vector<CBaroReading>& baro, std::string& message);
    // Reads the file; for FlySight 2 also a SENSOR.CSV beside it (name matched without regard to
    // case); a missing or unusable SENSOR.CSV is no error (no baro then). A file that cannot be
    // read gives a message naming it.
    static CTrackReadResult ReadFile(const std::filesystem::path& path);
};
