#include "tracks/CTrackImport.h"

#include "model/CBaroSample.h"
#include "model/CGpsSample.h"
#include "model/FallrateKind.h"
#include "resources/StringTable.h"
#include "tracks/TrackTime.h"

#include <algorithm>
#include <cmath>
#include <ctime>
#include <memory>

namespace {

// A margin for comparing times that went through arithmetic.
constexpr double kTimeSlack = 1e-6;
// The barometer must reach this close to the landing to stand for the whole jump.
constexpr double kBaroCoverSlack = 1.0;

// Finer than the loggers measure is noise: heights to the centimetre, times to the millisecond.
double Centimetres(double metres)
{
    return std::round(metres * 100.0) / 100.0;
}

double Milliseconds(double seconds)
{
    return std::round(seconds * 1000.0) / 1000.0;
}

// The first of count time-ordered items whose time is at least time.
template <typename TimeOf>
std::size_t FirstAtOrAfter(std::size_t count, double time, TimeOf timeOf)
{
    std::size_t low = 0, high = count;
    while (low < high) {
        const std::size_t mid = low + (high - low) / 2;
        if (timeOf(mid) < time)
            low = mid + 1;
        else
            high = mid;
    }
    return low;
}

// The item nearest in time.
template <typename TimeOf>
std::size_t Nearest(std::size_t count, double time, TimeOf timeOf)
{
    const std::size_t after = FirstAtOrAfter(count, time, timeOf);
    if (after == count)
        return count - 1;
    if (after > 0 && time - timeOf(after - 1) < timeOf(after) - time)
        return after - 1;
    return after;
}

// The items first..last to keep: all of them at rate 0; else one per interval of 1/rateHz
// counted from the exit, the first of each, except that an interval holding a forced item keeps
// that one alone. So no interval holds two samples and the forced ones are always kept.
template <typename TimeOf>
std::vector<std::size_t> KeptIndices(std::size_t first, std::size_t last, std::vector<std::size_t> forced,
                                     double rateHz, double exitTime, TimeOf timeOf)
{
    std::sort(forced.begin(), forced.end());
    std::vector<std::size_t> kept;
    if (rateHz <= 0.0) {
        kept.resize(last - first + 1);
        for (std::size_t i = first; i <= last; ++i)
            kept[i - first] = i;
        return kept;
    }
    const auto interval = [&](std::size_t i) {
        return static_cast<long long>(std::floor((timeOf(i) - exitTime) * rateHz + kTimeSlack));
    };
    kept.reserve(static_cast<std::size_t>((timeOf(last) - timeOf(first)) * rateHz) + forced.size() + 2);
    std::size_t next = 0;
    long long lastInterval = interval(first) - 1;
    for (std::size_t i = first; i <= last; ++i) {
        while (next < forced.size() && forced[next] < i)
            ++next;
        const bool isForced = next < forced.size() && forced[next] == i;
        const long long current = interval(i);
        if (!isForced && (current == lastInterval || (next < forced.size() && interval(forced[next]) == current)))
            continue;
        kept.push_back(i);
        lastInterval = current;
    }
    return kept;
}

void BuildSatellite(const CTrack& track, const CJumpDetection& detection, double rateHz, CJumpRecording& recording)
{
    const std::vector<CTrackFix>& fixes = track.fixes;
    const auto timeOf = [&](std::size_t i) { return fixes[i].time; };
    const std::size_t first =
        std::min(FirstAtOrAfter(fixes.size(), detection.exitTime - kImportLeadTime, timeOf), detection.exitIndex);
    const std::vector<std::size_t> kept =
        KeptIndices(first, detection.landingIndex, {detection.exitIndex, detection.deployIndex, detection.landingIndex},
                    rateHz, detection.exitTime, timeOf);
    recording.SetKind(CJumpRecording::Satellite);
    for (std::size_t i : kept) {
        const CTrackFix& fix = fixes[i];
        recording.AddSample(std::make_unique<CGpsSample>(Centimetres(fix.hMSL - detection.groundAltitude),
                                                         Milliseconds(fix.time - detection.exitTime), fix.lat,
                                                         fix.lon));
    }
}

// Heights of the barometer above its reading at the landing; qne holds the landing's pressure
// in hPa, the reference the heights are zeroed on.
bool BuildBarometric(const CTrack& track, const CJumpDetection& detection, double rateHz, CJumpRecording& recording,
                     CTrackMessage& reason)
{
    const std::vector<CBaroReading>& baro = track.baro;
    if (baro.empty()) {
        reason = {StringTable::IDS_TRACK_NO_BARO};
        return false;
    }
    if (baro.front().time > detection.exitTime || baro.back().time < detection.landingTime - kBaroCoverSlack) {
        reason = {StringTable::IDS_TRACK_BARO_SHORT};
        return false;
    }
    const auto timeOf = [&](std::size_t i) { return baro[i].time; };
    const std::size_t first = FirstAtOrAfter(baro.size(), detection.exitTime - kImportLeadTime, timeOf);
    const std::size_t exit = Nearest(baro.size(), detection.exitTime, timeOf);
    const std::size_t deploy = Nearest(baro.size(), detection.deployTime, timeOf);
    const std::size_t landing = Nearest(baro.size(), detection.landingTime, timeOf);
    const std::size_t after = FirstAtOrAfter(baro.size(), detection.landingTime, timeOf);
    const std::size_t last = std::max(landing, after > 0 ? after - 1 : 0);
    const std::vector<std::size_t> kept =
        KeptIndices(std::min(first, exit), last, {exit, deploy, landing}, rateHz, detection.exitTime, timeOf);
    const double ground = baro[landing].altitude;
    recording.SetKind(CJumpRecording::Barometric);
    recording.SetQne(Centimetres(baro[landing].pressure / 100.0));
    for (std::size_t i : kept) {
        recording.AddSample(std::make_unique<CBaroSample>(Centimetres(baro[i].altitude - ground),
                                                          Milliseconds(baro[i].time - detection.exitTime)));
    }
    return true;
}

} // namespace

