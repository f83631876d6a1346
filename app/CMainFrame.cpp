#include "app/CMainFrame.h"

#include "app/AppCommands.h"
#include "app/CArtwork.h"
#include "app/CDateText.h"
#include "app/CDesktopPane.h"
#include "app/CJumpListCtrl.h"
#include "app/CLogbookCommands.h"
#include "app/CLogbookView.h"
#include "app/CPrintPagesCommand.h"
#include "app/CSettingsCommands.h"
#include "app/CSplashWnd.h"
#include "app/CStatisticsCommand.h"
#include "bridge/CorePaths.h"
#include "bridge/CoreText.h"
#include "controls/IMessageSink.h"
#include "document/CReminders.h"
#include "document/IClock.h"
#include "resources/StringTable.h"
#include "translations/MessageText.h"
#include "units/ISettingsStore.h"

#include <QAction>
#include <QCloseEvent>
#include <QFileInfo>
#include <QMenuBar>
#include <QStyle>
#include <QToolBar>

#include <algorithm>

namespace {

constexpr std::string_view kWindowSection = "Window";
constexpr std::string_view kGeometryValue = "Geometry";

CUnitSettings LoadUnits(const CAppServices& services)
{
    CUnitSettings units(services.defaultUnits, CUnitSettings::PerSecond, CUnitSettings::Ratio);
    if (services.settings)
        units.Load(*services.settings, services.defaultUnits);
    return units;
}

} // namespace

CMainFrame::CMainFrame(const CAppServices& services, QWidget* parent)
    : QMainWindow(parent), m_services(services), m_units(LoadUnits(services)), m_doc(services.settings, services.clock)
{
    setObjectName(QStringLiteral("mainFrame"));
    setWindowIcon(CArtwork::Icon(QStringLiteral("canopy.svg")));
    m_view = new CLogbookView(m_doc, m_units, m_services, this);
    setCentralWidget(m_view);
    m_commands = new CLogbookCommands(m_doc, m_units, m_services, *m_view, this);
    CreateMenuAndCommandBar();
    CreateSettingsCommands();
    // The splash covers the client area from the moment the command bar exists.
    CSplashWnd::ShowSplash(m_view);

    connect(m_view, &CLogbookView::stateChanged, this, &CMainFrame::UpdateCommands);
    connect(m_commands, &CLogbookCommands::stateChanged, this, &CMainFrame::UpdateCommands);
    connect(m_commands, &CLogbookCommands::logbookOpened, this, &CMainFrame::CheckReminders);
    connect(m_commands, &CLogbookCommands::logbookCreated, m_settingsCommands, &CSettingsCommands::RunNewLogbookChain);
    UpdateCommands();
}

CMainFrame::~CMainFrame()
{
    // The view and its table models observe the document, which is a member and dies before
    // the child widgets would: they go first, and take their leave of a living document.
    delete m_view;
    m_view = nullptr;
}

QAction* CMainFrame::MakeAction(const QString& name, const QString& text, int command, const QString& art)
{
    auto* action = new QAction(text, this);
    action->setObjectName(name);
    action->setData(command);
    if (!art.isEmpty())
        action->setIcon(CArtwork::Icon(art));
    return action;
}

