#include "dialogs/CDlgEquipment.h"

#include "controls/CKqDateEdit.h"
#include "controls/CKqSpinBox.h"
#include "controls/IMessageSink.h"
#include "dialogs/DialogText.h"
#include "model/CEquipment.h"
#include "resources/StringTable.h"

#include <QCheckBox>
#include <QDateEdit>
#include <QDialogButtonBox>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QRegularExpressionValidator>
#include <QScreen>
#include <QScrollArea>
#include <QSpinBox>
#include <QVBoxLayout>

namespace {

long long NumberOf(const QLineEdit* edit)
{
    bool ok = false;
    const long long value = edit->text().trimmed().toLongLong(&ok);
    return ok ? value : 0;
}

} // namespace

CDlgEquipment::CDlgEquipment(const CEquipment& rig, IMessageSink* messages, QWidget* parent)
    : QDialog(parent), m_messages(messages), m_rig(std::make_unique<CEquipment>(rig))
{
    setObjectName(QStringLiteral("dlgEquipment"));
    setWindowTitle(tr("Equipment"));
    m_edit.Load(rig);

    auto* form = new QWidget;
    auto* grid = new QGridLayout(form);
    grid->setContentsMargins(6, 6, 6, 6);
    grid->setVerticalSpacing(3);
    // Sizes take digits and a sign only; the range is the check's business.
    auto* digits = new QRegularExpressionValidator(QRegularExpression(QStringLiteral("-?[0-9]{0,6}")), this);
    auto sizeRow = [&](int row, QLineEdit*& edit, const QString& name) {
        edit = new QLineEdit(form);
        edit->setObjectName(name);
        edit->setValidator(digits);
        edit->setMaximumWidth(70);
        auto* unit = new QLabel(QStringLiteral("ft²"), form);
        auto* box = new QHBoxLayout;
        box->addWidget(edit);
        box->addWidget(unit);
        box->addStretch(1);
        grid->addLayout(box, row, 1);
    };

    m_harness = AddText(grid, 0, tr("Harness"), QStringLiteral("harnessEdit"));
    m_harnessSerial = AddText(grid, 1, tr("SN"), QStringLiteral("harnessSerialEdit"));
    m_main = AddText(grid, 2, tr("Main"), QStringLiteral("mainEdit"));
    sizeRow(3, m_mainSize, QStringLiteral("mainSizeEdit"));
    m_mainSerial = AddText(grid, 4, tr("SN"), QStringLiteral("mainSerialEdit"));
    m_reserve = AddText(grid, 5, tr("Reserve"), QStringLiteral("reserveEdit"));
    sizeRow(6, m_reserveSize, QStringLiteral("reserveSizeEdit"));
    m_reserveSerial = AddText(grid, 7, tr("SN"), QStringLiteral("reserveSerialEdit"));
    m_aad = AddText(grid, 8, tr("AAD"), QStringLiteral("aadEdit"));
    m_aadSerial = AddText(grid, 9, tr("SN"), QStringLiteral("aadSerialEdit"));

    auto* dateLabel = new QLabel(tr("Inspection/Repack Date"), form);
    dateLabel->setWordWrap(true);
    // A rig never inspected shows "None"; its calendar opens on today.
    m_date = new CKqDateEdit(tr("None"), form);
    m_date->setObjectName(QStringLiteral("inspectionDate"));
    m_date->setDisplayFormat(DialogText::ShortDateFormat());
    grid->addWidget(dateLabel, 10, 0, 1, 2);
    grid->addWidget(m_date, 11, 1);

    auto* previousJumps = new CKqSpinBox(form);
    previousJumps->SetStepRange(0, CEquipmentEdit::kSpinnerMaxJumps);
    m_previousJumps = previousJumps;
    m_previousJumps->setObjectName(QStringLiteral("previousJumpsSpin"));
    grid->addWidget(new QLabel(tr("Prev. Jumps"), form), 12, 0);
    grid->addWidget(m_previousJumps, 12, 1);
    m_active = new QCheckBox(tr("Active"), form);
    m_active->setObjectName(QStringLiteral("activeBox"));
    grid->addWidget(m_active, 13, 1);
    grid->setColumnStretch(1, 1);
    grid->setRowStretch(14, 1);

    // The form scrolls on a small screen; OK and Cancel stay in sight.
    auto* scroller = new QScrollArea(this);
    scroller->setFrameShape(QFrame::NoFrame);
    scroller->setWidgetResizable(true);
    scroller->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    scroller->setWidget(form);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    buttons->setObjectName(QStringLiteral("equipmentButtons"));
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(4, 4, 4, 4);
    layout->addWidget(scroller, 1);
    layout->addWidget(buttons);
    connect(buttons, &QDialogButtonBox::accepted, this, &CDlgEquipment::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);

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

CDlgEquipment::~CDlgEquipment() = default;

QLineEdit* CDlgEquipment::AddText(QGridLayout* grid, int row, const QString& label, const QString& name)
{
    QWidget* form = grid->parentWidget();
    auto* edit = new QLineEdit(form);
    edit->setObjectName(name);
    auto* caption = new QLabel(label, form);
    caption->setBuddy(edit);
    grid->addWidget(caption, row, 0);
    grid->addWidget(edit, row, 1);
    return edit;
}

QWidget* CDlgEquipment::ControlFor(int field) const
{
    switch (field) {
    case CEquipmentEdit::PreviousJumps:
        return m_previousJumps;
    case CEquipmentEdit::Harness:
        return m_harness;
    case CEquipmentEdit::MainCanopy:
        return m_main;
    case CEquipmentEdit::MainSize:
        return m_mainSize;
    case CEquipmentEdit::ReserveSize:
        return m_reserveSize;
    default:
        return nullptr;
    }
}

std::unique_ptr<CEquipment> CDlgEquipment::Result() const
{
    return std::make_unique<CEquipment>(*m_rig);
}

void CDlgEquipment::accept()
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

    const CCheckResult result = m_edit.Validate();
    if (!result.Passed()) {
        const QString text = DialogText::CheckMessage(result);
        const bool missing = result.severity == CheckSeverity::Error;
        if (m_messages)
            missing ? m_messages->Error(text) : m_messages->Warning(text);
        else if (missing)
            QMessageBox::critical(this, windowTitle(), text);
        else
            QMessageBox::warning(this, windowTitle(), text);
        if (QWidget* control = ControlFor(result.field)) {
            control->setFocus(Qt::OtherFocusReason);
            if (auto* edit = qobject_cast<QLineEdit*>(control))
                edit->selectAll();
        }
        return;
    }
    m_edit.Store(*m_rig);
    QDialog::accept();
}

void CDlgEquipment::showEvent(QShowEvent* event)
{
    if (!m_fitted && screen()) {
        m_fitted = true;
        resize(sizeHint().expandedTo(QSize(220, 200)).boundedTo(screen()->availableGeometry().size()));
    }
    QDialog::showEvent(event);
}
