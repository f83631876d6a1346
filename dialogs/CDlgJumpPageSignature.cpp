#include "dialogs/CDlgJumpPageSignature.h"

#include "controls/CSignatureCtrl.h"
#include "dialogs/DialogText.h"
#include "resources/StringTable.h"

#include <QComboBox>
#include <QGridLayout>
#include <QLabel>
#include <QToolButton>

CDlgJumpPageSignature::CDlgJumpPageSignature(CJumpEdit& edit, const CJumpEdit::PickLists& lists, QWidget* parent)
    : CDlgJumpPage(DialogText::Message(StringTable::IDS_SIGNATURE), edit, parent)
{
    m_signer = MakeCombo(lists.signer, {}, true, this);
    m_signer->setObjectName(QStringLiteral("jumpSigner"));
    m_signature = new CSignatureCtrl(this);
    m_undo = new QToolButton(this);
    m_undo->setObjectName(QStringLiteral("jumpUndoStroke"));
    m_undo->setText(tr("Undo"));
    m_undo->setToolTip(tr("Remove the last stroke"));

    auto* grid = MakeGrid(this);
    AddRow(grid, 0, tr("Signer"), m_signer);
    auto* caption = new QLabel(tr("Signature"), this);
    // The undo button shares the field column, so a long caption or button text (German) does
    // not widen the page.
    grid->addWidget(caption, 1, 0);
    grid->addWidget(m_undo, 1, 1, Qt::AlignRight);
    grid->addWidget(m_signature, 2, 0, 1, 2);
    grid->setRowStretch(2, 1);

    MapField(CJumpEdit::FieldSigner, m_signer);
    MapField(CJumpEdit::FieldSignature, m_signature);
}

void CDlgJumpPageSignature::Initialise()
{
    const CJumpValues& v = m_edit.Values();
    SetComboText(m_signer, v.signer);
    m_signature->SetStrokes(v.strokes);
    m_signature->AttachUndoButton(m_undo);
    if (m_edit.IsViewOnly()) {
        m_signer->setEnabled(false);
        m_signature->SetReadOnly(true);
        m_undo->hide();
    }
}

void CDlgJumpPageSignature::ReadBack()
{
    CJumpValues& v = m_edit.Values();
    v.signer = DialogText::FromQt(m_signer->currentText());
    v.strokes = m_signature->Strokes();
}
