#include "app/CLogbookView.h"

#include "app/AppCommands.h"
#include "app/CArtwork.h"
#include "app/CDesktopPane.h"
#include "app/CJumpListCtrl.h"
#include "app/CJumpTableModel.h"
#include "app/CLicenceStatusPane.h"
#include "app/CSearchBar.h"
#include "app/CSearchIndex.h"
#include "app/CSummaryPane.h"
#include "document/CLogbookDoc.h"
#include "document/IClock.h"
#include "model/CJump.h"

#include <QLineEdit>
#include <QPainter>
#include <QResizeEvent>
#include <QShortcut>
#include <QStyle>
#include <QTableView>
#include <QToolButton>

#include <algorithm>

CLogbookView::CLogbookView(CLogbookDoc& doc, const CUnitSettings& units, const CAppServices& services, QWidget* parent)
    : QWidget(parent), m_doc(doc), m_units(units), m_services(services)
{
    setObjectName(QStringLiteral("logbookView"));
    setAutoFillBackground(true);

    m_outer = new QBoxLayout(QBoxLayout::TopToBottom, this);
    m_outer->setContentsMargins(4, 4, 4, 4);
    m_outer->setSpacing(4);

    // The picture buttons: a row above the page in portrait, a column beside it in landscape.
    m_buttonBar = new QWidget(this);
    m_buttonBar->setObjectName(QStringLiteral("buttonBar"));
    m_buttonLayout = new QBoxLayout(QBoxLayout::LeftToRight, m_buttonBar);
    m_buttonLayout->setContentsMargins(0, 0, 0, 0);
    m_buttonLayout->setSpacing(6);
    m_homeButton = MakePictureButton(QStringLiteral("homeButton"), QStringLiteral("home.svg"), tr("Home"),
                                     AppCommands::ID_VIEW_HOME);
    m_signListButton = MakePictureButton(QStringLiteral("signListButton"), QStringLiteral("signlist.svg"),
                                         tr("Jumps to be signed"), AppCommands::ID_VIEW_SIGNLIST);
    m_jumpListButton = MakePictureButton(QStringLiteral("jumpListButton"), QStringLiteral("jumplist.svg"),
                                         tr("All jumps"), AppCommands::ID_VIEW_JUMPLIST);
    m_newJumpButton = MakePictureButton(QStringLiteral("newJumpButton"), QStringLiteral("newjump.svg"), tr("New jump"),
                                        AppCommands::ID_JUMP_NEW);
    m_pageOpenButton = MakePictureButton(QStringLiteral("pageOpenButton"), QStringLiteral("open.svg"),
                                         tr("Open another logbook"), AppCommands::ID_PAGE_OPEN);
    m_buttonLayout->addWidget(m_homeButton);
    m_buttonLayout->addWidget(m_newJumpButton);
    m_buttonLayout->addWidget(m_signListButton);
    m_buttonLayout->addWidget(m_jumpListButton);
    m_statisticsButton = MakePictureButton(QStringLiteral("statisticsButton"), QStringLiteral("statistics.svg"),
                                           tr("Statistics"), AppCommands::ID_VIEW_STATISTICS);
    m_buttonLayout->addWidget(m_statisticsButton);
    m_buttonLayout->addStretch(1);
    m_buttonLayout->addWidget(m_pageOpenButton);
    connect(m_homeButton, &QToolButton::clicked, this, &CLogbookView::OnViewHome);
    connect(m_signListButton, &QToolButton::clicked, this, &CLogbookView::OnViewSignList);
    connect(m_jumpListButton, &QToolButton::clicked, this, &CLogbookView::OnViewJumpList);
    for (QToolButton* button : {m_newJumpButton, m_statisticsButton, m_pageOpenButton})
        connect(button, &QToolButton::clicked, this,
                [this, button] { emit commandRequested(button->property("command").toInt()); });
    m_outer->addWidget(m_buttonBar);

    // The home page: the summary card centred over the painted background.
    m_homePage = new QWidget(this);
    m_homePage->setObjectName(QStringLiteral("homePage"));
    auto* homeLayout = new QVBoxLayout(m_homePage);
    homeLayout->setContentsMargins(0, 0, 0, 0);
    m_summary = new CSummaryPane(m_homePage);
    homeLayout->addStretch(1);
    homeLayout->addWidget(m_summary, 0, Qt::AlignHCenter);
    homeLayout->setSpacing(2);
    m_licenceStatus = new CLicenceStatusPane(m_homePage);
    homeLayout->addWidget(m_licenceStatus, 0, Qt::AlignHCenter);
    homeLayout->addStretch(2);
    m_outer->addWidget(m_homePage, 1);

    // The index observes the document first, the models next and the view last, so that the
    // models ask an index that is current and the view sees the lists already changed.
    m_index = std::make_unique<CSearchIndex>(doc);
    m_doc.AddObserver(m_index.get());
    m_listModel = new CJumpTableModel(doc, units, *m_index, CJumpTableModel::Filter::NoJumps, this);
    m_listModel->setObjectName(QStringLiteral("listModel"));
    // The touch lists: the search field over the list.
    m_listPage = new QWidget(this);
    m_listPage->setObjectName(QStringLiteral("listPage"));
    auto* listLayout = new QVBoxLayout(m_listPage);
    listLayout->setContentsMargins(0, 0, 0, 0);
    listLayout->setSpacing(4);
    m_listSearch = new CSearchBar(units, m_listPage);
    m_listSearch->setObjectName(QStringLiteral("listSearchBar"));
    listLayout->addWidget(m_listSearch);
    m_list = new CJumpListCtrl(m_listModel, m_listPage);
    listLayout->addWidget(m_list, 1);
    // The list before the field in the tab chain, as on the desktop: focus moving on from a
    // hidden page reaches the list, not the field and a handheld's on-screen keyboard.
    QWidget::setTabOrder(m_list, m_listSearch->Field());
    QWidget::setTabOrder(m_listSearch->Field(), m_listSearch->TermsButton());
    m_listSearch->CountRowsOf(m_listModel);
    connect(m_listSearch, &CSearchBar::queryChanged, this, [this] {
        m_listModel->SetQuery(m_listSearch->Query());
        m_list->ShowEnd();
        emit stateChanged();
    });
    m_list->setContextMenuPolicy(Qt::CustomContextMenu);
    connect(m_list, &QWidget::customContextMenuRequested, this, &CLogbookView::ShowListContextMenu);
    // A tap on a row, Enter or a double-click opens the jump editor on it.
    connect(m_list, &QAbstractItemView::clicked, this, [this](const QModelIndex& index) {
        // Where the style activates a row on a single click, the click is reported as activated
        // as well: it opens the editor once, not twice.
        if (!m_list->style()->styleHint(QStyle::SH_ItemView_ActivateItemOnSingleClick, nullptr, m_list))
            emit rowActivated(index.row());
    });
    connect(m_list, &QAbstractItemView::activated, this,
            [this](const QModelIndex& index) { emit rowActivated(index.row()); });
    connect(m_list->selectionModel(), &QItemSelectionModel::currentRowChanged, this, &CLogbookView::stateChanged);
    m_outer->addWidget(m_listPage, 1);

    m_tableModel = new CJumpTableModel(doc, units, *m_index, CJumpTableModel::Filter::AllJumps, this);
    m_tableModel->setObjectName(QStringLiteral("tableModel"));
    m_desktop = new CDesktopPane(m_tableModel, units, services.settings, this);
    m_desktop->Table()->setContextMenuPolicy(Qt::CustomContextMenu);
    connect(m_desktop->Table(), &QWidget::customContextMenuRequested, this, [this](const QPoint& position) {
        if (m_desktop->CurrentJump())
            emit contextMenuRequested(m_desktop->Table()->viewport()->mapToGlobal(position));
    });
    connect(m_desktop, &CDesktopPane::editRequested, this,
            [this] { emit commandRequested(AppCommands::ID_JUMP_VIEW); });
    connect(m_desktop, &CDesktopPane::selectionChanged, this, &CLogbookView::stateChanged);
    // The summary shows the totals of the jumps found beside the logbook's.
    connect(m_desktop, &CDesktopPane::searchChanged, this, [this] { ShowSummaries(false, true); });
    m_outer->addWidget(m_desktop, 1);
    m_doc.AddObserver(this);

    auto* find = new QShortcut(QKeySequence::Find, this);
    find->setObjectName(QStringLiteral("findShortcut"));
    connect(find, &QShortcut::activated, this, &CLogbookView::FocusSearch);

    ApplyIconSizes();
    SetMode(ViewMode::Empty);
}

