#include "dialogs/CDlgJumpPageInfo.h"

#include "controls/CKqNumberField.h"
#include "controls/CKqSpinBox.h"
#include "dialogs/DialogText.h"
#include "resources/StringTable.h"

#include <QComboBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>

using DialogText::FromQt;
using DialogText::ToQt;

CDlgJumpPageInfo::CDlgJumpPageInfo(CJumpEdit& edit, const CJumpEdit::PickLists& lists, QWidget* parent)
    : CDlgJumpPage(DialogText::Message(StringTable::IDS_INFO), edit, parent)
{
    const auto combo = [this](const char* name, const std::vector<std::string>& items, bool sorted) {
        QComboBox* box = MakeCombo(items, {}, sorted, this);
        box->setObjectName(QString::fromLatin1(name));
        return box;
    };
    m_place = combo("jumpPlace", lists.place, false);
    m_aircraft = combo("jumpAircraft", lists.aircraft, false);
    m_type = combo("jumpType", lists.type, false);
    m_landing = combo("jumpLanding", lists.landing, false);
    m_team = combo("jumpTeam", lists.team, true);
    m_size = new CKqNumberField(tr("Size"), false, this);
    m_size->setObjectName(QStringLiteral("jumpSize"));
    m_size->Spin()->SetStepRange(0, CJumpEdit::kMaxSize);
    m_points = new CKqNumberField(tr("Points"), false, this);
    m_points->setObjectName(QStringLiteral("jumpPoints"));
    m_points->Spin()->SetStepRange(0, CJumpEdit::kMaxPoints);

    QGridLayout* grid = MakeGrid(this);
    AddRow(grid, 0, tr("Place"), m_place);
    AddRow(grid, 1, tr("Aircraft"), m_aircraft);
    AddRow(grid, 2, tr("Type"), m_type);
    AddRow(grid, 3, tr("Landing"), m_landing);
    AddCompactRow(grid, 4, tr("Size"), m_size);
    AddCompactRow(grid, 5, tr("Points"), m_points);
    AddRow(grid, 6, tr("Team"), m_team);
    grid->setRowStretch(7, 1);

    MapField(CJumpEdit::FieldPlace, m_place);
    MapField(CJumpEdit::FieldAircraft, m_aircraft);
    MapField(CJumpEdit::FieldType, m_type);
    MapField(CJumpEdit::FieldLanding, m_landing);
    MapField(CJumpEdit::FieldSize, m_size->Spin());
    MapField(CJumpEdit::FieldPoints, m_points->Spin());
    MapField(CJumpEdit::FieldTeam, m_team);
}

void CDlgJumpPageInfo::Initialise()
{
    const CJumpValues& v = m_edit.Values();
    SetComboText(m_place, v.place);
    SetComboText(m_aircraft, v.aircraft);
    SetComboText(m_type, v.type);
    SetComboText(m_landing, v.landing);
    m_size->SetValue(v.size);
    m_points->SetValue(v.points);
    SetComboText(m_team, v.team);
    if (m_edit.IsViewOnly()) {
        for (QWidget* control : std::initializer_list<QWidget*>{m_place, m_aircraft, m_type, m_landing, m_team})
            control->setEnabled(false);
        m_size->setEnabled(false);
        m_points->setEnabled(false);
    }
}

void CDlgJumpPageInfo::ReadBack()
{
    CJumpValues& v = m_edit.Values();
    v.place = FromQt(m_place->currentText());
    v.aircraft = FromQt(m_aircraft->currentText());
    v.type = FromQt(m_type->currentText());
    v.landing = FromQt(m_landing->currentText());
    v.size = m_size->Value();
    v.points = m_points->Value();
    v.team = FromQt(m_team->currentText());
}
