#include "tracks/CRecordingSeries.h"

#include "model/CGpsSample.h"
#include "model/CJumpRecording.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace {

// Samples closer in time than this are one moment recorded twice (loggers write at most some
// tens of fixes a second).
constexpr double kSameTime = 1e-3;

// One usable sample as read from the recording.
struct CRawSample
{
    double time = 0.0;
    double altitude = 0.0;
    double lat = 0.0;
    double lon = 0.0;
    bool hasPosition = false;
};

double Radians(double degrees)
{
    return degrees * std::numbers::pi / 180.0;
}

// A longitude difference brought into -180..180 degrees, so a track across the date line stays
// in one piece.
double LongitudeStep(double from, double to)
{
    double step = std::fmod(to - from, 360.0);
    if (step > 180.0)
        step -= 360.0;
    else if (step < -180.0)
        step += 360.0;
    return step;
}

template <typename T, typename Get>
CRecordingSeries::Range RangeOf(const std::vector<T>& values, Get get)
{
    if (values.empty())
        return {};
    CRecordingSeries::Range range{get(values.front()), get(values.front())};
    for (const T& value : values) {
        range.min = std::min(range.min, get(value));
        range.max = std::max(range.max, get(value));
    }
    return range;
}

} // namespace

CRecordingSeries::CRecordingSeries(const CJumpRecording& recording)
    : m_satellite(recording.GetKind() == CJumpRecording::Satellite)
{
    TakeSamples(recording);
    ComputeSpeeds();
    for (const CJumpAnnotation& note : recording.GetAnnotations())
        if (std::isfinite(note.time) && std::isfinite(note.altitude))
            m_annotations.push_back({note.time, note.altitude, note.text});
    std::stable_sort(m_annotations.begin(), m_annotations.end(),
                     [](const Annotation& a, const Annotation& b) { return a.time < b.time; });
    for (const CRecordingWind& wind : recording.GetWinds())
        if (std::isfinite(wind.speed))
            m_winds.push_back(wind);
    std::stable_sort(m_winds.begin(), m_winds.end(),
                     [](const CRecordingWind& a, const CRecordingWind& b) { return a.altitude < b.altitude; });
    ComputeRanges();
}

void CRecordingSeries::TakeSamples(const CJumpRecording& recording)
{
    std::vector<CRawSample> raw;
    raw.reserve(recording.GetSamples().size());
    bool allPositioned = true;
    bool anyOffOrigin = false;
    for (const auto& sample : recording.GetSamples()) {
        if (!sample || !std::isfinite(sample->GetTime()) || !std::isfinite(sample->GetAltitude()))
            continue;
        CRawSample taken{sample->GetTime(), sample->GetAltitude()};
        if (const auto* gps = dynamic_cast<const CGpsSample*>(sample.get())) {
            taken.lat = gps->GetLatitude();
            taken.lon = gps->GetLongitude();
            taken.hasPosition = std::isfinite(taken.lat) && std::isfinite(taken.lon) && std::abs(taken.lat) <= 90.0 &&
                                std::abs(taken.lon) <= 180.0;
        }
        allPositioned = allPositioned && taken.hasPosition;
        anyOffOrigin = anyOffOrigin || (taken.hasPosition && (taken.lat != 0.0 || taken.lon != 0.0));
        raw.push_back(taken);
    }
    // Times that go back are put in order rather than dropped: a logger's samples are all real.
    std::stable_sort(raw.begin(), raw.end(), [](const CRawSample& a, const CRawSample& b) { return a.time < b.time; });

    // A ground track needs a position for every sample; a recording whose positions are all
    // zero never had any.
    const bool ground = m_satellite && allPositioned && anyOffOrigin;
    std::vector<CRawSample> merged;
    merged.reserve(raw.size());
    for (std::size_t first = 0; first < raw.size();) {
        std::size_t end = first + 1;
        while (end < raw.size() && raw[end].time - raw[first].time < kSameTime)
            ++end;
        CRawSample mean = raw[first];
        const double count = static_cast<double>(end - first);
        if (end - first > 1) {
            mean = {};
            for (std::size_t i = first; i < end; ++i) {
                mean.time += raw[i].time / count;
                mean.altitude += raw[i].altitude / count;
                mean.lat += raw[i].lat / count;
                mean.lon += (raw[first].lon + LongitudeStep(raw[first].lon, raw[i].lon)) / count;
            }
        }
        merged.push_back(mean);
        first = end;
    }

    m_times.reserve(merged.size());
    m_altitudes.reserve(merged.size());
    for (const CRawSample& sample : merged) {
        m_times.push_back(sample.time);
        m_altitudes.push_back(sample.altitude);
    }
    if (!ground || merged.empty())
        return;
    // At the few kilometres of a jump the earth is flat enough: a degree of latitude is the same
    // length everywhere, a degree of longitude shrinks with the cosine of the latitude.
    const double lat0 = merged.front().lat;
    const double lon0 = merged.front().lon;
    const double eastScale = kEarthRadius * std::cos(Radians(lat0));
    m_ground.reserve(merged.size());
    for (const CRawSample& sample : merged)
        m_ground.push_back(
            {eastScale * Radians(LongitudeStep(lon0, sample.lon)), kEarthRadius * Radians(sample.lat - lat0)});
}

