// How a skydive is found in a track of GPS fixes.
//
// Smoothing. A logger's vertical speed jitters by a few decimetres per second from fix to fix
// and its height by a few metres. Vertical speed and height are therefore averaged over a
// centred window of one second (±0.5 s: five fixes at 5 Hz, one at 1 Hz, the window follows
// the time stamps so gaps do no harm). A centred mean adds no delay, keeps a steady
// acceleration exact (the mean of a straight line is its middle), and is short enough that the
// opening, which takes two to four seconds, keeps its shape. The vertical acceleration is the
// central difference of the averaged speed over the fixes on either side.
//
// Search range. The exit is looked for within the largest continuous descent: from the highest
// (averaged) point to the lowest point after it. That skips the aircraft's climb and a drive
// or a walk after landing.
//
// Exit. The averaged vertical speed rises through 10 m/s, with sAcc at most 1 m/s (a fix whose
// speed is that uncertain proves nothing) and a vertical acceleration of at least 2.5 m/s²
// (a jumper leaving the aircraft accelerates at 8-9 m/s²; an aircraft descending at 10 m/s gets
// there far more gently). The fall began 10/a seconds before the crossing, so the exit is placed
// back there, with a the acceleration at the crossing. 10 m/s is reached about a second after
// leaving the aircraft, early enough for a hop-and-pop.
//
// Deployment. Freefall is proven once the speed passes 15 m/s (a two-second hop-and-pop reaches
// about 18 m/s); a crossing that falls back under 10 m/s before that was no exit. The canopy
// has opened when the averaged speed then falls under 12 m/s, which no body position in
// freefall gets to (a wingsuit does, so its opening would be found too early); the deployment
// is stepped back from there to the sharpest slowing since the peak speed, the moment the
// canopy takes the load.
//
// Landing. The first fix after deployment at rest: the averaged |velD| under twice its sAcc
// (at least 0.5 m/s: receivers that report a tiny sAcc still jitter at rest), horizontal
// speed under 10 km/h (slower than any canopy flies, even into wind, but a jumper walking off
// is slower), and within 10 m of the ground. The ground here is the lowest averaged height from deployment
// to 30 s after the fix: lower than the landing by a few metres of noise at most, while a
// second jump or a drive down the hill later on cannot pull it down. A track without such a
// fix ends in the air: the last fix stands in for the landing.
//
// Results. Heights are above the landing point: the mean height of the fixes in the five seconds
// from the landing fix on (the jumper is on the ground then, and the mean takes out the noise).
// The highest speed is that of the one-second average (a single fix's speed overshoots by its
// noise). The average speed is freefall distance over freefall time, so that it agrees with the
// exit height, opening height and freefall time the logbook keeps beside it.
#include "tracks/CJumpDetector.h"

#include "resources/StringTable.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr double kSmoothHalfWindow = 0.5;
constexpr double kExitSpeed = 10.0;
constexpr double kExitSpeedAccuracy = 1.0;
constexpr double kExitAcceleration = 2.5;
constexpr double kFreefallProof = 15.0;
constexpr double kDeploySpeed = 12.0;
constexpr double kRestAccuracyFloor = 0.5;
constexpr double kUnknownSpeedAccuracy = 0.5;
constexpr double kLandingHorizontal = 10.0 / 3.6;
constexpr double kLandingNearGround = 10.0;
constexpr double kGroundLookAhead = 30.0;
constexpr double kGroundAverage = 5.0;

// The mean of a field over the fixes within ±halfWindow seconds of each fix.
std::vector<double> CentredMean(const std::vector<CTrackFix>& fixes, double CTrackFix::*field, double halfWindow)
{
    const std::size_t n = fixes.size();
    std::vector<double> mean(n);
    std::size_t low = 0, high = 0;
    double sum = 0.0;
    for (std::size_t i = 0; i < n; ++i) {
        while (high < n && fixes[high].time <= fixes[i].time + halfWindow)
            sum += fixes[high++].*field;
        while (fixes[low].time < fixes[i].time - halfWindow)
            sum -= fixes[low++].*field;
        mean[i] = sum / static_cast<double>(high - low);
    }
    return mean;
}

