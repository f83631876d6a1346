#pragma once

#include <memory>

class CXmlWriter;

// One waypoint of a flight recording. Each sample type writes its own "wpt" element, chosen by
// the sample's own type and not by the recording's kind.
class CJumpSample
{
public:
    CJumpSample(double altitude, double time) : m_altitude(altitude), m_time(time) {}
    virtual ~CJumpSample() = default;

    // A deep copy of the same type.
    virtual std::unique_ptr<CJumpSample> Clone() const = 0;
    // Constructs a copy of the same type in storage of CSampleList::kSlotSize bytes, aligned for
    // doubles, and returns it; the storage's owner destroys it.
    virtual CJumpSample* CopyTo(void* storage) const = 0;
    // Writes the "wpt" element of this sample.
    virtual void Write(CXmlWriter& writer) const = 0;
    // True when other has the same type and values.
    virtual bool Equals(const CJumpSample& other) const;

    double GetAltitude() const { return m_altitude; }
    double GetTime() const { return m_time; }
    void SetAltitude(double altitude) { m_altitude = altitude; }
    void SetTime(double time) { m_time = time; }

protected:
    CJumpSample(const CJumpSample&) = default;
    CJumpSample& operator=(const CJumpSample&) = default;

private:
    double m_altitude;
    double m_time;
};