void CMainFrame::CreateMenuAndCommandBar()
{
    m_newAction =
        MakeAction(QStringLiteral("fileNewAction"), tr("New..."), AppCommands::ID_FILE_NEW, QStringLiteral("new.svg"));
    m_openAction = MakeAction(QStringLiteral("fileOpenAction"), tr("Open..."), AppCommands::ID_FILE_OPEN,
                              QStringLiteral("open.svg"));
    m_saveAction =
        MakeAction(QStringLiteral("fileSaveAction"), tr("Save"), AppCommands::ID_FILE_SAVE, QStringLiteral("save.svg"));
    m_saveAsAction = MakeAction(QStringLiteral("fileSaveAsAction"), tr("Save as..."), AppCommands::ID_FILE_SAVE_AS);
    m_exportSelectionAction = MakeAction(QStringLiteral("fileExportSelectionAction"), tr("Export selection..."),
                                         AppCommands::ID_FILE_EXPORT_SELECTION);
    m_importCsvAction =
        MakeAction(QStringLiteral("fileImportCsvAction"), tr("Import CSV..."), AppCommands::ID_FILE_IMPORT_CSV);
    m_aboutAction = MakeAction(QStringLiteral("aboutAction"), tr("About Tervola Pocket..."), AppCommands::ID_APP_ABOUT,
                               QStringLiteral("about.svg"));
    m_exitAction = MakeAction(QStringLiteral("exitAction"), tr("E&xit"), AppCommands::ID_APP_EXIT);
    m_newAction->setShortcut(QKeySequence::New);
    m_openAction->setShortcut(QKeySequence::Open);
    m_saveAction->setShortcut(QKeySequence::Save);
    m_saveAsAction->setShortcut(QKeySequence::SaveAs);
    m_exitAction->setShortcut(QKeySequence::Quit);

    m_jumpNewAction = MakeAction(QStringLiteral("jumpNewAction"), tr("New jump..."), AppCommands::ID_JUMP_NEW,
                                 QStringLiteral("newjump.svg"));
    m_jumpNewAction->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_J));
    m_jumpImportAction =
        MakeAction(QStringLiteral("jumpImportTrackAction"), tr("Import track..."), AppCommands::ID_JUMP_IMPORT_TRACK);
    m_jumpImportAction->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_I));
    m_jumpImportCardAction = MakeAction(QStringLiteral("jumpImportCardAction"), tr("Import tracks from a folder..."),
                                        AppCommands::ID_JUMP_IMPORT_CARD);
    m_jumpAddTrackAction =
        MakeAction(QStringLiteral("jumpAddTrackAction"), tr("Add track..."), AppCommands::ID_JUMP_ADD_TRACK);
    m_jumpRemoveSignatureAction = MakeAction(QStringLiteral("jumpRemoveSignatureAction"), tr("Remove signature..."),
                                             AppCommands::ID_JUMP_REMOVE_SIGNATURE);
    m_jumpViewAction = MakeAction(QStringLiteral("jumpViewAction"), tr("View..."), AppCommands::ID_JUMP_VIEW);
    m_jumpChangeAction = MakeAction(QStringLiteral("jumpChangeAction"), tr("Change..."), AppCommands::ID_JUMP_CHANGE);
    m_jumpPictureAction =
        MakeAction(QStringLiteral("jumpPictureAction"), tr("Show picture..."), AppCommands::ID_JUMP_SHOW_PICTURE);
    m_jumpDeleteAction = MakeAction(QStringLiteral("jumpDeleteAction"), tr("Delete"), AppCommands::ID_JUMP_DELETE);
    m_jumpDeleteAction->setShortcut(QKeySequence::Delete);

    // Every command action carries its id; the commands controller carries it out.
    for (QAction* action :
         {m_newAction, m_openAction, m_saveAction, m_saveAsAction, m_importCsvAction, m_exportSelectionAction,
          m_jumpNewAction, m_jumpImportAction, m_jumpImportCardAction, m_jumpViewAction, m_jumpChangeAction,
          m_jumpAddTrackAction, m_jumpRemoveSignatureAction, m_jumpPictureAction, m_jumpDeleteAction})
        connect(action, &QAction::triggered, m_commands,
                [this, action] { m_commands->Execute(action->data().toInt()); });
    // The printed pages: the whole logbook, a range of numbers or the jumps the list shows.
    m_printPages = new CPrintPagesCommand(m_doc, m_units, m_services, this);
    m_printAction = new QAction(tr("Print..."), this);
    m_printAction->setObjectName(QStringLiteral("printAction"));
    m_printAction->setShortcut(QKeySequence::Print);
    m_printPreviewAction = new QAction(tr("Print preview..."), this);
    m_printPreviewAction->setObjectName(QStringLiteral("printPreviewAction"));
    m_exportPdfAction = new QAction(tr("Export PDF..."), this);
    m_exportPdfAction->setObjectName(QStringLiteral("exportPdfAction"));
    // "The jumps the list shows" is offered while a search narrows the list; the pages keep the
    // logbook's order, which their carried totals follow.
    m_printPages->SetShownRows([this] {
        const std::vector<int> shown = m_view->ShownJumps();
        if (shown.size() == m_doc.GetJumpCount())
            return std::vector<std::size_t>();
        std::vector<std::size_t> rows(shown.begin(), shown.end());
        std::sort(rows.begin(), rows.end());
        return rows;
    });
    connect(m_printAction, &QAction::triggered, m_printPages, &CPrintPagesCommand::Print);
    connect(m_printPreviewAction, &QAction::triggered, m_printPages, &CPrintPagesCommand::Preview);
    connect(m_exportPdfAction, &QAction::triggered, m_printPages, &CPrintPagesCommand::ExportPdf);
    connect(m_printPages, &CPrintPagesCommand::finished, this, &CMainFrame::UpdateCommands);
    connect(m_printPages, &CPrintPagesCommand::started, this, &CMainFrame::UpdateCommands);
    connect(m_aboutAction, &QAction::triggered, this, &CMainFrame::OnAbout);
    connect(m_exitAction, &QAction::triggered, this, &QWidget::close);

    QMenu* file = menuBar()->addMenu(tr("&File"));
    file->setObjectName(QStringLiteral("fileMenu"));
    file->addAction(m_newAction);
    file->addAction(m_openAction);
    file->addAction(m_saveAction);
    file->addAction(m_saveAsAction);
    file->addSeparator();
    file->addAction(m_importCsvAction);
    file->addAction(m_exportSelectionAction);
    file->addSeparator();
    file->addAction(m_printAction);
    file->addAction(m_printPreviewAction);
    file->addAction(m_exportPdfAction);
    file->addSeparator();
    file->addAction(m_aboutAction);
    file->addSeparator();
    file->addAction(m_exitAction);

    QMenu* jump = menuBar()->addMenu(tr("&Jump"));
    jump->setObjectName(QStringLiteral("jumpMenu"));
    jump->addAction(m_jumpNewAction);
    jump->addAction(m_jumpImportAction);
    jump->addAction(m_jumpImportCardAction);
    jump->addSeparator();
    jump->addAction(m_jumpViewAction);
    jump->addAction(m_jumpChangeAction);
    jump->addAction(m_jumpAddTrackAction);
    jump->addAction(m_jumpRemoveSignatureAction);
    jump->addAction(m_jumpPictureAction);
    jump->addAction(m_jumpDeleteAction);
    // The selected row decides what the jump items can do when the menu opens.
    connect(jump, &QMenu::aboutToShow, this, &CMainFrame::UpdateCommands);

    // The command bar: the file commands as large icons for the stylus and the finger.
    m_commandBar = addToolBar(tr("Commands"));
    m_commandBar->setObjectName(QStringLiteral("commandBar"));
    m_commandBar->setMovable(false);
    m_commandBar->setFloatable(false);
    m_commandBar->setIconSize(QSize(24, 24));
    m_commandBar->setContextMenuPolicy(Qt::PreventContextMenu);
    m_commandBar->addAction(m_newAction);
    m_commandBar->addAction(m_openAction);
    m_commandBar->addAction(m_saveAction);
    m_commandBar->addSeparator();
    m_commandBar->addAction(m_jumpNewAction);
    m_commandBar->addSeparator();
    m_commandBar->addAction(m_aboutAction);

    // The desktop's tool bar: the jump commands that act on the table's selection.
    m_jumpBar = addToolBar(tr("Jumps"));
    m_jumpBar->setObjectName(QStringLiteral("jumpBar"));
    m_jumpBar->setMovable(false);
    m_jumpBar->setFloatable(false);
    m_jumpBar->setToolButtonStyle(Qt::ToolButtonTextOnly);
    m_jumpBar->setContextMenuPolicy(Qt::PreventContextMenu);
    m_jumpBar->addAction(m_jumpImportAction);
    m_jumpBar->addAction(m_jumpChangeAction);
    m_jumpBar->addAction(m_jumpAddTrackAction);
    m_jumpBar->addAction(m_jumpDeleteAction);
    m_jumpBar->setVisible(false);
}

