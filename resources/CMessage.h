#pragma once

#include <string>
#include <utility>

// A message as the core hands it over: the string table's number, what goes into its "%1" and
// "%2", and the line of a file it is about (0: the file or the action as a whole). The core
// never composes the text; the window composes it in the user's language, the tool in English
// (translations/MessageText).
struct CMessage
{
    CMessage() = default;
    CMessage(int messageId, std::string first = {}, std::string second = {}, int atLine = 0)
        : id(messageId), arg1(std::move(first)), arg2(std::move(second)), line(atLine)
    {
    }

    int id = 0;
    std::string arg1, arg2;
    int line = 0;

    // True when there is no message.
    bool Empty() const { return id == 0; }
    bool operator==(const CMessage&) const = default;
};
