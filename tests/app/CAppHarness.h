#pragma once

#include "CRecordingMessages.h"
#include "CScriptedDialogs.h"
#include "CTestLogbook.h"

#include "app/CLogbookApp.h"
#include "app/IFileChooser.h"
#include "app/IPictureViewer.h"
#include "document/IClock.h"
#include "tests/common/CScratchFolder.h"
#include "units/CMemorySettingsStore.h"

#include <QStringList>

#include <memory>

class CLogbookDoc;
class CMainFrame;
class CLogbookView;
class CLogbookCommands;

// Answers the file dialogs with prepared paths (the empty text, as a cancel, when none is left)
// and records the folders they start in.
class CScriptedFiles final : public IFileChooser
{
public:
    QString ChooseOpen(const QString& startPath) override { return Take(openAnswers, startPath); }
    QString ChooseSave(const QString& startPath) override { return Take(saveAnswers, startPath); }
    QString ChooseTrack(const QString& startPath) override { return Take(trackAnswers, startPath); }

    QStringList openAnswers;
    QStringList saveAnswers;
    QStringList trackAnswers;
    QStringList asked;

private:
    QString Take(QStringList& answers, const QString& startPath)
    {
        asked.append(startPath);
        return answers.isEmpty() ? QString() : answers.takeFirst();
    }
};

// Records the pictures the program asks the desktop to show.
class CRecordingViewer final : public IPictureViewer
{
public:
    bool Open(const QString& path) override
    {
        opened.append(path);
        return true;
    }

    QStringList opened;
};

// The real main window with recording services: settings in memory, a fixed day
// (10 June 2024, 09:30), recorded message boxes and picture requests, scripted file dialogs,
// and a temporary folder for logbooks.
class CAppHarness
{
public:
    // Runs the program's start-up with the given command-line arguments after the program name.
    bool Start(const QStringList& arguments = {});
    // Start-up, then the splash is closed so that input reaches the window.
    bool StartWithoutSplash(const QStringList& arguments = {});
    // Writes the logbook as "jumps.tvz", makes it the last file and starts without splash;
    // returns the logbook's path (empty on failure).
    QString StartWith(const CTestLogbook& logbook);
    // Selects a row of the jump list.
    void SelectRow(int row);

    CMainFrame* Frame() const { return app ? app->GetMainFrame() : nullptr; }
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
    CFixedClock clock{CDateTime(2024, 6, 10, 9, 30, 0)};
    CRecordingMessages messages;
    CScriptedFiles files;
    CRecordingViewer viewer;
    CScriptedDialogs dialogs;
    CScratchFolder folder{"app"};
    std::unique_ptr<CLogbookApp> app;
};
