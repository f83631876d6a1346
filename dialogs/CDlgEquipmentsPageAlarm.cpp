#include "dialogs/CDlgEquipmentsPageAlarm.h"

#include "controls/CKqSpinBox.h"
#include "dialogs/DialogText.h"
#include "editing/CEquipmentsEdit.h"
#include "resources/StringTable.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QLabel>
#include <QSpinBox>

CDlgEquipmentsPageAlarm::CDlgEquipmentsPageAlarm(CEquipmentsEdit& edit, QWidget* parent)
    : CKqPropertyPage(DialogText::Message(StringTable::IDS_ALARM), parent), m_edit(edit)
{
    m_enable = new QCheckBox(tr("Enable Rig Alarms"), this);
    m_enable->setObjectName(QStringLiteral("rigAlarmBox"));
    m_daysLabel = new QLabel(tr("Days prior to due date"), this);
    m_daysLabel->setWordWrap(true);
    auto* daysPrior = new CKqSpinBox(this);
    daysPrior->SetStepRange(0, CEquipmentsEdit::kMaxAlarmDays);
    m_daysPrior = daysPrior;
    m_daysPrior->setObjectName(QStringLiteral("rigDaysPriorSpin"));
    m_daysLabel->setBuddy(m_daysPrior);
    m_cycleLabel = new QLabel(tr("Days between inspections"), this);
    m_cycleLabel->setWordWrap(true);
    auto* cycle = new CKqSpinBox(this);
    cycle->SetStepRange(0, CEquipmentsEdit::kMaxInspectionCycle);
    m_cycle = cycle;
    m_cycle->setObjectName(QStringLiteral("inspectionCycleSpin"));
    m_cycleLabel->setBuddy(m_cycle);

    auto* layout = new QGridLayout(this);
    layout->setContentsMargins(6, 6, 6, 6);
    layout->addWidget(m_enable, 0, 0, 1, 2);
    layout->addWidget(m_daysLabel, 1, 0);
    layout->addWidget(m_daysPrior, 1, 1);
    layout->addWidget(m_cycleLabel, 2, 0);
    layout->addWidget(m_cycle, 2, 1);
    layout->setColumnStretch(0, 1);
    layout->setRowStretch(3, 1);

    MapField(CEquipmentsEdit::AlarmDays, m_daysPrior);
    MapField(CEquipmentsEdit::InspectionCycle, m_cycle);
    connect(m_enable, &QCheckBox::toggled, this, [this](bool on) {
        m_edit.alarmOn = on;
        ApplyEnableState();
    });
}

void CDlgEquipmentsPageAlarm::Initialise()
{
    m_enable->setChecked(m_edit.alarmOn);
    m_daysPrior->setValue(static_cast<int>(m_edit.alarmDays));
    m_cycle->setValue(static_cast<int>(m_edit.inspectionCycle));
    ApplyEnableState();
}

CCheckResult CDlgEquipmentsPageAlarm::Validate()
{
    m_edit.alarmOn = m_enable->isChecked();
    m_edit.alarmDays = m_daysPrior->value();
    m_edit.inspectionCycle = m_cycle->value();
    return m_edit.ValidateAlarm();
}

void CDlgEquipmentsPageAlarm::ApplyEnableState()
{
    const bool on = m_enable->isChecked();
    for (QWidget* widget : {static_cast<QWidget*>(m_daysLabel), static_cast<QWidget*>(m_daysPrior),
                            static_cast<QWidget*>(m_cycleLabel), static_cast<QWidget*>(m_cycle)})
        widget->setEnabled(on);
}
