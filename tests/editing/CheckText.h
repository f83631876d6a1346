#pragma once

#include "editing/CCheckResult.h"
#include "resources/StringTable.h"

#include <string>

// A check's message in English, as the tool prints it; empty for a passed check.
inline std::string CheckText(const CCheckResult& result)
{
    return StringTable::Format(result.messageId, result.arg1, result.arg2);
}
