// The desktop window's table of jumps on a logbook of 100,000 generated jumps: how long from the
// end of a load (the document taking over what the loading thread read) until the table is on
// screen and scrolls; sorting by each column; an edit's OK until table, summary and buttons show
// it; a query typed into the search field until table, count and summary show what it finds;
// and the memory the table models keep for their rows. Medians of several runs in
// milliseconds, each with its target and PASS or MISS. Run with QT_QPA_PLATFORM=offscreen where
// there is no display.

#include "CBenchWindow.h"
#include "CLogbookGenerator.h"

#include "app/AppCommands.h"
#include "app/CDesktopPane.h"
#include "app/CJumpTableModel.h"
#include "app/CLogbookCommands.h"
#include "app/CLogbookView.h"
#include "app/CSearchBar.h"
#include "controls/IDialogRunner.h"

#include <QApplication>
#include <QComboBox>
#include <QDialog>
#include <QElapsedTimer>
#include <QScrollBar>
#include <QTableView>

#include <cstdio>
#include <string>
#include <vector>

namespace {

// Changes the place in the editor and times its OK until the window has shown the result.
class COkTimer final : public IDialogRunner
{
public:
    int Run(QDialog& dialog) override
    {
        dialog.show();
        QCoreApplication::processEvents();
        dialog.findChild<QComboBox*>(QStringLiteral("jumpPlace"))->setEditText(QStringLiteral("Bench %1").arg(++runs));
        QElapsedTimer clock;
        clock.start();
        dialog.accept();
        // The dialog goes and the window repaints what changed.
        dialog.hide();
        QCoreApplication::processEvents();
        okMs.push_back(clock.nsecsElapsed() / 1e6);
        accepted += dialog.result() == QDialog::Accepted ? 1 : 0;
        return dialog.result();
    }