bool BuildImportedJump(const CTrack& track, const CJumpDetection& detection, const CTrackImportOptions& options,
                       int utcOffsetMinutes, CImportedJump& out, CTrackMessage& reason)
{
    if (!detection.ok) {
        reason = detection.reason.id != 0 ? detection.reason : CTrackMessage{StringTable::IDS_TRACK_NO_JUMP};
        return false;
    }
    const std::size_t n = track.fixes.size();
    if (detection.landingIndex >= n || detection.exitIndex > detection.deployIndex ||
        detection.deployIndex > detection.landingIndex) {
        reason = {StringTable::IDS_TRACK_FOREIGN_JUMP};
        return false;
    }
    CImportedJump jump;
    if (options.barometric) {
        if (!BuildBarometric(track, detection, options.rateHz, jump.recording, reason))
            return false;
    } else {
        BuildSatellite(track, detection, options.rateHz, jump.recording);
    }
    jump.fallrate.kind = FallrateKind::Import;
    jump.fallrate.exitHeight = detection.exitHeight;
    jump.fallrate.openHeight = detection.openHeight;
    jump.fallrate.freefallTime = detection.freefallTime;
    jump.fallrate.canopyTime = detection.canopyTime;
    jump.fallrate.maxSpeed = detection.vMax;
    jump.fallrate.avgSpeed = detection.vAvg;
    jump.exitTime = ZonedFromUtc(detection.exitTime, utcOffsetMinutes);
    if (!jump.exitTime.dateTime.IsValid()) {
        reason = {StringTable::IDS_TRACK_EXIT_YEAR};
        return false;
    }
    out = std::move(jump);
    reason = {};
    return true;
}

int LocalUtcOffsetMinutes(double utcSeconds)
{
    const std::time_t instant = static_cast<std::time_t>(std::floor(utcSeconds));
    std::tm local{};
    if (localtime_r(&instant, &local) == nullptr)
        return 0;
    return static_cast<int>(local.tm_gmtoff / 60);
}
