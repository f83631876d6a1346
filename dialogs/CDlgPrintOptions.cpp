#include "dialogs/CDlgPrintOptions.h"

#include "controls/CKqSpinBox.h"
#include "controls/IMessageSink.h"
#include "dialogs/DialogText.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QMessageBox>
#include <QRadioButton>
#include <QVBoxLayout>

CDlgPrintOptions::CDlgPrintOptions(const CLogbookDoc& doc, std::vector<std::size_t> shown,
                                   CPrintOptionsEdit::Paper defaultPaper, IMessageSink* messages, QWidget* parent)
    : QDialog(parent), m_doc(doc), m_messages(messages)
{
    setObjectName(QStringLiteral("dlgPrintOptions"));
    setWindowTitle(tr("Print options"));
    m_edit.Load(doc, std::move(shown), defaultPaper);

    m_all = new QRadioButton(tr("The whole logbook"), this);
    m_all->setObjectName(QStringLiteral("allRadio"));
    m_range = new QRadioButton(tr("Jumps numbered"), this);
    m_range->setObjectName(QStringLiteral("rangeRadio"));
    m_shown = new QRadioButton(tr("The jumps the list shows"), this);
    m_shown->setObjectName(QStringLiteral("shownRadio"));
    m_shown->setVisible(m_edit.CanPrintShown());
    const auto makeNumber = [this](const char* name, int value) {
        auto* spin = new CKqSpinBox(this);
        spin->setObjectName(QLatin1String(name));
        spin->SetStepRange(0, CPrintOptionsEdit::kMaxNumber);
        spin->setValue(value);
        return spin;
    };
    m_from = makeNumber("fromSpin", m_edit.from);
    m_to = makeNumber("toSpin", m_edit.to);
    auto* toLabel = new QLabel(tr("to"), this);
    toLabel->setBuddy(m_to);

    m_paper = new QComboBox(this);
    m_paper->setObjectName(QStringLiteral("paperCombo"));
    m_paper->addItems({tr("A4, landscape"), tr("Letter, landscape")});
    m_paper->setCurrentIndex(m_edit.paper);
    auto* paperLabel = new QLabel(tr("Paper"), this);
    paperLabel->setBuddy(m_paper);
    m_recordings = new QCheckBox(tr("A page for each recording"), this);
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
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    buttons->setObjectName(QStringLiteral("printOptionsButtons"));
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(6, 6, 6, 6);
    layout->addLayout(grid);
    layout->addStretch(1);
    layout->addWidget(buttons);

    m_all->setChecked(true);
    UpdateRange();
    connect(m_range, &QRadioButton::toggled, this, &CDlgPrintOptions::UpdateRange);
    connect(buttons, &QDialogButtonBox::accepted, this, &CDlgPrintOptions::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
}

void CDlgPrintOptions::UpdateRange()
{
    m_from->setEnabled(m_range->isChecked());
    m_to->setEnabled(m_range->isChecked());
}

void CDlgPrintOptions::accept()
{
    m_edit.scope = m_range->isChecked()   ? CPrintOptionsEdit::Range
                   : m_shown->isChecked() ? CPrintOptionsEdit::Shown
                                          : CPrintOptionsEdit::All;
    m_edit.from = m_from->value();
    m_edit.to = m_to->value();
    m_edit.paper = m_paper->currentIndex() == 1 ? CPrintOptionsEdit::Letter : CPrintOptionsEdit::A4;
    m_edit.recordings = m_recordings->isChecked();
    const CCheckResult result = m_edit.Check(m_doc);
    if (!result.Passed()) {
        const QString text = DialogText::CheckMessage(result);
        if (m_messages)
            m_messages->Warning(text);
        else
            QMessageBox::warning(this, windowTitle(), text);
        QSpinBox* field = result.field == CPrintOptionsEdit::To ? m_to : m_from;
        field->setFocus(Qt::OtherFocusReason);
        field->selectAll();
        return;
    }
    QDialog::accept();
}
