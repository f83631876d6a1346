#include "model/CGpsSample.h"

#include "xml/CXmlWriter.h"
#include "xml/XmlValues.h"

std::unique_ptr<CJumpSample> CGpsSample::Clone() const
{
    return std::make_unique<CGpsSample>(*this);
}

void CGpsSample::Write(CXmlWriter& writer) const
{
    writer.StartElement("wpt", {{"a", XmlDoubleToString(GetAltitude(), true)},
                                {"t", XmlDoubleToString(GetTime(), true)}});
    writer.WriteElement("lat", XmlDoubleToString(m_latitude, false));
    writer.WriteElement("lon", XmlDoubleToString(m_longitude, false));
    writer.EndElement();
}

bool CGpsSample::Equals(const CJumpSample& other) const
{
    if (!CJumpSample::Equals(other))
        return false;
    const auto& gps = static_cast<const CGpsSample&>(other);
    return m_latitude == gps.m_latitude && m_longitude == gps.m_longitude;
}
