#pragma once

#include "dialogs/CDlgJumpPage.h"
#include "editing/CJumpEdit.h"

class CKqNumberField;
class QCheckBox;

// The jump editor's second page: fall-rate kind with freefall time and speeds, and the wind.
class CDlgJumpPageFallrate : public CDlgJumpPage
{
    Q_OBJECT

public:
    explicit CDlgJumpPageFallrate(CJumpEdit& edit, QWidget* parent = nullptr);

    void Initialise() override;

signals:
    // A kind was picked: date, time and heights may have come back from the recording.
    void kindPicked();

protected:
    void ReadBack() override;
    int PageNumber() const override { return CJumpEdit::PageFallrate; }
    // Computed kinds show the freefall time of the heights as they are now.
    void Activated() override;

private:
    void OnKindPicked(int kind);
    void ShowFallrateValues();
    void ApplyEnables();

    QComboBox* m_kind;
    CKqNumberField* m_delay;
    CKqNumberField* m_vMax;
    CKqNumberField* m_vAvg;
    CKqNumberField* m_wind;
    QCheckBox* m_noWind;
    CKqNumberField* m_direction;
    QList<QWidget*> m_windParts;
};
