// Saving in the background on the real main window: the window goes on while a save runs, a
// second request waits for the first, edits made meanwhile keep the logbook modified, a failed
// save shows 4002, closing waits for a running save, a file changed by another program is not
// overwritten without the user's choice, and a second instance is warned.

#include "CAppHarness.h"

#include "app/CLogbookCommands.h"
#include "app/CLogbookView.h"
#include "app/CMainFrame.h"
#include "app/CProgressWait.h"
#include "xml/CIoProgress.h"

#include <QAction>
#include <QDir>
#include <QFile>
#include <QPushButton>
#include <QtTest>

#include <unistd.h>

using Kind = CRecordingMessages::Kind;
using Answer = IMessageSink::Answer;

class TestSave : public QObject
{
    Q_OBJECT

private slots:
    void aSaveRunsWhileTheWindowGoesOnAndASecondRequestWaits()
    {
        CAppHarness harness;
        const QString path = harness.StartWith(CTestLogbook().Jumps(1, 4));
        CBackgroundSaver* saver = harness.Commands()->GetSaver();
        harness.DeleteFirstJump();
        harness.Commands()->OnFileSave();
        // The command returned at once; the document learns of the save only when it has ended.
        QVERIFY(saver->IsBusy());
        QVERIFY(harness.Doc().IsModified());
        harness.Commands()->OnFileSave(); // waits for the first, nothing changed meanwhile
        harness.DeleteFirstJump();        // the records the save reads are its own
        harness.Commands()->OnFileSave(); // replaces the waiting request
        QCOMPARE(saver->SavesStarted(), 1);
        harness.Commands()->WaitForSaves();
        QCOMPARE(saver->SavesStarted(), 2);
        QCOMPARE(CAppHarness::JumpsInFile(path), 2);
        QVERIFY(!harness.Doc().IsModified());

        // A request that waits for nothing but the same file is dropped.
        harness.DeleteFirstJump();
        harness.Commands()->OnFileSave();
        harness.Frame()->OnApplicationStateChanged(Qt::ApplicationInactive);
        harness.Commands()->WaitForSaves();
        QCOMPARE(saver->SavesStarted(), 3);
        QCOMPARE(CAppHarness::JumpsInFile(path), 1);
        QVERIFY(harness.messages.boxes.isEmpty());
    }

    void editsDuringASaveKeepTheLogbookModified()
    {
        CAppHarness harness;
        const QString path = harness.StartWith(CTestLogbook().Jumps(1, 4));
        harness.Frame()->OnApplicationStateChanged(Qt::ApplicationInactive); // unmodified: nothing to save
        QCOMPARE(harness.Commands()->GetSaver()->SavesStarted(), 0);
        harness.DeleteFirstJump();
        harness.Frame()->OnApplicationStateChanged(Qt::ApplicationActive);
        QCOMPARE(harness.Commands()->GetSaver()->SavesStarted(), 0);
        harness.Frame()->OnApplicationStateChanged(Qt::ApplicationInactive);
        harness.DeleteFirstJump();
        harness.Commands()->WaitForSaves();
        QCOMPARE(CAppHarness::JumpsInFile(path), 3); // what the logbook held when the save began
        QVERIFY(harness.Doc().IsModified());
        QVERIFY(harness.Frame()->findChild<QAction*>("fileSaveAction")->isEnabled());
    }

    // A save that cannot write shows 4002 whatever started it, and the logbook stays modified.
    void aFailedSaveShows4002_data()
    {
        QTest::addColumn<bool>("automatic");
        QTest::newRow("Save") << false;
        QTest::newRow("automatic save") << true;
    }

    void aFailedSaveShows4002()
    {
        QFETCH(bool, automatic);
        CAppHarness harness;
        const QString path = harness.StartWith(CTestLogbook().Jumps(1, 3));
        QVERIFY(QDir().mkpath(path + ".saving")); // the temporary file cannot be made
        harness.DeleteFirstJump();
        if (automatic)
            harness.Frame()->OnApplicationStateChanged(Qt::ApplicationInactive);
        else
            harness.Commands()->OnFileSave();
        harness.Commands()->WaitForSaves();
        QCOMPARE(harness.messages.Texts(Kind::Error), QStringList{"The file could not be saved."});
        QVERIFY(harness.Doc().IsModified());
        QCOMPARE(CAppHarness::JumpsInFile(path), 3);
    }

    void closingWaitsForARunningSave()
    {
        CAppHarness harness;
        const QString path = harness.StartWith(CTestLogbook().Jumps(1, 3));
        harness.DeleteFirstJump();
        harness.Commands()->OnFileSave();
        harness.messages.yesNoCancelAnswer = Answer::Cancel;
        harness.Frame()->findChild<QAction*>("exitAction")->trigger();
        // The save ended before the question would have come: nothing left to ask.
        QVERIFY(harness.messages.Texts(Kind::YesNoCancel).isEmpty());
        QVERIFY(!harness.Frame()->isVisible());
        QCOMPARE(CAppHarness::JumpsInFile(path), 2);
    }

