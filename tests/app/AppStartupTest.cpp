// Start-up of the real main window: the logbook used last, the command line, the splash, the
// settings store on QSettings and the reminders.

#include "CAppHarness.h"

#include "app/CQSettingsStore.h"

#include <QSignalSpy>
#include <QToolButton>
#include <QtTest>

using Kind = CRecordingMessages::Kind;
using Mode = CLogbookView::ViewMode;

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

    // The logbook opened at start: the one used last or the one on the command line ("good",
    // "other", "missing", "future" of version 2.0), and the error boxes on the way.
    void startLogbook()
    {
        const QString future = "The file version (2.0) can not be processed. Please install an actual version of "
                               "Tervola or contact support@tervola.example.org";
        using Row = std::tuple<const char*, QString, QString, QString, QStringList>; // last, argument, opened, errors
        const Row rows[] = {
            {"nothing used yet", {}, {}, {}, {}},
            {"last file", "good.tvz", {}, "good.tvz", {}},
            {"last file gone: silent", "missing.tvz", {}, {}, {}},
            {"last file unreadable: its message only", "future.tvl", {}, {}, {future}},
            {"command line before last file", "good.tvz", "other.tvl", "other.tvl", {}},
            {"command line file missing", "good.tvz", "missing.tvz", {}, {"The file could not be opened."}}};
        for (const auto& [name, lastFile, argument, opened, errors] : rows) {
            const CRow trace{name};
            CAppHarness harness;
            harness.Write(CTestLogbook().Jumps(1, 1), "good.tvz");
            harness.Write(CTestLogbook().Jumps(9, 9), "other.tvl");
            harness.WriteFile("future.tvl", CTestLogbook().Jumps(1, 1).Xml().replace("\"1.2\"", "\"2.0\"").toUtf8());
            if (!lastFile.isEmpty())
                harness.SetLastFile(harness.Path(lastFile));
            QVERIFY(harness.Start(argument.isEmpty() ? QStringList() : QStringList{harness.Path(argument)}));

            QVERIFY(harness.Frame()->isVisible());
            QCOMPARE(harness.messages.Texts(Kind::Error), errors);
            QCOMPARE(harness.messages.boxes.size(), errors.size());
            QCOMPARE(QString::fromStdString(harness.Doc().GetPath()),
                     opened.isEmpty() ? QString() : harness.Path(opened));
            QCOMPARE(harness.View()->Mode(), opened.isEmpty() ? Mode::Empty : Mode::Home);
            if (!opened.isEmpty()) {
                QCOMPARE(harness.LastFile(), harness.Path(opened));
                QVERIFY(harness.Frame()->windowTitle().startsWith(opened));
            }
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

        // Left alone, the splash closes after its time.
        CAppHarness third;
        QVERIFY(third.Start() && CSplashWnd::Instance());
        QTRY_VERIFY_WITH_TIMEOUT(!CSplashWnd::Instance(), 3000);
    }

    void settingsStoreKeepsSectionsAndTypes()
    {
        QTemporaryDir folder;
        const QString ini = folder.filePath("settings.ini");
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

    // With no unit preference stored the window follows the system's measurement system; a stored
    // choice wins.
    void unitsFollowTheSystemUntilChosen()
    {
        const struct
        {
            QLocale::Language language;
            QLocale::Territory territory;
            int units;
        } systems[] = {{QLocale::German, QLocale::Germany, 1},
                       {QLocale::Finnish, QLocale::Finland, 1},
                       {QLocale::English, QLocale::UnitedStates, 0}};
        for (const auto& system : systems) {
            const int units = CLogbookApp::DefaultUnits(QLocale(system.language, system.territory));
            QCOMPARE(units, system.units);
            CAppHarness harness;
            harness.defaultUnits = units;
            QVERIFY(harness.Start());
            QCOMPARE(harness.Frame()->Units().IsMetric(), units == 1);
        }
        CAppHarness chosen;
        chosen.defaultUnits = 1;
        chosen.settings.SetInt("Preferences", "Units", 0);
        QVERIFY(chosen.Start());
        QVERIFY(!chosen.Frame()->Units().IsMetric());
    }

    // Expiry or inspection relative to today with 10 alarm days; which days are due is tested
    // in the core, here the boxes: their kind, order and date text, at start and after every
    // Open, but none without a logbook.
    void reminders()
    {
        const QString member = "Your membership/license will expire %1.";
        const QString rig = "Equipment %1 needs to be inspected %2.";
        const QStringList due = {member.arg("6/12/24"), rig.arg(8).arg("6/15/24"), rig.arg(2).arg("2/11/24")};
        const CTestLogbook logbook =
            CTestLogbook().Membership(Day(2), 10).RigAlarm(10, 180).Rig(8, true, Day(-175)).Rig(2, true, Day(-300));
        CAppHarness atStart;
        atStart.SetLastFile(atStart.Write(logbook, "due.tvz"));
        QVERIFY(atStart.Start());
        QCOMPARE(atStart.messages.Texts(Kind::Information), due);
        QCOMPARE(atStart.messages.boxes.size(), 3);

        CAppHarness harness;
        QVERIFY(harness.Start());
        harness.Frame()->CheckReminders();
        QVERIFY(harness.messages.boxes.isEmpty());
        harness.files.openAnswers = {harness.Write(CTestLogbook().Membership(Day(30), 10), "later.tvz"),
                                     harness.Write(logbook, "due.tvz")};
        harness.Commands()->OnFileOpen(); // nothing due
        harness.Commands()->OnFileOpen();
        QCOMPARE(harness.messages.Texts(Kind::Information), due);
        QCOMPARE(harness.messages.boxes.size(), 3);

        // An expiry date already passed is told as passed.
        harness.messages.boxes.clear();
        harness.files.openAnswers = {harness.Write(CTestLogbook().Membership(Day(-3), 10), "expired.tvz")};
        harness.Commands()->OnFileOpen();
        QCOMPARE(harness.messages.Texts(Kind::Information), QStringList{"Your membership/license expired on 6/7/24."});
    }
};

QTEST_MAIN(TestStartup)
#include "AppStartupTest.moc"
