#include "cli/generator/CFlightProfileMaker.h"

#include "cli/generator/CGeneratorRandom.h"
#include "cli/generator/CGeneratorVocabulary.h"
#include "model/CBaroSample.h"
#include "model/CGpsSample.h"
#include "model/CJumpRecording.h"

#include <algorithm>
#include <cmath>
#include <memory>

namespace {

constexpr double kGravity = 9.81;
constexpr double kMetresPerDegree = 111320.0;
constexpr double kPi = 3.14159265358979323846;

// ln(cosh(x)) without overflow for large x.
double LogCosh(double x)
{
    const double ax = std::fabs(x);
    return ax + std::log1p(std::exp(-2.0 * ax)) - std::log(2.0);
}

// Rounds to decimals places by dividing by a power of ten, so that the result is the double
// nearest to the decimal text and prints without a tail of nines.
double RoundTo(double value, int decimals)
{
    const double scale = std::pow(10.0, decimals);
    return std::round(value * scale) / scale;
}

} // namespace

double CFlightProfileMaker::FallenDistance(double t, double vt)
{
    return vt * vt / kGravity * LogCosh(kGravity * t / vt);
}

double CFlightProfileMaker::TimeToFall(double distance, double vt)
{
    if (distance <= 0.0 || vt <= 0.0)
        return 0.0;
    // Inverse of FallenDistance: cosh(g t / vt) = exp(d g / vt^2).
    const double y = distance * kGravity / (vt * vt);
    // acosh(exp(y)) = y + ln(1 + sqrt(1 - exp(-2y))), stable for large y.
    return vt / kGravity * (y + std::log1p(std::sqrt(1.0 - std::exp(-2.0 * y))));
}

CFlightProfileMaker::Figures CFlightProfileMaker::Plan(int exitHeight, int openHeight, double terminalSpeed)
{
    Figures figures;
    const double distance = std::max(0, exitHeight - openHeight);
    m_freefallSeconds = TimeToFall(distance, terminalSpeed);
    m_descentRate = m_random.Rounded(4.5, 7.0, 1);
    const double canopySeconds = openHeight / m_descentRate;
    figures.freefallTime = static_cast<int>(std::lround(m_freefallSeconds));
    figures.canopyTime = static_cast<int>(std::lround(canopySeconds));
    figures.maxSpeed = RoundTo(terminalSpeed * std::tanh(kGravity * m_freefallSeconds / terminalSpeed), 1);
    figures.avgSpeed = m_freefallSeconds > 0.0 ? RoundTo(distance / m_freefallSeconds, 1) : 0.0;
    return figures;
}

double CFlightProfileMaker::AltitudeAt(double t, int exitHeight, int openHeight, double terminalSpeed) const
{
    if (t <= m_freefallSeconds)
        return exitHeight - FallenDistance(t, terminalSpeed);
    return std::max(0.0, openHeight - (t - m_freefallSeconds) * m_descentRate);
}

CFlightProfileMaker::Figures CFlightProfileMaker::MakeGps(CJumpRecording& recording, const CDropZoneInfo& zone,
                                                          int exitHeight, int openHeight, double terminalSpeed,
                                                          int samples)
{
    recording.Clear();
    recording.SetKind(CJumpRecording::Satellite);
    recording.SetQne(m_random.Rounded(995.0, 1030.0, 2));
    const Figures figures = Plan(exitHeight, openHeight, terminalSpeed);
    const double total = m_freefallSeconds + openHeight / m_descentRate;

    // The exit point lies upwind of the landing area; the canopy weaves back to it.
    const double heading = m_random.Real(0.0, 2.0 * kPi);
    const double spot = m_random.Real(600.0, 1400.0);
    const double cosLat = std::cos(zone.latitude * kPi / 180.0);
    const double landNorth = m_random.Real(-40.0, 40.0);
    const double landEast = m_random.Real(-40.0, 40.0);
    const double exitNorth = std::cos(heading) * spot;
    const double exitEast = std::sin(heading) * spot;
    for (int i = 0; i < samples; ++i) {
        const double t = samples > 1 ? total * i / (samples - 1) : 0.0;
        const double share = total > 0.0 ? t / total : 0.0;
        const double weave = std::sin(share * 6.0 * kPi) * 120.0 * share * (1.0 - share);
        const double north = exitNorth + (landNorth - exitNorth) * share + weave * std::sin(heading);
        const double east = exitEast + (landEast - exitEast) * share - weave * std::cos(heading);
        const double lat = RoundTo(zone.latitude + north / kMetresPerDegree, 6);
        const double lon = RoundTo(zone.longitude + east / (kMetresPerDegree * cosLat), 6);
        recording.AddSample(std::make_unique<CGpsSample>(
            RoundTo(AltitudeAt(t, exitHeight, openHeight, terminalSpeed), 1), RoundTo(t, 2), lat, lon));
    }

    const auto texts = CGeneratorVocabulary::AnnotationTexts();
    recording.AddAnnotation({static_cast<double>(exitHeight), 0.0, std::string(texts[0])});
    recording.AddAnnotation({static_cast<double>(openHeight), RoundTo(m_freefallSeconds, 2), std::string(texts[1])});
    recording.AddAnnotation({0.0, RoundTo(total, 2), std::string(texts[2])});

    const int baseDirection = m_random.Int(0, 359);
    for (int altitude : {3000, 1500, 300}) {
        const int direction = (baseDirection + m_random.Int(-25, 25) + 360) % 360;
        recording.AddWind({direction, m_random.Rounded(1.0, altitude / 250.0 + 3.0, 1), altitude});
    }
    recording.SetApply(m_random.Chance(0.5));
    return figures;
}

CFlightProfileMaker::Figures CFlightProfileMaker::MakeBarometric(CJumpRecording& recording, int exitHeight,
                                                                 int openHeight, double terminalSpeed, int samples)
{
    recording.Clear();
    recording.SetKind(CJumpRecording::Barometric);
    recording.SetQne(m_random.Rounded(995.0, 1030.0, 2));
    const Figures figures = Plan(exitHeight, openHeight, terminalSpeed);
    const double total = m_freefallSeconds + openHeight / m_descentRate;
    for (int i = 0; i < samples; ++i) {
        const double t = samples > 1 ? total * i / (samples - 1) : 0.0;
        recording.AddSample(std::make_unique<CBaroSample>(
            RoundTo(AltitudeAt(t, exitHeight, openHeight, terminalSpeed), 1), RoundTo(t, 2)));
    }
    return figures;
}
