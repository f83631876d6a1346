// The jump editor's window: a failing page holds the user, OK goes to the first failing page,
// a signature is drawn with the mouse, a signed jump is only viewed, and a formatted note is
// shown and kept. The recording's page is there only for a jump with a recording (its own or
// one taken from a logger after the editor was made), after Info, without moving the pages the
// editor opens on or fails on; its plot marks the exit and deployment of an imported fall rate.

#include "CRecordingMessages.h"
#include "tests/controls/SyntheticJump.h"

#include "controls/CKqDateEdit.h"
#include "controls/CKqSpinBox.h"
#include "controls/CRecordingPlot.h"
#include "controls/CSignatureCtrl.h"
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
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTabWidget>
#include <QTextBrowser>
#include <QToolButton>
#include <QtTest>

#include <cmath>
#include <functional>
#include <memory>

namespace {

// A logbook of jumps 1 and 2, the second with a recording of the given kind (none: without)
// and, for an imported one, the fall rate worked out from it; and an editor on it.
struct CEditorHarness
{
    explicit CEditorHarness(int kind = CJumpRecording::None, bool imported = false)
    {
        for (int number : {1, 2}) {
            auto jump = std::make_unique<CJump>(number, CZonedDateTime{CDateTime(2024, 5, number, 12, 0, 0), 0},
                                                CDateTime(2024, 5, number));
            jump->SetFallrate(FallrateKind::Standard, 4000, 1000, 0, 0, 0);
            jumps[number - 1] = doc.AddJump(std::move(jump));
        }
        if (imported)
            Change(1, [](CJump& jump) {
                jump.SetFallrateValues({FallrateKind::Import, 4000, 1000,
                                        static_cast<int>(std::lround(SyntheticJump::FreefallTime())), 200, 55.0, 47.0});
            });
        if (kind != CJumpRecording::None)
            Change(1, [kind](CJump& jump) { jump.Recording() = SyntheticJump::Recording(kind); });
        doc.SetModified(false);
        // New jumps start without wind, so that only the fields a test fills decide its checks.
        store.SetInt("Jump", "HasWind", 0);
    }

    // Changes jump 1 or 2 through the document, leaving it unmodified as if loaded so.
    void Change(int which, const std::function<void(CJump&)>& change)
    {
        doc.ChangeJump(static_cast<std::size_t>(which), [&](CJump& jump) {
            change(jump);
            return true;
        });
        doc.SetModified(false);
    }

    // The editor, shown or with its pages made without showing it.
    CDlgJump& Open(const CJump* jump, bool show = true)
    {
        dialog = std::make_unique<CDlgJump>(doc, units, &store, clock, jump, &messages);
        if (!show)
            return *dialog;
        dialog->show();
        if (!QTest::qWaitForWindowExposed(dialog.get()))
            qFatal("editor not shown");
        return *dialog;
    }

    void PressOk() { dialog->Buttons()->button(QDialogButtonBox::Ok)->click(); }

    template <typename T>
    T* Find(const char* name) const
    {
        return dialog->findChild<T*>(QString::fromLatin1(name));
    }

    CLogbookDoc doc;
    CUnitSettings units{CUnitSettings::Metric, 0, 0};
    CMemorySettingsStore store;
    CFixedClock clock{CDateTime(2024, 6, 10, 9, 30, 0)};
    CRecordingMessages messages;
    const CJump* jumps[2] = {};
    std::unique_ptr<CDlgJump> dialog;
};

} // namespace

class TestJumpEditor : public QObject
{
    Q_OBJECT

private slots:
    // Leaving a page with a refused number holds the user on its field, though a number the
    // spinner never reaches passes when typed. OK checks the pages in tab order, past the
    // recording's page, which has nothing to check.
    void failingPagesHoldTheUserOnTheirField()
    {
        CEditorHarness h(CJumpRecording::Satellite);
        CDlgJump& editor = h.Open(h.jumps[1]);
        CKqSpinBox* number = h.Find<CKqSpinBox>("jumpNumber");
        number->selectAll();
        QTest::keyClicks(number, QStringLiteral("100000"));
        editor.Tabs()->setCurrentIndex(2);
        QCOMPARE(editor.ActiveIndex(), 0);
        QCOMPARE(h.messages.boxes.size(), 1);
        QCOMPARE(editor.focusWidget(), static_cast<QWidget*>(number));
        number->selectAll();
        QTest::keyClicks(number, QStringLiteral("32768"));
        editor.Tabs()->setCurrentIndex(2);
        QCOMPARE(editor.ActiveIndex(), 2);

        editor.SetActivePage(editor.IndexOf(editor.RecordingPage()));
        QVERIFY(editor.SetActivePage(editor.IndexOf(editor.Note())));
        h.Find<QComboBox>("jumpSigner")->setEditText(QStringLiteral("Anna"));
        h.Find<CKqSpinBox>("jumpSize")->setValue(1000);
        h.PressOk();
        QCOMPARE(editor.ActiveIndex(), int(CJumpEdit::PageInfo));
        QCOMPARE(h.messages.boxes.size(), 2);
        QCOMPARE(editor.focusWidget(), static_cast<QWidget*>(h.Find<CKqSpinBox>("jumpSize")));
        QVERIFY(editor.isVisible());
        QVERIFY(!h.doc.IsModified());

        h.Find<CKqSpinBox>("jumpSize")->setValue(4);
        h.PressOk();
        QCOMPARE(editor.Page(editor.ActiveIndex()), static_cast<CKqPropertyPage*>(editor.SignaturePage()));
        QCOMPARE(h.messages.boxes.last().text, QStringLiteral("Please sign the jump or delete the signer."));
    }

