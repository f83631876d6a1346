// The jump editor's recording page: there only for a jump with a recording (its own or one
// taken from a logger after the editor was made), after Info, without moving the pages the
// editor opens on or fails on; the exit and deployment marked for an imported fall rate only;
// and pictures of the page for a barometric and a satellite recording at 240x320, 320x240,
// 360x640 and 1024x768, written as PNG files into the folder named by TERVOLA_RENDER_DIR
// (nothing without it), each checked for cut-off texts and for scrolling.

#include "CRecordingMessages.h"
#include "CRenderCheck.h"
#include "tests/controls/SyntheticJump.h"

#include "controls/CRecordingPlot.h"
#include "dialogs/CDlgJump.h"
#include "dialogs/CDlgJumpPageInfo.h"
#include "dialogs/CDlgJumpPageNote.h"
#include "dialogs/CDlgJumpPageRecording.h"
#include "dialogs/CDlgJumpPageSignature.h"
#include "document/CLogbookDoc.h"
#include "document/IClock.h"
#include "units/CMemorySettingsStore.h"
#include "units/CUnitSettings.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QDir>
#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QTabWidget>
#include <QtTest>

#include <cmath>
#include <memory>

namespace {

// A logbook of one jump, with a recording of the given kind (none: without) and, for an
// imported one, the fall rate worked out from it.
struct CLogbook
{
    explicit CLogbook(int kind, bool imported = false)
    {
        auto made =
            std::make_unique<CJump>(7, CZonedDateTime{CDateTime(2024, 7, 20, 15, 40, 0), 180}, CDateTime(2024, 7, 20));
        made->SetFallrate(Standard, 4000, 1000, 0, 0, 0);
        if (imported)
            made->SetFallrateValues(
                {Import, 4000, 1000, static_cast<int>(std::lround(SyntheticJump::FreefallTime())), 200, 55.0, 47.0});
        if (kind != CJumpRecording::None)
            made->Recording() = SyntheticJump::Recording(kind);
        jump = doc.AddJump(std::move(made));
        doc.SetModified(false);
    }

    std::unique_ptr<CDlgJump> Editor(const CUnitSettings& editorUnits)
    {
        return std::make_unique<CDlgJump>(doc, editorUnits, &store, clock, jump, &messages);
    }

    CLogbookDoc doc;
    CMemorySettingsStore store;
    CFixedClock clock{CDateTime(2024, 7, 21, 11, 5, 0)};
    CRecordingMessages messages;
    CJump* jump = nullptr;
};

} // namespace

class TestJumpEditorRecording : public QObject
{
    Q_OBJECT

private slots:
    void pageOnlyWithARecording()
    {
        const CUnitSettings units(CUnitSettings::Metric, 0, 0);
        const struct
        {
            const char* name;
            int kind;
            bool takenLater;
            QString title;
        } cases[] = {{"none", CJumpRecording::None, false, {}},
                     {"baro", CJumpRecording::Barometric, false, QStringLiteral("Profile")},
                     {"gps", CJumpRecording::Satellite, false, QStringLiteral("Track")},
                     {"imported", CJumpRecording::None, true, QStringLiteral("Track")}};
        for (const auto& c : cases) {
            CLogbook logbook(c.kind);
            auto editor = logbook.Editor(units);
            if (c.takenLater)
                editor->Edit().TakeImport(SyntheticJump::Recording(CJumpRecording::Satellite),
                                          {Import, 4000, 1000, 57, 200, 55.0, 47.0},
                                          {CDateTime(2024, 7, 20, 15, 41, 0), 180});
            editor->InitialisePages();
            QVERIFY2((editor->RecordingPage() != nullptr) == !c.title.isEmpty(), c.name);
            QCOMPARE(editor->PageCount(), c.title.isEmpty() ? 5 : 6);
            if (c.title.isEmpty())
                continue;
            QCOMPARE(editor->IndexOf(editor->RecordingPage()), editor->IndexOf(editor->Info()) + 1);
            QCOMPARE(editor->Tabs()->tabText(editor->IndexOf(editor->RecordingPage())), c.title);
            const CRecordingPlot* plot = editor->RecordingPage()->Plot();
            QVERIFY(!plot->Series().IsEmpty());
            QCOMPARE(plot->Series().HasGround(), c.kind != CJumpRecording::Barometric);
            // The editor opens on the pages named by the rules, wherever the tabs are.
            for (CJumpEdit::Page page : {CJumpEdit::PageDetails, CJumpEdit::PageNote, CJumpEdit::PageSignature}) {
                editor->StartOnPage(page);
                QCOMPARE(editor->Page(editor->ActiveIndex()), editor->PageFor(page));
            }
        }
    }