CLogbookView::~CLogbookView()
{
    m_doc.RemoveObserver(this);
    // The models leave the document with the child widgets, after the index; they no longer ask it.
    m_doc.RemoveObserver(m_index.get());
}

QToolButton* CLogbookView::MakePictureButton(const QString& name, const QString& art, const QString& tip, int command)
{
    auto* button = new QToolButton(this);
    button->setObjectName(name);
    button->setIcon(CArtwork::Icon(art));
    button->setToolTip(tip);
    button->setAccessibleName(tip);
    button->setToolButtonStyle(Qt::ToolButtonIconOnly);
    button->setAutoRaise(true);
    button->setFocusPolicy(Qt::TabFocus);
    button->setProperty("command", command);
    return button;
}

void CLogbookView::CreateStartButtons()
{
    if (m_startPanel)
        return;
    m_startPanel = new QWidget(this);
    m_startPanel->setObjectName(QStringLiteral("startPanel"));
    m_startLayout = new QBoxLayout(QBoxLayout::TopToBottom, m_startPanel);
    m_startLayout->setSpacing(16);
    m_startNewButton = MakePictureButton(QStringLiteral("startNewButton"), QStringLiteral("new.svg"), tr("New logbook"),
                                         AppCommands::ID_FILE_NEW);
    m_startOpenButton = MakePictureButton(QStringLiteral("startOpenButton"), QStringLiteral("open.svg"),
                                          tr("Open logbook"), AppCommands::ID_FILE_OPEN);
    for (QToolButton* button : {m_startNewButton, m_startOpenButton}) {
        button->setParent(m_startPanel);
        button->setText(button->toolTip());
        button->setToolButtonStyle(Qt::ToolButtonTextUnderIcon);
    }
    m_startLayout->addStretch(1);
    m_startLayout->addWidget(m_startNewButton, 0, Qt::AlignCenter);
    m_startLayout->addWidget(m_startOpenButton, 0, Qt::AlignCenter);
    m_startLayout->addStretch(1);
    for (QToolButton* button : {m_startNewButton, m_startOpenButton})
        connect(button, &QToolButton::clicked, this,
                [this, button] { emit commandRequested(button->property("command").toInt()); });
    m_outer->addWidget(m_startPanel, 1);
    ApplyOrientation();
    ApplyIconSizes();
}

