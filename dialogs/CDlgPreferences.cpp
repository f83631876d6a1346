#include "dialogs/CDlgPreferences.h"

#include "controls/CDurationPadDlg.h"
#include "controls/CKqPropertyPage.h"
#include "controls/CKqSpinBox.h"
#include "controls/CNumberPadDlg.h"
#include "dialogs/DialogText.h"
#include "document/CLogbookDoc.h"
#include "resources/StringTable.h"
#include "translations/MessageText.h"
#include "units/CUnitSettings.h"
#include "units/DurationText.h"

#include <QComboBox>
#include <QGridLayout>
#include <QLabel>
#include <QLocale>
#include <QPushButton>
#include <QSignalBlocker>
#include <QSpinBox>
#include <QVBoxLayout>

namespace {

// The preferences' one page. Its texts belong to the dialog (CDlgPreferences::tr).
class CPreferencesPage final : public CKqPropertyPage
{
public:
    explicit CPreferencesPage(CPreferencesEdit& edit);

    void Initialise() override;
    CCheckResult Validate() override;

private:
    void FillSpeedList();
    // Shows the working values in the label and the two pad buttons.
    void ShowValues();
    void OnUnitsChanged(int index);
    void OnSpeedChanged(int index);
    // Opens the number pad on the custom fall rate.
    void OnFallratePad();
    // Opens the duration pad on the previous freefall time.
    void OnFreefallPad();

    CPreferencesEdit& m_edit;
    bool m_filling = false;

    QComboBox* m_units;
    QComboBox* m_speed;
    QLabel* m_fallrateLabel;
    QPushButton* m_fallrate;
    QSpinBox* m_previousJumps;
    QPushButton* m_freefall;
    QLabel* m_glideLabel;
    QComboBox* m_glide;
};

CPreferencesPage::CPreferencesPage(CPreferencesEdit& edit)
    : CKqPropertyPage(CDlgPreferences::tr("Preferences")), m_edit(edit)
{
    m_units = new QComboBox(this);
    m_units->setObjectName(QStringLiteral("unitsCombo"));
    m_units->addItems({CDlgPreferences::tr("Imperial"), CDlgPreferences::tr("Metric")});
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
    m_glideLabel = new QLabel(CDlgPreferences::tr("Display Glide as"), this);
    m_glide = new QComboBox(this);
    m_glide->setObjectName(QStringLiteral("glideCombo"));
    m_glide->addItems({CDlgPreferences::tr("Ratio"), CDlgPreferences::tr("Pitch")});
    // The glide choice is kept and saved but not offered.
    m_glideLabel->hide();
    m_glide->hide();

    auto* unitsLabel = new QLabel(CDlgPreferences::tr("Units"), this);
    unitsLabel->setBuddy(m_units);
    auto* speedLabel = new QLabel(CDlgPreferences::tr("Display Speed as"), this);
    speedLabel->setBuddy(m_speed);
    auto* jumpsLabel = new QLabel(CDlgPreferences::tr("Previous Jumps"), this);
    jumpsLabel->setBuddy(m_previousJumps);
    auto* freefallLabel = new QLabel(CDlgPreferences::tr("Previous Freefall Time"), this);
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
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(2, 2, 2, 2);
    layout->addLayout(grid);
    layout->addStretch(1);
    MapField(CPreferencesEdit::PreviousJumps, m_previousJumps);

    connect(m_units, &QComboBox::currentIndexChanged, this, [this](int index) { OnUnitsChanged(index); });
    connect(m_speed, &QComboBox::currentIndexChanged, this, [this](int index) { OnSpeedChanged(index); });
    connect(m_fallrate, &QPushButton::clicked, this, [this] { OnFallratePad(); });
    connect(m_freefall, &QPushButton::clicked, this, [this] { OnFreefallPad(); });
}

void CPreferencesPage::Initialise()
{
    {
        const QSignalBlocker quiet(m_units);
        m_units->setCurrentIndex(m_edit.GetUnits());
    }
    FillSpeedList();
    m_glide->setCurrentIndex(m_edit.glideDisplay == 0 ? 0 : 1);
    m_previousJumps->setValue(static_cast<int>(m_edit.previousJumps));
    ShowValues();
}

CCheckResult CPreferencesPage::Validate()
{
    m_edit.previousJumps = m_previousJumps->value();
    m_edit.glideDisplay = m_glide->currentIndex();
    return m_edit.Validate();
}

void CPreferencesPage::FillSpeedList()
{
    m_filling = true;
    m_speed->clear();
    for (const int display : {CUnitSettings::PerSecond, CUnitSettings::PerHour})
        m_speed->addItem(
            DialogText::ToQt(CUnitSettings(m_edit.GetUnits(), display, CUnitSettings::Ratio).SpeedLabel()));
    m_speed->setCurrentIndex(m_edit.GetSpeedDisplay());
    m_filling = false;
}

void CPreferencesPage::ShowValues()
{
    m_fallrateLabel->setText(MessageText::Text(StringTable::IDS_CUSTOM_FALLRATE) + QStringLiteral(" [") +
                             DialogText::ToQt(m_edit.FallrateUnit()) + QLatin1Char(']'));
    m_fallrate->setText(QLocale().toString(static_cast<double>(m_edit.customTenths) / 10.0, 'f', 1));
    m_freefall->setText(DialogText::ToQt(DurationToText(m_edit.previousDelay, true)));
}

void CPreferencesPage::OnUnitsChanged(int index)
{
    if (index < 0)
        return;
    m_edit.SetUnits(index);
    FillSpeedList();
    ShowValues();
}

void CPreferencesPage::OnSpeedChanged(int index)
{
    if (m_filling || index < 0)
        return;
    m_edit.SetSpeedDisplay(index);
    ShowValues();
}

void CPreferencesPage::OnFallratePad()
{
    CNumberPadDlg pad(this, DialogText::Message(StringTable::IDS_CUSTOM_FALLRATE),
                      static_cast<int>(m_edit.customTenths), 1, false);
    if (RunModal(pad) != QDialog::Accepted)
        return;
    m_edit.customTenths = pad.Value();
    ShowValues();
}

void CPreferencesPage::OnFreefallPad()
{
    const int seconds = m_edit.previousDelay;
    CDurationPadDlg pad(this, DialogText::Message(StringTable::IDS_FREEFALL_TIME), seconds / 3600, seconds / 60 % 60,
                        seconds % 60, CDlgPreferences::kMaxFreefallHours);
    if (RunModal(pad) != QDialog::Accepted)
        return;
    m_edit.previousDelay = pad.Hours() * 3600 + pad.Minutes() * 60 + pad.Seconds();
    ShowValues();
}

} // namespace

CDlgPreferences::CDlgPreferences(CUnitSettings& units, ISettingsStore* /*store*/, const CLogbookDoc& doc,
                                 IMessageSink* messages, QWidget* parent)
    : CKqPropertySheet(tr("Preferences"), messages, parent)
{
    setObjectName(QStringLiteral("dlgPreferences"));
    m_edit.Load(units, doc.GetSettings());
    AddPage(new CPreferencesPage(m_edit));
    // The controls show the working values from the start.
    InitialisePages();
}
