#pragma once

#include <QIcon>
#include <QTreeWidget>

#include <array>

class CJump;
class CLogbookDoc;

// The list of jumps: one row per jump with an icon (signed or not, with or without picture)
// and the columns "Jump", "Date" and "Place". Rows remember their jump.
class CJumpListCtrl : public QTreeWidget
{
    Q_OBJECT

public:
    // Icon of a row, by signature and picture.
    enum IconIndex
    {
        Unsigned = 0,
        UnsignedPicture = 1,
        Signed = 2,
        SignedPicture = 3
    };
    // Columns in creation order.
    enum Column
    {
        NumberColumn = 0,
        DateColumn = 1,
        PlaceColumn = 2,
        ColumnCount = 3
    };
    // The room left beside the last column for the vertical scroll bar, at least.
    static constexpr int kScrollBarRoom = 15;

    // An empty list with its three columns and four icons.
    explicit CJumpListCtrl(QWidget* parent = nullptr);

    // The icon a jump's row gets.
    static int JumpIconIndex(const CJump& jump);

    // Refills the list from the document's jumps in list order, only the unsigned ones when
    // unsignedOnly is set; then sizes the columns and scrolls to the last row.
    void Fill(const CLogbookDoc& doc, bool unsignedOnly);
    // Removes every row.
    void Empty();

    // The jump of a row, or null.
    const CJump* JumpAt(int row) const;
    // The jump of the selected row, or null.
    const CJump* SelectedJump() const;
    // The icon index a row shows, or -1.
    int IconIndexAt(int row) const;
    // Removes the row of this jump; false when no row shows it.
    bool RemoveJumpRow(const CJump* jump);
    // Puts a row for jump at row, selected and in view (a jump just added).
    void InsertRow(int row, const CJump& jump);
    // Writes the row's icon and cells again from its jump (after the jump was edited).
    void UpdateRow(int row);
    // The row of a jump, or -1.
    int RowOf(const CJump* jump) const;
    // Selects the row and scrolls it into view.
    void ShowRow(int row);

    // Every column but the last fits its content; the last takes the rest of the width.
    void SizeColumns();
    // Icon and cells of one jump.
    void WriteRow(QTreeWidgetItem* row, const CJump& jump) const;

protected:
    // Resizes the last column with the list.
    void resizeEvent(QResizeEvent* event) override;

private:
    std::array<QIcon, 4> m_icons;
};