// The derivative of values by central differences (one-sided at the ends).
std::vector<double> Derivative(const std::vector<CTrackFix>& fixes, const std::vector<double>& values)
{
    const std::size_t n = fixes.size();
    std::vector<double> slope(n, 0.0);
    for (std::size_t i = 0; i < n; ++i) {
        const std::size_t a = i == 0 ? 0 : i - 1;
        const std::size_t b = i + 1 == n ? i : i + 1;
        const double dt = fixes[b].time - fixes[a].time;
        if (dt > 0.0)
            slope[i] = (values[b] - values[a]) / dt;
    }
    return slope;
}

double SpeedAccuracy(const CTrackFix& fix)
{
    return std::isnan(fix.sAcc) ? kUnknownSpeedAccuracy : fix.sAcc;
}

// Linear interpolation of values at a time between the fixes around it.
double ValueAt(const std::vector<CTrackFix>& fixes, const std::vector<double>& values, double time)
{
    const auto after =
        std::lower_bound(fixes.begin(), fixes.end(), time, [](const CTrackFix& fix, double t) { return fix.time < t; });
    if (after == fixes.begin())
        return values.front();
    if (after == fixes.end())
        return values.back();
    const std::size_t b = static_cast<std::size_t>(after - fixes.begin());
    const std::size_t a = b - 1;
    const double f = (time - fixes[a].time) / (fixes[b].time - fixes[a].time);
    return values[a] + f * (values[b] - values[a]);
}

// The index of the fix nearest to a time.
std::size_t NearestFix(const std::vector<CTrackFix>& fixes, double time)
{
    const auto after =
        std::lower_bound(fixes.begin(), fixes.end(), time, [](const CTrackFix& fix, double t) { return fix.time < t; });
    std::size_t b = static_cast<std::size_t>(after - fixes.begin());
    if (b == fixes.size())
        return b - 1;
    if (b > 0 && time - fixes[b - 1].time < fixes[b].time - time)
        --b;
    return b;
}

// Top and bottom of the largest drop of the heights.
void LargestDescent(const std::vector<double>& heights, std::size_t& top, std::size_t& bottom)
{
    std::size_t peak = 0;
    double best = -1.0;
    top = bottom = 0;
    for (std::size_t i = 0; i < heights.size(); ++i) {
        if (heights[i] > heights[peak])
            peak = i;
        if (heights[peak] - heights[i] > best) {
            best = heights[peak] - heights[i];
            top = peak;
            bottom = i;
        }
    }
}

// The first fix after deployment at rest on the ground, or fixes.size() when there is none.
std::size_t FindLanding(const std::vector<CTrackFix>& fixes, const std::vector<double>& heights,
                        const std::vector<double>& speeds, std::size_t deploy)
{
    const std::size_t n = fixes.size();
    // Lowest height from deployment up to the fix ahead, grown as the look-ahead moves on.
    std::size_t ahead = deploy;
    double lowest = heights[deploy];
    for (std::size_t i = deploy + 1; i < n; ++i) {
        while (ahead + 1 < n && fixes[ahead + 1].time <= fixes[i].time + kGroundLookAhead)
            lowest = std::min(lowest, heights[++ahead]);
        const CTrackFix& fix = fixes[i];
        const double restLimit = std::max(2.0 * SpeedAccuracy(fix), kRestAccuracyFloor);
        if (std::fabs(speeds[i]) < restLimit && std::hypot(fix.velN, fix.velE) < kLandingHorizontal &&
            heights[i] - lowest <= kLandingNearGround)
            return i;
    }
    return n;
}

CJumpDetection NotFound(int id)
{
    CJumpDetection detection;
    detection.reason.id = id;
    return detection;
}

} // namespace

