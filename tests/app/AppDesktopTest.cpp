// The desktop layout of the real main window: the switch by the window's width, an edit, an
// import and a delete seen in table, summary and commands without any command touching the
// view, and the table's layout kept in the settings store.

#include "CAppHarness.h"

#include "app/CDesktopPane.h"
#include "app/CJumpDetailsPane.h"
#include "app/CJumpTableModel.h"
#include "app/CSummaryPane.h"
#include "controls/CKqSpinBox.h"
#include "dialogs/CDlgJump.h"
#include "tests/tracks/SyntheticTrack.h"

#include <QAction>
#include <QHeaderView>
#include <QTableView>
#include <QToolBar>
#include <QToolButton>
#include <QtTest>

namespace {

// Jumps 1 and 2 signed, 3 and 4 not.
CTestLogbook Logbook()
{
    return CTestLogbook()
        .Jump(1, "2024-05-01T10:00:00Z", "Tervola", 4000, 1000, 60, {}, "Anna")
        .Jump(2, "2024-05-02T10:00:00Z", "Kemi", 4000, 1000, 60, {}, "Anna")
        .Jump(3, "2024-05-03T10:00:00Z", "Utti", 3000, 1000, 50)
        .Jump(4, "2024-05-04T10:00:00Z", "Alavus", 3000, 1000, 50);
}

QStringList Column(const QTableView* table, int column)
{
    QStringList cells;
    for (int row = 0; row < table->model()->rowCount(); ++row)
        cells << table->model()->index(row, column).data().toString();
    return cells;
}

} // namespace

class TestDesktop : public QObject
{
    Q_OBJECT

private slots:
    void layoutFollowsTheWindowsWidth()
    {
        CAppHarness harness;
        harness.StartWith(Logbook());
        CLogbookView* view = harness.View();
        const struct
        {
            QSize size;
            bool desktop;
        } rows[] = {
            {{1024, 768}, true}, {{360, 640}, false}, {{320, 240}, false}, {{240, 320}, false}, {{1920, 1080}, true}};
        harness.Frame()->show();
        for (const auto& row : rows) {
            const CRow trace{QStringLiteral("%1x%2").arg(row.size.width()).arg(row.size.height())};
            harness.Frame()->resize(row.size);
            QApplication::processEvents();
            QCOMPARE(view->IsDesktopLayout(), row.desktop);
            QCOMPARE(view->Desktop()->isVisible(), row.desktop);
            QCOMPARE(view->findChild<QToolButton*>(QStringLiteral("newJumpButton"))->isVisible(), !row.desktop);
            QCOMPARE(harness.Frame()->JumpBar()->isVisible(), row.desktop);
        }
    }

