#include "controls/CKqNumberField.h"

#include "controls/CKqPropertyPage.h"
#include "controls/CKqSpinBox.h"
#include "controls/CNumberPadDlg.h"
#include "controls/IDialogRunner.h"

#include <QHBoxLayout>
#include <QToolButton>

namespace {

// The pad button's face: three dots, as on a button that opens more input.
const QString kPadFace = QStringLiteral("\u2026");

} // namespace

CKqNumberField::CKqNumberField(const QString& padTitle, bool allowNegative, QWidget* parent)
    : QWidget(parent), m_padTitle(padTitle), m_allowNegative(allowNegative)
{
    m_spin = new CKqSpinBox(this);
    m_pad = new QToolButton(this);
    m_pad->setText(kPadFace);
    m_pad->setToolTip(tr("Keypad"));
    m_pad->setFocusPolicy(Qt::NoFocus);
    m_pad->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Preferred);
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(2);
    layout->addWidget(m_spin, 1);
    layout->addWidget(m_pad);
    setFocusProxy(m_spin);
    // The spin box and the pad button carry the field's name, so a test finds them by it.
    connect(this, &QObject::objectNameChanged, this, [this](const QString& name) {
        m_spin->setObjectName(name);
        m_pad->setObjectName(name + QStringLiteral("Pad"));
    });

    connect(m_spin, &QSpinBox::valueChanged, this, [this](int value) {
        if (!m_spin->isReadOnly())
            emit valueEdited(value);
    });
    connect(m_pad, &QToolButton::clicked, this, &CKqNumberField::OpenPad);
}

int CKqNumberField::Value() const
{
    return m_spin->value();
}

void CKqNumberField::SetValue(int value)
{
    const QSignalBlocker quiet(m_spin);
    m_spin->setValue(value);
}

void CKqNumberField::SetReadOnly(bool readOnly)
{
    m_spin->setReadOnly(readOnly);
    m_spin->setButtonSymbols(readOnly ? QAbstractSpinBox::NoButtons : QAbstractSpinBox::UpDownArrows);
    m_pad->setEnabled(!readOnly);
}

void CKqNumberField::OpenPad()
{
    CNumberPadDlg pad(window(), m_padTitle, m_spin->value(), 0, m_allowNegative);
    const CKqPropertyPage* page = CKqPropertyPage::PageOf(this);
    const int result = page ? page->RunModal(pad) : RunDialog(nullptr, pad);
    if (result == QDialog::Accepted) {
        m_spin->setValue(pad.Value());
        m_spin->setFocus(Qt::OtherFocusReason);
    }
}
