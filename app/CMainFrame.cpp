#include "app/CMainFrame.h"

#include "app/AppCommands.h"
#include "app/CArtwork.h"
#include "app/CDateText.h"
#include "app/CLogbookView.h"
#include "app/CSplashWnd.h"
#include "controls/IMessageSink.h"
#include "document/CReminders.h"
#include "document/IClock.h"
#include "resources/StringTable.h"
#include "units/ISettingsStore.h"

#include <QAction>
#include <QCloseEvent>
#include <QFile>
#include <QFileInfo>
#include <QMenuBar>
#include <QToolBar>

namespace {

CUnitSettings LoadUnits(const ISettingsStore* store)
{
    CUnitSettings units;
    if (store)
        units.Load(*store);
    return units;
}

} // namespace

CMainFrame::CMainFrame(const CAppServices& services, QWidget* parent)
    : QMainWindow(parent),
      m_services(services),
      m_units(LoadUnits(services.settings)),
      m_doc(services.settings, services.clock)
{
    setObjectName(QStringLiteral("mainFrame"));
    setWindowIcon(CArtwork::Icon(QStringLiteral("canopy.svg")));
    m_view = new CLogbookView(m_doc, m_units, m_services, this);
    setCentralWidget(m_view);
    CreateMenuAndCommandBar();
    // The splash covers the client area from the moment the command bar exists.
    CSplashWnd::ShowSplash(m_view);

    connect(m_view, &CLogbookView::stateChanged, this, &CMainFrame::UpdateCommands);
    connect(m_view, &CLogbookView::logbookOpened, this, &CMainFrame::CheckReminders);
    UpdateCommands();
}

CMainFrame::~CMainFrame() = default;

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
    m_newAction = MakeAction(QStringLiteral("fileNewAction"), QStringLiteral("New..."), AppCommands::ID_FILE_NEW,
                             QStringLiteral("new.svg"));
    m_openAction = MakeAction(QStringLiteral("fileOpenAction"), QStringLiteral("Open..."),
                              AppCommands::ID_FILE_OPEN, QStringLiteral("open.svg"));
    m_saveAction = MakeAction(QStringLiteral("fileSaveAction"), QStringLiteral("Save"), AppCommands::ID_FILE_SAVE,
                              QStringLiteral("save.svg"));
    m_saveAsAction =
        MakeAction(QStringLiteral("fileSaveAsAction"), QStringLiteral("Save as..."), AppCommands::ID_FILE_SAVE_AS);
    m_aboutAction = MakeAction(QStringLiteral("aboutAction"), QStringLiteral("About Tervola Pocket..."),
                               AppCommands::ID_APP_ABOUT, QStringLiteral("about.svg"));
    m_exitAction = MakeAction(QStringLiteral("exitAction"), QStringLiteral("E&xit"), AppCommands::ID_APP_EXIT);
    m_newAction->setShortcut(QKeySequence::New);
    m_openAction->setShortcut(QKeySequence::Open);
    m_saveAction->setShortcut(QKeySequence::Save);
    m_saveAsAction->setShortcut(QKeySequence::SaveAs);
    m_exitAction->setShortcut(QKeySequence::Quit);

    connect(m_newAction, &QAction::triggered, m_view, &CLogbookView::OnFileNew);
    connect(m_openAction, &QAction::triggered, m_view, &CLogbookView::OnFileOpen);
    connect(m_saveAction, &QAction::triggered, m_view, &CLogbookView::OnFileSave);
    connect(m_saveAsAction, &QAction::triggered, m_view, &CLogbookView::OnFileSaveAs);
    connect(m_aboutAction, &QAction::triggered, this, &CMainFrame::OnAbout);
    connect(m_exitAction, &QAction::triggered, this, &QWidget::close);

    // The user profile, preferences and equipment items join this menu with their dialogs.
    QMenu* file = menuBar()->addMenu(QStringLiteral("&File"));
    file->setObjectName(QStringLiteral("fileMenu"));
    file->addAction(m_newAction);
    file->addAction(m_openAction);
    file->addAction(m_saveAction);
    file->addAction(m_saveAsAction);
    file->addSeparator();
    file->addAction(m_aboutAction);
    file->addSeparator();
    file->addAction(m_exitAction);

    // The command bar: the file commands as large icons for the stylus and the finger.
    m_commandBar = addToolBar(QStringLiteral("Commands"));
    m_commandBar->setObjectName(QStringLiteral("commandBar"));
    m_commandBar->setMovable(false);
    m_commandBar->setFloatable(false);
    m_commandBar->setIconSize(QSize(24, 24));
    m_commandBar->setContextMenuPolicy(Qt::PreventContextMenu);
    m_commandBar->addAction(m_newAction);
    m_commandBar->addAction(m_openAction);
    m_commandBar->addAction(m_saveAction);
    m_commandBar->addSeparator();
    m_commandBar->addAction(m_aboutAction);
}

void CMainFrame::UpdateCommands()
{
    const bool open = m_view->IsLogbookOpen();
    m_saveAction->setEnabled(m_view->CanSave());
    m_saveAsAction->setEnabled(m_view->CanSaveAs());
    // The program's own commands (About, and the settings dialogs once they exist) are
    // offered only while a logbook is open.
    m_aboutAction->setEnabled(open);

    QString title = QStringLiteral("Tervola Pocket");
    if (open)
        title = QFileInfo(QFile::decodeName(QByteArray::fromStdString(m_doc.GetPath()))).fileName() +
                QStringLiteral("[*] - ") + title;
    setWindowTitle(title);
    setWindowModified(open && m_doc.IsModified());
}

void CMainFrame::CheckReminders()
{
    if (!m_doc.HasPath() || !m_services.clock || !m_services.messages)
        return;
    for (const CReminders::Item& item : CReminders::Due(m_doc.GetSettings(), m_services.clock->Today()))
    {
        const std::string date = CDateText::ShortDate(item.date).toStdString();
        const std::string text = item.messageId == StringTable::IDS_MEMBERSHIP_EXPIRES
                                     ? StringTable::Format(item.messageId, date)
                                     : StringTable::Format(item.messageId, std::to_string(item.rigNumber), date);
        m_services.messages->Information(QString::fromStdString(text));
    }
}

void CMainFrame::OnApplicationStateChanged(Qt::ApplicationState state)
{
    if (state == Qt::ApplicationActive)
        return;
    // No message here: the user has just turned to something else. A failed save leaves the
    // logbook modified, so closing still asks.
    if (m_doc.SaveIfModified())
        UpdateCommands();
}

void CMainFrame::OnAbout()
{
    if (!m_services.messages)
        return;
    m_services.messages->About(
        QStringLiteral("About Tervola Pocket"),
        QStringLiteral("Tervola Pocket %1\nThe skydiver's logbook.\n%2")
            .arg(QString::fromUtf8(StringTable::kProductVersion.data(),
                                   static_cast<qsizetype>(StringTable::kProductVersion.size())),
                 QString::fromUtf8(StringTable::kWebAddress.data(),
                                   static_cast<qsizetype>(StringTable::kWebAddress.size()))));
}

void CMainFrame::closeEvent(QCloseEvent* event)
{
    if (!m_view->SaveModified())
    {
        event->ignore();
        return;
    }
    event->accept();
}
