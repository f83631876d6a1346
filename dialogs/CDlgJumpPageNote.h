#pragma once

#include "dialogs/CDlgJumpPage.h"
#include "editing/CJumpEdit.h"

class QPlainTextEdit;
class QTextBrowser;

// The jump editor's note page: a plain note is edited as text; a note with format is shown as
// rich text, read-only, and kept as it is.
class CDlgJumpPageNote : public CDlgJumpPage
{
    Q_OBJECT

public:
    explicit CDlgJumpPageNote(CJumpEdit& edit, QWidget* parent = nullptr);

    void Initialise() override;

    // The editor of a plain note, or null for a note with format.
    QPlainTextEdit* Editor() const { return m_editor; }
    // The rich-text view of a note with format, or null.
    QTextBrowser* View() const { return m_view; }

protected:
    void ReadBack() override;
    int PageNumber() const override { return CJumpEdit::PageNote; }

private:
    QPlainTextEdit* m_editor = nullptr;
    QTextBrowser* m_view = nullptr;
};
