#include "dialogs/CDlgEquipmentsPageEquipments.h"

#include "controls/CKqPropertySheet.h"
#include "controls/IMessageSink.h"
#include "dialogs/CDlgEquipment.h"
#include "dialogs/DialogText.h"
#include "editing/CEquipmentsEdit.h"
#include "resources/StringTable.h"
#include "translations/MessageText.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QListWidget>
#include <QMessageBox>
#include <QPushButton>
#include <QVBoxLayout>

CDlgEquipmentsPageEquipments::CDlgEquipmentsPageEquipments(CEquipmentsEdit& edit, QWidget* parent)
    : CKqPropertyPage(tr("Gears"), parent), m_edit(edit)
{
    auto* label = new QLabel(tr("Equipments"), this);
    m_list = new QListWidget(this);
    m_list->setObjectName(QStringLiteral("equipmentList"));
    m_list->setMinimumSize(120, 60);
    // Long rig names wrap on a narrow screen instead of hiding behind a scroll bar.
    m_list->setWordWrap(true);
    m_list->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_list->setResizeMode(QListView::Adjust);
    m_list->installEventFilter(this);
    label->setBuddy(m_list);
    m_new = new QPushButton(tr("New..."), this);
    m_new->setObjectName(QStringLiteral("newEquipmentButton"));
    m_remove = new QPushButton(tr("Remove"), this);
    m_remove->setObjectName(QStringLiteral("removeEquipmentButton"));

    auto* buttons = new QHBoxLayout;
    buttons->addWidget(m_new);
    buttons->addWidget(m_remove);
    buttons->addStretch(1);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(6, 6, 6, 6);
    layout->addWidget(label);
    layout->addWidget(m_list, 1);
    layout->addLayout(buttons);

    connect(m_new, &QPushButton::clicked, this, &CDlgEquipmentsPageEquipments::OnNew);
    connect(m_remove, &QPushButton::clicked, this, &CDlgEquipmentsPageEquipments::OnRemove);
    // A tap and a double-click both open the rig; the double-click's first click already did.
    connect(m_list, &QListWidget::itemClicked, this, [this](QListWidgetItem* item) { OpenRow(m_list->row(item)); });
    connect(m_list, &QListWidget::currentRowChanged, this, &CDlgEquipmentsPageEquipments::UpdateButtons);
}

void CDlgEquipmentsPageEquipments::Initialise()
{
    Fill(-1);
}

CCheckResult CDlgEquipmentsPageEquipments::Validate()
{
    return CCheckResult::Pass();
}

void CDlgEquipmentsPageEquipments::Fill(int selectRow)
{
    m_list->clear();
    for (std::size_t i = 0; i < m_edit.Count(); ++i)
        m_list->addItem(DialogText::ToQt(m_edit.Rig(i).GetDisplayText()));
    if (selectRow >= m_list->count())
        selectRow = m_list->count() - 1;
    m_list->setCurrentRow(selectRow);
    UpdateButtons();
}

void CDlgEquipmentsPageEquipments::UpdateButtons()
{
    m_remove->setEnabled(m_list->currentRow() >= 0);
}

void CDlgEquipmentsPageEquipments::OnNew()
{
    std::unique_ptr<CEquipment> rig = m_edit.MakeNewRig();
    CDlgEquipment editor(*rig, Sheet() ? Sheet()->Messages() : nullptr, this);
    if (RunModal(editor) != QDialog::Accepted)
        return;
    m_edit.AddRig(editor.Result());
    Fill(static_cast<int>(m_edit.Count()) - 1);
}

void CDlgEquipmentsPageEquipments::OpenRow(int row)
{
    if (row < 0 || static_cast<std::size_t>(row) >= m_edit.Count())
        return;
    CDlgEquipment editor(m_edit.Rig(static_cast<std::size_t>(row)), Sheet() ? Sheet()->Messages() : nullptr, this);
    if (RunModal(editor) != QDialog::Accepted)
        return;
    m_edit.ReplaceRig(static_cast<std::size_t>(row), editor.Result());
    Fill(row);
}

void CDlgEquipmentsPageEquipments::OnRemove()
{
    const int row = m_list->currentRow();
    if (row < 0 || static_cast<std::size_t>(row) >= m_edit.Count())
        return;
    const QString question =
        MessageText::Format(StringTable::IDS_REMOVE_EQUIPMENT,
                            DialogText::ToQt(m_edit.Rig(static_cast<std::size_t>(row)).GetDisplayText()));
    IMessageSink* messages = Sheet() ? Sheet()->Messages() : nullptr;
    const bool yes = messages ? messages->AskYesNo(question)
                              : QMessageBox::question(this, tr("Equipment"), question,
                                                      QMessageBox::Yes | QMessageBox::No) == QMessageBox::Yes;
    if (!yes)
        return;
    m_edit.RemoveRig(static_cast<std::size_t>(row));
    Fill(row);
}

bool CDlgEquipmentsPageEquipments::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == m_list && event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent*>(event)->key();
        if (key == Qt::Key_Return || key == Qt::Key_Enter) {
            OpenRow(m_list->currentRow());
            return true;
        }
        if (key == Qt::Key_Delete) {
            OnRemove();
            return true;
        }
    }
    return CKqPropertyPage::eventFilter(watched, event);
}
