// The logbook view on the real main window: modes, picture buttons, landscape rule, summary,
// the jump lists with their icons and columns, and deleting jumps.

#include "CAppHarness.h"

#include "app/CJumpListCtrl.h"
#include "app/CLogbookView.h"
#include "app/CMainFrame.h"
#include "app/CSummaryPane.h"

#include <QAction>
#include <QHeaderView>
#include <QLocale>
#include <QMenu>
#include <QScrollBar>
#include <QToolButton>
#include <QtTest>

#include <memory>

using Kind = CRecordingMessages::Kind;
using Mode = CLogbookView::ViewMode;

namespace {

// Jump 499 and jump 500, 1,000 m freefall each, opening at 1,000 m and 2,000 m; one signed.
CTestLogbook Extrapolated()
{
    CTestLogbook logbook;
    logbook.PreviousDelay(3600)
        .Jump(500, "2024-03-14T16:20:00+02", "Tervola", 3000, 2000, 50)
        .Jump(499, "2024-03-13T09:00:00Z", "Kemi", 2000, 1000, 40, {}, "Instructor");
    return logbook;
}

// One jump of each icon: plain, with picture, signed, signed with picture.
CTestLogbook FourKinds()
{
    CTestLogbook logbook;
    logbook.Jump(10, "2024-01-05T10:00:00Z", "Utti", 4000, 1000, 60)
        .Jump(11, "2024-01-06T10:00:00Z", "Kemi", 4000, 1000, 60, "a.jpg")
        .Jump(12, "2024-01-07T10:00:00Z", "Tervola", 4000, 1000, 60, {}, "Instructor")
        .Jump(13, "2024-01-08T10:00:00Z", "Rovaniemi", 4000, 1000, 60, "b.jpg", "Instructor");
    return logbook;
}

struct Started
{
    std::unique_ptr<CAppHarness> harness = std::make_unique<CAppHarness>();
    CLogbookView* view = nullptr;
};

Started StartWith(const CTestLogbook& logbook, int units = 1)
{
    Started started;
    started.harness->settings.SetInt("Preferences", "Units", units);
    started.harness->SetLastFile(started.harness->Write(logbook, "view.tvz"));
    if (started.harness->StartWithoutSplash())
        started.view = started.harness->View();
    return started;
}

QToolButton* Button(CLogbookView* view, const char* name)
{
    return view->findChild<QToolButton*>(name);
}

} // namespace

