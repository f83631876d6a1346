// What a handler reads of the tag being reported: its name, text and attributes, decoded on
// request; and how it stops the parse with a message.
#include "xml/CXmlParser.h"

#include "resources/StringTable.h"
#include "xml/CXmlDecoder.h"
#include "xml/XmlNameBytes.h"
#include "xml/XmlValues.h"

using XmlNameBytes::IsPlainShort;
using XmlNameBytes::SameBytes;

std::string_view CXmlParser::DecodeElementName() const
{
    if (IsPlainShort(m_tagName.View())) {
        m_nameView = m_tagName.View();
    } else {
        m_decodedName.clear();
        DecodeAppend(m_tagName.View(), m_encoding, m_decodedName);
        m_nameView = m_decodedName;
    }
    m_nameDecoded = true;
    return m_nameView;
}

const std::string& CXmlParser::GetElementText() const
{
    if (m_textView == nullptr) {
        if (CXmlDecoder::IsPlain(m_text.View())) {
            // Plain text is its own decoded form; only a view needs a copy to be a string.
            m_textView = m_text.Owned();
            if (m_textView == nullptr) {
                m_decodedText.assign(m_text.View());
                m_textView = &m_decodedText;
            }
        } else {
            m_decodedText.clear();
            DecodeAppend(m_text.View(), m_encoding, m_decodedText);
            m_textView = &m_decodedText;
        }
    }
    return *m_textView;
}

void CXmlParser::GetElementText(std::string& out) const
{
    if (m_textView != nullptr) {
        out = *m_textView;
    } else if (CXmlDecoder::IsPlain(m_text.View())) {
        out.assign(m_text.View());
    } else {
        out.clear();
        DecodeAppend(m_text.View(), m_encoding, out);
    }
}

inline const CXmlParser::Attribute* CXmlParser::FindAttribute(std::string_view name) const
{
    for (std::size_t i = 0; i < m_attrCount; ++i)
        if (SameBytes(m_attrs[i].name.View(), name))
            return &m_attrs[i];
    return nullptr;
}

bool CXmlParser::HasAttribute(std::string_view name) const
{
    return FindAttribute(name) != nullptr;
}

bool CXmlParser::GetAttribute(std::string_view name, std::string& value) const
{
    const Attribute* attr = FindAttribute(name);
    if (attr == nullptr)
        return false;
    if (CXmlDecoder::IsPlain(attr->value.View())) {
        value.assign(attr->value.View());
    } else {
        value.clear();
        DecodeAppend(attr->value.View(), m_encoding, value);
    }
    return true;
}

bool CXmlParser::GetAttributeBool(std::string_view name, bool& value) const
{
    const Attribute* attr = FindAttribute(name);
    return attr != nullptr && XmlBoolFromBytes(attr->value.View(), value);
}

bool CXmlParser::GetAttributeInt(std::string_view name, int& value, bool allowMinus) const
{
    const Attribute* attr = FindAttribute(name);
    return attr != nullptr && XmlIntFromBytes(attr->value.View(), value, allowMinus);
}

bool CXmlParser::GetAttributeDouble(std::string_view name, double& value, bool allowMinus) const
{
    const Attribute* attr = FindAttribute(name);
    return attr != nullptr && XmlDoubleFromBytes(attr->value.View(), value, allowMinus);
}

void CXmlParser::Delegate(CXmlHandler* child)
{
    if (m_delegateAllowed && m_stackSize > 0)
        m_stack[m_stackSize - 1].handler = child;
}

void CXmlParser::SetErrorMessage(CMessage message)
{
    m_error = std::move(message);
}

CMessage CXmlParser::ParserError(std::string detail)
{
    return {StringTable::IDS_PARSER_ERROR, std::move(detail)};
}

std::string CXmlParser::Decode(std::string_view raw, XmlEncoding encoding)
{
    std::string out;
    DecodeAppend(raw, encoding, out);
    return out;
}

void CXmlParser::DecodeAppend(std::string_view raw, XmlEncoding encoding, std::string& out)
{
    CXmlDecoder::DecodeAppend(raw, encoding, out);
}
