#pragma once

#include "CRecordingMessages.h"
#include "CRecordingViewer.h"
#include "CScriptedDialogs.h"
#include "CScriptedFiles.h"
#include "CTestLogbook.h"

#include "app/CLogbookApp.h"
#include "document/IClock.h"
#include "tests/common/CScratchFolder.h"
#include "units/CMemorySettingsStore.h"

#include <QStringList>

#include <memory>

class CLogbookDoc;
class CMainFrame;
class CLogbookView;
class CLogbookCommands;

// The real main window with recording services: settings in memory, a fixed day
// (10 June 2024, 09:30), recorded message boxes and picture requests, scripted file dialogs,
// and a temporary folder for logbooks.
class CAppHarness
{
public:
    CAppHarness();
    ~CAppHarness();

    // Runs the program's start-up with the given command-line arguments after the program name.
    bool Start(const QStringList& arguments = {});
    // Start-up, then the splash is closed so that input reaches the window.
    bool StartWithoutSplash(const QStringList& arguments = {});
    // Writes the logbook as "jumps.tvz", makes it the last file and starts without splash;
    // returns the logbook's path (empty on failure).
    QString StartWith(const CTestLogbook& logbook);
    // Selects a row of the jump list.
    void SelectRow(int row);

    CMainFrame* Frame() const;
    CLogbookView* View() const;
    CLogbookCommands* Commands() const;

    // A path inside the scratch folder.
    QString Path(const QString& name) const;
    // Writes the logbook (gzip unless the name ends in ".tvl") and returns its path.
    QString Write(const CTestLogbook& logbook, const QString& name) const;
    // Makes the logbook the one used last.
    void SetLastFile(const QString& path);
    QString LastFile() const;
    CLogbookDoc& Doc() const;
    // Deletes the first jump through the list, so that the logbook is modified.
    void DeleteFirstJump();
    // The number of jumps a saved file holds, read back with a fresh document; -1 if it is refused.
    static int JumpsInFile(const QString& path);

    CMemorySettingsStore settings;
    CFixedClock clock;
    CRecordingMessages messages;
    CScriptedFiles files;
    CRecordingViewer viewer;
    CScriptedDialogs dialogs;
    CScratchFolder folder{"app"};
    std::unique_ptr<CLogbookApp> app;
};
