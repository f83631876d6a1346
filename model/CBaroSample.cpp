#include "model/CBaroSample.h"

#include "xml/CXmlWriter.h"
#include "xml/XmlValues.h"

std::unique_ptr<CJumpSample> CBaroSample::Clone() const
{
    return std::make_unique<CBaroSample>(*this);
}

void CBaroSample::Write(CXmlWriter& writer) const
{
    // "a" and "t" are always written, also when zero.
    writer.WriteElement("wpt", "", "a", XmlDoubleToString(GetAltitude(), true), "t",
                        XmlDoubleToString(GetTime(), true));
}
