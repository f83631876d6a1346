#include "formats/CFlySightReader.h"

#include "formats/CCsvColumns.h"
#include "resources/StringTable.h"
#include "tracks/TrackText.h"

#include <cmath>
#include <cstdint>
#include <fstream>
#include <limits>
#include <system_error>

namespace {

enum Column
{
    Time,
    Lat,
    Lon,
    HMsl,
    VelN,
    VelE,
    VelD,
    HAcc,
    VAcc,
    SAcc,
    GpsFix,
    NumSV,
    ColumnCount
};

constexpr std::string_view kColumnNames[ColumnCount] = {"time", "lat",  "lon",  "hMSL", "velN",   "velE",
                                                        "velD", "hAcc", "vAcc", "sAcc", "gpsFix", "numSV"};
// Every fix needs time and position; exit, opening and landing are told by the speeds. The
// messages about missing columns list them.
constexpr Column kRequired[] = {Time, Lat, Lon, HMsl, VelN, VelE, VelD};

// Bytes looked at for binary content: the start of the headers, where the files a picker offers
// by mistake (pictures, videos, archives) show their control bytes. A control byte further in
// is a damaged line like any other.
constexpr std::size_t kBinaryProbe = 256;
// The largest file taken for a track (an hour at 5 Hz is about 2 MB): a video or a disk image
// picked by mistake is refused before it is read into memory.
constexpr std::uintmax_t kLargestFile = 512ull * 1024 * 1024;
// Bytes of text per fix, to reserve the fixes in one go (a FlySight 1 row is about 130 bytes).
constexpr std::size_t kBytesPerFix = 100;
// Values beyond these are not a skydive but a damaged row.
constexpr double kLowestHeight = -500.0;
constexpr double kHighestHeight = 15000.0;
constexpr double kFastestSpeed = 150.0;
// FlySight 1 value of gpsFix for a 3D fix.
constexpr long long k3DFix = 3;

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

enum class RowOutcome
{
    Fix,
    Skip,
    Refuse
};

bool Refuse(CTrackReadResult& result, int line, CTrackMessage reason)
{
    result.ok = false;
    result.line = line;
    reason.line = line;
    result.reason = std::move(reason);
    // Nothing partial goes back with a refusal.
    result.track = CTrack();
    return false;
}

CTrackMessage NotANumber(Column column, std::string_view field)
{
    return {StringTable::IDS_TRACK_NOT_A_NUMBER, std::string(kColumnNames[column]), QuoteField(field)};
}

// Turns the wanted fields of a data row into a fix; Skip for a row without a 3D fix.
RowOutcome ParseFix(const std::string_view* values, CTrackFix& fix, CTrackMessage& why)
{
    if (!values[GpsFix].empty()) {
        long long gpsFix = 0;
        if (!ParseInteger(values[GpsFix], gpsFix)) {
            why = NotANumber(GpsFix, values[GpsFix]);
            return RowOutcome::Refuse;
        }
        if (gpsFix < k3DFix)
            return RowOutcome::Skip;
    }
    if (!ParseUtcTime(values[Time], fix.time)) {
        why = {StringTable::IDS_TRACK_BAD_TIME, QuoteField(values[Time])};
        return RowOutcome::Refuse;
    }
    double* const targets[] = {nullptr,   &fix.lat,  &fix.lon,  &fix.hMSL, &fix.velN,
                               &fix.velE, &fix.velD, &fix.hAcc, &fix.vAcc, &fix.sAcc};
    for (int column = Lat; column <= SAcc; ++column) {
        const bool required = column <= VelD;
        if (!required && values[column].empty()) {
            *targets[column] = kNaN;
        } else if (!ParseNumber(values[column], *targets[column])) {
            why = NotANumber(static_cast<Column>(column), values[column]);
            return RowOutcome::Refuse;
        }
    }
    long long satellites = -1;
    if (!values[NumSV].empty() && !ParseInteger(values[NumSV], satellites)) {
        why = NotANumber(NumSV, values[NumSV]);
        return RowOutcome::Refuse;
    }
    fix.numSV = static_cast<int>(satellites);

    // Each message names its range in its text: -90 to 90, -180 to 180, kLowestHeight to
    // kHighestHeight and ±kFastestSpeed.
    const auto outside = [&](Column column, double low, double high, int id) {
        if (*targets[column] >= low && *targets[column] <= high)
            return false;
        why = {id, std::string(values[column])};
        return true;
    };
    if (outside(Lat, -90, 90, StringTable::IDS_TRACK_LATITUDE) ||
        outside(Lon, -180, 180, StringTable::IDS_TRACK_LONGITUDE) ||
        outside(HMsl, kLowestHeight, kHighestHeight, StringTable::IDS_TRACK_HEIGHT) ||
        outside(VelN, -kFastestSpeed, kFastestSpeed, StringTable::IDS_TRACK_NORTH_SPEED) ||
        outside(VelE, -kFastestSpeed, kFastestSpeed, StringTable::IDS_TRACK_EAST_SPEED) ||
        outside(VelD, -kFastestSpeed, kFastestSpeed, StringTable::IDS_TRACK_VERTICAL_SPEED))
        return RowOutcome::Refuse;
    return RowOutcome::Fix;
}

// Takes the column names of a header line; false (result refused) when the names lack a column
// a track needs.
bool ReadHeader(CTrackReadResult& result, CCsvColumns& columns, std::string_view line, std::size_t skip, int number)
{
    if (columns.ReadHeader(line, skip) == 0) {
        return Refuse(result, number, {StringTable::IDS_TRACK_NO_COLUMNS});
    }
    for (Column column : kRequired) {
        if (!columns.Has(column)) {
            return Refuse(result, number, {StringTable::IDS_TRACK_MISSING_COLUMN, std::string(kColumnNames[column])});
        }
    }
    return true;
}

// Counts a damaged data line as skipped, keeping the first line numbers and the first reason.
void SkipDamaged(CTrackReadResult& result, int line, CTrackMessage why)
{
    if (result.skippedLines == 0) {
        why.line = line;
        result.firstSkip = std::move(why);
    }
    ++result.skippedLines;
    if (result.skippedAt.size() < CTrackReadResult::kSkippedLinesKept)
        result.skippedAt.push_back(line);
}

// Reads the data rows of one track into the result, skipping damaged ones.
class CRowReader
{
public:
    CRowReader(CTrackReadResult& result, const CCsvColumns& columns) : m_result(result), m_columns(columns) {}

