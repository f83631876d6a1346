#pragma once

#include <string>
#include <vector>

class CJump;
class CLogbookDoc;

// Opens a logbook the way the window program's Open does and collects, in order, the texts its
// message boxes would show on failure.
class CLogbookOpener
{
public:
    // Loads path into doc. On failure returns false and messages holds the load's own text (when
    // there is one) followed by "The file could not be opened."; doc is then empty.
    static bool Open(CLogbookDoc& doc, const std::string& path, std::vector<std::string>& messages);
    // Open, printing the messages to standard error, one per line.
    static bool OpenOrReport(CLogbookDoc& doc, const std::string& path);
    // The first jump numbered number; null after printing "Jump N is not in the logbook.".
    static const CJump* FindJumpOrReport(const CLogbookDoc& doc, int number);
};
