#include "tracks/CTrackFileImport.h"

#include "tracks/CFlySightReader.h"

CTrackFileImport CTrackFileImport::Run(const std::filesystem::path& path, const CTrackImportOptions& options)
{
    CTrackFileImport result;
    const std::string name = path.filename().string();
    const CTrackReadResult read = CFlySightReader::ReadFile(path);
    if (!read.ok)
    {
        result.message = name + ": " + read.message;
        return result;
    }
    result.format = read.track.format;
    result.fixCount = read.track.fixes.size();
    result.detection = DetectJump(read.track.fixes);
    if (!result.detection.ok)
    {
        result.message = name + ": " + result.detection.message;
        return result;
    }
    // The jump is dated in local time with the offset that held on the day of the jump, not
    // today's: a summer jump imported in winter keeps its summer time.
    const int offset = LocalUtcOffsetMinutes(result.detection.exitTime);
    std::string message;
    if (!BuildImportedJump(read.track, result.detection, options, offset, result.jump, message))
    {
        result.message = name + ": " + message;
        return result;
    }
    result.ok = true;
    return result;
}
