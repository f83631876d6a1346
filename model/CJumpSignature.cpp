#include "model/CJumpSignature.h"

#include "model/JumpElements.h"
#include "xml/CXmlParser.h"
#include "xml/CXmlWriter.h"
#include "xml/XmlValues.h"

#include <algorithm>

void CJumpSignature::Clear()
{
    m_name.clear();
    m_licence.clear();
    m_id.clear();
    m_strokes.clear();
}

void CJumpSignature::Write(CXmlWriter& writer) const
{
    if (IsEmpty())
        return;
    writer.StartElement(JumpElementName(JumpElement::Signature), "name", m_name);
    writer.WriteElement("id", m_id);
    // Written only when given, so that a signature without one keeps the form other programs write.
    if (!m_licence.empty())
        writer.WriteElement("licence", m_licence);
    if (!m_strokes.empty()) {
        writer.StartElement("lines", "size", XmlIntToString(static_cast<int>(m_strokes.size()), true));
        for (const Stroke& stroke : m_strokes) {
            writer.StartElement("line", "size", XmlIntToString(static_cast<int>(stroke.size()), true));
            for (const CPoint& point : stroke)
                writer.WriteElement("p", "", "x", XmlIntToString(point.x, true), "y", XmlIntToString(point.y, true));
            writer.EndElement();
        }
        writer.EndElement();
    }
    writer.EndElement();
}

namespace {

// The most points a stroke's announced size reserves room for before they arrive.
constexpr int kMaxReservedPoints = 256;

// Points are most of a logbook's tags, and a name that is the one byte "p" is its own decoded
// form: a point is told apart without asking the parser to decode its name.
bool IsPlainPoint(const CXmlParser& parser)
{
    return parser.GetElementNameRaw() == "p";
}

} // namespace

bool CJumpSignature::OnOpenTag(CXmlParser& parser)
{
    if (IsPlainPoint(parser))
        return AddPoint(parser);
    const std::string_view name = parser.GetElementName();
    if (name == "line") {
        m_strokes.emplace_back();
        // The stroke's announced size spares the vector its regrowth while the points arrive;
        // it is only a hint, capped, and a stroke that got fewer points is trimmed at its end.
        int announced = 0;
        if (parser.GetAttributeInt("size", announced, false) && announced > 0)
            m_strokes.back().reserve(static_cast<std::size_t>(std::min(announced, kMaxReservedPoints)));
    } else if (name == "p") {
        return AddPoint(parser);
    }
    return true;
}

bool CJumpSignature::AddPoint(const CXmlParser& parser)
{
    CPoint point;
    // The writer gives x then y: those two are read where they stand; anything else is looked
    // up by name.
    const bool asWritten =
        parser.GetAttributeCount() == 2 && parser.GetAttributeNameRaw(0) == "x" && parser.GetAttributeNameRaw(1) == "y";
    const bool read = asWritten
                          ? XmlIntFromBytes(parser.GetAttributeValueRaw(0), point.x, true) &&
                                XmlIntFromBytes(parser.GetAttributeValueRaw(1), point.y, true)
                          : parser.GetAttributeInt("x", point.x, true) && parser.GetAttributeInt("y", point.y, true);
    if (!read)
        return false;
    // A point before any "line" starts a stroke of its own rather than being lost.
    if (m_strokes.empty())
        m_strokes.emplace_back();
    m_strokes.back().push_back(point);
    return true;
}

bool CJumpSignature::OnCloseTag(CXmlParser& parser)
{
    if (IsPlainPoint(parser))
        return true;
    const std::string_view name = parser.GetElementName();
    if (name == "id") {
        parser.GetElementText(m_id);
    } else if (name == "licence") {
        parser.GetElementText(m_licence);
    } else if (name == "line" && !m_strokes.empty()) {
        Stroke& stroke = m_strokes.back();
        if (stroke.capacity() > 2 * stroke.size() + 16)
            stroke.shrink_to_fit();
    }
    return true;
}
