// The real main window in the language of the system locale, run once with LANG=de_DE.UTF-8 and
// once with LANG=en_US.UTF-8 (TERVOLA_EXPECT_LANGUAGE names the one expected): menus, the
// messages of a failed Open, Qt's own buttons, the summary's numbers and dates, and a field with
// the locale's decimal separator. The logbook's own texts stay as written. The menus share no
// accelerator, and the program's questions fit every screen.

#include "CAppHarness.h"
#include "CRenderCheck.h"

#include "app/CJumpListCtrl.h"
#include "app/CJumpTableModel.h"
#include "app/CMessageBoxes.h"
#include "app/CMessageDlg.h"
#include "app/CSummaryPane.h"
#include "dialogs/CDlgPreferences.h"

#include <QAction>
#include <QDialogButtonBox>
#include <QKeySequence>
#include <QLabel>
#include <QMap>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QTest>

namespace {

// What a user of each language reads: the menus File, Jump and Logbook; Open..., New jump... and
// Preferences...; the two error boxes of a failed Open; Qt's own Cancel; the summary's labels
// and values of the number of jumps, the freefall distance and the last jump; the list's date;
// the preferences' fall-rate label and field.
const QStringList kGerman = {"&Datei",
                             "&Sprung",
                             "Sprung&buch",
                             "Öffnen...",
                             "Neuer Sprung...",
                             "Einstellungen...",
                             "Die Datei ist keine gültige Tervola-Datei.",
                             "Die Datei konnte nicht geöffnet werden.",
                             "Abbrechen",
                             "Anzahl Sprünge",
                             "1.234",
                             "Freifallstrecke [km]",
                             "2.468",
                             "Letzter Sprung",
                             "14.03.24",
                             "14.03.24",
                             "Eigene Fallrate [m/s]",
                             "5,2"};
const QStringList kEnglish = {"&File",
                              "&Jump",
                              "&Logbook",
                              "Open...",
                              "New jump...",
                              "Preferences...",
                              "The file is no valid tervola file.",
                              "The file could not be opened.",
                              "Cancel",
                              "Number of Jumps",
                              "1,234",
                              "Freefall Dist. [km]",
                              "2,468",
                              "Last Jump",
                              "3/14/24",
                              "3/14/24",
                              "Custom Fallrate [m/s]",
                              "5.2"};

// The entries among actions whose accelerator an earlier entry has already taken.
QStringList Clashes(const QList<QAction*>& actions)
{
    QStringList clashes;
    QMap<QKeySequence, QString> taken;
    for (const QAction* action : actions) {
        const QKeySequence key = QKeySequence::mnemonic(action->text());
        if (key.isEmpty())
            continue;
        if (taken.contains(key))
            clashes << taken[key] + QStringLiteral(" / ") + action->text();
        taken.insert(key, action->text());
    }
    return clashes;
}

} // namespace

class TestAppLanguage : public QObject
{
    Q_OBJECT

private slots:
    // The window shows one jump, number 1,234, of 2,000 m freefall: extrapolated to 2,468 km. The
    // place is the user's text and stays.
    void windowInTheSystemsLanguage()
    {
        // The run's environment really chose the language the expectations are for.
        const QString language = qEnvironmentVariable("TERVOLA_EXPECT_LANGUAGE");
        QVERIFY2(language == QLatin1String("de") || language == QLatin1String("en"), "TERVOLA_EXPECT_LANGUAGE");
        QCOMPARE(QLocale::system().name().left(2), language);
        CAppHarness harness;
        harness.settings.SetInt("Preferences", "Units", 1);
        QVERIFY(
            !harness.StartWith(CTestLogbook().Jump(1234, "2024-03-14T16:20:00+02", "Jump", 3000, 1000, 50)).isEmpty());

        QStringList shown;
        for (const char* name : {"fileMenu", "jumpMenu", "logbookMenu"})
            shown << harness.Frame()->findChild<QMenu*>(name)->title();
        for (const char* name : {"fileOpenAction", "jumpNewAction", "preferencesAction"})
            shown << harness.Frame()->findChild<QAction*>(name)->text();
        harness.files.openAnswers = {harness.WriteFile("empty.tvl", {})};
        harness.Commands()->OnFileOpen();
        shown << harness.messages.Texts(CRecordingMessages::Kind::Error);
        shown << QDialogButtonBox(QDialogButtonBox::Cancel).button(QDialogButtonBox::Cancel)->text();
        const CSummaryPane* summary = harness.View()->Summary();
        for (int row : {CSummaryPane::NumberOfJumps, CSummaryPane::FreefallDistance, CSummaryPane::LastJump})
            shown << summary->LabelText(row) << summary->ValueText(row);
        harness.View()->OnViewJumpList();
        const CJumpListCtrl* list = harness.View()->List();
        QVERIFY(list->RowCount() > 0);
        QCOMPARE(list->TextAt(0, CJumpTableModel::PlaceColumn), QStringLiteral("Jump"));
        shown << list->TextAt(0, CJumpTableModel::DateColumn);

        CLogbookSettings settings = harness.Doc().GetSettings();
        settings.SetCustomFallrateSpeed(5.2);
        harness.Doc().ReplaceSettings(settings);
        CUnitSettings units(1, 0, 1);
        CDlgPreferences preferences(units, nullptr, harness.Doc(), &harness.messages);
        shown << preferences.findChild<QLabel*>("fallrateLabel")->text()
              << preferences.findChild<QPushButton*>("fallrateButton")->text();
        QCOMPARE(shown, language == QLatin1String("de") ? kGerman : kEnglish);

        QMenuBar* menus = harness.Frame()->menuBar();
        QStringList clashes = Clashes(menus->actions());
        for (const QAction* title : menus->actions())
            if (title->menu())
                clashes += Clashes(title->menu()->actions());
        QVERIFY2(clashes.isEmpty(), qPrintable(clashes.join(QStringLiteral("; "))));
    }

