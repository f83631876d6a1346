#include "cli/CStatsCommand.h"

#include "bridge/CorePaths.h"
#include "bridge/CoreText.h"
#include "cli/CConsole.h"
#include "cli/CLogbookOpener.h"
#include "cli/CUnitsOption.h"
#include "document/CLogbookDoc.h"
#include "document/IClock.h"
#include "qtformats/CStatsJson.h"
#include "stats/CLicenceRules.h"
#include "stats/CLogbookStats.h"
#include "units/DurationText.h"

#include <QJsonDocument>
#include <QRegularExpression>

namespace {

const QString kAsOf = QStringLiteral("as-of");
const QString kFormat = QStringLiteral("format");

std::string Duration(int64_t seconds)
{
    return DurationToText(static_cast<int>(std::min<int64_t>(seconds, INT32_MAX)), true);
}

std::string Name(const std::string& name)
{
    return name.empty() ? "(none)" : name;
}

QString Line(const char* label, const QString& value)
{
    return QStringLiteral("%1: %2").arg(QLatin1String(label), value);
}

using CoreText::ToQt;

// The text report, in the display units.
QStringList TextReport(const CLogbookStats& s, const CLicenceStatus& licence, const CUnitSettings& units)
{
    QStringList out;
    const CStatsFigures& f = s.logged;
    const QString height = QStringLiteral(" [%1]").arg(ToQt(units.HeightLabel()));
    out << QStringLiteral("Statistics as of %1").arg(ToQt(IsoDate(s.asOf)));
    out << Line(
        "Jumps",
        QStringLiteral("%1 (%2 logged, %3 before this logbook)").arg(s.totalJumps).arg(f.jumps).arg(s.previousJumps));
    out << Line("Freefall time",
                QStringLiteral("%1 (%2 before this logbook)")
                    .arg(ToQt(Duration(s.totalFreefallSeconds)), ToQt(Duration(s.previousFreefallSeconds))));
    out << Line("Canopy time", QStringLiteral("%1 (%2 jumps with a recorded time)")
                                   .arg(ToQt(Duration(f.canopySeconds)))
                                   .arg(f.canopyTimeJumps));
    out << QStringLiteral("Freefall distance%1: %2")
               .arg(ToQt(units.DistanceLabel()))
               .arg(units.DistanceToDisplay(static_cast<double>(f.freefallMetres)), 0, 'f', 1);
    out << QStringLiteral("Canopy distance%1: %2")
               .arg(ToQt(units.DistanceLabel()))
               .arg(units.DistanceToDisplay(static_cast<double>(f.canopyMetres)), 0, 'f', 1);
    out << QStringLiteral("Highest exit%1: %2").arg(height).arg(qRound(units.HeightToDisplay(f.highestExitMetres)));
    out << Line("Longest freefall", ToQt(Duration(f.longestFreefallSeconds)));
    out << QStringLiteral("Fastest speed [%1]: %2")
               .arg(ToQt(units.SpeedLabel()))
               .arg(units.SpeedToDisplay(f.fastestSpeed), 0, 'f', 1);
    out << Line("Cutaways", QString::number(f.cutaways));
    out << Line("Signed jumps", QStringLiteral("%1 (%2 unsigned)").arg(f.signedJumps).arg(f.unsignedJumps));
    out << Line("Last 12 months", QStringLiteral("%1 jumps, %2 freefall (%3 to %4)")
                                      .arg(s.last12Months.jumps)
                                      .arg(ToQt(Duration(s.last12Months.freefallSeconds)),
                                           ToQt(IsoDate(s.last12MonthsFrom)), ToQt(IsoDate(s.asOf))));
    const CStatsRhythm& r = s.rhythm;
    out << Line("Jumping days", QStringLiteral("%1 (%2 jumps a day, at most %3)")
                                    .arg(r.jumpingDays)
                                    .arg(r.jumpsPerJumpingDay, 0, 'f', 1)
                                    .arg(r.mostJumpsInADay));
    out << Line("Longest streak",
                QStringLiteral("%1 days from %2").arg(r.longestStreakDays).arg(ToQt(IsoDate(r.longestStreakStart))));
    out << Line("Longest gap", QStringLiteral("%1 days (%2 to %3)")
                                   .arg(r.longestGapDays)
                                   .arg(ToQt(IsoDate(r.longestGapFrom)), ToQt(IsoDate(r.longestGapTo))));
    out << Line("Days since the last jump",
                r.daysSinceLastJump >= 0 ? QString::number(r.daysSinceLastJump) : QString());
    const CLicenceProgress& p = licence.progress;
    out << Line("Licence", p.levelName.empty()
                               ? QStringLiteral("none")
                               : ToQt(p.levelName) + (p.levelFromProfile ? QStringLiteral(" (profile)")
                                                                         : QStringLiteral(" (reached)")));
    out << Line("Progress", ToQt(p.Text()));
    out << Line("Currency", ToQt(licence.currency.Text()));

    const auto periods = [&](const char* title, const std::vector<CStatsPeriod>& list) {
        out << QString() << QLatin1String(title);
        for (const CStatsPeriod& period : list) {
            const QString name = period.month == 0
                                     ? QString::number(period.year)
                                     : QStringLiteral("%1-%2").arg(period.year).arg(period.month, 2, 10, QChar('0'));
            out << QStringLiteral("  %1 %2 %3")
                       .arg(name, -8)
                       .arg(period.figures.jumps, 6)
                       .arg(ToQt(Duration(period.figures.freefallSeconds)), 10);
        }
    };
    periods("Per year (jumps, freefall):", s.perYear);
    periods("Per month, last 24 months (jumps, freefall):", s.perMonth);

    const auto groups = [&](const char* title, const std::vector<CStatsGroup>& list, bool rigs) {
        out << QString() << QLatin1String(title);
        qsizetype width = 12;
        for (const CStatsGroup& g : list)
            width = std::max(width, ToQt(Name(g.name)).size());
        for (const CStatsGroup& g : list) {
            QString line = QStringLiteral("  %1 %2 %3 %4..%5")
                               .arg(ToQt(Name(g.name)), -static_cast<int>(width))
                               .arg(g.jumps, 6)
                               .arg(ToQt(Duration(g.freefallSeconds)), 10)
                               .arg(ToQt(IsoDate(g.first)), ToQt(IsoDate(g.last)));
            if (rigs && g.sinceInspection >= 0)
                line += QStringLiteral(", %1 since the inspection of %2")
                            .arg(g.sinceInspection)
                            .arg(ToQt(IsoDate(g.inspectionDate)));
            out << line;
        }
    };
    groups("Per drop zone (jumps, freefall, first..last):", s.perDropZone, false);
    groups("Per aircraft:", s.perAircraft, false);
    groups("Per type:", s.perType, false);
    groups("Per rig:", s.perRig, true);
    groups("Per fall rate:", s.perFallrateKind, false);
    return out;
}

} // namespace

