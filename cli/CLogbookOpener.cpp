#include "cli/CLogbookOpener.h"

#include "cli/CConsole.h"
#include "document/CLogbookDoc.h"
#include "resources/StringTable.h"

bool CLogbookOpener::Open(CLogbookDoc& doc, const std::string& path, std::vector<std::string>& messages)
{
    const CLoadResult result = doc.Load(path);
    if (result.ok)
        return true;
    if (!result.message.empty())
        messages.push_back(result.message);
    messages.emplace_back(StringTable::Text(StringTable::IDS_OPEN_FAILED));
    return false;
}

bool CLogbookOpener::OpenOrReport(CLogbookDoc& doc, const std::string& path)
{
    std::vector<std::string> messages;
    if (Open(doc, path, messages))
        return true;
    for (const std::string& message : messages)
        CConsole::ErrLine(message);
    return false;
}

const CJump* CLogbookOpener::FindJumpOrReport(const CLogbookDoc& doc, int number)
{
    for (const CJump* jump : doc.GetJumps()) {
        if (jump->GetNumber() == number)
            return jump;
    }
    CConsole::ErrLine("Jump " + std::to_string(number) + " is not in the logbook.");
    return nullptr;
}
