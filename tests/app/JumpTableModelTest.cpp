// The table of jumps on a real document: rows and columns, sorting by values, display units,
// the unsigned filter and a search, and each change of the document arriving as the change it is.

#include "app/CJumpTableModel.h"
#include "app/CSearchIndex.h"
#include "document/CLogbookDoc.h"
#include "model/CJump.h"
#include "query/CQueryParser.h"
#include "units/CUnitSettings.h"

#include <QSignalSpy>
#include <QtTest>

namespace {

// Jumps 7, 9, 10, 12 in a logbook; places, heights and dates chosen so that sorting their text
// would give another order than sorting their values.
void Fill(CLogbookDoc& doc)
{
    struct
    {
        int number;
        int year, month, day;
        const char* place;
        int exit;
        bool signed_;
    } const jumps[] = {{7, 2024, 12, 1, "utti", 900, true},
                       {9, 2025, 1, 2, "Kemi", 10000, false},
                       {10, 2023, 6, 30, "Tervola", 4000, true},
                       {12, 2025, 2, 10, "Alavus", 3000, false}};
    for (const auto& j : jumps) {
        auto jump = std::make_unique<CJump>(j.number, CZonedDateTime{CDateTime(j.year, j.month, j.day, 10, 0, 0), 0},
                                            CDateTime(2024, 1, 1));
        jump->SetPlace(j.place);
        jump->SetFallrate(FallrateKind::Manual, j.exit, 800, 30, 0, 0);
        if (j.signed_)
            jump->SetSignature("Anna", {{{1, 1}, {5, 5}}});
        doc.AddJump(std::move(jump));
    }
}

QString Numbers(const CJumpTableModel& model)
{
    QStringList numbers;
    for (int row = 0; row < model.rowCount(); ++row)
        numbers << model.index(row, CJumpTableModel::NumberColumn).data().toString();
    return numbers.join(' ');
}

} // namespace

class TestJumpTableModel : public QObject
{
    Q_OBJECT

private slots:
    void sortsByValuesNotTexts()
    {
        CLogbookDoc doc;
        Fill(doc);
        const CUnitSettings units(CUnitSettings::Metric, 0, 0);
        const CSearchIndex index(doc);
        CJumpTableModel model(doc, units, index);
        QCOMPARE(model.columnCount(), int(CJumpTableModel::ColumnCount));
        QCOMPARE(Numbers(model), QStringLiteral("7 9 10 12"));
        const struct
        {
            int column;
            Qt::SortOrder order;
            const char* numbers;
        } rows[] = {{CJumpTableModel::ExitColumn, Qt::AscendingOrder, "7 12 10 9"},
                    {CJumpTableModel::ExitColumn, Qt::DescendingOrder, "9 10 12 7"},
                    {CJumpTableModel::DateColumn, Qt::AscendingOrder, "10 7 9 12"},
                    {CJumpTableModel::PlaceColumn, Qt::AscendingOrder, "12 9 10 7"},
                    {CJumpTableModel::SignerColumn, Qt::AscendingOrder, "9 12 7 10"},
                    {CJumpTableModel::NumberColumn, Qt::DescendingOrder, "12 10 9 7"}};
        for (const auto& row : rows) {
            model.sort(row.column, row.order);
            QVERIFY2(Numbers(model) == QLatin1String(row.numbers),
                     qPrintable(QStringLiteral("column %1: %2").arg(row.column).arg(Numbers(model))));
        }
    }

    void showsHeightsInTheDisplayUnits()
    {
        CLogbookDoc doc;
        Fill(doc);
        CUnitSettings units(CUnitSettings::Metric, 0, 0);
        const CSearchIndex index(doc);
        CJumpTableModel model(doc, units, index);
        QSignalSpy headers(&model, &QAbstractItemModel::headerDataChanged);
        const QModelIndex exit = model.index(1, CJumpTableModel::ExitColumn);
        QCOMPARE(exit.data().toString(), QLocale().toString(10000));
        QCOMPARE(model.headerData(CJumpTableModel::ExitColumn, Qt::Horizontal).toString(), QStringLiteral("Exit [m]"));
        units.Set(CUnitSettings::Imperial, 0, 0);
        model.UnitsChanged();
        QCOMPARE(headers.size(), 1);
        QCOMPARE(exit.data().toString(), QLocale().toString(32808));
        QCOMPARE(model.headerData(CJumpTableModel::ExitColumn, Qt::Horizontal).toString(), QStringLiteral("Exit [ft]"));
        QCOMPARE(model.index(0, CJumpTableModel::SignerColumn).data().toString(), QStringLiteral("Anna"));
        QCOMPARE(model.index(1, CJumpTableModel::SignerColumn).data().toString(), QString());
    }

