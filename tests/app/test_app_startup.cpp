// Start-up of the real main window: the logbook used last, the command line, the splash, the
// registry on QSettings and the reminders.

#include "CAppHarness.h"

#include "app/CLogbookView.h"
#include "app/CMainFrame.h"
#include "app/CQSettingsStore.h"
#include "app/CSplashWnd.h"

#include <QLocale>
#include <QSignalSpy>
#include <QToolButton>
#include <QtTest>

using Kind = CRecordingMessages::Kind;
using Mode = CLogbookView::ViewMode;

namespace {

CTestLogbook TwoJumps()
{
    CTestLogbook logbook;
    logbook.Jump(1, "2024-05-01T10:00:00Z", "Tervola", 4000, 1000, 60)
        .Jump(2, "2024-05-02T10:00:00+02", "Kemi", 4000, 1000, 60, {}, "Instructor");
    return logbook;
}

// 10 June 2024 moved by days, as the file writes it.
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

    void startsEmptyWithoutLastFile()
    {
        CAppHarness harness;
        QVERIFY(harness.Start());
        QCOMPARE(harness.View()->GetViewMode(), Mode::Empty);
        QVERIFY(harness.Frame()->isVisible());
        QVERIFY(harness.messages.boxes.isEmpty());
    }

    void reopensLastFile()
    {
        CAppHarness harness;
        const QString path = harness.Write(TwoJumps(), "last.tvz");
        harness.SetLastFile(path);
        QVERIFY(harness.Start());
        QCOMPARE(harness.View()->GetViewMode(), Mode::Home);
        QCOMPARE(QString::fromStdString(harness.Frame()->GetDocument().GetPath()), path);
        QCOMPARE(harness.Frame()->GetDocument().GetJumpCount(), std::size_t(2));
        QVERIFY(harness.Frame()->windowTitle().startsWith("last.tvz"));
        QVERIFY(harness.messages.boxes.isEmpty());
    }

    void missingLastFileIsIgnoredSilently()
    {
        CAppHarness harness;
        harness.SetLastFile(harness.Path("gone.tvz"));
        QVERIFY(harness.Start());
        QCOMPARE(harness.View()->GetViewMode(), Mode::Empty);
        QVERIFY(harness.messages.boxes.isEmpty());
    }

    // A damaged last file shows the load's own message only, not "could not be opened".
    void unreadableLastFileShowsOnlyTheLoadMessage()
    {
        CAppHarness harness;
        QString text = TwoJumps().Xml().replace("version=\"1.2\"", "version=\"2.0\"");
        QFile file(harness.Path("future.tvl"));
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write(text.toUtf8());
        file.close();
        harness.SetLastFile(file.fileName());
        QVERIFY(harness.Start());
        QCOMPARE(harness.View()->GetViewMode(), Mode::Empty);
        QCOMPARE(harness.messages.boxes.size(), 1);
        QCOMPARE(harness.messages.boxes[0].kind, Kind::Error);
        QVERIFY(harness.messages.boxes[0].text.startsWith("The file version (2.0) can not be processed."));
    }

    void commandLineLogbookComesBeforeLastFile()
    {
        CAppHarness harness;
        harness.SetLastFile(harness.Write(TwoJumps(), "last.tvz"));
        CTestLogbook other;
        other.Jump(9, "2024-05-03T10:00:00Z", "Utti", 4000, 1000, 60);
        const QString path = harness.Write(other, "other.tvl");
        QVERIFY(harness.Start({path}));
        QCOMPARE(QString::fromStdString(harness.Frame()->GetDocument().GetPath()), path);
        QCOMPARE(harness.Frame()->GetDocument().GetJumpCount(), std::size_t(1));
        QCOMPARE(harness.LastFile(), path);
    }

    void commandLineFileThatFailsIsReported()
    {
        CAppHarness harness;
        harness.SetLastFile(harness.Write(TwoJumps(), "last.tvz"));
        QVERIFY(harness.Start({harness.Path("missing.tvz")}));
        QCOMPARE(harness.View()->GetViewMode(), Mode::Empty);
        QCOMPARE(harness.messages.Texts(Kind::Error), QStringList{"The file could not be opened."});
    }

