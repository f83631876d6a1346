#include "dialogs/CDlgCsvImport.h"

#include "controls/IMessageSink.h"
#include "dialogs/DialogText.h"
#include "document/CLogbookDoc.h"
#include "editing/CCsvImportEdit.h"
#include "model/CJump.h"
#include "resources/StringTable.h"
#include "translations/MessageText.h"
#include "units/CUnitSettings.h"
#include "units/DurationText.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLabel>
#include <QListWidget>
#include <QLocale>
#include <QPushButton>
#include <QScrollArea>
#include <QStyle>
#include <QTabWidget>
#include <QVBoxLayout>

#include <cmath>

namespace {

// The date forms in the combo's order; Unknown only while the file leaves it open.
constexpr CsvDateOrder kDateOrders[] = {CsvDateOrder::Unknown, CsvDateOrder::Iso, CsvDateOrder::DayFirst,
                                        CsvDateOrder::MonthFirst};

} // namespace

CDlgCsvImport::CDlgCsvImport(CCsvImportEdit& edit, const CLogbookDoc& doc, const CUnitSettings& units,
                             IMessageSink* messages, const QString& fileName, QWidget* parent)
    : QDialog(parent), m_edit(edit), m_doc(doc), m_unitSettings(units), m_messages(messages)
{
    setObjectName(QStringLiteral("dlgCsvImport"));
    setWindowTitle(tr("Import CSV - %1").arg(fileName));
    m_tabs = new QTabWidget(this);
    m_tabs->setObjectName(QStringLiteral("csvTabs"));
    m_tabs->addTab(MakePreviewPage(), tr("Preview"));
    m_tabs->addTab(MakeColumnsPage(), tr("Columns"));

    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    buttons->button(QDialogButtonBox::Ok)->setText(tr("Import"));
    buttons->button(QDialogButtonBox::Ok)->setObjectName(QStringLiteral("importButton"));
    connect(buttons, &QDialogButtonBox::accepted, this, &CDlgCsvImport::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(m_tabs, 1);
    layout->addWidget(buttons);
    ShowPreview();
    resize(640, 520);
}

QWidget* CDlgCsvImport::MakePreviewPage()
{
    auto* page = new QWidget;
    m_dates = new QComboBox(page);
    m_dates->setObjectName(QStringLiteral("datesCombo"));
    m_dates->addItems({tr("Please choose"), tr("Year-month-day (2024-12-31)"), tr("Day first (31.12.2024)"),
                       tr("Month first (12/31/2024)")});
    m_units = new QComboBox(page);
    m_units->setObjectName(QStringLiteral("unitsCombo"));
    m_units->addItems({tr("Metres"), tr("Feet")});
    m_replace = new QComboBox(page);
    m_replace->setObjectName(QStringLiteral("replaceCombo"));
    m_replace->addItems({tr("Skip the row"), tr("Replace an unsigned jump")});
    for (QComboBox* combo : {m_dates, m_units, m_replace}) {
        combo->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
        combo->setMinimumContentsLength(8);
    }
    m_summary = new QLabel(page);
    m_summary->setObjectName(QStringLiteral("summaryLabel"));
    m_summary->setWordWrap(true);
    m_preview = new QListWidget(page);
    m_preview->setObjectName(QStringLiteral("previewList"));
    m_preview->setWordWrap(true);
    m_preview->setTextElideMode(Qt::ElideNone);
    m_preview->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_preview->setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);

    const CCsvMapping& mapping = m_edit.Mapping();
    for (int i = 0; i < 4; ++i)
        if (kDateOrders[i] == mapping.dates)
            m_dates->setCurrentIndex(i);
    m_units->setCurrentIndex(mapping.units == CsvHeightUnit::Feet ? 1 : 0);
    m_replace->setCurrentIndex(mapping.replaceUnsigned ? 1 : 0);
    connect(m_dates, &QComboBox::currentIndexChanged, this, [this](int index) {
        if (index >= 0 && index < 4)
            m_edit.SetDates(kDateOrders[index]);
        ShowPreview();
    });
    connect(m_units, &QComboBox::currentIndexChanged, this, [this](int index) {
        m_edit.SetUnits(index == 1 ? CsvHeightUnit::Feet : CsvHeightUnit::Metres);
        ShowPreview();
    });
    connect(m_replace, &QComboBox::currentIndexChanged, this, [this](int index) {
        m_edit.SetReplaceUnsigned(index == 1);
        ShowPreview();
    });

    auto* form = new QFormLayout;
    form->setRowWrapPolicy(QFormLayout::WrapLongRows);
    form->addRow(tr("Dates"), m_dates);
    form->addRow(tr("Heights"), m_units);
    form->addRow(tr("Same number"), m_replace);
    auto* layout = new QVBoxLayout(page);
    layout->setContentsMargins(4, 4, 4, 4);
    layout->addLayout(form);
    layout->addWidget(m_summary);
    layout->addWidget(m_preview, 1);
    return page;
}

