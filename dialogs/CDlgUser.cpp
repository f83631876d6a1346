#include "dialogs/CDlgUser.h"

#include "dialogs/CDlgUserPageList.h"
#include "dialogs/CDlgUserPageMembership.h"
#include "dialogs/DialogText.h"
#include "resources/StringTable.h"

CDlgUser::CDlgUser(CLogbookSettings& settings, IMessageSink* messages, QWidget* parent)
    : CKqPropertySheet(DialogText::Message(StringTable::IDS_USER_PROFILE), messages, parent), m_settings(settings)
{
    setObjectName(QStringLiteral("dlgUser"));
    m_edit.Load(settings);
    m_membership = new CDlgUserPageMembership(m_edit);
    AddPage(m_membership);
    const int titles[3] = {StringTable::IDS_LICENSES, StringTable::IDS_RATINGS, StringTable::IDS_AWARDS};
    for (int list = 0; list < 3; ++list) {
        m_lists[list] =
            new CDlgUserPageList(m_edit, static_cast<CUserProfileEdit::List>(list), DialogText::Message(titles[list]));
        AddPage(m_lists[list]);
    }
}

bool CDlgUser::Apply()
{
    m_changed = m_edit.Apply(m_settings);
    return true;
}
