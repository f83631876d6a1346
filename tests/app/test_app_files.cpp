// The File commands on the real main window: New, Open, Save, Save as, their enabled states,
// the question when closing with changes, and the automatic save on deactivation.

#include "CAppHarness.h"

#include "app/CLogbookView.h"
#include "app/CMainFrame.h"

#include <QAction>
#include <QFile>
#include <QLocale>
#include <QMenu>
#include <QMenuBar>
#include <QToolBar>
#include <QTreeWidget>
#include <QtTest>

using Kind = CRecordingMessages::Kind;
using Mode = CLogbookView::ViewMode;
using Answer = IMessageSink::Answer;

namespace {

CTestLogbook ThreeJumps()
{
    CTestLogbook logbook;
    logbook.Jump(1, "2024-05-01T10:00:00Z", "Tervola", 4000, 1000, 60)
        .Jump(2, "2024-05-02T10:00:00Z", "Kemi", 4000, 1000, 60)
        .Jump(3, "2024-05-03T10:00:00Z", "Utti", 4000, 1000, 60);
    return logbook;
}

QAction* Action(CAppHarness& harness, const char* name)
{
    return harness.Frame()->findChild<QAction*>(name);
}

// The number of jumps a saved file holds, read back with a fresh document.
int JumpsInFile(const QString& path)
{
    CLogbookDoc doc;
    return doc.Load(QFile::encodeName(path).toStdString()) ? int(doc.GetJumpCount()) : -1;
}

// Deletes the first jump through the list, so that the logbook is modified.
void DeleteFirstJump(CAppHarness& harness)
{
    harness.View()->OnViewJumpList();
    auto* list = harness.View()->findChild<QTreeWidget*>("jumpList1188");
    list->setCurrentItem(list->topLevelItem(0));
    harness.View()->OnJumpDelete();
}

} // namespace

