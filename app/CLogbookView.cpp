#include "app/CLogbookView.h"

#include "app/AppCommands.h"
#include "app/CArtwork.h"
#include "app/CJumpListCtrl.h"
#include "app/CPictureGuard.h"
#include "app/CSummaryPane.h"
#include "app/IFileChooser.h"
#include "controls/IMessageSink.h"
#include "app/IPictureViewer.h"
#include "document/CLogbookDoc.h"
#include "model/CJump.h"
#include "resources/StringTable.h"

#include <QAction>
#include <QFile>
#include <QFileInfo>
#include <QMenu>
#include <QPainter>
#include <QResizeEvent>

#include <algorithm>
#include <filesystem>

namespace {

QString Message(int id, const QString& arg1 = {})
{
    return QString::fromStdString(StringTable::Format(id, arg1.toStdString()));
}

// Paths go to the core as the file system's own bytes.
std::string NativePath(const QString& path)
{
    return QFile::encodeName(QFileInfo(path).absoluteFilePath()).toStdString();
}

QString DisplayPath(const std::string& path)
{
    return QFile::decodeName(QByteArray::fromStdString(path));
}

} // namespace

CLogbookView::CLogbookView(CLogbookDoc& doc, const CUnitSettings& units, const CAppServices& services,
                           QWidget* parent)
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
    m_homeButton = MakePictureButton(QStringLiteral("homeButton"), QStringLiteral("home.svg"),
                                     QStringLiteral("Home"), AppCommands::ID_VIEW_HOME);
    m_signListButton = MakePictureButton(QStringLiteral("signListButton"), QStringLiteral("signlist.svg"),
                                         QStringLiteral("Jumps to be signed"), AppCommands::ID_VIEW_SIGNLIST);
    m_jumpListButton = MakePictureButton(QStringLiteral("jumpListButton"), QStringLiteral("jumplist.svg"),
                                         QStringLiteral("All jumps"), AppCommands::ID_VIEW_JUMPLIST);
    // The New-jump button (ID_JUMP_NEW) joins this row together with the jump editor.
    m_pageOpenButton = MakePictureButton(QStringLiteral("pageOpenButton"), QStringLiteral("open.svg"),
                                         QStringLiteral("Open another logbook"), AppCommands::ID_PAGE_OPEN);
    m_buttonLayout->addWidget(m_homeButton);
    m_buttonLayout->addWidget(m_signListButton);
    m_buttonLayout->addWidget(m_jumpListButton);
    m_buttonLayout->addStretch(1);
    m_buttonLayout->addWidget(m_pageOpenButton);
    connect(m_homeButton, &QToolButton::clicked, this, &CLogbookView::OnViewHome);
    connect(m_signListButton, &QToolButton::clicked, this, &CLogbookView::OnViewSignList);
    connect(m_jumpListButton, &QToolButton::clicked, this, &CLogbookView::OnViewJumpList);
    connect(m_pageOpenButton, &QToolButton::clicked, this, &CLogbookView::OnFileOpen);
    m_outer->addWidget(m_buttonBar);

    // The home page: the summary card centred over the painted background.
    m_homePage = new QWidget(this);
    m_homePage->setObjectName(QStringLiteral("homePage"));
    auto* homeLayout = new QVBoxLayout(m_homePage);
    homeLayout->setContentsMargins(0, 0, 0, 0);
    m_summary = new CSummaryPane(m_homePage);
    homeLayout->addStretch(1);
    homeLayout->addWidget(m_summary, 0, Qt::AlignHCenter);
    homeLayout->addStretch(2);
    m_outer->addWidget(m_homePage, 1);

    m_list = new CJumpListCtrl(this);
    m_list->setContextMenuPolicy(Qt::CustomContextMenu);
    connect(m_list, &QWidget::customContextMenuRequested, this, &CLogbookView::ShowListContextMenu);
    auto* deleteKey = new QAction(m_list);
    deleteKey->setShortcut(QKeySequence::Delete);
    deleteKey->setShortcutContext(Qt::WidgetShortcut);
    connect(deleteKey, &QAction::triggered, this, &CLogbookView::OnJumpDelete);
    m_list->addAction(deleteKey);
    // A tap on a row opens the jump editor once it exists; until then a tap only selects.
    m_outer->addWidget(m_list, 1);

    ApplyIconSizes();
    SetViewMode(ViewMode::Empty);
}

