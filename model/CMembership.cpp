#include "model/CMembership.h"

#include "xml/CXmlParser.h"
#include "xml/CXmlWriter.h"
#include "xml/XmlValues.h"

void CMembership::Reset()
{
    m_memberNumber.clear();
    m_expirationDate.SetNull();
    m_alarmDays = -1;
}

bool CMembership::Set(bool expires, const CDateTime& date, bool alarm, int alarmDays)
{
    const CDateTime newDate = expires ? date : CDateTime();
    const int newDays = (expires && alarm) ? alarmDays : -1;
    if (newDate == m_expirationDate && newDays == m_alarmDays)
        return false;
    m_expirationDate = newDate;
    m_alarmDays = newDays;
    return true;
}

void CMembership::Write(CXmlWriter& writer) const
{
    if (m_memberNumber.empty() && !HasExpirationDate())
        return;
    writer.StartElement("membership", "name", m_memberNumber);
    if (HasExpirationDate())
        writer.WriteElement("expirationDate", XmlDateTimeToString(m_expirationDate));
    if (HasAlarm())
        writer.WriteElement("alarmDays", XmlIntToString(m_alarmDays, true));
    writer.EndElement();
}

bool CMembership::OnOpenTag(CXmlParser&)
{
    return true;
}

bool CMembership::OnCloseTag(CXmlParser& parser)
{
    const std::string_view name = parser.GetElementName();
    if (name == "expirationDate") {
        const std::string& text = parser.GetElementText();
        if (text.empty()) {
            m_expirationDate.SetNull();
            return true;
        }
        return XmlDateTimeFromString(text, m_expirationDate);
    }
    if (name == "alarmDays")
        return XmlIntFromBytes(parser.GetElementTextRaw(), m_alarmDays, true);
    return true;
}