    void Add(std::string_view row, std::size_t skip, int line)
    {
        ++m_result.dataLines;
        std::string_view values[ColumnCount];
        const std::size_t fields = m_columns.ReadRow(row, skip, values);
        if (fields < m_columns.FieldsNeeded()) {
            SkipDamaged(
                m_result, line,
                {StringTable::IDS_TRACK_SHORT_ROW, std::to_string(fields), std::to_string(m_columns.FieldsNeeded())});
            return;
        }
        CTrackFix fix;
        CTrackMessage why;
        switch (ParseFix(values, fix, why)) {
        case RowOutcome::Skip:
            return;
        case RowOutcome::Refuse:
            SkipDamaged(m_result, line, std::move(why));
            return;
        case RowOutcome::Fix:
            break;
        }
        std::vector<CTrackFix>& fixes = m_result.track.fixes;
        if (!fixes.empty() && fix.time < fixes.back().time) {
            // A time stamp flipped forwards shows itself when the next row goes back to the
            // times before it: then that earlier fix is the damaged one.
            if (fixes.size() >= 2 && fix.time > fixes[fixes.size() - 2].time) {
                SkipDamaged(m_result, m_lastFixLine, {StringTable::IDS_TRACK_TIME_BACKWARDS, QuoteField(values[Time])});
                fixes.pop_back();
            } else {
                SkipDamaged(m_result, line, {StringTable::IDS_TRACK_TIME_BACKWARDS, QuoteField(values[Time])});
                return;
            }
        }
        // A fix stamped twice: the first row of it stays.
        if (!fixes.empty() && fix.time == fixes.back().time)
            return;
        fixes.push_back(fix);
        m_lastFixLine = line;
    }

