#pragma once

#include "dialogs/CDlgJumpPage.h"
#include "editing/CJumpEdit.h"

class CKqNumberField;
class CKqTimeField;
class QCheckBox;
class CKqDateEdit;

// The jump editor's first page: number, date, time of day, exit and opening height, rig and
// malfunction.
class CDlgJumpPageDetails : public CDlgJumpPage
{
    Q_OBJECT

public:
    CDlgJumpPageDetails(CJumpEdit& edit, const CJumpEdit::PickLists& lists, QWidget* parent = nullptr);

    void Initialise() override;
    // Shows the working date, time and heights again (after the fall-rate page restored an
    // imported jump's values) and applies the lock rule.
    void ShowRecordedValues();
    // Date, "None" and heights are locked for a viewed or imported jump; the time follows "None".
    void ApplyLock();

protected:
    void ReadBack() override;
    int PageNumber() const override { return CJumpEdit::PageDetails; }

private:
    void OnHeightEdited(CKqNumberField* field);

    CKqNumberField* m_number;
    CKqDateEdit* m_date;
    QLabel* m_timeLabel = nullptr;
    CKqTimeField* m_time;
    QCheckBox* m_noTime;
    CKqNumberField* m_exit;
    CKqNumberField* m_open;
    QComboBox* m_equipment = nullptr;
    QComboBox* m_malfunction = nullptr;
};
