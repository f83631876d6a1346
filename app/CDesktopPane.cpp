#include "app/CDesktopPane.h"

#include "app/CDateText.h"
#include "app/CJumpDetailsPane.h"
#include "app/CJumpTableModel.h"
#include "app/CLicenceStatusPane.h"
#include "app/CSearchBar.h"
#include "app/CSummaryPane.h"
#include "units/ISettingsStore.h"
#include "xml/CDateTime.h"

#include <QEvent>
#include <QHeaderView>
#include <QLineEdit>
#include <QMenu>
#include <QScrollArea>
#include <QSplitter>
#include <QTableView>
#include <QToolButton>
#include <QVBoxLayout>

#include <algorithm>

namespace {

constexpr std::string_view kSection = "Window";
constexpr std::string_view kHeaderState = "TableHeader";
constexpr std::string_view kSplitterState = "Splitter";

QByteArray Read(const ISettingsStore* store, std::string_view name)
{
    if (!store)
        return {};
    return QByteArray::fromBase64(QByteArray::fromStdString(store->GetString(kSection, name, "")));
}

} // namespace

CDesktopPane::CDesktopPane(CJumpTableModel* model, const CUnitSettings& units, ISettingsStore* store, QWidget* parent)
    : QWidget(parent), m_model(model), m_store(store)
{
    setObjectName(QStringLiteral("desktopPane"));
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    m_splitter = new QSplitter(Qt::Horizontal, this);
    m_splitter->setObjectName(QStringLiteral("desktopSplitter"));
    m_splitter->setChildrenCollapsible(false);
    layout->addWidget(m_splitter);

    // The search field over the table.
    auto* tableSide = new QWidget(m_splitter);
    tableSide->setObjectName(QStringLiteral("tableSide"));
    auto* tableLayout = new QVBoxLayout(tableSide);
    tableLayout->setContentsMargins(0, 4, 0, 0);
    tableLayout->setSpacing(4);
    m_search = new CSearchBar(units, tableSide);
    tableLayout->addWidget(m_search);
    m_table = new QTableView(tableSide);
    tableLayout->addWidget(m_table, 1);
    m_table->setObjectName(QStringLiteral("jumpTable"));
    m_table->setModel(model);
    m_table->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_table->setSelectionMode(QAbstractItemView::ExtendedSelection);
    m_table->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_table->setAlternatingRowColors(true);
    m_table->setShowGrid(false);
    m_table->setWordWrap(false);
    m_table->setIconSize(QSize(16, 16));
    m_table->verticalHeader()->hide();
    // Fixed row heights: a hundred thousand rows scroll without measuring any of them.
    m_table->verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    m_table->verticalHeader()->setDefaultSectionSize(m_table->fontMetrics().height() + 8);
    QHeaderView* header = m_table->horizontalHeader();
    header->setSectionsMovable(true);
    header->setHighlightSections(false);
    header->setStretchLastSection(true);
    header->setContextMenuPolicy(Qt::CustomContextMenu);
    m_table->setSortingEnabled(true);
    m_table->sortByColumn(CJumpTableModel::NumberColumn, Qt::AscendingOrder);
    // First layout: sensible widths (never narrower than the title and its sort mark), the less
    // used columns hidden.
    const QFontMetrics metrics = m_table->fontMetrics();
    const int em = metrics.horizontalAdvance(QLatin1Char('M'));
    const int widths[CJumpTableModel::ColumnCount] = {7, 7, 7, 11, 10, 10, 6, 6, 6, 7, 14, 7, 7, 8, 10, 3, 20, 17};
    for (int column = 0; column < CJumpTableModel::ColumnCount; ++column) {
        const int title = metrics.horizontalAdvance(model->headerData(column, Qt::Horizontal).toString()) + 2 * em;
        m_table->setColumnWidth(column, std::max(widths[column] * em, title));
    }
    // The date column takes a wide date of the user's short form whole ("28 Sep 2025").
    const int date = metrics.horizontalAdvance(CDateText::ShortDate(CDateTime(2028, 9, 28, 0, 0, 0))) + em;
    m_table->setColumnWidth(CJumpTableModel::DateColumn,
                            std::max(m_table->columnWidth(CJumpTableModel::DateColumn), date));
    for (int column : {CJumpTableModel::LandingColumn, CJumpTableModel::TeamColumn, CJumpTableModel::MalfunctionColumn,
                       CJumpTableModel::FallrateColumn})
        m_table->setColumnHidden(column, true);
    // The seal stands beside the signer; the note stays the last, widest column.
    header->moveSection(header->visualIndex(CJumpTableModel::SealColumn),
                        header->visualIndex(CJumpTableModel::SignerColumn) + 1);
    connect(header, &QWidget::customContextMenuRequested, this, &CDesktopPane::ShowHeaderMenu);
    connect(m_table, &QAbstractItemView::activated, this, &CDesktopPane::editRequested);
    connect(m_table->selectionModel(), &QItemSelectionModel::currentRowChanged, this,
            [this](const QModelIndex& current) { m_details->ShowRow(current.isValid() ? current.row() : -1); });
    connect(m_table->selectionModel(), &QItemSelectionModel::selectionChanged, this, &CDesktopPane::selectionChanged);
    connect(m_table->selectionModel(), &QItemSelectionModel::currentRowChanged, this, &CDesktopPane::selectionChanged);
    // A jump just added is selected and shown.
    connect(model, &QAbstractItemModel::rowsInserted, this, [this](const QModelIndex&, int first, int last) {
        if (first == last && isVisible())
            SelectRow(first);
    });

    // The table comes first in the tab chain, so that it, not the field, has the focus at the
    // start and keys such as Del act on the rows; Ctrl+F or Tab reach the field.
    QWidget::setTabOrder(m_table, m_search->Field());
    QWidget::setTabOrder(m_search->Field(), m_search->TermsButton());
    m_search->CountRowsOf(model);
    connect(m_search, &CSearchBar::queryChanged, this, &CDesktopPane::ApplyQuery);

    auto* side = new QScrollArea(m_splitter);
    side->setObjectName(QStringLiteral("detailsArea"));
    side->setWidgetResizable(true);
    side->setFrameShape(QFrame::NoFrame);
    auto* sideContent = new QWidget(side);
    auto* sideLayout = new QVBoxLayout(sideContent);
    sideLayout->setContentsMargins(6, 6, 6, 6);
    m_summary = new CSummaryPane(sideContent);
    sideLayout->addWidget(m_summary, 0, Qt::AlignHCenter);
    m_licenceStatus = new CLicenceStatusPane(sideContent);
    m_licenceStatus->setObjectName(QStringLiteral("desktopLicenceStatus"));
    sideLayout->addWidget(m_licenceStatus);
    m_details = new CJumpDetailsPane(model, sideContent);
    sideLayout->addWidget(m_details, 1);
    side->setWidget(sideContent);
    side->setMinimumWidth(240);
    // The summary stacks its values under their labels when the side is too narrow for both,
    // as with the search's column beside the logbook's.
    m_sideViewport = side->viewport();
    m_sideViewport->installEventFilter(this);

    m_splitter->setStretchFactor(0, 3);
    m_splitter->setStretchFactor(1, 1);
    RestoreLayout();
}

