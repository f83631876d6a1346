#include "SyntheticTrack.h"
#include "tests/common/EnglishText.h"
#include "tracks/CJumpDetector.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

namespace {

// Tolerances: exit ±10 m and ±0.5 s, opening ±40 m (the sharpest slowing of the one-second
// average comes about 0.4 s after the canopy takes the load), freefall time in whole seconds
// ±1.5 s, landing ±3 s, ground ±3 m.
TEST(JumpDetector, FindsExitOpeningAndLandingOfSyntheticJumps)
{
    const struct
    {
        const char* name;
        CSyntheticJump jump;
        bool landed;
    } cases[] = {
        {"4000 m, no noise", {.noise = 0}, true},
        {"4000 m, seed 1", {}, true},
        {"4000 m, seed 2", {.seed = 2}, true},
        {"4000 m, seed 3, double noise", {.noise = 2, .seed = 3}, true},
        {"4000 m, 10 Hz", {.rateHz = 10, .seed = 4}, true},
        {"4000 m, 1 Hz", {.rateHz = 1, .seed = 5}, true},
        {"hop-and-pop 1200 m, 4 s", {.exitHeight = 1200, .pullAfter = 3, .seed = 7}, true},
        {"ends under canopy", {.endAfterLoad = 30, .seed = 8}, false},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        CSyntheticTruth truth;
        const CTrack track = MakeJumpTrack(c.jump, truth);
        const CJumpDetection d = DetectJump(track.fixes);
        ASSERT_TRUE(d.ok) << EnglishText(d.reason);
        EXPECT_EQ(d.landed, c.landed);
        // Heights are above the landing point, or above the last fix of a track ending in the air.
        const double ground = c.landed ? c.jump.ground : track.fixes.back().hMSL;
        EXPECT_NEAR(d.exitHeight, truth.exitHeight + c.jump.ground - ground, 10);
        EXPECT_NEAR(d.openHeight, truth.openHeight + c.jump.ground - ground, 40);
        EXPECT_NEAR(d.freefallTime, truth.loadTime - truth.exitTime, 1.5);
        EXPECT_NEAR(d.exitTime, truth.exitTime, 0.5);
        EXPECT_NEAR(d.groundAltitude, ground, 3);
        EXPECT_LE(std::fabs(track.fixes[d.exitIndex].time - d.exitTime), 0.5 / c.jump.rateHz + 1e-6);
        EXPECT_NEAR(d.vAvg * (d.deployTime - d.exitTime), d.exitHeight - d.openHeight, 1.0);
        if (c.landed) {
            EXPECT_NEAR(d.landingTime, truth.landingTime, 3.0);
            EXPECT_NEAR(d.canopyTime, truth.landingTime - truth.loadTime, 3.0);
        } else {
            EXPECT_EQ(d.landingIndex, track.fixes.size() - 1);
            EXPECT_NEAR(d.canopyTime, 30, 1);
        }
        if (c.jump.pullAfter == 0) {
            EXPECT_NEAR(d.vMax, 55, 2);
        }
    }
}

TEST(JumpDetector, TracksWithoutACompleteJump)
{
    CSyntheticTruth truth;
    const CTrack jump = MakeJumpTrack(CSyntheticJump(), truth);
    const auto until = [&](double time) {
        const auto end = std::find_if(jump.fixes.begin(), jump.fixes.end(), [&](auto& f) { return f.time > time; });
        return std::vector<CTrackFix>(jump.fixes.begin(), end);
    };
    // A rise through the exit speed is only an exit on fixes whose speed is known within 1 m/s.
    std::vector<CTrackFix> unsure = jump.fixes;
    for (CTrackFix& fix : unsure)
        if (std::fabs(fix.time - truth.exitTime) < 2)
            fix.sAcc = 1.5;
    const struct
    {
        const char* name;
        std::vector<CTrackFix> fixes;
        const char* says;
    } cases[] = {
        {"no fixes", {}, "No freefall found in the track."},
        {"car ride and walk", MakeCarRide(3).fixes, "No freefall found in the track."},
        {"climb only", until(truth.exitTime - 5), "No freefall found in the track."},
        {"ends in freefall", until(truth.exitTime + 20), "ends in freefall"},
        {"speed unsure at the exit", unsure, "No freefall found in the track."},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        const CJumpDetection d = DetectJump(c.fixes);
        EXPECT_FALSE(d.ok);
        EXPECT_NE(EnglishText(d.reason).find(c.says), std::string::npos) << EnglishText(d.reason);
    }
}

} // namespace
