// Start-up of the real main window: the logbook used last, the command line, the splash, the
// registry on QSettings and the reminders.

#include "CAppHarness.h"

#include "app/CLogbookCommands.h"
#include "app/CLogbookView.h"
#include "app/CMainFrame.h"
#include "app/CQSettingsStore.h"
#include "app/CSplashWnd.h"

#include <QSignalSpy>
#include <QToolButton>
#include <QtTest>

using Kind = CRecordingMessages::Kind;
using Mode = CLogbookView::ViewMode;

Q_DECLARE_METATYPE(CTestLogbook)

namespace {

// 10 June 2024, the harness's today, moved by days.
QString Day(int offset)
{
    return CTestLogbook::Day(2024, 6, 10, offset);
}

} // namespace

class TestStartup : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedStates)); }

    // lastFile and argument: none, "good", "other", "missing", "future" (version 2.0).
    void startLogbook_data()
    {
        QTest::addColumn<QString>("lastFile");
        QTest::addColumn<QString>("argument");
        QTest::addColumn<QString>("opened");
        QTest::addColumn<QStringList>("errors");
        const auto row = [](const char* name, QString lastFile, QString argument, QString opened, QStringList errors) {
            QTest::newRow(name) << lastFile << argument << opened << errors;
        };
        row("nothing used yet", {}, {}, {}, {});
        row("last file", "good.tvz", {}, "good.tvz", {});
        row("last file gone: silent", "missing.tvz", {}, {}, {});
        row("last file unreadable: its message only", "future.tvl", {}, {},
            {"The file version (2.0) can not be processed. Please install an actual version of Tervola or contact "
             "support@tervola.example.org"});
        row("command line before last file", "good.tvz", "other.tvl", "other.tvl", {});
        row("command line file missing: reported", "good.tvz", "missing.tvz", {}, {"The file could not be opened."});
    }

    void startLogbook()
    {
        QFETCH(QString, lastFile);
        QFETCH(QString, argument);
        QFETCH(QString, opened);
        QFETCH(QStringList, errors);
        CAppHarness harness;
        harness.Write(CTestLogbook().Jumps(1, 1), "good.tvz");
        harness.Write(CTestLogbook().Jumps(9, 9), "other.tvl");
        QFile future(harness.Path("future.tvl"));
        QVERIFY(future.open(QIODevice::WriteOnly));
        future.write(CTestLogbook().Jumps(1, 1).Xml().replace("version=\"1.2\"", "version=\"2.0\"").toUtf8());
        future.close();
        if (!lastFile.isEmpty())
            harness.SetLastFile(harness.Path(lastFile));
        QVERIFY(harness.Start(argument.isEmpty() ? QStringList() : QStringList{harness.Path(argument)}));

        QVERIFY(harness.Frame()->isVisible());
        QCOMPARE(harness.messages.Texts(Kind::Error), errors);
        QCOMPARE(harness.messages.boxes.size(), errors.size());
        const CLogbookDoc& doc = harness.Frame()->GetDocument();
        QCOMPARE(QString::fromStdString(doc.GetPath()), opened.isEmpty() ? QString() : harness.Path(opened));
        QCOMPARE(harness.View()->GetViewMode(), opened.isEmpty() ? Mode::Empty : Mode::Home);
        if (!opened.isEmpty()) {
            QCOMPARE(harness.LastFile(), harness.Path(opened));
            QVERIFY(harness.Frame()->windowTitle().startsWith(opened));
        }
    }

    // The splash stays through start-up; the first tap or key only closes it.
    void splashSwallowsTheFirstInput()
    {
        CAppHarness harness;
        harness.SetLastFile(harness.Write(CTestLogbook().Jumps(1, 1), "last.tvz"));
        QVERIFY(harness.Start());
        QVERIFY(CSplashWnd::Instance() && CSplashWnd::Instance()->isVisible());
        QCOMPARE(CSplashWnd::Instance()->geometry(), harness.View()->rect());
        auto* button = harness.View()->findChild<QToolButton*>("jumpListButton");
        QSignalSpy clicks(button, &QToolButton::clicked);
        QTest::mouseClick(button, Qt::LeftButton);
        QVERIFY(!CSplashWnd::Instance());
        QCOMPARE(clicks.count(), 0);
        QTest::mouseClick(button, Qt::LeftButton);
        QCOMPARE(clicks.count(), 1);

        CAppHarness second;
        QVERIFY(second.Start());
        QTest::keyClick(second.Frame(), Qt::Key_O, Qt::ControlModifier);
        QVERIFY(!CSplashWnd::Instance());
        QVERIFY(second.files.asked.isEmpty()); // the shortcut did not reach Open
    }

    void splashClosesAfterItsTime()
    {
        CAppHarness harness;
        QVERIFY(harness.Start());
        QVERIFY(CSplashWnd::Instance());
        QTRY_VERIFY_WITH_TIMEOUT(!CSplashWnd::Instance(), 3000);
    }

    void settingsStoreKeepsSectionsAndTypes()
    {
        QTemporaryDir folder;
        const QString ini = folder.filePath("registry.ini");
        {
            CQSettingsStore store(ini);
            store.SetString("General", "LastFile", "/home/jumper/Jumps ä.tvz");
            store.SetInt("Preferences", "Units", 1);
            store.SetString("Jump", "HasTime", "yes");
        }
        CQSettingsStore store(ini);
        QCOMPARE(QString::fromStdString(store.GetString("General", "LastFile", "")),
                 QString("/home/jumper/Jumps ä.tvz"));
        QCOMPARE(store.GetInt("Preferences", "Units", 0), 1);
        QCOMPARE(store.GetInt("Jump", "HasTime", 7), 7);         // not a number
        QCOMPARE(store.GetInt("Preferences", "Absent", -3), -3); // absent
        QCOMPARE(QString::fromStdString(store.GetString("Preferences", "LastFile", "none")), QString("none"));
    }

    // Expiry or inspection relative to today with 10 alarm days; which days are due is tested
    // in the core, here the boxes: their kind, order and date text.
    void reminders_data()
    {
        QTest::addColumn<CTestLogbook>("logbook");
        QTest::addColumn<QStringList>("expected");
        const QString member = "Your membership/license will expire %1.";
        const QString rig = "Equipment %1 needs to be inspected %2.";
        QTest::newRow("nothing due") << CTestLogbook().Membership(Day(30), 10) << QStringList();
        QTest::newRow("membership, then the rigs in list order")
            << CTestLogbook().Membership(Day(2), 10).RigAlarm(10, 180).Rig(8, true, Day(-175)).Rig(2, true, Day(-300))
            << QStringList{member.arg("6/12/24"), rig.arg(8).arg("6/15/24"), rig.arg(2).arg("2/11/24")};
    }

    void reminders()
    {
        QFETCH(CTestLogbook, logbook);
        QFETCH(QStringList, expected);
        CAppHarness harness;
        harness.SetLastFile(harness.Write(logbook, "reminders.tvz"));
        QVERIFY(harness.Start());
        QCOMPARE(harness.messages.Texts(Kind::Information), expected);
        QCOMPARE(harness.messages.boxes.size(), expected.size());
    }

    void remindersAfterEveryOpenButNotWithoutLogbook()
    {
        CAppHarness harness;
        const QString path = harness.Write(CTestLogbook().Membership(Day(1), 10), "member.tvz");
        QVERIFY(harness.Start());
        harness.Frame()->CheckReminders();
        QVERIFY(harness.messages.boxes.isEmpty());
        harness.files.openAnswers = {path, path};
        harness.Commands()->OnFileOpen();
        harness.Commands()->OnFileOpen();
        QCOMPARE(harness.messages.Texts(Kind::Information).size(), 2);
        QCOMPARE(harness.messages.boxes.size(), 2);
    }
};

QTEST_MAIN(TestStartup)
#include "AppStartupTest.moc"
