#pragma once

#include "app/CAppServices.h"

#include <QLocale>
#include <QObject>
#include <QString>
#include <QStringList>

#include <memory>

class CMainFrame;
class CQSettingsStore;
class CSystemClock;
class CMessageBoxes;
class CFileDialogs;
class CDesktopViewer;

// The application: sets where the settings store keeps its values, builds the main frame, reopens
// the logbook used last (or the one named on the command line), ends the splash and runs the
// reminders.
class CLogbookApp : public QObject
{
    Q_OBJECT

public:
    // The company and program name the settings store keeps its values under.
    static constexpr const char* kCompany = "Orlithe";
    static constexpr const char* kProgram = "Tervola Pocket";

    // The real settings store, clock, message boxes, file dialogs and picture viewer.
    CLogbookApp();
    // Services chosen by the caller (tests); every pointer must be set.
    explicit CLogbookApp(const CAppServices& services);
    // The unit system a locale measures in: metric for metric countries, imperial otherwise.
    static int DefaultUnits(const QLocale& locale);
    // Closes the frame before the services it uses.
    ~CLogbookApp() override;

    // Starts the program; arguments as the command line gives them (the program's path first,
    // then optionally a logbook to open instead of the last one). Returns false on failure.
    bool InitInstance(const QStringList& arguments);

    // The main window once started.
    CMainFrame* MainFrame() const { return m_frame.get(); }

private:
    void LoadStartLogbook(const QStringList& arguments);

    std::unique_ptr<CQSettingsStore> m_ownSettings;
    std::unique_ptr<CSystemClock> m_ownClock;
    std::unique_ptr<CMessageBoxes> m_ownMessages;
    std::unique_ptr<CFileDialogs> m_ownFiles;
    std::unique_ptr<CDesktopViewer> m_ownViewer;
    CAppServices m_services;
    std::unique_ptr<CMainFrame> m_frame;
};
