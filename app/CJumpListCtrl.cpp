#include "app/CJumpListCtrl.h"

#include "app/AppCommands.h"
#include "app/CJumpTableModel.h"

#include <QHeaderView>
#include <QResizeEvent>
#include <QScrollBar>
#include <QStyle>

#include <algorithm>

CJumpListCtrl::CJumpListCtrl(CJumpTableModel* model, QWidget* parent) : QTreeView(parent), m_model(model)
{
    setObjectName(QStringLiteral("jumpList%1").arg(AppCommands::kListControlId));
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
    setModel(model);
    ShowListColumns();
    // The header forgets its hidden sections when the model starts afresh.
    connect(model, &QAbstractItemModel::modelReset, this, &CJumpListCtrl::ShowListColumns);
    header()->setStretchLastSection(false);
    header()->setSectionsMovable(false);
    setColumnWidth(CJumpTableModel::NumberColumn, 55);
    setColumnWidth(CJumpTableModel::DateColumn, 60);
    setColumnWidth(CJumpTableModel::PlaceColumn, 94);

    // A jump just added: selected and shown.
    connect(model, &QAbstractItemModel::rowsInserted, this, [this](const QModelIndex&, int first, int last) {
        if (first == last && isVisible())
            ShowRow(first);
    });
    // Rows gone: the selection moves to the row that took the first one's place.
    connect(model, &QAbstractItemModel::rowsRemoved, this, [this](const QModelIndex&, int first, int) {
        if (RowCount() > 0)
            ShowRow(std::min(first, RowCount() - 1));
    });
}

void CJumpListCtrl::ShowListColumns()
{
    for (int column = 0; column < CJumpTableModel::ColumnCount; ++column)
        setColumnHidden(column, column != CJumpTableModel::NumberColumn && column != CJumpTableModel::DateColumn &&
                                    column != CJumpTableModel::PlaceColumn);
    SizeColumns();
}

int CJumpListCtrl::RowCount() const
{
    return m_model->rowCount();
}

const CJump* CJumpListCtrl::JumpAt(int row) const
{
    return m_model->JumpAt(row);
}

const CJump* CJumpListCtrl::SelectedJump() const
{
    const QModelIndexList rows = selectionModel() ? selectionModel()->selectedRows() : QModelIndexList();
    return rows.isEmpty() ? nullptr : JumpAt(rows.front().row());
}

int CJumpListCtrl::RowOf(const CJump* jump) const
{
    if (!jump)
        return -1;
    for (int row = 0; row < RowCount(); ++row)
        if (JumpAt(row) == jump)
            return row;
    return -1;
}

int CJumpListCtrl::IconIndexAt(int row) const
{
    return m_model->IconIndexAt(row);
}

QString CJumpListCtrl::TextAt(int row, int column) const
{
    return m_model->index(row, column).data().toString();
}

void CJumpListCtrl::ShowRow(int row)
{
    const QModelIndex index = m_model->index(row, CJumpTableModel::NumberColumn);
    if (!index.isValid())
        return;
    setCurrentIndex(index);
    scrollTo(index);
}

void CJumpListCtrl::ShowEnd()
{
    SizeColumns();
    if (RowCount() > 0)
        scrollTo(m_model->index(RowCount() - 1, 0), QAbstractItemView::PositionAtBottom);
}

void CJumpListCtrl::SizeColumns()
{
    resizeColumnToContents(CJumpTableModel::NumberColumn);
    resizeColumnToContents(CJumpTableModel::DateColumn);
    // The last column gets the list's client width minus the others, minus room for the
    // vertical scroll bar (the style's own width when that is wider), so that it never needs
    // a horizontal scroll bar whether or not the vertical one is shown.
    const int scrollBar = std::max(kScrollBarRoom, style()->pixelMetric(QStyle::PM_ScrollBarExtent, nullptr, this));
    const int rest = contentsRect().width() - columnWidth(CJumpTableModel::NumberColumn) -
                     columnWidth(CJumpTableModel::DateColumn) - scrollBar;
    setColumnWidth(CJumpTableModel::PlaceColumn, std::max(rest, 20));
}

void CJumpListCtrl::resizeEvent(QResizeEvent* event)
{
    QTreeView::resizeEvent(event);
    SizeColumns();
}
