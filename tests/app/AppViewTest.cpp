// The logbook view on the real main window: modes, picture buttons, landscape rule, summary,
// the jump lists with their icons and columns, and deleting jumps.

#include "CAppHarness.h"

#include "app/CJumpTableModel.h"

#include "app/CSummaryPane.h"

#include <QAction>
#include <QLabel>
#include <QMenu>
#include <QToolButton>
#include <QtTest>

using Kind = CRecordingMessages::Kind;
using Mode = CLogbookView::ViewMode;

namespace {

// One jump of each icon: plain, with picture, signed, signed with picture.
CTestLogbook FourKinds()
{
    return CTestLogbook()
        .Jump(10, "2024-01-05T10:00:00Z", "Utti", 4000, 1000, 60)
        .Jump(11, "2024-01-06T10:00:00Z", "Kemi", 4000, 1000, 60, "a.jpg")
        .Jump(12, "2024-01-07T10:00:00Z", "Tervola", 4000, 1000, 60, {}, "Instructor")
        .Jump(13, "2024-01-08T10:00:00Z", "Rovaniemi", 4000, 1000, 60, "b.jpg", "Instructor");
}

QStringList Rows(const CJumpListCtrl* list)
{
    QStringList rows;
    for (int row = 0; row < list->RowCount(); ++row)
        rows << QStringList{list->TextAt(row, CJumpTableModel::NumberColumn),
                            list->TextAt(row, CJumpTableModel::DateColumn),
                            list->TextAt(row, CJumpTableModel::PlaceColumn), QString::number(list->IconIndexAt(row))}
                    .join('|');
    return rows;
}

} // namespace

