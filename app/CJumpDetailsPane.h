#pragma once

#include <QPersistentModelIndex>
#include <QWidget>

#include <array>
#include <vector>

class CJumpTableModel;
class CSignatureCtrl;
class QLabel;

// The desktop window's details of one jump: every value of the table's row with its column's
// title, the whole note, the signature as it was drawn and the recording's altitude curve, small.
// It follows the model: a change of the jump shown is shown at once.
class CJumpDetailsPane : public QWidget
{
    Q_OBJECT

public:
    // Details of rows of model (not owned, outlives the pane); empty until ShowRow.
    explicit CJumpDetailsPane(CJumpTableModel* model, QWidget* parent = nullptr);

    // Shows the jump of a row of the model; -1 shows nothing.
    void ShowRow(int row);
    // The document position of the jump shown, or -1.
    int JumpIndex() const;
    // The value shown for a column.
    QString ValueText(int column) const;

private:
    void Refresh();

    CJumpTableModel* m_model;
    QPersistentModelIndex m_row; // follows the jump through inserts, removals, moves and sorting
    QLabel* m_title;
    std::vector<QLabel*> m_names;
    std::vector<QLabel*> m_values;
    QLabel* m_note;
    CSignatureCtrl* m_signature;
    class CAltitudeCurve* m_curve;
};
