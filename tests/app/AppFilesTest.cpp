// The File commands on the real main window: New, Open, Save, Save as, their enabled states and
// the question when closing with changes.

#include "CAppHarness.h"

#include <QAction>
#include <QDir>
#include <QStandardPaths>
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

    // New saves an empty logbook at once, starting in the logbook's folder; Save as saves the
    // changed one, starting at the logbook. When the file cannot be written: its message, no
    // file, and the last file stays.
    void newAndSaveAs()
    {
        const QString newFailed = "An error occured while writing the tervola file.";
        // Save as, the name chosen, the error, the jumps the file holds, the File commands, the mode
        using Row = std::tuple<bool, QString, QString, int, QString, Mode>;
        const Row rows[] = {{false, "fresh.tvz", {}, 0, "110111", Mode::Home},
                            {false, "no-such-folder/fresh.tvz", newFailed, -1, "110001", Mode::Empty},
                            {true, "copy.tvz", {}, 2, "110111", Mode::JumpList},
                            {true, "missing/copy.tvz", "The file could not be saved.", -1, "111111", Mode::JumpList}};
        for (const auto& [saveAs, name, error, jumps, states, mode] : rows) {
            const CRow trace{name};
            CAppHarness harness;
            const QString old = harness.StartWith(CTestLogbook().Jumps(1, 3));
            const QString folder = QString::fromStdString(harness.folder.Path().string());
            harness.files.saveAnswers = {harness.Path(name)};
            if (saveAs) {
                harness.DeleteFirstJump();
                harness.Commands()->OnFileSaveAs();
            } else {
                harness.Commands()->OnFileNew();
            }
            harness.Commands()->WaitForSaves();
            // New proposes a logbook of its own name beside the open one.
            QCOMPARE(harness.files.asked, QStringList{saveAs ? old : QDir(folder).filePath("Logbook.tvz")});
            QCOMPARE(harness.messages.Texts(Kind::Error), error.isEmpty() ? QStringList() : QStringList{error});
            QCOMPARE(CAppHarness::JumpsInFile(harness.Path(name)), jumps);
            QCOMPARE(CAppHarness::JumpsInFile(old), 3);
            QCOMPARE(harness.LastFile(), jumps < 0 ? old : harness.Path(name));
            QCOMPARE(CommandStates(harness), states);
            QCOMPARE(harness.View()->Mode(), mode);
        }

        // Without a logbook New proposes one in the documents folder; a name taken gets a number.
        CAppHarness harness;
        QVERIFY(harness.StartWithoutSplash());
        harness.Commands()->OnFileNew();
        const QDir documents(QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation));
        QCOMPARE(harness.files.asked, QStringList{documents.filePath("Logbook.tvz")});
        harness.files.asked.clear();
        harness.files.saveAnswers = {harness.Path("Logbook.tvz")};
        harness.Commands()->OnFileNew();
        harness.Commands()->OnFileNew();
        QCOMPARE(harness.files.asked.last(), harness.Path("Logbook 2.tvz"));
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
        QCOMPARE(harness.View()->Mode(), Mode::JumpList);
        QCOMPARE(harness.LastFile(), good);
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
