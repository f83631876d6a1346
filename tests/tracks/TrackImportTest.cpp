#include "SyntheticTrack.h"
#include "model/CGpsSample.h"
#include "model/CJump.h"
#include "tracks/CFlySightReader.h"
#include "tracks/CGpxWriter.h"
#include "tracks/CTrackImport.h"
#include "xml/CXmlParser.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <ctime>

namespace {

struct CImportFixture
{
    CSyntheticTruth truth;
    CTrack track = MakeJumpTrack(CSyntheticJump(), truth);
    CJumpDetection detection = DetectJump(track.fixes);
};

TEST(TrackImport, KeepsTheJumpFromBeforeExitToLandingAtTheAskedRate)
{
    const CImportFixture f;
    ASSERT_TRUE(f.detection.ok);
    const std::vector<CTrackFix>& fixes = f.track.fixes;
    for (double rate : {0.0, 2.0, 1.0, 0.2}) {
        SCOPED_TRACE(rate);
        CImportedJump jump;
        std::string message;
        ASSERT_TRUE(BuildImportedJump(f.track, f.detection, {rate}, 180, jump, message)) << message;
        const CSampleList& samples = jump.recording.GetSamples();
        EXPECT_EQ(jump.recording.GetKind(), CJumpRecording::Satellite);
        const double span = fixes[f.detection.landingIndex].time - (f.detection.exitTime - kImportLeadTime);
        EXPECT_NEAR(samples.size(), span * (rate == 0 ? 5 : rate), 3);
        EXPECT_NEAR(samples[0]->GetTime(), -kImportLeadTime, 0.2);
        std::size_t forced = 0;
        for (std::size_t i = 0; i < samples.size(); ++i) {
            const double t = samples[i]->GetTime();
            if (i > 0 && rate > 0) { // one sample per 1/rate seconds from the exit
                EXPECT_GT(std::floor(t * rate + 1e-6), std::floor(samples[i - 1]->GetTime() * rate + 1e-6));
            }
            for (std::size_t index : {f.detection.exitIndex, f.detection.deployIndex, f.detection.landingIndex}) {
                const CTrackFix& fix = fixes[index];
                if (std::fabs(t - (fix.time - f.detection.exitTime)) > 0.001)
                    continue;
                ++forced;
                EXPECT_NEAR(samples[i]->GetAltitude(), fix.hMSL - f.detection.groundAltitude, 0.006);
                EXPECT_EQ(static_cast<const CGpsSample*>(samples[i].get())->GetLatitude(), fix.lat);
            }
        }
        EXPECT_EQ(forced, 3u);
        EXPECT_LE(std::fabs(fixes[f.detection.exitIndex].time - f.detection.exitTime), 0.1);
        EXPECT_NEAR(samples[samples.size() - 1]->GetAltitude(), 0, 3);
    }
}

TEST(TrackImport, FallrateAndLocalExitTime)
{
    const CImportFixture f;
    CImportedJump jump;
    std::string message;
    ASSERT_TRUE(BuildImportedJump(f.track, f.detection, {}, -330, jump, message)) << message;
    EXPECT_EQ(jump.fallrate,
              (CJumpFallrate{Import, f.detection.exitHeight, f.detection.openHeight, f.detection.freefallTime,
                             f.detection.canopyTime, f.detection.vMax, f.detection.vAvg}));
    // The synthetic jump starts 2024-04-20T04:00:00Z; at -05:30 that is the evening before.
    const double midnight = 1713585600.0 - 4 * 3600;
    const double local = f.detection.exitTime - 5.5 * 3600 - midnight + 24 * 3600;
    const CDateTime& t = jump.exitTime.dateTime;
    EXPECT_EQ(jump.exitTime.offsetMinutes, -330);
    EXPECT_EQ(t.Day(), 19);
    EXPECT_NEAR(t.Hour() * 3600 + t.Minute() * 60 + t.Second() + t.Millisecond() / 1000.0, local, 0.0011);
}

TEST(TrackImport, BarometricRecordingIsZeroedAtTheLanding)
{
    CImportFixture f;
    CImportedJump jump;
    std::string message;
    EXPECT_FALSE(BuildImportedJump(f.track, f.detection, {0, true}, 0, jump, message));
    EXPECT_EQ(message, "The track has no barometer readings.");
    std::vector<CBaroReading> expected;
    ASSERT_TRUE(CFlySightReader::ReadSensorText(WriteSensor(f.track, expected), f.track.baro, message));
    ASSERT_TRUE(BuildImportedJump(f.track, f.detection, {1, true}, 0, jump, message)) << message;
    const CSampleList& samples = jump.recording.GetSamples();
    EXPECT_EQ(jump.recording.GetKind(), CJumpRecording::Barometric);
    EXPECT_NEAR(samples[samples.size() - 1]->GetAltitude(), 0, 0.01);
    for (const auto& sample : samples) {
        if (std::fabs(sample->GetTime()) < 0.06) {
            EXPECT_NEAR(sample->GetAltitude(), f.detection.exitHeight, 10);
        }
    }
}

TEST(TrackImport, LocalOffsetFollowsTheZoneRulesOfTheInstant)
{
    const char* saved = std::getenv("TZ");
    const std::string previous = saved ? saved : "";
    setenv("TZ", "EET-2EEST,M3.5.0/3,M10.5.0/4", 1);
    tzset();
    EXPECT_EQ(LocalUtcOffsetMinutes(1713585600.0), 180); // April: summer time
    EXPECT_EQ(LocalUtcOffsetMinutes(1705300000.0), 120); // January
    saved ? setenv("TZ", previous.c_str(), 1) : unsetenv("TZ");
    tzset();
}

// Collects the names, latitudes and times of a GPX text.
struct CGpxPoints : CXmlHandler
{
    std::vector<std::string> lat, times;
    std::string name, desc;
    bool OnOpenTag(CXmlParser& parser) override
    {
        if (parser.GetElementName() == "trkpt")
            parser.GetAttribute("lat", lat.emplace_back());
        return true;
    }
    bool OnCloseTag(CXmlParser& parser) override
    {
        if (parser.GetElementName() == "time")
            times.push_back(parser.GetElementText());
        else if (parser.GetElementName() == "name")
            name = parser.GetElementText();
        else if (parser.GetElementName() == "desc")
            desc = parser.GetElementText();
        return true;
    }
};

TEST(GpxWriter, WritesEachSampleAtTheJumpsUtcTime)
{
    const struct
    {
        const char* name;
        CZonedDateTime ts;
        double t;
        const char* utc;
    } cases[] = {
        {"east of UTC", {CDateTime(2024, 4, 20, 7, 20, 0, 250), 180}, -1.5, "2024-04-20T04:19:58.750Z"},
        {"west of UTC", {CDateTime(2024, 4, 20, 7, 20, 0), -330}, 2.25, "2024-04-20T12:50:02.250Z"},
        {"over midnight", {CDateTime(2024, 1, 1, 1, 0, 0), 120}, -3600.5, "2023-12-31T21:59:59.500Z"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        CJump jump(42, c.ts, CDateTime());
        jump.SetPlace("R\xC3\xA4ysk\xC3\xA4l\xC3\xA4 & <Utti>");
        jump.Recording().SetKind(CJumpRecording::Satellite);
        jump.Recording().AddSample(std::make_unique<CGpsSample>(3012.3, c.t, 61.1234567, 24.5));
        jump.Recording().AddSample(std::make_unique<CGpsSample>(0.0, c.t + 0.2, 61.12346, 24.5));
        std::string gpx, message;
        ASSERT_TRUE(CGpxWriter::Write(jump, gpx, message)) << message;
        EXPECT_NE(gpx.find("<ele>3012.3</ele>"), std::string::npos);
        EXPECT_NE(gpx.find("creator=\"Tervola Pocket\""), std::string::npos);
        CGpxPoints points;
        CXmlParser parser(&points);
        ASSERT_TRUE(parser.ParseString(gpx)) << parser.GetErrorMessage();
        EXPECT_EQ(points.name, "Jump 42");
        EXPECT_NE(points.desc.find("& <Utti>"), std::string::npos);
        EXPECT_EQ(points.lat, (std::vector<std::string>{"61.1234567", "61.12346"}));
        ASSERT_EQ(points.times.size(), 2u);
        EXPECT_EQ(points.times[0], c.utc);
    }
    CJump none(7, cases[0].ts, CDateTime());
    std::string gpx, message;
    EXPECT_FALSE(CGpxWriter::Write(none, gpx, message));
    EXPECT_EQ(message, "Jump 7 has no satellite recording.");
    none.Recording().SetKind(CJumpRecording::Satellite);
    none.Recording().AddSample(std::make_unique<CGpsSample>(1.0, 0.0, 61.0, 24.0));
    none.SetTimestamp(CZonedDateTime());
    EXPECT_FALSE(CGpxWriter::Write(none, gpx, message));
    EXPECT_EQ(message, "Jump 7 has no valid date and time.");
}

} // namespace
