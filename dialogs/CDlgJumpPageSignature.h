#pragma once

#include "dialogs/CDlgJumpPage.h"
#include "editing/CJumpEdit.h"

class CSignatureCtrl;
class QLabel;
class QLineEdit;
class QToolButton;

// The jump editor's last page: the signer's name and licence number, the witness's drawn
// signature and, for a signed jump, what its seal says.
class CDlgJumpPageSignature : public CDlgJumpPage
{
    Q_OBJECT

public:
    CDlgJumpPageSignature(CJumpEdit& edit, const CJumpEdit::PickLists& lists, QWidget* parent = nullptr);

    void Initialise() override;

    CSignatureCtrl* Signature() const { return m_signature; }
    QToolButton* UndoButton() const { return m_undo; }

    // The line telling what the seal says, in the words of the window and the details pane.
    static QString SealLine(SealState state);

protected:
    void ReadBack() override;
    int PageNumber() const override { return CJumpEdit::PageSignature; }

private:
    // A signer picked or typed whom the logbook knows brings the licence number.
    void SignerChanged(const QString& name);

    QComboBox* m_signer;
    QLineEdit* m_licence;
    QLabel* m_seal;
    CSignatureCtrl* m_signature;
    QToolButton* m_undo;
};
