#include "FuzzTargets.h"
#include "formats/CFlySightReader.h"

#include <algorithm>
#include <string_view>

std::string FuzzFlySight(const std::uint8_t* data, std::size_t size)
{
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    const CTrackReadResult read = CFlySightReader::ReadText(text);
    const std::size_t lines = static_cast<std::size_t>(std::count(text.begin(), text.end(), '\n')) + 1;
    if (read.skippedAt.size() > CTrackReadResult::kSkippedLinesKept ||
        read.skippedAt.size() > static_cast<std::size_t>(read.skippedLines))
        return "more skipped line numbers kept than allowed or counted";
    if (read.skippedLines > read.dataLines || static_cast<std::size_t>(read.dataLines) > lines)
        return "more damaged or data lines than the text has lines";
    if (!read.ok) {
        if (!read.track.fixes.empty() || read.reason.Empty())
            return "a refused track kept fixes or has no message";
        return {};
    }
    if (read.track.fixes.empty() || read.track.fixes.size() > lines)
        return "an accepted track has no fixes or more fixes than lines";
    if (static_cast<long long>(read.skippedLines) * 100 > read.dataLines)
        return "a track with more than one damaged line in a hundred was taken";
    for (std::size_t i = 1; i < read.track.fixes.size(); ++i) {
        if (!(read.track.fixes[i].time > read.track.fixes[i - 1].time))
            return "the fixes are not in strictly rising time order";
    }
    std::vector<CBaroReading> baro;
    std::string message;
    if (!CFlySightReader::ReadSensorText(text, baro, message) && !baro.empty())
        return "a refused sensor text kept readings";
    return {};
}