    int runs = 0;
    int accepted = 0;
    std::vector<double> okMs;
};

void Report(const char* what, double value, const char* unit, double target)
{
    std::printf("%-44s %10.2f %-8s target <= %-8.0f %s\n", what, value, unit, target,
                value <= target ? "PASS" : "MISS");
}

} // namespace

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    const bool quick = argc > 1 && std::string(argv[1]) == "--quick";
    const int repeats = quick ? 3 : 7;
    const int jumps = 100000;

    COkTimer runner;
    CGeneratorOptions options;
    options.jumps = 10; // the window starts small; the large logbook comes in as a load would
    CBenchWindow window(options, &runner);
    CMainFrame& frame = window.Frame();
    CLogbookDoc& doc = window.Document();
    doc.SetPath("/tmp/bench-table.tvz");
    frame.resize(1280, 800);
    frame.show();
    frame.View()->Refresh();
    QCoreApplication::processEvents();
    CLogbookView* view = frame.View();
    QTableView* table = view->Desktop()->Table();
    CJumpTableModel* model = view->findChild<CJumpTableModel*>("tableModel");

    // Load: the loaded logbook is taken over, the view refreshed, the table painted and scrolled
    // to its middle.
    CGeneratorOptions large;
    large.jumps = jumps;
    CLogbookDoc loaded;
    CLogbookGenerator(large).Fill(loaded);
    loaded.SetPath("/tmp/bench-table.tvz");
    std::vector<double> loadMs;
    for (int run = 0; run < repeats; ++run) {
        QElapsedTimer clock;
        clock.start();
        doc.Adopt(loaded); // loaded now holds the small logbook, or the large one back
        view->Refresh();
        QCoreApplication::processEvents();
        table->verticalScrollBar()->setValue(table->verticalScrollBar()->maximum() / 2);
        QCoreApplication::processEvents();
        const double ms = clock.nsecsElapsed() / 1e6;
        if (doc.GetJumpCount() == std::size_t(jumps))
            loadMs.push_back(ms);
        else
            --run; // the small logbook back: not timed
    }
    if (doc.GetJumpCount() != std::size_t(jumps))
        doc.Adopt(loaded);
    view->Refresh();
    QCoreApplication::processEvents();
    std::printf("%d jumps, table rows %d, %d runs each\n", jumps, model->rowCount(), repeats);
    Report("load end until the table scrolls", Median(loadMs), "ms", 300);

    // Sorting: each column up and down; the slowest column's median counts.
    double slowest = 0;
    int slowestColumn = 0;
    for (int column = 0; column < CJumpTableModel::ColumnCount; ++column) {
        std::vector<double> ms;
        for (int run = 0; run < repeats; ++run) {
            QElapsedTimer clock;
            clock.start();
            table->sortByColumn(column, run % 2 ? Qt::DescendingOrder : Qt::AscendingOrder);
            QCoreApplication::processEvents();
            ms.push_back(clock.nsecsElapsed() / 1e6);
        }
        const double median = Median(ms);
        std::printf("  sort by %-20s %8.2f ms\n", qPrintable(model->headerData(column, Qt::Horizontal).toString()),
                    median);
        if (median > slowest) {
            slowest = median;
            slowestColumn = column;
        }
    }
    std::printf("  slowest: %s\n", qPrintable(model->headerData(slowestColumn, Qt::Horizontal).toString()));
    Report("sort by the slowest column", slowest, "ms", 300);

    // The search: a query of three terms set at once (as pasted, or the last key of one typed),
    // until the table, the count and the summary's shown totals are painted; then cleared again.
    table->sortByColumn(CJumpTableModel::NumberColumn, Qt::AscendingOrder);
    CSearchBar* search = view->Desktop()->Search();
    const char* const queries[] = {"tervola year:2015..2020 -signed:yes", "sabre ff:50.. date:2018-06..2019-08",
                                   "cessna stand nordlicht"};
    std::vector<double> searchMs;
    std::vector<double> clearMs;
    // The first search after the load indexes the logbook.
    QElapsedTimer first;
    first.start();
    search->SetText(QString::fromUtf8(queries[0]));
    QCoreApplication::processEvents();
    const double firstMs = first.nsecsElapsed() / 1e6;
    search->SetText({});
    QCoreApplication::processEvents();
    for (int run = 0; run < repeats; ++run) {
        for (const char* query : queries) {
            QElapsedTimer clock;
            clock.start();
            search->SetText(QString::fromUtf8(query));
            QCoreApplication::processEvents();
            searchMs.push_back(clock.nsecsElapsed() / 1e6);
            if (run == 0)
                std::printf("  %-40s %s\n", query, qPrintable(search->CountText()));
            clock.restart();
            search->SetText({});
            QCoreApplication::processEvents();
            clearMs.push_back(clock.nsecsElapsed() / 1e6);
        }
    }
    std::printf("%-44s %10.2f ms\n", "the first query, indexing the logbook", firstMs);
    Report("a query until table, count, summary show it", Median(searchMs), "ms", 100);
    Report("the search cleared until every row is back", Median(clearMs), "ms", 100);

    // An edit's OK, sorted by place so that the changed jump also moves in the table.
    table->sortByColumn(CJumpTableModel::PlaceColumn, Qt::AscendingOrder);
    // A jump from the middle that the editor changes: not signed (a signed jump is only viewed),
    // with a number it accepts (numbers end at 99,999) and a date its date field can show (the
    // generated logbook's first jumps go back to before 1900, the field's "no date").
    const auto editable = [&](int r) {
        const CJump* jump = model->JumpAt(r);
        return jump->GetNumber() <= 99999 && !jump->IsSigned() && jump->GetTimestamp().dateTime.Year() >= 1900;
    };
    int row = model->rowCount() / 2;
    while (row + 1 < model->rowCount() && !editable(row))
        ++row;
    const CJump* edited = model->JumpAt(row);
    for (int run = 0; run < repeats; ++run) {
        view->Desktop()->SelectRow(model->RowOfJump(std::size_t(doc.IndexOf(edited))));
        frame.Commands()->Execute(AppCommands::ID_JUMP_CHANGE);
    }
    // Every OK wrote its place: the last one is in the table.
    const bool shown = !model
                            ->match(model->index(0, CJumpTableModel::PlaceColumn), Qt::DisplayRole,
                                    QStringLiteral("Bench %1").arg(runner.runs), 1, Qt::MatchExactly)
                            .isEmpty();
    if (runner.accepted != repeats || !shown) {
        std::printf("the editor's OK did not reach the table (%d of %d accepted, modified %d): %s\n", runner.accepted,
                    repeats, int(doc.IsModified()), qPrintable(window.Quiet().lastWarning));
        return 1;
    }
    Report("edit OK until table, summary, buttons", Median(runner.okMs), "ms", 20);

    const double bytes =
        double(model->MemoryBytes() + view->findChild<CJumpTableModel*>("listModel")->MemoryBytes()) / jumps;
    Report("table models' memory per jump", bytes, "bytes", 16);
    doc.SetModified(false);
    return 0;
}