    // A signed jump is only viewed. On another, a formatted note is shown and kept while the
    // place changes, and a signature is drawn with the mouse, the page's undo button taking the
    // newest of two strokes back.
    void signedJumpIsViewedAndANewSignatureDrawn()
    {
        CEditorHarness h;
        h.Change(0, [](CJump& jump) { jump.SetSignature("Anna", {{{5, 5}, {9, 9}}}); });
        CDlgJump* editor = &h.Open(h.jumps[0]);
        QVERIFY(h.Find<CKqSpinBox>("jumpNumber")->isReadOnly());
        QVERIFY(!h.Find<QComboBox>("jumpPlace")->isEnabled());
        QVERIFY(!h.Find<QComboBox>("jumpKind")->isEnabled());
        QVERIFY(editor->SignaturePage()->Signature()->IsReadOnly());
        QVERIFY(editor->SignaturePage()->UndoButton()->isHidden());
        QVERIFY(!h.Find<QLineEdit>("jumpSignerLicence")->isEnabled());
        QCOMPARE(h.Find<QLabel>("jumpSeal")->text(), CDlgJumpPageSignature::SealLine(SealState::Unsealed));
        // One button, "Close", and nothing changes.
        QCOMPARE(editor->Buttons()->buttons().size(), 1);
        editor->Buttons()->button(QDialogButtonBox::Close)->click();
        QVERIFY(!editor->isVisible());
        QVERIFY(!h.doc.IsModified());

        const std::string markup = "<p><b>Bold</b> landing</p><img src=\"file:///etc/passwd\"/>";
        h.Change(1, [&](CJump& jump) { jump.SetNote(markup); });
        editor = &h.Open(h.jumps[1]);
        QVERIFY(editor->Note()->Editor() == nullptr);
        QVERIFY(editor->Note()->View()->toPlainText().contains(QStringLiteral("Bold landing")));
        h.Find<QComboBox>("jumpPlace")->setEditText(QStringLiteral("Kemi"));
        editor->Tabs()->setCurrentIndex(CJumpEdit::PageSignature);
        CSignatureCtrl* area = editor->SignaturePage()->Signature();
        QTest::mouseClick(area, Qt::LeftButton, {}, area->rect().center());
        QTest::mouseClick(area, Qt::LeftButton, {}, area->rect().center() + QPoint(10, 5));
        editor->SignaturePage()->UndoButton()->click();
        h.Find<QComboBox>("jumpSigner")->setEditText(QStringLiteral("  Anna, D-1234 "));
        h.PressOk();
        QCOMPARE(editor->result(), int(QDialog::Accepted));
        QCOMPARE(h.jumps[1]->GetNote(), markup);
        QCOMPARE(h.jumps[1]->GetPlace(), std::string("Kemi"));
        QCOMPARE(h.jumps[1]->GetSignature().GetName(), std::string("Anna, D-1234"));
        QCOMPARE(int(h.jumps[1]->GetSignature().GetStrokes().size()), 1);
        QVERIFY(h.doc.IsModified());
    }

    // A signer the logbook knows brings the licence number it remembers; OK seals the jump with it.
    void aKnownSignerBringsTheLicenceNumber()
    {
        CEditorHarness h;
        CLogbookSettings settings = h.doc.GetSettings();
        settings.RememberSigner("Sanna Hämäläinen", "SIL-D-3315");
        h.doc.ReplaceSettings(settings);
        CDlgJump& editor = h.Open(h.jumps[1]);
        editor.Tabs()->setCurrentIndex(CJumpEdit::PageSignature);
        QVERIFY(!h.Find<QLabel>("jumpSeal")->isVisible());
        auto* signer = h.Find<QComboBox>("jumpSigner");
        signer->setCurrentIndex(signer->findText(QStringLiteral("Sanna Hämäläinen")));
        QCOMPARE(h.Find<QLineEdit>("jumpSignerLicence")->text(), QStringLiteral("SIL-D-3315"));
        CSignatureCtrl* area = editor.SignaturePage()->Signature();
        QTest::mouseClick(area, Qt::LeftButton, {}, area->rect().center());
        h.PressOk();
        QCOMPARE(editor.result(), int(QDialog::Accepted));
        QCOMPARE(h.jumps[1]->GetSignature().GetLicence(), std::string("SIL-D-3315"));
        QCOMPARE(h.jumps[1]->GetSealState(), SealState::Intact);
    }

