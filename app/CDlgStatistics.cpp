#include "app/CDlgStatistics.h"

#include "app/CDateText.h"
#include "app/CLicenceStatusPane.h"
#include "bridge/CoreText.h"
#include "controls/CBarChart.h"
#include "units/DurationText.h"

#include <QComboBox>
#include <QDate>
#include <QDialogButtonBox>
#include <QGridLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLocale>
#include <QScrollArea>
#include <QTabWidget>
#include <QTableWidget>
#include <QVBoxLayout>

#include <algorithm>

namespace {

using CoreText::ToQt;

QString Duration(int64_t seconds)
{
    return ToQt(DurationToText(static_cast<int>(std::min<int64_t>(seconds, INT32_MAX)), true));
}

QString Number(int64_t value)
{
    return QLocale().toString(static_cast<qlonglong>(value));
}

QString Decimal(double value, int decimals)
{
    return QLocale().toString(value, 'f', decimals);
}

// A cell that sorts by a number (or date) kept beside its text.
class CSortItem final : public QTableWidgetItem
{
public:
    CSortItem(const QString& text, double key) : QTableWidgetItem(text) { setData(Qt::UserRole, key); }
    bool operator<(const QTableWidgetItem& other) const override
    {
        return data(Qt::UserRole).toDouble() < other.data(Qt::UserRole).toDouble();
    }
};

QWidget* Scrolling(QWidget* content)
{
    auto* scroll = new QScrollArea;
    scroll->setWidget(content);
    scroll->setWidgetResizable(true);
    scroll->setFrameShape(QFrame::NoFrame);
    scroll->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    return scroll;
}

} // namespace

CDlgStatistics::CDlgStatistics(const CLogbookStats& stats, const CLicenceStatus& licence, const CUnitSettings& units,
                               QWidget* parent)
    : QDialog(parent), m_stats(stats), m_licence(licence), m_units(units)
{
    setObjectName(QStringLiteral("statistics"));
    setWindowTitle(tr("Statistics"));
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(4, 4, 4, 4);
    m_tabs = new QTabWidget(this);
    m_tabs->setObjectName(QStringLiteral("statisticsTabs"));
    m_tabs->setUsesScrollButtons(true);
    m_tabs->addTab(MakeTotalsPage(), tr("Totals"));
    m_tabs->addTab(MakeChartsPage(), tr("Charts"));
    m_tabs->addTab(MakeBreakdownPage(), tr("Tables"));
    layout->addWidget(m_tabs, 1);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Close, this);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    layout->addWidget(buttons);
    ShowBreakdown(DropZones);
}

void CDlgStatistics::AddTotal(QGridLayout* grid, const QString& name, const QString& label, const QString& value)
{
    const int row = grid->rowCount();
    auto* labelWidget = new QLabel(label);
    labelWidget->setWordWrap(true);
    auto* valueWidget = new QLabel(value);
    valueWidget->setObjectName(name);
    valueWidget->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    QFont bold = valueWidget->font();
    bold.setBold(true);
    valueWidget->setFont(bold);
    grid->addWidget(labelWidget, row, 0);
    grid->addWidget(valueWidget, row, 1);
}

QString CDlgStatistics::TotalText(const QString& name) const
{
    const auto* label = findChild<QLabel*>(name);
    return label ? label->text() : QString();
}

