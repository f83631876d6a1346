#include "formats/CTrackFileImport.h"

#include "formats/CFlySightReader.h"
#include "resources/StringTable.h"

CTrackFileImport CTrackFileImport::Run(const std::filesystem::path& path, const CTrackImportOptions& options)
{
    CTrackFileImport result;
    const std::string name = path.filename().string();
    const auto refuse = [&](CTrackMessage reason) {
        result.fileName = name;
        result.reason = std::move(reason);
        return result;
    };
    const CTrackReadResult read = CFlySightReader::ReadFile(path);
    if (!read.ok)
        return refuse(read.reason);
    result.format = read.track.format;
    result.skippedLines = read.skippedLines;
    if (read.skippedLines > 0) {
        std::string where;
        for (int line : read.skippedAt)
            where += (where.empty() ? "" : ", ") + std::to_string(line);
        if (static_cast<std::size_t>(read.skippedLines) > read.skippedAt.size())
            where += ", ...";
        result.skipped = {StringTable::IDS_TRACK_SKIPPED_LINES, std::to_string(read.skippedLines), where};
    }
    result.fixCount = read.track.fixes.size();
    result.detection = DetectJump(read.track.fixes);
    if (!result.detection.ok)
        return refuse(result.detection.reason);
    // The jump is dated in local time with the offset that held on the day of the jump, not
    // today's: a summer jump imported in winter keeps its summer time.
    const int offset = LocalUtcOffsetMinutes(result.detection.exitTime);
    CTrackMessage reason;
    if (!BuildImportedJump(read.track, result.detection, options, offset, result.jump, reason))
        return refuse(std::move(reason));
    result.ok = true;
    return result;
}
