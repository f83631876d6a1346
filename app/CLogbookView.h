#pragma once

#include "app/CAppServices.h"

#include <QBoxLayout>
#include <QToolButton>
#include <QWidget>

class CLogbookDoc;
class CUnitSettings;
class CJumpListCtrl;
class CSummaryPane;
class QMenu;

// The program's only view. By mode it shows the New/Open start buttons (no logbook open), the
// home page with its picture buttons over the logbook summary, the list of all jumps, or the
// list of the jumps still to be signed. It carries the File commands and the jump commands.
class CLogbookView : public QWidget
{
    Q_OBJECT

public:
    // What the view shows.
    enum class ViewMode { Empty = 0, Home = 1, JumpList = 2, SignList = 3 };
    // A client width of exactly this many pixels selects the landscape layout.
    static constexpr int kLandscapeWidth = 320;

    // The view of the frame's document, in mode Empty until the first refresh.
    CLogbookView(CLogbookDoc& doc, const CUnitSettings& units, const CAppServices& services,
                 QWidget* parent = nullptr);

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

    // Loads a logbook, keeping the open one when the file is bad; shows the load's messages
    // and 4001 on failure. The reminders are the caller's. Returns success.
    bool LoadLogbook(const QString& path);
    // Asks whether to save a modified logbook; false when the user cancels or the save fails.
    bool SaveModified();
    // Save is offered while a modified logbook is open, Save as while any is open.
    bool CanSave() const;
    bool CanSaveAs() const;

    // The list control and the summary, for the frame and for tests.
    CJumpListCtrl* GetList() const { return m_list; }
    CSummaryPane* GetSummary() const { return m_summary; }
    // The context menu of the list for the selected jump ("Show picture...", "Delete").
    QMenu* CreateContextMenu(QWidget* parent);

    // The view arranges itself for the handheld's 240x320 and 320x240 and anything larger, so it
    // never holds the window above that (its portrait rule alone would at 320x240).
    QSize minimumSizeHint() const override { return QSize(200, 160); }

public slots:
    // New: save dialog, then an empty logbook saved at once (4000 and no file on failure).
    void OnFileNew();
    // Open: open dialog, load (4001 on failure), then the reminders through logbookOpened.
    void OnFileOpen();
    // Save to the current file (4002 on failure).
    void OnFileSave();
    // Save under a new name (4002 on failure).
    void OnFileSaveAs();
    // Mode Home.
    void OnViewHome();
    // All jumps in the list, mode JumpList.
    void OnViewJumpList();
    // The unsigned jumps in the list, mode SignList.
    void OnViewSignList();
    // Shows the selected jump's picture when it is a picture inside the logbook's folder.
    void OnJumpShowPicture();
    // Deletes the selected jump after a Yes to message 5007 (jump list only).
    void OnJumpDelete();

signals:
    // A logbook was opened by the Open command (the frame runs the reminders).
    void logbookOpened();
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
    QString StartFolder() const;

    CLogbookDoc& m_doc;
    const CUnitSettings& m_units;
    CAppServices m_services;
    ViewMode m_mode = ViewMode::Empty;
    bool m_landscape = false;

    QBoxLayout* m_outer = nullptr;
    QWidget* m_buttonBar = nullptr;
    QBoxLayout* m_buttonLayout = nullptr;
    QToolButton* m_homeButton = nullptr;
    QToolButton* m_signListButton = nullptr;
    QToolButton* m_jumpListButton = nullptr;
    QToolButton* m_pageOpenButton = nullptr;

    QWidget* m_startPanel = nullptr;
    QBoxLayout* m_startLayout = nullptr;
    QToolButton* m_startNewButton = nullptr;
    QToolButton* m_startOpenButton = nullptr;

    QWidget* m_homePage = nullptr;
    CSummaryPane* m_summary = nullptr;
    CJumpListCtrl* m_list = nullptr;
};
