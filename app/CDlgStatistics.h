#pragma once

// Hidden from moc, which cannot parse the standard <compare> that the dates bring in.
#ifndef Q_MOC_RUN
#include "stats/CLicenceRules.h"
#include "stats/CLogbookStats.h"
#endif
#include "units/CUnitSettings.h"

#include <QDialog>

class CBarChart;
class CLicenceStatusPane;
class QComboBox;
class QGridLayout;
class QTableWidget;
class QTabWidget;

// The logbook's statistics as of one day, read only, on three pages: the totals with licence
// progress and currency; charts of the jumps per month and per year, the freefall time per
// year and the top drop zones and aircraft; and a sortable table of one breakdown at a time
// (drop zone, aircraft, type, rig, fall rate, year, month). Numbers in the display units and
// the locale's notation.
class CDlgStatistics : public QDialog
{
    Q_OBJECT

public:
    // The breakdowns the table can show, in the order of its chooser.
    enum Breakdown
    {
        DropZones,
        Aircraft,
        Types,
        Rigs,
        FallRates,
        Years,
        Months,
        BreakdownCount
    };

    CDlgStatistics(const CLogbookStats& stats, const CLicenceStatus& licence, const CUnitSettings& units,
                   QWidget* parent = nullptr);

    QTabWidget* Tabs() const { return m_tabs; }
    QTableWidget* Table() const { return m_table; }
    // Shows a breakdown in the table.
    void ShowBreakdown(int breakdown);
    // The charts: months, years, freefall per year, drop zones, aircraft.
    QList<CBarChart*> Charts() const { return m_charts; }
    // The value shown beside a totals label (by its object name), for tests.
    QString TotalText(const QString& name) const;

    // How many drop zones and aircraft the charts show.
    static constexpr int kTopCount = 8;

private:
    QWidget* MakeTotalsPage();
    QWidget* MakeChartsPage();
    QWidget* MakeBreakdownPage();
    void AddTotal(QGridLayout* grid, const QString& name, const QString& label, const QString& value);

    CLogbookStats m_stats;
    CLicenceStatus m_licence;
    CUnitSettings m_units;
    QTabWidget* m_tabs = nullptr;
    QComboBox* m_chooser = nullptr;
    QTableWidget* m_table = nullptr;
    QList<CBarChart*> m_charts;
    CLicenceStatusPane* m_status = nullptr;
};
