#include "tracks/RecordingDetection.h"
#include "SyntheticTrack.h"
#include "tracks/CRecordingSeries.h"
#include "tracks/CTrackImport.h"

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
    for (const CTrackImportOptions options : {CTrackImportOptions{1.0, false}, CTrackImportOptions{0.0, true}}) {
        SCOPED_TRACE(options.barometric);
        CImportedJump imported;
        std::string message;
        ASSERT_TRUE(BuildImportedJump(track, detection, options, 0, imported, message)) << message;
        const CJumpDetection found = DetectJumpInSeries(CRecordingSeries(imported.recording));
        ASSERT_TRUE(found.ok) << found.message;
        EXPECT_NEAR(found.exitTime, 0.0, 1.5);
        EXPECT_NEAR(found.deployTime, imported.fallrate.freefallTime, 2.0);
        EXPECT_NEAR(found.exitHeight, imported.fallrate.exitHeight, 30);
    }
    // Nothing to find in an empty recording.
    EXPECT_FALSE(DetectJumpInSeries(CRecordingSeries()).ok);
}

} // namespace
