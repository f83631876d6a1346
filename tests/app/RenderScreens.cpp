// Renders the main window in every mode at the handheld, phone and desktop sizes into
// PNG files (folder "screens" beside this program, or the folder given as first argument; a
// logbook given as second argument replaces the built-in demo),
// and checks each picture's layout: every visible control lies inside the view, no two overlap,
// and no summary text is cut. Exits with the number of problems found.

#include "CAppHarness.h"
#include "CPictureLanguage.h"

#include "app/CJumpListCtrl.h"
#include "app/CLogbookView.h"
#include "app/CMainFrame.h"
#include "app/CSummaryPane.h"

#include <QApplication>
#include <QDir>
#include <QFileInfo>
#include <QLabel>
#include <QLocale>
#include <QTextStream>
#include <QToolButton>

namespace {

QTextStream& Out()
{
    static QTextStream out(stdout);
    return out;
}

CTestLogbook DemoLogbook()
{
    CTestLogbook logbook;
    logbook.PreviousDelay(5400);
    const QStringList places = {QStringLiteral("Tervola"), QStringLiteral("Rovaniemi"), QStringLiteral("Kemi"),
                                QStringLiteral("Utti"), QStringLiteral("Jämijärvi")};
    for (int i = 0; i < 24; ++i) {
        const int number = 120 + i;
        const QString day = CTestLogbook::Day(2024, 4, 2, i * 3).replace(QStringLiteral("T00"), QStringLiteral("T11"));
        const QString picture = i % 4 == 1 ? QStringLiteral("jump%1.jpg").arg(number) : QString();
        const QString signer = i < 18 ? QStringLiteral("Instructor") : QString();
        logbook.Jump(number, day, places[i % places.size()], 4000, 1000 + 10 * i, 60, picture, signer);
    }
    return logbook;
}

// The rectangle of a widget in the view's coordinates.
QRect InView(const QWidget* widget, const QWidget* view)
{
    return QRect(widget->mapTo(view, QPoint(0, 0)), widget->size());
}

int CheckLayout(CLogbookView* view, const QString& name)
{
    int problems = 0;
    const auto report = [&](const QString& text) {
        Out() << name << ": " << text << Qt::endl;
        ++problems;
    };
    QList<QWidget*> parts;
    for (QToolButton* button : view->findChildren<QToolButton*>())
        if (button->isVisibleTo(view))
            parts.append(button);
    if (view->GetSummary()->isVisibleTo(view))
        parts.append(view->GetSummary());
    if (view->GetList()->isVisibleTo(view))
        parts.append(view->GetList());

    for (QWidget* part : parts) {
        const QRect area = InView(part, view);
        if (!view->rect().contains(area))
            report(QStringLiteral("%1 %2 leaves the view").arg(part->objectName()).arg(QDebug::toString(area)));
        if (area.width() < part->minimumSizeHint().width() || area.height() < part->minimumSizeHint().height())
            report(QStringLiteral("%1 squeezed below its minimum size").arg(part->objectName()));
    }
    for (int i = 0; i < parts.size(); ++i)
        for (int j = i + 1; j < parts.size(); ++j)
            if (InView(parts[i], view).intersects(InView(parts[j], view)))
                report(QStringLiteral("%1 overlaps %2").arg(parts[i]->objectName(), parts[j]->objectName()));

    CSummaryPane* summary = view->GetSummary();
    if (summary->isVisibleTo(view))
        for (QLabel* label : summary->findChildren<QLabel*>()) {
            if (label->width() < label->sizeHint().width())
                report(QStringLiteral("text '%1' is cut").arg(label->text()));
            if (!summary->rect().contains(QRect(label->pos(), label->size())))
                report(QStringLiteral("text '%1' leaves the summary").arg(label->text()));
        }
    return problems;
}

} // namespace

int main(int argc, char* argv[])
{
    QApplication application(argc, argv);
    PictureLanguage::Use(QLocale(QLocale::English, QLocale::UnitedStates));
    const QString target = argc > 1 ? QString::fromLocal8Bit(argv[1])
                                    : QCoreApplication::applicationDirPath() + QStringLiteral("/screens");
    QDir().mkpath(target);
    const QString logbook = argc > 2 ? QFileInfo(QString::fromLocal8Bit(argv[2])).absoluteFilePath() : QString();

    const QList<QSize> sizes = {{240, 320}, {320, 240}, {360, 640}, {1024, 768}};
    const QStringList modes = {QStringLiteral("splash"), QStringLiteral("empty"), QStringLiteral("home"),
                               QStringLiteral("jumplist"), QStringLiteral("signlist")};
    int problems = 0;
    for (const QSize& size : sizes) {
        for (const QString& mode : modes) {
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
            if (mode == QStringLiteral("jumplist"))
                harness.View()->OnViewJumpList();
            else if (mode == QStringLiteral("signlist"))
                harness.View()->OnViewSignList();
            QApplication::processEvents();

            const QString name = QStringLiteral("%1_%2x%3").arg(mode).arg(size.width()).arg(size.height());
            if (qEnvironmentVariableIsSet("TERVOLA_DEBUG_SIZES"))
                for (QWidget* w : frame->findChildren<QWidget*>())
                    if (w->isVisibleTo(frame))
                        Out() << name << " " << w->metaObject()->className() << " " << w->objectName() << " min "
                              << w->minimumSizeHint().width() << "x" << w->minimumSizeHint().height() << " size "
                              << w->width() << "x" << w->height() << Qt::endl;
            if (frame->size() != size)
                Out() << name << ": window is " << frame->width() << "x" << frame->height() << Qt::endl, ++problems;
            if (!splash)
                problems += CheckLayout(harness.View(), name);
            const QString file = target + QLatin1Char('/') + name + QStringLiteral(".png");
            if (!frame->grab().save(file))
                Out() << name << ": cannot write " << file << Qt::endl, ++problems;
        }
    }
    Out() << "screens in " << target << ", problems: " << problems << Qt::endl;
    return problems;
}