    void checksStillLandOnTheFailingPage()
    {
        CLogbook logbook(CJumpRecording::Satellite);
        auto editor = logbook.Editor(CUnitSettings(CUnitSettings::Metric, 0, 0));
        editor->show();
        QVERIFY(QTest::qWaitForWindowExposed(editor.get()));
        // Through the recording's page and out again: it has nothing to check.
        editor->SetActivePage(editor->IndexOf(editor->RecordingPage()));
        QVERIFY(editor->SetActivePage(editor->IndexOf(editor->Note())));
        editor->findChild<QComboBox*>(QStringLiteral("jumpSigner"))->setEditText(QStringLiteral("Anna"));
        editor->Buttons()->button(QDialogButtonBox::Ok)->click();
        QCOMPARE(editor->Page(editor->ActiveIndex()), static_cast<CKqPropertyPage*>(editor->SignaturePage()));
        QCOMPARE(logbook.messages.boxes.last().text, QStringLiteral("Please sign the jump or delete the signer."));
        QVERIFY(editor->isVisible());
    }

    void marksFollowTheImportedFallRate()
    {
        const CUnitSettings units(CUnitSettings::Metric, 0, 0);
        const double freefall = SyntheticJump::FreefallTime();
        for (const bool imported : {false, true}) {
            CLogbook logbook(CJumpRecording::Satellite, imported);
            auto editor = logbook.Editor(units);
            editor->InitialisePages();
            const CRecordingSeries& series = editor->RecordingPage()->Plot()->Series();
            // Imported: exactly 0 and the freefall time; otherwise where the detection finds
            // them, close to the same moments.
            const auto check = [&](bool exact) {
                QVERIFY(series.ExitTime() && series.DeploymentTime());
                QVERIFY(std::abs(*series.ExitTime()) <= (exact ? 0.0 : 1.5));
                QVERIFY(std::abs(*series.DeploymentTime() - (exact ? std::round(freefall) : freefall)) <=
                        (exact ? 0.0 : 2.0));
            };
            check(imported);
            if (!imported)
                continue;
            // Another kind typed by hand: the recording's times no longer say where the jump is.
            auto* kind = editor->findChild<QComboBox*>(QStringLiteral("jumpKind"));
            kind->setCurrentIndex(Manual);
            emit kind->activated(Manual);
            check(false);
            kind->setCurrentIndex(Import);
            emit kind->activated(Import);
            check(true);
        }
    }

    void picturesAtEverySize()
    {
        const QString folder = qEnvironmentVariable("TERVOLA_RENDER_DIR");
        const struct
        {
            const char* name;
            int kind;
            CUnitSettings units;
        } recordings[] = {{"gps", CJumpRecording::Satellite, {CUnitSettings::Metric, CUnitSettings::PerHour, 0}},
                          {"baro", CJumpRecording::Barometric, {CUnitSettings::Imperial, CUnitSettings::PerSecond, 0}}};
        for (const auto& recording : recordings)
            for (const QSize size : {QSize(240, 320), QSize(320, 240), QSize(360, 640), QSize(1024, 768)}) {
                CLogbook logbook(recording.kind, true);
                auto editor = logbook.Editor(recording.units);
                editor->show();
                QVERIFY(QTest::qWaitForWindowExposed(editor.get()));
                // A desktop shows the editor at its natural size, a handheld or phone full-screen.
                editor->resize(size.width() > 500 ? editor->sizeHint().boundedTo(size) : size);
                editor->StartOnPage(editor->RecordingPage());
                QCoreApplication::processEvents();
                CRecordingPlot* plot = editor->RecordingPage()->Plot();
                QTest::mouseMove(plot, QPoint(qRound(plot->XOfTime(20.0)), qRound(plot->SpeedArea().center().y())));
                QVERIFY(plot->HasCursor());

                const QString file = QStringLiteral("jump_recording_%1_%2x%3.png")
                                         .arg(QLatin1String(recording.name))
                                         .arg(size.width())
                                         .arg(size.height());
                // Painted in any case: the cursor's box is placed as it is painted.
                const QPixmap picture = editor->grab();
                if (!folder.isEmpty())
                    QVERIFY(picture.save(QDir(folder).filePath(file)));
                QWidget* shown = editor->Tabs()->currentWidget();
                QStringList problems = RenderCheck::Clipped(editor.get()) + RenderCheck::ScrollsSideways(shown);
                // The plot fits the page: nothing to scroll up or down to.
                if (auto* scroller = qobject_cast<QScrollArea*>(shown);
                    scroller && scroller->verticalScrollBar()->maximum() > 0)
                    problems.append(QStringLiteral("scrolls up and down"));
                if (!QRectF(plot->rect()).contains(plot->CursorBox()))
                    problems.append(QStringLiteral("cursor box outside"));
                QVERIFY2(problems.isEmpty(),
                         qPrintable(file + QStringLiteral(": ") + problems.join(QStringLiteral("; "))));
            }
    }
};

QTEST_MAIN(TestJumpEditorRecording)
#include "JumpEditorRecordingTest.moc"
