// The search in the real main window: typing a query into the desktop table's field, a query that
// cannot be read, Escape and Ctrl+F; the touch layout's list of jumps to be signed as the search
// "signed:no"; and "Export selection..." writing the chosen jumps.

#include "CAppHarness.h"

#include "app/AppCommands.h"
#include "app/CDesktopPane.h"
#include "app/CJumpTableModel.h"
#include "app/CSearchBar.h"
#include "app/CSummaryPane.h"
#include "query/CJumpIndex.h"
#include "query/CQueryParser.h"

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QLineEdit>
#include <QTableView>
#include <QtTest>

namespace {

// Jumps 1 to 6 at three places; 1, 2 and 5 signed.
CTestLogbook Logbook()
{
    return CTestLogbook()
        .Jump(1, "2024-05-01T10:00:00Z", "Tervola", 4000, 1000, 60, {}, "Anna")
        .Jump(2, "2024-05-02T10:00:00Z", "Kemi", 4000, 1000, 60, {}, "Anna")
        .Jump(3, "2024-05-03T10:00:00Z", "Utti", 3000, 900, 50)
        .Jump(4, "2024-06-04T10:00:00Z", "Kemi", 3000, 800, 45)
        .Jump(5, "2024-06-05T10:00:00Z", "Tervola", 4200, 1000, 62, {}, "Pekka")
        .Jump(6, "2024-07-06T10:00:00Z", "Kemi", 4000, 1100, 55);
}

QString Numbers(const QAbstractItemModel* model)
{
    QStringList numbers;
    for (int row = 0; row < model->rowCount(); ++row)
        numbers << model->index(row, CJumpTableModel::NumberColumn).data().toString();
    return numbers.join(' ');
}

// The desktop window on Logbook(), shown so that key presses and shortcuts reach it.
struct CDesktopWindow
{
    CAppHarness harness;
    CDesktopPane* desktop = nullptr;
    CSearchBar* search = nullptr;

    bool Start()
    {
        if (harness.StartWith(Logbook()).isEmpty())
            return false;
        harness.Frame()->resize(1024, 768);
        harness.Frame()->show();
        QApplication::setActiveWindow(harness.Frame());
        QApplication::processEvents();
        desktop = harness.View()->Desktop();
        search = desktop->Search();
        return harness.View()->IsDesktopLayout();
    }
};

} // namespace

class TestSearch : public QObject
{
    Q_OBJECT

private slots:
    void typingFiltersTheTableAndABadQueryKeepsIt()
    {
        CDesktopWindow window;
        QVERIFY(window.Start());
        QTableView* table = window.desktop->Table();
        CSummaryPane* summary = window.desktop->Summary();
        QCOMPARE(window.search->CountText(), QStringLiteral("6 jumps"));

        // The table, not the field, has the focus at the start; Ctrl+F puts it into the field.
        QVERIFY(table->hasFocus());
        QTest::keyClick(table, Qt::Key_F, Qt::ControlModifier);
        QVERIFY(window.search->Field()->hasFocus());

        // Each key press filters: "kemi" finds 2, 4 and 6, "-signed:yes" leaves 4 and 6.
        QTest::keyClicks(window.search->Field(), QStringLiteral("kemi"));
        QCOMPARE(Numbers(table->model()), QStringLiteral("2 4 6"));
        QTest::keyClicks(window.search->Field(), QStringLiteral(" -signed:yes"));
        QCOMPARE(Numbers(table->model()), QStringLiteral("4 6"));
        QCOMPARE(window.search->CountText(), QStringLiteral("2 of 6 jumps"));
        QCOMPARE(window.desktop->ShownJumps(), (std::vector<int>{3, 5}));
        QVERIFY(window.search->Message().isEmpty());
        // The summary shows the two jumps' totals beside the logbook's.
        QVERIFY(summary->HasShownSummary());
        QCOMPARE(summary->ValueText(CSummaryPane::NumberOfJumps), QStringLiteral("6"));
        QCOMPARE(summary->ShownText(CSummaryPane::NumberOfJumps), QStringLiteral("2"));
        QCOMPARE(summary->ShownText(CSummaryPane::FreefallTime), QStringLiteral("0:01:40"));

        // A term that cannot be read, pasted: its message, and the rows stay.
        window.search->Field()->insert(QStringLiteral(" date:2024-13"));
        QCOMPARE(window.search->Message(), QStringLiteral("date:2024-13: no such month"));
        QCOMPARE(Numbers(table->model()), QStringLiteral("4 6"));

        // Escape clears the field: every jump, no message, the logbook's totals alone.
        QTest::keyClick(window.search->Field(), Qt::Key_Escape);
        QVERIFY(window.search->Text().isEmpty());
        QCOMPARE(Numbers(table->model()), QStringLiteral("1 2 3 4 5 6"));
        QVERIFY(window.search->Message().isEmpty());
        QCOMPARE(window.search->CountText(), QStringLiteral("6 jumps"));
        QVERIFY(!summary->HasShownSummary());
    }

