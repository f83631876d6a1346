#include "dialogs/CDlgUserOwner.h"

#include <QDialogButtonBox>
#include <QLabel>
#include <QLineEdit>
#include <QVBoxLayout>

CDlgUserOwner::CDlgUserOwner(const QString& name, const QString& memberNumber, QWidget* parent) : QDialog(parent)
{
    setObjectName(QStringLiteral("dlgUserOwner"));
    setWindowTitle(tr("Owner"));
    m_name = new QLineEdit(name, this);
    m_name->setObjectName(QStringLiteral("ownerNameEdit"));
    m_number = new QLineEdit(memberNumber, this);
    m_number->setObjectName(QStringLiteral("ownerNumberEdit"));
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(6, 6, 6, 6);
    layout->addWidget(new QLabel(tr("Name"), this));
    layout->addWidget(m_name);
    layout->addWidget(new QLabel(tr("Member No."), this));
    layout->addWidget(m_number);
    layout->addStretch(1);
    layout->addWidget(buttons);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
}

QString CDlgUserOwner::Name() const
{
    return m_name->text();
}

QString CDlgUserOwner::MemberNumber() const
{
    return m_number->text();
}
