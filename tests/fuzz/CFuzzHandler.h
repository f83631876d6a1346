#pragma once

#include "CFuzzTranscript.h"
#include "xml/CXmlHandler.h"

#include <cstddef>
#include <string>
#include <string_view>

class CXmlParser;

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

    // Checks and records a start tag; delegates 'd...' elements, refuses "stop".
    bool OnOpenTag(CXmlParser& parser) override;
    // Checks and records an end tag with its text; refuses "halt".
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
