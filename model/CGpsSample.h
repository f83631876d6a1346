#pragma once

#include "model/CJumpSample.h"

// A sample of a satellite recording: altitude and time plus latitude and longitude.
class CGpsSample final : public CJumpSample
{
public:
    CGpsSample(double altitude, double time, double latitude = 0.0, double longitude = 0.0)
        : CJumpSample(altitude, time), m_latitude(latitude), m_longitude(longitude)
    {
    }

    std::unique_ptr<CJumpSample> Clone() const override;
    CJumpSample* CopyTo(void* storage) const override;
    // A "wpt" element with the attributes "a" and "t" and the children "lat" and "lon".
    void Write(CXmlWriter& writer) const override;
    bool Equals(const CJumpSample& other) const override;

    double GetLatitude() const { return m_latitude; }
    double GetLongitude() const { return m_longitude; }
    void SetLatitude(double latitude) { m_latitude = latitude; }
    void SetLongitude(double longitude) { m_longitude = longitude; }

private:
    double m_latitude;
    double m_longitude;
};