QToolButton* CLogbookView::MakePictureButton(const QString& name, const QString& art, const QString& tip,
                                             int command)
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
    m_startNewButton = MakePictureButton(QStringLiteral("startNewButton"), QStringLiteral("new.svg"),
                                         QStringLiteral("New logbook"), AppCommands::ID_FILE_NEW);
    m_startOpenButton = MakePictureButton(QStringLiteral("startOpenButton"), QStringLiteral("open.svg"),
                                          QStringLiteral("Open logbook"), AppCommands::ID_FILE_OPEN);
    for (QToolButton* button : {m_startNewButton, m_startOpenButton})
    {
        button->setParent(m_startPanel);
        button->setText(button->toolTip());
        button->setToolButtonStyle(Qt::ToolButtonTextUnderIcon);
    }
    m_startLayout->addStretch(1);
    m_startLayout->addWidget(m_startNewButton, 0, Qt::AlignCenter);
    m_startLayout->addWidget(m_startOpenButton, 0, Qt::AlignCenter);
    m_startLayout->addStretch(1);
    connect(m_startNewButton, &QToolButton::clicked, this, &CLogbookView::OnFileNew);
    connect(m_startOpenButton, &QToolButton::clicked, this, &CLogbookView::OnFileOpen);
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
    m_signListButton->setVisible(home);
    m_jumpListButton->setVisible(home);
    m_pageOpenButton->setVisible(mode != ViewMode::Empty);
    m_list->setVisible(list);
    m_homePage->setVisible(home);
    m_summary->setVisible(home && IsLogbookOpen());
    if (home)
        m_summary->SetSummary(m_doc.GetSummary(), m_units);

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

QMenu* CLogbookView::CreateContextMenu(QWidget* parent)
{
    auto* menu = new QMenu(parent);
    menu->setObjectName(QStringLiteral("jumpContextMenu"));
    // "View..." and "Change..." (the jump editor) come first once the editor exists.
    const CJump* jump = m_list->SelectedJump();
    QAction* show = menu->addAction(QStringLiteral("Show picture..."), this, &CLogbookView::OnJumpShowPicture);
    show->setObjectName(QStringLiteral("showPictureAction"));
    show->setData(AppCommands::ID_JUMP_SHOW_PICTURE);
    show->setEnabled(jump && !jump->GetPictureName().empty());
    QAction* remove = menu->addAction(QStringLiteral("Delete"), this, &CLogbookView::OnJumpDelete);
    remove->setObjectName(QStringLiteral("deleteAction"));
    remove->setData(AppCommands::ID_JUMP_DELETE);
    remove->setEnabled(jump != nullptr);
    return menu;
}

void CLogbookView::ShowListContextMenu(const QPoint& position)
{
    if (m_mode != ViewMode::JumpList)
        return;
    QTreeWidgetItem* item = m_list->itemAt(position);
    if (!item)
        return;
    m_list->setCurrentItem(item);
    QMenu* menu = CreateContextMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    menu->popup(m_list->viewport()->mapToGlobal(position));
}

void CLogbookView::OnJumpDelete()
{
    if (m_mode != ViewMode::JumpList)
        return;
    const CJump* jump = m_list->SelectedJump();
    const int index = m_doc.IndexOf(jump);
    if (!jump || index < 0)
        return;
    if (!m_services.messages->AskYesNo(Message(StringTable::IDS_DELETE_JUMP, QString::number(jump->GetNumber()))))
        return;
    // The row goes first: it refers to the jump that the document is about to destroy.
    m_list->RemoveJumpRow(jump);
    m_doc.RemoveJump(static_cast<std::size_t>(index));
    if (m_list->topLevelItemCount() == 0)
        SetViewMode(ViewMode::Home);
    else
    {
        UpdateButtons();
        emit stateChanged();
    }
}