class TestView : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedStates)); }

    // Which controls each mode shows, the rows a list mode fills in (number|date|place|icon), and
    // that leaving a list empties it.
    void modes()
    {
        const QStringList all = {"10|1/5/24|Utti|0", "11|1/6/24|Kemi|1", "12|1/7/24|Tervola|2",
                                 "13|1/8/24|Rovaniemi|3"};
        const QString lists = "homeButton pageOpenButton jumpList1188";
        using Row = std::tuple<Mode, QString, QStringList>; // mode, the controls shown, the rows
        const Row rows[] = {{Mode::Home, "signListButton jumpListButton pageOpenButton summary", {}},
                            {Mode::JumpList, lists, all},
                            {Mode::SignList, lists, all.mid(0, 2)},
                            {Mode::Empty, "startNewButton startOpenButton", {}}};
        CAppHarness harness;
        QVERIFY(!harness.StartWith(FourKinds()).isEmpty());
        CLogbookView* view = harness.View();
        for (const auto& [mode, visible, listed] : rows) {
            const CRow trace{visible};
            if (mode == Mode::JumpList)
                view->OnViewJumpList();
            if (mode == Mode::SignList)
                view->OnViewSignList();
            if (mode == Mode::Empty) {
                harness.Doc().Clear();
                view->Refresh();
            }
            QCOMPARE(view->Mode(), mode);
            for (const char* name : {"startNewButton", "startOpenButton", "homeButton", "signListButton",
                                     "jumpListButton", "pageOpenButton", "summary", "jumpList1188"}) {
                QWidget* widget = view->findChild<QWidget*>(name);
                QVERIFY2((widget && widget->isVisibleTo(view)) == visible.split(' ').contains(name), name);
            }
            QCOMPARE(Rows(view->List()), listed);
            view->OnViewHome();
            QCOMPARE(view->List()->RowCount(), 0);
        }
    }

    // Landscape: buttons in a column with the summary beside them; portrait: a row above it.
    void landscapeOnlyAtExactly320()
    {
        CAppHarness harness;
        QVERIFY(!harness.StartWith(FourKinds()).isEmpty());
        const QWidget* signList = harness.View()->findChild<QToolButton*>("signListButton");
        const QWidget* jumpList = harness.View()->findChild<QToolButton*>("jumpListButton");
        for (int width : {240, 319, 320, 321, 1024}) {
            const CRow trace{QString::number(width)};
            harness.Frame()->resize(width, 240);
            QCoreApplication::processEvents();
            QCOMPARE(harness.View()->width(), width);
            QCOMPARE(jumpList->y() > signList->y(), width == 320);
            const int buttonsBottom = signList->mapTo(harness.View(), QPoint(0, signList->height())).y();
            QCOMPARE(harness.View()->Summary()->mapTo(harness.View(), QPoint(0, 0)).y() < buttonsBottom, width == 320);
        }
    }

    // The rows the document sums up, with their units and the locale's date; jumps 499 and 500
    // of 1,000 m freefall each give 2,000 m x 500 / 2 = 500 km.
    void summary()
    {
        CAppHarness harness;
        harness.settings.SetInt("Preferences", "Units", 1);
        const CTestLogbook logbook = CTestLogbook()
                                         .PreviousDelay(3600)
                                         .Jump(500, "2024-03-14T16:20:00+02", "Tervola", 3000, 2000, 50)
                                         .Jump(499, "2024-03-13T09:00:00Z", "Kemi", 2000, 1000, 40);
        QVERIFY(!harness.StartWith(logbook).isEmpty());
        CSummaryPane* pane = harness.View()->Summary();
        QVERIFY(pane->isVisibleTo(harness.View()));
        QStringList shown;
        for (int row = 0; row < CSummaryPane::RowCount; ++row)
            shown << pane->LabelText(row) << pane->ValueText(row);
        QCOMPARE(shown, (QStringList{"Number of Jumps", "500", "Freefall Time", "1:01:30", "Freefall Dist. [km]", "500",
                                     "Canopy Dist. [km]", "750", "Last Jump", "3/14/24"}));
        // Too narrow for label and value side by side: each value goes below its label.
        for (int width : {100, 1000}) {
            pane->FitWidth(width);
            pane->adjustSize();
            QCOMPARE(pane->IsStacked(), width == 100);
            const QLabel* label = pane->findChild<QLabel*>("summaryLabel1");
            const QLabel* value = pane->findChild<QLabel*>("summaryValue1");
            QCOMPARE(value->y() >= label->y() + label->height(), width == 100);
        }
    }

    void listColumnsAndScrolling()
    {
        CAppHarness harness;
        QVERIFY(!harness.StartWith(CTestLogbook().Jumps(1, 60)).isEmpty());
        harness.Frame()->resize(240, 320);
        QCoreApplication::processEvents();
        harness.View()->OnViewJumpList();
        QCoreApplication::processEvents();
        CJumpListCtrl* list = harness.View()->List();
        // The first two columns fit their content; the last takes the rest, less the scroll bar.
        QVERIFY(list->columnWidth(0) >= list->fontMetrics().horizontalAdvance("60"));
        QVERIFY(list->columnWidth(1) >= list->fontMetrics().horizontalAdvance("2/1/24"));
        const int bar = std::max(15, list->style()->pixelMetric(QStyle::PM_ScrollBarExtent, nullptr, list));
        QCOMPARE(list->columnWidth(CJumpTableModel::NumberColumn) + list->columnWidth(CJumpTableModel::DateColumn) +
                     list->columnWidth(CJumpTableModel::PlaceColumn) + bar,
                 list->contentsRect().width());
        // Scrolled so that the last jump is on screen and the first is not.
        QVERIFY(list->viewport()->rect().contains(list->visualRect(list->Model()->index(59, 0))));
        QVERIFY(!list->viewport()->rect().intersects(list->visualRect(list->Model()->index(0, 0))));
    }

    // Delete asks with the jump's number; Yes removes the row and the jump; an empty list
    // returns to Home with the list buttons disabled. Only the jump list deletes. The list's
    // menu offers the editor, a track, the picture when there is one, Delete and the export.
    void deleteJumps()
    {
        CAppHarness harness;
        QVERIFY(!harness.StartWith(FourKinds().Jump(7, "2024-01-01T10:00:00Z", "X", 4000, 1000, 60)).isEmpty());
        CLogbookView* view = harness.View();
        QVERIFY(view->findChild<QToolButton*>("signListButton")->isEnabled()); // an unsigned jump is left
        view->OnViewSignList();
        harness.SelectRow(0);
        harness.Commands()->OnJumpDelete();
        QVERIFY(harness.messages.boxes.isEmpty());

        view->OnViewJumpList();
        for (int row : {1, 2}) { // jumps 10 and 11: unsigned and without a recording, 11 with a picture
            harness.SelectRow(row);
            std::unique_ptr<QMenu> menu(harness.Commands()->CreateContextMenu(nullptr));
            QStringList texts;
            for (const QAction* action : menu->actions())
                if (!action->isSeparator())
                    texts.append(action->text() + (action->isEnabled() ? "" : " (off)"));
            QCOMPARE(texts, (QStringList{"View...", "Change...", "Add track...", "Remove signature... (off)",
                                         row == 2 ? "Show picture..." : "Show picture... (off)", "Delete",
                                         "Export selection..."}));
        }
        harness.messages.yesNoAnswer = false;
        harness.SelectRow(1);
        harness.Commands()->OnJumpDelete();
        QCOMPARE(view->List()->RowCount(), 5);
        harness.messages.yesNoAnswer = true;
        for (int left = 4; left >= 0; --left) {
            harness.SelectRow(left == 4 ? 1 : 0);
            harness.Commands()->OnJumpDelete();
            if (left > 0) {
                QCOMPARE(view->Mode(), Mode::JumpList);
                QCOMPARE(view->List()->RowCount(), left);
            }
        }
        QCOMPARE(harness.messages.Texts(Kind::YesNo),
                 (QStringList{"Do you want to delete jump number 10?", "Do you want to delete jump number 10?",
                              "Do you want to delete jump number 7?", "Do you want to delete jump number 11?",
                              "Do you want to delete jump number 12?", "Do you want to delete jump number 13?"}));
        QCOMPARE(view->Mode(), Mode::Home);
        QVERIFY(!view->findChild<QToolButton*>("jumpListButton")->isEnabled());
        QVERIFY(!view->findChild<QToolButton*>("signListButton")->isEnabled());
        QCOMPARE(view->Summary()->ValueText(CSummaryPane::NumberOfJumps), QString("0"));
        QVERIFY(harness.Frame()->findChild<QAction*>("fileSaveAction")->isEnabled());
    }
};

QTEST_MAIN(TestView)
#include "AppViewTest.moc"
