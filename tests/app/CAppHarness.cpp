#include "CAppHarness.h"

#include "app/CJumpListCtrl.h"
#include "app/CLogbookCommands.h"
#include "app/CLogbookView.h"
#include "app/CMainFrame.h"
#include "app/CSplashWnd.h"
#include "bridge/CorePaths.h"
#include "document/LogbookFormat.h"

bool CAppHarness::Start(const QStringList& arguments)
{
    app = std::make_unique<CLogbookApp>(CAppServices{&settings, &clock, &messages, &files, &viewer, &dialogs});
    return app->InitInstance(QStringList{QStringLiteral("tervola-pocket")} + arguments);
}

bool CAppHarness::StartWithoutSplash(const QStringList& arguments)
{
    if (!Start(arguments))
        return false;
    if (CSplashWnd* splash = CSplashWnd::Instance())
        delete splash;
    return CSplashWnd::Instance() == nullptr;
}

QString CAppHarness::StartWith(const CTestLogbook& logbook)
{
    const QString path = Write(logbook, QStringLiteral("jumps.tvz"));
    SetLastFile(path);
    return StartWithoutSplash() ? path : QString();
}

void CAppHarness::SelectRow(int row)
{
    CJumpListCtrl* list = View()->GetList();
    list->setCurrentItem(list->topLevelItem(row));
}

CLogbookCommands* CAppHarness::Commands() const
{
    return Frame()->GetCommands();
}

CLogbookView* CAppHarness::View() const
{
    return Frame() ? Frame()->GetView() : nullptr;
}

QString CAppHarness::Path(const QString& name) const
{
    return CorePaths::DisplayPath(folder / CorePaths::LocalPath(name));
}

QString CAppHarness::Write(const CTestLogbook& logbook, const QString& name) const
{
    const QString path = Path(name);
    const bool ok =
        name.endsWith(QStringLiteral(".tvl"), Qt::CaseInsensitive) ? logbook.WritePlain(path) : logbook.WriteGzip(path);
    return ok ? path : QString();
}

void CAppHarness::SetLastFile(const QString& path)
{
    settings.SetString(LogbookFormat::kLastFileSection, LogbookFormat::kLastFileValue, CorePaths::LocalPath(path));
}

CLogbookDoc& CAppHarness::Doc() const
{
    return Frame()->GetDocument();
}

void CAppHarness::DeleteFirstJump()
{
    View()->OnViewJumpList();
    SelectRow(0);
    Commands()->OnJumpDelete();
    messages.boxes.clear();
}

int CAppHarness::JumpsInFile(const QString& path)
{
    CLogbookDoc doc;
    return doc.Load(CorePaths::LocalPath(path)) ? int(doc.GetJumpCount()) : -1;
}

QString CAppHarness::LastFile() const
{
    return CorePaths::DisplayPath(
        settings.GetString(LogbookFormat::kLastFileSection, LogbookFormat::kLastFileValue, ""));
}