bool CLogbookView::IsLogbookOpen() const
{
    return m_doc.HasPath();
}

void CLogbookView::SetMode(ViewMode mode)
{
    // Leaving a list empties it.
    if (mode != ViewMode::JumpList && mode != ViewMode::SignList)
        m_listModel->SetFilter(CJumpTableModel::Filter::NoJumps);
    m_mode = mode;
    if (mode == ViewMode::Empty)
        CreateStartButtons();
    ApplyLayout();
    UpdateButtons();
    update();
    emit stateChanged();
}

void CLogbookView::ApplyLayout()
{
    const ViewMode mode = m_mode;
    const bool desktop = m_desktopLayout && mode != ViewMode::Empty;
    const bool list = !desktop && (mode == ViewMode::JumpList || mode == ViewMode::SignList);
    const bool home = !desktop && mode == ViewMode::Home;
    if (m_startPanel)
        m_startPanel->setVisible(mode == ViewMode::Empty);
    m_buttonBar->setVisible(!desktop && mode != ViewMode::Empty);
    m_homeButton->setVisible(list);
    m_newJumpButton->setVisible(home);
    m_signListButton->setVisible(home);
    m_jumpListButton->setVisible(home);
    m_statisticsButton->setVisible(home);
    m_pageOpenButton->setVisible(mode != ViewMode::Empty);
    m_listPage->setVisible(list);
    m_homePage->setVisible(home);
    m_summary->setVisible(home && IsLogbookOpen());
    m_licenceStatus->setVisible(home && IsLogbookOpen());
    m_desktop->setVisible(desktop);
    ShowSummaries(home, desktop);
}

void CLogbookView::ShowSummaries(bool home, bool desktop)
{
    if (!home && !desktop)
        return;
    const CSummaryRows::Rows rows = CSummaryRows::Build(m_doc, m_units);
    const CDateTime today = m_services.clock ? m_services.clock->Today() : CSystemClock().Today();
    const CLicenceStatus status = CLicenceStatus::OfDocument(m_doc, today);
    if (home) {
        m_summary->SetSummary(rows);
        m_licenceStatus->SetStatus(status);
    }
    if (desktop) {
        m_desktop->Summary()->SetSummary(rows);
        m_desktop->LicenceStatus()->SetStatus(status);
        if (m_tableModel->GetQuery().IsEmpty()) {
            m_desktop->Summary()->ClearShownSummary();
        } else {
            const std::vector<std::size_t> shown = m_tableModel->RowJumps();
            m_desktop->Summary()->SetShownSummary(CSummaryRows::BuildOf(m_doc, m_units, shown));
        }
    }
}

