// The jump commands of CLogbookCommands: the editor on a new or a listed jump, the picture,
// deleting, and the list's context menu.

#include "app/CLogbookCommands.h"

#include "app/AppCommands.h"
#include "app/CJumpListCtrl.h"
#include "app/CLogbookView.h"
#include "app/CPictureGuard.h"
#include "app/IPictureViewer.h"
#include "bridge/CorePaths.h"
#include "controls/IDialogRunner.h"
#include "controls/IMessageSink.h"
#include "dialogs/CDlgJump.h"
#include "document/CLogbookDoc.h"
#include "document/IClock.h"
#include "resources/StringTable.h"
#include "translations/MessageText.h"

#include <QMenu>

#include <filesystem>

using ViewMode = CLogbookView::ViewMode;

bool CLogbookCommands::EditJump(const CJump* jump, int page, const std::function<void(CDlgJump&)>& prepare)
{
    if (!m_view.IsLogbookOpen())
        return false;
    static const CSystemClock systemClock;
    const IClock& clock = m_services.clock ? *m_services.clock : systemClock;
    CDlgJump dialog(m_doc, m_units, m_services.settings, clock, jump, m_services.messages, m_window);
    dialog.SetDialogRunner(m_services.dialogs);
    if (prepare)
        prepare(dialog);
    dialog.InitialisePages();
    dialog.StartOnPage(page);
    if (RunDialog(m_services.dialogs, dialog) != QDialog::Accepted)
        return false;
    // The editor wrote through the document, which the lists, summary and buttons follow; a
    // failure was shown by the editor.
    const CJumpEdit::ApplyResult& result = dialog.Result();
    return result.ok && result.changed;
}

void CLogbookCommands::OnJumpNew()
{
    EditJump(nullptr, CJumpEdit::PageDetails);
}

void CLogbookCommands::OnJumpView()
{
    if (const CJump* jump = m_view.SelectedJump())
        EditJump(jump, CJumpEdit::PageDetails);
}

void CLogbookCommands::OnRowActivated(int row)
{
    const ViewMode mode = m_view.Mode();
    if (m_view.IsDesktopLayout() || (mode != ViewMode::JumpList && mode != ViewMode::SignList))
        return;
    if (const CJump* jump = m_view.List()->JumpAt(row))
        EditJump(jump, mode == ViewMode::SignList ? CJumpEdit::PageSignature : CJumpEdit::PageDetails);
}

void CLogbookCommands::OnJumpDelete()
{
    const std::vector<std::size_t> indexes = m_view.SelectedJumpIndexes();
    if (indexes.empty())
        return;
    const QString question =
        indexes.size() == 1
            ? MessageText::Format(StringTable::IDS_DELETE_JUMP, QString::number(m_doc.GetJump(indexes[0]).GetNumber()))
            : tr("Do you want to delete these %1 jumps?").arg(indexes.size());
    if (!m_services.messages->AskYesNo(question))
        return;
    m_doc.RemoveJumps(indexes);
}

bool CLogbookCommands::CanRemoveSignature(const CJump* jump)
{
    return jump && jump->IsSigned();
}

void CLogbookCommands::OnJumpRemoveSignature()
{
    const CJump* jump = m_view.SelectedJump();
    if (!CanRemoveSignature(jump) || !m_services.messages)
        return;
    const QString signer = QString::fromStdString(jump->GetSignature().GetName());
    const QString question =
        tr("Do you want to remove the signature of %1 from jump %2? The jump can then be changed, and it needs to "
           "be signed again.")
            .arg(signer, QString::number(jump->GetNumber()));
    if (!m_services.messages->AskYesNo(question))
        return;
    static const CSystemClock systemClock;
    const IClock& clock = m_services.clock ? *m_services.clock : systemClock;
    const int index = m_doc.IndexOf(jump);
    if (index >= 0)
        CJumpEdit::RemoveSignature(m_doc, static_cast<std::size_t>(index), clock.Now());
}

void CLogbookCommands::OnJumpShowPicture()
{
    if (!m_services.viewer)
        return;
    const CJump* jump = m_view.SelectedJump();
    if (!jump)
        return;
    const std::string name = jump->GetPictureName();
    if (name.empty())
        return;
    // Whatever the file names, only a real picture inside the logbook's folder is shown;
    // anything else is refused without a word.
    const std::filesystem::path folder = std::filesystem::path(m_doc.GetPath()).parent_path();
    const std::filesystem::path picture = CPictureGuard::Check(folder, m_doc.ResolveMediaPath(name));
    if (picture.empty())
        return;
    m_services.viewer->Open(CorePaths::DisplayPath(picture.string()));
}

QMenu* CLogbookCommands::CreateContextMenu(QWidget* parent)
{
    auto* menu = new QMenu(parent);
    menu->setObjectName(QStringLiteral("jumpContextMenu"));
    const CJump* jump = m_view.SelectedJump();
    const auto add = [&](const QString& text, const char* name, int command, bool enabled) {
        QAction* action = menu->addAction(text, this, [this, command] { Execute(command); });
        action->setObjectName(QString::fromLatin1(name));
        action->setData(command);
        action->setEnabled(enabled);
    };
    add(tr("View..."), "viewAction", AppCommands::ID_JUMP_VIEW, jump != nullptr);
    add(tr("Change..."), "changeAction", AppCommands::ID_JUMP_CHANGE, jump != nullptr);
    add(tr("Add track..."), "addTrackAction", AppCommands::ID_JUMP_ADD_TRACK, CanAddTrack(jump));
    add(tr("Remove signature..."), "removeSignatureAction", AppCommands::ID_JUMP_REMOVE_SIGNATURE,
        CanRemoveSignature(jump));
    menu->addSeparator();
    add(tr("Show picture..."), "showPictureAction", AppCommands::ID_JUMP_SHOW_PICTURE,
        jump && !jump->GetPictureName().empty());
    add(tr("Delete"), "deleteAction", AppCommands::ID_JUMP_DELETE, jump != nullptr);
    menu->addSeparator();
    add(tr("Export selection..."), "exportSelectionAction", AppCommands::ID_FILE_EXPORT_SELECTION,
        CanExportSelection());
    return menu;
}

void CLogbookCommands::OnContextMenu(const QPoint& globalPosition)
{
    if (!m_view.SelectedJump())
        return;
    QMenu* menu = CreateContextMenu(m_window);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    menu->popup(globalPosition);
}
