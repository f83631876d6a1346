#pragma once

#include "xml/CXmlHandler.h"

#include <string>
#include <string_view>
#include <vector>

// Collects the character data of a jump note's markup: the texts of all elements in document
// order, with a "\r\n" between two top-level paragraphs (an empty paragraph is an empty line).
class CNoteTextCollector : public CXmlHandler
{
public:
    // Parses markup with the program's XML reader; false when it does not parse.
    static bool Collect(std::string_view markup, std::string& text);

    bool OnOpenTag(CXmlParser& parser) override;
    bool OnCloseTag(CXmlParser& parser) override;

    const std::string& GetText() const { return m_text; }

private:
    std::string m_text;
    std::vector<std::string> m_open; // names of the elements whose start tag was reported
    bool m_pendingBreak = false;     // a top-level paragraph ended; the next text starts a line
};