    void editImportAndDeleteShowInTableSummaryAndCommands()
    {
        CAppHarness harness;
        harness.StartWith(Logbook());
        harness.Frame()->resize(1024, 768);
        harness.Frame()->show();
        QApplication::processEvents();
        CDesktopPane* desktop = harness.View()->Desktop();
        QTableView* table = desktop->Table();
        const CSummaryPane* summary = desktop->Summary();
        const auto action = [&](const char* name) { return harness.Frame()->findChild<QAction*>(name); };
        QCOMPARE(Column(table, CJumpTableModel::NumberColumn), (QStringList{"1", "2", "3", "4"}));
        QVERIFY(!action("jumpDeleteAction")->isEnabled());

        // Edit: jump 3 becomes jump 30 with a new place; the details pane shows it.
        desktop->SelectRow(2);
        QVERIFY(action("jumpChangeAction")->isEnabled());
        harness.dialogs.steps.append(CScriptedDialogs::Ok<CDlgJump>(
            [](CDlgJump& dialog) { dialog.findChild<CKqSpinBox*>("jumpNumber")->setValue(30); }));
        QTest::keyClick(table, Qt::Key_Return);
        QCOMPARE(harness.dialogs.ran.size(), 1);
        QCOMPARE(Column(table, CJumpTableModel::NumberColumn), (QStringList{"1", "2", "4", "30"}));
        QCOMPARE(summary->ValueText(CSummaryPane::NumberOfJumps), QStringLiteral("30"));
        QCOMPARE(desktop->Details()->ValueText(CJumpTableModel::PlaceColumn), QStringLiteral("Utti"));
        QVERIFY(harness.Frame()->isWindowModified());

        // Import: a new jump with a recording joins the table and the summary's count.
        CSyntheticTruth truth;
        const std::string track = WriteFlySight1(MakeJumpTrack(CSyntheticJump{}, truth), FlySight1Columns(), "\r\n");
        harness.files.trackAnswers = {harness.WriteFile("t/07-00-00.CSV", QByteArray::fromStdString(track))};
        harness.dialogs.steps.append(CScriptedDialogs::Ok<CDlgJump>([](CDlgJump&) {}));
        action("jumpImportTrackAction")->trigger();
        QCOMPARE(table->model()->rowCount(), 5);
        QCOMPARE(summary->ValueText(CSummaryPane::NumberOfJumps), QStringLiteral("31"));
        const int imported = table->selectionModel()->currentIndex().row();
        QCOMPARE(table->model()->index(imported, CJumpTableModel::NumberColumn).data().toString(),
                 QStringLiteral("31"));
        QVERIFY(!table->model()->index(imported, CJumpTableModel::RecordingColumn).data(Qt::DecorationRole).isNull());

        // Delete: two rows, one question naming how many; the unsigned ones go.
        table->selectionModel()->clearSelection();
        for (int row : {2, 3})
            table->selectionModel()->select(table->model()->index(row, 0),
                                            QItemSelectionModel::Select | QItemSelectionModel::Rows);
        QVERIFY(action("jumpDeleteAction")->isEnabled());
        harness.messages.yesNoAnswer = true;
        action("jumpDeleteAction")->trigger();
        QCOMPARE(harness.messages.Texts(CRecordingMessages::Kind::YesNo),
                 QStringList{QStringLiteral("Do you want to delete these 2 jumps?")});
        QCOMPARE(Column(table, CJumpTableModel::NumberColumn), (QStringList{"1", "2", "31"}));
        QCOMPARE(summary->ValueText(CSummaryPane::NumberOfJumps), QStringLiteral("31"));

        // Narrowed to a phone: the touch buttons tell the same logbook.
        harness.Frame()->resize(360, 640);
        QApplication::processEvents();
        harness.View()->OnViewHome();
        QVERIFY(harness.View()->findChild<QToolButton*>(QStringLiteral("signListButton"))->isEnabled());
        QCOMPARE(harness.View()->Summary()->ValueText(CSummaryPane::NumberOfJumps), QStringLiteral("31"));
    }

    void tableLayoutIsKept()
    {
        CAppHarness harness;
        harness.StartWith(Logbook());
        CDesktopPane* desktop = harness.View()->Desktop();
        desktop->Table()->setColumnHidden(CJumpTableModel::AircraftColumn, true);
        desktop->Table()->setColumnHidden(CJumpTableModel::TeamColumn, false);
        desktop->Table()->horizontalHeader()->moveSection(CJumpTableModel::PlaceColumn, 0);
        desktop->Table()->sortByColumn(CJumpTableModel::PlaceColumn, Qt::DescendingOrder);
        harness.Frame()->close();

        CDesktopPane again(harness.View()->findChild<CJumpTableModel*>("tableModel"), harness.Frame()->Units(),
                           &harness.settings);
        const QHeaderView* header = again.Table()->horizontalHeader();
        QVERIFY(header->isSectionHidden(CJumpTableModel::AircraftColumn));
        QVERIFY(!header->isSectionHidden(CJumpTableModel::TeamColumn));
        QCOMPARE(header->visualIndex(CJumpTableModel::PlaceColumn), 0);
        QCOMPARE(header->sortIndicatorSection(), int(CJumpTableModel::PlaceColumn));
        QCOMPARE(Column(again.Table(), CJumpTableModel::PlaceColumn),
                 (QStringList{"Utti", "Tervola", "Kemi", "Alavus"}));
        QVERIFY(!harness.settings.GetString("Window", "Geometry", "").empty());
    }
};

QTEST_MAIN(TestDesktop)
#include "AppDesktopTest.moc"