CJumpDetection DetectJump(const std::vector<CTrackFix>& fixes)
{
    const std::size_t n = fixes.size();
    if (n < 3)
        return NotFound(StringTable::IDS_TRACK_NO_FREEFALL);
    const std::vector<double> speeds = CentredMean(fixes, &CTrackFix::velD, kSmoothHalfWindow);
    const std::vector<double> heights = CentredMean(fixes, &CTrackFix::hMSL, kSmoothHalfWindow);
    const std::vector<double> accelerations = Derivative(fixes, speeds);
    std::size_t top = 0, bottom = 0;
    LargestDescent(heights, top, bottom);

    // Each rise through the exit speed is tried until one leads into a proven freefall.
    std::size_t crossing = 0, released = 0;
    double exitTime = 0.0;
    for (std::size_t k = std::max<std::size_t>(top, 1); k <= bottom && released == 0; ++k) {
        if (!(speeds[k - 1] < kExitSpeed && speeds[k] >= kExitSpeed))
            continue;
        const double f = (kExitSpeed - speeds[k - 1]) / (speeds[k] - speeds[k - 1]);
        const double acceleration = accelerations[k - 1] + f * (accelerations[k] - accelerations[k - 1]);
        if (SpeedAccuracy(fixes[k]) > kExitSpeedAccuracy || acceleration < kExitAcceleration)
            continue;
        bool proven = false;
        std::size_t j = k;
        for (; j < n; ++j) {
            if (speeds[j] >= kFreefallProof)
                proven = true;
            if (!proven && speeds[j] < kExitSpeed)
                break;
            if (proven && speeds[j] < kDeploySpeed)
                break;
        }
        if (!proven)
            continue;
        if (j == n) {
            CJumpDetection detection = NotFound(StringTable::IDS_TRACK_ENDS_IN_FREEFALL);
            return detection;
        }
        const double crossingTime = fixes[k - 1].time + f * (fixes[k].time - fixes[k - 1].time);
        exitTime = std::max(crossingTime - kExitSpeed / acceleration, fixes.front().time);
        crossing = k;
        released = j;
    }
    if (released == 0)
        return NotFound(StringTable::IDS_TRACK_NO_FREEFALL);

    // The peak speed, then the sharpest slowing between the peak and the fall under 12 m/s.
    std::size_t peak = crossing;
    for (std::size_t i = crossing; i <= released; ++i) {
        if (speeds[i] > speeds[peak])
            peak = i;
    }
    std::size_t deploy = peak;
    for (std::size_t i = peak; i <= released; ++i) {
        if (accelerations[i] < accelerations[deploy])
            deploy = i;
    }

    CJumpDetection detection;
    detection.ok = true;
    detection.exitTime = exitTime;
    detection.exitIndex = NearestFix(fixes, exitTime);
    detection.deployIndex = deploy;
    detection.deployTime = fixes[deploy].time;
    const std::size_t landing = FindLanding(fixes, heights, speeds, deploy);
    detection.landed = landing < n;
    detection.landingIndex = detection.landed ? landing : n - 1;
    detection.landingTime = fixes[detection.landingIndex].time;
    if (detection.landed) {
        double sum = 0.0;
        std::size_t count = 0;
        for (std::size_t i = landing; i < n && fixes[i].time <= fixes[landing].time + kGroundAverage; ++i, ++count)
            sum += fixes[i].hMSL;
        detection.groundAltitude = sum / static_cast<double>(count);
    } else {
        detection.groundAltitude = fixes.back().hMSL;
    }

    const double exitAltitude = ValueAt(fixes, heights, exitTime);
    const double openAltitude = heights[deploy];
    const double freefall = detection.deployTime - exitTime;
    detection.exitHeight = static_cast<int>(std::lround(exitAltitude - detection.groundAltitude));
    detection.openHeight = static_cast<int>(std::lround(openAltitude - detection.groundAltitude));
    detection.freefallTime = static_cast<int>(std::lround(freefall));
    detection.canopyTime = static_cast<int>(std::lround(detection.landingTime - detection.deployTime));
    detection.vMax = *std::max_element(speeds.begin() + static_cast<std::ptrdiff_t>(crossing),
                                       speeds.begin() + static_cast<std::ptrdiff_t>(deploy) + 1);
    detection.vAvg = freefall > 0.0 ? (exitAltitude - openAltitude) / freefall : 0.0;
    return detection;
}
