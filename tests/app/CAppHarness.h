#pragma once

#include "CRecordingMessages.h"
#include "CScriptedDialogs.h"
#include "CTestLogbook.h"

#include "app/CJumpListCtrl.h"
#include "app/CLogbookApp.h"
#include "app/CLogbookCommands.h"
#include "app/CLogbookView.h"
#include "app/CMainFrame.h"
#include "app/CSplashWnd.h"
#include "app/IFileChooser.h"
#include "app/IPictureViewer.h"
#include "bridge/CorePaths.h"
#include "document/IClock.h"
#include "document/LogbookFormat.h"
#include "tests/common/CScratchFolder.h"
#include "units/CMemorySettingsStore.h"

#include <QDir>
#include <QFileInfo>
#include <QStringList>
#include <QTest>

#include <memory>

// Answers the file dialogs with prepared paths (the empty text, as a cancel, when none is left)
// and records the folders they start in.
class CScriptedFiles final : public IFileChooser
{
public:
    QString ChooseOpen(const QString& startPath) override { return Take(openAnswers, startPath); }
    QString ChooseSave(const QString& startPath) override { return Take(saveAnswers, startPath); }
    QString ChooseTrack(const QString& startPath) override { return Take(trackAnswers, startPath); }
    QString ChooseExport(const QString& startPath) override { return Take(exportAnswers, startPath); }
    QString ChoosePdf(const QString& startPath) override { return Take(pdfAnswers, startPath); }
    QString ChooseCsv(const QString& startPath) override { return Take(csvAnswers, startPath); }
    QString ChooseTrackFolder(const QString& startPath) override { return Take(folderAnswers, startPath); }

    QStringList openAnswers, saveAnswers, trackAnswers, exportAnswers, pdfAnswers, csvAnswers, folderAnswers;
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

// Names the row of a table that a failed check is in, as QCOMPARE prints only the values:
// declared first in the loop's body, it speaks when the check leaves the loop.
struct CRow
{
    QString name;
    ~CRow()
    {
        if (QTest::currentTestFailed())
            qWarning("in row: %s", qPrintable(name));
    }
};

// The real main window with recording services: settings in memory, a fixed day
// (10 June 2024, 09:30), recorded message boxes and picture requests, scripted file dialogs,
// and a temporary folder for logbooks.
class CAppHarness
{
public:
    // Runs the program's start-up with the given command-line arguments after the program name.
    bool Start(const QStringList& arguments = {})
    {
        CAppServices services{&settings, &clock, &messages, &files, &viewer, &dialogs};
        services.defaultUnits = defaultUnits;
        app = std::make_unique<CLogbookApp>(services);
        return app->InitInstance(QStringList{QStringLiteral("tervola-pocket")} + arguments);
    }
    // Start-up, then the splash is closed so that input reaches the window.
    bool StartWithoutSplash(const QStringList& arguments = {})
    {
        if (!Start(arguments))
            return false;
        delete CSplashWnd::Instance();
        return CSplashWnd::Instance() == nullptr;
    }
    // Writes the logbook as "jumps.tvz", makes it the last file and starts without splash;
    // returns the logbook's path (empty on failure).
    QString StartWith(const CTestLogbook& logbook)
    {
        const QString path = Write(logbook, QStringLiteral("jumps.tvz"));
        SetLastFile(path);
        return StartWithoutSplash() ? path : QString();
    }
    // Selects a row of the jump list.
    void SelectRow(int row) { View()->List()->ShowRow(row); }

    CMainFrame* Frame() const { return app ? app->MainFrame() : nullptr; }
    CLogbookView* View() const { return Frame() ? Frame()->View() : nullptr; }
    CLogbookCommands* Commands() const { return Frame()->Commands(); }
    CLogbookDoc& Doc() const { return Frame()->Document(); }

    // A path inside the scratch folder.
    QString Path(const QString& name) const { return CorePaths::DisplayPath(folder / CorePaths::LocalPath(name)); }
    // Writes the bytes into the scratch folder, making the folders on the way, and returns the path.
    QString WriteFile(const QString& name, const QByteArray& bytes) const
    {
        QDir().mkpath(QFileInfo(Path(name)).absolutePath());
        return WriteBytes(CorePaths::LocalPath(Path(name)), bytes.toStdString()) ? Path(name) : QString();
    }
    // Writes the logbook (gzip unless the name ends in ".tvl") and returns its path.
    QString Write(const CTestLogbook& logbook, const QString& name) const
    {
        const std::string xml = logbook.Xml().toStdString();
        if (name.endsWith(QStringLiteral(".tvl")))
            return WriteFile(name, QByteArray::fromStdString(xml));
        return WriteGzip(CorePaths::LocalPath(Path(name)), xml) ? Path(name) : QString();
    }
    // Makes the logbook the one used last.
    void SetLastFile(const QString& path)
    {
        settings.SetString(LogbookFormat::kLastFileSection, LogbookFormat::kLastFileValue, CorePaths::LocalPath(path));
    }
    QString LastFile() const
    {
        return CorePaths::DisplayPath(
            settings.GetString(LogbookFormat::kLastFileSection, LogbookFormat::kLastFileValue, ""));
    }
    // Deletes the first jump through the list, so that the logbook is modified.
    void DeleteFirstJump()
    {
        View()->OnViewJumpList();
        SelectRow(0);
        Commands()->OnJumpDelete();
        messages.boxes.clear();
    }
    // The number of jumps a saved file holds, read back with a fresh document; -1 if it is refused.
    static int JumpsInFile(const QString& path)
    {
        CLogbookDoc doc;
        return doc.Load(CorePaths::LocalPath(path)) ? int(doc.GetJumpCount()) : -1;
    }

    CMemorySettingsStore settings;
    CFixedClock clock{CDateTime(2024, 6, 10, 9, 30, 0)};
    CRecordingMessages messages;
    CScriptedFiles files;
    CRecordingViewer viewer;
    CScriptedDialogs dialogs;
    CScratchFolder folder{"app"};
    // The system's unit system as the program would pass it (0 imperial, 1 metric).
    int defaultUnits = 0;
    std::unique_ptr<CLogbookApp> app;
};
