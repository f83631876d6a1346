// The real main window in the language of the system locale, run once with LANG=de_DE.UTF-8 and
// once with LANG=en_US.UTF-8 (TERVOLA_EXPECT_LANGUAGE names the one expected): menus, the
// messages of a failed Open, Qt's own buttons, the summary's numbers and dates, and the number
// pad and fields with the locale's decimal separator. The logbook's own texts stay as written.

#include "CAppHarness.h"

#include "app/CJumpListCtrl.h"
#include "app/CLogbookCommands.h"
#include "app/CLogbookView.h"
#include "app/CMainFrame.h"
#include "app/CSummaryPane.h"
#include "controls/CNumberPadDlg.h"
#include "dialogs/CDlgPreferences.h"

#include <QAbstractButton>
#include <QAction>
#include <QDialogButtonBox>
#include <QLabel>
#include <QLocale>
#include <QMenu>
#include <QPushButton>
#include <QTest>

namespace {

// What a user of each language reads.
struct Expected
{
    QStringList menus;       // File, Jump, Logbook
    QStringList actions;     // Open..., New jump..., Preferences...
    QStringList openFailure; // the two error boxes of a failed Open
    QString cancel;          // Qt's own Cancel button
    QStringList summary;     // number-of-jumps label and value, freefall distance, last jump
    QString padDisplay;      // the number pad after 5 , 2
    QString fallrate;        // the preferences' fall-rate label and field
    QString fallrateField;
};

Expected For(const QString& language)
{
    if (language == QLatin1String("de"))
        return {{"&Datei", "&Sprung", "&Logbuch"},
                {"Öffnen...", "Neuer Sprung...", "Einstellungen..."},
                {"Die Datei ist keine gültige Tervola-Datei.", "Die Datei konnte nicht geöffnet werden."},
                "Abbrechen",
                {"Anzahl Sprünge", "1.234", "Freifallstrecke [km]", "2.468", "Letzter Sprung", "14.03.24"},
                "5,2",
                "Eigene Fallrate [m/s]",
                "5,2"};
    return {{"&File", "&Jump", "&Logbook"},
            {"Open...", "New jump...", "Preferences..."},
            {"The file is no valid tervola file.", "The file could not be opened."},
            "Cancel",
            {"Number of Jumps", "1,234", "Freefall Dist. [km]", "2,468", "Last Jump", "3/14/24"},
            "5.2",
            "Custom Fallrate [m/s]",
            "5.2"};
}

} // namespace

class TestAppLanguage : public QObject
{
    Q_OBJECT

private:
    QString language = qEnvironmentVariable("TERVOLA_EXPECT_LANGUAGE");
    Expected expected = For(language);
    CAppHarness harness;

private slots:
    // The run's environment really chose the language the expectations are for. The window
    // shows one jump, number 1,234, of 2,000 m freefall: extrapolated to 2,468 km.
    void initTestCase()
    {
        QVERIFY2(language == QLatin1String("de") || language == QLatin1String("en"), "TERVOLA_EXPECT_LANGUAGE");
        QCOMPARE(QLocale::system().name().left(2), language);
        harness.settings.SetInt("Preferences", "Units", 1);
        const CTestLogbook logbook = CTestLogbook().Jump(1234, "2024-03-14T16:20:00+02", "Jump", 3000, 1000, 50);
        QVERIFY(!harness.StartWith(logbook).isEmpty());
    }

    void menusAndQtsOwnButtons()
    {
        QStringList menus;
        for (const char* name : {"fileMenu", "jumpMenu", "logbookMenu"})
            menus << harness.Frame()->findChild<QMenu*>(name)->title();
        QCOMPARE(menus, expected.menus);
        QStringList actions;
        for (const char* name : {"fileOpenAction", "jumpNewAction", "preferencesAction"})
            actions << harness.Frame()->findChild<QAction*>(name)->text();
        QCOMPARE(actions, expected.actions);
        QDialogButtonBox buttons(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
        QCOMPARE(buttons.button(QDialogButtonBox::Cancel)->text(), expected.cancel);
    }

    void failedOpen()
    {
        const QString notALogbook = harness.Path(QStringLiteral("empty.tvl"));
        QFile file(notALogbook);
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.close();
        harness.files.openAnswers = {notALogbook};
        harness.Commands()->OnFileOpen();
        QCOMPARE(harness.messages.Texts(CRecordingMessages::Kind::Error), expected.openFailure);
    }

    // Numbers and dates as the locale writes them; the place is the user's text and stays.
    void summaryAndList()
    {
        const CSummaryPane* summary = harness.View()->GetSummary();
        QCOMPARE((QStringList{summary->LabelText(CSummaryPane::NumberOfJumps),
                              summary->ValueText(CSummaryPane::NumberOfJumps),
                              summary->LabelText(CSummaryPane::FreefallDistance),
                              summary->ValueText(CSummaryPane::FreefallDistance),
                              summary->LabelText(CSummaryPane::LastJump), summary->ValueText(CSummaryPane::LastJump)}),
                 expected.summary);
        harness.View()->OnViewJumpList();
        const QTreeWidgetItem* row = harness.View()->GetList()->topLevelItem(0);
        QVERIFY(row);
        QCOMPARE(row->text(2), QStringLiteral("Jump"));
        QCOMPARE(row->text(1), expected.summary.last());
    }

    void decimalSeparatorInPadAndField()
    {
        CNumberPadDlg pad(nullptr, QString(), 0, 1, false);
        for (const char* key : {"key_5", "key_separator", "key_2"})
            pad.findChild<QAbstractButton*>(key)->click();
        QCOMPARE(pad.findChild<QLabel*>("display")->text(), expected.padDisplay);
        QCOMPARE(pad.Value(), 52);

        harness.Doc().GetSettings().SetCustomFallrateSpeed(5.2);
        CUnitSettings units(1, 0, 1);
        CDlgPreferences preferences(units, nullptr, harness.Doc(), &harness.messages);
        QCOMPARE(preferences.FallrateLabel()->text(), expected.fallrate);
        QCOMPARE(preferences.FallrateButton()->text(), expected.fallrateField);
    }
};

QTEST_MAIN(TestAppLanguage)
#include "AppLanguageTest.moc"
