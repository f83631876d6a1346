#pragma once

#include "xml/CXmlHandler.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

class CXmlParser;

// What the handlers of one fuzzed parse saw, folded into a 64-bit digest (FNV-1a) and a count so
// that two parses of the same input can be compared without keeping every event, together with
// the first broken property any handler noticed.
class CFuzzTranscript
{
public:
    void Add(std::string_view piece)
    {
        for (unsigned char c : piece)
            m_digest = (m_digest ^ c) * 0x100000001B3ull;
        // A separator keeps "ab"+"c" apart from "a"+"bc".
        m_digest = (m_digest ^ 0x1Fu) * 0x100000001B3ull;
    }
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

    std::uint64_t Digest() const { return m_digest; }
    std::size_t Events() const { return m_events; }
    const std::string& Problem() const { return m_problem; }

private:
    static constexpr std::uint64_t kOffsetBasis = 0xCBF29CE484222325ull;
    std::uint64_t m_digest = kOffsetBasis;
    std::size_t m_events = 0;
    std::string m_problem;
};

// The handler of the reader fuzz target. On every event it calls each accessor the parser
// offers, checks their answers against each other and against the limits in force, and folds
// the event into the shared transcript. Start tags named "stop" and end tags named "halt" are
// refused (with a text of the handler's own or a numbered message); elements whose name begins
// with 'd' are delegated to the child handler, when there is one.
class CFuzzHandler : public CXmlHandler
{
public:
    // label tells this handler's events apart in the transcript; child may be null.
    CFuzzHandler(char label, CFuzzHandler* child, CFuzzTranscript& transcript, std::size_t maxToken,
                 std::size_t maxDepth);

    bool OnOpenTag(CXmlParser& parser) override;
    bool OnCloseTag(CXmlParser& parser) override;

private:
    // Checks the decoded element name against its raw bytes and folds it in.
    void CheckName(const CXmlParser& parser, std::string_view what);
    // Checks every attribute through every getter and folds them in.
    void CheckAttributes(const CXmlParser& parser);
    // Checks that decoded is what the raw bytes decode to, within the size bound, valid UTF-8.
    void CheckDecoded(const CXmlParser& parser, std::string_view raw, std::string_view decoded, std::string_view what);
    // Refuses the element, setting an error text in one of the two ways.
    bool Refuse(CXmlParser& parser, bool byNumber);

    char m_label;
    CFuzzHandler* m_child;
    CFuzzTranscript& m_transcript;
    std::size_t m_maxToken;
    std::size_t m_maxDepth;
};
