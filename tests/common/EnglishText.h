#pragma once

#include "resources/CMessage.h"
#include "resources/StringTable.h"

#include <string>

// A core message's text in English without the line it is about, for tests that look for words
// in it ("the time goes backwards, to ...").
inline std::string EnglishText(const CMessage& message)
{
    return StringTable::Format(message.id, message.arg1, message.arg2);
}
