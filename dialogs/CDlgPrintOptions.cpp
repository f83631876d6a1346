#include "dialogs/CDlgPrintOptions.h"

#include "controls/CKqPropertyPage.h"
#include "controls/CKqSpinBox.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QRadioButton>
#include <QVBoxLayout>

namespace {

// The print options' one page. Its texts belong to the dialog (CDlgPrintOptions::tr).
class CPrintOptionsPage final : public CKqPropertyPage
{
public:
    CPrintOptionsPage(CPrintOptionsEdit& options, const CLogbookDoc& doc);

    void Initialise() override;
    CCheckResult Validate() override;

private:
    // The range's fields take input only while the range is chosen.
    void UpdateRange();

    CPrintOptionsEdit& m_edit;
    const CLogbookDoc& m_doc;
    QRadioButton* m_all = nullptr;
    QRadioButton* m_range = nullptr;
    QRadioButton* m_shown = nullptr;
    QSpinBox* m_from = nullptr;
    QSpinBox* m_to = nullptr;
    QComboBox* m_paper = nullptr;
    QCheckBox* m_recordings = nullptr;
};

CPrintOptionsPage::CPrintOptionsPage(CPrintOptionsEdit& options, const CLogbookDoc& doc)
    : CKqPropertyPage(CDlgPrintOptions::tr("Print options")), m_edit(options), m_doc(doc)
{
    m_all = new QRadioButton(CDlgPrintOptions::tr("The whole logbook"), this);
    m_all->setObjectName(QStringLiteral("allRadio"));
    m_range = new QRadioButton(CDlgPrintOptions::tr("Jumps numbered"), this);
    m_range->setObjectName(QStringLiteral("rangeRadio"));
    m_shown = new QRadioButton(CDlgPrintOptions::tr("The jumps the list shows"), this);
    m_shown->setObjectName(QStringLiteral("shownRadio"));
    const auto makeNumber = [this](const char* name) {
        auto* spin = new CKqSpinBox(this);
        spin->setObjectName(QLatin1String(name));
        spin->SetStepRange(0, CPrintOptionsEdit::kMaxNumber);
        return spin;
    };
    m_from = makeNumber("fromSpin");
    m_to = makeNumber("toSpin");
    auto* toLabel = new QLabel(CDlgPrintOptions::tr("to"), this);
    toLabel->setBuddy(m_to);

    m_paper = new QComboBox(this);
    m_paper->setObjectName(QStringLiteral("paperCombo"));
    m_paper->addItems({CDlgPrintOptions::tr("A4, landscape"), CDlgPrintOptions::tr("Letter, landscape")});
    auto* paperLabel = new QLabel(CDlgPrintOptions::tr("Paper"), this);
    paperLabel->setBuddy(m_paper);
    m_recordings = new QCheckBox(CDlgPrintOptions::tr("A page for each recording"), this);
    m_recordings->setObjectName(QStringLiteral("recordingsCheck"));

    // The range's fields stand indented under their choice.
    auto* range = new QHBoxLayout;
    range->setContentsMargins(16, 0, 0, 0);
    range->setSpacing(6);
    range->addWidget(m_from, 1);
    range->addWidget(toLabel);
    range->addWidget(m_to, 1);
    auto* grid = new QGridLayout;
    grid->setVerticalSpacing(4);
    grid->addWidget(m_all, 0, 0, 1, 2);
    grid->addWidget(m_range, 1, 0, 1, 2);
    grid->addLayout(range, 2, 0, 1, 2);
    grid->addWidget(m_shown, 3, 0, 1, 2);
    grid->addWidget(paperLabel, 4, 0);
    grid->addWidget(m_paper, 4, 1);
    grid->addWidget(m_recordings, 5, 0, 1, 2);
    grid->setColumnStretch(1, 1);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(2, 2, 2, 2);
    layout->addLayout(grid);
    layout->addStretch(1);
    MapField(CPrintOptionsEdit::From, m_from);
    MapField(CPrintOptionsEdit::To, m_to);
    connect(m_range, &QRadioButton::toggled, this, [this] { UpdateRange(); });
}

void CPrintOptionsPage::Initialise()
{
    m_shown->setVisible(m_edit.CanPrintShown());
    m_from->setValue(m_edit.from);
    m_to->setValue(m_edit.to);
    m_paper->setCurrentIndex(m_edit.paper);
    m_all->setChecked(true);
    UpdateRange();
}

void CPrintOptionsPage::UpdateRange()
{
    m_from->setEnabled(m_range->isChecked());
    m_to->setEnabled(m_range->isChecked());
}

CCheckResult CPrintOptionsPage::Validate()
{
    m_edit.scope = m_range->isChecked()   ? CPrintOptionsEdit::Range
                   : m_shown->isChecked() ? CPrintOptionsEdit::Shown
                                          : CPrintOptionsEdit::All;
    m_edit.from = m_from->value();
    m_edit.to = m_to->value();
    m_edit.paper = m_paper->currentIndex() == 1 ? CPrintOptionsEdit::Letter : CPrintOptionsEdit::A4;
    m_edit.recordings = m_recordings->isChecked();
    return m_edit.Check(m_doc);
}

} // namespace

CDlgPrintOptions::CDlgPrintOptions(const CLogbookDoc& doc, std::vector<std::size_t> shown,
                                   CPrintOptionsEdit::Paper defaultPaper, IMessageSink* messages, QWidget* parent)
    : CKqPropertySheet(tr("Print options"), messages, parent)
{
    setObjectName(QStringLiteral("dlgPrintOptions"));
    m_edit.Load(doc, std::move(shown), defaultPaper);
    AddPage(new CPrintOptionsPage(m_edit, doc));
    // The controls show the working values from the start.
    InitialisePages();
}