    // The question after a save found the file changed by another program and the one before a
    // changed logbook is closed, as the window asks them, shown as the program shows them on
    // every screen: inside the screen, no text or button cut; then answered.
    void questionsFitEveryScreen()
    {
        CAppHarness harness;
        QVERIFY(!harness.StartWith(CTestLogbook().Jumps(1, 3)).isEmpty());
        harness.DeleteFirstJump();
        QVERIFY(!harness.Write(CTestLogbook().Jumps(1, 5), "jumps.tvz").isEmpty());
        harness.Commands()->OnFileSave();
        harness.Commands()->WaitForSaves();
        harness.messages.yesNoCancelAnswer = IMessageSink::Answer::Cancel;
        harness.Frame()->findChild<QAction*>("exitAction")->trigger();
        const QStringList changed = harness.messages.Texts(CRecordingMessages::Kind::Choice);
        const QStringList closing = harness.messages.Texts(CRecordingMessages::Kind::YesNoCancel);
        QCOMPARE(changed.size(), 1);
        QCOMPARE(closing.size(), 1);
        const qsizetype buttons = changed[0].lastIndexOf(QLatin1Char('\n'));
        const std::unique_ptr<CMessageDlg> boxes[] = {
            CMessageBoxes::ChoiceBox(changed[0].left(buttons), changed[0].mid(buttons + 1).split(QLatin1Char('|'))),
            CMessageBoxes::YesNoCancelBox(closing[0])};
        const QString language = QLocale::system().name().left(2);
        for (int i = 0; i < 2; ++i) {
            CMessageDlg& box = *boxes[i];
            QCOMPARE(box.Buttons().size(), i == 0 ? 4 : 3);
            box.show();
            QVERIFY(QTest::qWaitForWindowExposed(&box));
            for (const QSize& room : RenderCheck::kSizes) {
                box.FitTo(room);
                QCoreApplication::processEvents();
                const QString file =
                    QStringLiteral("question%1_%2_%3x%4.png").arg(i).arg(language).arg(room.width()).arg(room.height());
                QStringList problems = RenderCheck::Clipped(&box);
                if (box.width() > room.width() || box.height() > room.height())
                    problems << QStringLiteral("larger than the screen");
                QVERIFY(RenderCheck::Save(&box, file));
                QVERIFY2(problems.isEmpty(), qPrintable(file + ": " + problems.join(QStringLiteral("; "))));
            }
        }
        // A click answers with its button, Enter with the default one, Escape with Cancel.
        QTest::mouseClick(boxes[0]->Buttons()[1], Qt::LeftButton);
        QCOMPARE(boxes[0]->Choice(), 1);
        QTest::keyClick(boxes[1].get(), Qt::Key_Escape);
        QCOMPARE(boxes[1]->Choice(), 2);
        boxes[1]->show();
        QTest::keyClick(boxes[1].get(), Qt::Key_Return);
        QCOMPARE(boxes[1]->Choice(), 0);
        QVERIFY(!boxes[1]->isVisible());
    }
};

QTEST_MAIN(TestAppLanguage)
#include "AppLanguageTest.moc"
