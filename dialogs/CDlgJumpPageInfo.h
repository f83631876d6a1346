#pragma once

#include "dialogs/CDlgJumpPage.h"
#include "editing/CJumpEdit.h"

class CKqNumberField;

// The jump editor's third page: drop zone, aircraft, type, landing, formation size and points,
// team.
class CDlgJumpPageInfo : public CDlgJumpPage
{
    Q_OBJECT

public:
    CDlgJumpPageInfo(CJumpEdit& edit, const CJumpEdit::PickLists& lists, QWidget* parent = nullptr);

    void Initialise() override;

protected:
    void ReadBack() override;
    int PageNumber() const override { return CJumpEdit::PageInfo; }

private:
    QComboBox* m_place;
    QComboBox* m_aircraft;
    QComboBox* m_type;
    QComboBox* m_landing;
    CKqNumberField* m_size;
    CKqNumberField* m_points;
    QComboBox* m_team;
};