    // A change reaches the model as the change it is: one row changed, inserted where the sort
    // wants it, moved, or gone; never a reset of the whole table.
    void followsEachChangeOfTheDocument()
    {
        CLogbookDoc doc;
        Fill(doc);
        const CUnitSettings units(CUnitSettings::Metric, 0, 0);
        // The index hears of each change before the models that ask it.
        CSearchIndex index(doc);
        doc.AddObserver(&index);
        CJumpTableModel table(doc, units, index);
        table.sort(CJumpTableModel::PlaceColumn, Qt::AscendingOrder);
        CJumpTableModel unsignedOnly(doc, units, index, CJumpTableModel::Filter::UnsignedJumps);
        QCOMPARE(Numbers(unsignedOnly), QStringLiteral("9 12"));
        // A search's rows follow a change of place and of number as well.
        CJumpTableModel found(doc, units, index);
        found.SetQuery(CQueryParser::Parse("n:..10 -vaala", units).query);
        QCOMPARE(Numbers(found), QStringLiteral("7 9 10"));
        QSignalSpy changed(&table, &QAbstractItemModel::dataChanged);
        QSignalSpy reset(&table, &QAbstractItemModel::modelReset);
        QSignalSpy moved(&table, &QAbstractItemModel::rowsMoved);

        // Jump 10's date changes: its row (row 2, Tervola) alone.
        doc.ChangeJump(2, [](CJump& jump) { return jump.SetTimestamp({CDateTime(2023, 7, 1), 0}); });
        QCOMPARE(changed.size(), 1);
        QCOMPARE(changed[0][0].toModelIndex().row(), 2);
        QCOMPARE(changed[0][1].toModelIndex().row(), 2);
        // Jump 9 (Kemi) becomes Vaala: it moves behind utti.
        doc.ChangeJump(1, [](CJump& jump) { return jump.SetPlace("Vaala"); });
        QCOMPARE(moved.size(), 1);
        QCOMPARE(Numbers(table), QStringLiteral("12 10 7 9"));
        QCOMPARE(Numbers(found), QStringLiteral("7 10"));
        // A new jump 8 at Helsinki joins between Alavus and Tervola; it is not signed.
        auto added = std::make_unique<CJump>(8, CZonedDateTime{CDateTime(2025, 3, 1), 0}, CDateTime(2025, 3, 1));
        added->SetPlace("Helsinki");
        doc.AddJump(std::move(added));
        QCOMPARE(Numbers(table), QStringLiteral("12 8 10 7 9"));
        QCOMPARE(Numbers(unsignedOnly), QStringLiteral("8 9 12"));
        QCOMPARE(Numbers(found), QStringLiteral("7 8 10"));
        // Signing jump 12 takes it out of the unsigned rows only.
        doc.ChangeJump(4, [](CJump& jump) { return jump.SetSignature("Pekka", {{{2, 2}, {4, 4}}}); });
        QCOMPARE(Numbers(unsignedOnly), QStringLiteral("8 9"));
        QCOMPARE(table.rowCount(), 5);
        // Renumbering jump 7 to 11 moves it in the document; its row stays where the place wants.
        doc.ChangeJump(0, [](CJump& jump) { return jump.SetNumber(11); });
        QCOMPARE(Numbers(table), QStringLiteral("12 8 10 11 9"));
        QCOMPARE(table.JumpAt(3)->GetNumber(), 11);
        QCOMPARE(Numbers(found), QStringLiteral("8 10"));
        doc.RemoveJumps({0, 4});
        QCOMPARE(Numbers(table), QStringLiteral("10 11 9"));
        QCOMPARE(Numbers(found), QStringLiteral("10"));
        QCOMPARE(Numbers(unsignedOnly), QStringLiteral("9"));
        QCOMPARE(reset.size(), 0);
        doc.Clear();
        QCOMPARE(reset.size(), 1);
        QCOMPARE(table.rowCount(), 0);
        doc.RemoveObserver(&index);
    }
};

QTEST_MAIN(TestJumpTableModel)
#include "JumpTableModelTest.moc"
