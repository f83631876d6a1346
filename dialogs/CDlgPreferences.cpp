#include "dialogs/CDlgPreferences.h"

#include "controls/CDurationPadDlg.h"
#include "controls/CKqSpinBox.h"
#include "controls/CNumberPadDlg.h"
#include "controls/IDialogRunner.h"
#include "controls/IMessageSink.h"
#include "dialogs/DialogText.h"
#include "document/CLogbookDoc.h"
#include "resources/StringTable.h"
#include "translations/MessageText.h"
#include "units/CUnitSettings.h"
#include "units/DurationText.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QGridLayout>
#include <QLabel>
#include <QLocale>
#include <QMessageBox>
#include <QPushButton>
#include <QScreen>
#include <QSpinBox>
#include <QVBoxLayout>

CDlgPreferences::CDlgPreferences(CUnitSettings& units, ISettingsStore* /*store*/, const CLogbookDoc& doc,
                                 IMessageSink* messages, QWidget* parent)
    : QDialog(parent), m_messages(messages)
{
    setObjectName(QStringLiteral("dlgPreferences"));
    setWindowTitle(tr("Preferences"));
    m_edit.Load(units, doc.GetSettings());

    m_units = new QComboBox(this);
    m_units->setObjectName(QStringLiteral("unitsCombo"));
    m_units->addItems({tr("Imperial"), tr("Metric")});
    m_speed = new QComboBox(this);
    m_speed->setObjectName(QStringLiteral("speedCombo"));
    m_fallrateLabel = new QLabel(this);
    m_fallrateLabel->setObjectName(QStringLiteral("fallrateLabel"));
    m_fallrate = new QPushButton(this);
    m_fallrate->setObjectName(QStringLiteral("fallrateButton"));
    auto* previousJumps = new CKqSpinBox(this);
    previousJumps->SetStepRange(0, CPreferencesEdit::kMaxPreviousJumps);
    m_previousJumps = previousJumps;
    m_previousJumps->setObjectName(QStringLiteral("previousJumpsSpin"));
    m_freefall = new QPushButton(this);
    m_freefall->setObjectName(QStringLiteral("freefallButton"));
    m_glideLabel = new QLabel(tr("Display Glide as"), this);
    m_glide = new QComboBox(this);
    m_glide->setObjectName(QStringLiteral("glideCombo"));
    m_glide->addItems({tr("Ratio"), tr("Pitch")});
    // The glide choice is kept and saved but not offered.
    m_glideLabel->hide();
    m_glide->hide();

    auto* unitsLabel = new QLabel(tr("Units"), this);
    unitsLabel->setBuddy(m_units);
    auto* speedLabel = new QLabel(tr("Display Speed as"), this);
    speedLabel->setBuddy(m_speed);
    auto* jumpsLabel = new QLabel(tr("Previous Jumps"), this);
    jumpsLabel->setBuddy(m_previousJumps);
    auto* freefallLabel = new QLabel(tr("Previous Freefall Time"), this);
    freefallLabel->setBuddy(m_freefall);
    for (QLabel* label : {unitsLabel, speedLabel, m_fallrateLabel, jumpsLabel, freefallLabel})
        label->setWordWrap(true);

    auto* grid = new QGridLayout;
    grid->setVerticalSpacing(4);
    int row = 0;
    for (auto [label, field] : {std::pair<QLabel*, QWidget*>{unitsLabel, m_units},
                                {speedLabel, m_speed},
                                {m_fallrateLabel, m_fallrate},
                                {jumpsLabel, m_previousJumps},
                                {freefallLabel, m_freefall},
                                {m_glideLabel, m_glide}}) {
        grid->addWidget(label, row, 0);
        grid->addWidget(field, row, 1);
        ++row;
    }
    grid->setColumnStretch(0, 1);
    grid->setColumnStretch(1, 1);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    buttons->setObjectName(QStringLiteral("preferencesButtons"));
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(6, 6, 6, 6);
    layout->addLayout(grid);
    layout->addStretch(1);
    layout->addWidget(buttons);

    m_units->setCurrentIndex(m_edit.GetUnits());
    FillSpeedList();
    m_glide->setCurrentIndex(m_edit.glideDisplay == 0 ? 0 : 1);
    m_previousJumps->setValue(static_cast<int>(m_edit.previousJumps));
    ShowValues();

    connect(m_units, &QComboBox::currentIndexChanged, this, &CDlgPreferences::OnUnitsChanged);
    connect(m_speed, &QComboBox::currentIndexChanged, this, &CDlgPreferences::OnSpeedChanged);
    connect(m_fallrate, &QPushButton::clicked, this, &CDlgPreferences::OnFallratePad);
    connect(m_freefall, &QPushButton::clicked, this, &CDlgPreferences::OnFreefallPad);
    connect(buttons, &QDialogButtonBox::accepted, this, &CDlgPreferences::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
}

void CDlgPreferences::FillSpeedList()
{
    m_filling = true;
    m_speed->clear();
    if (m_edit.GetUnits() == CUnitSettings::Metric)
        m_speed->addItems({QStringLiteral("m/s"), QStringLiteral("km/h")});
    else
        m_speed->addItems({QStringLiteral("ft/s"), QStringLiteral("mph")});
    m_speed->setCurrentIndex(m_edit.GetSpeedDisplay());
    m_filling = false;
}

void CDlgPreferences::ShowValues()
{
    m_fallrateLabel->setText(MessageText::Text(StringTable::IDS_CUSTOM_FALLRATE) + QStringLiteral(" [") +
                             DialogText::ToQt(m_edit.FallrateUnit()) + QLatin1Char(']'));
    m_fallrate->setText(QLocale().toString(static_cast<double>(m_edit.customTenths) / 10.0, 'f', 1));
    m_freefall->setText(DialogText::ToQt(DurationToText(m_edit.previousDelay, true)));
}

void CDlgPreferences::OnUnitsChanged(int index)
{
    if (index < 0)
        return;
    m_edit.SetUnits(index);
    FillSpeedList();
    ShowValues();
}

void CDlgPreferences::OnSpeedChanged(int index)
{
    if (m_filling || index < 0)
        return;
    m_edit.SetSpeedDisplay(index);
    ShowValues();
}

void CDlgPreferences::OnFallratePad()
{
    CNumberPadDlg pad(this, DialogText::Message(StringTable::IDS_CUSTOM_FALLRATE),
                      static_cast<int>(m_edit.customTenths), 1, false);
    if (RunDialog(m_runner, pad) != QDialog::Accepted)
        return;
    m_edit.customTenths = pad.Value();
    ShowValues();
}

void CDlgPreferences::OnFreefallPad()
{
    const int seconds = m_edit.previousDelay;
    CDurationPadDlg pad(this, DialogText::Message(StringTable::IDS_FREEFALL_TIME), seconds / 3600, seconds / 60 % 60,
                        seconds % 60, kMaxFreefallHours);
    if (RunDialog(m_runner, pad) != QDialog::Accepted)
        return;
    m_edit.previousDelay = pad.Hours() * 3600 + pad.Minutes() * 60 + pad.Seconds();
    ShowValues();
}

void CDlgPreferences::accept()
{
    m_edit.previousJumps = m_previousJumps->value();
    m_edit.glideDisplay = m_glide->currentIndex();
    const CCheckResult result = m_edit.Validate();
    if (!result.Passed()) {
        const QString text = DialogText::CheckMessage(result);
        if (m_messages)
            m_messages->Warning(text);
        else
            QMessageBox::warning(this, windowTitle(), text);
        m_previousJumps->setFocus(Qt::OtherFocusReason);
        m_previousJumps->selectAll();
        return;
    }
    QDialog::accept();
}

void CDlgPreferences::showEvent(QShowEvent* event)
{
    if (!m_fitted && screen()) {
        m_fitted = true;
        resize(sizeHint().expandedTo(QSize(220, 180)).boundedTo(screen()->availableGeometry().size()));
    }
    QDialog::showEvent(event);
}
