#include "app/CLogbookView.h"

#include "app/AppCommands.h"
#include "app/CArtwork.h"
#include "app/CJumpListCtrl.h"
#include "app/CLicenceStatusPane.h"
#include "app/CSummaryPane.h"
#include "document/CLogbookDoc.h"
#include "document/IClock.h"
#include "model/CJump.h"
#include "stats/CLicenceRules.h"

#include <QAction>
#include <QPainter>
#include <QResizeEvent>
#include <QStyle>

#include <algorithm>

namespace {

} // namespace

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

    m_list = new CJumpListCtrl(this);
    m_list->setContextMenuPolicy(Qt::CustomContextMenu);
    connect(m_list, &QWidget::customContextMenuRequested, this, &CLogbookView::ShowListContextMenu);
    // A tap on a row, Enter or a double-click opens the jump editor on it.
    connect(m_list, &QTreeWidget::itemClicked, this, [this](QTreeWidgetItem* item) {
        // Where the style activates a row on a single click, the click is reported as activated
        // as well: it opens the editor once, not twice.
        if (!m_list->style()->styleHint(QStyle::SH_ItemView_ActivateItemOnSingleClick, nullptr, m_list))
            emit rowActivated(m_list->indexOfTopLevelItem(item));
    });
    connect(m_list, &QTreeWidget::itemActivated, this,
            [this](QTreeWidgetItem* item) { emit rowActivated(m_list->indexOfTopLevelItem(item)); });
    m_outer->addWidget(m_list, 1);

    ApplyIconSizes();
    SetViewMode(ViewMode::Empty);
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

void CLogbookView::SetViewMode(ViewMode mode)
{
    const bool wasList = m_mode == ViewMode::JumpList || m_mode == ViewMode::SignList;
    if (wasList && mode != m_mode)
        m_list->Empty();
    m_mode = mode;

    const bool list = mode == ViewMode::JumpList || mode == ViewMode::SignList;
    const bool home = mode == ViewMode::Home;
    if (mode == ViewMode::Empty)
        CreateStartButtons();
    if (m_startPanel)
        m_startPanel->setVisible(mode == ViewMode::Empty);
    m_buttonBar->setVisible(mode != ViewMode::Empty);
    m_homeButton->setVisible(list);
    m_newJumpButton->setVisible(home);
    m_signListButton->setVisible(home);
    m_jumpListButton->setVisible(home);
    m_statisticsButton->setVisible(home);
    m_pageOpenButton->setVisible(mode != ViewMode::Empty);
    m_list->setVisible(list);
    m_homePage->setVisible(home);
    m_summary->setVisible(home && IsLogbookOpen());
    m_licenceStatus->setVisible(home && IsLogbookOpen());
    if (home) {
        m_summary->SetSummary(CSummaryRows::Build(m_doc, m_units));
        const CDateTime today = m_services.clock ? m_services.clock->Today() : CSystemClock().Today();
        m_licenceStatus->SetStatus(CLicenceStatus::OfDocument(m_doc, today));
    }

    UpdateButtons();
    update();
    emit stateChanged();
}

void CLogbookView::Refresh()
{
    SetViewMode(IsLogbookOpen() ? ViewMode::Home : ViewMode::Empty);
}

void CLogbookView::UpdateButtons()
{
    const auto& jumps = m_doc.GetJumps();
    const bool anyUnsigned =
        std::any_of(jumps.begin(), jumps.end(), [](const auto& jump) { return !jump->IsSigned(); });
    m_homeButton->setEnabled(true);
    m_newJumpButton->setEnabled(true);
    m_signListButton->setEnabled(anyUnsigned);
    m_jumpListButton->setEnabled(!jumps.empty());
    m_pageOpenButton->setEnabled(true);
}

void CLogbookView::OnViewHome()
{
    SetViewMode(ViewMode::Home);
}

void CLogbookView::OnViewJumpList()
{
    if (!IsLogbookOpen())
        return;
    SetViewMode(ViewMode::JumpList);
    m_list->Fill(m_doc, false);
}

void CLogbookView::OnViewSignList()
{
    if (!IsLogbookOpen())
        return;
    SetViewMode(ViewMode::SignList);
    m_list->Fill(m_doc, true);
}

void CLogbookView::ShowListContextMenu(const QPoint& position)
{
    if (m_mode != ViewMode::JumpList)
        return;
    QTreeWidgetItem* item = m_list->itemAt(position);
    if (!item)
        return;
    m_list->setCurrentItem(item);
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
    if (m_mode != ViewMode::Home || !IsLogbookOpen())
        return;
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    CArtwork::PaintCovering(painter, QStringLiteral("summary_bg.svg"), rect());
}
