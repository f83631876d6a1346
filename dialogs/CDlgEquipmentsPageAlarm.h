#pragma once

#include "controls/CKqPropertyPage.h"

class CEquipmentsEdit;
class QCheckBox;
class QLabel;
class QSpinBox;

// The "Alarm" page: whether rig reminders run, how many days before the due date they start,
// and the days between two inspections. The days are kept while the alarm is off.
class CDlgEquipmentsPageAlarm : public CKqPropertyPage
{
    Q_OBJECT

public:
    explicit CDlgEquipmentsPageAlarm(CEquipmentsEdit& edit, QWidget* parent = nullptr);

    void Initialise() override;
    CCheckResult Validate() override;

private:
    // Labels and spinners are enabled exactly while the box is ticked.
    void ApplyEnableState();

    CEquipmentsEdit& m_edit;
    QCheckBox* m_enable;
    QLabel* m_daysLabel;
    QSpinBox* m_daysPrior;
    QLabel* m_cycleLabel;
    QSpinBox* m_cycle;
};
