#pragma once

#include "app/CAppServices.h"
#include "document/ILogbookObserver.h"

#include <QBoxLayout>
#include <QToolButton>
#include <QWidget>

#include <memory>
#include <vector>

class CSearchIndex;
class CLogbookDoc;
class CSearchBar;
class CUnitSettings;
class CJump;
class CJumpListCtrl;
class CLicenceStatusPane;
class CJumpTableModel;
class CDesktopPane;
class CSummaryPane;

// The program's only view. On a handheld's screen (the touch layout) it shows by mode the
// New/Open start buttons (no logbook open), the home page with its picture buttons over the
// logbook summary, the list of all jumps, or the list of the jumps still to be signed, each list
// under a search field. A window at least kDesktopWidth wide shows the desktop layout instead:
// the search field over the table of jumps, with the summary and the selected jump's details.
// Lists, table, summary and buttons follow the document by themselves (it tells the jump index,
// then the table models, then the view of every change). Ctrl+F puts the focus into the search
// field. The commands its buttons and rows ask for are carried out by CLogbookCommands.
class CLogbookView : public QWidget, public ILogbookObserver
{
    Q_OBJECT

public:
    // What the view shows.
    enum class ViewMode
    {
        Empty = 0,
        Home = 1,
        JumpList = 2,
        SignList = 3
    };
    // A client width of exactly this many pixels selects the landscape layout.
    static constexpr int kLandscapeWidth = 320;
    // From this width on the view shows the desktop layout.
    static constexpr int kDesktopWidth = 600;

    // The view of the frame's document, in mode Empty until the first refresh.
    CLogbookView(CLogbookDoc& doc, const CUnitSettings& units, const CAppServices& services, QWidget* parent = nullptr);
    ~CLogbookView() override;

    // The current mode.
    ViewMode Mode() const { return m_mode; }
    // Switches the mode: shows and hides the controls, empties the list when leaving a list.
    void SetMode(ViewMode mode);
    // A logbook is open while the document has a path.
    bool IsLogbookOpen() const;
    // After a load or New: Home when a logbook is open, else Empty; repaints.
    void Refresh();
    // Recomputes the enabled state of the picture buttons.
    void UpdateButtons();
    // The display units changed: lists, table, details and summary show the new ones.
    void UnitsChanged();

    // True while the desktop layout is shown.
    bool IsDesktopLayout() const { return m_desktopLayout; }
    // True where the jump commands find a selection: the desktop table or the touch jump list.
    bool HasJumpSelection() const;
    // The selected jump (the current row of the desktop table, the touch jump list's row), or null.
    const CJump* SelectedJump() const;
    // The document positions of every selected jump, ascending.
    std::vector<std::size_t> SelectedJumpIndexes() const;
    // The document positions of the jumps the search currently shows, in the order shown: the
    // desktop table's rows, or the touch list's; empty where no list is shown.
    std::vector<int> ShownJumps() const;
    // True where jumps can be exported: the desktop table or a touch list.
    bool CanExportJumps() const;
    // The jumps an export writes, ascending: the desktop table's selected rows, or the shown
    // jumps when none is selected; a touch list's shown jumps (its selection is the row last
    // tapped, not a choice).
    std::vector<std::size_t> JumpsToExport() const;
    // Ctrl+F: the search field of the layout shown takes the focus (from the home page, the
    // list of all jumps is opened first).
    void FocusSearch();

    // The touch list, the home page's summary and the desktop pane, for the frame.
    CJumpListCtrl* List() const { return m_list; }
    CSummaryPane* Summary() const { return m_summary; }
    CDesktopPane* Desktop() const { return m_desktop; }

    // What the document tells: the summary, the buttons and the mode follow.
    void JumpsInserted(std::size_t first, std::size_t count) override;
    void JumpsChanged(std::size_t first, std::size_t count) override;
    void JumpsRemoved(std::size_t first, std::size_t count) override;
    void SettingsChanged() override;
    void LogbookReset() override;

    // The view arranges itself for the handheld's 240x320 and 320x240 and anything larger, so it
    // never holds the window above that (its portrait rule alone would at 320x240).
    QSize minimumSizeHint() const override { return QSize(200, 160); }

public slots:
    // Mode Home.
    void OnViewHome();
    // All jumps in the list, mode JumpList.
    void OnViewJumpList();
    // The unsigned jumps in the list, mode SignList.
    void OnViewSignList();

signals:
    // A page or start button, or the Delete key on the list, asks for a command (AppCommands).
    void commandRequested(int command);
    // A row of the list was tapped, double-clicked or entered.
    void rowActivated(int row);
    // The list wants its context menu at a global position.
    void contextMenuRequested(const QPoint& globalPosition);
    // The document or the mode changed: commands and title may need updating.
    void stateChanged();

protected:
    // Picks the portrait or landscape arrangement and the button sizes.
    void resizeEvent(QResizeEvent* event) override;
    // The home page's background behind the summary.
    void paintEvent(QPaintEvent* event) override;

private:
    QToolButton* MakePictureButton(const QString& name, const QString& art, const QString& tip, int command);
    void CreateStartButtons();
    void ApplyOrientation();
    void ApplyIconSizes();
    void ShowListContextMenu(const QPoint& position);
    // Shows the touch controls of the mode or the desktop pane.
    void ApplyLayout();
    // After a change of the document: summary, buttons, and Home when a list has emptied.
    void FollowDocument();
    // The summary and the licence status of the home page, of the desktop pane, or of both.
    void ShowSummaries(bool home, bool desktop);

    CLogbookDoc& m_doc;
    const CUnitSettings& m_units;
    CAppServices m_services;
    // The search's index of every jump, which the table models read; it hears of the document's
    // changes before they do.
    std::unique_ptr<CSearchIndex> m_index;
    ViewMode m_mode = ViewMode::Empty;
    bool m_landscape = false;
    bool m_desktopLayout = false;

    QBoxLayout* m_outer = nullptr;
    QWidget* m_buttonBar = nullptr;
    QBoxLayout* m_buttonLayout = nullptr;
    QToolButton* m_homeButton = nullptr;
    QToolButton* m_newJumpButton = nullptr;
    QToolButton* m_signListButton = nullptr;
    QToolButton* m_jumpListButton = nullptr;
    QToolButton* m_pageOpenButton = nullptr;
    QToolButton* m_statisticsButton = nullptr;

    QWidget* m_startPanel = nullptr;
    QBoxLayout* m_startLayout = nullptr;
    QToolButton* m_startNewButton = nullptr;
    QToolButton* m_startOpenButton = nullptr;

    QWidget* m_homePage = nullptr;
    CSummaryPane* m_summary = nullptr;
    CLicenceStatusPane* m_licenceStatus = nullptr;
    CJumpTableModel* m_listModel = nullptr;
    QWidget* m_listPage = nullptr;
    CSearchBar* m_listSearch = nullptr;
    CJumpListCtrl* m_list = nullptr;
    CJumpTableModel* m_tableModel = nullptr;
    CDesktopPane* m_desktop = nullptr;
};
