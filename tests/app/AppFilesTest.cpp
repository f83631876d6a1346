// The File commands on the real main window: New, Open, Save, Save as, their enabled states and
// the question when closing with changes.

#include "CAppHarness.h"

#include "app/CLogbookCommands.h"
#include "app/CLogbookView.h"
#include "app/CMainFrame.h"

#include <QAction>
#include <QFile>
#include <QtTest>

using Kind = CRecordingMessages::Kind;
using Mode = CLogbookView::ViewMode;
using Answer = IMessageSink::Answer;

namespace {

// New, Open, Save, Save as, About, Exit: '1' enabled, '0' greyed.
QString CommandStates(CAppHarness& harness)
{
    QString states;
    for (const char* name :
         {"fileNewAction", "fileOpenAction", "fileSaveAction", "fileSaveAsAction", "aboutAction", "exitAction"})
        states += harness.Frame()->findChild<QAction*>(name)->isEnabled() ? '1' : '0';
    return states;
}

} // namespace

class TestFiles : public QObject
{
    Q_OBJECT

private slots:
    void commandsEnabledByState()
    {
        CAppHarness harness;
        QVERIFY(!harness.StartWith(CTestLogbook().Jumps(1, 3)).isEmpty());
        QCOMPARE(CommandStates(harness), QString("110111"));
        harness.DeleteFirstJump();
        QCOMPARE(CommandStates(harness), QString("111111"));
        harness.Commands()->OnFileSave();
        harness.Commands()->WaitForSaves(); // saves run in the background
        QCOMPARE(CommandStates(harness), QString("110111"));
        QCOMPARE(CAppHarness::JumpsInFile(harness.Path("jumps.tvz")), 2);
        harness.Doc().Clear();
        harness.View()->Refresh();
        QCOMPARE(CommandStates(harness), QString("110001"));
    }

    // New saves an empty logbook at once; when that fails: 4000, no file, no logbook.
    void newLogbook_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<bool>("saved");
        QTest::newRow("saved") << "fresh.tvz" << true;
        QTest::newRow("folder missing") << "no-such-folder/fresh.tvz" << false;
    }

    void newLogbook()
    {
        QFETCH(QString, name);
        QFETCH(bool, saved);
        CAppHarness harness;
        const QString old = harness.StartWith(CTestLogbook().Jumps(1, 3));
        harness.files.saveAnswers = {harness.Path(name)};
        harness.Commands()->OnFileNew();
        QCOMPARE(harness.files.asked,
                 QStringList{QString::fromStdString(harness.folder.Path().string())}); // starts in the logbook's folder
        QCOMPARE(QFile::exists(harness.Path(name)), saved);
        QCOMPARE(harness.View()->GetViewMode(), saved ? Mode::Home : Mode::Empty);
        QCOMPARE(harness.LastFile(), saved ? harness.Path(name) : old);
        QCOMPARE(harness.messages.Texts(Kind::Error),
                 saved ? QStringList() : QStringList{"An error occured while writing the tervola file."});
        if (saved)
            QCOMPARE(CAppHarness::JumpsInFile(harness.Path(name)), 0);
    }

    // A bad file: its own message, then 4001; the open logbook, its page and "LastFile" stay.
    void openOfABadFileKeepsThePreviousState()
    {
        CAppHarness harness;
        const QString good = harness.StartWith(CTestLogbook().Jumps(1, 3));
        harness.View()->OnViewJumpList();
        QFile bad(harness.Path("bad.tvl"));
        QVERIFY(bad.open(QIODevice::WriteOnly) && bad.write("<?xml version=\"1.0\" ?><html></html>") > 0);
        bad.close();
        harness.files.openAnswers = {bad.fileName()};
        harness.Commands()->OnFileOpen();
        QCOMPARE(harness.messages.Texts(Kind::Error),
                 (QStringList{"The file is no valid tervola file.", "The file could not be opened."}));
        QCOMPARE(harness.messages.boxes.size(), 2);
        QCOMPARE(QString::fromStdString(harness.Doc().GetPath()), good);
        QCOMPARE(harness.Doc().GetJumpCount(), std::size_t(3));
        QCOMPARE(harness.View()->GetViewMode(), Mode::JumpList);
        QCOMPARE(harness.LastFile(), good);
    }

    void saveAs_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<bool>("saved");
        QTest::newRow("saved") << "copy.tvz" << true;
        QTest::newRow("folder missing") << "missing/copy.tvz" << false;
    }

    void saveAs()
    {
        QFETCH(QString, name);
        QFETCH(bool, saved);
        CAppHarness harness;
        const QString original = harness.StartWith(CTestLogbook().Jumps(1, 3));
        harness.DeleteFirstJump();
        harness.files.saveAnswers = {harness.Path(name)};
        harness.Commands()->OnFileSaveAs();
        harness.Commands()->WaitForSaves();
        QCOMPARE(harness.messages.Texts(Kind::Error),
                 saved ? QStringList() : QStringList{"The file could not be saved."});
        QCOMPARE(CAppHarness::JumpsInFile(harness.Path(name)), saved ? 2 : -1);
        QCOMPARE(CAppHarness::JumpsInFile(original), 3);
        QCOMPARE(harness.LastFile(), saved ? harness.Path(name) : original);
        QCOMPARE(CommandStates(harness), saved ? QString("110111") : QString("111111"));
    }

    // Closing with changes asks Yes/No/Cancel; without changes it just closes.
    void closing_data()
    {
        QTest::addColumn<bool>("modified");
        QTest::addColumn<int>("answer");
        QTest::addColumn<bool>("closed");
        QTest::addColumn<int>("jumpsInFile");
        QTest::newRow("yes saves and closes") << true << int(Answer::Yes) << true << 2;
        QTest::newRow("no closes without saving") << true << int(Answer::No) << true << 3;
        QTest::newRow("cancel stays open") << true << int(Answer::Cancel) << false << 3;
        QTest::newRow("nothing to save") << false << int(Answer::Cancel) << true << 3;
    }

    void closing()
    {
        QFETCH(bool, modified);
        QFETCH(int, answer);
        QFETCH(bool, closed);
        QFETCH(int, jumpsInFile);
        CAppHarness harness;
        const QString path = harness.StartWith(CTestLogbook().Jumps(1, 3));
        if (modified)
            harness.DeleteFirstJump();
        harness.messages.yesNoCancelAnswer = Answer(answer);
        harness.Frame()->findChild<QAction*>("exitAction")->trigger();
        QCOMPARE(harness.messages.Texts(Kind::YesNoCancel),
                 modified ? QStringList{"Save changes to jumps.tvz?"} : QStringList());
        QCOMPARE(harness.Frame()->isVisible(), !closed);
        QCOMPARE(CAppHarness::JumpsInFile(path), jumpsInFile);
    }

    void openWithChangesAsksFirst()
    {
        CAppHarness harness;
        QVERIFY(!harness.StartWith(CTestLogbook().Jumps(1, 3)).isEmpty());
        harness.DeleteFirstJump();
        harness.messages.yesNoCancelAnswer = Answer::Cancel;
        harness.Commands()->OnFileOpen();
        QVERIFY(harness.files.asked.isEmpty()); // cancelled before the dialog
        QVERIFY(harness.Doc().IsModified());
    }
};

QTEST_MAIN(TestFiles)
#include "AppFilesTest.moc"
