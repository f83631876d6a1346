#pragma once

#include "document/CLogbookDoc.h"

// Reads the "settings" element for the document. The settings record does not take the owner's
// name and the member number back from the file, so this reader catches both on their way and
// keeps them in the settings, which write them again on save: a load-save cycle never loses them.
// Every event is then handed on to the settings record unchanged.
class CLogbookDoc::SettingsReader final : public CXmlHandler
{
public:
    explicit SettingsReader(CLogbookSettings& settings) : m_settings(settings) {}

    // Catches the member number of "membership", then forwards.
    bool OnOpenTag(CXmlParser& parser) override;
    // Catches the text of "owner", then forwards.
    bool OnCloseTag(CXmlParser& parser) override;

private:
    CLogbookSettings& m_settings;
};