void CMainFrame::CreateSettingsCommands()
{
    m_settingsCommands = new CSettingsCommands(m_doc, m_units, m_services, this);
    m_userProfileAction = MakeAction(QStringLiteral("userProfileAction"), tr("User Profile..."),
                                     AppCommands::ID_USER_PROFILE, QStringLiteral("profile.svg"));
    m_equipmentAction = MakeAction(QStringLiteral("equipmentAction"), tr("Equipment..."), AppCommands::ID_EQUIPMENT,
                                   QStringLiteral("equipment.svg"));
    m_preferencesAction = MakeAction(QStringLiteral("preferencesAction"), tr("Preferences..."),
                                     AppCommands::ID_PREFERENCES, QStringLiteral("preferences.svg"));
    connect(m_userProfileAction, &QAction::triggered, m_settingsCommands, &CSettingsCommands::OnUserProfile);
    connect(m_equipmentAction, &QAction::triggered, m_settingsCommands, &CSettingsCommands::OnEquipment);
    connect(m_preferencesAction, &QAction::triggered, m_settingsCommands, &CSettingsCommands::OnPreferences);
    connect(m_settingsCommands, &CSettingsCommands::changed, this, &CMainFrame::OnSettingsChanged);

    QMenu* logbook = menuBar()->addMenu(tr("&Logbook"));
    logbook->setObjectName(QStringLiteral("logbookMenu"));
    logbook->addAction(m_userProfileAction);
    logbook->addAction(m_equipmentAction);
    logbook->addAction(m_preferencesAction);
    m_statisticsAction = MakeAction(QStringLiteral("statisticsAction"), tr("Statistics..."),
                                    AppCommands::ID_VIEW_STATISTICS, QStringLiteral("statistics.svg"));
    connect(m_statisticsAction, &QAction::triggered, this,
            [this] { CStatisticsCommand::Run(m_doc, m_units, m_services, this); });
    // The home page's statistics button asks for the same.
    connect(m_view, &CLogbookView::commandRequested, this, [this](int command) {
        if (command == AppCommands::ID_VIEW_STATISTICS)
            m_statisticsAction->trigger();
    });
    logbook->addSeparator();
    logbook->addAction(m_statisticsAction);
    // The touch user reaches them from the command bar as well.
    m_commandBar->addSeparator();
    m_commandBar->addAction(m_userProfileAction);
    m_commandBar->addAction(m_equipmentAction);
    m_commandBar->addAction(m_preferencesAction);
}