    // The touch layout's sign list lists what the search "signed:no" finds, in list order, and
    // its own search narrows it without leaving it.
    void signListIsTheSearchForUnsignedJumps()
    {
        CAppHarness harness;
        QVERIFY(!harness.StartWith(Logbook()).isEmpty());
        harness.Frame()->resize(360, 640);
        QApplication::processEvents();
        CLogbookView* view = harness.View();
        view->OnViewSignList();
        const CJumpIndex index(harness.Doc());
        const std::vector<std::size_t> unsignedJumps =
            index.Find(CQueryParser::Parse("signed:no", harness.Frame()->Units()).query);
        QCOMPARE(unsignedJumps, (std::vector<std::size_t>{2, 3, 5}));
        QCOMPARE(Numbers(view->findChild<CJumpTableModel*>("listModel")), QStringLiteral("3 4 6"));

        view->findChild<CSearchBar*>("listSearchBar")->SetText(QStringLiteral("kemi"));
        QCOMPARE(Numbers(view->findChild<CJumpTableModel*>("listModel")), QStringLiteral("4 6"));
        view->findChild<CSearchBar*>("listSearchBar")->SetText(QStringLiteral("dz:Alavus"));
        QCOMPARE(view->Mode(), CLogbookView::ViewMode::SignList);
        QCOMPARE(view->findChild<CSearchBar*>("listSearchBar")->CountText(), QStringLiteral("0 of 3 jumps"));
        // Opened again from home, the list shows every unsigned jump.
        view->OnViewHome();
        view->OnViewSignList();
        QCOMPARE(Numbers(view->findChild<CJumpTableModel*>("listModel")), QStringLiteral("3 4 6"));
    }

    // The selected rows, or the shown ones when none is selected, as CSV or JSON by the name.
    void exportSelectionWritesTheChosenJumps()
    {
        CDesktopWindow window;
        QVERIFY(window.Start());
        const struct
        {
            const char* query;
            std::vector<int> selectedRows;
            const char* file;
            QStringList numbers;
        } rows[] = {
            {"", {1, 3}, "two.csv", {"2", "4"}},
            {"tervola", {}, "shown.csv", {"1", "5"}},
            {"n:3..", {2}, "one.json", {"5"}},
        };
        for (const auto& row : rows) {
            const CRow trace{QString::fromLatin1(row.file)};
            window.search->SetText(QString::fromLatin1(row.query));
            QTableView* table = window.desktop->Table();
            table->clearSelection();
            for (const int selected : row.selectedRows)
                table->selectionModel()->select(table->model()->index(selected, 0),
                                                QItemSelectionModel::Select | QItemSelectionModel::Rows);
            const QString path = window.harness.Path(QString::fromLatin1(row.file));
            window.harness.files.exportAnswers = {path};
            window.harness.Commands()->Execute(AppCommands::ID_FILE_EXPORT_SELECTION);
            QVERIFY(window.harness.messages.boxes.isEmpty());
            QFile file(path);
            QVERIFY(file.open(QIODevice::ReadOnly));
            const QByteArray bytes = file.readAll();
            QStringList numbers;
            if (path.endsWith(QStringLiteral(".json"))) {
                for (const QJsonValue jump : QJsonDocument::fromJson(bytes).object().value("jumps").toArray())
                    numbers << QString::number(jump.toObject().value("n").toInt());
            } else {
                QStringList lines = QString::fromUtf8(bytes).split(QStringLiteral("\r\n"), Qt::SkipEmptyParts);
                QVERIFY(lines.takeFirst().startsWith(QStringLiteral("Number,Date")));
                for (const QString& line : lines)
                    numbers << line.section(QLatin1Char(','), 0, 0);
            }
            QCOMPARE(numbers, row.numbers);
            QVERIFY(!QFile::exists(path + QStringLiteral(".saving")));
        }
    }
};

QTEST_MAIN(TestSearch)
#include "AppSearchTest.moc"
