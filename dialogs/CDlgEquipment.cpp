#include "dialogs/CDlgEquipment.h"

#include "controls/CKqDateEdit.h"
#include "controls/CKqPropertyPage.h"
#include "controls/CKqSpinBox.h"
#include "dialogs/DialogText.h"
#include "model/CEquipment.h"
#include "resources/StringTable.h"
#include "units/CUnitSettings.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QRegularExpressionValidator>
#include <QSpinBox>

namespace {

long long NumberOf(const QLineEdit* edit)
{
    bool ok = false;
    const long long value = edit->text().trimmed().toLongLong(&ok);
    return ok ? value : 0;
}

// The rig editor's one page, the form of the rig's values. Its texts belong to the dialog
// (CDlgEquipment::tr).
class CRigPage final : public CKqPropertyPage
{
public:
    explicit CRigPage(CEquipmentEdit& rig);

    void Initialise() override;
    CCheckResult Validate() override;

private:
    QLineEdit* AddText(QGridLayout* grid, int row, const QString& label, const QString& name);

    CEquipmentEdit& m_edit;
    QLineEdit* m_harness;
    QLineEdit* m_harnessSerial;
    QLineEdit* m_main;
    QLineEdit* m_mainSize;
    QLineEdit* m_mainSerial;
    QLineEdit* m_reserve;
    QLineEdit* m_reserveSize;
    QLineEdit* m_reserveSerial;
    QLineEdit* m_aad;
    QLineEdit* m_aadSerial;
    CKqDateEdit* m_date;
    QSpinBox* m_previousJumps;
    QCheckBox* m_active;
};

CRigPage::CRigPage(CEquipmentEdit& rig) : CKqPropertyPage(CDlgEquipment::tr("Equipment")), m_edit(rig)
{
    auto* grid = new QGridLayout(this);
    grid->setContentsMargins(6, 6, 6, 6);
    grid->setVerticalSpacing(3);
    // Sizes take digits and a sign only; the range is the check's business.
    auto* digits = new QRegularExpressionValidator(QRegularExpression(QStringLiteral("-?[0-9]{0,6}")), this);
    auto sizeRow = [&](int row, QLineEdit*& edit, const QString& name) {
        edit = new QLineEdit(this);
        edit->setObjectName(name);
        edit->setValidator(digits);
        edit->setMaximumWidth(70);
        auto* unit = new QLabel(DialogText::ToQt(CUnitSettings::kCanopySizeLabel), this);
        auto* box = new QHBoxLayout;
        box->addWidget(edit);
        box->addWidget(unit);
        box->addStretch(1);
        grid->addLayout(box, row, 1);
    };

    m_harness = AddText(grid, 0, CDlgEquipment::tr("Harness"), QStringLiteral("harnessEdit"));
    m_harnessSerial = AddText(grid, 1, CDlgEquipment::tr("SN"), QStringLiteral("harnessSerialEdit"));
    m_main = AddText(grid, 2, CDlgEquipment::tr("Main"), QStringLiteral("mainEdit"));
    sizeRow(3, m_mainSize, QStringLiteral("mainSizeEdit"));
    m_mainSerial = AddText(grid, 4, CDlgEquipment::tr("SN"), QStringLiteral("mainSerialEdit"));
    m_reserve = AddText(grid, 5, CDlgEquipment::tr("Reserve"), QStringLiteral("reserveEdit"));
    sizeRow(6, m_reserveSize, QStringLiteral("reserveSizeEdit"));
    m_reserveSerial = AddText(grid, 7, CDlgEquipment::tr("SN"), QStringLiteral("reserveSerialEdit"));
    m_aad = AddText(grid, 8, CDlgEquipment::tr("AAD"), QStringLiteral("aadEdit"));
    m_aadSerial = AddText(grid, 9, CDlgEquipment::tr("SN"), QStringLiteral("aadSerialEdit"));

    auto* dateLabel = new QLabel(CDlgEquipment::tr("Inspection/Repack Date"), this);
    dateLabel->setWordWrap(true);
    // A rig never inspected shows "None"; its calendar opens on today.
    m_date = new CKqDateEdit(CDlgEquipment::tr("None"), this);
    m_date->setObjectName(QStringLiteral("inspectionDate"));
    m_date->setDisplayFormat(DialogText::ShortDateFormat());
    grid->addWidget(dateLabel, 10, 0, 1, 2);
    grid->addWidget(m_date, 11, 1);

    auto* previousJumps = new CKqSpinBox(this);
    previousJumps->SetStepRange(0, CEquipmentEdit::kSpinnerMaxJumps);
    m_previousJumps = previousJumps;
    m_previousJumps->setObjectName(QStringLiteral("previousJumpsSpin"));
    grid->addWidget(new QLabel(CDlgEquipment::tr("Prev. Jumps"), this), 12, 0);
    grid->addWidget(m_previousJumps, 12, 1);
    m_active = new QCheckBox(CDlgEquipment::tr("Active"), this);
    m_active->setObjectName(QStringLiteral("activeBox"));
    grid->addWidget(m_active, 13, 1);
    grid->setColumnStretch(1, 1);
    grid->setRowStretch(14, 1);

    MapField(CEquipmentEdit::PreviousJumps, m_previousJumps);
    MapField(CEquipmentEdit::Harness, m_harness);
    MapField(CEquipmentEdit::MainCanopy, m_main);
    MapField(CEquipmentEdit::MainSize, m_mainSize);
    MapField(CEquipmentEdit::ReserveSize, m_reserveSize);
}

QLineEdit* CRigPage::AddText(QGridLayout* grid, int row, const QString& label, const QString& name)
{
    auto* edit = new QLineEdit(this);
    edit->setObjectName(name);
    auto* caption = new QLabel(label, this);
    caption->setBuddy(edit);
    grid->addWidget(caption, row, 0);
    grid->addWidget(edit, row, 1);
    return edit;
}

void CRigPage::Initialise()
{
    m_harness->setText(DialogText::ToQt(m_edit.harness));
    m_harnessSerial->setText(DialogText::ToQt(m_edit.harnessSerial));
    m_main->setText(DialogText::ToQt(m_edit.mainCanopy));
    m_mainSize->setText(QString::number(m_edit.mainSize));
    m_mainSerial->setText(DialogText::ToQt(m_edit.mainSerial));
    m_reserve->setText(DialogText::ToQt(m_edit.reserveCanopy));
    m_reserveSize->setText(QString::number(m_edit.reserveSize));
    m_reserveSerial->setText(DialogText::ToQt(m_edit.reserveSerial));
    m_aad->setText(DialogText::ToQt(m_edit.aad));
    m_aadSerial->setText(DialogText::ToQt(m_edit.aadSerial));
    m_date->SetDate(DialogText::ToQDate(m_edit.inspectionDate));
    m_previousJumps->setValue(static_cast<int>(m_edit.previousJumps));
    m_active->setChecked(m_edit.active);
}

CCheckResult CRigPage::Validate()
{
    m_edit.harness = DialogText::FromQt(m_harness->text());
    m_edit.harnessSerial = DialogText::FromQt(m_harnessSerial->text());
    m_edit.mainCanopy = DialogText::FromQt(m_main->text());
    m_edit.mainSize = NumberOf(m_mainSize);
    m_edit.mainSerial = DialogText::FromQt(m_mainSerial->text());
    m_edit.reserveCanopy = DialogText::FromQt(m_reserve->text());
    m_edit.reserveSize = NumberOf(m_reserveSize);
    m_edit.reserveSerial = DialogText::FromQt(m_reserveSerial->text());
    m_edit.aad = DialogText::FromQt(m_aad->text());
    m_edit.aadSerial = DialogText::FromQt(m_aadSerial->text());
    m_edit.inspectionDate = DialogText::FromQDate(m_date->Date());
    m_edit.previousJumps = m_previousJumps->value();
    m_edit.active = m_active->isChecked();
    return m_edit.Validate();
}

} // namespace

CDlgEquipment::CDlgEquipment(const CEquipment& rig, IMessageSink* messages, QWidget* parent)
    : CKqPropertySheet(tr("Equipment"), messages, parent), m_rig(std::make_unique<CEquipment>(rig))
{
    setObjectName(QStringLiteral("dlgEquipment"));
    m_edit.Load(rig);
    AddPage(new CRigPage(m_edit));
    // The controls show the working values from the start.
    InitialisePages();
}

CDlgEquipment::~CDlgEquipment() = default;

std::unique_ptr<CEquipment> CDlgEquipment::Result() const
{
    return std::make_unique<CEquipment>(*m_rig);
}

bool CDlgEquipment::Apply()
{
    m_edit.Store(*m_rig);
    return true;
}
