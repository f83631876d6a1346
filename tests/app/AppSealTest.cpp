// Seals in the window: the table's seal column, the rows' icons and the details pane in the three
// states, and "Remove signature..." from the list's menu and the Jump menu. With TERVOLA_RENDER_DIR
// set, pictures of the desktop table and the touch list at 1024x768 and 240x320.

#include "CAppHarness.h"
#include "CRenderCheck.h"

#include "app/CDesktopPane.h"
#include "app/CJumpDetailsPane.h"
#include "app/CJumpTableModel.h"
#include "dialogs/CDlgJump.h"
#include "model/CJumpSeal.h"

#include <QAction>
#include <QComboBox>
#include <QMenu>
#include <QTableView>
#include <QtTest>

#include <memory>

namespace {

using M = CJumpTableModel;

// 1 signed by another program, 2 and 3 signed here, 4 not signed.
CTestLogbook Logbook()
{
    return CTestLogbook()
        .Jump(1, "2024-05-01T10:00:00Z", "Tervola", 4000, 1000, 60, {}, "Anna")
        .Jump(2, "2024-05-02T10:00:00Z", "Kemi", 4000, 1000, 60)
        .Jump(3, "2024-05-03T10:00:00Z", "Utti", 3000, 1000, 50)
        .Jump(4, "2024-05-04T10:00:00Z", "Alavus", 3000, 1000, 50);
}

// Seals jumps 2 and 3 as the editor does, then changes jump 3's place as another program could.
void SealAndBreak(CLogbookDoc& doc)
{
    for (const std::size_t index : {1u, 2u})
        doc.ChangeJump(index, [&doc](CJump& jump) {
            jump.SetSignature("Mikko Virtanen", {{{20, 40}, {60, 20}, {100, 50}, {140, 25}}, {{30, 60}, {150, 62}}});
            jump.Signature().SetLicence("SIL-D-1042");
            jump.Signature().SetId(JumpSeal::Compute(jump, doc.GetSettings()));
            return true;
        });
    doc.ChangeJump(2, [](CJump& jump) { return jump.SetPlace("Utti East"); });
}

QStringList Column(const QAbstractItemModel* model, int column)
{
    QStringList cells;
    for (int row = 0; row < model->rowCount(); ++row)
        cells << model->index(row, column).data().toString();
    return cells;
}

QList<int> Icons(const M* model)
{
    QList<int> icons;
    for (int row = 0; row < model->rowCount(); ++row)
        icons << model->IconIndexAt(row);
    return icons;
}

} // namespace

class TestSeals : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { RenderCheck::UseLanguage(QLocale(QLocale::English, QLocale::UnitedStates)); }

    void tableListAndDetailsShowTheSeal()
    {
        CAppHarness harness;
        harness.StartWith(Logbook());
        SealAndBreak(harness.Doc());
        harness.Frame()->resize(1024, 768);
        harness.Frame()->show();
        QApplication::processEvents();
        CDesktopPane* desktop = harness.View()->Desktop();
        QTableView* table = desktop->Table();
        QVERIFY(!table->isColumnHidden(M::SealColumn));
        QCOMPARE(Column(table->model(), M::SealColumn),
                 (QStringList{"Signed, not sealed", "Sealed", "Changed after signing", ""}));
        const QList<int> icons{M::Signed, M::Sealed, M::SealChanged, M::Unsigned};
        QCOMPARE(Icons(qobject_cast<M*>(table->model())), icons);
        desktop->SelectRow(2);
        QCOMPARE(desktop->Details()->ValueText(M::SealColumn), QStringLiteral("Changed after signing"));
        QCOMPARE(desktop->Details()->ValueText(M::SignerColumn), QStringLiteral("Mikko Virtanen (licence SIL-D-1042)"));
        // The picture shows the seal column, beside the signer's.
        table->scrollTo(table->model()->index(2, M::SealColumn));
        QApplication::processEvents();
        QVERIFY(RenderCheck::Save(harness.Frame(), QStringLiteral("seals_table_1024x768.png")));

        harness.Frame()->resize(240, 320);
        QApplication::processEvents();
        harness.View()->OnViewJumpList();
        QApplication::processEvents();
        QCOMPARE(Icons(harness.View()->List()->Model()), icons);
        QVERIFY(RenderCheck::Save(harness.Frame(), QStringLiteral("seals_list_240x320.png")));
    }

    // The question names the jump and the signer; No keeps the signature, Yes takes it off and the
    // jump opens for editing. An unsigned jump offers nothing to remove.
    void removeSignatureAsksFirstAndOpensTheJump()
    {
        CAppHarness harness;
        harness.StartWith(Logbook());
        SealAndBreak(harness.Doc());
        harness.View()->OnViewJumpList();
        harness.SelectRow(3);
        std::unique_ptr<QMenu> menu(harness.Commands()->CreateContextMenu(nullptr));
        QVERIFY(!menu->findChild<QAction*>("removeSignatureAction")->isEnabled());

        harness.SelectRow(2);
        menu.reset(harness.Commands()->CreateContextMenu(nullptr));
        QAction* fromMenu = menu->findChild<QAction*>("removeSignatureAction");
        QVERIFY(fromMenu->isEnabled());
        harness.messages.yesNoAnswer = false;
        fromMenu->trigger();
        QCOMPARE(harness.messages.Texts(CRecordingMessages::Kind::YesNo),
                 QStringList{"Do you want to remove the signature of Mikko Virtanen from jump 3? The jump can then "
                             "be changed, and it needs to be signed again."});
        QVERIFY(harness.Doc().GetJump(2).IsSigned());

        harness.messages.yesNoAnswer = true;
        harness.Frame()->findChild<QAction*>("jumpRemoveSignatureAction")->trigger();
        QVERIFY(!harness.Doc().GetJump(2).IsSigned());
        QCOMPARE(harness.View()->List()->IconIndexAt(2), int(M::Unsigned));
        QVERIFY(harness.Doc().IsModified());

        bool editable = false;
        harness.dialogs.steps.append(CScriptedDialogs::Ok<CDlgJump>([&editable](CDlgJump& dialog) {
            editable = dialog.findChild<QComboBox*>("jumpSigner")->isEnabled() &&
                       dialog.findChild<QComboBox*>("jumpPlace")->isEnabled();
        }));
        emit harness.View()->rowActivated(2);
        QVERIFY(editable);
    }
};

QTEST_MAIN(TestSeals)
#include "AppSealTest.moc"
