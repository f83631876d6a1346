// The jump commands on the real main window: a new jump through the editor, changing a listed
// jump, signing from the sign list, Cancel, and the saved file afterwards.

#include "CAppHarness.h"

#include "app/AppCommands.h"
#include "app/CJumpTableModel.h"

#include "controls/CKqSpinBox.h"
#include "controls/CSignatureCtrl.h"
#include "dialogs/CDlgJump.h"

#include <QAction>
#include <QComboBox>
#include <QProxyStyle>
#include <QToolButton>
#include <QtTest>

using Mode = CLogbookView::ViewMode;

namespace {

// A style on which a single click activates a row, as on some desktops and handhelds.
class CSingleClickStyle : public QProxyStyle
{
public:
    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                  QStyleHintReturn* returned) const override
    {
        if (hint == SH_ItemView_ActivateItemOnSingleClick)
            return 1;
        return QProxyStyle::styleHint(hint, option, widget, returned);
    }
};

// Jumps 1 and 2 signed, 3 not.
CTestLogbook Logbook()
{
    return CTestLogbook()
        .Jump(1, "2024-05-01T10:00:00Z", "Tervola", 4000, 1000, 60, {}, "Anna")
        .Jump(2, "2024-05-02T10:00:00Z", "Kemi", 4000, 1000, 60, {}, "Anna")
        .Jump(3, "2024-05-03T10:00:00Z", "Utti", 3000, 1000, 50);
}

} // namespace

class TestJumps : public QObject
{
    Q_OBJECT

private slots:
    void newJumpJoinsListAndFile()
    {
        CAppHarness harness;
        const QString path = harness.StartWith(Logbook());
        harness.View()->OnViewJumpList();
        QAction* action = harness.Frame()->findChild<QAction*>(QStringLiteral("jumpNewAction"));
        QCOMPARE(action->shortcut(), QKeySequence(Qt::CTRL | Qt::Key_J));
        harness.dialogs.steps.append(CScriptedDialogs::Ok<CDlgJump>([](CDlgJump& dialog) {
            dialog.findChild<QComboBox*>("jumpPlace")->setEditText(QStringLiteral("Rovaniemi"));
        }));
        action->trigger();

        QCOMPARE(harness.dialogs.ran, QStringList{QStringLiteral("jumpEditor")});
        CLogbookDoc& doc = harness.Doc();
        QCOMPARE(int(doc.GetJumpCount()), 4);
        const CJump* added = doc.GetLastJump();
        QCOMPARE(added->GetNumber(), 4);
        QCOMPARE(added->GetPlace(), std::string("Rovaniemi"));
        QVERIFY(doc.IsModified());
        CJumpListCtrl* list = harness.View()->List();
        QCOMPARE(list->RowCount(), 4);
        QCOMPARE(list->SelectedJump(), added);
        QVERIFY(harness.Frame()->isWindowModified());

        harness.Commands()->OnFileSave();
        harness.Commands()->WaitForSaves();
        QCOMPARE(CAppHarness::JumpsInFile(path), 4);
    }

    // Cancel after typing and OK without a change leave the logbook alone; OK after a change
    // rewrites the jump and its row.
    void editingAListedJump()
    {
        using Row = std::tuple<const char*, QString, bool>; // typed, OK
        const Row rows[] = {{"cancel after typing", "Elsewhere", false},
                            {"OK without a change", {}, true},
                            {"OK after a change", "Jämijärvi", true}};
        for (const auto& [name, typed, ok] : rows) {
            const CRow trace{name};
            CAppHarness harness;
            harness.StartWith(Logbook());
            harness.View()->OnViewJumpList();
            harness.dialogs.steps.append([typed = typed, ok = ok](QDialog& dialog) {
                if (!typed.isEmpty())
                    dialog.findChild<QComboBox*>("jumpPlace")->setEditText(typed);
                return ok ? CScriptedDialogs::Ok<CDlgJump>([](CDlgJump&) {})(dialog) : int(QDialog::Rejected);
            });
            emit harness.View()->rowActivated(2);
            const bool changed = ok && !typed.isEmpty();
            const QString place = changed ? typed : QStringLiteral("Utti");
            QCOMPARE(QString::fromStdString(harness.Doc().GetJumps()[2]->GetPlace()), place);
            QCOMPARE(harness.View()->List()->TextAt(2, CJumpTableModel::PlaceColumn), place);
            QCOMPARE(harness.Doc().IsModified(), changed);
        }
    }

