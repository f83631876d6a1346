#include "model/CJumpSample.h"

#include <typeinfo>

bool CJumpSample::Equals(const CJumpSample& other) const
{
    return typeid(*this) == typeid(other) && m_altitude == other.m_altitude && m_time == other.m_time;
}
