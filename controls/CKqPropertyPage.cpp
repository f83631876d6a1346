#include "controls/CKqPropertyPage.h"

#include "controls/CKqPropertySheet.h"
#include "controls/IDialogRunner.h"

#include <QAbstractSpinBox>
#include <QComboBox>
#include <QLineEdit>
#include <QPlainTextEdit>

CKqPropertyPage::CKqPropertyPage(const QString& title, QWidget* parent) : QWidget(parent), m_title(title)
{
    setObjectName(title.toLower() + QStringLiteral("Page"));
}

void CKqPropertyPage::FocusField(int field)
{
    QWidget* control = ControlFor(field);
    if (!control)
        return;
    control->setFocus(Qt::OtherFocusReason);
    if (auto* edit = qobject_cast<QLineEdit*>(control))
        edit->selectAll();
    else if (auto* spin = qobject_cast<QAbstractSpinBox*>(control))
        spin->selectAll();
    else if (auto* combo = qobject_cast<QComboBox*>(control); combo && combo->lineEdit())
        combo->lineEdit()->selectAll();
}

int CKqPropertyPage::RunModal(QDialog& dialog) const
{
    return RunDialog(m_sheet ? m_sheet->DialogRunner() : nullptr, dialog);
}

CKqPropertyPage* CKqPropertyPage::PageOf(QWidget* control)
{
    for (QWidget* widget = control; widget; widget = widget->parentWidget())
        if (auto* page = qobject_cast<CKqPropertyPage*>(widget))
            return page;
    return nullptr;
}
