// "Import track..." and "Add track..." on the real main window: a FlySight file becomes a jump
// only through the editor's OK, with its recording and the locked imported values; a bad file
// or Cancel changes nothing.

#include "CAppHarness.h"

#include "app/CJumpTableModel.h"
#include "tests/tracks/SyntheticTrack.h"

#include "controls/CKqSpinBox.h"
#include "dialogs/CDlgCardImport.h"
#include "dialogs/CDlgCsvImport.h"
#include "dialogs/CDlgJump.h"
#include "translations/CTranslations.h"

#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QMenu>
#include <QtTest>

namespace {

// Jump 1 signed, jump 2 with nothing recorded.
CTestLogbook Logbook()
{
    return CTestLogbook()
        .Jump(1, "2024-05-01T10:00:00Z", "Tervola", 4000, 1000, 60, {}, "Anna")
        .Jump(2, "2024-05-03T10:00:00Z", "Utti", 3000, 1000, 50);
}

QString WriteTrack(CAppHarness& harness)
{
    CSyntheticTruth truth;
    const std::string text = WriteFlySight1(MakeJumpTrack(CSyntheticJump{}, truth), FlySight1Columns(), "\r\n");
    return harness.WriteFile("21-04-20/07-00-00.CSV", QByteArray::fromStdString(text));
}

} // namespace

class TestImport : public QObject
{
    Q_OBJECT

private slots:
    void importedTrackIsCheckedInTheEditorBeforeItJoins()
    {
        for (const bool ok : {false, true}) {
            const CRow trace{ok ? "OK" : "Cancel"};
            CAppHarness harness;
            harness.StartWith(Logbook());
            harness.View()->OnViewJumpList();
            harness.files.trackAnswers = {WriteTrack(harness)};
            bool locked = false;
            QString kind;
            harness.dialogs.steps.append([&](QDialog& dialog) {
                auto& editor = static_cast<CDlgJump&>(dialog);
                locked = editor.findChild<CKqSpinBox*>(QStringLiteral("jumpExit"))->isReadOnly();
                kind = editor.findChild<QComboBox*>(QStringLiteral("jumpKind"))->currentText();
                if (!ok)
                    return int(QDialog::Rejected);
                editor.accept();
                return editor.result();
            });
            QAction* action = harness.Frame()->findChild<QAction*>("jumpImportTrackAction");
            QCOMPARE(action->shortcut(), QKeySequence(Qt::CTRL | Qt::Key_I));
            action->trigger();

            QCOMPARE(harness.dialogs.ran, QStringList{QStringLiteral("jumpEditor")});
            QVERIFY(locked);
            QCOMPARE(kind, QStringLiteral("Import"));
            const CLogbookDoc& doc = harness.Doc();
            QCOMPARE(int(doc.GetJumpCount()), ok ? 3 : 2);
            QCOMPARE(harness.View()->List()->RowCount(), ok ? 3 : 2);
            QCOMPARE(doc.IsModified(), ok);
            // The next import starts in the logger's folder.
            QCOMPARE(harness.settings.GetString("Import", "TrackFolder", ""),
                     harness.Path(QStringLiteral("21-04-20")).toStdString());
            if (!ok)
                continue;
            const CJump* added = doc.GetLastJump();
            QCOMPARE(added->GetNumber(), 3);
            QCOMPARE(added->GetRecording().GetKind(), int(CJumpRecording::Satellite));
            QVERIFY(std::abs(added->GetExitHeight() - 4000) < 15);
        }
    }

