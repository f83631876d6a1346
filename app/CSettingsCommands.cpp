#include "app/CSettingsCommands.h"

#include "controls/IDialogRunner.h"
#include "controls/IMessageSink.h"
#include "dialogs/CDlgEquipments.h"
#include "dialogs/CDlgPreferences.h"
#include "dialogs/CDlgUser.h"
#include "document/CLogbookDoc.h"

#include <QWidget>

CSettingsCommands::CSettingsCommands(CLogbookDoc& doc, CUnitSettings& units, const CAppServices& services,
                                     QWidget* parent)
    : QObject(parent), m_doc(doc), m_units(units), m_services(services), m_parent(parent)
{
}

bool CSettingsCommands::IsAvailable() const
{
    return m_doc.HasPath();
}

void CSettingsCommands::Accepted()
{
    emit changed();
}

bool CSettingsCommands::OnUserProfile()
{
    if (!IsAvailable())
        return false;
    // The dialog edits a copy; the document takes it on OK.
    CLogbookSettings settings = m_doc.GetSettings();
    CDlgUser dialog(settings, m_services.messages, m_parent);
    dialog.SetDialogRunner(m_services.dialogs);
    if (RunDialog(m_services.dialogs, dialog) != QDialog::Accepted)
        return false;
    if (dialog.Changed())
        m_doc.ReplaceSettings(settings);
    Accepted();
    return true;
}

bool CSettingsCommands::OnEquipment()
{
    if (!IsAvailable())
        return false;
    CDlgEquipments dialog(m_doc, m_services.messages, m_parent);
    dialog.SetDialogRunner(m_services.dialogs);
    if (RunDialog(m_services.dialogs, dialog) != QDialog::Accepted)
        return false;
    if (!MayTouchSignedJumps(dialog.Edit().SignedJumpsTouched(m_doc)))
        return false;
    dialog.Edit().Apply(m_doc);
    Accepted();
    return true;
}

bool CSettingsCommands::OnPreferences()
{
    if (!IsAvailable())
        return false;
    CDlgPreferences dialog(m_units, m_services.settings, m_doc, m_services.messages, m_parent);
    dialog.SetDialogRunner(m_services.dialogs);
    if (RunDialog(m_services.dialogs, dialog) != QDialog::Accepted)
        return false;
    if (!MayTouchSignedJumps(dialog.Edit().SignedJumpsTouched(m_doc)))
        return false;
    dialog.Edit().Apply(m_units, m_services.settings, m_doc);
    Accepted();
    return true;
}

bool CSettingsCommands::MayTouchSignedJumps(std::size_t count) const
{
    if (count == 0)
        return true;
    const QString text =
        count == 1 ? tr("This changes what a signed jump shows. Its witness signed the values as they were, so the "
                        "jump will show as changed after signing. Do you want to make the change?")
                   : tr("This changes what %1 signed jumps show. Their witnesses signed the values as they were, so "
                        "these jumps will show as changed after signing. Do you want to make the change?")
                         .arg(count);
    return m_services.messages && m_services.messages->AskYesNo(text);
}

void CSettingsCommands::RunNewLogbookChain()
{
    if (OnUserProfile() && OnEquipment())
        OnPreferences();
}