QWidget* CDlgStatistics::MakeTotalsPage()
{
    auto* page = new QWidget;
    // On a desktop the values stay near their labels.
    page->setMaximumWidth(560);
    auto* layout = new QVBoxLayout(page);
    layout->setContentsMargins(4, 4, 4, 4);
    auto* asOf = new QLabel(tr("As of %1").arg(CDateText::ShortDate(m_stats.asOf)));
    asOf->setObjectName(QStringLiteral("statisticsAsOf"));
    layout->addWidget(asOf);
    m_status = new CLicenceStatusPane(page);
    m_status->SetStatus(m_licence);
    layout->addWidget(m_status);

    auto* grid = new QGridLayout;
    grid->setColumnStretch(0, 1);
    grid->setHorizontalSpacing(8);
    const CStatsFigures& f = m_stats.logged;
    const CStatsRhythm& r = m_stats.rhythm;
    const QString distance = ToQt(m_units.DistanceLabel());
    AddTotal(grid, QStringLiteral("totalJumps"), tr("Jumps"), Number(m_stats.totalJumps));
    AddTotal(grid, QStringLiteral("loggedJumps"), tr("Logged jumps"), Number(f.jumps));
    AddTotal(grid, QStringLiteral("previousJumps"), tr("Jumps before this logbook"), Number(m_stats.previousJumps));
    AddTotal(grid, QStringLiteral("totalFreefall"), tr("Freefall time"), Duration(m_stats.totalFreefallSeconds));
    AddTotal(grid, QStringLiteral("previousFreefall"), tr("Freefall before this logbook"),
             Duration(m_stats.previousFreefallSeconds));
    AddTotal(grid, QStringLiteral("canopyTime"), tr("Canopy time (%1 recorded)").arg(Number(f.canopyTimeJumps)),
             Duration(f.canopySeconds));
    AddTotal(grid, QStringLiteral("freefallDistance"), tr("Freefall distance") + distance,
             Decimal(m_units.DistanceToDisplay(static_cast<double>(f.freefallMetres)), 1));
    AddTotal(grid, QStringLiteral("canopyDistance"), tr("Canopy distance") + distance,
             Decimal(m_units.DistanceToDisplay(static_cast<double>(f.canopyMetres)), 1));
    AddTotal(grid, QStringLiteral("highestExit"), tr("Highest exit [%1]").arg(ToQt(m_units.HeightLabel())),
             Number(qRound(m_units.HeightToDisplay(f.highestExitMetres))));
    AddTotal(grid, QStringLiteral("longestFreefall"), tr("Longest freefall"), Duration(f.longestFreefallSeconds));
    AddTotal(grid, QStringLiteral("fastestSpeed"), tr("Fastest speed [%1]").arg(ToQt(m_units.SpeedLabel())),
             Decimal(m_units.SpeedToDisplay(f.fastestSpeed), 1));
    AddTotal(grid, QStringLiteral("cutaways"), tr("Cutaways"), Number(f.cutaways));
    AddTotal(grid, QStringLiteral("signedJumps"), tr("Signed jumps"), Number(f.signedJumps));
    AddTotal(grid, QStringLiteral("unsignedJumps"), tr("Unsigned jumps"), Number(f.unsignedJumps));
    AddTotal(grid, QStringLiteral("last12Jumps"), tr("Jumps in the last 12 months"),
             Number(m_stats.last12Months.jumps));
    AddTotal(grid, QStringLiteral("last12Freefall"), tr("Freefall in the last 12 months"),
             Duration(m_stats.last12Months.freefallSeconds));
    AddTotal(grid, QStringLiteral("jumpingDays"), tr("Jumping days"), Number(r.jumpingDays));
    AddTotal(grid, QStringLiteral("jumpsPerDay"), tr("Jumps per jumping day"), Decimal(r.jumpsPerJumpingDay, 1));
    AddTotal(grid, QStringLiteral("mostInADay"), tr("Most jumps in a day"), Number(r.mostJumpsInADay));
    AddTotal(grid, QStringLiteral("longestStreak"), tr("Longest streak of jumping days"), Number(r.longestStreakDays));
    AddTotal(grid, QStringLiteral("longestGap"), tr("Longest gap (days)"), Number(r.longestGapDays));
    AddTotal(grid, QStringLiteral("daysSinceLast"), tr("Days since the last jump"),
             r.daysSinceLastJump >= 0 ? Number(r.daysSinceLastJump) : QStringLiteral("–"));
    layout->addLayout(grid);
    layout->addStretch(1);
    return Scrolling(page);
}

QWidget* CDlgStatistics::MakeChartsPage()
{
    auto* page = new QWidget;
    auto* layout = new QVBoxLayout(page);
    layout->setContentsMargins(2, 2, 2, 2);
    const auto add = [&](CBarChart::Orientation orientation, const QString& name, const QString& title) {
        auto* chart = new CBarChart(orientation, page);
        chart->setObjectName(name);
        chart->SetTitle(title);
        if (orientation == CBarChart::Orientation::Columns)
            chart->setMinimumHeight(150);
        layout->addWidget(chart);
        m_charts.append(chart);
        return chart;
    };

    QStringList labels;
    QList<double> jumps;
    for (const CStatsPeriod& month : m_stats.perMonth) {
        labels.append(QStringLiteral("%1/%2").arg(month.month).arg(month.year % 100, 2, 10, QLatin1Char('0')));
        jumps.append(month.figures.jumps);
    }
    CBarChart* months = add(CBarChart::Orientation::Columns, QStringLiteral("chartMonths"), tr("Jumps per month"));
    months->SetWholeNumbers(true);
    months->SetBars(labels, jumps);

    labels.clear();
    jumps.clear();
    QList<double> hours;
    for (const CStatsPeriod& year : m_stats.perYear) {
        labels.append(QString::number(year.year));
        jumps.append(year.figures.jumps);
        hours.append(static_cast<double>(year.figures.freefallSeconds) / 3600.0);
    }
    CBarChart* years = add(CBarChart::Orientation::Columns, QStringLiteral("chartYears"), tr("Jumps per year"));
    years->SetWholeNumbers(true);
    years->SetBars(labels, jumps);
    add(CBarChart::Orientation::Columns, QStringLiteral("chartFreefall"), tr("Freefall hours per year"))
        ->SetBars(labels, hours);

    const auto top = [&](const std::vector<CStatsGroup>& groups, const QString& name, const QString& title) {
        QStringList names;
        QList<double> counts;
        for (std::size_t i = 0; i < groups.size() && i < static_cast<std::size_t>(kTopCount); ++i) {
            names.append(groups[i].name.empty() ? tr("(none)") : ToQt(groups[i].name));
            counts.append(groups[i].jumps);
        }
        add(CBarChart::Orientation::Rows, name, title)->SetBars(names, counts, [](double v) {
            return Number(static_cast<int64_t>(v));
        });
    };
    top(m_stats.perDropZone, QStringLiteral("chartDropZones"), tr("Top drop zones"));
    top(m_stats.perAircraft, QStringLiteral("chartAircraft"), tr("Top aircraft"));
    layout->addStretch(1);
    return Scrolling(page);
}

