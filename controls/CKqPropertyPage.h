#pragma once

#include "editing/CCheckResult.h"

#include <QHash>
#include <QString>
#include <QWidget>

class CKqPropertySheet;
class QDialog;

// One tab of an editor sheet. A page shows the sheet's working values in its controls
// (Initialise), reads them back and runs its rules (Validate), and names the control of each
// field so that the sheet can put the focus where a failed rule points.
class CKqPropertyPage : public QWidget
{
    Q_OBJECT

public:
    // A page with its tab title.
    explicit CKqPropertyPage(const QString& title, QWidget* parent = nullptr);

    // The tab's title.
    QString Title() const { return m_title; }

    // Fills the lists and loads the working values into the controls; called once before the
    // sheet shows.
    virtual void Initialise() = 0;
    // Reads the controls into the working values and checks them; the first failure names its
    // message and field.
    virtual CCheckResult Validate() = 0;
    // The page has become the current one, after the page left was read back and passed its
    // check: a page that shows values worked out from other pages shows them afresh here.
    virtual void Activated() {}

    // The control of a field, or null.
    QWidget* ControlFor(int field) const { return m_fields.value(field, nullptr); }
    // Gives the field's control the focus and selects its text, so typing replaces it.
    void FocusField(int field);

    // The sheet that holds the page (set when the page is added), or null.
    CKqPropertySheet* Sheet() const { return m_sheet; }
    void SetSheet(CKqPropertySheet* sheet) { m_sheet = sheet; }
    // Runs a keypad or other modal dialog through the sheet's dialog runner.
    int RunModal(QDialog& dialog) const;
    // The page a control lies on, or null.
    static CKqPropertyPage* PageOf(QWidget* control);

protected:
    // Names the control that takes the focus for a field.
    void MapField(int field, QWidget* control) { m_fields.insert(field, control); }

private:
    QString m_title;
    QHash<int, QWidget*> m_fields;
    CKqPropertySheet* m_sheet = nullptr;
};
