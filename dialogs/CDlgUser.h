#pragma once

#include "controls/CKqPropertySheet.h"
#include "editing/CUserProfileEdit.h"

class CLogbookSettings;
class CDlgUserPageMembership;
class CDlgUserPageList;

// "User Profile": the membership with its expiry and reminder, and the lists of licences,
// ratings and awards. It works on a copy of the logbook's profile and writes it back in one
// call on OK.
class CDlgUser : public CKqPropertySheet
{
    Q_OBJECT

public:
    // The sheet on the settings' profile (the command's copy, written on OK); messages go to the
    // sink (not owned).
    CDlgUser(CLogbookSettings& settings, IMessageSink* messages, QWidget* parent = nullptr);

    // Whether OK changed the settings.
    bool Changed() const { return m_changed; }
    // The working values, for tests.
    CUserProfileEdit& Edit() { return m_edit; }

    CDlgUserPageMembership* MembershipPage() const { return m_membership; }
    // A list page: 0 licences, 1 ratings, 2 awards.
    CDlgUserPageList* ListPage(int list) const { return m_lists[list]; }

protected:
    bool Apply() override;

private:
    CLogbookSettings& m_settings;
    CUserProfileEdit m_edit;
    CDlgUserPageMembership* m_membership;
    CDlgUserPageList* m_lists[3];
    bool m_changed = false;
};