class TestFiles : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedStates)); }

    void menuHasTheFileCommandsInOrder()
    {
        CAppHarness harness;
        QVERIFY(harness.StartWithoutSplash());
        const QList<QAction*> menus = harness.Frame()->menuBar()->actions();
        QCOMPARE(menus.size(), 1);
        QCOMPARE(menus[0]->text(), QString("&File"));
        QStringList items;
        for (QAction* action : menus[0]->menu()->actions())
            items << (action->isSeparator() ? QString("-") : action->text());
        QCOMPARE(items, (QStringList{"New...", "Open...", "Save", "Save as...", "-", "About Tervola Pocket...", "-",
                                     "E&xit"}));
        QVERIFY(harness.Frame()->GetCommandBar()->isVisible());
    }

    // New, Open always; Save with changes; Save as and About while a logbook is open.
    void commandsEnabledByState()
    {
        CAppHarness harness;
        harness.SetLastFile(harness.Write(ThreeJumps(), "jumps.tvz"));
        QVERIFY(harness.StartWithoutSplash());
        const auto states = [&] {
            QString text;
            for (const char* name : {"fileNewAction", "fileOpenAction", "fileSaveAction", "fileSaveAsAction",
                                     "aboutAction", "exitAction"})
                text += Action(harness, name)->isEnabled() ? '1' : '0';
            return text;
        };
        QCOMPARE(states(), QString("110111"));
        DeleteFirstJump(harness);
        QCOMPARE(states(), QString("111111"));
        harness.View()->OnFileSave();
        QCOMPARE(states(), QString("110111"));
        harness.Frame()->GetDocument().Clear();
        harness.View()->Refresh();
        QCOMPARE(states(), QString("110001"));
    }

    void newLogbookIsSavedAtOnce()
    {
        CAppHarness harness;
        QVERIFY(harness.StartWithoutSplash());
        const QString path = harness.Path("fresh.tvz");
        harness.files.saveAnswers = {path};
        harness.View()->OnFileNew();
        QVERIFY(harness.messages.boxes.isEmpty());
        QVERIFY(QFile::exists(path));
        QCOMPARE(JumpsInFile(path), 0);
        QCOMPARE(harness.View()->GetViewMode(), Mode::Home);
        QCOMPARE(harness.LastFile(), path);
        QVERIFY(!harness.Frame()->GetDocument().IsModified());
    }

    void newLogbookThatCannotBeWrittenReports4000()
    {
        CAppHarness harness;
        harness.SetLastFile(harness.Write(ThreeJumps(), "jumps.tvz"));
        QVERIFY(harness.StartWithoutSplash());
        const QString path = harness.Path("no-such-folder/fresh.tvz");
        harness.files.saveAnswers = {path};
        harness.View()->OnFileNew();
        QCOMPARE(harness.messages.Texts(Kind::Error),
                 QStringList{"An error occured while writing the tervola file."});
        QVERIFY(!QFile::exists(path));
        QCOMPARE(harness.View()->GetViewMode(), Mode::Empty);
        QVERIFY(!harness.Frame()->GetDocument().HasPath());
    }

    void cancelledDialogsChangeNothing()
    {
        CAppHarness harness;
        const QString path = harness.Write(ThreeJumps(), "jumps.tvz");
        harness.SetLastFile(path);
        QVERIFY(harness.StartWithoutSplash());
        harness.View()->OnFileNew();
        harness.View()->OnFileOpen();
        harness.View()->OnFileSaveAs();
        QCOMPARE(harness.files.asked.size(), 3);
        QCOMPARE(harness.files.asked[0], harness.folder.path()); // dialogs start in the logbook's folder
        QCOMPARE(QString::fromStdString(harness.Frame()->GetDocument().GetPath()), path);
        QVERIFY(harness.messages.boxes.isEmpty());
    }

    // A bad file: its own message (if any), then 4001; the open logbook and the page stay.
    void openOfABadFileKeepsThePreviousState_data()
    {
        QTest::addColumn<QByteArray>("content");
        QTest::addColumn<QStringList>("errors");
        QTest::newRow("not a logbook") << QByteArray("<?xml version=\"1.0\" ?><html></html>")
                                       << QStringList{"The file is no valid tervola file.",
                                                      "The file could not be opened."};
        QTest::newRow("newer version")
            << QByteArray("<?xml version=\"1.0\" ?><tvl version=\"1.3\"></tvl>")
            << QStringList{"The file version (1.3) can not be processed. Please install an actual version of "
                           "Tervola or contact support@tervola.example.org",
                           "The file could not be opened."};
    }

    void openOfABadFileKeepsThePreviousState()
    {
        QFETCH(QByteArray, content);
        QFETCH(QStringList, errors);
        CAppHarness harness;
        const QString good = harness.Write(ThreeJumps(), "jumps.tvz");
        harness.SetLastFile(good);
        QVERIFY(harness.StartWithoutSplash());
        harness.View()->OnViewJumpList();

        QFile bad(harness.Path("bad.tvl"));
        QVERIFY(bad.open(QIODevice::WriteOnly));
        bad.write(content);
        bad.close();
        harness.files.openAnswers = {bad.fileName()};
        harness.View()->OnFileOpen();

        QCOMPARE(harness.messages.Texts(Kind::Error), errors);
        QCOMPARE(harness.messages.boxes.size(), errors.size());
        QCOMPARE(QString::fromStdString(harness.Frame()->GetDocument().GetPath()), good);
        QCOMPARE(harness.Frame()->GetDocument().GetJumpCount(), std::size_t(3));
        QCOMPARE(harness.View()->GetViewMode(), Mode::JumpList);
        QCOMPARE(harness.LastFile(), good);
    }

    void openOfAGoodFileShowsItsHomePage()
    {
        CAppHarness harness;
        harness.SetLastFile(harness.Write(ThreeJumps(), "jumps.tvz"));
        QVERIFY(harness.StartWithoutSplash());
        harness.View()->OnViewJumpList();
        const QString other = harness.Write(CTestLogbook().Jump(5, "2024-05-05T10:00:00Z", "Kemi", 4000, 1000, 60),
                                            "other.TVL");
        harness.files.openAnswers = {other};
        harness.View()->OnFileOpen();
        QVERIFY(harness.messages.boxes.isEmpty());
        QCOMPARE(harness.View()->GetViewMode(), Mode::Home);
        QCOMPARE(harness.Frame()->GetDocument().GetJumpCount(), std::size_t(1));
        QCOMPARE(harness.LastFile(), other);
    }

    void saveAsWritesTheNewFile()
    {
        CAppHarness harness;
        harness.SetLastFile(harness.Write(ThreeJumps(), "jumps.tvz"));
        QVERIFY(harness.StartWithoutSplash());
        DeleteFirstJump(harness);
        const QString copy = harness.Path("copy.tvz");
        harness.files.saveAnswers = {copy};
        harness.View()->OnFileSaveAs();
        QVERIFY(harness.Frame()->findChild<QAction*>("fileSaveAction")->isEnabled() == false);
        QCOMPARE(JumpsInFile(copy), 2);
        QCOMPARE(JumpsInFile(harness.Path("jumps.tvz")), 3);
        QCOMPARE(harness.LastFile(), copy);
        QVERIFY(harness.Frame()->windowTitle().startsWith("copy.tvz"));
    }

    void saveAsThatFailsReports4002()
    {
        CAppHarness harness;
        harness.SetLastFile(harness.Write(ThreeJumps(), "jumps.tvz"));
        QVERIFY(harness.StartWithoutSplash());
        harness.files.saveAnswers = {harness.Path("missing/copy.tvz")};
        harness.View()->OnFileSaveAs();
        QCOMPARE(harness.messages.Texts(Kind::Error), QStringList{"The file could not be saved."});
        QCOMPARE(QString::fromStdString(harness.Frame()->GetDocument().GetPath()), harness.Path("jumps.tvz"));
    }

    void closingWithChangesAsks_data()
    {
        QTest::addColumn<int>("answer");
        QTest::addColumn<bool>("closed");
        QTest::addColumn<int>("jumpsInFile");
        QTest::newRow("yes saves and closes") << int(Answer::Yes) << true << 2;
        QTest::newRow("no closes without saving") << int(Answer::No) << true << 3;
        QTest::newRow("cancel stays open") << int(Answer::Cancel) << false << 3;
    }

    void closingWithChangesAsks()
    {
        QFETCH(int, answer);
        QFETCH(bool, closed);
        QFETCH(int, jumpsInFile);
        CAppHarness harness;
        const QString path = harness.Write(ThreeJumps(), "jumps.tvz");
        harness.SetLastFile(path);
        QVERIFY(harness.StartWithoutSplash());
        DeleteFirstJump(harness);
        harness.messages.boxes.clear();
        harness.messages.yesNoCancelAnswer = Answer(answer);
        Action(harness, "exitAction")->trigger();
        QCOMPARE(harness.messages.Texts(Kind::YesNoCancel), QStringList{"Save changes to jumps.tvz?"});
        QCOMPARE(harness.Frame()->isVisible(), !closed);
        QCOMPARE(JumpsInFile(path), jumpsInFile);
    }

    void closingWithoutChangesDoesNotAsk()
    {
        CAppHarness harness;
        harness.SetLastFile(harness.Write(ThreeJumps(), "jumps.tvz"));
        QVERIFY(harness.StartWithoutSplash());
        QVERIFY(harness.Frame()->close());
        QVERIFY(harness.messages.boxes.isEmpty());
    }

    void openWithChangesAsksFirst()
    {
        CAppHarness harness;
        const QString path = harness.Write(ThreeJumps(), "jumps.tvz");
        harness.SetLastFile(path);
        QVERIFY(harness.StartWithoutSplash());
        DeleteFirstJump(harness);
        harness.messages.yesNoCancelAnswer = Answer::Cancel;
        harness.View()->OnFileOpen();
        QVERIFY(harness.files.asked.isEmpty()); // cancelled before the dialog
        QVERIFY(harness.Frame()->GetDocument().IsModified());
    }

    void deactivationSavesAModifiedLogbook()
    {
        CAppHarness harness;
        const QString path = harness.Write(ThreeJumps(), "jumps.tvz");
        harness.SetLastFile(path);
        QVERIFY(harness.StartWithoutSplash());
        harness.Frame()->OnApplicationStateChanged(Qt::ApplicationInactive);
        QVERIFY(!QFile::exists(harness.Path("jumps.bak"))); // unmodified: nothing written
        DeleteFirstJump(harness);
        harness.Frame()->OnApplicationStateChanged(Qt::ApplicationActive);
        QCOMPARE(JumpsInFile(path), 3);
        harness.Frame()->OnApplicationStateChanged(Qt::ApplicationInactive);
        QCOMPARE(JumpsInFile(path), 2);
        QVERIFY(!harness.Frame()->GetDocument().IsModified());
        QVERIFY(!Action(harness, "fileSaveAction")->isEnabled());
    }

    void aboutShowsTheProgram()
    {
        CAppHarness harness;
        harness.SetLastFile(harness.Write(ThreeJumps(), "jumps.tvz"));
        QVERIFY(harness.StartWithoutSplash());
        Action(harness, "aboutAction")->trigger();
        QCOMPARE(harness.messages.boxes.size(), 1);
        QCOMPARE(harness.messages.boxes[0].kind, Kind::About);
        QVERIFY(harness.messages.boxes[0].text.contains("Tervola Pocket 1.0.0"));
    }
};

QTEST_MAIN(TestFiles)
#include "test_app_files.moc"
