#pragma once

#include <QTreeView>

class CJump;
class CJumpTableModel;

// The touch layout's list of jumps: a view of the jump table showing the columns "Jump", "Date"
// and "Place", each row with its icon (signed or not, with or without picture). Its model
// decides whether it lists all jumps or those to be signed. A jump just added is selected and
// scrolled into view; when rows go, the selection stays near where they were.
class CJumpListCtrl : public QTreeView
{
    Q_OBJECT

public:
    // The room left beside the last column for the vertical scroll bar, at least.
    static constexpr int kScrollBarRoom = 15;

    // A list on model (not owned), which outlives it.
    explicit CJumpListCtrl(CJumpTableModel* model, QWidget* parent = nullptr);

    CJumpTableModel* Model() const { return m_model; }
    int RowCount() const;
    // The jump of a row, or null.
    const CJump* JumpAt(int row) const;
    // The jump of the selected row, or null.
    const CJump* SelectedJump() const;
    // The row of a jump, or -1.
    int RowOf(const CJump* jump) const;
    // The icon index a row shows, or -1.
    int IconIndexAt(int row) const;
    // A cell's text.
    QString TextAt(int row, int column) const;
    // Selects the row and scrolls it into view.
    void ShowRow(int row);
    // Scrolls to the last row (a list just shown).
    void ShowEnd();

    // Every column but the last fits its content; the last takes the rest of the width.
    void SizeColumns();

protected:
    // Resizes the last column with the list.
    void resizeEvent(QResizeEvent* event) override;

private:
    // Only "Jump", "Date" and "Place" are shown.
    void ShowListColumns();

    CJumpTableModel* m_model;
};
