#include "document/SettingsReader.h"

#include "xml/CXmlParser.h"

bool CLogbookDoc::SettingsReader::OnOpenTag(CXmlParser& parser)
{
    if (parser.GetElementName() == "membership") {
        std::string number;
        if (parser.GetAttribute("name", number))
            m_settings.GetMembership().SetMemberNumber(std::move(number));
    }
    return m_settings.OnOpenTag(parser);
}

bool CLogbookDoc::SettingsReader::OnCloseTag(CXmlParser& parser)
{
    if (parser.GetElementName() == "owner")
        m_settings.SetOwnerName(parser.GetElementText());
    return m_settings.OnCloseTag(parser);
}
