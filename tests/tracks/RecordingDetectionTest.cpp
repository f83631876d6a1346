#include "SyntheticTrack.h"
#include "tracks/CRecordingSeries.h"
#include "tracks/CTrackImport.h"
#include "tracks/RecordingDetection.h"

#include <gtest/gtest.h>

namespace {

// A recording stored without its detection (as another program writes it) gives back the exit
// at its own zero and the deployment near the freefall time, from positions and times alone,
// whether it is a satellite recording thinned to 1 Hz or a barometric one.
TEST(RecordingDetection, FindsExitAndDeploymentInAStoredRecording)
{
    CSyntheticTruth truth;
    CTrack track = MakeJumpTrack(CSyntheticJump(), truth);
    WriteSensor(track, track.baro);
    const CJumpDetection detection = DetectJump(track.fixes);
    ASSERT_TRUE(detection.ok);
    for (const CTrackImportOptions options : {CTrackImportOptions{1.0, false}, CTrackImportOptions{0.0, true}})
    {
        SCOPED_TRACE(options.barometric);
        CImportedJump imported;
        std::string message;
        ASSERT_TRUE(BuildImportedJump(track, detection, options, 0, imported, message)) << message;
        CRecordingSeries series(imported.recording);
        MarkJump(series, false, 0);
        ASSERT_TRUE(series.ExitTime() && series.DeploymentTime());
        EXPECT_NEAR(*series.ExitTime(), 0.0, 1.5);
        EXPECT_NEAR(*series.DeploymentTime(), imported.fallrate.freefallTime, 2.0);

        MarkJump(series, true, 61);
        EXPECT_EQ(*series.DeploymentTime(), 61.0);
    }
    // Nothing to find: the marks stay unset.
    CImportedJump ride;
    CRecordingSeries empty(ride.recording);
    MarkJump(empty, false, 0);
    EXPECT_FALSE(empty.ExitTime().has_value());
}

} // namespace