    // The reader's refusal in the user's language; the file's name, the line and the file's own
    // numbers stay as they are. One damaged line of two is more than a damaged file may have.
    void badTrackIsRefusedWithItsLine()
    {
        const QByteArray badHeight = "time,lat,lon,hMSL,velN,velE,velD\r\n,(deg),(deg),(m),(m/s),(m/s),(m/s)\r\n"
                                     "2021-04-20T04:20:00.00Z,61.5,24.0,abc,0,0,0\r\n"
                                     "2021-04-20T04:20:00.20Z,61.5,24.0,100,0,0,0\r\n";
        using Row = std::tuple<QByteArray, QString>; // the file, the error
        const Row rows[] = {
            {badHeight,
             "notes.csv: Zeile 3: 1 der 2 Datenzeilen des Tracks sind beschädigt, mehr als eine von hundert; "
             "dies ist die erste."},
            {QByteArray(), "notes.csv: Die Datei ist leer."}};
        for (const auto& [content, error] : rows) {
            const CRow trace{error};
            // The program takes its language from the default locale when it starts.
            QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany));
            CAppHarness harness;
            harness.StartWith(Logbook());
            harness.files.trackAnswers = {harness.WriteFile("notes.csv", content)};
            harness.Frame()->findChild<QAction*>("jumpImportTrackAction")->trigger();
            QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedStates));
            CTranslations::Install(QLocale());
            QVERIFY(harness.dialogs.ran.isEmpty());
            QCOMPARE(harness.messages.Texts(CRecordingMessages::Kind::Error), QStringList{error});
            QCOMPARE(int(harness.Doc().GetJumpCount()), 2);
            QVERIFY(!harness.Doc().IsModified());
        }
    }

    void trackGoesIntoAListedJumpWithoutRecording()
    {
        CAppHarness harness;
        harness.StartWith(Logbook());
        harness.View()->OnViewJumpList();
        CJumpListCtrl* list = harness.View()->List();
        QAction* add = harness.Frame()->findChild<QAction*>("jumpAddTrackAction");
        // The signed jump 1 takes no track; jump 2, without a recording, does.
        harness.SelectRow(list->RowOf(harness.Doc().GetJumps().front()));
        harness.Frame()->UpdateCommands();
        QVERIFY(!add->isEnabled());
        const CJump* target = harness.Doc().GetJumps().back();
        harness.SelectRow(list->RowOf(target));
        harness.Frame()->UpdateCommands();
        QVERIFY(add->isEnabled());
        std::unique_ptr<QMenu> menu(harness.Commands()->CreateContextMenu(nullptr));
        QVERIFY(menu->findChild<QAction*>(QStringLiteral("addTrackAction"))->isEnabled());

        harness.files.trackAnswers = {WriteTrack(harness)};
        harness.dialogs.steps.append(CScriptedDialogs::Ok<CDlgJump>([](CDlgJump&) {}));
        add->trigger();
        QCOMPARE(int(harness.Doc().GetJumpCount()), 2);
        QCOMPARE(target->GetNumber(), 2);
        QCOMPARE(target->GetFallrateKind(), FallrateKind::Import);
        QVERIFY(target->GetRecording().IsPresent());
        QCOMPARE(target->GetTimestamp().dateTime.Month(), 4); // the track's exit time
    }

    // A spreadsheet's readable rows join on Import, the unreadable one is skipped; Cancel and a
    // file that is no table change nothing.
    void spreadsheetJoinsOnImportOnly()
    {
        const QByteArray csv = "No.;Date;DZ;Exit [ft]\r\n10;2024-05-17;Eloy;13000\r\n11;2024-05-18;Eloy;x\r\n";
        using Row = std::tuple<QByteArray, bool, int>; // the file, Import, jumps after
        for (const auto& [content, ok, jumps] : {Row{csv, false, 2}, Row{csv, true, 3}, Row{"\x01\x02\0", true, 2}}) {
            const CRow trace{QString::number(jumps) + (ok ? " Import" : " Cancel")};
            CAppHarness harness;
            harness.StartWith(Logbook());
            harness.View()->OnViewJumpList();
            harness.files.csvAnswers = {harness.WriteFile("old.csv", content)};
            if (ok)
                harness.dialogs.steps.append(CScriptedDialogs::Ok<CDlgCsvImport>([](CDlgCsvImport&) {}));
            harness.Frame()->findChild<QAction*>("fileImportCsvAction")->trigger();
            const bool table = content == csv;
            QCOMPARE(harness.dialogs.ran, table ? QStringList{QStringLiteral("dlgCsvImport")} : QStringList());
            QCOMPARE(harness.messages.Texts(CRecordingMessages::Kind::Error).size(), table ? 0 : 1);
            QCOMPARE(int(harness.Doc().GetJumpCount()), jumps);
            QCOMPARE(harness.View()->List()->RowCount(), jumps);
            QCOMPARE(harness.Doc().IsModified(), jumps == 3);
            if (jumps == 3) {
                QCOMPARE(harness.Doc().GetLastJump()->GetNumber(), 10);
                QCOMPARE(harness.Doc().GetLastJump()->GetExitHeight(), 3962);
            }
        }
    }

    // A folder of tracks: the new jump is listed and imported; the same folder again offers
    // nothing new.
    void cardFolderBringsItsNewJumps()
    {
        CAppHarness harness;
        harness.StartWith(Logbook());
        WriteTrack(harness);
        harness.WriteFile("21-04-20/CAR.CSV",
                          QByteArray::fromStdString(WriteFlySight1(MakeCarRide(2), FlySight1Columns(), "\r\n")));
        int listed = -1;
        harness.dialogs.steps.append(CScriptedDialogs::Ok<CDlgCardImport>(
            [&listed](CDlgCardImport& dialog) { listed = dialog.findChildren<QCheckBox*>().size(); }));
        harness.files.folderAnswers = {harness.Path(QString()), harness.Path(QString())};
        QAction* action = harness.Frame()->findChild<QAction*>("jumpImportCardAction");
        action->trigger();
        QCOMPARE(listed, 1);
        QCOMPARE(int(harness.Doc().GetJumpCount()), 3);
        QVERIFY(harness.Doc().GetLastJump()->GetRecording().IsPresent());
        harness.dialogs.steps.append(CScriptedDialogs::Ok<CDlgCardImport>(
            [&listed](CDlgCardImport& dialog) { listed = dialog.findChildren<QCheckBox*>().size(); }));
        action->trigger();
        QCOMPARE(listed, 0);
        QCOMPARE(int(harness.Doc().GetJumpCount()), 3);
    }
};

QTEST_MAIN(TestImport)
#include "AppImportTest.moc"