QWidget* CDlgCsvImport::MakeColumnsPage()
{
    const QString names[kSpreadsheetFieldCount] = {
        tr("Jump number"),    tr("Date"),        tr("Time"),           tr("Place"),         tr("Aircraft"),
        tr("Jump type"),      tr("Exit height"), tr("Opening height"), tr("Freefall time"), tr("Fall rate"),
        tr("Wind direction"), tr("Wind speed"),  tr("Equipment"),      tr("Landing"),       tr("Team"),
        tr("Size"),           tr("Points"),      tr("Malfunction"),    tr("Signed by"),     tr("Note")};
    QStringList columns{tr("(none)")};
    const CCsvTable& table = m_edit.Table();
    for (std::size_t i = 0; i < table.header.size(); ++i) {
        const QString header = DialogText::ToQt(table.header[i]).trimmed();
        columns << (header.isEmpty() ? tr("Column %1").arg(i + 1) : header);
    }
    auto* inner = new QWidget;
    auto* form = new QFormLayout(inner);
    form->setRowWrapPolicy(QFormLayout::WrapLongRows);
    form->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
    for (std::size_t i = 0; i < kSpreadsheetFieldCount; ++i) {
        auto* combo = new QComboBox(inner);
        combo->setObjectName(QStringLiteral("column_%1")
                                 .arg(QString::fromUtf8(
                                     JumpFieldInfoOf(static_cast<JumpField>(i)).name.data(),
                                     static_cast<qsizetype>(JumpFieldInfoOf(static_cast<JumpField>(i)).name.size()))));
        combo->addItems(columns);
        combo->setCurrentIndex(m_edit.Mapping().column[i] + 1);
        combo->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
        combo->setMinimumContentsLength(8);
        m_columns[i] = combo;
        form->addRow(names[i], combo);
        connect(combo, &QComboBox::currentIndexChanged, this, [this, i](int index) {
            m_edit.SetColumn(static_cast<JumpField>(i), index - 1);
            // A column is one field's: the field that had it shows "(none)" now.
            for (std::size_t other = 0; other < kSpreadsheetFieldCount; ++other) {
                QSignalBlocker block(m_columns[other]);
                m_columns[other]->setCurrentIndex(m_edit.Mapping().column[other] + 1);
            }
            ShowPreview();
        });
    }
    auto* scroll = new QScrollArea;
    scroll->setWidgetResizable(true);
    scroll->setFrameShape(QFrame::NoFrame);
    scroll->setWidget(inner);
    return scroll;
}

void CDlgCsvImport::ShowPreview()
{
    m_preview->clear();
    const CCsvImportPlan& plan = m_edit.Preview();
    if (plan.messageId != 0 || m_edit.Mapping().dates == CsvDateOrder::Unknown) {
        const int id = plan.messageId != 0           ? plan.messageId
                       : m_edit.DatesQuestion() != 0 ? m_edit.DatesQuestion()
                                                     : StringTable::IDS_CSV_DATES_UNCLEAR;
        m_summary->setText(MessageText::Text(id));
        return;
    }
    m_summary->setText(tr("%1 rows: %2 new jumps, %3 replaced, %4 skipped.")
                           .arg(plan.rows.size())
                           .arg(plan.added)
                           .arg(plan.replaced)
                           .arg(plan.skipped));
    const QLocale locale;
    const QString heightUnit = DialogText::ToQt(m_unitSettings.HeightLabel());
    const QIcon warning = style()->standardIcon(QStyle::SP_MessageBoxWarning);
    const QIcon taken = style()->standardIcon(QStyle::SP_DialogApplyButton);
    int shown = 0;
    for (const CCsvPlannedRow& row : plan.rows) {
        if (shown++ == kPreviewRows)
            break;
        auto* item = new QListWidgetItem(m_preview);
        if (!row.Taken()) {
            item->setText(MessageText::Text(row.problem));
            item->setIcon(warning);
            item->setForeground(QColor(0xB0, 0x20, 0x20));
            continue;
        }
        item->setIcon(taken);
        const CJump& jump = *row.jump;
        const CDateTime& when = jump.GetTimestamp().dateTime;
        QString date = locale.toString(DialogText::ToQDate(when), QLocale::ShortFormat);
        if (jump.HasTimeOfDay())
            date += QLatin1Char(' ') + QStringLiteral("%1:%2")
                                           .arg(when.Hour(), 2, 10, QLatin1Char('0'))
                                           .arg(when.Minute(), 2, 10, QLatin1Char('0'));
        QStringList parts{tr("Line %1").arg(row.line), tr("Jump %1").arg(jump.GetNumber()), date};
        if (!jump.GetPlace().empty())
            parts << DialogText::ToQt(jump.GetPlace());
        if (jump.GetExitHeight() > 0)
            parts << tr("Exit %1 %2")
                         .arg(locale.toString(std::lround(m_unitSettings.HeightToDisplay(jump.GetExitHeight()))))
                         .arg(heightUnit);
        const int freefall = jump.FreefallTime(m_doc.GetSettings());
        if (freefall > 0)
            parts << tr("Freefall %1").arg(DialogText::ToQt(DurationToText(freefall, false)));
        if (row.replaces >= 0)
            parts << tr("replaces the jump of the logbook");
        item->setText(parts.join(QStringLiteral(" \u00b7 ")));
    }
}

void CDlgCsvImport::accept()
{
    const CCheckResult check = m_edit.Check();
    if (!check) {
        if (m_messages)
            m_messages->Warning(DialogText::CheckMessage(check));
        if (check.field == CCsvImportEdit::Dates) {
            m_tabs->setCurrentIndex(0);
            m_dates->setFocus();
        } else {
            m_tabs->setCurrentIndex(1);
            m_columns[static_cast<std::size_t>(JumpField::Date)]->setFocus();
        }
        return;
    }
    const CCsvImportPlan& plan = m_edit.Preview();
    if (plan.added + plan.replaced == 0) {
        if (m_messages)
            m_messages->Warning(tr("No row of the file can be imported."));
        return;
    }
    QDialog::accept();
}
