#include "CFuzzHandler.h"

#include "FuzzFiles.h"
#include "resources/StringTable.h"
#include "xml/CXmlParser.h"
#include "xml/XmlValues.h"

#include <bit>
#include <cstdint>

CFuzzHandler::CFuzzHandler(char label, CFuzzHandler* child, CFuzzTranscript& transcript, std::size_t maxToken,
                           std::size_t maxDepth)
    : m_label(label), m_child(child), m_transcript(transcript), m_maxToken(maxToken), m_maxDepth(maxDepth)
{
}

bool CFuzzHandler::OnOpenTag(CXmlParser& parser)
{
    m_transcript.NextEvent();
    m_transcript.Add({&m_label, 1});
    m_transcript.Add("open");
    CheckName(parser, "start tag name");
    CheckAttributes(parser);
    // The text of an open tag is whatever came before it; reading it must be harmless.
    CheckDecoded(parser, parser.GetElementTextRaw(), parser.GetElementText(), "text at a start tag");

    const std::size_t depth = parser.GetDepth();
    if (depth == 0 || depth > m_maxDepth)
        m_transcript.Fail("depth " + std::to_string(depth) + " at a start tag, limit " + std::to_string(m_maxDepth));
    m_transcript.Add(std::to_string(depth));

    const std::string_view name = parser.GetElementName();
    if (!name.empty() && name[0] == 'd' && m_child != nullptr)
        parser.Delegate(m_child);
    if (name == "stop")
        return Refuse(parser, parser.GetAttributeCount() % 2 == 1);
    return true;
}

bool CFuzzHandler::OnCloseTag(CXmlParser& parser)
{
    m_transcript.NextEvent();
    m_transcript.Add({&m_label, 1});
    m_transcript.Add("close");
    CheckName(parser, "end tag name");
    const std::string_view raw = parser.GetElementTextRaw();
    const std::string& text = parser.GetElementText();
    CheckDecoded(parser, raw, text, "element text");
    m_transcript.Add(text);
    // The typed readers see the raw text, as the records use them.
    int number = 0;
    double value = 0;
    bool flag = false;
    m_transcript.Add(XmlIntFromBytes(raw, number, true) ? std::to_string(number) : "-");
    m_transcript.Add(XmlDoubleFromBytes(raw, value, true) ? "d" : "-");
    m_transcript.Add(XmlBoolFromBytes(raw, flag) ? (flag ? "t" : "f") : "-");

    // Delegating outside a start tag is ignored by the parser.
    parser.Delegate(this);
    if (parser.GetElementName() == "halt")
        return Refuse(parser, text.size() % 2 == 1);
    return true;
}

void CFuzzHandler::CheckName(const CXmlParser& parser, std::string_view what)
{
    const std::string_view raw = parser.GetElementNameRaw();
    const std::string_view name = parser.GetElementName();
    CheckDecoded(parser, raw, name, what);
    // A second request answers from the cache; it must be the same text.
    if (parser.GetElementName() != name)
        m_transcript.Fail(std::string(what) + " changes between two requests");
    m_transcript.Add(name);
}

void CFuzzHandler::CheckAttributes(const CXmlParser& parser)
{
    const std::size_t count = parser.GetAttributeCount();
    m_transcript.Add(std::to_string(count));
    std::string value;
    for (std::size_t i = 0; i < count; ++i) {
        const std::string_view name = parser.GetAttributeNameRaw(i);
        const std::string_view raw = parser.GetAttributeValueRaw(i);
        for (std::size_t j = 0; j < i; ++j)
            if (parser.GetAttributeNameRaw(j) == name)
                m_transcript.Fail("attribute name listed twice");
        if (!parser.HasAttribute(name) || !parser.GetAttribute(name, value)) {
            m_transcript.Fail("a listed attribute is not found by name");
            continue;
        }
        CheckDecoded(parser, raw, value, "attribute value");
        if (name.size() > m_maxToken)
            m_transcript.Fail("attribute name beyond the token limit");
        m_transcript.Add(name);
        m_transcript.Add(value);

        // Each typed getter must agree with the 8-bit reader on the raw value.
        bool flag = false, expectedFlag = false;
        const bool flagOk = parser.GetAttributeBool(name, flag);
        if (flagOk != XmlBoolFromBytes(raw, expectedFlag) || (flagOk && flag != expectedFlag))
            m_transcript.Fail("GetAttributeBool disagrees with the 8-bit reader");
        for (const bool allowMinus : {false, true}) {
            int number = 0, expectedNumber = 0;
            const bool intOk = parser.GetAttributeInt(name, number, allowMinus);
            if (intOk != XmlIntFromBytes(raw, expectedNumber, allowMinus) || (intOk && number != expectedNumber))
                m_transcript.Fail("GetAttributeInt disagrees with the 8-bit reader");
            double real = 0, expectedReal = 0;
            const bool realOk = parser.GetAttributeDouble(name, real, allowMinus);
            if (realOk != XmlDoubleFromBytes(raw, expectedReal, allowMinus) ||
                (realOk && std::bit_cast<std::uint64_t>(real) != std::bit_cast<std::uint64_t>(expectedReal)))
                m_transcript.Fail("GetAttributeDouble disagrees with the 8-bit reader");
        }
    }
    // '=' ends an attribute name, so no attribute can have this one.
    if (parser.HasAttribute("x=y") || parser.GetAttribute("x=y", value))
        m_transcript.Fail("an absent attribute is found");
}

void CFuzzHandler::CheckDecoded(const CXmlParser& parser, std::string_view raw, std::string_view decoded,
                                std::string_view what)
{
    if (raw.size() > m_maxToken)
        m_transcript.Fail(std::string(what) + " of " + std::to_string(raw.size()) + " bytes passed the token limit");
    // Every byte or entity decodes to at most two bytes of UTF-8 (U+0000..U+00FF), except
    // entity pairs and four-digit references, which are longer in the file than decoded.
    if (decoded.size() > 2 * raw.size())
        m_transcript.Fail(std::string(what) + " grew more than twice in decoding");
    if (!IsValidUtf8(decoded))
        m_transcript.Fail(std::string(what) + " decodes to invalid UTF-8");
    if (decoded != CXmlParser::Decode(raw, parser.GetEncoding()))
        m_transcript.Fail(std::string(what) + " differs from a fresh decoding of its raw bytes");
}

bool CFuzzHandler::Refuse(CXmlParser& parser, bool byNumber)
{
    std::string expected;
    if (byNumber) {
        parser.SetErrorMessage(StringTable::IDS_NOT_TERVOLA);
        expected = std::string(StringTable::Text(StringTable::IDS_NOT_TERVOLA));
    } else {
        expected = "refused by handler ";
        expected += m_label;
        parser.SetErrorMessage(expected);
    }
    if (parser.GetErrorMessage() != expected)
        m_transcript.Fail("the error text set by a handler reads back differently");
    return false;
}
