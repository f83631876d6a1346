#pragma once

#include "controls/CKqPropertyPage.h"
#include "editing/CUserProfileEdit.h"

class QPlainTextEdit;

// One of the profile's list pages (licences, ratings, awards): a label and a multi-line edit,
// one entry per line. The caret goes to the end whenever the edit takes the focus.
class CDlgUserPageList : public CKqPropertyPage
{
    Q_OBJECT

public:
    // The page of one list of the working values; title doubles as the label.
    CDlgUserPageList(CUserProfileEdit& edit, CUserProfileEdit::List list, const QString& title,
                     QWidget* parent = nullptr);

    void Initialise() override;
    CCheckResult Validate() override;

    // The multi-line edit.
    QPlainTextEdit* Editor() const { return m_text; }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    CUserProfileEdit& m_edit;
    CUserProfileEdit::List m_list;
    QPlainTextEdit* m_text;
};
