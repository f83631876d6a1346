#include "editing/CCheckResult.h"

#include "resources/StringTable.h"

CCheckResult CCheckResult::Fail(int messageId, int field, std::string arg1, std::string arg2)
{
    CCheckResult result;
    result.messageId = messageId;
    result.arg1 = std::move(arg1);
    result.arg2 = std::move(arg2);
    result.field = field;
    return result;
}

CCheckResult CCheckResult::Missing(int messageId, int field)
{
    CCheckResult result = Fail(messageId, field);
    result.severity = CheckSeverity::Error;
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
    return CCheckResult::Fail(StringTable::IDS_VALUE_RANGE, field, std::to_string(lower), std::to_string(upper));
}
