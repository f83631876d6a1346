#pragma once

#include "app/CAppServices.h"
#include "document/CLogbookDoc.h"
#include "units/CUnitSettings.h"

#include <QMainWindow>

class CLogbookCommands;
class CPrintPagesCommand;
class CSettingsCommands;
class CLogbookView;
class QAction;
class QToolBar;

// The main window. It holds, in this order, the unit preferences (read from the settings store when
// the frame is built), the one logbook document, the one view and the command bar with the
// File menu. It shows the splash while it is built and runs the reminders.
class CMainFrame : public QMainWindow
{
    Q_OBJECT

public:
    // Builds the frame on the program's services (not owned) and puts up the splash.
    explicit CMainFrame(const CAppServices& services, QWidget* parent = nullptr);
    // The view goes with the frame's children; the document outlives it.
    ~CMainFrame() override;

    // The one logbook document.
    CLogbookDoc& Document() { return m_doc; }
    // The one view, the frame's central widget.
    CLogbookView* View() const { return m_view; }
    // The File and jump commands.
    CLogbookCommands* Commands() const { return m_commands; }
    // Print, Print preview and Export PDF (SetShownRows tells it the jumps the list shows).
    CPrintPagesCommand* PrintPages() const { return m_printPages; }
    // The user profile, equipment and preferences commands.
    CSettingsCommands* SettingsCommands() const { return m_settingsCommands; }
    // The unit preferences read when the frame was built.
    const CUnitSettings& Units() const { return m_units; }
    // The desktop layout's tool bar with the jump commands.
    QToolBar* JumpBar() const { return m_jumpBar; }

    // Screens at least this wide get a desktop-sized window.
    static constexpr int kDesktopScreenWidth = 1000;
    // Sizes the window for a screen's available area: on a handheld 400x640 (bounded by the
    // screen); on a desktop where the user left it, or the first time 80% of the screen, centred.
    void PlaceOnScreen(const QRect& available);
    // Keeps the window's geometry and the desktop layout in the settings store.
    void SaveWindowLayout() const;

    // Shows the due reminders, membership first, then each due rig; nothing without a logbook.
    void CheckReminders();
    // Enables the menu and command bar items by the document's state; updates the title.
    void UpdateCommands();

public slots:
    // The program lost the user's attention: save a modified logbook to its file.
    void OnApplicationStateChanged(Qt::ApplicationState state);
    // Shows the About box.
    void OnAbout();

protected:
    // Closing asks to save a modified logbook; Cancel keeps the window open.
    void closeEvent(QCloseEvent* event) override;

private:
    QAction* MakeAction(const QString& name, const QString& text, int command, const QString& art = {});
    void CreateMenuAndCommandBar();
    // The "Logbook" menu with the settings dialogs, and their command bar entries.
    void CreateSettingsCommands();
    // After a settings dialog's OK: the view shows the new values and units.
    void OnSettingsChanged();

    CAppServices m_services;
    CUnitSettings m_units;
    CLogbookDoc m_doc;
    CLogbookView* m_view = nullptr;
    CLogbookCommands* m_commands = nullptr;
    CPrintPagesCommand* m_printPages = nullptr;
    QToolBar* m_commandBar = nullptr;
    QToolBar* m_jumpBar = nullptr;

    QAction* m_newAction = nullptr;
    QAction* m_openAction = nullptr;
    QAction* m_saveAction = nullptr;
    QAction* m_saveAsAction = nullptr;
    QAction* m_exportSelectionAction = nullptr;
    QAction* m_printAction = nullptr;
    QAction* m_printPreviewAction = nullptr;
    QAction* m_exportPdfAction = nullptr;
    QAction* m_importCsvAction = nullptr;
    QAction* m_jumpImportCardAction = nullptr;
    QAction* m_aboutAction = nullptr;
    QAction* m_exitAction = nullptr;
    QAction* m_jumpNewAction = nullptr;
    QAction* m_jumpImportAction = nullptr;
    QAction* m_jumpAddTrackAction = nullptr;
    QAction* m_jumpRemoveSignatureAction = nullptr;
    QAction* m_jumpViewAction = nullptr;
    QAction* m_jumpChangeAction = nullptr;
    QAction* m_jumpPictureAction = nullptr;
    QAction* m_jumpDeleteAction = nullptr;
    CSettingsCommands* m_settingsCommands = nullptr;
    QAction* m_userProfileAction = nullptr;
    QAction* m_equipmentAction = nullptr;
    QAction* m_preferencesAction = nullptr;
    QAction* m_statisticsAction = nullptr;
};