QString CStatsCommand::Summary() const
{
    return QStringLiteral("Prints statistics, licence progress and currency of a logbook.");
}

void CStatsCommand::Configure(QCommandLineParser& parser)
{
    parser.addPositionalArgument(QStringLiteral("LOGBOOK"), QStringLiteral("The logbook (.tvz or .tvl)."));
    parser.addOption(
        {kAsOf, QStringLiteral("Counts the jumps up to this day (default: today)."), QStringLiteral("YYYY-MM-DD")});
    parser.addOption({kFormat, QStringLiteral("Output format: text (default) or json."), QStringLiteral("text|json")});
    CUnitsOption::AddTo(parser);
}

QString CStatsCommand::Details() const
{
    return QStringLiteral(
        "Counts the jumps dated up to the day of --as-of, with the jumps and freefall time the\n"
        "preferences give for before the logbook. Text: totals, the last 12 months, jumping days,\n"
        "streaks and gaps, licence progress and currency, then per year, per month (24 months),\n"
        "per drop zone, aircraft, type, rig and fall rate, in the display units.\n"
        "JSON keys: asOf, totals, perYear, perMonth, last12Months, perDropZone, perAircraft, perType,\n"
        "perRig, perFallrateKind, streaks, licence, currency; durations in seconds, heights and\n"
        "distances in metres, speeds in m/s, dates YYYY-MM-DD.\n"
        "Licence levels: A 25 jumps; B 50 and 30:00 freefall; C 200 and 1:00:00; D 500 and 3:00:00.\n"
        "The level is the highest named at the start of a licence of the profile (\"D-12345\"),\n"
        "else the one the totals reach. Currency limits: student 30 days, A 60, B 90, C and D 180;\n"
        "\"due\" from 14 days before the limit ends.\n"
        "Exit codes: 0 printed, 1 the file does not load, 2 wrong command line.\n");
}

int CStatsCommand::Execute(const QCommandLineParser& parser)
{
    CUnitSettings units;
    QString error;
    if (!CUnitsOption::Resolve(parser, units, error))
        return Usage(error);
    const QString format = parser.isSet(kFormat) ? parser.value(kFormat).trimmed().toLower() : QStringLiteral("text");
    if (format != QLatin1String("text") && format != QLatin1String("json"))
        return Usage(QStringLiteral("unknown format \"%1\" (use text or json)").arg(parser.value(kFormat)));
    CDateTime asOf = CSystemClock().Today();
    if (parser.isSet(kAsOf)) {
        static const QRegularExpression iso(QStringLiteral("^(\\d{4})-(\\d{2})-(\\d{2})$"));
        const QRegularExpressionMatch match = iso.match(parser.value(kAsOf).trimmed());
        if (match.hasMatch())
            asOf = CDateTime(match.captured(1).toInt(), match.captured(2).toInt(), match.captured(3).toInt());
        if (!match.hasMatch() || !asOf.IsValid())
            return Usage(QStringLiteral("--as-of needs a date YYYY-MM-DD, not \"%1\"").arg(parser.value(kAsOf)));
    }
    CLogbookDoc doc;
    if (!CLogbookOpener::OpenOrReport(doc, CorePaths::LocalPath(parser.positionalArguments().at(0))))
        return Failure;
    const CLogbookStats stats = CLogbookStats::Compute(doc, asOf);
    const CLicenceStatus licence = CLicenceStatus::Compute(stats, doc.GetSettings().GetLicenses());
    if (format == QLatin1String("json"))
        CConsole::Out(QJsonDocument(CStatsJson::Build(stats, licence)).toJson(QJsonDocument::Indented));
    else
        CConsole::Out(TextReport(stats, licence, units).join(QLatin1Char('\n')) + QLatin1Char('\n'));
    return CConsole::FlushOut() ? Success : Failure;
}
