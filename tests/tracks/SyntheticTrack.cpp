#include "SyntheticTrack.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <ctime>

namespace {

constexpr double kStart = 1713585600.0; // 2024-04-20T04:00:00Z
constexpr double kStep = 0.01;          // integration step, s
constexpr double kMetresPerDegree = 111195.0;

// xorshift32 with Box-Muller: the same noise on every machine.
struct CNoise
{
    std::uint32_t state;
    double Uniform()
    {
        state ^= state << 13;
        state ^= state >> 17;
        state ^= state << 5;
        return (state + 0.5) / 4294967296.0;
    }
    double Gauss(double sigma)
    {
        return sigma * std::sqrt(-2.0 * std::log(Uniform())) * std::cos(6.283185307 * Uniform());
    }
};

// Moves the state one step and samples it when a sampling time has come.
struct CSim
{
    CSim(const CSyntheticJump& jump) : p(jump), noise{jump.seed * 2654435761u + 1u}, h(jump.ground) {}
    const CSyntheticJump& p;
    CNoise noise;
    CTrack track;
    double t = kStart, h, north = 0, east = 0, vN = 0, vE = 0, vD = 0, nextSample = kStart;
    void Step(double aD, double heading, double horizontal, double tau)
    {
        vD += aD * kStep;
        vN += (horizontal * std::cos(heading) - vN) * kStep / tau;
        vE += (horizontal * std::sin(heading) - vE) * kStep / tau;
        h -= vD * kStep;
        north += vN * kStep;
        east += vE * kStep;
        t += kStep;
        if (t + 1e-9 < nextSample)
            return;
        nextSample += 1.0 / p.rateHz;
        const double n = p.noise;
        CTrackFix fix;
        fix.time = std::round(t * 1000.0) / 1000.0;
        fix.lat = 61.5 + (north + noise.Gauss(1.5 * n)) / kMetresPerDegree;
        fix.lon = 24.0 + (east + noise.Gauss(1.5 * n)) / (kMetresPerDegree * std::cos(61.5 * 3.14159265 / 180));
        fix.hMSL = h + noise.Gauss(2.0 * n);
        fix.velN = vN + noise.Gauss(0.3 * n);
        fix.velE = vE + noise.Gauss(0.3 * n);
        fix.velD = vD + noise.Gauss(0.3 * n);
        fix.hAcc = 2.5;
        fix.vAcc = 4.0;
        fix.sAcc = 0.35 + 0.1 * noise.Uniform();
        fix.numSV = 14;
        track.fixes.push_back(fix);
    }
};

} // namespace

CTrack MakeJumpTrack(const CSyntheticJump& jump, CSyntheticTruth& truth)
{
    CSim s(jump);
    const double g = 9.81, vt = 55.0;
    while (s.t < kStart + 60.0) // on the ground
        s.Step(0, 0, 0, 1);
    while (s.h < jump.ground + jump.exitHeight) // climb at 5 m/s
        s.Step((-5.0 - s.vD) / 2.0, 0.3, 35, 3);
    for (double end = s.t + 20.0; s.t < end;) // level run-in
        s.Step(-s.vD / 0.5, 0.3, 40, 2);
    truth.exitTime = s.t;
    truth.exitHeight = s.h - jump.ground;
    const double pull = jump.pullAfter > 0 ? s.t + jump.pullAfter : 1e18;
    while (s.t < pull && s.h > jump.ground + jump.pullHeight)
        s.Step(g * (1 - s.vD * std::fabs(s.vD) / (vt * vt)), 0.3, 0, 3);
    for (double end = s.t + 1.0; s.t < end;) // pilot chute and bag: still falling
        s.Step(g * (1 - s.vD * std::fabs(s.vD) / (vt * vt)), 0.3, 0, 3);
    truth.loadTime = s.t;
    truth.openHeight = s.h - jump.ground;
    const double stop = jump.endAfterLoad >= 0 ? s.t + jump.endAfterLoad : 1e18;
    while (s.t < stop && s.h > jump.ground + 6.0) // canopy: 5 m/s down, 10 m/s across, turning
        s.Step((5.0 - s.vD) / 1.0, 0.3 + (s.t - truth.loadTime) / 40.0, 10, 1);
    const double flareHeading = std::atan2(s.vE, s.vN);
    while (s.t < stop && s.h > jump.ground) // flare
        s.Step((1.0 - s.vD) / 0.6, flareHeading, 3, 1);
    if (s.t >= stop)
        return std::move(s.track);
    truth.landingTime = s.t;
    s.h = jump.ground;
    s.vD = 0;
    for (double end = s.t + 60.0; s.t < end;) // walk off
        s.Step(0, flareHeading, 1.2, 0.8);
    return std::move(s.track);
}

CTrack MakeCarRide(std::uint32_t seed)
{
    CSyntheticJump flat;
    flat.seed = seed;
    CSim s(flat);
    while (s.t < kStart + 1200.0) {
        const double hill = 40.0 * std::sin((s.t - kStart) / 45.0);
        s.Step(-(flat.ground + hill - s.h) / 5.0 - s.vD, (s.t - kStart) / 300.0, 20, 5);
    }
    while (s.t < kStart + 1500.0)
        s.Step(-s.vD, 2.0, 1.3, 1);
    return std::move(s.track);
}

