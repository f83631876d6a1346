#include "dialogs/CDlgJumpPageDetails.h"

#include "controls/CKqDateEdit.h"
#include "controls/CKqNumberField.h"
#include "controls/CKqSpinBox.h"
#include "controls/CKqTimeField.h"
#include "dialogs/DialogText.h"
#include "resources/StringTable.h"
#include "units/CUnitSettings.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDateEdit>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>

using DialogText::FromQt;
using DialogText::ToQt;

CDlgJumpPageDetails::CDlgJumpPageDetails(CJumpEdit& edit, const CJumpEdit::PickLists& lists, QWidget* parent)
    : CDlgJumpPage(DialogText::Message(StringTable::IDS_DETAILS), edit, parent)
{
    const QString heightUnit = ToQt(edit.Units().HeightLabel());
    m_number = new CKqNumberField(tr("Jump"), false, this);
    m_number->setObjectName(QStringLiteral("jumpNumber"));
    m_number->Spin()->SetStepRange(1, CJumpEdit::kSpinnerMaxNumber);
    // A jump without a valid date shows none, and the check asks for one.
    m_date = new CKqDateEdit(QStringLiteral(" "), this);
    m_date->setObjectName(QStringLiteral("jumpDate"));
    m_date->setDisplayFormat(DialogText::ShortDateFormat());
    m_time = new CKqTimeField(tr("Time"), this);
    m_time->setObjectName(QStringLiteral("jumpTime"));
    m_noTime = new QCheckBox(tr("None"), this);
    m_noTime->setObjectName(QStringLiteral("jumpNoTime"));
    m_exit = new CKqNumberField(tr("Exit"), false, this);
    m_exit->setObjectName(QStringLiteral("jumpExit"));
    m_open = new CKqNumberField(tr("Open"), false, this);
    m_open->setObjectName(QStringLiteral("jumpOpen"));
    for (CKqNumberField* height : {m_exit, m_open}) {
        height->Spin()->SetStepRange(0, CJumpEdit::kMaxHeight);
        height->Spin()->SetStepper(&CJumpEdit::StepHeight);
        connect(height->Spin(), &QAbstractSpinBox::editingFinished, this, [this, height] { OnHeightEdited(height); });
    }

    QGridLayout* grid = MakeGrid(this);
    AddCompactRow(grid, 0, tr("Jump"), m_number);
    AddCompactRow(grid, 1, tr("Date"), m_date);
    auto* timeRow = new QWidget(this);
    auto* timeLayout = new QHBoxLayout(timeRow);
    timeLayout->setContentsMargins(0, 0, 0, 0);
    timeLayout->setSpacing(4);
    timeLayout->addWidget(m_time, 1);
    timeLayout->addWidget(m_noTime);
    m_time->setMaximumWidth(m_time->fontMetrics().horizontalAdvance(QStringLiteral("0")) * 9 + 64);
    timeLayout->addStretch(0);
    m_timeLabel = AddRow(grid, 2, tr("Time"), timeRow);
    m_timeLabel->setBuddy(m_time);
    AddCompactRow(grid, 3, tr("Exit"), m_exit, heightUnit);
    AddCompactRow(grid, 4, tr("Open"), m_open, heightUnit);
    m_equipment = MakeCombo(lists.equipment, {}, false, this);
    m_equipment->setObjectName(QStringLiteral("jumpEquipment"));
    AddRow(grid, 5, tr("Equipment"), m_equipment);
    m_malfunction = MakeCombo(lists.malfunction, {}, false, this);
    m_malfunction->setObjectName(QStringLiteral("jumpMalfunction"));
    AddRow(grid, 6, tr("Malfunction"), m_malfunction);
    grid->setRowStretch(7, 1);

    MapField(CJumpEdit::FieldNumber, m_number->Spin());
    MapField(CJumpEdit::FieldDate, m_date);
    MapField(CJumpEdit::FieldTime, m_time->Edit());
    MapField(CJumpEdit::FieldExit, m_exit->Spin());
    MapField(CJumpEdit::FieldOpen, m_open->Spin());
    MapField(CJumpEdit::FieldEquipment, m_equipment);
    MapField(CJumpEdit::FieldMalfunction, m_malfunction);
    connect(m_noTime, &QCheckBox::toggled, this, [this](bool noTime) {
        m_edit.Values().noTime = noTime;
        ApplyLock();
    });
}

void CDlgJumpPageDetails::Initialise()
{
    const CJumpValues& v = m_edit.Values();
    m_number->SetValue(v.number);
    SetComboText(m_equipment, v.equipment);
    SetComboText(m_malfunction, v.malfunction);
    ShowRecordedValues();
    if (m_edit.IsViewOnly()) {
        m_number->SetReadOnly(true);
        m_equipment->setEnabled(false);
        m_malfunction->setEnabled(false);
    }
}

void CDlgJumpPageDetails::ShowRecordedValues()
{
    const CJumpValues& v = m_edit.Values();
    m_date->SetDate(DialogText::ToQDate(v.date));
    m_time->SetText(ToQt(v.timeText));
    {
        const QSignalBlocker quiet(m_noTime);
        m_noTime->setChecked(v.noTime);
    }
    m_exit->SetValue(v.exitHeight);
    m_open->SetValue(v.openHeight);
    ApplyLock();
}

void CDlgJumpPageDetails::ApplyLock()
{
    const bool locked = m_edit.IsLocked();
    const bool noTime = m_edit.Values().noTime;
    m_date->setEnabled(!locked);
    m_noTime->setEnabled(!locked);
    m_exit->SetReadOnly(locked);
    m_open->SetReadOnly(locked);
    m_timeLabel->setEnabled(!noTime);
    m_time->setEnabled(!noTime && !locked);
}

void CDlgJumpPageDetails::OnHeightEdited(CKqNumberField* field)
{
    // A typed height keeps to the tens the spinner steps in.
    const int cut = CJumpEdit::CutHeight(field->Value());
    if (cut != field->Value())
        field->Spin()->setValue(cut);
}

void CDlgJumpPageDetails::ReadBack()
{
    CJumpValues& v = m_edit.Values();
    v.number = m_number->Value();
    v.date = DialogText::FromQDate(m_date->Date());
    v.noTime = m_noTime->isChecked();
    v.timeText = FromQt(m_time->Text());
    v.exitHeight = CJumpEdit::CutHeight(m_exit->Value());
    v.openHeight = CJumpEdit::CutHeight(m_open->Value());
    v.equipment = FromQt(m_equipment->currentText());
    v.malfunction = FromQt(m_malfunction->currentText());
}
