#pragma once

#include "document/ILogbookObserver.h"
#include "query/CQuery.h"

#include <QAbstractTableModel>
#include <QIcon>

#include <array>
#include <cstdint>
#include <string>
#include <vector>

class CJump;
class CSearchIndex;
class CLogbookDoc;
class CUnitSettings;

// The document's jumps as a table, for the desktop table, the touch layout's jump list and its
// list of jumps to be signed. It keeps no copy of a jump: each row is the position of a jump in
// the document (4 bytes a row), in the order the table is sorted by and only for the jumps its
// filter and the search query let through. Which jumps those are the search index decides (the
// list of jumps to be signed is the query "signed:no"); without a query the index is not asked. The document tells it every change
// (ILogbookObserver), so the views on it follow by themselves; the index must hear of a change
// before the model does. Heights are shown in the display units; sorting compares the values,
// not their text.
class CJumpTableModel : public QAbstractTableModel, public ILogbookObserver
{
    Q_OBJECT

public:
    enum Column
    {
        NumberColumn = 0,
        DateColumn,
        TimeColumn,
        PlaceColumn,
        AircraftColumn,
        TypeColumn,
        ExitColumn,
        OpenColumn,
        FreefallColumn,
        FallrateColumn,
        RigColumn,
        LandingColumn,
        TeamColumn,
        MalfunctionColumn,
        SignerColumn,
        RecordingColumn,
        NoteColumn,
        // What the seal of a signed jump says (model/CJumpSeal.h): an icon and a short text.
        SealColumn,
        ColumnCount
    };
    // Which jumps get a row.
    enum class Filter
    {
        AllJumps,
        UnsignedJumps,
        NoJumps // a list not on screen: no rows, no memory, no work on changes
    };
    // The row's icon in the number column, by signature, seal and picture. A jump changed after
    // signing shows the warning whether or not it has a picture.
    enum IconIndex
    {
        Unsigned = 0,
        UnsignedPicture = 1,
        Signed = 2,
        SignedPicture = 3,
        Sealed = 4,
        SealedPicture = 5,
        SealChanged = 6,
        IconCount
    };

    // A model on doc, in number order; units are the frame's display units; index is an observer
    // of doc registered before this model. All three outlive it.
    CJumpTableModel(CLogbookDoc& doc, const CUnitSettings& units, const CSearchIndex& index,
                    Filter filter = Filter::AllJumps, QObject* parent = nullptr);
    ~CJumpTableModel() override;

    // The icon a jump's row gets.
    static int JumpIconIndex(const CJump& jump);
    // Shows all jumps, only the unsigned ones, or none.
    void SetFilter(Filter filter);
    Filter GetFilter() const { return m_filter; }
    // Shows only the jumps the filter lets through that also match query (empty: all of them).
    void SetQuery(const CQuery& query);
    const CQuery& GetQuery() const { return m_userQuery; }
    // The number of jumps the filter alone lets through, whatever the query.
    std::size_t FilteredCount() const;
    // The document positions of the rows, in the order shown.
    std::vector<std::size_t> RowJumps() const;

    // The document position of the jump in a row, or -1.
    int JumpIndexAt(int row) const;
    // The jump of a row, or null.
    const CJump* JumpAt(int row) const;
    // The row of the jump at a document position, or -1 when the filter hides it.
    int RowOfJump(std::size_t index) const;
    // The icon index a row shows, or -1.
    int IconIndexAt(int row) const;
    // The display units changed: every height and header is shown again.
    void UnitsChanged();
    // The bytes the model keeps for its rows.
    std::size_t MemoryBytes() const { return m_rows.capacity() * sizeof(std::uint32_t); }
    int SortColumn() const { return m_sortColumn; }
    Qt::SortOrder SortOrder() const { return m_sortOrder; }

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;
    // Sorts by the column's values; equal values stay in number order.
    void sort(int column, Qt::SortOrder order = Qt::AscendingOrder) override;

    void JumpsInserted(std::size_t first, std::size_t count) override;
    void JumpsChanged(std::size_t first, std::size_t count) override;
    void JumpsRemoved(std::size_t first, std::size_t count) override;
    void JumpMoved(std::size_t from, std::size_t to) override;
    void SettingsChanged() override;
    void LogbookReset() override;

private:
    // What a column sorts by: a number, or a text compared without regard to ASCII case.
    struct SortKey
    {
        double number = 0;
        std::string text;
    };
    SortKey KeyOf(const CJump& jump, int column) const;
    // True when the jump at document position a goes before the one at b.
    bool Before(std::uint32_t a, const SortKey& keyA, std::uint32_t b, const SortKey& keyB) const;
    // Whether the jump at document position index gets a row.
    bool Accepts(std::size_t index) const;
    // The filter's terms followed by the query's.
    void CombineQuery();
    // The positions that get a row, ascending.
    std::vector<std::uint32_t> AcceptedJumps() const;
    // The row a jump at document position index would take among the present rows, the row skip
    // left out (-1: none).
    int InsertRow(std::uint32_t index, int skip = -1) const;
    // Puts the row of the jump at document position index where the order wants it.
    void Reposition(std::size_t index);
    // Fills the rows from the document, filtered and sorted.
    void Rebuild();
    QString Text(const CJump& jump, int column) const;

    CLogbookDoc& m_doc;
    const CUnitSettings& m_units;
    const CSearchIndex& m_index;
    Filter m_filter;
    CQuery m_userQuery;
    CQuery m_query; // what the index is asked: the filter's terms and the user's
    int m_sortColumn = NumberColumn;
    Qt::SortOrder m_sortOrder = Qt::AscendingOrder;
    // A row whose jump is gone, while the views hear of its removal.
    static constexpr std::uint32_t kGone = 0xffffffffu;
    std::vector<std::uint32_t> m_rows; // document position of each row
    std::array<QIcon, IconCount> m_rowIcons;
    QIcon m_recordingIcon;
    // Intact, changed, unsealed.
    std::array<QIcon, 3> m_sealIcons;
};
