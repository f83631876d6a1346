#pragma once

#include "controls/CKqPropertyPage.h"
#include "editing/CUserProfileEdit.h"

class QCheckBox;
class QDateEdit;
class QLabel;
class QLineEdit;
class QPushButton;
class QSpinBox;

// The profile's "Membership" page: the owner's name and member number (shown read-only, changed
// through "Edit..."), the expiry date and the reminder days before it.
class CDlgUserPageMembership : public CKqPropertyPage
{
    Q_OBJECT

public:
    explicit CDlgUserPageMembership(CUserProfileEdit& edit, QWidget* parent = nullptr);

    void Initialise() override;
    CCheckResult Validate() override;

    QLineEdit* NameEdit() const { return m_name; }
    QLineEdit* NumberEdit() const { return m_number; }
    QPushButton* EditButton() const { return m_editOwner; }
    QCheckBox* ExpiresBox() const { return m_expires; }
    QDateEdit* DateEdit() const { return m_date; }
    QCheckBox* AlarmBox() const { return m_alarm; }
    QSpinBox* DaysSpin() const { return m_days; }

private:
    // Date picker and alarm box follow "Expires"; the days follow the alarm box.
    void ApplyEnableState();
    void OnExpiresToggled(bool checked);
    void OnEditOwner();

    CUserProfileEdit& m_edit;
    QLineEdit* m_name;
    QLineEdit* m_number;
    QPushButton* m_editOwner;
    QCheckBox* m_expires;
    QDateEdit* m_date;
    QCheckBox* m_alarm;
    QLabel* m_daysLabel;
    QSpinBox* m_days;
};
