// The statistics window opened from the Logbook menu and from the home page's button, pictures
// of its three pages at the handheld, phone and desktop sizes (PNG files into the folder named
// by TERVOLA_RENDER_DIR, nothing without it) with a layout check of each and of its charts, its
// sortable tables, and the home page's licence progress and currency in each state.

#include "CAppHarness.h"
#include "CRenderCheck.h"

#include "app/AppCommands.h"
#include "app/CDesktopPane.h"
#include "app/CDlgStatistics.h"
#include "app/CLicenceStatusPane.h"
#include "app/CSummaryPane.h"
#include "controls/CBarChart.h"
#include "tests/stats/StatsLogbook.h"

#include <QAction>
#include <QHeaderView>
#include <QScrollArea>
#include <QTabWidget>
#include <QTableWidget>
#include <QToolButton>

namespace {

// Bars inside the plot, the plot inside the chart, shown labels inside and apart, heights
// (columns) or lengths (rows) in proportion to the values.
QStringList ChartProblems(const CBarChart* chart, bool rows, const QList<double>& values)
{
    QStringList problems;
    const QString name = chart->objectName();
    const QRectF whole(chart->rect());
    if (!whole.contains(chart->PlotArea()))
        problems << name + QStringLiteral(": plot leaves the chart");
    QList<QRectF> labels;
    const double maxValue = values.isEmpty() ? 0.0 : *std::max_element(values.begin(), values.end());
    for (int i = 0; i < chart->BarCount(); ++i) {
        const QRectF bar = chart->BarRect(i);
        const QRectF plot = chart->PlotArea().adjusted(-0.5, -0.5, 0.5, 0.5);
        // Edges, not QRectF::contains, which refuses the empty bar of a zero.
        if (bar.left() < plot.left() || bar.right() > plot.right() || bar.top() < plot.top() ||
            bar.bottom() > plot.bottom())
            problems << name + QStringLiteral(": bar %1 leaves the plot").arg(i);
        const double size = rows ? bar.width() : bar.height();
        const double full = rows ? chart->PlotArea().width() : chart->PlotArea().bottom() - chart->PlotArea().top();
        if (maxValue > 0 && size > full * values[i] / maxValue + 1.0)
            problems << name + QStringLiteral(": bar %1 too long").arg(i);
        if (values[i] == maxValue && maxValue > 0 && size < full * 0.5)
            problems << name + QStringLiteral(": the longest bar %1 is short").arg(i);
        if (const QRectF label = chart->LabelRect(i); !label.isEmpty()) {
            if (!whole.contains(label))
                problems << name + QStringLiteral(": label %1 leaves the chart").arg(i);
            for (const QRectF& other : labels)
                if (other.intersects(label))
                    problems << name + QStringLiteral(": label %1 overlaps another").arg(i);
            labels << label;
        }
    }
    if (chart->BarCount() > 0 && labels.isEmpty())
        problems << name + QStringLiteral(": no label shown");
    return problems;
}

// The jumps of each bar of the charts of the hand-made logbook as of 10 June 2024.
const QList<double> kMonthJumps = [] {
    QList<double> months(24, 0.0);
    months[17] = 1; // December 2023 is the 18th of July 2022 .. June 2024
    months[18] = 1;
    months[19] = 2;
    return months;
}();

} // namespace

