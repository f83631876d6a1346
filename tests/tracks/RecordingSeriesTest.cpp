#include "tracks/CRecordingSeries.h"

#include "model/CBaroSample.h"
#include "model/CGpsSample.h"
#include "model/CJumpRecording.h"

#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <vector>

namespace {

// A recording of one kind with a sample at each time, its altitude given by a function.
CJumpRecording Recording(int kind, const std::vector<double>& times, const std::function<double(double)>& altitude)
{
    CJumpRecording recording;
    recording.SetKind(kind);
    for (double t : times) {
        if (kind == CJumpRecording::Satellite)
            recording.AddSample(std::make_unique<CGpsSample>(altitude(t), t, 61.78 + t * 1e-5, 22.72 + t * 2e-5));
        else
            recording.AddSample(std::make_unique<CBaroSample>(altitude(t), t));
    }
    return recording;
}

std::vector<double> Times(double from, double to, double step)
{
    std::vector<double> times;
    for (double t = from; t <= to + 1e-9; t += step)
        times.push_back(t);
    return times;
}

// Climb at 8 m/s up to the exit at 4000 m at t = 0, freefall at 55 m/s to 1000 m, then canopy
// at 5 m/s: each straight, with a knee at the exit and at the deployment.
double Jump(double t)
{
    const double deployment = 3000.0 / 55.0;
    if (t < 0)
        return 4000.0 + 8.0 * t;
    if (t < deployment)
        return 4000.0 - 55.0 * t;
    return 1000.0 - 5.0 * (t - deployment);
}

} // namespace

// Away from the knees (further than the fitting window) each straight part gives its own speed
// exactly, downwards positive, at a logger's rate, a sparse barometer's and an uneven one's.
TEST(RecordingSeriesTest, StraightPartsGiveTheirSpeed)
{
    const struct
    {
        const char* name;
        int kind;
        std::vector<double> times;
    } cases[] = {
        {"gps at 5 Hz", CJumpRecording::Satellite, Times(-30, 100, 0.2)},
        {"baro every 2 s", CJumpRecording::Barometric, Times(-30, 100, 2.0)},
        {"baro uneven", CJumpRecording::Barometric, {-30, -27, -26.5, -20, -3, 2, 3, 7, 8.5, 20, 41, 60, 61, 75, 100}},
    };
    const double deployment = 3000.0 / 55.0;
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        const CRecordingSeries series(Recording(c.kind, c.times, Jump));
        ASSERT_EQ(series.Size(), c.times.size());
        for (std::size_t i = 0; i < series.Size(); ++i) {
            const double t = series.Times()[i];
            // The samples the fit at t reaches: within the window or the next on either side.
            const double reach = std::max(CRecordingSeries::kSlopeHalfWindow,
                                          std::max(i > 0 ? t - series.Times()[i - 1] : 0.0,
                                                   i + 1 < series.Size() ? series.Times()[i + 1] - t : 0.0));
            if (std::abs(t) <= reach || std::abs(t - deployment) <= reach)
                continue;
            const double expected = t < 0 ? -8.0 : t < deployment ? 55.0 : 5.0;
            EXPECT_NEAR(series.VerticalSpeeds()[i], expected, 1e-6) << "at t = " << t;
        }
        EXPECT_NEAR(series.SpeedRange().max, 55.0, 1e-6);
    }
}

// A logger's altitude noise of a metre either way does not show as a speed ten times that.
TEST(RecordingSeriesTest, NoiseIsSmoothed)
{
    const CRecordingSeries series(Recording(CJumpRecording::Satellite, Times(2, 50, 0.2),
                                            [](double t) { return Jump(t) + std::sin(t * 37.0) * 1.0; }));
    for (std::size_t i = 5; i + 5 < series.Size(); ++i)
        EXPECT_NEAR(series.VerticalSpeeds()[i], 55.0, 2.0) << "at t = " << series.Times()[i];
}