bool CLogbookView::HasJumpSelection() const
{
    return m_desktopLayout ? m_mode != ViewMode::Empty : m_mode == ViewMode::JumpList;
}

const CJump* CLogbookView::SelectedJump() const
{
    if (!HasJumpSelection())
        return nullptr;
    return m_desktopLayout ? m_desktop->CurrentJump() : m_list->SelectedJump();
}

std::vector<std::size_t> CLogbookView::SelectedJumpIndexes() const
{
    if (m_desktopLayout)
        return HasJumpSelection() ? m_desktop->SelectedJumpIndexes() : std::vector<std::size_t>();
    const int index = m_doc.IndexOf(SelectedJump());
    return index < 0 ? std::vector<std::size_t>() : std::vector<std::size_t>{static_cast<std::size_t>(index)};
}

std::vector<int> CLogbookView::ShownJumps() const
{
    if (m_desktopLayout)
        return m_mode == ViewMode::Empty ? std::vector<int>() : m_desktop->ShownJumps();
    if (m_mode != ViewMode::JumpList && m_mode != ViewMode::SignList)
        return {};
    const std::vector<std::size_t> rows = m_listModel->RowJumps();
    return std::vector<int>(rows.begin(), rows.end());
}

bool CLogbookView::CanExportJumps() const
{
    return IsLogbookOpen() &&
           (m_desktopLayout ? m_mode != ViewMode::Empty : m_mode == ViewMode::JumpList || m_mode == ViewMode::SignList);
}

std::vector<std::size_t> CLogbookView::JumpsToExport() const
{
    if (!CanExportJumps())
        return {};
    if (m_desktopLayout) {
        std::vector<std::size_t> selected = m_desktop->SelectedJumpIndexes();
        if (!selected.empty())
            return selected;
    }
    const std::vector<int> shown = ShownJumps();
    std::vector<std::size_t> jumps(shown.begin(), shown.end());
    std::sort(jumps.begin(), jumps.end());
    return jumps;
}

void CLogbookView::FocusSearch()
{
    if (!IsLogbookOpen())
        return;
    if (m_desktopLayout) {
        m_desktop->Search()->FocusField();
        return;
    }
    if (m_mode != ViewMode::JumpList && m_mode != ViewMode::SignList)
        OnViewJumpList();
    if (m_mode == ViewMode::JumpList || m_mode == ViewMode::SignList)
        m_listSearch->FocusField();
}

void CLogbookView::UnitsChanged()
{
    m_listSearch->UnitsChanged();
    m_desktop->Search()->UnitsChanged();
    m_listModel->UnitsChanged();
    m_tableModel->UnitsChanged();
    FollowDocument();
}

void CLogbookView::FollowDocument()
{
    // A list is left when the jumps it lists are gone, not when the search finds none of them.
    const bool list = m_mode == ViewMode::JumpList || m_mode == ViewMode::SignList;
    if (list && m_list->RowCount() == 0 && m_listModel->FilteredCount() == 0) {
        SetMode(ViewMode::Home);
        return;
    }
    ShowSummaries(m_mode == ViewMode::Home && !m_desktopLayout, m_desktopLayout && m_mode != ViewMode::Empty);
    UpdateButtons();
    emit stateChanged();
}

void CLogbookView::JumpsInserted(std::size_t, std::size_t)
{
    FollowDocument();
}

void CLogbookView::JumpsChanged(std::size_t, std::size_t)
{
    FollowDocument();
}

void CLogbookView::JumpsRemoved(std::size_t, std::size_t)
{
    FollowDocument();
}

void CLogbookView::SettingsChanged()
{
    FollowDocument();
}

void CLogbookView::LogbookReset()
{
    FollowDocument();
}

void CLogbookView::Refresh()
{
    SetMode(IsLogbookOpen() ? ViewMode::Home : ViewMode::Empty);
}