bool CDesktopPane::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == m_sideViewport && event->type() == QEvent::Resize)
        m_summary->FitWidth(m_sideViewport->width() - 12);
    return QWidget::eventFilter(watched, event);
}

const CJump* CDesktopPane::CurrentJump() const
{
    const QModelIndex current = m_table->selectionModel()->currentIndex();
    if (!current.isValid() || !m_table->selectionModel()->isRowSelected(current.row(), {}))
        return nullptr;
    return m_model->JumpAt(current.row());
}

std::vector<std::size_t> CDesktopPane::SelectedJumpIndexes() const
{
    std::vector<std::size_t> indexes;
    for (const QModelIndex& row : m_table->selectionModel()->selectedRows()) {
        const int index = m_model->JumpIndexAt(row.row());
        if (index >= 0)
            indexes.push_back(static_cast<std::size_t>(index));
    }
    std::sort(indexes.begin(), indexes.end());
    return indexes;
}

std::vector<int> CDesktopPane::ShownJumps() const
{
    const std::vector<std::size_t> rows = m_model->RowJumps();
    return std::vector<int>(rows.begin(), rows.end());
}

void CDesktopPane::ApplyQuery()
{
    const QModelIndex current = m_table->selectionModel()->currentIndex();
    const int jump = current.isValid() ? m_model->JumpIndexAt(current.row()) : -1;
    m_model->SetQuery(m_search->Query());
    const int row = jump < 0 ? -1 : m_model->RowOfJump(static_cast<std::size_t>(jump));
    if (row >= 0)
        SelectRow(row);
    else
        m_details->ShowRow(-1);
    emit searchChanged();
    emit selectionChanged();
}

void CDesktopPane::SelectRow(int row)
{
    const QModelIndex index = m_model->index(row, CJumpTableModel::NumberColumn);
    if (!index.isValid())
        return;
    m_table->selectionModel()->setCurrentIndex(index, QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
    m_table->scrollTo(index);
}

void CDesktopPane::ShowHeaderMenu(const QPoint& position)
{
    QHeaderView* header = m_table->horizontalHeader();
    QMenu menu(this);
    menu.setObjectName(QStringLiteral("columnMenu"));
    for (int column = 0; column < CJumpTableModel::ColumnCount; ++column) {
        QAction* action = menu.addAction(m_model->headerData(column, Qt::Horizontal).toString());
        action->setCheckable(true);
        action->setChecked(!header->isSectionHidden(column));
        // The jump number always stays, so that a row can be told apart.
        action->setEnabled(column != CJumpTableModel::NumberColumn);
        connect(action, &QAction::toggled, this, [this, column](bool shown) {
            m_table->setColumnHidden(column, !shown);
            SaveLayout();
        });
    }
    menu.exec(header->viewport()->mapToGlobal(position));
}

void CDesktopPane::SaveLayout() const
{
    if (!m_store)
        return;
    m_store->SetString(kSection, kHeaderState, m_table->horizontalHeader()->saveState().toBase64().toStdString());
    m_store->SetString(kSection, kSplitterState, m_splitter->saveState().toBase64().toStdString());
}

void CDesktopPane::RestoreLayout()
{
    const QByteArray header = Read(m_store, kHeaderState);
    if (!header.isEmpty() && m_table->horizontalHeader()->restoreState(header))
        m_table->sortByColumn(m_table->horizontalHeader()->sortIndicatorSection(),
                              m_table->horizontalHeader()->sortIndicatorOrder());
    const QByteArray splitter = Read(m_store, kSplitterState);
    if (!splitter.isEmpty())
        m_splitter->restoreState(splitter);
}