void CMainFrame::OnSettingsChanged()
{
    // The document has told the view of changed values; the units are the frame's own.
    m_view->UnitsChanged();
    UpdateCommands();
}

void CMainFrame::UpdateCommands()
{
    const bool open = m_view->IsLogbookOpen();
    m_saveAction->setEnabled(m_commands->CanSave());
    m_saveAsAction->setEnabled(m_commands->CanSaveAs());
    m_exportSelectionAction->setEnabled(m_commands->CanExportSelection());
    m_jumpNewAction->setEnabled(open);
    m_jumpImportAction->setEnabled(open);
    m_importCsvAction->setEnabled(open);
    m_jumpImportCardAction->setEnabled(open);
    const CJump* selected = m_view->SelectedJump();
    m_jumpViewAction->setEnabled(selected != nullptr);
    m_jumpChangeAction->setEnabled(selected != nullptr);
    m_jumpAddTrackAction->setEnabled(CLogbookCommands::CanAddTrack(selected));
    m_jumpRemoveSignatureAction->setEnabled(CLogbookCommands::CanRemoveSignature(selected));
    m_jumpPictureAction->setEnabled(selected && !selected->GetPictureName().empty());
    m_jumpDeleteAction->setEnabled(!m_view->SelectedJumpIndexes().empty());
    m_jumpBar->setVisible(m_view->IsDesktopLayout() && open);
    // The program's own commands (About and the settings dialogs) are offered only while a
    // logbook is open.
    m_aboutAction->setEnabled(open);
    for (QAction* action : {m_userProfileAction, m_equipmentAction, m_preferencesAction, m_statisticsAction})
        action->setEnabled(open);
    // One printing at a time, and only of a logbook that has jumps.
    const bool printable = open && m_doc.GetJumpCount() > 0 && !m_printPages->IsRunning();
    for (QAction* action : {m_printAction, m_printPreviewAction, m_exportPdfAction})
        action->setEnabled(printable);

    QString title = QStringLiteral("Tervola Pocket");
    if (open)
        title = QFileInfo(CorePaths::DisplayPath(m_doc.GetPath())).fileName() + QStringLiteral("[*] - ") + title;
    setWindowTitle(title);
    setWindowModified(open && m_doc.IsModified());
}

