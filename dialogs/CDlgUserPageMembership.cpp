#include "dialogs/CDlgUserPageMembership.h"

#include "controls/CKqSpinBox.h"
#include "dialogs/CDlgUserOwner.h"
#include "dialogs/DialogText.h"
#include "editing/TrimBlanks.h"
#include "resources/StringTable.h"

#include <QCheckBox>
#include <QDateEdit>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSpinBox>

CDlgUserPageMembership::CDlgUserPageMembership(CUserProfileEdit& edit, QWidget* parent)
    : CKqPropertyPage(DialogText::Message(StringTable::IDS_MEMBERSHIP), parent), m_edit(edit)
{
    m_name = new QLineEdit(this);
    m_name->setObjectName(QStringLiteral("nameEdit"));
    m_name->setReadOnly(true);
    m_number = new QLineEdit(this);
    m_number->setObjectName(QStringLiteral("memberNumberEdit"));
    m_number->setReadOnly(true);
    m_editOwner = new QPushButton(tr("Edit..."), this);
    m_editOwner->setObjectName(QStringLiteral("editOwnerButton"));
    m_expires = new QCheckBox(tr("Expires"), this);
    m_expires->setObjectName(QStringLiteral("expiresBox"));
    m_date = new QDateEdit(this);
    m_date->setObjectName(QStringLiteral("expiryDate"));
    m_date->setDisplayFormat(DialogText::ShortDateFormat());
    m_date->setCalendarPopup(true);
    m_alarm = new QCheckBox(tr("Enable Membership Alarm"), this);
    m_alarm->setObjectName(QStringLiteral("alarmBox"));
    m_daysLabel = new QLabel(tr("Days prior do due date"), this);
    m_daysLabel->setWordWrap(true);
    auto* days = new CKqSpinBox(this);
    days->SetStepRange(0, CUserProfileEdit::kMaxDaysPrior);
    m_days = days;
    m_days->setObjectName(QStringLiteral("daysPriorSpin"));
    m_daysLabel->setBuddy(m_days);

    // Labels above their fields: the page stays readable on a 240 pixel wide screen.
    auto* layout = new QGridLayout(this);
    layout->setContentsMargins(6, 6, 6, 6);
    layout->setVerticalSpacing(4);
    layout->addWidget(new QLabel(tr("Name"), this), 0, 0, 1, 2);
    layout->addWidget(m_name, 1, 0, 1, 2);
    layout->addWidget(new QLabel(tr("Member No."), this), 2, 0, 1, 2);
    layout->addWidget(m_number, 3, 0);
    layout->addWidget(m_editOwner, 3, 1);
    layout->addWidget(m_expires, 4, 0);
    layout->addWidget(m_date, 4, 1);
    layout->addWidget(m_alarm, 5, 0, 1, 2);
    layout->addWidget(m_daysLabel, 6, 0);
    layout->addWidget(m_days, 6, 1);
    layout->setColumnStretch(0, 1);
    layout->setRowStretch(7, 1);
    setTabOrder(m_editOwner, m_expires);

    MapField(CUserProfileEdit::DaysPrior, m_days);
    connect(m_expires, &QCheckBox::toggled, this, &CDlgUserPageMembership::OnExpiresToggled);
    connect(m_alarm, &QCheckBox::toggled, this, &CDlgUserPageMembership::ApplyEnableState);
    connect(m_editOwner, &QPushButton::clicked, this, &CDlgUserPageMembership::OnEditOwner);
}

void CDlgUserPageMembership::Initialise()
{
    m_name->setText(DialogText::ToQt(m_edit.ownerName));
    m_number->setText(DialogText::ToQt(m_edit.memberNumber));
    const QDate expiry = DialogText::ToQDate(m_edit.expiryDate);
    m_date->setDate(expiry.isValid() ? expiry : QDate::currentDate());
    m_expires->setChecked(m_edit.GetExpires());
    m_alarm->setChecked(m_edit.GetAlarm());
    m_days->setValue(m_edit.daysPrior);
    ApplyEnableState();
}

CCheckResult CDlgUserPageMembership::Validate()
{
    m_edit.SetExpires(m_expires->isChecked());
    m_edit.SetAlarm(m_alarm->isChecked());
    m_edit.expiryDate = DialogText::FromQDate(m_date->date());
    m_edit.daysPrior = m_days->value();
    return m_edit.ValidateMembership();
}

void CDlgUserPageMembership::OnExpiresToggled(bool checked)
{
    if (!checked)
        m_alarm->setChecked(false);
    ApplyEnableState();
}

void CDlgUserPageMembership::ApplyEnableState()
{
    const bool expires = m_expires->isChecked();
    m_date->setEnabled(expires);
    m_alarm->setEnabled(expires);
    const bool alarm = expires && m_alarm->isChecked();
    m_daysLabel->setEnabled(alarm);
    m_days->setEnabled(alarm);
}

void CDlgUserPageMembership::OnEditOwner()
{
    CDlgUserOwner dialog(m_name->text(), m_number->text(), this);
    if (RunModal(dialog) != QDialog::Accepted)
        return;
    m_edit.ownerName = DialogText::FromQt(dialog.Name());
    m_edit.memberNumber = DialogText::FromQt(dialog.MemberNumber());
    m_name->setText(DialogText::ToQt(TrimBlanks(m_edit.ownerName)));
    m_number->setText(DialogText::ToQt(TrimBlanks(m_edit.memberNumber)));
}
