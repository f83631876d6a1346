#pragma once

#include <string>
#include <vector>

class CJump;
class CLogbookDoc;
class CLogbookLock;

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
    // Takes the lock of a logbook the tool is about to write, so that a window opening it meanwhile
    // is warned. A logbook that a running program holds is refused with a message naming that
    // process, unless force is given (it is then written without the lock).
    static bool LockOrReport(CLogbookLock& lock, const std::string& path, bool force);
    // The first jump numbered number; null after printing "Jump N is not in the logbook.".
    static const CJump* FindJumpOrReport(const CLogbookDoc& doc, int number);
};
