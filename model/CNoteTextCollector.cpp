#include "model/CNoteTextCollector.h"

#include "xml/CXmlParser.h"

bool CNoteTextCollector::Collect(std::string_view markup, std::string& text)
{
    CNoteTextCollector collector;
    CXmlParser parser(&collector);
    // The note is held as UTF-8, so it is fed as it is rather than narrowed to Latin-1.
    parser.Reset();
    parser.Feed(markup.data(), markup.size());
    if (!parser.Finish())
        return false;
    text = std::move(collector.m_text);
    return true;
}

bool CNoteTextCollector::OnOpenTag(CXmlParser& parser)
{
    m_open.emplace_back(parser.GetElementName());
    return true;
}

bool CNoteTextCollector::OnCloseTag(CXmlParser& parser)
{
    const std::string_view name = parser.GetElementName();
    bool topLevel = false;
    if (!m_open.empty() && m_open.back() == name) {
        topLevel = m_open.size() == 1;
        m_open.pop_back();
    } else {
        // An empty element without attributes reports only its end tag.
        topLevel = m_open.empty();
    }
    const std::string& text = parser.GetElementText();
    if (m_pendingBreak && (topLevel || !text.empty())) {
        m_text += "\r\n";
        m_pendingBreak = false;
    }
    m_text += text;
    if (topLevel)
        m_pendingBreak = true;
    return true;
}
