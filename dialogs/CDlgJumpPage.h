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

    // A label in the first column of the grid, buddy of field.
    QLabel* AddRow(QGridLayout* grid, int row, const QString& label, QWidget* field, const QString& unit = {});
    // An editable drop-down with the given entries, the current text set.
    static QComboBox* MakeCombo(const std::vector<std::string>& items, const std::string& text, bool sorted,
                                QWidget* parent);
    // The label column of every page has the same width hint, so pages line up.
    static QGridLayout* MakeGrid(QWidget* page);

    CJumpEdit& m_edit;
};
