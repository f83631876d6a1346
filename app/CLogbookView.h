#pragma once

#include "app/CAppServices.h"

#include <QBoxLayout>
#include <QToolButton>
#include <QWidget>

class CLogbookDoc;
class CUnitSettings;
class CJumpListCtrl;
class CLicenceStatusPane;
class CSummaryPane;
class QMenu;

// The program's only view. By mode it shows the New/Open start buttons (no logbook open), the
// home page with its picture buttons over the logbook summary, the list of all jumps, or the
// list of the jumps still to be signed. The commands its buttons and rows ask for are carried
// out by CLogbookCommands.
class CLogbookView : public QWidget
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

    // The view of the frame's document, in mode Empty until the first refresh.
    CLogbookView(CLogbookDoc& doc, const CUnitSettings& units, const CAppServices& services, QWidget* parent = nullptr);

    // The current mode.
    ViewMode GetViewMode() const { return m_mode; }
    // Switches the mode: shows and hides the controls, empties the list when leaving a list.
    void SetViewMode(ViewMode mode);
    // True while the client width is exactly kLandscapeWidth.
    bool IsLandscape() const { return m_landscape; }
    // A logbook is open while the document has a path.
    bool IsLogbookOpen() const;
    // After a load or New: Home when a logbook is open, else Empty; repaints.
    void Refresh();
    // Recomputes the enabled state of the picture buttons.
    void UpdateButtons();

    // The list control and the summary, for the frame and for tests.
    CJumpListCtrl* GetList() const { return m_list; }
    CSummaryPane* GetSummary() const { return m_summary; }
    // Licence progress and currency under the summary.
    CLicenceStatusPane* GetLicenceStatus() const { return m_licenceStatus; }

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

    CLogbookDoc& m_doc;
    const CUnitSettings& m_units;
    CAppServices m_services;
    ViewMode m_mode = ViewMode::Empty;
    bool m_landscape = false;

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
    CJumpListCtrl* m_list = nullptr;
};
