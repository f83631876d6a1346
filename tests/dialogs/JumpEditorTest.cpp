// The jump editor's window: a failing page holds the user, OK goes to the first failing page,
// a signature is drawn with the mouse, a signed jump is only viewed, and a formatted note is
// shown and kept.

#include "CRecordingMessages.h"

#include "controls/CKqSpinBox.h"
#include "controls/CSignatureCtrl.h"
#include "dialogs/CDlgJump.h"
#include "dialogs/CDlgJumpPageNote.h"
#include "dialogs/CDlgJumpPageSignature.h"
#include "document/CLogbookDoc.h"
#include "document/IClock.h"
#include "units/CMemorySettingsStore.h"
#include "units/CUnitSettings.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QPushButton>
#include <QTabWidget>
#include <QTextBrowser>
#include <QToolButton>
#include <QtTest>

#include <memory>

namespace {

// One logbook of two jumps, and an editor on it.
struct CEditorHarness
{
    CEditorHarness()
    {
        for (int number : {1, 2}) {
            auto jump = std::make_unique<CJump>(number, CZonedDateTime{CDateTime(2024, 5, number, 12, 0, 0), 0},
                                                CDateTime(2024, 5, number));
            jump->SetFallrate(Standard, 4000, 1000, 0, 0, 0);
            jumps[number - 1] = doc.AddJump(std::move(jump));
        }
        doc.SetModified(false);
        // New jumps start without wind, so that only the fields a test fills decide its checks.
        store.SetInt("Jump", "HasWind", 0);
    }

    CDlgJump& Open(CJump* jump)
    {
        dialog = std::make_unique<CDlgJump>(doc, units, &store, clock, jump, &messages);
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
    CJump* jumps[2] = {};
    std::unique_ptr<CDlgJump> dialog;
};

} // namespace

class TestJumpEditor : public QObject
{
    Q_OBJECT

private slots:
    void failingPageHoldsTheUserOnItsField()
    {
        CEditorHarness h;
        CDlgJump& editor = h.Open(nullptr);
        CKqSpinBox* number = h.Find<CKqSpinBox>("jumpNumber");
        number->selectAll();
        QTest::keyClicks(number, QStringLiteral("100000"));
        editor.Tabs()->setCurrentIndex(2);
        QCOMPARE(editor.ActiveIndex(), 0);
        QCOMPARE(h.messages.Texts(CRecordingMessages::Kind::Warning),
                 QStringList{QStringLiteral("Please enter a value between 1 and 99999.")});
        QCOMPARE(editor.focusWidget(), static_cast<QWidget*>(number));

        // A number the spinner never reaches passes when typed.
        number->selectAll();
        QTest::keyClicks(number, QStringLiteral("32768"));
        editor.Tabs()->setCurrentIndex(2);
        QCOMPARE(editor.ActiveIndex(), 2);
    }

    void okGoesToTheFirstFailingPage()
    {
        CEditorHarness h;
        CDlgJump& editor = h.Open(nullptr);
        h.Find<QComboBox>("jumpSigner")->setEditText(QStringLiteral("Anna"));
        h.Find<CKqSpinBox>("jumpSize")->setValue(1000);
        h.PressOk();
        QCOMPARE(editor.ActiveIndex(), int(CJumpEdit::PageInfo));
        QCOMPARE(h.messages.boxes.size(), 1);
        QCOMPARE(editor.focusWidget(), static_cast<QWidget*>(h.Find<CKqSpinBox>("jumpSize")));
        QVERIFY(editor.isVisible());
        QCOMPARE(int(h.doc.GetJumpCount()), 2);

        h.Find<CKqSpinBox>("jumpSize")->setValue(4);
        h.PressOk();
        QCOMPARE(editor.ActiveIndex(), int(CJumpEdit::PageSignature));
        QCOMPARE(h.messages.boxes.last().text, QStringLiteral("Please sign the jump or delete the signer."));
    }

    void signatureFromTheMouse()
    {
        CEditorHarness h;
        CDlgJump& editor = h.Open(h.jumps[1]);
        editor.Tabs()->setCurrentIndex(CJumpEdit::PageSignature);
        CSignatureCtrl* area = editor.SignaturePage()->Signature();
        QToolButton* undo = editor.SignaturePage()->UndoButton();
        QVERIFY(!undo->isEnabled());
        const QPoint centre = area->rect().center();
        QTest::mouseClick(area, Qt::LeftButton, {}, centre);
        QCOMPARE(int(area->Strokes().size()), 1);
        QCOMPARE(int(area->Strokes()[0].size()), 1);
        QVERIFY(undo->isEnabled());

        // A second stroke; then the undo button takes them back newest first.
        QTest::mousePress(area, Qt::LeftButton, {}, centre + QPoint(-20, -5));
        QMouseEvent move(QEvent::MouseMove, QPointF(centre + QPoint(10, 5)), area->mapToGlobal(QPointF(centre)),
                         Qt::NoButton, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(area, &move);
        QTest::mouseRelease(area, Qt::LeftButton, {}, centre + QPoint(10, 5));
        QCOMPARE(int(area->Strokes().size()), 2);
        QCOMPARE(int(area->Strokes()[1].size()), 2);
        undo->click();
        QCOMPARE(int(area->Strokes().size()), 1);

        h.Find<QComboBox>("jumpSigner")->setEditText(QStringLiteral("  Anna, D-1234 "));
        h.PressOk();
        QCOMPARE(editor.result(), int(QDialog::Accepted));
        QCOMPARE(h.jumps[1]->GetSignature().GetName(), std::string("Anna, D-1234"));
        QCOMPARE(int(h.jumps[1]->GetSignature().GetStrokes().size()), 1);
        QVERIFY(h.doc.IsModified());
    }

    void signedJumpIsOnlyViewed()
    {
        CEditorHarness h;
        h.jumps[0]->SetSignature("Anna", {{{5, 5}, {9, 9}}});
        CDlgJump& editor = h.Open(h.jumps[0]);
        QVERIFY(h.Find<CKqSpinBox>("jumpNumber")->isReadOnly());
        QVERIFY(!h.Find<QComboBox>("jumpPlace")->isEnabled());
        QVERIFY(!h.Find<QComboBox>("jumpKind")->isEnabled());
        QVERIFY(editor.SignaturePage()->Signature()->IsReadOnly());
        QVERIFY(editor.SignaturePage()->UndoButton()->isHidden());
        h.PressOk();
        QCOMPARE(editor.result(), int(QDialog::Accepted));
        QVERIFY(!h.doc.IsModified());
    }

    void formattedNoteIsShownAndKept()
    {
        CEditorHarness h;
        const std::string markup = "<p><b>Bold</b> landing</p><img src=\"file:///etc/passwd\"/>";
        h.jumps[1]->SetNote(markup);
        CDlgJump& editor = h.Open(h.jumps[1]);
        QVERIFY(editor.Note()->Editor() == nullptr);
        QVERIFY(editor.Note()->View()->toPlainText().contains(QStringLiteral("Bold landing")));
        h.Find<QComboBox>("jumpPlace")->setEditText(QStringLiteral("Kemi"));
        h.PressOk();
        QCOMPARE(h.jumps[1]->GetNote(), markup);
        QCOMPARE(h.jumps[1]->GetPlace(), std::string("Kemi"));
    }
};

QTEST_MAIN(TestJumpEditor)
#include "JumpEditorTest.moc"
