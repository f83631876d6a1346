#pragma once

#include <QJsonObject>

struct CLogbookStats;
struct CLicenceStatus;

// The statistics as JSON with stable keys: "asOf", "totals", "perYear", "perMonth",
// "last12Months", "perDropZone", "perAircraft", "perType", "perRig", "perFallrateKind",
// "streaks", "licence", "currency". Durations in seconds, heights and distances in metres,
// speeds in metres per second, dates as "YYYY-MM-DD" (null when there is none).
class CStatsJson
{
public:
    static QJsonObject Build(const CLogbookStats& stats, const CLicenceStatus& licence);
};