    // Another program wrote the file after it was opened: neither Save nor the automatic save
    // overwrites it; the user chooses.
    void aChangedFileIsNotOverwritten_data()
    {
        QTest::addColumn<bool>("automatic");
        QTest::addColumn<int>("choice");
        QTest::addColumn<int>("jumpsInFile");
        QTest::addColumn<int>("jumpsInWindow");
        QTest::addColumn<bool>("modified");
        QTest::addColumn<int>("jumpsInCopy");
        QTest::newRow("cancel") << false << -1 << 5 << 2 << true << -1;
        QTest::newRow("keep mine under a new name") << false << 0 << 5 << 2 << false << 2;
        QTest::newRow("load theirs") << false << 1 << 5 << 5 << false << -1;
        QTest::newRow("overwrite") << false << 2 << 2 << 2 << false << -1;
        QTest::newRow("automatic, cancel") << true << -1 << 5 << 2 << true << -1;
        QTest::newRow("automatic, overwrite") << true << 2 << 2 << 2 << false << -1;
    }

    void aChangedFileIsNotOverwritten()
    {
        QFETCH(bool, automatic);
        QFETCH(int, choice);
        QFETCH(int, jumpsInFile);
        QFETCH(int, jumpsInWindow);
        QFETCH(bool, modified);
        QFETCH(int, jumpsInCopy);
        CAppHarness harness;
        const QString path = harness.StartWith(CTestLogbook().Jumps(1, 3));
        harness.DeleteFirstJump();
        QVERIFY(!harness.Write(CTestLogbook().Jumps(1, 5), "jumps.tvz").isEmpty()); // theirs
        harness.messages.choiceAnswers = {choice};
        harness.files.saveAnswers = {harness.Path("mine.tvz")};
        if (automatic)
            harness.Frame()->OnApplicationStateChanged(Qt::ApplicationInactive);
        else
            harness.Commands()->OnFileSave();
        harness.Commands()->WaitForSaves();

        const QStringList asked = harness.messages.Texts(Kind::Choice);
        QCOMPARE(asked.size(), 1);
        QVERIFY(asked[0].startsWith("The file was changed by another program after it was opened here."));
        QVERIFY(asked[0].endsWith("\nSave as...|Load theirs|Overwrite"));
        QCOMPARE(CAppHarness::JumpsInFile(path), jumpsInFile);
        QCOMPARE(int(harness.Doc().GetJumpCount()), jumpsInWindow);
        QCOMPARE(harness.Doc().IsModified(), modified);
        QCOMPARE(CAppHarness::JumpsInFile(harness.Path("mine.tvz")), jumpsInCopy);
        QVERIFY(harness.messages.Texts(Kind::Error).isEmpty());
    }

    // While the window waits for a save or a load, its own input is held back, but a message
    // box that the end of a save shows (a window of its own) still takes clicks.
    void aWaitHoldsBackOnlyTheWindowsInput()
    {
        QWidget window;
        auto* inWindow = new QPushButton(QStringLiteral("in"), &window);
        QPushButton box(QStringLiteral("box"));
        window.show();
        box.show();
        int windowClicks = 0;
        int boxClicks = 0;
        connect(inWindow, &QPushButton::clicked, [&] { ++windowClicks; });
        connect(&box, &QPushButton::clicked, [&] { ++boxClicks; });
        CIoProgress progress;
        CProgressWait wait(&window, QStringLiteral("Saving"), progress);
        QTimer::singleShot(0, [&] {
            QTest::mouseClick(inWindow, Qt::LeftButton);
            QTest::mouseClick(&box, Qt::LeftButton);
            wait.Finish();
        });
        wait.Exec();
        QCOMPARE(windowClicks, 0);
        QCOMPARE(boxClicks, 1);
        QTest::mouseClick(inWindow, Qt::LeftButton);
        QCOMPARE(windowClicks, 1);
    }

    void aSecondInstanceIsWarned()
    {
        CAppHarness first;
        const QString path = first.StartWith(CTestLogbook().Jumps(1, 2));
        QVERIFY(first.messages.Texts(Kind::Warning).isEmpty());
        {
            CAppHarness second;
            QVERIFY(second.StartWithoutSplash({path}));
            const QStringList warnings = second.messages.Texts(Kind::Warning);
            QCOMPARE(warnings.size(), 1);
            QVERIFY(warnings[0].startsWith("This logbook is already open in another Tervola Pocket (process " +
                                           QString::number(::getpid())));
            QCOMPARE(int(second.Doc().GetJumpCount()), 2); // opened all the same
        }
        first.app.reset(); // the first instance ends
        CAppHarness third;
        QVERIFY(third.StartWithoutSplash({path}));
        QVERIFY(third.messages.Texts(Kind::Warning).isEmpty());
    }
};

QTEST_MAIN(TestSave)
#include "AppSaveTest.moc"
