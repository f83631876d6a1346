#include "model/CBaroSample.h"

#include "model/CSampleList.h"
#include "xml/CXmlWriter.h"
#include "xml/XmlValues.h"

#include <new>

static_assert(sizeof(CBaroSample) <= CSampleList::kSlotSize, "a barometric sample must fit a list slot");

std::unique_ptr<CJumpSample> CBaroSample::Clone() const
{
    return std::make_unique<CBaroSample>(*this);
}

CJumpSample* CBaroSample::CopyTo(void* storage) const
{
    return ::new (storage) CBaroSample(*this);
}

void CBaroSample::Write(CXmlWriter& writer) const
{
    // "a" and "t" are always written, also when zero; formatted on the stack.
    char altitude[kXmlDoubleChars];
    char time[kXmlDoubleChars];
    writer.WriteElement("wpt", "", "a", XmlFormatDouble(GetAltitude(), true, altitude), "t",
                        XmlFormatDouble(GetTime(), true, time));
}
