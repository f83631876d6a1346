#pragma once

#include <QWidget>

#include <cstddef>
#include <vector>

class CJump;
class CJumpDetailsPane;
class CJumpTableModel;
class CLicenceStatusPane;
class CSearchBar;
class CSummaryPane;
class CUnitSettings;
class ISettingsStore;
class QSplitter;
class QTableView;

// The desktop layout of the logbook: the search field over the table of the jumps it finds,
// sortable by a click on a header, its columns chosen (the header's context menu), moved and
// sized by the user; beside it the logbook summary and the details of the selected jump. Enter
// or a double-click asks for the editor on the current jump. Column, sort and splitter layout
// are kept in the settings store.
class CDesktopPane : public QWidget
{
    Q_OBJECT

public:
    // A pane on model (not owned, outlives it); the search reads heights in units; store keeps
    // the layout (may be null).
    CDesktopPane(CJumpTableModel* model, const CUnitSettings& units, ISettingsStore* store, QWidget* parent = nullptr);

    QTableView* Table() const { return m_table; }
    CSummaryPane* Summary() const { return m_summary; }
    // Licence progress and currency under the summary.
    CLicenceStatusPane* LicenceStatus() const { return m_licenceStatus; }
    CJumpDetailsPane* Details() const { return m_details; }
    QSplitter* Splitter() const { return m_splitter; }
    CSearchBar* Search() const { return m_search; }

    // The document positions of the jumps the search shows, in the table's order (all of them
    // without a query); what a printout of the shown jumps lists.
    std::vector<int> ShownJumps() const;

    // The jump of the current row, or null.
    const CJump* CurrentJump() const;
    // The document positions of the selected jumps, ascending.
    std::vector<std::size_t> SelectedJumpIndexes() const;
    // Makes a row current and selected, scrolled into view.
    void SelectRow(int row);

    // Writes and reads the header's and the splitter's state in the store.
    void SaveLayout() const;
    void RestoreLayout();

signals:
    // Enter or a double-click on a row.
    void editRequested();
    // The current row or the selection changed.
    void selectionChanged();
    // The search shows other jumps.
    void searchChanged();

protected:
    // Fits the summary to the width of the side.
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void ShowHeaderMenu(const QPoint& position);
    // Shows the jumps of the search's query; the current jump stays current when it is shown.
    void ApplyQuery();

    CJumpTableModel* m_model;
    ISettingsStore* m_store;
    QSplitter* m_splitter;
    CSearchBar* m_search;
    QTableView* m_table;
    CSummaryPane* m_summary;
    CLicenceStatusPane* m_licenceStatus;
    CJumpDetailsPane* m_details;
    QWidget* m_sideViewport = nullptr;
};