QWidget* CDlgStatistics::MakeBreakdownPage()
{
    auto* page = new QWidget;
    auto* layout = new QVBoxLayout(page);
    layout->setContentsMargins(2, 2, 2, 2);
    m_chooser = new QComboBox(page);
    m_chooser->setObjectName(QStringLiteral("breakdownChooser"));
    m_chooser->addItems({tr("Per drop zone"), tr("Per aircraft"), tr("Per type"), tr("Per rig"), tr("Per fall rate"),
                         tr("Per year"), tr("Per month")});
    layout->addWidget(m_chooser);
    m_table = new QTableWidget(page);
    m_table->setObjectName(QStringLiteral("breakdownTable"));
    m_table->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_table->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_table->verticalHeader()->hide();
    m_table->horizontalHeader()->setSectionResizeMode(QHeaderView::ResizeToContents);
    m_table->verticalHeader()->setDefaultSectionSize(m_table->fontMetrics().height() + 8);
    m_table->setWordWrap(false);
    layout->addWidget(m_table, 1);
    connect(m_chooser, &QComboBox::currentIndexChanged, this, &CDlgStatistics::ShowBreakdown);
    return page;
}

void CDlgStatistics::ShowBreakdown(int breakdown)
{
    if (m_chooser->currentIndex() != breakdown) {
        m_chooser->setCurrentIndex(breakdown); // comes back here
        return;
    }
    m_table->setSortingEnabled(false);
    m_table->clear();
    const bool periods = breakdown == Years || breakdown == Months;
    const bool rigs = breakdown == Rigs;
    QStringList headers{periods ? (breakdown == Years ? tr("Year") : tr("Month")) : tr("Name"), tr("Jumps"),
                        tr("Freefall")};
    if (!periods)
        headers << tr("First") << tr("Last");
    if (rigs)
        headers << tr("Since inspection");
    m_table->setColumnCount(static_cast<int>(headers.size()));
    m_table->setHorizontalHeaderLabels(headers);
    const auto date = [](const CDateTime& d) {
        return new CSortItem(CDateText::ShortDate(d), d.IsValid() ? static_cast<double>(d.DayNumber()) : -1e9);
    };
    const auto number = [](int64_t v) { return new CSortItem(Number(v), static_cast<double>(v)); };
    const auto duration = [](int64_t v) { return new CSortItem(Duration(v), static_cast<double>(v)); };

    if (periods) {
        const std::vector<CStatsPeriod>& list = breakdown == Years ? m_stats.perYear : m_stats.perMonth;
        m_table->setRowCount(static_cast<int>(list.size()));
        for (int row = 0; row < static_cast<int>(list.size()); ++row) {
            const CStatsPeriod& p = list[static_cast<std::size_t>(row)];
            const QString name = p.month == 0
                                     ? QString::number(p.year)
                                     : QLocale().toString(QDate(p.year, p.month, 1), QStringLiteral("MMM yyyy"));
            m_table->setItem(row, 0, new CSortItem(name, p.year * 12.0 + p.month));
            m_table->setItem(row, 1, number(p.figures.jumps));
            m_table->setItem(row, 2, duration(p.figures.freefallSeconds));
        }
    } else {
        const std::vector<CStatsGroup>* lists[] = {&m_stats.perDropZone, &m_stats.perAircraft, &m_stats.perType,
                                                   &m_stats.perRig, &m_stats.perFallrateKind};
        const std::vector<CStatsGroup>& list = *lists[breakdown];
        m_table->setRowCount(static_cast<int>(list.size()));
        for (int row = 0; row < static_cast<int>(list.size()); ++row) {
            const CStatsGroup& g = list[static_cast<std::size_t>(row)];
            auto* name = new QTableWidgetItem(g.name.empty() ? tr("(none)") : ToQt(g.name));
            m_table->setItem(row, 0, name);
            m_table->setItem(row, 1, number(g.jumps));
            m_table->setItem(row, 2, duration(g.freefallSeconds));
            m_table->setItem(row, 3, date(g.first));
            m_table->setItem(row, 4, date(g.last));
            if (rigs)
                m_table->setItem(row, 5,
                                 g.sinceInspection >= 0 ? number(g.sinceInspection) : new CSortItem(QString(), -1));
        }
    }
    for (int column = 1; column < m_table->columnCount(); ++column)
        for (int row = 0; row < m_table->rowCount(); ++row)
            if (QTableWidgetItem* item = m_table->item(row, column); item && column < 3)
                item->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
    // Periods oldest first, the others most jumps first; a click on a header sorts by it.
    m_table->setSortingEnabled(true);
    m_table->sortByColumn(periods ? 0 : 1, periods ? Qt::AscendingOrder : Qt::DescendingOrder);
}
