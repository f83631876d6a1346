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

#include <algorithm>
#include <filesystem>

using ViewMode = CLogbookView::ViewMode;

bool CLogbookCommands::EditJump(CJump* jump, int page, const std::function<void(CDlgJump&)>& prepare)
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
    const CJumpEdit::ApplyResult& result = dialog.Result();
    m_lastAdded = jump ? nullptr : result.jump;
    if (!result.ok) {
        // The editor showed what went wrong; the totals and list show what the logbook holds.
        m_view.SetViewMode(m_view.GetViewMode() == ViewMode::Empty ? ViewMode::Empty : ViewMode::Home);
        return false;
    }
    return result.changed;
}

void CLogbookCommands::OnJumpNew()
{
    const std::size_t before = m_doc.GetJumpCount();
    if (EditJump(nullptr, CJumpEdit::PageDetails) && m_doc.GetJumpCount() == before + 1)
        ShowAddedJump();
}

void CLogbookCommands::ShowAddedJump()
{
    // The new jump shows in the summary, in a list that is on screen, and in the buttons. Its
    // row goes where the jump went, so that a long list is not built again.
    const ViewMode mode = m_view.GetViewMode();
    if (mode == ViewMode::JumpList || mode == ViewMode::SignList) {
        const auto& jumps = m_doc.GetJumps();
        const CJump* added = nullptr;
        int row = 0;
        for (const auto& jump : jumps) {
            if (jump.get() == m_lastAdded) {
                added = jump.get();
                break;
            }
            if (mode == ViewMode::JumpList || !jump->IsSigned())
                ++row;
        }
        // A jump signed in the editor has no row in the list of jumps to be signed.
        if (added && (mode == ViewMode::JumpList || !added->IsSigned()))
            m_view.GetList()->InsertRow(row, *added);
    }
    m_view.SetViewMode(mode);
}

void CLogbookCommands::OnJumpView()
{
    if (m_view.GetViewMode() != ViewMode::JumpList)
        return;
    const CJumpListCtrl* list = m_view.GetList();
    if (const CJump* jump = list->SelectedJump())
        OnRowActivated(list->RowOf(jump));
}

void CLogbookCommands::OnRowActivated(int row)
{
    const ViewMode mode = m_view.GetViewMode();
    CJumpListCtrl* list = m_view.GetList();
    CJump* jump = const_cast<CJump*>(list->JumpAt(row));
    if (!jump || (mode != ViewMode::JumpList && mode != ViewMode::SignList))
        return;
    const bool signing = mode == ViewMode::SignList;
    const int number = jump->GetNumber();
    if (!EditJump(jump, signing ? CJumpEdit::PageSignature : CJumpEdit::PageDetails))
        return;

    if (!signing) {
        // A new number may move the jump; otherwise only its row changes.
        if (jump->GetNumber() == number) {
            list->UpdateRow(row);
        } else {
            list->Fill(m_doc, false);
            list->ShowRow(list->RowOf(jump));
        }
        m_view.UpdateButtons();
        emit stateChanged();
        return;
    }
    if (!jump->IsSigned()) {
        list->UpdateRow(row);
        m_view.UpdateButtons();
        emit stateChanged();
        return;
    }
    const auto& jumps = m_doc.GetJumps();
    if (std::none_of(jumps.begin(), jumps.end(), [](const auto& each) { return !each->IsSigned(); })) {
        m_view.SetViewMode(ViewMode::Home);
        return;
    }
    list->Fill(m_doc, true);
    list->ShowRow(std::min(row, list->topLevelItemCount() - 1));
    m_view.UpdateButtons();
    emit stateChanged();
}

void CLogbookCommands::OnJumpDelete()
{
    if (m_view.GetViewMode() != ViewMode::JumpList)
        return;
    CJumpListCtrl* list = m_view.GetList();
    const CJump* jump = list->SelectedJump();
    const int index = m_doc.IndexOf(jump);
    if (!jump || index < 0)
        return;
    if (!m_services.messages->AskYesNo(
            MessageText::Format(StringTable::IDS_DELETE_JUMP, QString::number(jump->GetNumber()))))
        return;
    // The row goes first: it refers to the jump that the document is about to destroy.
    list->RemoveJumpRow(jump);
    m_doc.RemoveJump(static_cast<std::size_t>(index));
    if (list->topLevelItemCount() == 0) {
        m_view.SetViewMode(ViewMode::Home);
        return;
    }
    m_view.UpdateButtons();
    emit stateChanged();
}

void CLogbookCommands::OnJumpShowPicture()
{
    if (m_view.GetViewMode() != ViewMode::JumpList || !m_services.viewer)
        return;
    const CJump* jump = m_view.GetList()->SelectedJump();
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
    const CJump* jump = m_view.GetList()->SelectedJump();
    const auto add = [&](const QString& text, const char* name, int command, bool enabled) {
        QAction* action = menu->addAction(text, this, [this, command] { Execute(command); });
        action->setObjectName(QString::fromLatin1(name));
        action->setData(command);
        action->setEnabled(enabled);
    };
    add(tr("View..."), "viewAction", AppCommands::ID_JUMP_VIEW, jump != nullptr);
    add(tr("Change..."), "changeAction", AppCommands::ID_JUMP_CHANGE, jump != nullptr);
    add(tr("Add track..."), "addTrackAction", AppCommands::ID_JUMP_ADD_TRACK, CanAddTrack(jump));
    menu->addSeparator();
    add(tr("Show picture..."), "showPictureAction", AppCommands::ID_JUMP_SHOW_PICTURE,
        jump && !jump->GetPictureName().empty());
    add(tr("Delete"), "deleteAction", AppCommands::ID_JUMP_DELETE, jump != nullptr);
    return menu;
}

void CLogbookCommands::OnContextMenu(const QPoint& globalPosition)
{
    if (m_view.GetViewMode() != ViewMode::JumpList)
        return;
    QMenu* menu = CreateContextMenu(m_window);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    menu->popup(globalPosition);
}