void CRecordingSeries::ComputeSpeeds()
{
    const std::size_t n = m_times.size();
    m_speeds.assign(n, 0.0);
    if (n < 2)
        return;
    std::size_t lo = 0;
    std::size_t hi = 0;
    for (std::size_t i = 0; i < n; ++i) {
        // The window: every sample within the half window, and at least one neighbour each side.
        while (lo < i && m_times[i] - m_times[lo] > kSlopeHalfWindow)
            ++lo;
        lo = std::min(lo, i == 0 ? 0 : i - 1);
        hi = std::max(hi, std::min(i + 1, n - 1));
        while (hi + 1 < n && m_times[hi + 1] - m_times[i] <= kSlopeHalfWindow)
            ++hi;
        const double count = static_cast<double>(hi - lo + 1);
        double meanTime = 0.0;
        double meanAltitude = 0.0;
        for (std::size_t j = lo; j <= hi; ++j) {
            meanTime += m_times[j];
            meanAltitude += m_altitudes[j];
        }
        meanTime /= count;
        meanAltitude /= count;
        double sxx = 0.0;
        double sxy = 0.0;
        for (std::size_t j = lo; j <= hi; ++j) {
            const double dt = m_times[j] - meanTime;
            sxx += dt * dt;
            sxy += dt * (m_altitudes[j] - meanAltitude);
        }
        // Merged samples are at least a millisecond apart, so sxx is never zero here.
        m_speeds[i] = sxx > 0.0 ? -sxy / sxx : 0.0;
    }
}

void CRecordingSeries::ComputeRanges()
{
    const auto same = [](double value) { return value; };
    m_timeRange = RangeOf(m_times, same);
    m_altitudeRange = RangeOf(m_altitudes, same);
    m_speedRange = RangeOf(m_speeds, same);
    m_eastRange = RangeOf(m_ground, [](const GroundPoint& p) { return p.east; });
    m_northRange = RangeOf(m_ground, [](const GroundPoint& p) { return p.north; });
}

CRecordingSeries::Values CRecordingSeries::At(double time) const
{
    Values values;
    if (m_times.empty())
        return values;
    const double t = std::clamp(std::isfinite(time) ? time : m_timeRange.min, m_timeRange.min, m_timeRange.max);
    const auto after = std::upper_bound(m_times.begin(), m_times.end(), t);
    const std::size_t j = static_cast<std::size_t>(after - m_times.begin());
    const std::size_t i = j == 0 ? 0 : j - 1;
    const std::size_t k = std::min(j, m_times.size() - 1);
    const double step = m_times[k] - m_times[i];
    const double f = step > 0.0 ? (t - m_times[i]) / step : 0.0;
    const auto mix = [f](double a, double b) { return a + (b - a) * f; };
    values.time = t;
    values.altitude = mix(m_altitudes[i], m_altitudes[k]);
    values.verticalSpeed = mix(m_speeds[i], m_speeds[k]);
    if (!m_ground.empty())
        values.ground = {mix(m_ground[i].east, m_ground[k].east), mix(m_ground[i].north, m_ground[k].north)};
    values.nearest = f < 0.5 ? i : k;
    return values;
}
