#include "editing/CCheckResult.h"

#include "resources/StringTable.h"

CCheckResult CCheckResult::Fail(int messageId, int field)
{
    return Fail(messageId, field, std::string(StringTable::Text(messageId)));
}

CCheckResult CCheckResult::Fail(int messageId, int field, std::string message)
{
    CCheckResult result;
    result.messageId = messageId;
    result.message = std::move(message);
    result.field = field;
    return result;
}

CCheckResult CheckChangedRange(long long value, long long loaded, int lower, int upper, int field)
{
    return value == loaded ? CCheckResult::Pass() : CheckRange(value, lower, upper, field);
}

CCheckResult CheckRange(long long value, int lower, int upper, int field)
{
    if (value >= lower && value <= upper)
        return CCheckResult::Pass();
    return CCheckResult::Fail(
        StringTable::IDS_VALUE_RANGE, field,
        StringTable::Format(StringTable::IDS_VALUE_RANGE, std::to_string(lower), std::to_string(upper)));
}
