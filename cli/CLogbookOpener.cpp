#include "cli/CLogbookOpener.h"

#include "cli/CConsole.h"
#include "document/CLogbookDoc.h"
#include "document/CLogbookLock.h"
#include "resources/StringTable.h"
#include "translations/MessageText.h"

bool CLogbookOpener::Open(CLogbookDoc& doc, const std::string& path, std::vector<std::string>& messages)
{
    const CLoadResult result = doc.Load(path);
    if (result.ok)
        return true;
    if (!result.message.Empty())
        messages.push_back(MessageText::Utf8(result.message));
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

bool CLogbookOpener::LockOrReport(CLogbookLock& lock, const std::string& path, bool force)
{
    if (lock.Lock(path) != CLogbookLock::State::AlreadyOpen || force)
        return true;
    const std::string holder = lock.GetHolder().empty() ? "another process" : lock.GetHolder();
    CConsole::ErrLine(path + " is open in " + holder + ". Close it there first, or give --force to write it anyway.");
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