    // The Fallrate page shows what the heights just typed on Details give, not the heights the
    // editor opened with.
    void fallratePageFollowsTheHeightsJustTyped()
    {
        CEditorHarness h;
        CDlgJump& editor = h.Open(h.jumps[1]);
        CKqSpinBox* delay = h.Find<CKqSpinBox>("jumpDelay");
        const int opened = delay->value();
        CKqSpinBox* exit = h.Find<CKqSpinBox>("jumpExit");
        exit->selectAll();
        QTest::keyClicks(exit, QStringLiteral("3000"));
        editor.Tabs()->setCurrentIndex(CJumpEdit::PageFallrate);
        QCOMPARE(editor.ActiveIndex(), int(CJumpEdit::PageFallrate));
        const double speed = h.doc.GetSettings().FallrateSpeed(FallrateKind::Standard);
        QCOMPARE(delay->value(), int(std::lround(CJump::ComputeFreefallTime(2000, speed))));
        QVERIFY(delay->value() < opened);
    }

    // A jump without a valid time stamp shows no date, and OK asks for one instead of writing a
    // made-up day.
    void aJumpWithoutADateAsksForOne()
    {
        CEditorHarness h;
        h.Change(0, [](CJump& jump) { jump.SetTimestamp({CDateTime(), 0}); });
        CDlgJump& editor = h.Open(h.jumps[0]);
        auto* date = h.Find<CKqDateEdit>("jumpDate");
        QVERIFY(!date->HasDate());
        QCOMPARE(date->text().trimmed(), QString());
        h.PressOk();
        QVERIFY(editor.isVisible());
        QCOMPARE(h.messages.boxes.size(), 1);
        QCOMPARE(editor.focusWidget(), static_cast<QWidget*>(date));
        date->setDate(QDate(2024, 5, 9));
        h.PressOk();
        QVERIFY(!editor.isVisible());
        QCOMPARE(h.jumps[0]->GetTimestamp().dateTime.DateOnly(), CDateTime(2024, 5, 9));
    }

    void pageOnlyWithARecording()
    {
        const struct
        {
            int kind;
            bool takenLater;
            QString title;
        } cases[] = {{CJumpRecording::None, false, {}},
                     {CJumpRecording::Barometric, false, QStringLiteral("Profile")},
                     {CJumpRecording::Satellite, false, QStringLiteral("Track")},
                     {CJumpRecording::None, true, QStringLiteral("Track")}};
        for (const auto& c : cases) {
            CEditorHarness h(c.kind);
            CDlgJump* editor = &h.Open(h.jumps[1], false);
            if (c.takenLater)
                editor->Edit().TakeImport(SyntheticJump::Recording(CJumpRecording::Satellite),
                                          {FallrateKind::Import, 4000, 1000, 57, 200, 55.0, 47.0},
                                          {CDateTime(2024, 7, 20, 15, 41, 0), 180});
            editor->InitialisePages();
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

    // Imported: exactly 0 and the freefall time; another kind typed by hand, where the
    // detection finds them in the recording, close to the same moments.
    void marksFollowTheImportedFallRate()
    {
        const double freefall = SyntheticJump::FreefallTime();
        CEditorHarness h(CJumpRecording::Satellite, true);
        CDlgJump& editor = h.Open(h.jumps[1], false);
        editor.InitialisePages();
        const CRecordingSeries& series = editor.RecordingPage()->Plot()->Series();
        const auto check = [&](bool exact) {
            QVERIFY(series.ExitTime() && series.DeploymentTime());
            QVERIFY(std::abs(*series.ExitTime()) <= (exact ? 0.0 : 1.5));
            QVERIFY(std::abs(*series.DeploymentTime() - (exact ? std::round(freefall) : freefall)) <=
                    (exact ? 0.0 : 2.0));
        };
        check(true);
        auto* kind = h.Find<QComboBox>("jumpKind");
        for (const int picked : {int(FallrateKind::Manual), int(FallrateKind::Import)}) {
            kind->setCurrentIndex(picked);
            emit kind->activated(picked);
            check(picked == int(FallrateKind::Import));
        }
    }
};

QTEST_MAIN(TestJumpEditor)
#include "JumpEditorTest.moc"
