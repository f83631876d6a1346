#include "model/CLogbookSettings.h"

#include "xml/CXmlParser.h"
#include "xml/CXmlWriter.h"
#include "xml/XmlValues.h"

namespace {

// Element names of the four jump-kind labels, in keyword order.
constexpr std::string_view kKeywordElements[] = {"videoJump", "nightJump", "coachJump", "reserveActivated"};
constexpr std::string_view kKeywordDefaults[] = {"Video", "Night", "Coach", "Reserve"};

void WriteList(CXmlWriter& writer, std::string_view listName, std::string_view itemName,
               const std::vector<std::string>& items)
{
    if (items.empty())
        return;
    writer.StartElement(listName);
    for (const std::string& item : items)
        writer.WriteElement(itemName, item);
    writer.EndElement();
}

} // namespace

CLogbookSettings::CLogbookSettings()
{
    Reset();
}

void CLogbookSettings::Reset()
{
    m_ownerName.clear();
    m_previousJumps = 0;
    m_previousDelay = 0;
    m_membership.Reset();
    m_licenses.clear();
    m_ratings.clear();
    m_awards.clear();
    m_equipment.Reset();
    m_customSpeed = kDefaultCustomSpeed;
    m_signers.clear();
    for (std::size_t i = 0; i < m_keywords.size(); ++i)
        m_keywords[i] = kKeywordDefaults[i];
}

bool CLogbookSettings::SetProfile(bool expires, const CDateTime& expiry, bool alarm, int alarmDays,
                                  std::vector<std::string> licenses, std::vector<std::string> ratings,
                                  std::vector<std::string> awards)
{
    bool changed = m_membership.Set(expires, expiry, alarm, alarmDays);
    auto assign = [&changed](std::vector<std::string>& target, std::vector<std::string>& source) {
        if (target != source) {
            target = std::move(source);
            changed = true;
        }
    };
    assign(m_licenses, licenses);
    assign(m_ratings, ratings);
    assign(m_awards, awards);
    return changed;
}

bool CLogbookSettings::RememberSigner(const std::string& name, const std::string& licence)
{
    if (name.empty() || licence.empty())
        return false;
    for (CKnownSigner& signer : m_signers) {
        if (signer.name == name) {
            if (signer.licence == licence)
                return false;
            signer.licence = licence;
            return true;
        }
    }
    m_signers.push_back({name, licence});
    return true;
}

std::string_view CLogbookSettings::GetSignerLicence(std::string_view name) const
{
    for (const CKnownSigner& signer : m_signers) {
        if (signer.name == name)
            return signer.licence;
    }
    return {};
}

double CLogbookSettings::FallrateSpeed(FallrateKind kind) const
{
    switch (kind) {
    case FallrateKind::Standard:
        return kStandardSpeed;
    case FallrateKind::Vertical:
        return kVerticalSpeed;
    case FallrateKind::Custom:
        return m_customSpeed;
    default:
        return 0.0;
    }
}

std::string_view CLogbookSettings::GetKeyword(int index) const
{
    if (index < 0 || index >= static_cast<int>(m_keywords.size()))
        return {};
    return m_keywords[static_cast<std::size_t>(index)];
}

void CLogbookSettings::SetKeyword(int index, std::string text)
{
    if (index >= 0 && index < static_cast<int>(m_keywords.size()))
        m_keywords[static_cast<std::size_t>(index)] = std::move(text);
}

void CLogbookSettings::Write(CXmlWriter& writer) const
{
    writer.StartElement("settings");
    writer.WriteElement("owner", m_ownerName);
    m_membership.Write(writer);
    WriteList(writer, "licenses", "license", m_licenses);
    WriteList(writer, "ratings", "rating", m_ratings);
    WriteList(writer, "awards", "award", m_awards);
    m_equipment.Write(writer);

    writer.StartElement("fallrates");
    for (FallrateKind kind : {FallrateKind::Standard, FallrateKind::Vertical, FallrateKind::Custom})
        writer.WriteElement("fallrate", "", "name", FallrateKindName(kind), "speed",
                            XmlDoubleToString(FallrateSpeed(kind), false));
    writer.EndElement();

    writer.StartElement("keywords");
    for (std::size_t i = 0; i < m_keywords.size(); ++i)
        writer.WriteElement(kKeywordElements[i], m_keywords[i]);
    writer.EndElement();

    writer.WriteElement("previousJumps", XmlIntToString(m_previousJumps, false));
    writer.WriteElement("previousDelay", XmlIntToString(m_previousDelay, false));
    // Last, and only when there is one: readers of the format skip children they do not know.
    if (!m_signers.empty()) {
        writer.StartElement("signers");
        for (const CKnownSigner& signer : m_signers)
            writer.WriteElement("signer", "", "name", signer.name, "licence", signer.licence);
        writer.EndElement();
    }
    writer.EndElement();
}

// The owner's name and the member number are read here although the logbook format's own reader
// never took them back from the file: the profile shows and edits them, and a load followed by
// a save must keep them.
bool CLogbookSettings::OnOpenTag(CXmlParser& parser)
{
    const std::string_view name = parser.GetElementName();
    if (name == "membership") {
        std::string number;
        if (parser.GetAttribute("name", number))
            m_membership.SetMemberNumber(std::move(number));
        parser.Delegate(&m_membership);
    } else if (name == "equipments") {
        parser.Delegate(&m_equipment);
    } else if (name == "signer") {
        CKnownSigner signer;
        if (parser.GetAttribute("name", signer.name) && !signer.name.empty()) {
            parser.GetAttribute("licence", signer.licence);
            m_signers.push_back(std::move(signer));
        }
    } else if (name == "fallrate") {
        // Standard and Vertical are fixed speeds; only a Custom entry is taken from the file.
        std::string kind;
        if (parser.GetAttribute("name", kind) && kind == FallrateKindName(FallrateKind::Custom) &&
            parser.HasAttribute("speed")) {
            double speed = 0.0;
            if (!parser.GetAttributeDouble("speed", speed, true))
                return false;
            m_customSpeed = speed;
        }
    }
    return true;
}

bool CLogbookSettings::OnCloseTag(CXmlParser& parser)
{
    const std::string_view name = parser.GetElementName();
    if (name == "owner") {
        parser.GetElementText(m_ownerName);
        return true;
    }
    if (name == "license" || name == "rating" || name == "award") {
        const std::string& text = parser.GetElementText();
        if (!text.empty())
            (name == "license" ? m_licenses : name == "rating" ? m_ratings : m_awards).push_back(text);
        return true;
    }
    if (name == "previousJumps")
        return XmlIntFromBytes(parser.GetElementTextRaw(), m_previousJumps, true);
    if (name == "previousDelay")
        return XmlIntFromBytes(parser.GetElementTextRaw(), m_previousDelay, true);
    for (std::size_t i = 0; i < m_keywords.size(); ++i) {
        if (name == kKeywordElements[i]) {
            parser.GetElementText(m_keywords[i]);
            break;
        }
    }
    return true;
}

bool operator==(const CLogbookSettings& a, const CLogbookSettings& b)
{
    return a.m_ownerName == b.m_ownerName && a.m_previousJumps == b.m_previousJumps &&
           a.m_previousDelay == b.m_previousDelay && a.m_membership == b.m_membership && a.m_licenses == b.m_licenses &&
           a.m_ratings == b.m_ratings && a.m_awards == b.m_awards && a.m_equipment == b.m_equipment &&
           a.m_customSpeed == b.m_customSpeed && a.m_keywords == b.m_keywords && a.m_signers == b.m_signers;
}