void CMainFrame::CheckReminders()
{
    if (!m_doc.HasPath() || !m_services.clock || !m_services.messages)
        return;
    for (const CReminders::Item& item : CReminders::Due(m_doc.GetSettings(), m_services.clock->Today())) {
        const QString date = CDateText::ShortDate(item.date);
        const QString text = item.messageId != StringTable::IDS_INSPECTION_DUE
                                 ? MessageText::Format(item.messageId, date)
                                 : MessageText::Format(item.messageId, QString::number(item.rigNumber), date);
        m_services.messages->Information(text);
    }
}

void CMainFrame::OnApplicationStateChanged(Qt::ApplicationState state)
{
    if (state == Qt::ApplicationActive)
        return;
    // In the background: the window stays responsive; the end of the save updates the commands.
    m_commands->SaveAutomatically();
}

void CMainFrame::OnAbout()
{
    if (!m_services.messages)
        return;
    const QString text =
        tr("Tervola Pocket %1\nThe skydiver's logbook.\n%2")
            .arg(CoreText::ToQt(StringTable::kProductVersion), CoreText::ToQt(StringTable::kWebAddress));
    m_services.messages->About(tr("About Tervola Pocket"), text);
}

void CMainFrame::closeEvent(QCloseEvent* event)
{
    if (!m_commands->SaveModified()) {
        event->ignore();
        return;
    }
    SaveWindowLayout();
    event->accept();
}

void CMainFrame::PlaceOnScreen(const QRect& available)
{
    if (available.width() < kDesktopScreenWidth) {
        resize(QSize(400, 640).boundedTo(available.size()));
        return;
    }
    const QByteArray geometry = m_services.settings
                                    ? QByteArray::fromBase64(QByteArray::fromStdString(
                                          m_services.settings->GetString(kWindowSection, kGeometryValue, "")))
                                    : QByteArray();
    if (!geometry.isEmpty() && restoreGeometry(geometry))
        return;
    const QSize size = available.size() * 0.8;
    setGeometry(QStyle::alignedRect(Qt::LeftToRight, Qt::AlignCenter, size, available));
}

void CMainFrame::SaveWindowLayout() const
{
    if (!m_services.settings)
        return;
    m_services.settings->SetString(kWindowSection, kGeometryValue, saveGeometry().toBase64().toStdString());
    m_view->Desktop()->SaveLayout();
}
