// The File commands on the real main window: New, Open, Save, Save as, their enabled states,
// the question when closing with changes, and the automatic save on deactivation.

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

CTestLogbook ThreeJumps()
{
    return CTestLogbook()
        .Jump(1, "2024-05-01T10:00:00Z", "Tervola", 4000, 1000, 60)
        .Jump(2, "2024-05-02T10:00:00Z", "Kemi", 4000, 1000, 60)
        .Jump(3, "2024-05-03T10:00:00Z", "Utti", 4000, 1000, 60);
}

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
        QVERIFY(!harness.StartWith(ThreeJumps()).isEmpty());
        QCOMPARE(CommandStates(harness), QString("110111"));
        harness.DeleteFirstJump();
        QCOMPARE(CommandStates(harness), QString("111111"));
        harness.Commands()->OnFileSave();
        harness.Commands()->WaitForSaves(); // saves run in the background
        QCOMPARE(CommandStates(harness), QString("110111"));
        QCOMPARE(CAppHarness::JumpsInFile(harness.Path("jumps.tvz")), 2);
        harness.Frame()->GetDocument().Clear();
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
        const QString old = harness.StartWith(ThreeJumps());
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
    void openOfABadFileKeepsThePreviousState_data()
    {
        QTest::addColumn<QByteArray>("content");
        QTest::addColumn<QString>("firstError");
        QTest::newRow("not a logbook") << QByteArray("<?xml version=\"1.0\" ?><html></html>")
                                       << "The file is no valid tervola file.";
        QTest::newRow("newer version") << QByteArray("<?xml version=\"1.0\" ?><tvl version=\"1.3\"></tvl>")
                                       << "The file version (1.3) can not be processed. Please install an actual "
                                          "version of Tervola or contact support@tervola.example.org";
    }

    void openOfABadFileKeepsThePreviousState()
    {
        QFETCH(QByteArray, content);
        QFETCH(QString, firstError);
        CAppHarness harness;
        const QString good = harness.StartWith(ThreeJumps());
        harness.View()->OnViewJumpList();
        QFile bad(harness.Path("bad.tvl"));
        QVERIFY(bad.open(QIODevice::WriteOnly) && bad.write(content) == content.size());
        bad.close();
        harness.files.openAnswers = {bad.fileName()};
        harness.Commands()->OnFileOpen();
        QCOMPARE(harness.messages.Texts(Kind::Error), (QStringList{firstError, "The file could not be opened."}));
        QCOMPARE(harness.messages.boxes.size(), 2);
        QCOMPARE(QString::fromStdString(harness.Frame()->GetDocument().GetPath()), good);
        QCOMPARE(harness.Frame()->GetDocument().GetJumpCount(), std::size_t(3));
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
        const QString original = harness.StartWith(ThreeJumps());
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
        const QString path = harness.StartWith(ThreeJumps());
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
        QVERIFY(!harness.StartWith(ThreeJumps()).isEmpty());
        harness.DeleteFirstJump();
        harness.messages.yesNoCancelAnswer = Answer::Cancel;
        harness.Commands()->OnFileOpen();
        QVERIFY(harness.files.asked.isEmpty()); // cancelled before the dialog
        QVERIFY(harness.Frame()->GetDocument().IsModified());
    }

    void deactivationSavesAModifiedLogbook()
    {
        CAppHarness harness;
        const QString path = harness.StartWith(ThreeJumps());
        harness.Frame()->OnApplicationStateChanged(Qt::ApplicationInactive);
        QVERIFY(!QFile::exists(harness.Path("jumps.bak"))); // unmodified: nothing written
        harness.DeleteFirstJump();
        harness.Frame()->OnApplicationStateChanged(Qt::ApplicationActive);
        QCOMPARE(CAppHarness::JumpsInFile(path), 3);
        harness.Frame()->OnApplicationStateChanged(Qt::ApplicationInactive);
        harness.Commands()->WaitForSaves();
        QCOMPARE(CAppHarness::JumpsInFile(path), 2);
        QCOMPARE(CommandStates(harness), QString("110111"));
    }
};

QTEST_MAIN(TestFiles)
#include "AppFilesTest.moc"
