#include "tracks/RecordingDetection.h"

#include "tracks/CRecordingSeries.h"

#include <cmath>
#include <limits>

CJumpDetection DetectJumpInSeries(const CRecordingSeries& series)
{
    const std::vector<double>& times = series.Times();
    std::vector<CTrackFix> fixes(times.size());
    for (std::size_t i = 0; i < times.size(); ++i) {
        CTrackFix& fix = fixes[i];
        fix.time = times[i];
        fix.hMSL = series.Altitudes()[i];
        fix.velD = series.VerticalSpeeds()[i];
        // The accuracy is unknown; the detection assumes a typical receiver's.
        fix.hAcc = fix.vAcc = fix.sAcc = std::numeric_limits<double>::quiet_NaN();
        if (series.HasGround() && times.size() > 1) {
            // Central differences of the ground track; one-sided at the ends.
            const std::size_t before = i == 0 ? 0 : i - 1;
            const std::size_t after = i + 1 == times.size() ? i : i + 1;
            const double dt = times[after] - times[before];
            if (dt > 0) {
                fix.velE = (series.Ground()[after].east - series.Ground()[before].east) / dt;
                fix.velN = (series.Ground()[after].north - series.Ground()[before].north) / dt;
            }
        }
    }
    return DetectJump(fixes);
}
