#include "app/CLogbookCommands.h"

#include "app/AppCommands.h"
#include "app/CJumpListCtrl.h"
#include "app/CLogbookView.h"
#include "app/CPictureGuard.h"
#include "app/CProgressWait.h"
#include "app/CSaveProgressBar.h"
#include "app/IFileChooser.h"
#include "app/IPictureViewer.h"
#include "bridge/CorePaths.h"
#include "controls/IDialogRunner.h"
#include "controls/IMessageSink.h"
#include "dialogs/CDlgJump.h"
#include "document/CLogbookDoc.h"
#include "document/IClock.h"
#include "resources/StringTable.h"
#include "translations/MessageText.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QMenu>
#include <QStandardPaths>

#include <algorithm>
#include <filesystem>
#include <thread>

namespace {

QString Message(int id, const QString& arg1 = {})
{
    return MessageText::Format(id, arg1);
}

} // namespace

CLogbookCommands::CLogbookCommands(CLogbookDoc& doc, const CUnitSettings& units, const CAppServices& services,
                                   CLogbookView& view, QWidget* window)
    : QObject(window), m_doc(doc), m_units(units), m_services(services), m_view(view), m_window(window)
{
    setObjectName(QStringLiteral("logbookCommands"));
    m_saver = new CBackgroundSaver(doc, this);
    new CSaveProgressBar(*m_saver, window);
    connect(m_saver, &CBackgroundSaver::finished, this, &CLogbookCommands::OnSaveFinished);
    connect(&view, &CLogbookView::commandRequested, this, &CLogbookCommands::Execute);
    connect(&view, &CLogbookView::rowActivated, this, &CLogbookCommands::OnRowActivated);
    connect(&view, &CLogbookView::contextMenuRequested, this, &CLogbookCommands::OnContextMenu);
}

void CLogbookCommands::Execute(int command)
{
    switch (command) {
    case AppCommands::ID_FILE_NEW:
        OnFileNew();
        break;
    case AppCommands::ID_FILE_OPEN:
    case AppCommands::ID_PAGE_OPEN:
        OnFileOpen();
        break;
    case AppCommands::ID_FILE_SAVE:
        OnFileSave();
        break;
    case AppCommands::ID_FILE_SAVE_AS:
        OnFileSaveAs();
        break;
    case AppCommands::ID_JUMP_NEW:
        OnJumpNew();
        break;
    case AppCommands::ID_JUMP_IMPORT_TRACK:
        OnJumpImportTrack();
        break;
    case AppCommands::ID_FILE_IMPORT_CSV:
        OnFileImportCsv();
        break;
    case AppCommands::ID_JUMP_IMPORT_CARD:
        OnJumpImportCard();
        break;
    case AppCommands::ID_JUMP_ADD_TRACK:
        OnJumpImportTrackInto();
        break;
    case AppCommands::ID_JUMP_VIEW:
    case AppCommands::ID_JUMP_CHANGE:
        OnJumpView();
        break;
    case AppCommands::ID_JUMP_SHOW_PICTURE:
        OnJumpShowPicture();
        break;
    case AppCommands::ID_JUMP_DELETE:
        OnJumpDelete();
        break;
    case AppCommands::ID_FILE_EXPORT_SELECTION:
        OnFileExportSelection();
        break;
    case AppCommands::ID_JUMP_REMOVE_SIGNATURE:
        OnJumpRemoveSignature();
        break;
    default:
        break;
    }
}

QString CLogbookCommands::StartFolder() const
{
    return m_doc.HasPath() ? QFileInfo(CorePaths::DisplayPath(m_doc.GetPath())).absolutePath() : QString();
}

QString CLogbookCommands::NewLogbookProposal() const
{
    // Beside the open logbook, else in the user's documents; a name not yet taken.
    QString folder = StartFolder();
    if (folder.isEmpty())
        folder = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
    if (folder.isEmpty())
        folder = QDir::homePath();
    const QDir dir(folder);
    QString name = tr("Logbook") + QStringLiteral(".tvz");
    for (int n = 2; QFileInfo::exists(dir.filePath(name)) && n < 1000; ++n)
        name = tr("Logbook") + QStringLiteral(" %1.tvz").arg(n);
    return dir.filePath(name);
}

