#include "document/CLogbookTotals.h"

#include "model/CJump.h"

void CLogbookTotals::Add(const CJump& jump, const CLogbookSettings& settings)
{
    Count(jump, settings, 1);
}

void CLogbookTotals::Remove(const CJump& jump, const CLogbookSettings& settings)
{
    Count(jump, settings, -1);
}

void CLogbookTotals::Recount(const std::vector<std::unique_ptr<CJump>>& jumps, const CLogbookSettings& settings)
{
    *this = CLogbookTotals();
    for (const auto& jump : jumps)
        Add(*jump, settings);
}

void CLogbookTotals::Count(const CJump& jump, const CLogbookSettings& settings, int sign)
{
    m_freefallSeconds += sign * int64_t{jump.FreefallTime(settings)};
    m_freefallMetres += sign * int64_t{jump.GetFreefallDistance()};
    m_canopyMetres += sign * int64_t{jump.GetOpenHeight()};
}
