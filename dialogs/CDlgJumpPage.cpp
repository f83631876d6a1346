#include "dialogs/CDlgJumpPage.h"

#include "dialogs/DialogText.h"
#include "editing/CJumpEdit.h"

#include <QAbstractItemView>
#include <QComboBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>

CDlgJumpPage::CDlgJumpPage(const QString& title, CJumpEdit& edit, QWidget* parent)
    : CKqPropertyPage(title, parent), m_edit(edit)
{
}

CCheckResult CDlgJumpPage::Validate()
{
    if (m_edit.IsViewOnly())
        return CCheckResult::Pass();
    ReadBack();
    return m_edit.Validate(static_cast<CJumpEdit::Page>(PageNumber()));
}

QGridLayout* CDlgJumpPage::MakeGrid(QWidget* page)
{
    auto* grid = new QGridLayout(page);
    grid->setContentsMargins(6, 6, 6, 6);
    grid->setHorizontalSpacing(6);
    grid->setVerticalSpacing(4);
    grid->setColumnStretch(1, 1);
    return grid;
}

QLabel* CDlgJumpPage::AddRow(QGridLayout* grid, int row, const QString& label, QWidget* field)
{
    auto* caption = new QLabel(label, this);
    // A long caption breaks where it allows (a soft hyphen) rather than widen a narrow page.
    caption->setWordWrap(true);
    caption->setBuddy(field);
    grid->addWidget(caption, row, 0);
    grid->addWidget(field, row, 1);
    return caption;
}

QLabel* CDlgJumpPage::AddCompactRow(QGridLayout* grid, int row, const QString& label, QWidget* field,
                                    const QString& unit)
{
    // Numbers and dates keep a handy width on a wide screen, with their unit right beside them.
    field->setMaximumWidth(field->fontMetrics().horizontalAdvance(QStringLiteral("0")) * 9 + 64);
    auto* line = new QWidget(this);
    auto* layout = new QHBoxLayout(line);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(4);
    layout->addWidget(field, 1);
    if (!unit.isEmpty()) {
        auto* unitLabel = new QLabel(unit, line);
        unitLabel->setObjectName(field->objectName() + QStringLiteral("Unit"));
        layout->addWidget(unitLabel);
    }
    layout->addStretch(0);
    QLabel* caption = AddRow(grid, row, label, line);
    caption->setBuddy(field);
    return caption;
}

QComboBox* CDlgJumpPage::MakeCombo(const std::vector<std::string>& items, const std::string& text, bool sorted,
                                   QWidget* parent)
{
    auto* combo = new QComboBox(parent);
    combo->setEditable(true);
    combo->setInsertPolicy(QComboBox::NoInsert);
    combo->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    combo->setMinimumContentsLength(8);
    QStringList entries;
    entries.reserve(static_cast<int>(items.size()));
    for (const std::string& item : items)
        entries.append(DialogText::ToQt(item));
    if (sorted)
        entries.sort(Qt::CaseInsensitive);
    combo->addItems(entries);
    combo->setCurrentIndex(-1);
    SetComboText(combo, text);
    // The list shows whole entries even where the field is narrow.
    combo->view()->setMinimumWidth(160);
    return combo;
}

void CDlgJumpPage::SetComboText(QComboBox* combo, const std::string& text)
{
    combo->setEditText(DialogText::ToQt(text));
    // A long text shows its beginning, where a rig's number and a name start.
    if (combo->lineEdit())
        combo->lineEdit()->setCursorPosition(0);
}