    void splashStaysThroughStartupAndSwallowsFirstTap()
    {
        CAppHarness harness;
        harness.SetLastFile(harness.Write(TwoJumps(), "last.tvz"));
        QVERIFY(harness.Start());
        CSplashWnd* splash = CSplashWnd::Instance();
        QVERIFY(splash);
        QVERIFY(splash->isVisible());
        QVERIFY(splash->IsClosable());
        QCOMPARE(splash->geometry(), harness.View()->rect());

        auto* button = harness.View()->findChild<QToolButton*>("jumpListButton");
        QSignalSpy clicks(button, &QToolButton::clicked);
        QTest::mouseClick(button, Qt::LeftButton);
        QCOMPARE(clicks.count(), 0);
        QVERIFY(!CSplashWnd::Instance());
        QTest::mouseClick(button, Qt::LeftButton);
        QCOMPARE(clicks.count(), 1);
        QCOMPARE(harness.View()->GetViewMode(), Mode::JumpList);
    }

    void splashSwallowsFirstKeyIncludingShortcuts()
    {
        CAppHarness harness;
        QVERIFY(harness.Start());
        harness.Frame()->activateWindow();
        QVERIFY(CSplashWnd::Instance());
        QTest::keyClick(harness.Frame(), Qt::Key_O, Qt::ControlModifier);
        QVERIFY(!CSplashWnd::Instance());
        QVERIFY(harness.files.asked.isEmpty()); // Ctrl+O did not reach the Open command
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
            store.Sync();
        }
        CQSettingsStore store(ini);
        QCOMPARE(QString::fromStdString(store.GetString("General", "LastFile", "")),
                 QString("/home/jumper/Jumps ä.tvz"));
        QCOMPARE(store.GetInt("Preferences", "Units", 0), 1);
        QCOMPARE(store.GetInt("Jump", "HasTime", 7), 7);          // not a number
        QCOMPARE(store.GetInt("Preferences", "Absent", -3), -3);  // absent
        QCOMPARE(QString::fromStdString(store.GetString("Preferences", "LastFile", "none")), QString("none"));
    }

    // Membership expiry or rig inspection relative to today (10 June 2024) with 10 alarm days.
    void reminders_data()
    {
        QTest::addColumn<CTestLogbook>("logbook");
        QTest::addColumn<QStringList>("expected");
        const QString member = "Your membership/license will expire %1.";
        const QString rig = "Equipment %1 needs to be inspected %2.";
        QTest::newRow("expiry 30 days ahead") << CTestLogbook().Membership(Day(30), 10) << QStringList();
        QTest::newRow("expiry 11 days ahead") << CTestLogbook().Membership(Day(11), 10) << QStringList();
        QTest::newRow("expiry on the alarm day") << CTestLogbook().Membership(Day(10), 10)
                                                 << QStringList{member.arg("6/20/24")};
        QTest::newRow("expiry 5 days ahead") << CTestLogbook().Membership(Day(5), 10)
                                             << QStringList{member.arg("6/15/24")};
        QTest::newRow("expired") << CTestLogbook().Membership(Day(-3), 10) << QStringList{member.arg("6/7/24")};
        QTest::newRow("no alarm") << CTestLogbook().Membership(Day(5), -1) << QStringList();
        QTest::newRow("inspection due on the alarm day")
            << CTestLogbook().RigAlarm(10, 180).Rig(3, true, Day(-170)) << QStringList{rig.arg(3).arg("6/20/24")};
        QTest::newRow("inspection a day before the window")
            << CTestLogbook().RigAlarm(10, 180).Rig(3, true, Day(-169)) << QStringList();
        QTest::newRow("rig not tracked") << CTestLogbook().RigAlarm(10, 180).Rig(3, false, Day(-400))
                                         << QStringList();
        QTest::newRow("two rigs after the membership, in list order")
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
        harness.View()->OnFileOpen();
        harness.View()->OnFileOpen();
        QCOMPARE(harness.messages.Texts(Kind::Information).size(), 2);
        QCOMPARE(harness.messages.boxes.size(), 2);
    }
};

Q_DECLARE_METATYPE(CTestLogbook)

QTEST_MAIN(TestStartup)
#include "test_app_startup.moc"
