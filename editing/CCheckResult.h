#pragma once

#include <string>

// The outcome of an editor's check: passed, or the message to show and the field that takes
// the focus. Fields are numbered by each editor's own enumeration; -1 names none.
struct CCheckResult
{
    // 0 when the check passed; otherwise the message's string-table id.
    int messageId = 0;
    // The composed message text (bounds and names substituted).
    std::string message;
    // The field to focus, or -1.
    int field = -1;

    bool Passed() const { return messageId == 0; }
    explicit operator bool() const { return Passed(); }

    // A passed check.
    static CCheckResult Pass() { return {}; }
    // A failed check with the message's text as the string table has it.
    static CCheckResult Fail(int messageId, int field);
    // A failed check with a composed text.
    static CCheckResult Fail(int messageId, int field, std::string message);
};

// Inclusive range check shared by every editor: outside lower..upper fails with message 4009,
// the bounds written as whole numbers, and the focus on field.
CCheckResult CheckRange(long long value, int lower, int upper, int field);
// As CheckRange, but a value still as it was loaded passes: what the file holds is shown and kept
// as it is, and only a value the user changed has to lie within the range.
CCheckResult CheckChangedRange(long long value, long long loaded, int lower, int upper, int field);