void CLogbookView::UpdateButtons()
{
    const CJumpRange jumps = m_doc.GetJumps();
    // From the end: the jumps still to be signed are mostly the latest.
    const bool anyUnsigned =
        std::any_of(std::make_reverse_iterator(jumps.end()), std::make_reverse_iterator(jumps.begin()),
                    [](const CJump* jump) { return !jump->IsSigned(); });
    m_homeButton->setEnabled(true);
    m_newJumpButton->setEnabled(true);
    m_signListButton->setEnabled(anyUnsigned);
    m_jumpListButton->setEnabled(!jumps.empty());
    m_pageOpenButton->setEnabled(true);
}

void CLogbookView::OnViewHome()
{
    SetMode(ViewMode::Home);
}

void CLogbookView::OnViewJumpList()
{
    if (!IsLogbookOpen())
        return;
    // A list opened from its button lists all its jumps.
    m_listSearch->SetText({});
    m_listModel->SetFilter(CJumpTableModel::Filter::AllJumps);
    SetMode(ViewMode::JumpList);
    m_list->ShowEnd();
}

void CLogbookView::OnViewSignList()
{
    if (!IsLogbookOpen())
        return;
    m_listSearch->SetText({});
    m_listModel->SetFilter(CJumpTableModel::Filter::UnsignedJumps);
    SetMode(ViewMode::SignList);
    m_list->ShowEnd();
}

void CLogbookView::ShowListContextMenu(const QPoint& position)
{
    if (m_mode != ViewMode::JumpList)
        return;
    const QModelIndex index = m_list->indexAt(position);
    if (!index.isValid())
        return;
    m_list->ShowRow(index.row());
    emit contextMenuRequested(m_list->viewport()->mapToGlobal(position));
}

void CLogbookView::ApplyOrientation()
{
    // Landscape: buttons in a column beside the page and start buttons side by side.
    m_outer->setDirection(m_landscape ? QBoxLayout::LeftToRight : QBoxLayout::TopToBottom);
    m_buttonLayout->setDirection(m_landscape ? QBoxLayout::TopToBottom : QBoxLayout::LeftToRight);
    if (m_startLayout)
        m_startLayout->setDirection(m_landscape ? QBoxLayout::LeftToRight : QBoxLayout::TopToBottom);
}

void CLogbookView::ApplyIconSizes()
{
    // Handheld screens get finger-sized buttons that still leave room for the page.
    const bool small = std::min(width(), height()) <= 400;
    int page = small ? 40 : 56;
    // A row or column of up to five buttons (Home's) must fit along the view's side; each button
    // adds a few pixels of frame around its icon.
    const int along = m_landscape ? height() : width();
    const int room = (along - 8 - 4 * m_buttonLayout->spacing()) / 5 - 8;
    if (room > 0)
        page = std::max(20, std::min(page, room));
    for (QToolButton* button :
         {m_homeButton, m_newJumpButton, m_signListButton, m_jumpListButton, m_statisticsButton, m_pageOpenButton})
        button->setIconSize(QSize(page, page));
    const int start = small ? 56 : 80;
    for (QToolButton* button : {m_startNewButton, m_startOpenButton})
        if (button)
            button->setIconSize(QSize(start, start));
}

void CLogbookView::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    const bool desktop = event->size().width() >= kDesktopWidth;
    if (desktop != m_desktopLayout) {
        m_desktopLayout = desktop;
        ApplyLayout();
        UpdateButtons();
        emit stateChanged();
    }
    const bool landscape = event->size().width() == kLandscapeWidth;
    if (landscape != m_landscape) {
        m_landscape = landscape;
        ApplyOrientation();
    }
    ApplyIconSizes();
    const QMargins margins = m_outer->contentsMargins();
    int room = event->size().width() - margins.left() - margins.right();
    if (m_landscape)
        room -= m_buttonBar->sizeHint().width() + m_outer->spacing();
    m_summary->FitWidth(room);
    m_licenceStatus->FitWidth(room);
    // Landscape and other low screens leave little height under the summary.
    m_licenceStatus->SetCompact(m_landscape || event->size().height() < 220);
}

void CLogbookView::paintEvent(QPaintEvent* event)
{
    QWidget::paintEvent(event);
    if (m_mode != ViewMode::Home || m_desktopLayout || !IsLogbookOpen())
        return;
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    CArtwork::PaintCovering(painter, QStringLiteral("summary_bg.svg"), rect());
}