class TestView : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedStates)); }

    // Which controls each mode shows (start buttons, list, home, sign list, jump list, Open page).
    void modesShowTheirControls_data()
    {
        QTest::addColumn<int>("mode");
        QTest::addColumn<QString>("visible");
        QTest::newRow("Empty") << int(Mode::Empty) << "startNewButton startOpenButton";
        QTest::newRow("Home") << int(Mode::Home) << "signListButton jumpListButton pageOpenButton summary";
        QTest::newRow("JumpList") << int(Mode::JumpList) << "homeButton pageOpenButton jumpList1188";
        QTest::newRow("SignList") << int(Mode::SignList) << "homeButton pageOpenButton jumpList1188";
    }

    void modesShowTheirControls()
    {
        QFETCH(int, mode);
        QFETCH(QString, visible);
        Started s = StartWith(FourKinds());
        QVERIFY(s.view);
        if (mode == int(Mode::Empty))
        {
            s.harness->Frame()->GetDocument().Clear();
            s.view->Refresh();
        }
        else if (mode == int(Mode::JumpList))
            s.view->OnViewJumpList();
        else if (mode == int(Mode::SignList))
            s.view->OnViewSignList();
        QCOMPARE(int(s.view->GetViewMode()), mode);

        const QStringList all = {"startNewButton", "startOpenButton", "homeButton", "signListButton",
                                 "jumpListButton", "pageOpenButton", "summary", "jumpList1188"};
        const QStringList expected = visible.split(' ');
        for (const QString& name : all)
        {
            QWidget* widget = s.view->findChild<QWidget*>(name);
            const bool shown = widget && widget->isVisibleTo(s.view);
            QVERIFY2(shown == expected.contains(name), qPrintable(name));
        }
    }

    // The sign-list button needs an unsigned jump, the jump-list button any jump.
    void buttonsEnabledByContent_data()
    {
        QTest::addColumn<CTestLogbook>("logbook");
        QTest::addColumn<bool>("signList");
        QTest::addColumn<bool>("jumpList");
        QTest::newRow("no jumps") << CTestLogbook() << false << false;
        QTest::newRow("all signed")
            << CTestLogbook().Jump(1, "2024-01-05T10:00:00Z", "Utti", 4000, 1000, 60, {}, "Instructor") << false
            << true;
        QTest::newRow("one unsigned") << FourKinds() << true << true;
    }

    void buttonsEnabledByContent()
    {
        QFETCH(CTestLogbook, logbook);
        QFETCH(bool, signList);
        QFETCH(bool, jumpList);
        Started s = StartWith(logbook);
        QVERIFY(s.view);
        QCOMPARE(s.view->GetViewMode(), Mode::Home);
        QCOMPARE(Button(s.view, "signListButton")->isEnabled(), signList);
        QCOMPARE(Button(s.view, "jumpListButton")->isEnabled(), jumpList);
        QVERIFY(Button(s.view, "pageOpenButton")->isEnabled());
    }

    void landscapeOnlyAtExactly320_data()
    {
        QTest::addColumn<int>("width");
        QTest::addColumn<bool>("landscape");
        QTest::newRow("240") << 240 << false;
        QTest::newRow("319") << 319 << false;
        QTest::newRow("320") << 320 << true;
        QTest::newRow("321") << 321 << false;
        QTest::newRow("1024") << 1024 << false;
    }

    void landscapeOnlyAtExactly320()
    {
        QFETCH(int, width);
        QFETCH(bool, landscape);
        Started s = StartWith(FourKinds());
        QVERIFY(s.view);
        s.harness->Frame()->resize(width, 240);
        QCoreApplication::processEvents();
        QCOMPARE(s.view->width(), width);
        QCOMPARE(s.view->IsLandscape(), landscape);
        // Landscape puts the buttons in a column beside the page, portrait in a row above it.
        const QWidget* signList = Button(s.view, "signListButton");
        const QWidget* jumpList = Button(s.view, "jumpListButton");
        QCOMPARE(jumpList->y() > signList->y(), landscape);
        QCOMPARE(jumpList->x() > signList->x(), !landscape);
        // And the summary beside the buttons, or below them.
        const QWidget* summary = s.view->GetSummary();
        const int buttonsBottom = signList->mapTo(s.view, QPoint(0, signList->height())).y();
        QCOMPARE(summary->mapTo(s.view, QPoint(0, 0)).y() < buttonsBottom, landscape);
    }

    // Jump number is the last number; distances are extrapolated to it:
    // freefall 2,000 m x 500 / 2 = 500 km, canopy 3,000 m x 500 / 2 = 750 km.
    void summaryValues_data()
    {
        QTest::addColumn<int>("units");
        QTest::addColumn<QStringList>("labels");
        QTest::addColumn<QStringList>("values");
        QTest::newRow("metric") << 1
                                << QStringList{"Number of Jumps", "Freefall Time", "Freefall Dist. [km]",
                                               "Canopy Dist. [km]", "Last Jump"}
                                << QStringList{"500", "1:01:30", "500", "750", "3/14/24"};
        QTest::newRow("imperial") << 0
                                  << QStringList{"Number of Jumps", "Freefall Time", "Freefall Dist. [mi]",
                                                 "Canopy Dist. [mi]", "Last Jump"}
                                  << QStringList{"500", "1:01:30", "311", "466", "3/14/24"};
    }

    void summaryValues()
    {
        QFETCH(int, units);
        QFETCH(QStringList, labels);
        QFETCH(QStringList, values);
        Started s = StartWith(Extrapolated(), units);
        QVERIFY(s.view);
        const CSummaryPane* summary = s.view->GetSummary();
        QVERIFY(summary->isVisibleTo(s.view));
        for (int row = 0; row < CSummaryPane::RowCount; ++row)
        {
            QCOMPARE(summary->LabelText(row), labels[row]);
            QCOMPARE(summary->ValueText(row), values[row]);
        }
    }

    void summaryOfEmptyLogbook()
    {
        Started s = StartWith(CTestLogbook());
        QVERIFY(s.view);
        const CSummaryPane* summary = s.view->GetSummary();
        QCOMPARE(summary->ValueText(CSummaryPane::NumberOfJumps), QString("0"));
        QCOMPARE(summary->ValueText(CSummaryPane::FreefallTime), QString("0:00:00"));
        QCOMPARE(summary->ValueText(CSummaryPane::FreefallDistance), QString("0"));
        QCOMPARE(summary->ValueText(CSummaryPane::CanopyDistance), QString("0"));
        QCOMPARE(summary->ValueText(CSummaryPane::LastJump), QString());
    }

    void summaryFonts()
    {
        QCOMPARE(CSummaryPane::LabelFont().pixelSize(), 11);
        QCOMPARE(CSummaryPane::LabelFont().weight(), QFont::Normal);
        QCOMPARE(CSummaryPane::ValueFont().pixelSize(), 16);
        QCOMPARE(CSummaryPane::ValueFont().weight(), QFont::Bold);
        QVERIFY(!QFontInfo(CSummaryPane::LabelFont()).family().isEmpty());
    }

    void listRowsAndIcons_data()
    {
        QTest::addColumn<bool>("signList");
        QTest::addColumn<QStringList>("rows");
        QTest::addColumn<QList<int>>("icons");
        QTest::newRow("all jumps") << false
                                   << QStringList{"10|1/5/24|Utti", "11|1/6/24|Kemi", "12|1/7/24|Tervola",
                                                  "13|1/8/24|Rovaniemi"}
                                   << QList<int>{0, 1, 2, 3};
        QTest::newRow("to be signed") << true << QStringList{"10|1/5/24|Utti", "11|1/6/24|Kemi"}
                                      << QList<int>{0, 1};
    }

    void listRowsAndIcons()
    {
        QFETCH(bool, signList);
        QFETCH(QStringList, rows);
        QFETCH(QList<int>, icons);
        Started s = StartWith(FourKinds());
        QVERIFY(s.view);
        if (signList)
            s.view->OnViewSignList();
        else
            s.view->OnViewJumpList();
        CJumpListCtrl* list = s.view->GetList();
        QCOMPARE(list->topLevelItemCount(), rows.size());
        for (int row = 0; row < rows.size(); ++row)
        {
            const QTreeWidgetItem* item = list->topLevelItem(row);
            QCOMPARE(QStringList({item->text(0), item->text(1), item->text(2)}).join('|'), rows[row]);
            QCOMPARE(list->IconIndexAt(row), icons[row]);
            QVERIFY(!item->icon(0).isNull());
        }
        QCOMPARE(list->topLevelItem(0)->textAlignment(0) & Qt::AlignRight, int(Qt::AlignRight));
    }

    void listColumnsAndScrolling()
    {
        CTestLogbook many;
        for (int n = 1; n <= 60; ++n)
            many.Jump(n, "2024-02-01T10:00:00Z", QString("Place %1").arg(n), 4000, 1000, 60);
        Started s = StartWith(many);
        QVERIFY(s.view);
        s.harness->Frame()->resize(240, 320);
        QCoreApplication::processEvents();
        s.view->OnViewJumpList();
        QCoreApplication::processEvents();
        CJumpListCtrl* list = s.view->GetList();
        QCOMPARE(list->headerItem()->text(0), QString("Jump"));
        QCOMPARE(list->headerItem()->text(1), QString("Date"));
        QCOMPARE(list->headerItem()->text(2), QString("Place"));
        // The first two columns fit their content; the last takes the rest, less the scroll bar.
        QVERIFY(list->columnWidth(0) >= list->fontMetrics().horizontalAdvance("60"));
        QVERIFY(list->columnWidth(1) >= list->fontMetrics().horizontalAdvance("2/1/24"));
        const int bar = std::max(15, list->style()->pixelMetric(QStyle::PM_ScrollBarExtent, nullptr, list));
        QCOMPARE(list->columnWidth(0) + list->columnWidth(1) + list->columnWidth(2) + bar,
                 list->contentsRect().width());
        // Scrolled so that the last jump is on screen and the first is not.
        const QRect last = list->visualItemRect(list->topLevelItem(59));
        QVERIFY(list->viewport()->rect().contains(last));
        QVERIFY(!list->viewport()->rect().intersects(list->visualItemRect(list->topLevelItem(0))));
    }

    void leavingAListEmptiesIt()
    {
        Started s = StartWith(FourKinds());
        QVERIFY(s.view);
        s.view->OnViewJumpList();
        QCOMPARE(s.view->GetList()->topLevelItemCount(), 4);
        s.view->OnViewSignList();
        QCOMPARE(s.view->GetList()->topLevelItemCount(), 2);
        s.view->OnViewHome();
        QCOMPARE(s.view->GetList()->topLevelItemCount(), 0);
        QVERIFY(!s.view->GetList()->isVisibleTo(s.view));
    }

    void deletingTheOnlyJumpReturnsHome()
    {
        Started s = StartWith(CTestLogbook().Jump(7, "2024-01-05T10:00:00Z", "Utti", 4000, 1000, 60));
        QVERIFY(s.view);
        s.view->OnViewJumpList();
        CJumpListCtrl* list = s.view->GetList();
        list->setCurrentItem(list->topLevelItem(0));
        s.view->OnJumpDelete();
        QCOMPARE(s.harness->messages.Texts(Kind::YesNo), QStringList{"Do you want to delete jump number 7?"});
        QCOMPARE(s.view->GetViewMode(), Mode::Home);
        QVERIFY(!Button(s.view, "jumpListButton")->isEnabled());
        QVERIFY(!Button(s.view, "signListButton")->isEnabled());
        QCOMPARE(s.view->GetSummary()->ValueText(CSummaryPane::NumberOfJumps), QString("0"));
        QVERIFY(s.harness->Frame()->GetDocument().IsModified());
        QVERIFY(s.harness->Frame()->findChild<QAction*>("fileSaveAction")->isEnabled());
    }

    void deleteRemovesTheChosenRowAndStaysInTheList()
    {
        Started s = StartWith(FourKinds());
        QVERIFY(s.view);
        s.view->OnViewJumpList();
        CJumpListCtrl* list = s.view->GetList();
        list->setCurrentItem(list->topLevelItem(1));
        s.view->OnJumpDelete();
        QCOMPARE(s.view->GetViewMode(), Mode::JumpList);
        QCOMPARE(list->topLevelItemCount(), 3);
        QStringList numbers;
        for (const auto& jump : s.harness->Frame()->GetDocument().GetJumps())
            numbers << QString::number(jump->GetNumber());
        QCOMPARE(numbers, (QStringList{"10", "12", "13"}));
        for (int row = 0; row < 3; ++row)
            QCOMPARE(list->topLevelItem(row)->text(0), numbers[row]);
    }

    void deleteAnsweredNoKeepsTheJump()
    {
        Started s = StartWith(FourKinds());
        QVERIFY(s.view);
        s.harness->messages.yesNoAnswer = false;
        s.view->OnViewJumpList();
        s.view->GetList()->setCurrentItem(s.view->GetList()->topLevelItem(3));
        s.view->OnJumpDelete();
        QCOMPARE(s.harness->messages.Texts(Kind::YesNo), QStringList{"Do you want to delete jump number 13?"});
        QCOMPARE(s.view->GetList()->topLevelItemCount(), 4);
        QCOMPARE(s.harness->Frame()->GetDocument().GetJumpCount(), std::size_t(4));
        QVERIFY(!s.harness->Frame()->GetDocument().IsModified());
    }

    void deleteOnlyFromTheJumpList()
    {
        Started s = StartWith(FourKinds());
        QVERIFY(s.view);
        s.view->OnViewSignList();
        s.view->GetList()->setCurrentItem(s.view->GetList()->topLevelItem(0));
        s.view->OnJumpDelete();
        QVERIFY(s.harness->messages.boxes.isEmpty());
        QCOMPARE(s.harness->Frame()->GetDocument().GetJumpCount(), std::size_t(4));
    }

    void contextMenuOffersPictureAndDelete()
    {
        Started s = StartWith(FourKinds());
        QVERIFY(s.view);
        s.view->OnViewJumpList();
        CJumpListCtrl* list = s.view->GetList();
        for (int row : {0, 1})
        {
            list->setCurrentItem(list->topLevelItem(row));
            std::unique_ptr<QMenu> menu(s.view->CreateContextMenu(nullptr));
            QStringList texts;
            for (QAction* action : menu->actions())
                texts << action->text();
            QCOMPARE(texts, (QStringList{"Show picture...", "Delete"}));
            QCOMPARE(menu->actions()[0]->isEnabled(), row == 1); // only row 1 has a picture
            QVERIFY(menu->actions()[1]->isEnabled());
        }
    }
};

Q_DECLARE_METATYPE(CTestLogbook)

QTEST_MAIN(TestView)
#include "test_app_view.moc"
