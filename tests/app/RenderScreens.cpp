// Renders the main window in every mode at the handheld and phone sizes, and its desktop layout
// at 1024x768 and 1920x1080, each also with a search and with a search that cannot be read, into
// PNG files
// (folder "screens" beside this program, or the folder given as first argument; a logbook given
// as second argument replaces the built-in demo), and checks each picture's layout: every
// visible control lies inside the view, no two overlap, and no summary text is cut. Exits with
// the number of problems found.

#include "CAppHarness.h"
#include "CRenderCheck.h"

#include "app/CDesktopPane.h"
#include "app/CJumpTableModel.h"
#include "app/CLicenceStatusPane.h"
#include "app/CSearchBar.h"
#include "app/CSummaryPane.h"

#include <QApplication>
#include <QFileInfo>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QTextStream>
#include <QToolButton>

namespace {

// Two dozen jumps at five places, every fourth with a picture, all but the last six signed.
CTestLogbook DemoLogbook()
{
    CTestLogbook logbook;
    logbook.PreviousDelay(5400);
    const QStringList places = {"Tervola", "Rovaniemi", "Kemi", "Utti", "Jämijärvi"};
    for (int i = 0, number = 120; i < 24; ++i, ++number) {
        const QString day = CTestLogbook::Day(2024, 4, 2, i * 3).replace("T00", "T11");
        const QString picture = i % 4 == 1 ? QStringLiteral("jump%1.jpg").arg(number) : QString();
        logbook.Jump(number, day, places[i % 5], 4000, 1000 + 10 * i, 60, picture, i < 18 ? "Instructor" : "");
    }
    return logbook;
}

// The view's buttons, summary, licence status and list, each inside the view and apart; the
// summary's texts whole.
QStringList CheckLayout(CLogbookView* view)
{
    const auto visible = [](QWidget* root, QList<QWidget*> parts) {
        parts.removeIf([root](const QWidget* part) { return !part->isVisibleTo(root); });
        return parts;
    };
    CSearchBar* search = view->findChild<CSearchBar*>("listSearchBar");
    QList<QWidget*> parts;
    // The page buttons; the search bars' buttons are checked with their bars.
    for (QToolButton* button : view->findChildren<QToolButton*>())
        if (!view->Desktop()->isAncestorOf(button) && !search->isAncestorOf(button))
            parts.append(button);
    parts << view->Summary() << view->findChild<QWidget*>("homePage")->findChild<CLicenceStatusPane*>() << search
          << view->List() << view->Desktop();
    QStringList problems = RenderCheck::Layout(view, visible(view, parts));
    for (CSummaryPane* summary : {view->Summary(), view->Desktop()->Summary()})
        if (summary->isVisibleTo(view))
            problems += RenderCheck::Layout(summary, visible(summary, summary->findChildren<QWidget*>()));
    for (CSearchBar* bar : {search, view->Desktop()->Search()})
        if (bar->isVisibleTo(view))
            problems += RenderCheck::Layout(
                bar, visible(bar, {bar->Field(), bar->TermsButton(), bar->findChild<QLabel*>("searchCount"),
                                   bar->findChild<QLabel*>("searchMessage")}));
    return problems;
}

} // namespace

int main(int argc, char* argv[])
{
    QApplication application(argc, argv);
    RenderCheck::UseLanguage(QLocale(QLocale::English, QLocale::UnitedStates));
    const QString target = argc > 1 ? QString::fromLocal8Bit(argv[1])
                                    : QCoreApplication::applicationDirPath() + QStringLiteral("/screens");
    QDir().mkpath(target);
    const QString logbook = argc > 2 ? QFileInfo(QString::fromLocal8Bit(argv[2])).absoluteFilePath() : QString();

    QTextStream out(stdout);
    int problems = 0;
    for (const QSize& size : RenderCheck::kSizes + QList<QSize>{{1920, 1080}}) {
        // The desktop layout has no list modes of its own: one picture of it, with a row selected.
        const bool desktop = size.width() >= CLogbookView::kDesktopWidth;
        // "search": a query that finds some jumps; "badsearch": one that cannot be read, its message
        // under the field.
        for (const QString& mode :
             desktop ? QStringList{"splash", "empty", "desktop", "search", "badsearch"}
                     : QStringList{"splash", "empty", "home", "jumplist", "signlist", "search", "badsearch"}) {
            CAppHarness harness;
            harness.settings.SetInt("Preferences", "Units", 1);
            const bool splash = mode == QStringLiteral("splash");
            if (mode != QStringLiteral("empty"))
                harness.SetLastFile(logbook.isEmpty() ? harness.Write(DemoLogbook(), QStringLiteral("demo.tvz"))
                                                      : logbook);
            if (!(splash ? harness.Start() : harness.StartWithoutSplash()))
                return 100;
            CMainFrame* frame = harness.Frame();
            frame->resize(size);
            QApplication::processEvents();
            if (mode.endsWith(QStringLiteral("search"))) {
                CSearchBar* bar = desktop ? harness.View()->Desktop()->Search()
                                          : harness.View()->findChild<CSearchBar*>("listSearchBar");
                if (!desktop)
                    harness.View()->OnViewJumpList();
                bar->SetText(QStringLiteral("dz:Rovaniemi n:121..140 signed:yes"));
                if (mode == QStringLiteral("badsearch"))
                    bar->SetText(QStringLiteral("dz:Rovaniemi date:2024-13"));
                if (desktop)
                    harness.View()->Desktop()->SelectRow(0);
            } else if (mode == QStringLiteral("jumplist"))
                harness.View()->OnViewJumpList();
            else if (mode == QStringLiteral("signlist"))
                harness.View()->OnViewSignList();
            else if (mode == QStringLiteral("desktop")) {
                // The newest signed jump with a recording shows every part of the details.
                const CJumpTableModel* model = harness.View()->findChild<CJumpTableModel*>("tableModel");
                int row = model->rowCount() - 1;
                for (int r = row; r >= 0; --r)
                    if (model->JumpAt(r)->IsSigned() && model->JumpAt(r)->GetRecording().IsPresent()) {
                        row = r;
                        break;
                    }
                harness.View()->Desktop()->SelectRow(row);
            }
            QApplication::processEvents();

            const QString name = QStringLiteral("%1_%2x%3").arg(mode).arg(size.width()).arg(size.height());
            QStringList found;
            if (frame->size() != size)
                found.append(QStringLiteral("window is %1x%2").arg(frame->width()).arg(frame->height()));
            if (!splash)
                found += CheckLayout(harness.View());
            if (!frame->grab().save(target + QLatin1Char('/') + name + QStringLiteral(".png")))
                found.append(QStringLiteral("cannot write the picture"));
            if (mode == QStringLiteral("search")) {
                // The menu of typed terms on a screen as wide as the window.
                CSearchBar* bar = desktop ? harness.View()->Desktop()->Search()
                                          : harness.View()->findChild<CSearchBar*>("listSearchBar");
                QMenu* menu = bar->FitTermsMenu(size.width());
                if (menu->width() > size.width())
                    found.append(QStringLiteral("the terms menu is wider than the screen"));
                if (!menu->grab().save(target +
                                       QStringLiteral("/terms_%1x%2.png").arg(size.width()).arg(size.height())))
                    found.append(QStringLiteral("cannot write the picture"));
            }
            for (const QString& problem : found)
                out << name << ": " << problem << Qt::endl;
            problems += found.size();
        }
    }
    out << "screens in " << target << ", problems: " << problems << Qt::endl;
    return problems;
}
