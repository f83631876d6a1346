#pragma once

#include "resources/CMessage.h"

#include <string>

// How a failed check is shown: a refused entry (a value out of range, one that cannot be read)
// as a warning, a required value that is missing as an error.
enum class CheckSeverity
{
    Warning,
    Error
};

// The outcome of an editor's check: passed, or the message to show, how, and the field that
// takes the focus. Fields are numbered by each editor's own enumeration; -1 names none.
struct CCheckResult
{
    // 0 when the check passed; otherwise the message's string-table id.
    int messageId = 0;
    // What goes into the message's "%1" and "%2" (bounds, numbers).
    std::string arg1, arg2;
    // The field to focus, or -1.
    int field = -1;
    CheckSeverity severity = CheckSeverity::Warning;

    bool Passed() const { return messageId == 0; }
    explicit operator bool() const { return Passed(); }
    // The message for the window or the tool to compose.
    CMessage Message() const { return {messageId, arg1, arg2}; }

    // A passed check.
    static CCheckResult Pass() { return {}; }
    // A refused entry: the message with its arguments, shown as a warning.
    static CCheckResult Fail(int messageId, int field, std::string arg1 = {}, std::string arg2 = {});
    // A required value is missing: shown as an error.
    static CCheckResult Missing(int messageId, int field);
};

// Inclusive range check shared by every editor: outside lower..upper fails with message 4009,
// the bounds as its arguments, and the focus on field.
CCheckResult CheckRange(long long value, int lower, int upper, int field);
// As CheckRange, but a value still as it was loaded passes: what the file holds is shown and kept
// as it is, and only a value the user changed has to lie within the range.
CCheckResult CheckChangedRange(long long value, long long loaded, int lower, int upper, int field);
