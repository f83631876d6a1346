#include "model/CEquipment.h"

#include "xml/CXmlParser.h"
#include "xml/CXmlWriter.h"
#include "xml/XmlValues.h"

CEquipment::CEquipment(int number) : m_number(number)
{
}

std::string CEquipment::GetDisplayText() const
{
    std::string text = "[" + std::to_string(m_number) + "]";
    const char* separator = " ";
    for (const std::string* name : {&m_harness, &m_mainCanopy, &m_reserveCanopy}) {
        if (name->empty())
            continue;
        text += separator;
        text += *name;
        separator = " / ";
    }
    return text;
}

void CEquipment::Write(CXmlWriter& writer) const
{
    writer.StartElement("equipment", {{"n", XmlIntToString(m_number, true)}, {"active", m_active ? "true" : "false"}});
    writer.WriteElement("previousJumps", XmlIntToString(m_previousJumps, true));
    writer.WriteElement("harness", m_harness);
    writer.WriteElement("harnessSerial", m_harnessSerial);
    writer.WriteElement("mainCanopy", m_mainCanopy);
    writer.WriteElement("mainSize", XmlIntToString(m_mainSize, true));
    writer.WriteElement("mainSerial", m_mainSerial);
    writer.WriteElement("reserveCanopy", m_reserveCanopy);
    writer.WriteElement("reserveSize", XmlIntToString(m_reserveSize, true));
    writer.WriteElement("reserveSerial", m_reserveSerial);
    writer.WriteElement("aad", m_aad);
    writer.WriteElement("aadSerial", m_aadSerial);
    writer.WriteElement("inspectionDate", XmlDateTimeToString(m_inspectionDate));
    writer.EndElement();
}

bool CEquipment::OnOpenTag(CXmlParser&)
{
    return true;
}

bool CEquipment::OnCloseTag(CXmlParser& parser)
{
    const std::string_view name = parser.GetElementName();
    std::string* text = nullptr;
    int* number = nullptr;
    if (name == "harness")
        text = &m_harness;
    else if (name == "harnessSerial")
        text = &m_harnessSerial;
    else if (name == "mainCanopy")
        text = &m_mainCanopy;
    else if (name == "mainSerial")
        text = &m_mainSerial;
    else if (name == "reserveCanopy")
        text = &m_reserveCanopy;
    else if (name == "reserveSerial")
        text = &m_reserveSerial;
    else if (name == "aad")
        text = &m_aad;
    else if (name == "aadSerial")
        text = &m_aadSerial;
    else if (name == "previousJumps")
        number = &m_previousJumps;
    else if (name == "mainSize")
        number = &m_mainSize;
    else if (name == "reserveSize")
        number = &m_reserveSize;

    if (text) {
        parser.GetElementText(*text);
    } else if (number) {
        if (!XmlIntFromBytes(parser.GetElementTextRaw(), *number, true))
            return false;
    } else if (name == "inspectionDate") {
        // An empty element means no date; anything else must be a readable date-time.
        const std::string& value = parser.GetElementText();
        if (value.empty())
            m_inspectionDate.SetNull();
        else if (!XmlDateTimeFromString(value, m_inspectionDate))
            return false;
    }
    return true;
}

bool operator==(const CEquipment& a, const CEquipment& b)
{
    const CDateTime& x = a.m_inspectionDate;
    const CDateTime& y = b.m_inspectionDate;
    const bool sameDate = (x.IsValid() && y.IsValid()) ? x.SameDay(y) : x.GetStatus() == y.GetStatus();
    return sameDate && a.m_number == b.m_number && a.m_active == b.m_active && a.m_previousJumps == b.m_previousJumps &&
           a.m_harness == b.m_harness && a.m_harnessSerial == b.m_harnessSerial && a.m_mainCanopy == b.m_mainCanopy &&
           a.m_mainSize == b.m_mainSize && a.m_mainSerial == b.m_mainSerial && a.m_reserveCanopy == b.m_reserveCanopy &&
           a.m_reserveSize == b.m_reserveSize && a.m_reserveSerial == b.m_reserveSerial && a.m_aad == b.m_aad &&
           a.m_aadSerial == b.m_aadSerial;
}
