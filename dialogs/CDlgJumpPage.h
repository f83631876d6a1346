#pragma once

#include "controls/CKqPropertyPage.h"

class CJumpEdit;
class QComboBox;
class QGridLayout;
class QLabel;

// What the jump editor's pages share: the editor's rules and working values, and the way a row
// of label, field and unit is laid out.
class CDlgJumpPage : public CKqPropertyPage
{
    Q_OBJECT

public:
    CDlgJumpPage(const QString& title, CJumpEdit& edit, QWidget* parent = nullptr);

    // The page checks its working values through the editor's rules for its page number.
    CCheckResult Validate() override;

protected:
    // Reads the controls into the working values.
    virtual void ReadBack() = 0;
    // The editor's page number of this page.
    virtual int PageNumber() const = 0;

    // A row of the grid: the label, buddy of field, and the field over the rest of the row.
    QLabel* AddRow(QGridLayout* grid, int row, const QString& label, QWidget* field);
    // A row whose field (a number or a date) keeps a handy width, with its unit beside it.
    QLabel* AddCompactRow(QGridLayout* grid, int row, const QString& label, QWidget* field, const QString& unit = {});
    // Shows text in an editable combo from its beginning.
    static void SetComboText(QComboBox* combo, const std::string& text);
    // An editable drop-down with the given entries, the current text set.
    static QComboBox* MakeCombo(const std::vector<std::string>& items, const std::string& text, bool sorted,
                                QWidget* parent);
    // The grid of label and field rows every page is laid out in.
    static QGridLayout* MakeGrid(QWidget* page);

    CJumpEdit& m_edit;
};
