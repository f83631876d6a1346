#include "dialogs/CDlgJumpPageFallrate.h"

#include "controls/CKqNumberField.h"
#include "controls/CKqSpinBox.h"
#include "dialogs/DialogText.h"
#include "resources/StringTable.h"
#include "units/CUnitSettings.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>

using DialogText::ToQt;

CDlgJumpPageFallrate::CDlgJumpPageFallrate(CJumpEdit& edit, QWidget* parent)
    : CDlgJumpPage(DialogText::Message(StringTable::IDS_FALLRATE), edit, parent)
{
    const CUnitSettings& units = edit.Units();
    m_kind = new QComboBox(this);
    m_kind->setObjectName(QStringLiteral("jumpKind"));
    // List position equals the kind's number; "Import" only for an imported jump.
    for (int id :
         {StringTable::IDS_STANDARD, StringTable::IDS_VERTICAL, StringTable::IDS_CUSTOM, StringTable::IDS_MANUAL})
        m_kind->addItem(DialogText::Message(id));

    const auto makeField = [this](const char* name, const QString& padTitle, int maximum, int minimum = 0) {
        auto* field = new CKqNumberField(padTitle, false, this);
        field->setObjectName(QString::fromLatin1(name));
        field->Spin()->SetStepRange(minimum, maximum);
        return field;
    };
    m_delay = makeField("jumpDelay", tr("Delay"), CJumpEdit::kMaxDelay);
    m_vMax = makeField("jumpVMax", tr("VMax"), CJumpEdit::kMaxSpeed);
    m_vAvg = makeField("jumpVAvg", tr("VAvg"), CJumpEdit::kMaxSpeed);
    m_wind = makeField("jumpWind", tr("Wind"), CJumpEdit::kMaxWind, CJumpEdit::kMinWind);
    m_direction = makeField("jumpDirection", tr("Direction"), CJumpEdit::kMaxDirection);
    m_noWind = new QCheckBox(tr("None"), this);
    m_noWind->setObjectName(QStringLiteral("jumpNoWind"));

    QGridLayout* grid = MakeGrid(this);
    AddRow(grid, 0, tr("Fallrate"), m_kind);
    AddCompactRow(grid, 1, tr("Delay"), m_delay, QStringLiteral("s"));
    AddCompactRow(grid, 2, tr("VMax"), m_vMax, ToQt(units.SpeedLabel()));
    AddCompactRow(grid, 3, tr("VAvg"), m_vAvg, ToQt(units.SpeedLabel()));
    QLabel* windLabel = AddCompactRow(grid, 4, tr("Wind"), m_wind, ToQt(units.WindLabel()));
    grid->addWidget(m_noWind, 5, 1, 1, 2);
    QLabel* directionLabel = AddCompactRow(grid, 6, tr("Direction"), m_direction, QStringLiteral("\u00b0"));
    grid->setRowStretch(7, 1);
    m_windParts = {windLabel, m_wind, directionLabel, m_direction};
    for (const char* unit : {"jumpWindUnit", "jumpDirectionUnit"})
        m_windParts.append(findChild<QLabel*>(QString::fromLatin1(unit)));

    MapField(CJumpEdit::FieldKind, m_kind);
    MapField(CJumpEdit::FieldDelay, m_delay->Spin());
    MapField(CJumpEdit::FieldVMax, m_vMax->Spin());
    MapField(CJumpEdit::FieldVAvg, m_vAvg->Spin());
    MapField(CJumpEdit::FieldWind, m_wind->Spin());
    MapField(CJumpEdit::FieldDirection, m_direction->Spin());

    connect(m_kind, &QComboBox::activated, this, &CDlgJumpPageFallrate::OnKindPicked);
    connect(m_noWind, &QCheckBox::toggled, this, [this](bool noWind) {
        m_edit.Values().noWind = noWind;
        ApplyEnables();
    });
}

void CDlgJumpPageFallrate::Initialise()
{
    const CJumpValues& v = m_edit.Values();
    // Added here rather than with the other kinds: a track imported into the editor after it
    // was built offers Import too.
    if (m_edit.OffersImport() && m_kind->count() == static_cast<int>(FallrateKind::Import))
        m_kind->addItem(DialogText::Message(StringTable::IDS_IMPORT));
    m_kind->setCurrentIndex(static_cast<int>(v.kind));
    ShowFallrateValues();
    {
        const QSignalBlocker quiet(m_noWind);
        m_noWind->setChecked(v.noWind);
    }
    m_wind->SetValue(v.noWind ? 0 : v.windSpeed);
    m_direction->SetValue(v.noWind ? 0 : v.windDirection);
    ApplyEnables();
}

void CDlgJumpPageFallrate::Activated()
{
    // The Details page has been read back by now: the computed kinds show what its heights give.
    if (!m_edit.IsViewOnly() && FallrateKindIsComputed(m_edit.Values().kind)) {
        m_edit.PickKind(m_edit.Values().kind);
        ShowFallrateValues();
    }
}

void CDlgJumpPageFallrate::OnKindPicked(int kind)
{
    // What the user typed for Manual is kept while the kind changes.
    CJumpValues& v = m_edit.Values();
    if (v.kind == FallrateKind::Manual) {
        v.delay = m_delay->Value();
        v.vMax = m_vMax->Value();
        v.vAvg = m_vAvg->Value();
    }
    m_edit.PickKind(static_cast<FallrateKind>(kind));
    ShowFallrateValues();
    ApplyEnables();
    emit kindPicked();
}

void CDlgJumpPageFallrate::ShowFallrateValues()
{
    const CJumpValues& v = m_edit.Values();
    m_delay->SetValue(v.delay);
    m_vMax->SetValue(v.vMax);
    m_vAvg->SetValue(v.vAvg);
}

void CDlgJumpPageFallrate::ApplyEnables()
{
    const bool viewOnly = m_edit.IsViewOnly();
    const bool typed = m_edit.Values().kind == FallrateKind::Manual && !viewOnly;
    m_kind->setEnabled(!viewOnly);
    m_noWind->setEnabled(!viewOnly);
    for (CKqNumberField* field : {m_delay, m_vMax, m_vAvg})
        field->SetReadOnly(!typed);
    const bool wind = !m_edit.Values().noWind;
    for (QWidget* part : m_windParts)
        if (part)
            part->setEnabled(wind);
    m_wind->SetReadOnly(viewOnly);
    m_direction->SetReadOnly(viewOnly);
}

void CDlgJumpPageFallrate::ReadBack()
{
    CJumpValues& v = m_edit.Values();
    v.kind = static_cast<FallrateKind>(m_kind->currentIndex());
    if (v.kind == FallrateKind::Manual) {
        v.delay = m_delay->Value();
        v.vMax = m_vMax->Value();
        v.vAvg = m_vAvg->Value();
    }
    v.noWind = m_noWind->isChecked();
    v.windSpeed = m_wind->Value();
    v.windDirection = m_direction->Value();
}
