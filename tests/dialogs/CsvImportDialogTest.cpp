// The spreadsheet import dialog on a German file with ambiguous dates, a jump number the logbook
// has and an unreadable row: the date form must be chosen before Import, the preview follows the
// choices and names each unreadable row with its line and reason, a column can be given to
// another field, and Import leaves the logbook to the command. Pictures of the preview and the
// columns at every size, checked for clipped texts and sideways scrolling.

#include "CRecordingMessages.h"
#include "CRenderCheck.h"

#include "dialogs/CDlgCsvImport.h"
#include "document/CLogbookDoc.h"
#include "editing/CCsvImportEdit.h"
#include "model/CJump.h"
#include "units/CUnitSettings.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QTabWidget>
#include <QTest>

namespace {

const char* const kCsv =
    "Nr;Datum;Uhrzeit;Ort;Flugzeug;Absprungh\xF6he;\xD6"
    "ffnung;Freifall;Bemerkung\r\n"
    "41;01.06.2024;10:15;Utti;Cessna 206;4000;1000;60;\r\n"
    "43;02.06.2024;11:00;J\xE4mij\xE4rvi;Cessna 208 Caravan;4000;1000;1:02;\"Erster Sprung; gut\"\r\n"
    "44;31.06.2024;;Utti;Cessna 206;4000;1000;55;\r\n"
    "45;03.06.2024;14:30;Utti;Cessna 206;4x00;1000;55;\r\n"
    "46;04.06.2024;09:05;Jyv\xE4skyl\xE4;Skyvan;4200;900;;Wind 8 m/s\r\n";

} // namespace

class TestCsvImportDialog : public QObject
{
    Q_OBJECT

    CUnitSettings m_units{CUnitSettings::Metric, 0, 0};
    CRecordingMessages m_messages;

    // A logbook holding jump 41.
    static std::unique_ptr<CLogbookDoc> Logbook()
    {
        auto doc = std::make_unique<CLogbookDoc>();
        auto jump =
            std::make_unique<CJump>(41, CZonedDateTime{CDateTime(2024, 5, 1, 10, 0, 0), 180}, CDateTime(2024, 5, 1));
        jump->SetPlace("Utti");
        doc->AddJump(std::move(jump));
        return doc;
    }

private slots:
    void initTestCase() { RenderCheck::UseLanguage(QLocale(QLocale::English, QLocale::UnitedKingdom)); }

    void choicesFollowInThePreviewAndImportNeedsADateForm()
    {
        const std::unique_ptr<CLogbookDoc> doc = Logbook();
        CCsvImportEdit edit(*doc, CDateTime(2024, 7, 1), 180);
        QCOMPARE(edit.Load(kCsv), 0);
        CDlgCsvImport dialog(edit, *doc, m_units, &m_messages, QStringLiteral("alt.csv"));
        QListWidget* preview = dialog.PreviewList();
        // The dates read both ways: nothing is previewed and Import asks for the form.
        QCOMPARE(preview->count(), 0);
        dialog.findChild<QPushButton*>(QStringLiteral("importButton"))->click();
        QCOMPARE(m_messages.Texts(CRecordingMessages::Kind::Warning).size(), 1);
        QCOMPARE(dialog.result(), int(QDialog::Rejected));
        m_messages.boxes.clear();

        dialog.DatesCombo()->setCurrentIndex(2); // day first
        QCOMPARE(preview->count(), 5);
        const QStringList expected = {
            QStringLiteral("Line 2: jump 41 is already in the logbook."),
            QStringLiteral("Line 4: the date \"31.06.2024\" cannot be read."),
            QStringLiteral("Line 5: the height \"4x00\" is not a number from 0 to 15000 m."),
        };
        QStringList problems;
        for (int i = 0; i < preview->count(); ++i)
            if (preview->item(i)->text().contains(QStringLiteral("cannot")) ||
                preview->item(i)->text().contains(QStringLiteral("already")) ||
                preview->item(i)->text().contains(QStringLiteral("not a number")))
                problems << preview->item(i)->text();
        QCOMPARE(problems, expected);
        QVERIFY(preview->item(1)->text().contains(QStringLiteral("J\u00e4mij\u00e4rvi")));
        QVERIFY(preview->item(1)->text().contains(QStringLiteral("Freefall 0:01:02")));
        QCOMPARE(dialog.SummaryLabel()->text(), QStringLiteral("5 rows: 2 new jumps, 0 replaced, 3 skipped."));

        // Feet make the exit of jump 43 1,219 m; the place column given to the aircraft leaves
        // the place empty.
        dialog.UnitsCombo()->setCurrentIndex(1);
        QVERIFY(preview->item(1)->text().contains(QStringLiteral("Exit 1,219 m")));
        dialog.Tabs()->setCurrentIndex(1);
        dialog.ColumnCombo(JumpField::Aircraft)->setCurrentIndex(4); // "Ort"
        QCOMPARE(dialog.ColumnCombo(JumpField::Place)->currentIndex(), 0);
        QVERIFY(!preview->item(1)->text().contains(QStringLiteral("J\u00e4mij\u00e4rvi")));

        dialog.findChild<QPushButton*>(QStringLiteral("importButton"))->click();
        QCOMPARE(dialog.result(), int(QDialog::Accepted));
        QVERIFY(m_messages.boxes.isEmpty());
        QCOMPARE(int(doc->GetJumpCount()), 1); // the command applies it
        QCOMPARE(edit.Apply(*doc), std::size_t(2));
        QCOMPARE(doc->GetJumps().back()->GetAircraft(), std::string("Jyv\xC3\xA4skyl\xC3\xA4"));
    }

    void pictures()
    {
        const std::unique_ptr<CLogbookDoc> doc = Logbook();
        CCsvImportEdit edit(*doc, CDateTime(2024, 7, 1), 180);
        QCOMPARE(edit.Load(kCsv), 0);
        CDlgCsvImport dialog(edit, *doc, m_units, &m_messages, QStringLiteral("alt.csv"));
        dialog.DatesCombo()->setCurrentIndex(2);
        dialog.show();
        QVERIFY(QTest::qWaitForWindowExposed(&dialog));
        const QStringList problems =
            RenderCheck::EveryPageAtEverySize(dialog, *dialog.Tabs(), QStringLiteral("csv_import"));
        QVERIFY2(problems.isEmpty(), qPrintable(problems.join(QLatin1Char('\n'))));
    }
};

QTEST_MAIN(TestCsvImportDialog)
#include "CsvImportDialogTest.moc"
