#include "SyntheticTrack.h"
#include "model/CGpsSample.h"
#include "model/CJump.h"
#include "resources/StringTable.h"
#include "tracks/CRecordingSeries.h"
#include "tracks/CTrackImport.h"
#include "tracks/RecordingDetection.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <ctime>

namespace {

// A recording stored without its detection (as another program writes it) gives back the exit
// at its own zero and the deployment near the freefall time, from positions and times alone.
void ExpectFoundAgain(const CImportedJump& jump)
{
    const CJumpDetection found = DetectJumpInSeries(CRecordingSeries(jump.recording));
    ASSERT_TRUE(found.ok) << found.reason.id;
    EXPECT_NEAR(found.exitTime, 0.0, 1.5);
    EXPECT_NEAR(found.deployTime, jump.fallrate.freefallTime, 2.0);
    EXPECT_NEAR(found.exitHeight, jump.fallrate.exitHeight, 30);
}

TEST(TrackImport, KeepsTheJumpFromBeforeExitToLandingAtTheAskedRate)
{
    CSyntheticTruth truth;
    const CTrack track = MakeJumpTrack(CSyntheticJump(), truth);
    const std::vector<CTrackFix>& fixes = track.fixes;
    const CJumpDetection d = DetectJump(fixes);
    ASSERT_TRUE(d.ok);
    // The synthetic jump starts 2024-04-20T04:00:00Z; at -05:30 that is the evening before.
    const double local = d.exitTime - 5.5 * 3600 - (1713585600.0 - 4 * 3600) + 24 * 3600;
    for (double rate : {0.0, 2.0, 1.0, 0.2}) {
        SCOPED_TRACE(rate);
        CImportedJump jump;
        CTrackMessage reason;
        ASSERT_TRUE(BuildImportedJump(track, d, {rate}, -330, jump, reason)) << reason.id;
        const CSampleList& samples = jump.recording.GetSamples();
        EXPECT_EQ(jump.recording.GetKind(), CJumpRecording::Satellite);
        const double span = fixes[d.landingIndex].time - (d.exitTime - kImportLeadTime);
        EXPECT_NEAR(samples.size(), span * (rate == 0 ? 5 : rate), 3);
        EXPECT_NEAR(samples[0]->GetTime(), -kImportLeadTime, 0.2);
        std::size_t forced = 0;
        for (std::size_t i = 0; i < samples.size(); ++i) {
            const double t = samples[i]->GetTime();
            if (i > 0 && rate > 0) { // one sample per 1/rate seconds from the exit
                EXPECT_GT(std::floor(t * rate + 1e-6), std::floor(samples[i - 1]->GetTime() * rate + 1e-6));
            }
            for (std::size_t index : {d.exitIndex, d.deployIndex, d.landingIndex}) {
                const CTrackFix& fix = fixes[index];
                if (std::fabs(t - (fix.time - d.exitTime)) > 0.001)
                    continue;
                ++forced;
                EXPECT_NEAR(samples[i]->GetAltitude(), fix.hMSL - d.groundAltitude, 0.006);
                EXPECT_EQ(static_cast<const CGpsSample*>(samples[i].get())->GetLatitude(), fix.lat);
            }
        }
        EXPECT_EQ(forced, 3u);
        EXPECT_NEAR(samples[samples.size() - 1]->GetAltitude(), 0, 3);
        EXPECT_EQ(jump.fallrate, (CJumpFallrate{FallrateKind::Import, d.exitHeight, d.openHeight, d.freefallTime,
                                                d.canopyTime, d.vMax, d.vAvg}));
        const CDateTime& t = jump.exitTime.dateTime;
        EXPECT_EQ(jump.exitTime.offsetMinutes, -330);
        EXPECT_EQ(t.Day(), 19);
        EXPECT_NEAR(t.Hour() * 3600 + t.Minute() * 60 + t.Second() + t.Millisecond() / 1000.0, local, 0.0011);
        if (rate == 1.0)
            ExpectFoundAgain(jump); // a satellite recording thinned to 1 Hz
    }
    EXPECT_LE(std::fabs(fixes[d.exitIndex].time - d.exitTime), 0.1);
    EXPECT_FALSE(DetectJumpInSeries(CRecordingSeries()).ok);
}

TEST(TrackImport, BarometricRecordingIsZeroedAtTheLanding)
{
    CSyntheticTruth truth;
    CTrack track = MakeJumpTrack(CSyntheticJump(), truth);
    const CJumpDetection d = DetectJump(track.fixes);
    CImportedJump jump;
    CTrackMessage reason;
    EXPECT_FALSE(BuildImportedJump(track, d, {0, true}, 0, jump, reason));
    EXPECT_EQ(reason, CTrackMessage(StringTable::IDS_TRACK_NO_BARO));
    WriteSensor(track, track.baro);
    ASSERT_TRUE(BuildImportedJump(track, d, {1, true}, 0, jump, reason)) << reason.id;
    const CSampleList& samples = jump.recording.GetSamples();
    EXPECT_EQ(jump.recording.GetKind(), CJumpRecording::Barometric);
    EXPECT_NEAR(samples[samples.size() - 1]->GetAltitude(), 0, 0.01);
    ExpectFoundAgain(jump); // which also finds the exit height of the satellite fixes
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

} // namespace