void CLogbookView::OnJumpShowPicture()
{
    if (m_mode != ViewMode::JumpList || !m_services.viewer)
        return;
    const CJump* jump = m_list->SelectedJump();
    if (!jump)
        return;
    const std::string name = jump->GetPictureName();
    if (name.empty())
        return;
    // Whatever the file names, only a real picture inside the logbook's folder is shown;
    // anything else is refused without a word.
    const std::filesystem::path folder = std::filesystem::path(m_doc.GetPath()).parent_path();
    const std::filesystem::path picture = CPictureGuard::Check(folder, m_doc.ResolveMediaPath(name));
    if (picture.empty())
        return;
    m_services.viewer->Open(DisplayPath(picture.string()));
}

QString CLogbookView::StartFolder() const
{
    return m_doc.HasPath() ? QFileInfo(DisplayPath(m_doc.GetPath())).absolutePath() : QString();
}

bool CLogbookView::CanSave() const
{
    return IsLogbookOpen() && m_doc.IsModified();
}

bool CLogbookView::CanSaveAs() const
{
    return IsLogbookOpen();
}

bool CLogbookView::SaveModified()
{
    if (!CanSave())
        return true;
    const QString name = QFileInfo(DisplayPath(m_doc.GetPath())).fileName();
    switch (m_services.messages->AskYesNoCancel(QStringLiteral("Save changes to %1?").arg(name)))
    {
    case IMessageSink::Answer::Yes:
        if (m_doc.Save(m_doc.GetPath()))
        {
            emit stateChanged();
            return true;
        }
        m_services.messages->Error(Message(StringTable::IDS_SAVE_FAILED));
        return false;
    case IMessageSink::Answer::No:
        return true;
    case IMessageSink::Answer::Cancel:
        break;
    }
    return false;
}

void CLogbookView::OnFileNew()
{
    if (!SaveModified())
        return;
    const QString chosen = m_services.files->ChooseSave(StartFolder());
    if (chosen.isEmpty())
        return;
    const QString path = QFileInfo(chosen).absoluteFilePath();
    const bool existed = QFileInfo::exists(path);
    m_doc.Clear();
    if (!m_doc.Save(NativePath(path)))
    {
        // The save replaces the file only once the new one is complete, so a failure leaves
        // behind at most a file that did not exist before: remove that one.
        if (!existed)
            QFile::remove(path);
        m_doc.Clear();
        m_services.messages->Error(Message(StringTable::IDS_WRITE_ERROR));
    }
    // The profile, equipment and preferences dialogs follow a successful New once they exist.
    Refresh();
}

bool CLogbookView::LoadLogbook(const QString& path)
{
    const std::string file = NativePath(path);
    // A bad file leaves the open logbook as it was instead of an empty document.
    const CLoadResult result = m_doc.TryLoad(file);
    if (!result.ok)
    {
        if (!result.message.empty())
            m_services.messages->Error(QString::fromStdString(result.message));
        m_services.messages->Error(Message(StringTable::IDS_OPEN_FAILED));
        return false;
    }
    Refresh();
    return true;
}

void CLogbookView::OnFileOpen()
{
    if (!SaveModified())
        return;
    const QString path = m_services.files->ChooseOpen(StartFolder());
    if (path.isEmpty())
        return;
    if (LoadLogbook(path))
        emit logbookOpened();
}

void CLogbookView::OnFileSave()
{
    if (!CanSave())
        return;
    if (!m_doc.Save(m_doc.GetPath()))
        m_services.messages->Error(Message(StringTable::IDS_SAVE_FAILED));
    emit stateChanged();
}

void CLogbookView::OnFileSaveAs()
{
    if (!CanSaveAs())
        return;
    const QString path = m_services.files->ChooseSave(DisplayPath(m_doc.GetPath()));
    if (path.isEmpty())
        return;
    if (!m_doc.Save(NativePath(path)))
        m_services.messages->Error(Message(StringTable::IDS_SAVE_FAILED));
    emit stateChanged();
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
    const int page = small ? 40 : 56;
    for (QToolButton* button : {m_homeButton, m_signListButton, m_jumpListButton, m_pageOpenButton})
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
    if (landscape != m_landscape)
    {
        m_landscape = landscape;
        ApplyOrientation();
    }
    ApplyIconSizes();
    const QMargins margins = m_outer->contentsMargins();
    int room = event->size().width() - margins.left() - margins.right();
    if (m_landscape)
        room -= m_buttonBar->sizeHint().width() + m_outer->spacing();
    m_summary->FitWidth(room);
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
