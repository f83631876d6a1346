#pragma once

#include "dialogs/CDlgJumpPage.h"
#include "editing/CJumpEdit.h"

class CSignatureCtrl;
class QToolButton;

// The jump editor's last page: the signer's name and the witness's drawn signature.
class CDlgJumpPageSignature : public CDlgJumpPage
{
    Q_OBJECT

public:
    CDlgJumpPageSignature(CJumpEdit& edit, const CJumpEdit::PickLists& lists, QWidget* parent = nullptr);

    void Initialise() override;

    CSignatureCtrl* Signature() const { return m_signature; }
    QToolButton* UndoButton() const { return m_undo; }

protected:
    void ReadBack() override;
    int PageNumber() const override { return CJumpEdit::PageSignature; }

private:
    QComboBox* m_signer;
    CSignatureCtrl* m_signature;
    QToolButton* m_undo;
};
