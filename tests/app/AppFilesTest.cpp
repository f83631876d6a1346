// The File commands on the real main window: New, Open, Save, Save as, their enabled states and
// the question when closing with changes.

#include "CAppHarness.h"

#include <QAction>
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
    // Save is offered while there are changes; Open with changes asks first and Cancel keeps them.
    void commandsEnabledByState()
    {
        CAppHarness harness;
        QVERIFY(!harness.StartWith(CTestLogbook().Jumps(1, 3)).isEmpty());
        QCOMPARE(CommandStates(harness), QString("110111"));
        harness.DeleteFirstJump();
        harness.messages.yesNoCancelAnswer = Answer::Cancel;
        harness.Commands()->OnFileOpen();
        QVERIFY(harness.files.asked.isEmpty()); // cancelled before the dialog
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
    void newLogbook()
    {
        for (const bool saved : {true, false}) {
            const CRow trace{saved ? "saved" : "folder missing"};
            CAppHarness harness;
            const QString old = harness.StartWith(CTestLogbook().Jumps(1, 3));
            const QString fresh = harness.Path(saved ? "fresh.tvz" : "no-such-folder/fresh.tvz");
            harness.files.saveAnswers = {fresh};
            harness.Commands()->OnFileNew();
            QCOMPARE(harness.files.asked,
                     QStringList{QString::fromStdString(harness.folder.Path().string())}); // the logbook's folder
            QCOMPARE(CAppHarness::JumpsInFile(fresh), saved ? 0 : -1);
            QCOMPARE(harness.View()->GetViewMode(), saved ? Mode::Home : Mode::Empty);
            QCOMPARE(harness.LastFile(), saved ? fresh : old);
            QCOMPARE(harness.messages.Texts(Kind::Error),
                     saved ? QStringList() : QStringList{"An error occured while writing the tervola file."});
        }
    }

    // A bad file: its own message, then 4001; the open logbook, its page and "LastFile" stay.
    void openOfABadFileKeepsThePreviousState()
    {
        CAppHarness harness;
        const QString good = harness.StartWith(CTestLogbook().Jumps(1, 3));
        harness.View()->OnViewJumpList();
        harness.files.openAnswers = {harness.WriteFile("bad.tvl", "<?xml version=\"1.0\" ?><html></html>")};
        harness.Commands()->OnFileOpen();
        QCOMPARE(harness.messages.Texts(Kind::Error),
                 (QStringList{"The file is no valid tervola file.", "The file could not be opened."}));
        QCOMPARE(harness.messages.boxes.size(), 2);
        QCOMPARE(QString::fromStdString(harness.Doc().GetPath()), good);
        QCOMPARE(harness.Doc().GetJumpCount(), std::size_t(3));
        QCOMPARE(harness.View()->GetViewMode(), Mode::JumpList);
        QCOMPARE(harness.LastFile(), good);
    }

    void saveAs()
    {
        for (const bool saved : {true, false}) {
            const CRow trace{saved ? "saved" : "folder missing"};
            CAppHarness harness;
            const QString original = harness.StartWith(CTestLogbook().Jumps(1, 3));
            const QString copy = harness.Path(saved ? "copy.tvz" : "missing/copy.tvz");
            harness.DeleteFirstJump();
            harness.files.saveAnswers = {copy};
            harness.Commands()->OnFileSaveAs();
            harness.Commands()->WaitForSaves();
            QCOMPARE(harness.messages.Texts(Kind::Error),
                     saved ? QStringList() : QStringList{"The file could not be saved."});
            QCOMPARE(CAppHarness::JumpsInFile(copy), saved ? 2 : -1);
            QCOMPARE(CAppHarness::JumpsInFile(original), 3);
            QCOMPARE(harness.LastFile(), saved ? copy : original);
            QCOMPARE(CommandStates(harness), saved ? QString("110111") : QString("111111"));
        }
    }

    // Closing with changes asks Yes/No/Cancel; without changes it just closes.
    void closing()
    {
        using Row = std::tuple<const char*, bool, Answer, bool, int>; // modified, answer, closed, jumps in file
        const Row rows[] = {{"yes saves and closes", true, Answer::Yes, true, 2},
                            {"no closes without saving", true, Answer::No, true, 3},
                            {"cancel stays open", true, Answer::Cancel, false, 3},
                            {"nothing to save", false, Answer::Cancel, true, 3}};
        for (const auto& [name, modified, answer, closed, jumpsInFile] : rows) {
            const CRow trace{name};
            CAppHarness harness;
            const QString path = harness.StartWith(CTestLogbook().Jumps(1, 3));
            if (modified)
                harness.DeleteFirstJump();
            harness.messages.yesNoCancelAnswer = answer;
            harness.Frame()->findChild<QAction*>("exitAction")->trigger();
            QCOMPARE(harness.messages.Texts(Kind::YesNoCancel),
                     modified ? QStringList{"Save changes to jumps.tvz?"} : QStringList());
            QCOMPARE(harness.Frame()->isVisible(), !closed);
            QCOMPARE(CAppHarness::JumpsInFile(path), jumpsInFile);
        }
    }
};

QTEST_MAIN(TestFiles)
#include "AppFilesTest.moc"
