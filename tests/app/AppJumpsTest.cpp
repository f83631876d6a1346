// The jump commands on the real main window: a new jump through the editor, changing a listed
// jump, signing from the sign list, Cancel, and the saved file afterwards.

#include "CAppHarness.h"

#include "app/CJumpListCtrl.h"
#include "app/CLogbookCommands.h"
#include "app/CLogbookView.h"
#include "app/CMainFrame.h"
#include "controls/CKqSpinBox.h"
#include "controls/CSignatureCtrl.h"
#include "dialogs/CDlgJump.h"

#include <QAction>
#include <QComboBox>
#include <QFile>
#include <QToolButton>
#include <QtTest>

using Mode = CLogbookView::ViewMode;

namespace {

// Jumps 1 and 2 signed, 3 not.
CTestLogbook Logbook()
{
    return CTestLogbook()
        .Jump(1, "2024-05-01T10:00:00Z", "Tervola", 4000, 1000, 60, {}, "Anna")
        .Jump(2, "2024-05-02T10:00:00Z", "Kemi", 4000, 1000, 60, {}, "Anna")
        .Jump(3, "2024-05-03T10:00:00Z", "Utti", 3000, 1000, 50);
}

template <typename T>
T* Find(QDialog& dialog, const char* name)
{
    T* control = dialog.findChild<T*>(QString::fromLatin1(name));
    if (!control)
        qFatal("no control %s", name);
    return control;
}

} // namespace

class TestJumps : public QObject
{
    Q_OBJECT

private slots:
    void newJumpJoinsListTotalsAndFile()
    {
        CAppHarness harness;
        const QString path = harness.StartWith(Logbook());
        harness.View()->OnViewJumpList();
        QAction* action = harness.Frame()->findChild<QAction*>(QStringLiteral("jumpNewAction"));
        QCOMPARE(action->shortcut(), QKeySequence(Qt::CTRL | Qt::Key_J));
        harness.dialogs.steps.append(CScriptedDialogs::Ok<CDlgJump>([](CDlgJump& dialog) {
            Find<QComboBox>(dialog, "jumpPlace")->setEditText(QStringLiteral("Rovaniemi"));
            Find<CKqSpinBox>(dialog, "jumpExit")->setValue(3500);
            Find<CKqSpinBox>(dialog, "jumpWind")->setValue(8);
        }));
        action->trigger();

        QCOMPARE(harness.dialogs.ran, QStringList{QStringLiteral("jumpEditor")});
        CLogbookDoc& doc = harness.Frame()->GetDocument();
        QCOMPARE(int(doc.GetJumpCount()), 4);
        const CJump* added = doc.GetLastJump();
        QCOMPARE(added->GetNumber(), 4);
        QCOMPARE(added->GetPlace(), std::string("Rovaniemi"));
        QVERIFY(doc.IsModified());
        QCOMPARE(doc.GetSummary().numberOfJumps, 4);
        CJumpListCtrl* list = harness.View()->GetList();
        QCOMPARE(list->topLevelItemCount(), 4);
        QCOMPARE(list->SelectedJump(), added);
        QVERIFY(harness.Frame()->isWindowModified());

        harness.Commands()->OnFileSave();
        harness.Commands()->WaitForSaves();
        CLogbookDoc reloaded;
        QVERIFY(reloaded.Load(QFile::encodeName(path).toStdString()));
        // The wind is written with the file's decimals; the rest comes back exactly.
        CJump back = *reloaded.GetLastJump();
        QVERIFY(qFuzzyCompare(back.GetWind().speed, added->GetWind().speed));
        back.SetWind(added->GetWind().direction, added->GetWind().speed);
        QVERIFY(back == *added);
    }

    void cancelAndUnchangedOkLeaveTheLogbookAlone_data()
    {
        QTest::addColumn<bool>("ok");
        QTest::newRow("cancel after typing") << false;
        QTest::newRow("OK without a change") << true;
    }
    void cancelAndUnchangedOkLeaveTheLogbookAlone()
    {
        QFETCH(bool, ok);
        CAppHarness harness;
        harness.StartWith(Logbook());
        harness.View()->OnViewJumpList();
        harness.dialogs.steps.append([ok](QDialog& dialog) {
            if (ok)
                return CScriptedDialogs::Ok<CDlgJump>([](CDlgJump&) {})(dialog);
            Find<QComboBox>(dialog, "jumpPlace")->setEditText(QStringLiteral("Elsewhere"));
            return int(QDialog::Rejected);
        });
        emit harness.View()->rowActivated(2);
        const CLogbookDoc& doc = harness.Frame()->GetDocument();
        QCOMPARE(doc.GetJumps()[2]->GetPlace(), std::string("Utti"));
        QVERIFY(!doc.IsModified());
    }

    void changingAListedJumpRewritesItsRow()
    {
        CAppHarness harness;
        harness.StartWith(Logbook());
        harness.View()->OnViewJumpList();
        harness.dialogs.steps.append(CScriptedDialogs::Ok<CDlgJump>(
            [](CDlgJump& dialog) { Find<QComboBox>(dialog, "jumpPlace")->setEditText(QStringLiteral("Jämijärvi")); }));
        emit harness.View()->rowActivated(2);
        QCOMPARE(harness.View()->GetList()->topLevelItem(2)->text(2), QStringLiteral("Jämijärvi"));
        QVERIFY(harness.Frame()->GetDocument().IsModified());
    }

    void signingTheLastUnsignedJumpReturnsHome()
    {
        CAppHarness harness;
        harness.StartWith(Logbook());
        harness.View()->OnViewSignList();
        QCOMPARE(harness.View()->GetList()->topLevelItemCount(), 1);
        int startPage = -1;
        harness.dialogs.steps.append(CScriptedDialogs::Ok<CDlgJump>([&startPage](CDlgJump& dialog) {
            startPage = dialog.ActiveIndex();
            Find<QComboBox>(dialog, "jumpSigner")->setEditText(QStringLiteral("Anna"));
            Find<CSignatureCtrl>(dialog, "signatureCtrl")->SetStrokes({{{10, 10}, {40, 30}}});
        }));
        emit harness.View()->rowActivated(0);
        QCOMPARE(startPage, int(CJumpEdit::PageSignature));
        QCOMPARE(harness.View()->GetViewMode(), Mode::Home);
        QVERIFY(!harness.View()->findChild<QToolButton*>(QStringLiteral("signListButton"))->isEnabled());
        QVERIFY(harness.Frame()->GetDocument().GetJumps()[2]->IsSigned());
    }
};

QTEST_MAIN(TestJumps)
#include "AppJumpsTest.moc"