bool CLogbookCommands::CanSave() const
{
    return m_view.IsLogbookOpen() && m_doc.IsModified();
}

bool CLogbookCommands::CanSaveAs() const
{
    return m_view.IsLogbookOpen();
}

bool CLogbookCommands::SaveModified()
{
    WaitForSaves();
    if (!CanSave())
        return true;
    const QString name = QFileInfo(CorePaths::DisplayPath(m_doc.GetPath())).fileName();
    switch (m_services.messages->AskYesNoCancel(tr("Save changes to %1?").arg(name))) {
    case IMessageSink::Answer::Yes:
        // The end of the save tells of a failure or asks about a changed file.
        m_saver->Request(m_doc.GetPath(), SaveCheck::IfUnchanged, CBackgroundSaver::Origin::Closing);
        WaitForSaves();
        return !m_doc.IsModified();
    case IMessageSink::Answer::No:
        return true;
    case IMessageSink::Answer::Cancel:
        break;
    }
    return false;
}

void CLogbookCommands::OnFileNew()
{
    if (!SaveModified())
        return;
    const QString chosen = m_services.files->ChooseSave(NewLogbookProposal());
    if (chosen.isEmpty())
        return;
    const QString path = QFileInfo(chosen).absoluteFilePath();
    const bool existed = QFileInfo::exists(path);
    m_doc.Clear();
    const bool saved = m_doc.Save(CorePaths::AbsoluteLocalPath(path));
    if (!saved) {
        // The save replaces the file only once the new one is complete, so a failure leaves
        // behind at most a file that did not exist before: remove that one.
        if (!existed)
            QFile::remove(path);
        m_doc.Clear();
        m_services.messages->Error(Message(StringTable::IDS_WRITE_ERROR));
    } else {
        LockLogbook(m_doc.GetPath());
    }
    m_view.Refresh();
    if (saved)
        emit logbookCreated();
}

bool CLogbookCommands::LoadLogbook(const QString& path, OnFailure failure)
{
    WaitForSaves();
    const std::string file = CorePaths::AbsoluteLocalPath(path);
    // The file is read on another thread while the window stays painted; a bad file leaves the
    // open logbook as it was instead of an empty document.
    CIoProgress progress;
    CLogbookDoc loaded(nullptr, m_services.clock);
    loaded.SetProgress(&progress);
    CLoadResult result;
    CProgressWait wait(m_window, tr("Opening %1...").arg(QFileInfo(path).fileName()), progress);
    std::thread reader([&] {
        result = loaded.Load(file);
        QMetaObject::invokeMethod(&wait, &CProgressWait::Finish, Qt::QueuedConnection);
    });
    wait.Exec();
    reader.join();
    loaded.SetProgress(nullptr);
    if (!result.ok) {
        if (!result.message.Empty())
            m_services.messages->Error(MessageText::Text(result.message));
        if (failure == OnFailure::ReportOpenFailed)
            m_services.messages->Error(Message(StringTable::IDS_OPEN_FAILED));
        return false;
    }
    m_doc.Adopt(loaded);
    m_view.Refresh();
    LockLogbook(file);
    return true;
}

void CLogbookCommands::OnFileOpen()
{
    if (!SaveModified())
        return;
    const QString path = m_services.files->ChooseOpen(StartFolder());
    if (path.isEmpty())
        return;
    if (LoadLogbook(path))
        emit logbookOpened();
}

void CLogbookCommands::OnFileSave()
{
    if (!CanSave())
        return;
    m_saver->Request(m_doc.GetPath(), SaveCheck::IfUnchanged, CBackgroundSaver::Origin::Command);
}

void CLogbookCommands::OnFileSaveAs()
{
    if (!CanSaveAs())
        return;
    const QString path = m_services.files->ChooseSave(CorePaths::DisplayPath(m_doc.GetPath()));
    if (path.isEmpty())
        return;
    // The file dialog has asked whether to replace an existing file.
    m_saver->Request(CorePaths::AbsoluteLocalPath(path), SaveCheck::Overwrite, CBackgroundSaver::Origin::Command);
}
