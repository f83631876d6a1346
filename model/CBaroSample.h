#pragma once

#include "model/CJumpSample.h"

// A sample of a barometric recording: altitude and time only.
class CBaroSample final : public CJumpSample
{
public:
    CBaroSample(double altitude, double time) : CJumpSample(altitude, time) {}

    std::unique_ptr<CJumpSample> Clone() const override;
    CJumpSample* CopyTo(void* storage) const override;
    // An empty "wpt" element with the attributes "a" and "t".
    void Write(CXmlWriter& writer) const override;
};
