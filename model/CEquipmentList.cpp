#include "model/CEquipmentList.h"

#include "xml/CXmlParser.h"
#include "xml/CXmlWriter.h"
#include "xml/XmlValues.h"

#include <algorithm>

CEquipmentList::CEquipmentList(const CEquipmentList& other)
    : CXmlHandler(other), m_alarmDays(other.m_alarmDays), m_inspectionCycle(other.m_inspectionCycle)
{
    m_rigs.reserve(other.m_rigs.size());
    for (const auto& rig : other.m_rigs)
        m_rigs.push_back(std::make_unique<CEquipment>(*rig));
}

CEquipmentList& CEquipmentList::operator=(const CEquipmentList& other)
{
    if (this != &other) {
        CEquipmentList copy(other);
        *this = std::move(copy);
    }
    return *this;
}

void CEquipmentList::Reset()
{
    m_alarmDays = -1;
    m_inspectionCycle = kDefaultInspectionCycle;
    m_rigs.clear();
}

bool CEquipmentList::SetAlarm(bool on, int alarmDays, int inspectionCycle)
{
    if (!on) {
        if (m_alarmDays == -1)
            return false;
        m_alarmDays = -1;
        return true;
    }
    if (IsAlarmOn() && m_alarmDays == alarmDays && m_inspectionCycle == inspectionCycle)
        return false;
    m_alarmDays = alarmDays;
    m_inspectionCycle = inspectionCycle;
    return true;
}

CEquipment& CEquipmentList::Add(std::unique_ptr<CEquipment> rig)
{
    m_rigs.push_back(std::move(rig));
    return *m_rigs.back();
}

void CEquipmentList::Remove(std::size_t index)
{
    if (index < m_rigs.size())
        m_rigs.erase(m_rigs.begin() + static_cast<std::ptrdiff_t>(index));
}

void CEquipmentList::Replace(std::size_t index, std::unique_ptr<CEquipment> rig)
{
    if (index < m_rigs.size() && rig)
        m_rigs[index] = std::move(rig);
}

int CEquipmentList::FindNumber(int number) const
{
    for (std::size_t i = 0; i < m_rigs.size(); ++i) {
        if (m_rigs[i]->GetNumber() == number)
            return static_cast<int>(i);
    }
    return -1;
}

int CEquipmentList::FindByDisplayText(std::string_view text) const
{
    const std::size_t close = text.find(']');
    if (text.empty() || text.front() != '[' || close == std::string_view::npos)
        return -1;
    // The number as the digits between the brackets read it; anything else names no rig.
    long long number = 0;
    for (char c : text.substr(1, close - 1)) {
        if (c < '0' || c > '9' || number > 1'000'000'000)
            return -1;
        number = number * 10 + (c - '0');
    }
    const int position = FindNumber(static_cast<int>(number));
    if (position < 0 || m_rigs[static_cast<std::size_t>(position)]->GetDisplayText() != text)
        return -1;
    return position;
}

int CEquipmentList::NextNumber() const
{
    int highest = 0;
    for (const auto& rig : m_rigs)
        highest = std::max(highest, rig->GetNumber());
    return highest + 1;
}

void CEquipmentList::Write(CXmlWriter& writer) const
{
    if (!IsAlarmOn() && m_rigs.empty())
        return;
    writer.StartElement("equipments");
    if (IsAlarmOn()) {
        writer.WriteElement("inspectionCycle", XmlIntToString(m_inspectionCycle, true));
        writer.WriteElement("alarmDays", XmlIntToString(m_alarmDays, true));
    }
    for (const auto& rig : m_rigs)
        rig->Write(writer);
    writer.EndElement();
}

bool CEquipmentList::OnOpenTag(CXmlParser& parser)
{
    if (parser.GetElementName() != "equipment")
        return true;
    int number = 0;
    bool active = false;
    if (!parser.GetAttributeInt("n", number, true) || !parser.GetAttributeBool("active", active))
        return false;
    auto rig = std::make_unique<CEquipment>(number);
    rig->SetActive(active);
    parser.Delegate(&Add(std::move(rig)));
    return true;
}

bool CEquipmentList::OnCloseTag(CXmlParser& parser)
{
    const std::string_view name = parser.GetElementName();
    int value = 0;
    if (name == "alarmDays") {
        if (XmlIntFromBytes(parser.GetElementTextRaw(), value, true))
            m_alarmDays = value;
    } else if (name == "inspectionCycle") {
        if (XmlIntFromBytes(parser.GetElementTextRaw(), value, true))
            m_inspectionCycle = value;
    }
    return true;
}

bool operator==(const CEquipmentList& a, const CEquipmentList& b)
{
    return a.m_alarmDays == b.m_alarmDays && a.m_inspectionCycle == b.m_inspectionCycle &&
           std::equal(a.m_rigs.begin(), a.m_rigs.end(), b.m_rigs.begin(), b.m_rigs.end(),
                      [](const auto& x, const auto& y) { return *x == *y; });
}
