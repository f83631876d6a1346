#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

// What the handlers of one fuzzed parse saw, folded into a 64-bit digest and a count so that
// two parses of the same input can be compared without keeping every event, together with the
// first broken property any handler noticed.
class CFuzzTranscript
{
public:
    // Folds one piece of an event into the digest.
    void Add(std::string_view piece)
    {
        for (unsigned char c : piece)
            m_digest = (m_digest ^ c) * 0x100000001B3ull;
        // A separator keeps "ab"+"c" apart from "a"+"bc".
        m_digest = (m_digest ^ 0x1Fu) * 0x100000001B3ull;
    }
    // Counts one event.
    void NextEvent() { ++m_events; }
    // Starts a new digest and count; a problem already recorded stays.
    void Restart()
    {
        m_digest = kOffsetBasis;
        m_events = 0;
    }
    // Records a broken property; only the first one is kept.
    void Fail(std::string problem)
    {
        if (m_problem.empty())
            m_problem = std::move(problem);
    }

    // The digest of everything added since the start or the last Restart.
    std::uint64_t Digest() const { return m_digest; }
    // The number of events counted since then.
    std::size_t Events() const { return m_events; }
    // The first broken property; empty when none was noticed.
    const std::string& Problem() const { return m_problem; }

private:
    static constexpr std::uint64_t kOffsetBasis = 0xCBF29CE484222325ull;
    std::uint64_t m_digest = kOffsetBasis;
    std::size_t m_events = 0;
    std::string m_problem;
};