    // A line that is no data row at all, where one was expected.
    void AddDamaged(int line, CTrackMessage why)
    {
        ++m_result.dataLines;
        SkipDamaged(m_result, line, std::move(why));
    }

private:
    CTrackReadResult& m_result;
    const CCsvColumns& m_columns;
    int m_lastFixLine = 0;
};

void Finish(CTrackReadResult& result, int lastLine)
{
    // More than one damaged line in a hundred is a damaged file, not a flipped byte.
    if (result.skippedLines > 0 && static_cast<long long>(result.skippedLines) * 100 > result.dataLines) {
        Refuse(result, result.firstSkip.line,
               {StringTable::IDS_TRACK_TOO_DAMAGED, std::to_string(result.skippedLines),
                std::to_string(result.dataLines)});
        return;
    }
    if (result.track.fixes.empty()) {
        Refuse(result, lastLine, {StringTable::IDS_TRACK_NO_FIX});
        return;
    }
    result.ok = true;
    result.line = 0;
    result.reason = {};
}

// FlySight 1: a line of column names, a line of units, then one row per fix. A row that stops
// without its line end is the one the logger was writing when it lost power: dropped.
void ReadFlySight1(CTextLines& lines, const CTextLine& header, CTrackReadResult& result)
{
    result.track.format = "FlySight 1";
    CCsvColumns columns(kColumnNames, ColumnCount);
    if (!ReadHeader(result, columns, header.text, 0, header.number))
        return;
    CRowReader rows(result, columns);
    bool firstRow = true;
    CTextLine line;
    std::string_view values[ColumnCount];
    while (lines.Next(line)) {
        if (IsBlankLine(line.text))
            continue;
        if (!line.terminated)
            break;
        if (firstRow) {
            firstRow = false;
            // The units line has no time: ",(deg),(deg),(m),...".
            columns.ReadRow(line.text, 0, values);
            if (values[Time].empty())
                continue;
        }
        rows.Add(line.text, 0, line.number);
    }
    Finish(result, lines.LastNumber());
}

// FlySight 2: "$"-sentences; "$COL,GNSS,..." names the columns of the "$GNSS,..." rows. The
// header sentences, the units and the sentences of other sensors are not needed.
void ReadFlySight2(CTextLines& lines, CTrackReadResult& result)
{
    result.track.format = "FlySight 2";
    CCsvColumns columns(kColumnNames, ColumnCount);
    CRowReader rows(result, columns);
    CTextLine line;
    while (lines.Next(line)) {
        const std::string_view text = TrimField(line.text);
        if (text.empty())
            continue;
        if (text.substr(0, 6) == "$GNSS,") {
            if (!line.terminated)
                break;
            if (!columns.HasHeader()) {
                Refuse(result, line.number, {StringTable::IDS_TRACK_GNSS_BEFORE_COLUMNS});
                return;
            }
            rows.Add(text, 1, line.number);
        } else if (text.substr(0, 10) == "$COL,GNSS,") {
            if (!ReadHeader(result, columns, text, 2, line.number))
                return;
        } else if (text.front() != '$') {
            if (!line.terminated)
                break;
            rows.AddDamaged(line.number, {StringTable::IDS_TRACK_NOT_A_SENTENCE});
        }
    }
    if (!columns.HasHeader()) {
        Refuse(result, lines.LastNumber(), {StringTable::IDS_TRACK_NO_GNSS_COLUMNS});
        return;
    }
    Finish(result, lines.LastNumber());
}

// The whole file in text; false with the reason when it cannot be had.
bool ReadWholeFile(const std::filesystem::path& path, std::string& text, CTrackMessage& why)
{
    const std::string name = "\"" + path.string() + "\"";
    std::error_code error;
    const std::uintmax_t size = std::filesystem::file_size(path, error);
    if (error) {
        why = {StringTable::IDS_TRACK_UNREADABLE, name};
        return false;
    }
    if (size > kLargestFile) {
        why = {StringTable::IDS_TRACK_TOO_LARGE, name};
        return false;
    }
    std::ifstream in(path, std::ios::binary);
    text.resize(static_cast<std::size_t>(size));
    if (!in || !in.read(text.data(), static_cast<std::streamsize>(size))) {
        why = {StringTable::IDS_TRACK_UNREADABLE, name};
        return false;
    }
    return true;
}

// The SENSOR.CSV in the track's folder, whatever the case of its name; empty when none.
std::filesystem::path FindSensorFile(const std::filesystem::path& track)
{
    std::error_code error;
    const std::filesystem::path folder = track.has_parent_path() ? track.parent_path() : std::filesystem::path(".");
    for (std::filesystem::directory_iterator it(folder, error), end; !error && it != end; it.increment(error)) {
        if (EqualNoCase(it->path().filename().string(), "SENSOR.CSV") && it->is_regular_file(error))
            return it->path();
    }
    return {};
}

} // namespace

CTrackReadResult CFlySightReader::ReadText(std::string_view text)
{
    CTrackReadResult result;
    text = StripTextPadding(text);
    int binaryLine = 0;
    if (HasBinaryByte(text, kBinaryProbe, binaryLine)) {
        Refuse(result, binaryLine, {StringTable::IDS_TRACK_BINARY});
        return result;
    }
    CTextLines lines(text);
    CTextLine first;
    bool found = false;
    while (!found && lines.Next(first))
        found = !IsBlankLine(first.text);
    if (!found) {
        Refuse(result, 0, {StringTable::IDS_TRACK_EMPTY});
        return result;
    }
    result.track.fixes.reserve(text.size() / kBytesPerFix + 16);
    if (TrimField(first.text).substr(0, 5) == "$FLYS")
        ReadFlySight2(lines, result);
    else
        ReadFlySight1(lines, first, result);
    return result;
}

CTrackReadResult CFlySightReader::ReadFile(const std::filesystem::path& path)
{
    CTrackReadResult result;
    std::string text;
    if (!ReadWholeFile(path, text, result.reason))
        return result;
    result = ReadText(text);
    if (!result.ok || result.track.format != "FlySight 2")
        return result;
    const std::filesystem::path sensorPath = FindSensorFile(path);
    std::string sensorText, why;
    CTrackMessage unreadable;
    if (!sensorPath.empty() && ReadWholeFile(sensorPath, sensorText, unreadable))
        ReadSensorText(sensorText, result.track.baro, why);
    return result;
}
