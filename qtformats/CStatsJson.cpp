#include "qtformats/CStatsJson.h"

#include "bridge/CoreText.h"
#include "stats/CLicenceRules.h"
#include "stats/CLogbookStats.h"

#include <QJsonArray>

namespace {

QJsonValue Date(const CDateTime& date)
{
    return date.IsValid() ? QJsonValue(CoreText::ToQt(IsoDate(date))) : QJsonValue();
}

QJsonValue Number(int64_t value)
{
    return QJsonValue(static_cast<qint64>(value));
}

QJsonObject Figures(const CStatsFigures& f)
{
    return QJsonObject{{"jumps", f.jumps},
                       {"freefallSeconds", Number(f.freefallSeconds)},
                       {"canopySeconds", Number(f.canopySeconds)},
                       {"canopyTimeJumps", f.canopyTimeJumps},
                       {"freefallDistanceMetres", Number(f.freefallMetres)},
                       {"canopyDistanceMetres", Number(f.canopyMetres)},
                       {"highestExitMetres", f.highestExitMetres},
                       {"longestFreefallSeconds", f.longestFreefallSeconds},
                       {"fastestSpeedMetresPerSecond", f.fastestSpeed},
                       {"cutaways", f.cutaways},
                       {"signedJumps", f.signedJumps},
                       {"unsignedJumps", f.unsignedJumps}};
}

QJsonArray Groups(const std::vector<CStatsGroup>& groups, bool rigs)
{
    QJsonArray array;
    for (const CStatsGroup& g : groups) {
        QJsonObject object{{"name", CoreText::ToQt(g.name)},
                           {"jumps", g.jumps},
                           {"freefallSeconds", Number(g.freefallSeconds)},
                           {"first", Date(g.first)},
                           {"last", Date(g.last)}};
        if (rigs) {
            object.insert("number", g.rigNumber);
            object.insert("previousJumps", g.previousJumps);
            object.insert("inspectionDate", Date(g.inspectionDate));
            object.insert("jumpsSinceInspection",
                          g.sinceInspection >= 0 ? QJsonValue(g.sinceInspection) : QJsonValue());
        }
        array.append(object);
    }
    return array;
}

QJsonArray Periods(const std::vector<CStatsPeriod>& periods)
{
    QJsonArray array;
    for (const CStatsPeriod& p : periods) {
        QJsonObject object = Figures(p.figures);
        if (p.month == 0)
            object.insert("year", p.year);
        else
            object.insert("month",
                          QStringLiteral("%1-%2").arg(p.year, 4, 10, QChar('0')).arg(p.month, 2, 10, QChar('0')));
        array.append(object);
    }
    return array;
}

} // namespace

QJsonObject CStatsJson::Build(const CLogbookStats& stats, const CLicenceStatus& licence)
{
    QJsonObject totals = Figures(stats.logged);
    totals.insert("jumps", stats.totalJumps);
    totals.insert("loggedJumps", stats.logged.jumps);
    totals.insert("previousJumps", stats.previousJumps);
    totals.insert("freefallSeconds", Number(stats.totalFreefallSeconds));
    totals.insert("loggedFreefallSeconds", Number(stats.logged.freefallSeconds));
    totals.insert("previousFreefallSeconds", Number(stats.previousFreefallSeconds));

    QJsonObject last12 = Figures(stats.last12Months);
    last12.insert("from", Date(stats.last12MonthsFrom));
    last12.insert("to", Date(stats.asOf));

    const CStatsRhythm& r = stats.rhythm;
    const QJsonObject streaks{
        {"jumpingDays", r.jumpingDays},
        {"jumpsPerJumpingDay", r.jumpsPerJumpingDay},
        {"mostJumpsInADay", r.mostJumpsInADay},
        {"busiestDay", Date(r.busiestDay)},
        {"longestStreakDays", r.longestStreakDays},
        {"longestStreakStart", Date(r.longestStreakStart)},
        {"longestGapDays", r.longestGapDays},
        {"longestGapFrom", Date(r.longestGapFrom)},
        {"longestGapTo", Date(r.longestGapTo)},
        {"daysSinceLastJump", r.daysSinceLastJump >= 0 ? QJsonValue(r.daysSinceLastJump) : QJsonValue()},
        {"lastJump", Date(r.lastJump)}};

    const CLicenceProgress& p = licence.progress;
    const auto text = [](const std::string& s) { return s.empty() ? QJsonValue() : QJsonValue(CoreText::ToQt(s)); };
    const QJsonObject licenceObject{
        {"level", text(p.levelName)},
        {"levelFromProfile", p.levelFromProfile},
        {"next", text(p.nextName)},
        {"jumps", p.jumps},
        {"freefallSeconds", Number(p.freefallSeconds)},
        {"requiredJumps", p.hasNext ? QJsonValue(p.nextJumps) : QJsonValue()},
        {"requiredFreefallSeconds", p.hasNext ? Number(p.nextFreefallSeconds) : QJsonValue()},
        {"met", p.hasNext && p.Met()},
        {"text", CoreText::ToQt(p.Text())}};

    const CCurrency& c = licence.currency;
    const QJsonObject currency{
        {"state", CoreText::ToQt(c.StateName())},
        {"limitDays", c.limitDays},
        {"daysSinceLastJump", c.daysSinceLastJump >= 0 ? QJsonValue(c.daysSinceLastJump) : QJsonValue()},
        {"lastJump", Date(c.lastJump)},
        {"currentUntil", Date(c.currentUntil)},
        {"lapsedSince", c.state == CCurrency::State::Lapsed ? Date(c.lapsedSince) : QJsonValue()},
        {"text", CoreText::ToQt(c.Text())}};

    return QJsonObject{{"asOf", Date(stats.asOf)},
                       {"totals", totals},
                       {"perYear", Periods(stats.perYear)},
                       {"perMonth", Periods(stats.perMonth)},
                       {"last12Months", last12},
                       {"perDropZone", Groups(stats.perDropZone, false)},
                       {"perAircraft", Groups(stats.perAircraft, false)},
                       {"perType", Groups(stats.perType, false)},
                       {"perRig", Groups(stats.perRig, true)},
                       {"perFallrateKind", Groups(stats.perFallrateKind, false)},
                       {"streaks", streaks},
                       {"licence", licenceObject},
                       {"currency", currency}};
}