class TestStatistics : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { RenderCheck::UseLanguage(QLocale(QLocale::English, QLocale::UnitedStates)); }

    // The menu command opens the window on the open logbook as of the clock's day; every page at
    // every size shows its texts whole, lies within the window and needs no sideways scrolling.
    void windowAtEverySize()
    {
        CAppHarness harness;
        harness.settings.SetInt("Preferences", "Units", 1);
        harness.SetLastFile(harness.WriteFile(QStringLiteral("s.tvl"), QByteArray::fromStdString(StatsLogbook::Xml())));
        QVERIFY(harness.StartWithoutSplash());
        QStringList problems;
        bool ran = false;
        harness.dialogs.steps.append([&](QDialog& dialog) {
            auto* statistics = qobject_cast<CDlgStatistics*>(&dialog);
            if (!statistics)
                return int(QDialog::Rejected);
            ran = true;
            // 40 + 4 jumps up to 10 June 2024; the currency of an A licence (60 days) has lapsed.
            problems << (statistics->TotalText(QStringLiteral("totalJumps")) == QStringLiteral("44")
                             ? QString()
                             : QStringLiteral("total ") + statistics->TotalText(QStringLiteral("totalJumps")));
            problems << (statistics->TotalText(QStringLiteral("highestExit")) == QStringLiteral("4,000")
                             ? QString()
                             : QStringLiteral("exit ") + statistics->TotalText(QStringLiteral("highestExit")));
            for (const QSize size : RenderCheck::kSizes) {
                statistics->resize(size);
                statistics->show();
                for (int page = 0; page < statistics->Tabs()->count(); ++page) {
                    statistics->Tabs()->setCurrentIndex(page);
                    QApplication::processEvents();
                    const QString file =
                        QStringLiteral("statistics_%1_%2x%3.png").arg(page).arg(size.width()).arg(size.height());
                    if (!RenderCheck::Save(statistics, file))
                        problems << file + QStringLiteral(" not written");
                    for (const QString& clipped : RenderCheck::Clipped(statistics))
                        problems << file + QStringLiteral(": ") + clipped;
                    if (auto* scroll = qobject_cast<QScrollArea*>(statistics->Tabs()->currentWidget());
                        scroll && scroll->widget()->minimumSizeHint().width() > scroll->viewport()->width())
                        problems << file + QStringLiteral(": wider than the window");
                }
                const QList<CBarChart*> charts = statistics->Charts();
                problems += ChartProblems(charts[0], false, kMonthJumps);
                problems += ChartProblems(charts[1], false, {1, 3});
                problems += ChartProblems(charts[3], true, {2, 2});
                problems += ChartProblems(charts[4], true, {3, 1});
                // Jumps are counted in whole numbers; freefall hours are not.
                for (int i : {0, 1})
                    if (charts[i]->Axis().Step() < 1.0)
                        problems << charts[i]->objectName() + QStringLiteral(": ticks between whole jumps");
            }
            return int(QDialog::Rejected);
        });
        harness.Frame()->findChild<QAction*>(QStringLiteral("statisticsAction"))->trigger();
        QVERIFY(ran);
        problems.removeAll(QString());
        QVERIFY2(problems.isEmpty(), qPrintable(problems.join(QLatin1Char('\n'))));

        // The home page's button opens the same window.
        auto* button = harness.View()->findChild<QToolButton*>(QStringLiteral("statisticsButton"));
        QVERIFY(button->isVisibleTo(harness.View()));
        button->click();
        QCOMPARE(harness.dialogs.ran, QStringList({"statistics", "statistics"}));
    }

    // A header click sorts by its column, numbers as numbers; the rig table adds the jumps since
    // the inspection.
    void tablesSort()
    {
        CScratchFolder folder("statistics");
        const std::string path = folder / "s.tvl";
        QVERIFY(WriteBytes(path, StatsLogbook::Xml()));
        CLogbookDoc doc;
        QVERIFY(doc.Load(path).ok);
        const CLogbookStats stats = CLogbookStats::Compute(doc, CDateTime(2026, 1, 31));
        CDlgStatistics dialog(stats, CLicenceStatus::Compute(stats, {}), CUnitSettings());
        dialog.resize(360, 640);
        dialog.show();
        QTableWidget* table = dialog.Table();
        const auto column = [table](int c) {
            QStringList texts;
            for (int row = 0; row < table->rowCount(); ++row)
                texts << table->item(row, c)->text();
            return texts;
        };
        QCOMPARE(column(0), QStringList({"Utti", "Tervola"}));
        QCOMPARE(column(1), QStringList({"5", "2"}));
        QHeaderView* header = table->horizontalHeader();
        QTest::mouseClick(header->viewport(), Qt::LeftButton, {}, QPoint(header->sectionViewportPosition(0) + 4, 4));
        QCOMPARE(column(0), QStringList({"Tervola", "Utti"}));
        dialog.ShowBreakdown(CDlgStatistics::Rigs);
        QCOMPARE(table->horizontalHeaderItem(5)->text(), QStringLiteral("Since inspection"));
        const QStringList rigs = column(0);
        QCOMPARE(rigs.size(), 3);
        for (int row = 0; row < 3; ++row)
            QCOMPARE(table->item(row, 5)->text(),
                     rigs[row].startsWith(QStringLiteral("[1]")) ? QStringLiteral("2") : QString());
        dialog.ShowBreakdown(CDlgStatistics::Months);
        QCOMPARE(table->rowCount(), 24);
        table->sortByColumn(1, Qt::DescendingOrder);
        QCOMPARE(table->item(0, 0)->text(), QStringLiteral("Feb 2024"));
    }

    // Licence progress and currency on the home page, coloured by state, at the clock's day.
    void homePageStates()
    {
        const struct
        {
            const char* name;
            CDateTime today;
            CCurrency::State state;
            const char* currency;
        } rows[] = {
            {"current", CDateTime(2026, 1, 20), CCurrency::State::Current,
             "Current: 15 of 60 days since the last jump"},
            {"due", CDateTime(2026, 2, 20), CCurrency::State::Due, "Recurrency jump due by 3/6/26"},
            {"lapsed", CDateTime(2026, 4, 1), CCurrency::State::Lapsed,
             "Currency lapsed since 3/7/26: a recurrency jump is needed"},
        };
        for (const auto& row : rows) {
            const CRow named{QString::fromLatin1(row.name)};
            CAppHarness harness;
            harness.clock.Set(row.today);
            harness.SetLastFile(
                harness.WriteFile(QStringLiteral("s.tvl"), QByteArray::fromStdString(StatsLogbook::Xml())));
            QVERIFY(harness.StartWithoutSplash());
            CLicenceStatusPane* pane =
                harness.View()->findChild<QWidget*>("homePage")->findChild<CLicenceStatusPane*>();
            for (const QSize size : RenderCheck::kSizes) {
                harness.Frame()->resize(size);
                // The view fits the cards to its new width as it is resized, which lays it out again.
                QApplication::processEvents();
                QApplication::processEvents();
                if (harness.View()->IsDesktopLayout()) {
                    // The desktop shows the same status beside its table, under its summary.
                    CLicenceStatusPane* desktop = harness.View()->Desktop()->LicenceStatus();
                    QVERIFY(desktop->isVisibleTo(harness.View()));
                    QCOMPARE(desktop->CurrencyText(), QString::fromUtf8(row.currency));
                    QVERIFY(RenderCheck::Save(harness.Frame(), QStringLiteral("home_%1_desktop.png").arg(row.name)));
                    continue;
                }
                QVERIFY(pane->isVisibleTo(harness.View()));
                // The landscape handheld has the height for one short line each only.
                QCOMPARE(pane->IsCompact(), size == QSize(320, 240));
                const QString file =
                    QStringLiteral("home_%1_%2x%3.png").arg(row.name).arg(size.width()).arg(size.height());
                QVERIFY(RenderCheck::Save(harness.Frame(), file));
                const QStringList problems =
                    RenderCheck::Layout(harness.View(), QList<QWidget*>{harness.View()->Summary(), pane}) +
                    RenderCheck::Clipped(pane);
                QVERIFY2(problems.isEmpty(), qPrintable(file + QLatin1Char(' ') + problems.join(QLatin1Char('\n'))));
            }
            // Back at the portrait handheld, where the texts are the long ones.
            harness.Frame()->resize(RenderCheck::kSizes.front());
            QApplication::processEvents();
            QCOMPARE(pane->ProgressText(),
                     QStringLiteral("Licence A · next B: 47 of 50 jumps, 25:14 of 30:00 freefall"));
            QCOMPARE(pane->ProgressColour(), CLicenceStatusPane::kOpenColour);
            QCOMPARE(pane->CurrencyText(), QString::fromUtf8(row.currency));
            QCOMPARE(pane->CurrencyColour(), CLicenceStatusPane::CurrencyColour(row.state));
        }
    }
};

QTEST_MAIN(TestStatistics)
#include "StatisticsTest.moc"