    // A new user's first jump: a new logbook, Ctrl+J, OK. The editor's defaults pass its own
    // checks, and the jump is saved as jump 1.
    void firstJumpOfAnEmptyLogbookIsSavedWithOkAlone()
    {
        CAppHarness harness;
        const QString path = harness.StartWith(CTestLogbook());
        harness.Frame()->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(harness.Frame()));
        harness.dialogs.steps.append(CScriptedDialogs::Ok<CDlgJump>([](CDlgJump&) {}));
        QTest::keyClick(harness.Frame(), Qt::Key_J, Qt::ControlModifier);
        QCOMPARE(harness.dialogs.ran, QStringList{QStringLiteral("jumpEditor")});
        QCOMPARE(harness.messages.boxes.size(), 0);
        QCOMPARE(int(harness.Doc().GetJumpCount()), 1);
        QCOMPARE(harness.Doc().GetLastJump()->GetNumber(), 1);
        QVERIFY(!harness.Doc().GetLastJump()->GetWind().IsSet());
        harness.Commands()->OnFileSave();
        harness.Commands()->WaitForSaves();
        QCOMPARE(CAppHarness::JumpsInFile(path), 1);
    }

    // Where a single click activates a row, a tap opens the editor once. A new jump signed in the
    // editor while the sign list shows stays out of that list.
    void oneTapOpensOnceAndASignedNewJumpStaysOffTheSignList()
    {
        CAppHarness harness;
        harness.StartWith(Logbook());
        harness.View()->OnViewSignList();
        CJumpListCtrl* list = harness.View()->List();
        QCOMPARE(list->RowCount(), 1);
        harness.dialogs.steps.append(CScriptedDialogs::Ok<CDlgJump>([](CDlgJump& dialog) {
            dialog.findChild<QComboBox*>("jumpSigner")->setEditText(QStringLiteral("Anna"));
            dialog.findChild<CSignatureCtrl*>("signatureCtrl")->SetStrokes({{{10, 10}, {40, 30}}});
        }));
        harness.Commands()->Execute(AppCommands::ID_JUMP_NEW);
        QCOMPARE(int(harness.Doc().GetJumpCount()), 4);
        QVERIFY(harness.Doc().GetLastJump()->IsSigned());
        QCOMPARE(list->RowCount(), 1);

        CSingleClickStyle style;
        list->setStyle(&style);
        const QRect row = list->visualRect(list->model()->index(0, 0));
        QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, row.center());
        QCOMPARE(harness.dialogs.ran.size(), 2);
        list->setStyle(nullptr);
    }

    void signingTheLastUnsignedJumpReturnsHome()
    {
        CAppHarness harness;
        harness.StartWith(Logbook());
        harness.View()->OnViewSignList();
        QCOMPARE(harness.View()->List()->RowCount(), 1);
        int startPage = -1;
        harness.dialogs.steps.append(CScriptedDialogs::Ok<CDlgJump>([&startPage](CDlgJump& dialog) {
            startPage = dialog.ActiveIndex();
            dialog.findChild<QComboBox*>("jumpSigner")->setEditText(QStringLiteral("Anna"));
            dialog.findChild<CSignatureCtrl*>("signatureCtrl")->SetStrokes({{{10, 10}, {40, 30}}});
        }));
        emit harness.View()->rowActivated(0);
        QCOMPARE(startPage, int(CJumpEdit::PageSignature));
        QCOMPARE(harness.View()->Mode(), Mode::Home);
        QVERIFY(!harness.View()->findChild<QToolButton*>(QStringLiteral("signListButton"))->isEnabled());
        QVERIFY(harness.Doc().GetJumps()[2]->IsSigned());
    }
};

QTEST_MAIN(TestJumps)
#include "AppJumpsTest.moc"
