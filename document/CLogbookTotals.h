#pragma once

#include <cstdint>
#include <memory>
#include <vector>

class CJump;
class CLogbookSettings;

// The running sums behind the home screen's summary: freefall seconds, freefall metres and canopy
// metres of the logged jumps. The document adds a jump as it joins the list, removes it as it
// leaves (or before it changes) and counts all again when the settings change a jump's
// computed freefall time.
class CLogbookTotals
{
public:
    // Counts the jump in, with its freefall time as these settings compute it.
    void Add(const CJump& jump, const CLogbookSettings& settings);
    // Takes the jump out again; the settings must be those it was added with.
    void Remove(const CJump& jump, const CLogbookSettings& settings);
    // Starts from nothing and adds every jump.
    void Recount(const std::vector<std::unique_ptr<CJump>>& jumps, const CLogbookSettings& settings);

    int64_t FreefallSeconds() const { return m_freefallSeconds; }
    int64_t FreefallMetres() const { return m_freefallMetres; }
    int64_t CanopyMetres() const { return m_canopyMetres; }

private:
    // Adds the jump's share times sign (+1 or -1).
    void Count(const CJump& jump, const CLogbookSettings& settings, int sign);

    int64_t m_freefallSeconds = 0;
    int64_t m_freefallMetres = 0;
    int64_t m_canopyMetres = 0;
};
