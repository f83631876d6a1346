// The saving side of CLogbookCommands: saves in the background, what their ends show, the
// choice when another program has changed the file, and the lock that tells a second instance
// that the logbook is open here.

#include "app/CLogbookCommands.h"

#include "app/CProgressWait.h"
#include "app/IFileChooser.h"
#include "bridge/CorePaths.h"
#include "controls/IMessageSink.h"
#include "document/CLogbookDoc.h"
#include "resources/StringTable.h"
#include "translations/MessageText.h"

#include <QFileInfo>

void CLogbookCommands::SaveAutomatically()
{
    // No question here: the user has just turned to something else. A save that fails or
    // meets a changed file says so when it ends.
    if (m_doc.HasPath() && m_doc.IsModified())
        m_saver->Request(m_doc.GetPath(), SaveCheck::IfUnchanged, CBackgroundSaver::Origin::Automatic);
}

void CLogbookCommands::WaitForSaves()
{
    while (m_saver->IsBusy()) {
        const QString name = QFileInfo(CorePaths::DisplayPath(m_doc.GetPath())).fileName();
        CProgressWait wait(m_window, tr("Saving %1...").arg(name), m_saver->Progress());
        const QMetaObject::Connection idle = connect(m_saver, &CBackgroundSaver::idle, &wait, &CProgressWait::Finish);
        if (!m_saver->IsBusy())
            wait.Finish();
        wait.Exec();
        disconnect(idle);
    }
}

void CLogbookCommands::OnSaveFinished(const CSaveResult& result, CBackgroundSaver::Origin origin)
{
    emit stateChanged();
    if (result) {
        LockLogbook(result.path);
        return;
    }
    if (result.status == SaveStatus::ChangedOnDisk) {
        ResolveChangedFile(result.path, origin);
        return;
    }
    m_services.messages->Error(MessageText::Format(StringTable::IDS_SAVE_FAILED));
}

void CLogbookCommands::ResolveChangedFile(const std::string& path, CBackgroundSaver::Origin origin)
{
    const QString text = MessageText::Format(StringTable::IDS_FILE_CHANGED) + QStringLiteral("\n\n") +
                         tr("Keep your version under a new name, load the version on disk (your changes are "
                            "lost), or overwrite it with yours?");
    switch (m_services.messages->AskChoice(text, {tr("Save as..."), tr("Load theirs"), tr("Overwrite")})) {
    case 0: {
        const QString chosen = m_services.files->ChooseSave(CorePaths::DisplayPath(path));
        if (!chosen.isEmpty())
            m_saver->Request(CorePaths::AbsoluteLocalPath(chosen), SaveCheck::Overwrite, origin);
        break;
    }
    case 1:
        if (LoadLogbook(CorePaths::DisplayPath(path)))
            emit logbookOpened();
        break;
    case 2:
        m_saver->Request(path, SaveCheck::Overwrite, origin);
        break;
    default:
        break; // the logbook stays modified; the next save asks again
    }
}

void CLogbookCommands::LockLogbook(const std::string& path)
{
    if (m_lock.Lock(path) == CLogbookLock::State::AlreadyOpen)
        m_services.messages->Warning(
            MessageText::Format(StringTable::IDS_ALREADY_OPEN, QString::fromStdString(m_lock.GetHolder())));
}
