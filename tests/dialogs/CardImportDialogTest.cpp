// The list of a card's new jumps: a track of a day with a jump without recording may go into
// that jump, two tracks may not go into the same one, the ticked tracks are imported in the order
// of their exits, and the files set aside are named with their reason. Pictures of both pages at
// every size, checked for clipped texts and sideways scrolling.

#include "CRecordingMessages.h"
#include "CRenderCheck.h"

#include "dialogs/CDlgCardImport.h"
#include "document/CLogbookDoc.h"
#include "document/IClock.h"
#include "editing/CCardImportEdit.h"
#include "model/CJump.h"
#include "resources/StringTable.h"
#include "units/CUnitSettings.h"

#include <QCheckBox>
#include <QComboBox>
#include <QPushButton>
#include <QTabWidget>
#include <QTest>

namespace {

// A track with a jump found at that local time (offset +3 h).
CCardTrack Track(const char* file, CDateTime exit, int exitHeight, int freefall)
{
    CCardTrack track;
    track.path = std::filesystem::path("/card/24-06-01") / file;
    track.import.ok = true;
    track.import.jump.exitTime = {exit, 180};
    track.import.jump.fallrate = {FallrateKind::Import, exitHeight, 1000, freefall, 200, 55.0, 47.0};
    track.import.jump.recording.SetKind(CJumpRecording::Satellite);
    return track;
}

std::vector<CCardTrack> Found()
{
    return {Track("10-15-00.CSV", CDateTime(2024, 6, 1, 10, 15, 0), 4000, 58),
            Track("11-30-00.CSV", CDateTime(2024, 6, 1, 11, 30, 0), 4100, 60),
            Track("TRACK.CSV", CDateTime(2024, 6, 2, 9, 5, 0), 3000, 45)};
}

std::vector<CCardTrack> Skipped()
{
    CCardTrack car;
    car.path = "/card/24-06-01/12-00-00.CSV";
    car.skip = CCardTrack::Skip::NoJump;
    car.import.reason = {StringTable::IDS_TRACK_NO_FREEFALL};
    CCardTrack copy = Found()[0];
    copy.path = "/card/backup/copy.csv";
    copy.skip = CCardTrack::Skip::Twice;
    copy.sameAsFile = "/card/24-06-01/10-15-00.CSV";
    return {car, copy};
}

} // namespace

class TestCardImportDialog : public QObject
{
    Q_OBJECT

    CUnitSettings m_units{CUnitSettings::Metric, 0, 0};
    CRecordingMessages m_messages;
    CFixedClock m_clock{CDateTime(2024, 6, 3, 12, 0, 0)};

    // Jumps 41 (2024-06-01, no recording) and 42 (the same day, signed).
    static void Fill(CLogbookDoc& doc)
    {
        for (int number : {41, 42}) {
            auto jump = std::make_unique<CJump>(
                number, CZonedDateTime{CDateTime(2024, 6, 1, 9 + number - 41, 0, 0), 180}, CDateTime(2024, 6, 1));
            jump->SetPlace("Utti");
            if (number == 42)
                jump->SetSignature("Mikko", {});
            doc.AddJump(std::move(jump));
        }
    }

private slots:
    void initTestCase() { RenderCheck::UseLanguage(QLocale(QLocale::English, QLocale::UnitedKingdom)); }

    void ticksAndTargetsDecideWhatIsImported()
    {
        CLogbookDoc doc;
        Fill(doc);
        CCardImportEdit edit(doc, Found());
        QCOMPARE(edit.Rows()[0].candidates, std::vector<int>{41});
        QVERIFY(edit.Rows()[2].candidates.empty());
        CDlgCardImport dialog(edit, Skipped(), m_units, &m_messages);
        QVERIFY(!dialog.IntoOf(2)->isEnabled());
        QCOMPARE(dialog.TickOf(0)->text(), QStringLiteral("01/06/2024 10:15"));

        // Two tracks cannot go into jump 41.
        dialog.IntoOf(0)->setCurrentIndex(1);
        dialog.IntoOf(1)->setCurrentIndex(1);
        dialog.findChild<QPushButton*>(QStringLiteral("importButton"))->click();
        QCOMPARE(m_messages.Texts(CRecordingMessages::Kind::Warning),
                 QStringList{QStringLiteral("Jump 41 can take only one track.")});
        QCOMPARE(dialog.result(), int(QDialog::Rejected));
        m_messages.boxes.clear();
        for (int row : {0, 1, 2})
            dialog.TickOf(row)->setChecked(false);
        QCOMPARE(edit.Check().messageId, int(StringTable::IDS_CARD_NONE_TICKED));
        dialog.TickOf(0)->setChecked(true);
        dialog.TickOf(2)->setChecked(true);
        dialog.findChild<QPushButton*>(QStringLiteral("importButton"))->click();
        QCOMPARE(dialog.result(), int(QDialog::Accepted));

        std::vector<std::size_t> steps;
        CCheckResult refused;
        std::string error;
        const std::size_t imported = edit.Apply(
            doc, m_units, nullptr, m_clock,
            [&steps](std::size_t done, std::size_t) {
                steps.push_back(done);
                return true;
            },
            refused, error);
        QVERIFY(refused.Passed());
        QVERIFY2(error.empty(), error.c_str());
        QCOMPARE(imported, std::size_t(2));
        QCOMPARE(steps, (std::vector<std::size_t>{0, 1, 2}));
        QCOMPARE(int(doc.GetJumpCount()), 3);
        QCOMPARE(doc.GetJump(0).GetFallrateKind(), FallrateKind::Import);
        QCOMPARE(doc.GetJump(0).GetExitHeight(), 4000);
        QCOMPARE(doc.GetJump(2).GetNumber(), 43);
        QCOMPARE(doc.GetJump(2).GetExitHeight(), 3000);
    }

    void pictures()
    {
        CLogbookDoc doc;
        Fill(doc);
        CCardImportEdit edit(doc, Found());
        CDlgCardImport dialog(edit, Skipped(), m_units, &m_messages);
        dialog.show();
        QVERIFY(QTest::qWaitForWindowExposed(&dialog));
        const QStringList problems =
            RenderCheck::EveryPageAtEverySize(dialog, *dialog.Tabs(), QStringLiteral("card_import"));
        QVERIFY2(problems.isEmpty(), qPrintable(problems.join(QLatin1Char('\n'))));
    }
};

QTEST_MAIN(TestCardImportDialog)
#include "CardImportDialogTest.moc"
