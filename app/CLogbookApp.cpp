#include "app/CLogbookApp.h"

#include "app/CArtwork.h"
#include "app/CDesktopViewer.h"
#include "app/CFileDialogs.h"
#include "app/CLogbookCommands.h"
#include "app/CLogbookView.h"
#include "app/CMainFrame.h"
#include "app/CMessageBoxes.h"
#include "app/CQSettingsStore.h"
#include "app/CSplashWnd.h"
#include "bridge/CorePaths.h"
#include "document/IClock.h"
#include "document/LogbookFormat.h"
#include "translations/CTranslations.h"
#include "units/CUnitSettings.h"
#include "units/ISettingsStore.h"

#include <QApplication>
#include <QFileInfo>
#include <QGuiApplication>
#include <QScreen>

CLogbookApp::CLogbookApp()
{
    // Where the settings store keeps its values: under the company and the program's name.
    QCoreApplication::setOrganizationName(QString::fromLatin1(kCompany));
    QCoreApplication::setApplicationName(QString::fromLatin1(kProgram));
    m_ownSettings = std::make_unique<CQSettingsStore>(QString::fromLatin1(kCompany), QString::fromLatin1(kProgram));
    m_ownClock = std::make_unique<CSystemClock>();
    m_ownMessages = std::make_unique<CMessageBoxes>();
    m_ownFiles = std::make_unique<CFileDialogs>();
    m_ownViewer = std::make_unique<CDesktopViewer>();
    m_services = {m_ownSettings.get(), m_ownClock.get(), m_ownMessages.get(), m_ownFiles.get(), m_ownViewer.get()};
    m_services.defaultUnits = DefaultUnits(QLocale::system());
}

int CLogbookApp::DefaultUnits(const QLocale& locale)
{
    return locale.measurementSystem() == QLocale::MetricSystem ? CUnitSettings::Metric : CUnitSettings::Imperial;
}

CLogbookApp::CLogbookApp(const CAppServices& services) : m_services(services)
{
}

CLogbookApp::~CLogbookApp()
{
    // The frame goes before the services it uses.
    m_frame.reset();
}

bool CLogbookApp::InitInstance(const QStringList& arguments)
{
    if (!m_services.settings || !m_services.clock || !m_services.messages || !m_services.files)
        return false;
    // 1. Platform services: the translations of the default locale's language (the system's
    // unless a test chose another) are installed; the artwork is registered.
    CTranslations::Install(QLocale());
    CArtwork::Init();
    if (QCoreApplication::applicationName().isEmpty())
        QCoreApplication::setApplicationName(QString::fromLatin1(kProgram));

    // 2.-3. The settings store's place is set above; the frame reads the unit preferences, builds
    // its view and command bar and puts up the splash.
    m_frame = std::make_unique<CMainFrame>(m_services);
    if (m_ownMessages)
        m_ownMessages->SetParent(m_frame.get());
    if (m_ownFiles)
        m_ownFiles->SetParent(m_frame.get());
    if (const QScreen* screen = QGuiApplication::primaryScreen())
        m_frame->PlaceOnScreen(screen->availableGeometry());

    // 4. The logbook of the command line, else the one used last.
    LoadStartLogbook(arguments);

    // 5. The home page when a logbook is open, else the start buttons; show the window.
    m_frame->View()->Refresh();
    m_frame->show();

    // 6. Start-up is over: the splash goes at its time or at the first input.
    CSplashWnd::EndSplash();

    // A modified logbook is saved whenever the program loses the user's attention.
    connect(qApp, &QGuiApplication::applicationStateChanged, m_frame.get(), &CMainFrame::OnApplicationStateChanged);

    // 7. The reminders.
    m_frame->CheckReminders();
    return true;
}

void CLogbookApp::LoadStartLogbook(const QStringList& arguments)
{
    // A logbook named on the command line (a desktop opening a ".tvz") is an explicit request:
    // it fails like the Open command, with its messages.
    if (arguments.size() > 1 && !arguments.at(1).isEmpty()) {
        m_frame->Commands()->LoadLogbook(arguments.at(1));
        return;
    }
    const std::string last =
        m_services.settings->GetString(LogbookFormat::kLastFileSection, LogbookFormat::kLastFileValue, "");
    if (last.empty())
        return;
    const QString path = CorePaths::DisplayPath(last);
    // A last file that has gone away is forgotten without a word.
    if (!QFileInfo(path).isFile())
        return;
    // Read like Open, with a progress dialog when it takes a while, but a failure shows only the
    // load's own message.
    m_frame->Commands()->LoadLogbook(path, CLogbookCommands::OnFailure::ReportLoadMessagesOnly);
}
