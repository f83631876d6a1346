// Saving in the background on the real main window: the window goes on while a save runs, a
// second request waits for the first, edits made meanwhile keep the logbook modified, a failed
// save shows 4002, closing waits for a running save, a file changed by another program is not
// overwritten without the user's choice, and a second instance is warned.

#include "CAppHarness.h"

#include "app/CProgressWait.h"
#include "xml/CIoProgress.h"

#include <QAction>
#include <QDir>
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
        CBackgroundSaver* saver = harness.Commands()->Saver();
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

    // An edit while the automatic save runs keeps the logbook modified; closing then waits for
    // the next save, which ends before the question would come: nothing is left to ask.
    void editsDuringASaveAndClosingWhileOneRuns()
    {
        CAppHarness harness;
        const QString path = harness.StartWith(CTestLogbook().Jumps(1, 4));
        harness.Frame()->OnApplicationStateChanged(Qt::ApplicationInactive); // unmodified: nothing to save
        QCOMPARE(harness.Commands()->Saver()->SavesStarted(), 0);
        harness.DeleteFirstJump();
        harness.Frame()->OnApplicationStateChanged(Qt::ApplicationActive);
        QCOMPARE(harness.Commands()->Saver()->SavesStarted(), 0);
        harness.Frame()->OnApplicationStateChanged(Qt::ApplicationInactive);
        harness.DeleteFirstJump();
        harness.Commands()->WaitForSaves();
        QCOMPARE(CAppHarness::JumpsInFile(path), 3); // what the logbook held when the save began
        QVERIFY(harness.Doc().IsModified());
        QVERIFY(harness.Frame()->findChild<QAction*>("fileSaveAction")->isEnabled());

        harness.Commands()->OnFileSave();
        harness.messages.yesNoCancelAnswer = Answer::Cancel;
        harness.Frame()->findChild<QAction*>("exitAction")->trigger();
        QVERIFY(harness.messages.Texts(Kind::YesNoCancel).isEmpty());
        QVERIFY(!harness.Frame()->isVisible());
        QCOMPARE(CAppHarness::JumpsInFile(path), 2);
    }

    // Another program wrote the file after it was opened: neither Save nor the automatic save
    // overwrites it; the user chooses. A save that cannot write shows 4002 whatever started it.
    void aChangedFileIsNotOverwrittenAndAFailedSaveShows4002()
    {
        // automatic, choice (-1 Cancel, -2 the save fails), jumps in the file, in the window, modified, in the copy
        using Row = std::tuple<const char*, bool, int, int, int, bool, int>;
        const Row rows[] = {
            {"cancel", false, -1, 5, 2, true, -1},           {"keep mine under a new name", false, 0, 5, 2, false, 2},
            {"load theirs", false, 1, 5, 5, false, -1},      {"overwrite", false, 2, 2, 2, false, -1},
            {"automatic, cancel", true, -1, 5, 2, true, -1}, {"automatic, overwrite", true, 2, 2, 2, false, -1},
            {"save fails", false, -2, 3, 2, true, -1},       {"automatic save fails", true, -2, 3, 2, true, -1}};
        for (const auto& [name, automatic, choice, jumpsInFile, jumpsInWindow, modified, jumpsInCopy] : rows) {
            const CRow trace{name};
            CAppHarness harness;
            const QString path = harness.StartWith(CTestLogbook().Jumps(1, 3));
            harness.DeleteFirstJump();
            if (choice == -2)
                QVERIFY(QDir().mkpath(path + ".saving")); // the temporary file cannot be made
            else
                QVERIFY(!harness.Write(CTestLogbook().Jumps(1, 5), "jumps.tvz").isEmpty()); // theirs
            harness.messages.choiceAnswers = {choice};
            harness.files.saveAnswers = {harness.Path("mine.tvz")};
            if (automatic)
                harness.Frame()->OnApplicationStateChanged(Qt::ApplicationInactive);
            else
                harness.Commands()->OnFileSave();
            harness.Commands()->WaitForSaves();

            const QStringList asked = harness.messages.Texts(Kind::Choice);
            QCOMPARE(asked.size(), choice == -2 ? 0 : 1);
            QVERIFY(asked.isEmpty() || asked[0].startsWith("The file was changed by another program after it was "
                                                           "opened here."));
            QVERIFY(asked.isEmpty() || asked[0].endsWith("\nSave as...|Load theirs|Overwrite"));
            QCOMPARE(CAppHarness::JumpsInFile(path), jumpsInFile);
            QCOMPARE(int(harness.Doc().GetJumpCount()), jumpsInWindow);
            QCOMPARE(harness.Doc().IsModified(), modified);
            QCOMPARE(CAppHarness::JumpsInFile(harness.Path("mine.tvz")), jumpsInCopy);
            QCOMPARE(harness.messages.Texts(Kind::Error),
                     choice == -2 ? QStringList{"The file could not be saved."} : QStringList());
        }
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
