#include "dialogs/CDlgJumpPageSignature.h"

#include "controls/CSignatureCtrl.h"
#include "dialogs/DialogText.h"
#include "resources/StringTable.h"

#include <QComboBox>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QToolButton>

CDlgJumpPageSignature::CDlgJumpPageSignature(CJumpEdit& edit, const CJumpEdit::PickLists& lists, QWidget* parent)
    : CDlgJumpPage(DialogText::Message(StringTable::IDS_SIGNATURE), edit, parent)
{
    m_signer = MakeCombo(lists.signer, {}, true, this);
    m_signer->setObjectName(QStringLiteral("jumpSigner"));
    m_licence = new QLineEdit(this);
    m_licence->setObjectName(QStringLiteral("jumpSignerLicence"));
    m_seal = new QLabel(this);
    m_seal->setObjectName(QStringLiteral("jumpSeal"));
    m_seal->setWordWrap(true);
    m_signature = new CSignatureCtrl(this);
    m_undo = new QToolButton(this);
    m_undo->setObjectName(QStringLiteral("jumpUndoStroke"));
    m_undo->setText(tr("Undo"));
    m_undo->setToolTip(tr("Remove the last stroke"));

    auto* grid = MakeGrid(this);
    AddRow(grid, 0, tr("Signer"), m_signer);
    AddRow(grid, 1, tr("Licence no."), m_licence);
    grid->addWidget(m_seal, 2, 0, 1, 2);
    auto* caption = new QLabel(tr("Signature"), this);
    // The undo button shares the field column, so a long caption or button text (German) does
    // not widen the page.
    grid->addWidget(caption, 3, 0);
    grid->addWidget(m_undo, 3, 1, Qt::AlignRight);
    grid->addWidget(m_signature, 4, 0, 1, 2);
    grid->setRowStretch(4, 1);

    MapField(CJumpEdit::FieldSigner, m_signer);
    MapField(CJumpEdit::FieldLicence, m_licence);
    MapField(CJumpEdit::FieldSignature, m_signature);
    connect(m_signer, &QComboBox::currentTextChanged, this, &CDlgJumpPageSignature::SignerChanged);
}

QString CDlgJumpPageSignature::SealLine(SealState state)
{
    switch (state) {
    case SealState::Intact:
        return tr("Sealed: nothing has changed since the jump was signed.");
    case SealState::Changed:
        return tr("Changed after signing: the jump no longer matches its seal. What changed cannot be told, "
                  "only that something did.");
    case SealState::Unsealed:
        return tr("Signed without a seal: changes to this jump cannot be detected.");
    case SealState::NotSigned:
        break;
    }
    return {};
}

void CDlgJumpPageSignature::Initialise()
{
    const CJumpValues& v = m_edit.Values();
    SetComboText(m_signer, v.signer);
    m_licence->setText(DialogText::ToQt(v.signerLicence));
    m_licence->setCursorPosition(0);
    m_signature->SetStrokes(v.strokes);
    m_signature->AttachUndoButton(m_undo);
    const SealState state = m_edit.GetSealState();
    m_seal->setText(SealLine(state));
    m_seal->setVisible(state != SealState::NotSigned);
    // A broken seal in bold red, an intact one in green.
    if (state == SealState::Changed)
        m_seal->setStyleSheet(QStringLiteral("color: #c00000; font-weight: bold;"));
    else if (state == SealState::Intact)
        m_seal->setStyleSheet(QStringLiteral("color: #2b8a3e;"));
    if (m_edit.IsViewOnly()) {
        m_signer->setEnabled(false);
        m_licence->setEnabled(false);
        m_signature->SetReadOnly(true);
        m_undo->hide();
    }
}

void CDlgJumpPageSignature::SignerChanged(const QString& name)
{
    if (m_edit.IsViewOnly())
        return;
    const std::string licence = m_edit.KnownLicence(DialogText::FromQt(name.trimmed()));
    if (!licence.empty())
        m_licence->setText(DialogText::ToQt(licence));
}

void CDlgJumpPageSignature::ReadBack()
{
    CJumpValues& v = m_edit.Values();
    v.signer = DialogText::FromQt(m_signer->currentText());
    v.signerLicence = DialogText::FromQt(m_licence->text());
    v.strokes = m_signature->Strokes();
}
