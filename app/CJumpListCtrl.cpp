#include "app/CJumpListCtrl.h"

#include "app/AppCommands.h"
#include "app/CArtwork.h"
#include "app/CDateText.h"
#include "document/CLogbookDoc.h"
#include "model/CJump.h"

#include <QHeaderView>
#include <QResizeEvent>
#include <QScrollBar>
#include <QStyle>

#include <algorithm>

namespace {

constexpr int kJumpRole = Qt::UserRole;
constexpr int kIconRole = Qt::UserRole + 1;

} // namespace

CJumpListCtrl::CJumpListCtrl(QWidget* parent) : QTreeWidget(parent)
{
    setObjectName(QStringLiteral("jumpList%1").arg(AppCommands::kListControlId));
    m_icons = {
        CArtwork::Icon(QStringLiteral("row_unsigned.svg")), CArtwork::Icon(QStringLiteral("row_unsigned_picture.svg")),
        CArtwork::Icon(QStringLiteral("row_signed.svg")), CArtwork::Icon(QStringLiteral("row_signed_picture.svg"))};

    // A report list: no tree lines, whole rows selected, one at a time.
    setRootIsDecorated(false);
    setItemsExpandable(false);
    setUniformRowHeights(true);
    setAllColumnsShowFocus(true);
    setSelectionMode(QAbstractItemView::SingleSelection);
    setSelectionBehavior(QAbstractItemView::SelectRows);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setIconSize(QSize(16, 16));
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);

    setColumnCount(ColumnCount);
    setHeaderLabels({tr("Jump"), tr("Date"), tr("Place")});
    headerItem()->setTextAlignment(NumberColumn, Qt::AlignRight | Qt::AlignVCenter);
    header()->setStretchLastSection(false);
    header()->setSectionsMovable(false);
    setColumnWidth(NumberColumn, 55);
    setColumnWidth(DateColumn, 60);
    setColumnWidth(PlaceColumn, 94);
}

int CJumpListCtrl::JumpIconIndex(const CJump& jump)
{
    const bool picture = !jump.GetPictureName().empty();
    return (jump.IsSigned() ? Signed : Unsigned) + (picture ? 1 : 0);
}

void CJumpListCtrl::Empty()
{
    clear();
}

void CJumpListCtrl::Fill(const CLogbookDoc& doc, bool unsignedOnly)
{
    setUpdatesEnabled(false);
    clear();
    QList<QTreeWidgetItem*> rows;
    rows.reserve(static_cast<qsizetype>(doc.GetJumpCount()));
    for (const auto& jump : doc.GetJumps()) {
        if (unsignedOnly && jump->IsSigned())
            continue;
        auto* row = new QTreeWidgetItem;
        WriteRow(row, *jump);
        rows.append(row);
    }
    addTopLevelItems(rows);
    SizeColumns();
    setUpdatesEnabled(true);
    if (!rows.isEmpty())
        scrollToItem(rows.back(), QAbstractItemView::PositionAtBottom);
}

void CJumpListCtrl::WriteRow(QTreeWidgetItem* row, const CJump& jump) const
{
    const int icon = JumpIconIndex(jump);
    row->setIcon(NumberColumn, m_icons[static_cast<std::size_t>(icon)]);
    row->setData(NumberColumn, kIconRole, icon);
    row->setData(NumberColumn, kJumpRole, QVariant::fromValue(static_cast<const void*>(&jump)));
    row->setText(NumberColumn, QString::number(jump.GetNumber()));
    row->setTextAlignment(NumberColumn, Qt::AlignRight | Qt::AlignVCenter);
    row->setText(DateColumn, CDateText::ShortDate(jump.GetTimestamp().dateTime));
    row->setText(PlaceColumn, QString::fromStdString(jump.GetPlace()));
    // Long drop-zone names are cut at the column's edge; the tooltip shows them whole.
    row->setToolTip(PlaceColumn, row->text(PlaceColumn));
}

void CJumpListCtrl::InsertRow(int row, const CJump& jump)
{
    auto* item = new QTreeWidgetItem;
    WriteRow(item, jump);
    insertTopLevelItem(row, item);
    SizeColumns();
    ShowRow(row);
}

void CJumpListCtrl::UpdateRow(int row)
{
    QTreeWidgetItem* item = topLevelItem(row);
    if (const CJump* jump = JumpAt(row))
        WriteRow(item, *jump);
}

int CJumpListCtrl::RowOf(const CJump* jump) const
{
    for (int row = topLevelItemCount() - 1; row >= 0; --row)
        if (JumpAt(row) == jump)
            return row;
    return -1;
}

void CJumpListCtrl::ShowRow(int row)
{
    if (QTreeWidgetItem* item = topLevelItem(row)) {
        setCurrentItem(item);
        scrollToItem(item);
    }
}

const CJump* CJumpListCtrl::JumpAt(int row) const
{
    const QTreeWidgetItem* item = topLevelItem(row);
    return item ? static_cast<const CJump*>(item->data(NumberColumn, kJumpRole).value<const void*>()) : nullptr;
}

const CJump* CJumpListCtrl::SelectedJump() const
{
    const QList<QTreeWidgetItem*> selected = selectedItems();
    if (selected.isEmpty())
        return nullptr;
    return JumpAt(indexOfTopLevelItem(selected.front()));
}

int CJumpListCtrl::IconIndexAt(int row) const
{
    const QTreeWidgetItem* item = topLevelItem(row);
    return item ? item->data(NumberColumn, kIconRole).toInt() : -1;
}

bool CJumpListCtrl::RemoveJumpRow(const CJump* jump)
{
    const int row = RowOf(jump);
    if (row < 0)
        return false;
    delete takeTopLevelItem(row);
    return true;
}

void CJumpListCtrl::SizeColumns()
{
    resizeColumnToContents(NumberColumn);
    resizeColumnToContents(DateColumn);
    // The last column gets the list's client width minus the others, minus room for the
    // vertical scroll bar (the style's own width when that is wider), so that it never needs
    // a horizontal scroll bar whether or not the vertical one is shown.
    const int scrollBar = std::max(kScrollBarRoom, style()->pixelMetric(QStyle::PM_ScrollBarExtent, nullptr, this));
    const int rest = contentsRect().width() - columnWidth(NumberColumn) - columnWidth(DateColumn) - scrollBar;
    setColumnWidth(PlaceColumn, std::max(rest, 20));
}

void CJumpListCtrl::resizeEvent(QResizeEvent* event)
{
    QTreeWidget::resizeEvent(event);
    SizeColumns();
}