// Repeated times and times going back give increasing times and finite speeds, 10 m/s down
// wherever there is a fall; a repeated time becomes one sample at its mean altitude.
TEST(RecordingSeriesTest, RepeatedAndBackwardTimes)
{
    const struct
    {
        const char* name;
        std::vector<double> times, altitudes;
        std::size_t size;
        double atOne; // the altitude at t = 1
    } cases[] = {
        {"twice the same", {0, 1, 1, 2, 3}, {100, 90, 92, 80, 70}, 4, 91},
        {"only one moment", {5, 5, 5}, {300, 310, 320}, 1, 310},
        {"one going back", {0, 1, 3, 2, 4}, {100, 90, 70, 80, 60}, 5, 90},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        CJumpRecording recording;
        recording.SetKind(CJumpRecording::Barometric);
        for (std::size_t i = 0; i < c.times.size(); ++i)
            recording.AddSample(std::make_unique<CBaroSample>(c.altitudes[i], c.times[i]));
        const CRecordingSeries series(recording);
        ASSERT_EQ(series.Size(), c.size);
        EXPECT_DOUBLE_EQ(series.At(1.0).altitude, c.atOne);
        for (std::size_t i = 1; i < series.Size(); ++i)
            EXPECT_GT(series.Times()[i], series.Times()[i - 1]);
        for (double speed : series.VerticalSpeeds())
            EXPECT_TRUE(std::isfinite(speed));
        if (series.Size() > 1) {
            EXPECT_NEAR(series.VerticalSpeeds()[series.Size() / 2], 10.0, 1.0);
        }
    }
}

// A satellite recording gives its track in metres from the first sample; a barometric one or a
// satellite one that never had positions gives none.
TEST(RecordingSeriesTest, GroundTrack)
{
    const CRecordingSeries gps(Recording(CJumpRecording::Satellite, Times(0, 100, 1), Jump));
    ASSERT_TRUE(gps.HasGround());
    ASSERT_EQ(gps.Ground().size(), gps.Size());
    // 0.001° north and 0.002° east at 61.78° N.
    EXPECT_DOUBLE_EQ(gps.Ground().front().east, 0.0);
    EXPECT_NEAR(gps.Ground().back().north, 111.195, 1e-3);
    EXPECT_NEAR(gps.Ground().back().east, 105.159, 1e-3);
    EXPECT_NEAR(gps.NorthRange().max, gps.Ground().back().north, 1e-9);

    EXPECT_FALSE(CRecordingSeries(Recording(CJumpRecording::Barometric, Times(0, 100, 1), Jump)).HasGround());
    CJumpRecording unplaced;
    unplaced.SetKind(CJumpRecording::Satellite);
    for (double t : {0.0, 1.0, 2.0})
        unplaced.AddSample(std::make_unique<CGpsSample>(1000.0 - t, t));
    const CRecordingSeries noPositions(unplaced);
    EXPECT_FALSE(noPositions.HasGround());
    EXPECT_EQ(noPositions.Size(), 3u);
}

// The cursor's values: interpolated between samples, clamped to the ends, zero without samples.
TEST(RecordingSeriesTest, ValuesAtATime)
{
    const CRecordingSeries series(Recording(CJumpRecording::Satellite, Times(0, 10, 2), Jump));
    const struct
    {
        double time;
        double expectedTime;
        std::size_t nearest;
    } cases[] = {{2.8, 2.8, 1}, {3.2, 3.2, 2}, {-5.0, 0.0, 0}, {99.0, 10.0, 5}, {NAN, 0.0, 0}};
    for (const auto& c : cases) {
        const CRecordingSeries::Values v = series.At(c.time);
        EXPECT_DOUBLE_EQ(v.time, c.expectedTime);
        EXPECT_NEAR(v.altitude, Jump(c.expectedTime), 1e-9);
        EXPECT_EQ(v.nearest, c.nearest);
        EXPECT_NEAR(v.ground.north, 1.11195 * c.expectedTime, 1e-3); // 1e-5 degrees a second
    }
    const CRecordingSeries empty{CJumpRecording()};
    EXPECT_TRUE(empty.IsEmpty());
    EXPECT_EQ(empty.At(3.0).altitude, 0.0);
}
