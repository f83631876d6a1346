#pragma once

#include "query/CQuery.h"

#include <QWidget>

class CJumpTableModel;
class CUnitSettings;
class QGridLayout;
class QLabel;
class QLineEdit;
class QMenu;
class QToolButton;

// The search field over a list of jumps: the query as typed, a button with the menu of typed
// terms (a term picked is inserted at the cursor), the number of jumps shown beside the field
// and, under it, why a query cannot be read. Each change of the text is read at once; a text
// that cannot be read keeps the last good query. Escape in the field clears it.
class CSearchBar : public QWidget
{
    Q_OBJECT

public:
    // A bar whose exit: and open: terms are read in units (kept by reference, outlives it).
    explicit CSearchBar(const CUnitSettings& units, QWidget* parent = nullptr);

    // The last query that could be read (empty while nothing is typed).
    const CQuery& Query() const { return m_query; }
    QString Text() const;
    // Replaces the text (an empty text clears the search); queryChanged follows when the query changes.
    void SetText(const QString& text);
    // Puts the keyboard focus into the field, its text selected.
    void FocusField();
    // "12 of 340 jumps" while a query is active, "340 jumps" without one.
    void SetCount(std::size_t shown, std::size_t total);
    // Keeps the count at the rows of model among the jumps its filter lets through.
    void CountRowsOf(const CJumpTableModel* model);
    // The text under the field: the reason the query cannot be read, or empty.
    QString Message() const;
    QString CountText() const;
    // The display units changed: the heights of the text are read again.
    void UnitsChanged();

    QLineEdit* Field() const { return m_field; }
    QToolButton* TermsButton() const { return m_termsButton; }
    // Labels the terms menu's items to fit room pixels (the screen's width as it is shown): each
    // term with what it finds, or with an example where that is too wide. Returns the menu.
    QMenu* FitTermsMenu(int room);

    // The message of a term that cannot be read, in the user's language ("date:2024-13: no such month").
    static QString ErrorText(const CQueryError& error);

signals:
    // The text was read into a query other than the one before.
    void queryChanged();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void ReadText();
    void InsertTerm(const QString& term);
    // The count beside the field where it fits, else under it.
    void PlaceCount();

    const CUnitSettings& m_units;
    CQuery m_query;
    QGridLayout* m_grid;
    QLineEdit* m_field;
    QToolButton* m_termsButton;
    QLabel* m_count;
    QLabel* m_message;
    bool m_countBeside = true;
};
