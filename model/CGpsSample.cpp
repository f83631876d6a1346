#include "model/CGpsSample.h"

#include "model/CSampleList.h"
#include "xml/CXmlWriter.h"
#include "xml/XmlValues.h"

#include <new>

static_assert(sizeof(CGpsSample) <= CSampleList::kSlotSize, "a satellite sample must fit a list slot");

std::unique_ptr<CJumpSample> CGpsSample::Clone() const
{
    return std::make_unique<CGpsSample>(*this);
}

CJumpSample* CGpsSample::CopyTo(void* storage) const
{
    return ::new (storage) CGpsSample(*this);
}

void CGpsSample::Write(CXmlWriter& writer) const
{
    // Recordings hold thousands of samples: the numbers are formatted on the stack.
    char altitude[kXmlDoubleChars];
    char time[kXmlDoubleChars];
    char number[kXmlDoubleChars];
    writer.StartElement(
        "wpt", {{"a", XmlFormatDouble(GetAltitude(), true, altitude)}, {"t", XmlFormatDouble(GetTime(), true, time)}});
    writer.WriteElement("lat", XmlFormatDouble(m_latitude, false, number));
    writer.WriteElement("lon", XmlFormatDouble(m_longitude, false, number));
    writer.EndElement();
}

bool CGpsSample::Equals(const CJumpSample& other) const
{
    if (!CJumpSample::Equals(other))
        return false;
    const auto& gps = static_cast<const CGpsSample&>(other);
    return m_latitude == gps.m_latitude && m_longitude == gps.m_longitude;
}
