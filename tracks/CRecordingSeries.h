#pragma once

#include "model/CRecordingWind.h"

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

class CJumpRecording;

// What a drawing of a flight recording needs, worked out once from the recording: the samples
// in time order with altitude and vertical speed, the ground track in metres, the ranges of
// each, the annotations and winds, and the exit and deployment times when they are known.
//
// Recordings hold only positions and times, so the vertical speed is derived: at each sample it
// is the slope of a straight line fitted by least squares to the altitudes within one second
// before and after the sample (at least its neighbour on either side, so that sparse barometric
// samples still give a slope). A fitted line over two seconds keeps the noise of a single
// altitude from showing as a spike, yet follows the change from climb to freefall and from
// freefall to canopy within about a second. Samples are taken in time order; samples that share
// a time are merged into one with their mean values, so no slope divides by a zero time step.
class CRecordingSeries
{
public:
    // A closed range of values; Span() is zero for a single value.
    struct Range
    {
        double min = 0.0;
        double max = 0.0;
        double Span() const { return max - min; }
    };

    // A point of the ground track: metres east and north of the first satellite sample.
    struct GroundPoint
    {
        double east = 0.0;
        double north = 0.0;
    };

    // The recording at one moment, interpolated between the samples around it.
    struct Values
    {
        double time = 0.0;
        // Metres.
        double altitude = 0.0;
        // Metres per second, positive downwards.
        double verticalSpeed = 0.0;
        // Meaningful only when the series has a ground track.
        GroundPoint ground;
        // The sample nearest in time.
        std::size_t nearest = 0;
    };

    // A text placed on the recording.
    struct Annotation
    {
        double time = 0.0;
        double altitude = 0.0;
        std::string text;
    };

    // Half the width of the window the vertical speed is fitted over, in seconds.
    static constexpr double kSlopeHalfWindow = 1.0;
    // The earth's mean radius, for the local flat projection of the ground track.
    static constexpr double kEarthRadius = 6371008.8;

    // An empty series.
    CRecordingSeries() = default;
    // The series of a recording of either kind.
    explicit CRecordingSeries(const CJumpRecording& recording);

    // True when no sample could be used.
    bool IsEmpty() const { return m_times.empty(); }
    // True for a satellite recording.
    bool IsSatellite() const { return m_satellite; }
    std::size_t Size() const { return m_times.size(); }

    // Seconds as recorded, increasing.
    const std::vector<double>& Times() const { return m_times; }
    // Metres, one per time.
    const std::vector<double>& Altitudes() const { return m_altitudes; }
    // Metres per second, positive downwards, one per time.
    const std::vector<double>& VerticalSpeeds() const { return m_speeds; }
    // One point per time for a satellite recording with positions; empty otherwise.
    const std::vector<GroundPoint>& Ground() const { return m_ground; }
    bool HasGround() const { return !m_ground.empty(); }

    Range TimeRange() const { return m_timeRange; }
    Range AltitudeRange() const { return m_altitudeRange; }
    Range SpeedRange() const { return m_speedRange; }
    Range EastRange() const { return m_eastRange; }
    Range NorthRange() const { return m_northRange; }

    // The recording's annotations in time order, and its winds from the lowest up.
    const std::vector<Annotation>& Annotations() const { return m_annotations; }
    const std::vector<CRecordingWind>& Winds() const { return m_winds; }

    // The exit and the deployment, in the recording's seconds, when the caller knows them.
    std::optional<double> ExitTime() const { return m_exit; }
    void SetExitTime(std::optional<double> time) { m_exit = time; }
    std::optional<double> DeploymentTime() const { return m_deployment; }
    void SetDeploymentTime(std::optional<double> time) { m_deployment = time; }

    // The values at a time, clamped to the recording's range; all zero for an empty series.
    Values At(double time) const;

private:
    void TakeSamples(const CJumpRecording& recording);
    void ComputeSpeeds();
    void ComputeRanges();

    bool m_satellite = false;
    std::vector<double> m_times;
    std::vector<double> m_altitudes;
    std::vector<double> m_speeds;
    std::vector<GroundPoint> m_ground;
    Range m_timeRange, m_altitudeRange, m_speedRange, m_eastRange, m_northRange;
    std::vector<Annotation> m_annotations;
    std::vector<CRecordingWind> m_winds;
    std::optional<double> m_exit;
    std::optional<double> m_deployment;
};
