#pragma once

#include "app/CAppServices.h"
#include "app/CBackgroundSaver.h"
#include "document/CLogbookLock.h"

#include <QObject>
#include <QString>

#include <functional>
#include <vector>

class CDlgJump;
class CJump;
class CLogbookDoc;
class CLogbookView;
class CUnitSettings;
class QMenu;
class QPoint;
class QWidget;

// The commands of the window: the File commands (New, Open, Save, Save as) and the jump
// commands (New jump, View/Change, Show picture, Delete, a tap on a row) on the frame's document.
// A jump command runs its dialog and hands the result to the document; the view follows the
// document by itself.
class CLogbookCommands : public QObject
{
    Q_OBJECT

public:
    // Commands on doc shown by view; dialogs are parented to window. Nothing is owned.
    CLogbookCommands(CLogbookDoc& doc, const CUnitSettings& units, const CAppServices& services, CLogbookView& view,
                     QWidget* window);

    // How a load that fails is reported: with 4001 after the load's own messages (Open, the
    // command line), or with the load's messages only (the logbook used last, at start-up).
    enum class OnFailure
    {
        ReportOpenFailed,
        ReportLoadMessagesOnly
    };
    // Loads a logbook on another thread with a progress dialog after a moment, keeping the open
    // one when the file is bad. The reminders are the caller's. Returns success.
    bool LoadLogbook(const QString& path, OnFailure failure = OnFailure::ReportOpenFailed);
    // Waits for a running save, then asks whether to save a modified logbook and waits for that
    // save too; false when the user cancels or the logbook could not be saved.
    bool SaveModified();
    // The automatic save when the window loses the user's attention: a modified logbook with a
    // file is saved in the background.
    void SaveAutomatically();
    // Waits, with the window painted and a progress dialog after a moment, until no save runs.
    void WaitForSaves();
    // The saves running off the window's thread.
    CBackgroundSaver* Saver() const { return m_saver; }
    // Marks the logbook as open here (a lock file beside it); warns when another instance of
    // the program has it open.
    void LockLogbook(const std::string& path);
    // Save is offered while a modified logbook is open, Save as while any is open.
    bool CanSave() const;
    bool CanSaveAs() const;
    // Export selection is offered where a table or list of jumps is shown.
    bool CanExportSelection() const;
    // Writes the jumps at these document positions to path as JSON (a ".json" name) or CSV.
    bool ExportJumps(const QString& path, const std::vector<std::size_t>& jumps) const;
    // A track can go into a listed jump that has no recording and no signature.
    static bool CanAddTrack(const CJump* jump);
    // "Remove signature..." is offered for a signed jump.
    static bool CanRemoveSignature(const CJump* jump);
    // The context menu for the list's selected jump: "View...", "Change...", "Add track...",
    // "Remove signature...", "Show picture...", "Delete", "Export selection...".
    QMenu* CreateContextMenu(QWidget* parent);

public slots:
    // Carries out a command of AppCommands.
    void Execute(int command);
    // New: save dialog, then an empty logbook saved at once (4000 and no file on failure).
    void OnFileNew();
    // Open: open dialog, load (4001 on failure), then the reminders through logbookOpened.
    void OnFileOpen();
    // Save to the current file in the background (4002 on failure; a file changed by another
    // program is not overwritten without asking).
    void OnFileSave();
    // Save under a new name in the background (4002 on failure).
    void OnFileSaveAs();
    // The jump editor on a new jump; on OK the summary, list and buttons follow.
    void OnJumpNew();
    // "Import track...": a logger's track chosen in a file dialog becomes a new jump, shown in the
    // jump editor to be checked and completed; nothing is added without OK.
    void OnJumpImportTrack();
    // "Import CSV...": jumps of a spreadsheet, shown in the import dialog, join the logbook on
    // Import.
    void OnFileImportCsv();
    // "Import tracks from a folder...": the new jumps of a logger's card, read with progress,
    // listed to tick and imported in the order of their exits.
    void OnJumpImportCard();
    // The same for the list's selected jump, when it has no recording and is not signed.
    void OnJumpImportTrackInto();
    // The jump editor on the selected jump of the jump list ("View..." and "Change...").
    void OnJumpView();
    // Shows the selected jump's picture when it is a picture inside the logbook's folder.
    void OnJumpShowPicture();
    // Deletes the selected jumps after a Yes: message 5007 for one, a count for several (the
    // touch layout's jump list or the desktop table).
    void OnJumpDelete();
    // Takes the signature off the selected jump after a Yes to a question naming the jump and
    // the signer; the jump can then be edited and signed again.
    void OnJumpRemoveSignature();
    // A tap on a row: the editor on that jump; from the sign list it opens on the signature.
    void OnRowActivated(int row);
    // The list's context menu at a global position (jump list only).
    void OnContextMenu(const QPoint& globalPosition);
    // "Export selection...": the desktop table's selected jumps, or the jumps the search shows
    // when none is selected, written as CSV or JSON (by the chosen name's suffix) to a file
    // chosen in a dialog, safely: a temporary file first, renamed over the target when whole.
    void OnFileExportSelection();

signals:
    // A logbook was opened by the Open command (the frame runs the reminders).
    void logbookOpened();
    // New saved an empty logbook (the profile, equipment and preferences dialogs follow).
    void logbookCreated();
    // The document changed: commands and title may need updating.
    void stateChanged();

private:
    // Runs the jump editor on jump (null: a new jump), starting on page; prepare, when given,
    // adjusts the editor before its pages are filled. True after an OK that changed the logbook.
    bool EditJump(const CJump* jump, int page, const std::function<void(CDlgJump&)>& prepare = {});
    // Reads a track chosen by the user into the editor on target (null: a new jump).
    void ImportTrack(const CJump* target);
    QString StartFolder() const;
    // The file New proposes: "Logbook.tvz" beside the open logbook or in the documents folder.
    QString NewLogbookProposal() const;
    // The end of a background save: 4002 on failure, the user's choice for a changed file.
    void OnSaveFinished(const CSaveResult& result, CBackgroundSaver::Origin origin);
    // Asks what to do with a file another program changed: keep mine under a new name, load
    // theirs, or overwrite it.
    void ResolveChangedFile(const std::string& path, CBackgroundSaver::Origin origin);

    CLogbookDoc& m_doc;
    const CUnitSettings& m_units;
    CAppServices m_services;
    CLogbookView& m_view;
    QWidget* m_window;
    CBackgroundSaver* m_saver = nullptr;
    CLogbookLock m_lock;
};