namespace {

// "2024-04-20T04:20:00.00Z" of UTC seconds with 2 or 3 decimals.
std::string TimeText(double t, int decimals)
{
    const long long scale = decimals == 2 ? 100 : 1000;
    const long long units = std::llround(t * scale);
    const std::time_t seconds = units / scale;
    std::tm utc{};
    gmtime_r(&seconds, &utc);
    char text[40];
    const std::size_t size = std::strftime(text, sizeof text, "%Y-%m-%dT%H:%M:%S", &utc);
    std::snprintf(text + size, sizeof text - size, ".%0*lldZ", decimals, units % scale);
    return text;
}

std::string Value(const CTrackFix& f, const std::string& column, int decimals)
{
    const struct
    {
        const char* name;
        double CTrackFix::*member;
        int digits;
    } numbers[] = {{"lat", &CTrackFix::lat, 7},   {"lon", &CTrackFix::lon, 7},   {"hMSL", &CTrackFix::hMSL, 3},
                   {"velN", &CTrackFix::velN, 2}, {"velE", &CTrackFix::velE, 2}, {"velD", &CTrackFix::velD, 2},
                   {"hAcc", &CTrackFix::hAcc, 3}, {"vAcc", &CTrackFix::vAcc, 3}, {"sAcc", &CTrackFix::sAcc, 2}};
    if (column == "time")
        return TimeText(f.time, decimals);
    if (column == "gpsFix")
        return f.numSV < 4 ? "2" : "3";
    if (column == "numSV")
        return std::to_string(f.numSV);
    double value = std::fmod(f.time, 7.0); // heading, cAcc, debug columns
    int digits = 5;
    for (const auto& number : numbers) {
        if (column == number.name) {
            value = f.*number.member;
            digits = number.digits;
        }
    }
    char text[40];
    std::snprintf(text, sizeof text, "%.*f", digits, value);
    return text;
}

} // namespace

std::vector<std::string> FlySight1Columns()
{
    return {"time", "lat",  "lon",  "hMSL",    "velN", "velE",   "velD",
            "hAcc", "vAcc", "sAcc", "heading", "cAcc", "gpsFix", "numSV"};
}

std::string WriteFlySight1(const CTrack& track, const std::vector<std::string>& columns, const char* lineEnd)
{
    std::string header, units;
    for (const std::string& c : columns) {
        header += (header.empty() ? "" : ",") + c;
        const bool unitless = c == "time" || c == "gpsFix" || c == "numSV";
        units += (&c == &columns.front() ? "" : ",") + std::string(unitless ? "" : "(m)");
    }
    std::string text = header + lineEnd + units + lineEnd;
    for (const CTrackFix& f : track.fixes) {
        for (const std::string& c : columns)
            text += (&c == &columns.front() ? "" : ",") + Value(f, c, 2);
        text += lineEnd;
    }
    return text;
}

std::string WriteFlySight2(const CTrack& track)
{
    const char* names[] = {"time", "lat", "lon", "hMSL", "velN", "velE", "velD", "hAcc", "vAcc", "sAcc", "numSV"};
    std::string text = "$FLYS,1\n$VAR,FIRMWARE_VER,v2023.09.22\n$VAR,DEVICE_ID,003e0038484e501420353131\n"
                       "$VAR,SESSION_ID,c8a3d2e1f0b4a5968778695a\n$COL,GNSS,time,lat,lon,hMSL,velN,velE,velD,hAcc,"
                       "vAcc,sAcc,numSV\n$UNIT,GNSS,,deg,deg,m,m/s,m/s,m/s,m,m,m/s,\n$DATA\n";
    for (const CTrackFix& f : track.fixes) {
        text += "$GNSS";
        for (const char* c : names)
            text += "," + Value(f, c, 3);
        text += "\r\n";
    }
    return text;
}

std::string WriteSensor(const CTrack& track, std::vector<CBaroReading>& expected)
{
    const double boot = track.fixes.front().time - 37.25, rate = 1.00002, gpsEpoch = 315964800.0;
    std::string text = "$FLYS,1\n$COL,BARO,time,pressure,temperature\n$COL,IMU,time,wx,wy,wz,ax,ay,az,temperature\n"
                       "$COL,TIME,time,tow,week\n$DATA\n";
    char row[120];
    std::size_t i = 0;
    for (long long k = 0; std::ceil(boot) + k / 10.0 < track.fixes.back().time; ++k) {
        const double utc = std::ceil(boot) + k / 10.0;
        while (i + 1 < track.fixes.size() && track.fixes[i + 1].time <= utc)
            ++i;
        const double gps = utc + 18.0 - gpsEpoch, device = (utc - boot) * rate;
        if (k % 10 == 0) {
            std::snprintf(row, sizeof row, "$TIME,%.3f,%.3f,%d\r\n", device, std::fmod(gps, 604800.0),
                          static_cast<int>(gps / 604800.0));
            text += row;
        }
        const double pascal =
            std::round(101325.0 * std::pow(1.0 - track.fixes[i].hMSL / 44330.77, 1.0 / 0.190263) * 100) / 100;
        std::snprintf(row, sizeof row, "$BARO,%.3f,%.2f,21.50\r\n$IMU,%.3f,0.1,0.2,0.3,0.0,0.0,1.0,22.0\r\n", device,
                      pascal, device);
        text += row;
        expected.push_back({utc, pascal, 44330.77 * (1.0 - std::pow(pascal / 101325.0, 0.190263))});
    }
    return text;
}
